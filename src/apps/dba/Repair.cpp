// vorandine-dba repair: makes a sound store of what can be read of a damaged one.
#include "apps/dba/Commands.h"
#include "apps/dba/Interruption.h"
#include "apps/dba/Opening.h"
#include "apps/dba/Progress.h"
#include "store/sqlite/SqliteSalvage.h"

#include <array>
#include <ostream>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 1> repairOptions{{
    {"--json", "", "the outcome as {\"records\":12,\"versions\":3,\"lost\":0}"},
}};

int repair(const CommandLine& line, const Console& console) {
    const std::string target = pathOf(line.words()[1]);
    const Interruption interruption;
    Progress progress(console, "read");
    const auto [records, versions, lost] = store::repair(pathOf(line.words().front()), target, [&] {
        interruption.check();
        progress.step();
    });
    progress.clear();
    if (line.has("--json"))
        console.out << "{\"records\":" << records << ",\"versions\":" << versions
                    << ",\"lost\":" << lost << "}\n";
    else
        console.tell(std::to_string(records) + (records == 1 ? " record and " : " records and ") +
                     std::to_string(versions) + (versions == 1 ? " version" : " versions") +
                     " saved to " + target + "; " + std::to_string(lost) +
                     (lost == 1 ? " page or record" : " pages or records") + " could not be read");
    return lost == 0 ? Done : Findings;
}

} // namespace

constexpr Command repairCommand{
    "repair",
    "PATH NEWPATH",
    2,
    2,
    "make a new store of what can be read of a damaged one",
    "Reads the file page by page, past those that are lost, and stores what is sound, history\n"
    "included, in a new store, called NEWPATH.part until it is whole; who may read and write it "
    "is\n"
    "as for PATH. The damaged file stays as it is. The exit status is 1 where something could not "
    "be read: a page may have held hundreds\n"
    "of records. Compare with the last backup then.\n",
    repairOptions,
    "  vorandine-dba repair agence.vor sauve.vor\n"
    "  diff <(vorandine-dba export sqlite:hier.vor) <(vorandine-dba export sqlite:sauve.vor)\n",
    repair,
    true,
};

} // namespace vorandine::dba
