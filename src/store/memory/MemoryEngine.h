// The engine of memory: files held in maps, gone with the engine. For tests and demonstrations.
#pragma once

#include "store/Engine.h"

#include <map>

namespace vorandine::store {

class MemoryEngine : public Engine {
  public:
    // With all files of the catalogue, empty.
    MemoryEngine();
    ~MemoryEngine() override;

    [[nodiscard]] EngineFile* file(const std::string& name) override;
    [[nodiscard]] std::vector<std::string> files() override;
    void atomically(const std::function<void()>& work) override;

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

    std::map<std::string, std::unique_ptr<File>> files_;
    std::vector<Undo> journal_;
    bool transaction_ = false;
    bool scanning_ = false;

    // Throws Error(StoreFailed) where a visitor is being called.
    void requireNoScan() const;
    void rollBack() noexcept;
};

} // namespace vorandine::store
