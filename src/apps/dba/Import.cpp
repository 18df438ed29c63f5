// vorandine-dba import: stores the records of JSON Lines files, all of them or none.
#include "apps/dba/Commands.h"
#include "apps/dba/ImportReport.h"
#include "apps/dba/Input.h"
#include "apps/dba/Opening.h"
#include "exchange/Exchange.h"

#include <algorithm>
#include <array>
#include <list>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 4> importOptions{{
    {"--create", "", "make the store if it is missing"},
    {"--skip-bad", "", "store the good lines even if others are wrong"},
    {"--json", "", "the outcome as {\"stored\":12,\"bad\":0}"},
    UserOption,
}};

int import(const CommandLine& line, const Console& console) {
    const Arguments names(line.words().begin() + 1, line.words().end());
    if (std::count(names.begin(), names.end(), "-") > 1)
        throw UsageError("standard input can be read once only");
    std::list<Input> inputs;
    std::vector<exchange::ImportSource> sources;
    for (const std::string& name : names)
        sources.push_back({name, inputs.emplace_back(name, console).stream()});
    store::Store store(openStore(line.words().front(), line.has("--create")
                                                           ? store::OpenMode::Create
                                                           : store::OpenMode::Existing));
    sign(store, line);
    ImportReport report(line, console);
    return report.tell(exchange::importRecords(store, sources, report.watch(), report.badLines()),
                       "record");
}

} // namespace

constexpr Command importCommand{
    "import",
    "URL FILE...",
    2,
    static_cast<std::size_t>(-1),
    "store the records of JSON Lines files, all of them or none",
    "FILE is in the form that export writes, docs/exchange.md; - is standard input. Every wrong\n"
    "line is told on standard error as FILE:LINE, and one is enough to store nothing at all (exit\n"
    "status 1), unless --skip-bad is given. Records that the files do not name stay as they are, "
    "and\n"
    "those that are there already leave nothing in the history. A pipe is read to its end before\n"
    "the store is touched, into a temporary file (TMPDIR).\n"
    "Importing into memory: only checks the files.\n",
    importOptions,
    "  vorandine-dba import --create sqlite:agence.vor demo/*.jsonl\n"
    "  vorandine-dba import memory: agence.jsonl\n"
    "  zcat heures.jsonl.gz | vorandine-dba import --skip-bad sqlite:agence.vor -\n",
    import,
    true,
};

} // namespace vorandine::dba
