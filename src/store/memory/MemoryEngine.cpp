// Maps, and a journal of what the running transaction has replaced.
#include "store/memory/MemoryEngine.h"

#include "records/Layout.h"
#include "text/Error.h"

#include <utility>

namespace vorandine::store {

class MemoryEngine::File : public EngineFile {
  public:
    explicit File(MemoryEngine& engine) : engine_(engine) {}

    std::optional<std::string> read(std::string_view key) override {
        engine_.requireNoScan();
        const auto at = records_.find(key);
        if (at == records_.end())
            return std::nullopt;
        return at->second;
    }

    std::optional<std::string> write(std::string_view key, std::string_view record) override {
        engine_.requireNoScan();
        std::string copy(record);
        const auto at = records_.find(key);
        Undo* const step = remember(key);
        if (at == records_.end()) {
            records_.emplace(key, std::move(copy));
            return std::nullopt;
        }
        std::optional<std::string> before = at->second;
        std::swap(at->second, copy);
        if (step != nullptr)
            step->replaced = std::move(copy);
        return before;
    }

    std::optional<std::string> erase(std::string_view key) override {
        engine_.requireNoScan();
        const auto at = records_.find(key);
        if (at == records_.end())
            return std::nullopt;
        std::optional<std::string> before = at->second;
        Undo* const step = remember(key);
        Records::node_type node = records_.extract(at);
        if (step != nullptr)
            step->erased = std::move(node);
        return before;
    }

    void scan(const KeyRange& range, const Visitor& visit) override {
        const Scan scan(engine_);
        for (auto at = records_.lower_bound(range.from); at != records_.end(); ++at) {
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
            engine.requireNoScan();
            engine.scanning_ = true;
        }
        Scan(const Scan&) = delete;
        Scan& operator=(const Scan&) = delete;
        ~Scan() { engine_.scanning_ = false; }

      private:
        MemoryEngine& engine_;
    };

    MemoryEngine& engine_;
    Records records_;

    // A step of the running transaction; null outside one.
    Undo* remember(std::string_view key) {
        if (!engine_.transaction_)
            return nullptr;
        engine_.journal_.push_back({&records_, std::string(key), std::nullopt, {}});
        return &engine_.journal_.back();
    }
};

MemoryEngine::MemoryEngine() {
    for (const records::FileLayout& known : records::files())
        files_.emplace(known.name, std::make_unique<File>(*this));
    files_.emplace(HistoryFile, std::make_unique<File>(*this));
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

// It could be done here; engines that cannot are held to be worked with all the same.
void MemoryEngine::requireNoScan() const {
    if (scanning_)
        throw Error(errors::StoreFailed, "Cette base est en cours de lecture.");
}

void MemoryEngine::atomically(const std::function<void()>& work) {
    requireNoScan();
    if (transaction_)
        throw Error(errors::StoreFailed, "Une transaction est déjà en cours dans cette base.");
    transaction_ = true;
    try {
        work();
    } catch (...) {
        rollBack();
        throw;
    }
    journal_.clear();
    transaction_ = false;
}

// Backwards, so that a key written twice gets its oldest record back.
void MemoryEngine::rollBack() noexcept {
    transaction_ = false;
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
