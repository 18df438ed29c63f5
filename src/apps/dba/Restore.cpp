// vorandine-dba restore: stores a record as it was before one of its changes.
#include "apps/dba/Commands.h"
#include "apps/dba/Opening.h"

#include <array>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 1> restoreOptions{{UserOption}};

// The one whose moment begins with `word`.
store::Version find(const std::vector<store::Version>& versions, const std::string& word) {
    if (word.empty())
        throw UsageError("VERSION is empty");
    const store::Version* found = nullptr;
    for (const store::Version& version : versions) {
        if (!version.moment.starts_with(word))
            continue;
        if (found != nullptr)
            throw UsageError("'" + word + "' begins several versions: " + found->moment + ", " +
                             version.moment + " ...");
        found = &version;
    }
    if (found == nullptr)
        throw UsageError("there is no version '" + word + "'; history shows those that there are");
    return *found;
}

int restore(const CommandLine& line, const Console& console) {
    const std::string& name = line.words()[1];
    const std::string& key = line.words()[2];
    store::Store store(openStore(line.words().front()));
    sign(store, line);
    store::EngineFile& file = engineFile(store.changes().engine(), name);
    const store::Version version = find(store.changes().history(name, key), line.words()[3]);
    const std::string record = name + ' ' + key;
    if (file.read(key) == version.record) {
        console.tell(record + " is as it was before " + version.moment + " already");
    } else if (version.record) {
        store.OpenFile(name)->WriteRecord(key, *version.record);
        console.tell("restored " + record + " as it was before " + version.moment);
    } else {
        store.OpenFile(name)->DeleteRecord(key);
        console.tell("deleted " + record + ", which was not there before " + version.moment);
    }
    return Done;
}

} // namespace

constexpr Command restoreCommand{
    "restore",
    "URL FILE KEY VERSION",
    4,
    4,
    "store a record as it was before one of its changes",
    "VERSION is the moment of the change, as history shows it, or its beginning if no other\n"
    "version begins so. Restoring is a change like any other: history shows it, and it can be\n"
    "undone by another restore. A record that the change had made is deleted.\n",
    restoreOptions,
    "  vorandine-dba restore sqlite:agence.vor DIFAIDANT 00012PSD 2026-11-23T08:16\n"
    "  vorandine-dba restore --user sylvie sqlite:agence.vor CONTRAT '00012*1' \\\n"
    "      2026-11-23T08:16:02.104233Z\n",
    restore,
    true,
};

} // namespace vorandine::dba
