// vorandine-dba export: writes records as JSON Lines.
#include "apps/dba/Commands.h"
#include "apps/dba/Opening.h"
#include "apps/dba/Progress.h"
#include "exchange/Exchange.h"

#include <algorithm>
#include <ostream>

namespace vorandine::dba {
namespace {

int exportFiles(const CommandLine& line, const Console& console) {
    const auto engine = openStore(line.words().front());
    std::vector<std::string> names =
        filesOf(*engine, {line.words().begin() + 1, line.words().end()});
    // One order, however the files were named.
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    Progress progress(console, "exported");
    std::size_t damaged = 0;
    engine->consistently([&] {
        for (const std::string& name : names)
            damaged += exchange::exportRecords(
                           engineFile(*engine, name), name, console.out,
                           [&](const std::string& complaint) {
                               progress.clear();
                               console.complain(complaint);
                           },
                           [&] { progress.step(); })
                           .damaged;
    });
    return damaged == 0 ? Done : Findings;
}

} // namespace

constexpr Command exportCommand{
    "export",
    "URL [FILE...]",
    1,
    static_cast<std::size_t>(-1),
    "write the records of all files, or of those named, as JSON Lines",
    "The lines stand in order of file and key, each in one form, so that two exports can be\n"
    "compared line by line. They show one state of the store: whoever writes to it waits until\n"
    "the export has ended. A damaged record is told on standard error and left out; the exit\n"
    "status is then 1.\n",
    {},
    "  vorandine-dba export sqlite:agence.vor > agence.jsonl\n"
    "  vorandine-dba export sqlite:agence.vor CONTRAT DIFAIDANT | gzip > heures.jsonl.gz\n"
    "  diff <(vorandine-dba export sqlite:hier.vor) <(vorandine-dba export sqlite:agence.vor)\n",
    exportFiles,
};

} // namespace vorandine::dba
