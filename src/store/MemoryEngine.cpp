// Maps, and a journal of what the running transaction has replaced.
#include "store/MemoryEngine.h"

#include "store/Catalogue.h"
#include "text/Error.h"

#include <utility>

namespace vorandine::store {

class MemoryEngine::File : public EngineFile {
  public:
    explicit File(MemoryEngine& engine) : engine_(engine) {}

    std::optional<std::string> read(std::string_view key) override {
        const auto at = records_.find(key);
        if (at == records_.end())
            return std::nullopt;
        return at->second;
    }

    void write(std::string_view key, std::string_view record) override {
        std::string copy(record);
        const auto at = records_.find(key);
        if (at == records_.end()) {
            remember(key, std::nullopt);
            records_.emplace(key, std::move(copy));
        } else {
            remember(key, at->second);
            at->second = std::move(copy);
        }
    }

    bool erase(std::string_view key) override {
        const auto at = records_.find(key);
        if (at == records_.end())
            return false;
        remember(key, at->second);
        records_.erase(at);
        return true;
    }

    void scan(const KeyRange& range, const Visitor& visit) override {
        for (auto at = records_.lower_bound(range.from); at != records_.end(); ++at) {
            if (range.to && at->first >= *range.to)
                break;
            if (!visit(at->first, at->second))
                break;
        }
    }

  private:
    MemoryEngine& engine_;
    Records records_;

    void remember(std::string_view key, std::optional<std::string> record) {
        if (engine_.transaction_)
            engine_.journal_.push_back({&records_, std::string(key), std::move(record)});
    }
};

MemoryEngine::MemoryEngine() {
    for (const CatalogueFile& known : catalogue())
        files_.emplace(known.name, std::make_unique<File>(*this));
}

EngineFile* MemoryEngine::file(const std::string& name) {
    const auto at = files_.find(name);
    return at == files_.end() ? nullptr : at->second.get();
}

std::vector<std::string> MemoryEngine::files() {
    std::vector<std::string> names;
    names.reserve(files_.size());
    for (const auto& [name, file] : files_)
        names.push_back(name);
    return names;
}

void MemoryEngine::atomically(const std::function<void()>& work) {
    if (transaction_)
        throw Error(errors::StoreFailed, "Une transaction est déjà en cours dans cette base.");
    transaction_ = true;
    try {
        work();
    } catch (...) {
        undo();
        throw;
    }
    journal_.clear();
    transaction_ = false;
}

// Backwards, so that a key written twice gets its oldest record back.
void MemoryEngine::undo() noexcept {
    transaction_ = false;
    for (; !journal_.empty(); journal_.pop_back()) {
        Before& before = journal_.back();
        if (before.record)
            (*before.records)[before.key] = std::move(*before.record);
        else
            before.records->erase(before.key);
    }
}

} // namespace vorandine::store
