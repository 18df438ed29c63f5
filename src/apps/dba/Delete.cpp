// vorandine-dba delete: removes one record, once somebody has said so.
#include "apps/dba/Agreement.h"
#include "apps/dba/Commands.h"
#include "apps/dba/Opening.h"

#include <array>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 2> deleteOptions{{YesOption, UserOption}};

int remove(const CommandLine& line, const Console& console) {
    const std::string& name = line.words()[1];
    const std::string& key = line.words()[2];
    store::Store store(openStore(line.words().front()));
    sign(store, line);
    if (!engineFile(store.changes().engine(), name).read(key)) {
        console.complain("there is no record '" + key + "' in " + name);
        return Findings;
    }
    if (!agreed(line, console, "Delete " + name + ' ' + key + '?')) {
        console.complain("nothing was deleted");
        return Findings;
    }
    store.OpenFile(name)->DeleteRecord(key);
    console.tell("deleted " + name + ' ' + key);
    return Done;
}

} // namespace

constexpr Command deleteCommand{
    "delete",
    "URL FILE KEY",
    3,
    3,
    "remove one record",
    "Asks before it does; restore brings the record back. Where there is no such record, or the\n"
    "answer is no, the exit status is 1.\n",
    deleteOptions,
    "  vorandine-dba delete sqlite:agence.vor CONTRAT '00012*1'\n"
    "  vorandine-dba delete --yes sqlite:agence.vor DIFAIDANT 00012PSD\n",
    remove,
    true,
};

} // namespace vorandine::dba
