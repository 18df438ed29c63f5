// vorandine-dba import-csv: stores the rows of a table as records of one file.
#include "apps/dba/Commands.h"
#include "apps/dba/ImportReport.h"
#include "apps/dba/Input.h"
#include "apps/dba/Opening.h"
#include "exchange/Csv.h"
#include "exchange/CsvMapping.h"
#include "exchange/TableImport.h"

#include <array>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 9> importCsvOptions{{
    {"--key", "COLUMN", "the column of the keys"},
    {"--map", "COLUMN=ATTRIBUTE", "what becomes of a column; may stand several times", true},
    {"--separator", "CHARACTER", "what stands between cells, tab for a tab (;)"},
    {"--encoding", "NAME", "utf-8 or windows-1252 (utf-8)"},
    {"--no-header", "", "the first line is a row too; columns are named by number, from 1"},
    {"--create", "", "make the store if it is missing"},
    {"--skip-bad", "", "store the good rows even if others are wrong"},
    {"--json", "", "the outcome as {\"stored\":12,\"bad\":0}"},
    UserOption,
}};

char separatorOf(const CommandLine& line) {
    const std::string word = line.value("--separator").value_or(";");
    if (word == "tab")
        return '\t';
    if (word.size() != 1 || word == "\"" || word == "\n")
        throw UsageError("--separator takes one character, or tab");
    return word.front();
}

exchange::Encoding encodingOf(const CommandLine& line) {
    const std::string word = line.value("--encoding").value_or("utf-8");
    if (word == "utf-8")
        return exchange::Encoding::Utf8;
    if (word == "windows-1252")
        return exchange::Encoding::Windows1252;
    throw UsageError("--encoding takes utf-8 or windows-1252");
}

int importCsv(const CommandLine& line, const Console& console) {
    const std::string& file = line.words()[1];
    const std::string& name = line.words()[2];
    const auto key = line.value("--key");
    if (!key || !line.has("--map"))
        throw UsageError("--key and at least one --map are needed");
    const char separator = separatorOf(line);
    const exchange::Encoding encoding = encodingOf(line);
    Input input(name, console);
    exchange::CsvReader reader(input.stream(), separator, encoding);
    exchange::TableSource table{name, reader, {}, !line.has("--no-header")};
    if (!reader.next(table.first)) {
        console.complain(name + " is empty, or cannot be read");
        return CannotRun;
    }
    // Where it has no columns to count, nothing can be mapped.
    if (table.first.fault && (table.heads || table.first.faultColumn == 0))
        throw UsageError(name + ": the first row cannot be read: " + *table.first.fault);
    const exchange::CsvMapping mapping(file, *key, line.values("--map"),
                                       table.heads ? std::optional(table.first.cells)
                                                   : std::nullopt);
    const std::size_t width = table.first.cells.size();
    for (const exchange::MappedColumn& column : mapping.columns())
        if (column.column >= width)
            throw UsageError(name + " has " + std::to_string(width) + " columns only");

    store::Store store(openStore(line.words().front(), line.has("--create")
                                                           ? store::OpenMode::Create
                                                           : store::OpenMode::Existing));
    sign(store, line);
    static_cast<void>(engineFile(store.changes().engine(), file));
    ImportReport report(line, console);
    return report.tell(
        exchange::importTable(store, file, table, mapping, report.watch(), report.badLines()),
        "row");
}

} // namespace

constexpr Command importCsvCommand{
    "import-csv",
    "URL FILE CSV",
    3,
    3,
    "store the rows of a spreadsheet's table as records of one file",
    "Each row of the file CSV (- is standard input) is a record, its cells go where --map says:\n"
    "COLUMN is the text at its head, ATTRIBUTE a number or a dictionary name. Dates (dd/mm/yyyy)\n"
    "and hours (7,50) are converted where the attribute holds such; :date, :hours or :text behind\n"
    "ATTRIBUTE says otherwise. Attributes that are not mapped stay as they are. Rows of one key\n"
    "that follow each other make one record, each adding a value to the lists of the file. A row\n"
    "whose quotes are wrong is told, and the next one begins on the next line.\n"
    "All rows are stored or none: a bad cell is told as CSV:LINE:COLUMN, and the exit status is "
    "1.\n",
    importCsvOptions,
    "  vorandine-dba import-csv sqlite:agence.vor AIDANT personnel.csv --key Code --map Nom=1\n"
    "  vorandine-dba import-csv sqlite:agence.vor FORMVORANDINE formations.csv --key Code \\\n"
    "      --map Date=5 --map Formation=6 --map Heures=7 --encoding windows-1252\n"
    "  vorandine-dba import-csv sqlite:agence.vor CONTRAT c.csv --no-header --separator , \\\n"
    "      --key 1 --map 2=3 --map 3=NomAideContrat --map 4=7\n",
    importCsv,
    true,
};

} // namespace vorandine::dba
