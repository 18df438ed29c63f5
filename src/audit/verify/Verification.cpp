// A fault ends the reading of one file, never that of the store.
#include "audit/verify/Verification.h"

#include "records/RecordText.h"
#include "store/Changes.h"
#include "store/Upkeep.h"
#include "text/Error.h"

#include <string_view>

namespace vorandine::audit {
namespace {

// Runs `read`; `damage` where it throws Error(Damaged).
template <class Read, class Damage>
void reading(const Read& read, const Damage& damage) {
    try {
        read();
    } catch (const Error& error) {
        if (error.number() != errors::Damaged)
            throw;
        damage();
    }
}

} // namespace

Verified verify(store::Engine& engine, const std::function<void(const std::string&)>& tell,
                const std::function<void()>& step) {
    Verified verified;
    const auto find = [&](const std::string& fault) {
        ++verified.findings;
        tell(fault);
    };
    // How many entries of the engine's file can be read.
    const auto read = [&](const std::string& name, const auto& plain) {
        std::size_t readable = 0;
        store::EngineFile* const file = engine.file(name);
        if (file == nullptr)
            return readable; // the history of a store of the format before, not to be written
        const auto visit = [&](std::string_view key, std::string_view content) {
            step();
            if (plain(key, content))
                ++readable;
            else
                find(name + ' ' + records::shownKey(key) + " is damaged: it is no readable text");
            return true;
        };
        reading([&] { file->scan({}, visit); }, [&] { find(name + " cannot be read to its end"); });
        return readable;
    };
    if (store::Upkeep* const upkeep = store::upkeepOf(engine))
        reading(
            [&] {
                for (const std::string& fault : upkeep->faults())
                    find(fault);
            },
            [&] { find("the pages of the file do not hang together"); });
    for (const std::string& name : engine.files())
        verified.records += read(name, records::isPlainEntry);
    verified.versions = read(std::string(store::HistoryFile), store::isPlainVersion);
    return verified;
}

} // namespace vorandine::audit
