// A storage engine that fails on demand, notes what reached the engine below in a journal, and can
// be stopped before each step. The control works through it, and so does the stage of a scenario,
// aside from all that.
#pragma once

#include "store/Engine.h"

#include <functional>
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
    // `engine` is never null. Writes are noted in `journal`, which must outlive this, each entry
    // with `mark` at its end; null: nowhere.
    explicit RehearsalEngine(std::shared_ptr<store::Engine> engine,
                             std::vector<std::string>* journal = nullptr, std::string mark = {});
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
    // Called before each step that others could come between: "read FILE KEY", "scan FILE", "write
    // FILE KEY", or "transaction", which is one whatever it holds. History apart.
    void onStep(std::function<void(const std::string& step)> call) { onStep_ = std::move(call); }

    // What `work` does neither fails on demand, nor is noted, nor counts as steps.
    void aside(const std::function<void()>& work);

    [[nodiscard]] store::EngineFile* file(const std::string& name) override;
    [[nodiscard]] std::vector<std::string> files() override { return engine_->files(); }
    [[nodiscard]] std::vector<std::optional<std::string>>
    readMany(const std::vector<store::Place>& places) override;
    void atomically(const std::function<void()>& work) override;
    void consistently(const std::function<void()>& work) override { engine_->consistently(work); }
    [[nodiscard]] std::unique_ptr<store::Engine> another() override { return engine_->another(); }
    [[nodiscard]] std::uint64_t writesOfOthers() override;
    [[nodiscard]] std::uint64_t roundTrips() override { return engine_->roundTrips(); }

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
    bool aside_ = false;
    bool transaction_ = false;
    std::function<void(const std::string&)> onStep_;
    std::vector<std::string>* journal_; // "write FILE KEY", "delete FILE KEY"
    std::string mark_;

    [[nodiscard]] bool onServer() const { return engine_->roundTrips() > 0; }
    void checkWrite(const std::string& file, std::string_view key) const;
    void checkRead(const std::string& file) const;
    void step(const char* what, const std::string& file, std::string_view key) const;
};

} // namespace vorandine::scenario
