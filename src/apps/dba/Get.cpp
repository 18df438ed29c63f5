// vorandine-dba get: one record, as a table or as JSON.
#include "apps/dba/Commands.h"
#include "apps/dba/Opening.h"
#include "exchange/RecordJson.h"
#include "records/Layout.h"
#include "text/Error.h"
#include "text/Table.h"

#include <array>
#include <ostream>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 1> getOptions{{
    {"--json", "", "the record as put takes it: {\"5\":[\"20060612\",\"20050301\"]}"},
}};

// One line a value; the values of a list are numbered.
void printTable(const records::DBARecord& record, const std::string& file, std::ostream& out) {
    text::Table table({"ATTRIBUTE", "VALUE", "CONTENT", "MEANING"});
    for (int attribute = 1; attribute <= record.DCount(); ++attribute) {
        const records::AttributeLayout* const known = records::layout(file, attribute);
        const int count = record.DCount(attribute);
        const bool list = count > 1 || (known != nullptr && known->list());
        for (int v = 1; v <= count; ++v)
            table.add({records::headOf(file, attribute), list ? std::to_string(v) : "",
                       record(attribute, v), known == nullptr ? "" : std::string(known->meaning)});
    }
    table.print(out);
}

int get(const CommandLine& line, const Console& console) {
    const std::string& name = line.words()[1];
    const std::string& key = line.words()[2];
    const auto engine = openStore(line.words().front());
    static_cast<void>(engineFile(*engine, name));
    const auto record = ports::find(*store::Store(engine).OpenFile(name), key);
    if (!record) {
        console.complain("there is no record '" + key + "' in " + name);
        return Findings;
    }
    if (line.has("--json")) {
        std::string json;
        exchange::appendJson(json, std::as_const(*record)());
        console.out << json << '\n';
    } else {
        printTable(*record, name, console.out);
    }
    return Done;
}

} // namespace

constexpr Command getCommand{
    "get",
    "URL FILE KEY",
    3,
    3,
    "show one record",
    "Values are shown as they are stored: dates as yyyymmdd, hours multiplied by 100. Where there\n"
    "is no such record, that is told on standard error and the exit status is 1.\n",
    getOptions,
    "  vorandine-dba get sqlite:agence.vor FORMVORANDINE 00012\n"
    "  vorandine-dba get --json sqlite:agence.vor CONTRAT '00012*1'\n",
    get,
};

} // namespace vorandine::dba
