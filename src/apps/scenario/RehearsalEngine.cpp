// Failures on demand and the journal, around each file of the engine below.
#include "apps/scenario/RehearsalEngine.h"

#include "text/Error.h"

#include <utility>

namespace vorandine::scenario {

namespace {

// Set as long as it lives.
class Flag {
  public:
    explicit Flag(bool& of) : flag_(of) { flag_ = true; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;
    ~Flag() { flag_ = false; }

  private:
    bool& flag_;
};

} // namespace

class RehearsalEngine::File : public store::EngineFile {
  public:
    File(RehearsalEngine& owner, std::string name, store::EngineFile& file)
        : owner_(owner), name_(std::move(name)), file_(file) {}

    std::optional<std::string> read(std::string_view key) override {
        owner_.step("read ", name_, key);
        owner_.checkRead(name_);
        return file_.read(key);
    }

    std::optional<std::string> write(std::string_view key, std::string_view record) override {
        owner_.step("write ", name_, key);
        owner_.checkWrite(name_, key);
        std::optional<std::string> before = file_.write(key, record);
        note("write ", key);
        return before;
    }

    std::optional<std::string> erase(std::string_view key) override {
        owner_.step("write ", name_, key);
        owner_.checkWrite(name_, key);
        std::optional<std::string> before = file_.erase(key);
        if (before)
            note("delete ", key);
        return before;
    }

    // Fails as the steps would that it stands for.
    // NOLINTNEXTLINE(bugprone-exception-escape): it exchanges no two things, and may throw
    std::optional<store::Swapped> swap(const store::Swap& change) override {
        if (owner_.onServer()) // elsewhere it is made step by step
            owner_.step("write ", name_, change.key);
        if (change.expected)
            owner_.checkRead(name_);
        owner_.checkWrite(name_, change.key);
        std::optional<store::Swapped> swapped = file_.swap(change);
        if (swapped && swapped->done && (change.record || swapped->before))
            note(change.record ? "write " : "delete ", change.key);
        return swapped;
    }

    void scan(const store::KeyRange& range, const Visitor& visit, std::size_t atMost) override {
        owner_.step("scan ", name_, {});
        owner_.checkRead(name_);
        file_.scan(range, visit, atMost);
    }

  private:
    // Records kept as they were are the store's affair.
    void note(const char* what, std::string_view key) {
        if (name_ != store::HistoryFile && !owner_.aside_ && owner_.journal_ != nullptr)
            owner_.journal_->push_back(what + name_ + " " + std::string(key) + owner_.mark_);
    }

    RehearsalEngine& owner_;
    std::string name_;
    store::EngineFile& file_;
};

RehearsalEngine::RehearsalEngine(std::shared_ptr<store::Engine> engine,
                                 std::vector<std::string>* journal, std::string mark)
    : engine_(std::move(engine)), journal_(journal), mark_(std::move(mark)) {}

RehearsalEngine::~RehearsalEngine() = default;

void RehearsalEngine::checkWrite(const std::string& file, std::string_view key) const {
    if (frozen_)
        throw Error(errors::StoreFailed, "Le scénario est terminé.");
    if (aside_)
        return;
    if (failing_.writes.count(file) > 0 || failing_.keys.count({file, std::string(key)}) > 0)
        throw Error(errors::DiskFull,
                    "Écriture impossible dans le fichier " + file + " : le disque est plein.");
}

void RehearsalEngine::checkRead(const std::string& file) const {
    if (frozen_)
        throw Error(errors::StoreFailed, "Le scénario est terminé.");
    if (failing_.reads.count(file) > 0 && !aside_)
        throw Error(errors::Damaged,
                    "Lecture impossible dans le fichier " + file + " : le disque est endommagé.");
}

void RehearsalEngine::step(const char* what, const std::string& file, std::string_view key) const {
    if (onStep_ && !transaction_ && !aside_ && file != store::HistoryFile)
        onStep_(what + file + (key.empty() ? "" : " ") + std::string(key));
}

void RehearsalEngine::aside(const std::function<void()>& work) {
    const Flag aside(aside_);
    work();
}

store::EngineFile* RehearsalEngine::file(const std::string& name) {
    const auto known = files_.find(name);
    if (known != files_.end())
        return known->second.get();
    store::EngineFile* const below = engine_->file(name);
    if (below == nullptr)
        return nullptr;
    return files_.emplace(name, std::make_unique<File>(*this, name, *below)).first->second.get();
}

std::vector<std::optional<std::string>>
RehearsalEngine::readMany(const std::vector<store::Place>& places) {
    for (const store::Place& place : places) {
        step("read ", place.file, place.key);
        checkRead(place.file);
    }
    return engine_->readMany(places);
}

// What another seat has stored may still be on its way from a server: what a scenario shows must
// not hang on how fast it comes. With the answer to a question it is there.
std::uint64_t RehearsalEngine::writesOfOthers() {
    if (onServer())
        static_cast<void>(engine_->file(std::string(store::HistoryFile))->read({}));
    return engine_->writesOfOthers();
}

void RehearsalEngine::atomically(const std::function<void()>& work) {
    step("transaction", {}, {});
    const std::size_t before = journal_ != nullptr ? journal_->size() : 0;
    try {
        engine_->atomically([&] {
            const Flag inside(transaction_);
            work();
        });
    } catch (...) {
        if (journal_ != nullptr)
            journal_->resize(before);
        throw;
    }
}

} // namespace vorandine::scenario
