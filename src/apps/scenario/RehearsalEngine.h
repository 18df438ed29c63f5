// A storage engine that fails on demand and keeps a journal of what reached the engine below. The
// control works through it; the stage of a scenario works on the engine below.
#pragma once

#include "store/Engine.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorandine::scenario {

class RehearsalEngine : public store::Engine {
  public:
    // Never null; shared with the stage.
    explicit RehearsalEngine(std::shared_ptr<store::Engine> engine);
    ~RehearsalEngine() override;

    // From here on: writing and erasing throws Error(DiskFull), of that key alone if one is given;
    // reading and scanning throws Error(Damaged), in that file.
    void failWrites(const std::string& file) { failing_.writes.insert(file); }
    void failWrites(const std::string& file, const std::string& key) {
        failing_.keys.insert({file, key});
    }
    void failReads(const std::string& file) { failing_.reads.insert(file); }
    void failNothing() noexcept { failing_ = {}; }
    // The scenario is over: nothing reaches the engine any more, everything throws.
    void freeze() noexcept { frozen_ = true; }

    // "write FILE KEY" and "delete FILE KEY" since the last call, in order.
    [[nodiscard]] std::vector<std::string> takeJournal();

    [[nodiscard]] store::EngineFile* file(const std::string& name) override;
    [[nodiscard]] std::vector<std::string> files() override { return engine_->files(); }
    void atomically(const std::function<void()>& work) override;
    void consistently(const std::function<void()>& work) override { engine_->consistently(work); }

  private:
    class File;
    struct Failing {
        std::set<std::string> writes;
        std::set<std::pair<std::string, std::string>> keys;
        std::set<std::string> reads;
    };

    std::shared_ptr<store::Engine> engine_;
    std::map<std::string, std::unique_ptr<File>> files_;
    Failing failing_;
    bool frozen_ = false;
    std::vector<std::string> journal_;

    void checkWrite(const std::string& file, std::string_view key) const;
    void checkRead(const std::string& file) const;
};

} // namespace vorandine::scenario
