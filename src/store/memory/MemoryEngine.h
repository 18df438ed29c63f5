// The engine of memory: files held in maps, gone with the last connection to them. For tests and
// demonstrations.
#pragma once

#include "store/Engine.h"

#include <map>

namespace vorandine::store {

// All connections to the same files are used by one thread. While one is in a transaction, the
// others throw Error(Locked): nobody could end it while they wait.
class MemoryEngine : public Engine {
  public:
    // With all files of the catalogue, empty.
    MemoryEngine();
    ~MemoryEngine() override;

    [[nodiscard]] EngineFile* file(const std::string& name) override;
    [[nodiscard]] std::vector<std::string> files() override;
    void atomically(const std::function<void()>& work) override;
    [[nodiscard]] std::unique_ptr<Engine> another() override;
    [[nodiscard]] std::uint64_t writesOfOthers() override;

  private:
    // std::string compares bytes as unsigned: the binary order that engines promise.
    using Records = std::map<std::string, std::string, std::less<>>;

    // What undoes one step of the running transaction, without needing memory to do so: the record
    // that was replaced, the node that was erased, or neither where the key was new.
    struct Undo {
        Records* records;
        std::string key;
        std::optional<std::string> replaced;
        Records::node_type erased;
    };

    class File;
    // What all connections share.
    struct Data {
        std::map<std::string, Records> files;
        const MemoryEngine* inTransaction = nullptr;
        bool scanning = false;
        std::uint64_t writes = 0; // that took effect, those of a transaction counted as one
    };

    std::shared_ptr<Data> data_;
    std::map<std::string, std::unique_ptr<File>> files_;
    std::vector<Undo> journal_;
    std::uint64_t ownWrites_ = 0;

    explicit MemoryEngine(std::shared_ptr<Data> data);

    [[nodiscard]] bool inTransaction() const noexcept { return data_->inTransaction == this; }
    // Throws Error(StoreFailed) where a visitor is being called, Error(Locked) within the
    // transaction of another connection.
    void requireFree() const;
    void written() noexcept;
    void rollBack() noexcept;
};

} // namespace vorandine::store
