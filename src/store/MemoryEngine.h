// The engine of memory: files held in maps, gone with the engine. For tests and demonstrations.
#pragma once

#include "store/Engine.h"

#include <map>

namespace vorandine::store {

class MemoryEngine : public Engine {
  public:
    // With all files of the catalogue, empty.
    MemoryEngine();

    [[nodiscard]] EngineFile* file(const std::string& name) override;
    [[nodiscard]] std::vector<std::string> files() override;
    void atomically(const std::function<void()>& work) override;

  private:
    // std::string compares bytes as unsigned: the binary order that engines promise.
    using Records = std::map<std::string, std::string, std::less<>>;

    // What a key held before a write of the running transaction.
    struct Before {
        Records* records;
        std::string key;
        std::optional<std::string> record;
    };

    class File;

    std::map<std::string, std::unique_ptr<File>> files_;
    std::vector<Before> journal_;
    bool transaction_ = false;

    void undo() noexcept;
};

} // namespace vorandine::store
