// vorandine-dba files: the files of a store, each with its number of records.
#include "apps/dba/Commands.h"
#include "apps/dba/Opening.h"
#include "apps/dba/Progress.h"
#include "exchange/RecordJson.h"
#include "text/Table.h"

#include <array>
#include <ostream>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 1> filesOptions{{
    {"--json", "", "one JSON object a line: {\"file\":\"AIDANT\",\"records\":30}"},
}};

int files(const CommandLine& line, const Console& console) {
    const auto engine = openStore(line.words().front());
    text::Table table({"FILE", "RECORDS"});
    Progress progress(console, "counted");
    std::string json;
    engine->consistently([&] {
        for (const std::string& name : engine->files()) {
            std::size_t records = 0;
            engineFile(*engine, name).scan({}, [&](std::string_view, std::string_view) {
                ++records;
                progress.step();
                return true;
            });
            table.add({name, std::to_string(records)});
            json += "{\"file\":";
            exchange::appendJsonText(json, name);
            json += ",\"records\":" + std::to_string(records) + "}\n";
        }
    });
    progress.clear();
    if (line.has("--json"))
        console.out << json;
    else
        table.print(console.out);
    return Done;
}

} // namespace

constexpr Command filesCommand{
    "files",
    "URL",
    1,
    1,
    "list the files of a store, each with its number of records",
    "",
    filesOptions,
    "  vorandine-dba files sqlite:agence.vor\n"
    "  vorandine-dba files --json sqlite:agence.vor\n",
    files,
};

} // namespace vorandine::dba
