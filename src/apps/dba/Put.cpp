// vorandine-dba put: stores one record.
#include "apps/dba/Commands.h"
#include "apps/dba/Opening.h"
#include "exchange/RecordJson.h"
#include "records/Layout.h"

#include <array>
#include <istream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <utility>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 1> putOptions{{UserOption}};

int put(const CommandLine& line, const Console& console) {
    const Arguments& words = line.words();
    const std::string& name = words[1];
    const std::string& key = words[2];
    const std::string json =
        words[3] == "-" ? std::string(std::istreambuf_iterator<char>(console.in), {}) : words[3];
    store::Store store(openStore(words.front()));
    sign(store, line);
    static_cast<void>(engineFile(store.changes().engine(), name));
    const auto file = store.OpenFile(name);
    records::DBARecord record;
    exchange::fill(record, exchange::parseJson(json), [&](const std::string& attribute) {
        return records::dictionaryAttribute(name, attribute).value_or(0);
    });
    file->WriteRecord(key, std::as_const(record)());
    console.tell("stored " + name + ' ' + key);
    return Done;
}

} // namespace

constexpr Command putCommand{
    "put",
    "URL FILE KEY JSON",
    4,
    4,
    "store one record, in place of the one that was there",
    "JSON is an object from an attribute, by its number or by its name in FILE's dictionary, to a\n"
    "string (one value) or an array of strings (several). Attributes that it does not name are\n"
    "empty. - reads it from standard input.\n",
    putOptions,
    "  vorandine-dba put sqlite:agence.vor ACTIVITES MEN '{\"1\":\"Ménage\"}'\n"
    "  vorandine-dba put sqlite:agence.vor CONTRAT '00012*1' \\\n"
    "      '{\"3\":\"PSD\",\"NomAideContrat\":\"Présence\",\"7\":\"20090706\"}'\n",
    put,
    true,
};

} // namespace vorandine::dba
