// Maps, and a journal of what the running transaction has replaced.
#include "store/memory/MemoryEngine.h"

#include "records/Layout.h"
#include "text/Error.h"

#include <utility>

namespace vorandine::store {

class MemoryEngine::File : public EngineFile {
  public:
    File(MemoryEngine& engine, Records& records) : engine_(engine), records_(records) {}

    std::optional<std::string> read(std::string_view key) override {
        engine_.requireFree();
        const auto at = records_.find(key);
        if (at == records_.end())
            return std::nullopt;
        return at->second;
    }

    std::optional<std::string> write(std::string_view key, std::string_view record) override {
        engine_.requireFree();
        std::string copy(record);
        const auto at = records_.find(key);
        Undo* const step = remember(key);
        if (at == records_.end()) {
            records_.emplace(key, std::move(copy));
            engine_.written();
            return std::nullopt;
        }
        std::optional<std::string> before = at->second;
        std::swap(at->second, copy);
        if (step != nullptr)
            step->replaced = std::move(copy);
        engine_.written();
        return before;
    }

    std::optional<std::string> erase(std::string_view key) override {
        engine_.requireFree();
        const auto at = records_.find(key);
        if (at == records_.end())
            return std::nullopt;
        std::optional<std::string> before = at->second;
        Undo* const step = remember(key);
        Records::node_type node = records_.extract(at);
        if (step != nullptr)
            step->erased = std::move(node);
        engine_.written();
        return before;
    }

    void scan(const KeyRange& range, const Visitor& visit, std::size_t atMost) override {
        const Scan scan(engine_);
        for (auto at = records_.lower_bound(range.from); at != records_.end() && atMost > 0;
             ++at, --atMost) {
            if (range.to && at->first >= *range.to)
                break;
            if (!visit(at->first, at->second))
                break;
        }
    }

  private:
    // Ends the scan, however its visitor leaves it.
    class Scan {
      public:
        explicit Scan(MemoryEngine& engine) : engine_(engine) {
            engine.requireFree();
            engine.data_->scanning = true;
        }
        Scan(const Scan&) = delete;
        Scan& operator=(const Scan&) = delete;
        ~Scan() { engine_.data_->scanning = false; }

      private:
        MemoryEngine& engine_;
    };

    MemoryEngine& engine_;
    Records& records_;

    // A step of the running transaction; null outside one.
    Undo* remember(std::string_view key) {
        if (!engine_.inTransaction())
            return nullptr;
        engine_.journal_.push_back({&records_, std::string(key), std::nullopt, {}});
        return &engine_.journal_.back();
    }
};

MemoryEngine::MemoryEngine() : MemoryEngine(std::make_shared<Data>()) {}

MemoryEngine::MemoryEngine(std::shared_ptr<Data> data) : data_(std::move(data)) {
    const auto add = [this](const std::string& name) {
        files_.emplace(name, std::make_unique<File>(*this, data_->files[name]));
    };
    for (const records::FileLayout& known : records::files())
        add(std::string(known.name));
    add(std::string(HistoryFile));
}

MemoryEngine::~MemoryEngine() = default;

EngineFile* MemoryEngine::file(const std::string& name) {
    const auto at = files_.find(name);
    return at == files_.end() ? nullptr : at->second.get();
}

std::vector<std::string> MemoryEngine::files() {
    std::vector<std::string> names;
    names.reserve(files_.size());
    for (const auto& [name, file] : files_)
        if (name != HistoryFile)
            names.push_back(name);
    return names;
}

std::unique_ptr<Engine> MemoryEngine::another() {
    return std::unique_ptr<Engine>(new MemoryEngine(data_));
}

std::uint64_t MemoryEngine::writesOfOthers() {
    return data_->writes - ownWrites_;
}

// It could be done during a scan; engines that cannot are held to be worked with all the same.
void MemoryEngine::requireFree() const {
    if (data_->scanning)
        throw Error(errors::StoreFailed, "Cette base est en cours de lecture.");
    if (data_->inTransaction != nullptr && !inTransaction())
        throw Error(errors::Locked, "Cette base est occupée par un autre poste. Attendez qu'il ait "
                                    "fini, puis recommencez.");
}

// Of a transaction, at its end.
void MemoryEngine::written() noexcept {
    if (inTransaction())
        return;
    ++data_->writes;
    ++ownWrites_;
}

void MemoryEngine::atomically(const std::function<void()>& work) {
    requireFree();
    if (inTransaction())
        throw Error(errors::StoreFailed, "Une transaction est déjà en cours dans cette base.");
    data_->inTransaction = this;
    try {
        work();
    } catch (...) {
        rollBack();
        throw;
    }
    data_->inTransaction = nullptr;
    if (!journal_.empty())
        written();
    journal_.clear();
}

// Backwards, so that a key written twice gets its oldest record back.
void MemoryEngine::rollBack() noexcept {
    data_->inTransaction = nullptr;
    for (; !journal_.empty(); journal_.pop_back()) {
        Undo& step = journal_.back();
        if (!step.erased.empty())
            step.records->insert(std::move(step.erased));
        else if (step.replaced)
            step.records->find(step.key)->second = std::move(*step.replaced);
        else
            step.records->erase(step.key);
    }
}

} // namespace vorandine::store
