// vorandine-dba import-csv: stores the rows of a table as records of one file.
#include "apps/dba/Commands.h"
#include "apps/dba/ImportReport.h"
#include "apps/dba/Opening.h"
#include "exchange/Csv.h"
#include "exchange/CsvMapping.h"
#include "text/Error.h"

#include <array>
#include <fstream>
#include <functional>
#include <ostream>
#include <unordered_set>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 9> Options{{
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

// Rows that follow each other with one key make one record: each adds a value to the lists.
class TableImport {
  public:
    TableImport(ports::DBAFile& file, const exchange::CsvMapping& mapping, std::string name,
                std::size_t width, exchange::ImportRun& run)
        : file_(file), mapping_(mapping), name_(std::move(name)), width_(width), run_(run) {}

    // Whether the row is good; what is wrong with it was told.
    bool take(const exchange::CsvRow& row) {
        if (row.fault)
            return complain(row, row.faultColumn, *row.fault);
        if (row.cells.size() != width_)
            return complain(row, 0,
                            "the row has " + std::to_string(row.cells.size()) + " cells, not " +
                                std::to_string(width_));
        if (!convertCells(row))
            return false;
        return stored_.front() == key_ ? add(row) : begin(row);
    }

    // Stores the record of the last rows.
    void finish() {
        if (!key_.empty())
            record_.DBWrite();
        key_.clear();
    }

  private:
    ports::DBAFile& file_;
    const exchange::CsvMapping& mapping_;
    std::string name_;
    std::size_t width_;
    exchange::ImportRun& run_;
    std::vector<std::string> stored_; // the row's cells as they are stored, the key first
    std::string key_;
    records::DBARecord record_;
    int rows_ = 0;                         // that make the record
    std::unordered_set<std::size_t> seen_; // hashes of keys

    // Of a column from 1, or of the whole row with 0.
    bool complain(const exchange::CsvRow& row, std::size_t column, const std::string& what) {
        run_.complain(name_ + ":" + std::to_string(row.line) + ":" +
                      (column > 0 ? std::to_string(column) + ":" : "") + " " + what);
        return false;
    }

    bool complain(const exchange::CsvRow& row, const exchange::MappedColumn& column,
                  const std::string& what) {
        return complain(row, column.column + 1, "'" + column.head + "': " + what);
    }

    bool convertCells(const exchange::CsvRow& row) {
        bool good = true;
        stored_.clear();
        for (const exchange::MappedColumn& column : mapping_.columns()) {
            exchange::ConvertedCell cell = exchange::convert(row.cells[column.column], column.kind);
            if (!cell.fault.empty())
                good = complain(row, column, cell.fault);
            stored_.push_back(std::move(cell.stored));
        }
        if (stored_.front().empty())
            good = complain(row, mapping_.columns().front(), "the key is empty");
        return good;
    }

    bool begin(const exchange::CsvRow& row) {
        finish();
        // The same key further down would replace what the rows here have stored.
        if (!seen_.insert(std::hash<std::string>()(stored_.front())).second)
            return complain(row, mapping_.columns().front(),
                            "'" + stored_.front() +
                                "' stands further up too: rows of one key must follow each other");
        key_ = stored_.front();
        record_ = existing(key_);
        rows_ = 1;
        for (std::size_t i = 1; i < stored_.size(); ++i)
            record_(mapping_.columns()[i].attribute) = stored_[i];
        return true;
    }

    bool add(const exchange::CsvRow& row) {
        bool good = true;
        for (std::size_t i = 1; i < stored_.size(); ++i) {
            const exchange::MappedColumn& column = mapping_.columns()[i];
            if (!column.list && std::as_const(record_)(column.attribute) != stored_[i])
                good = complain(row, column,
                                "differs from the row above of the same key, and the attribute "
                                "has one value only");
        }
        if (!good)
            return false;
        ++rows_;
        for (std::size_t i = 1; i < stored_.size(); ++i)
            if (mapping_.columns()[i].list)
                record_(mapping_.columns()[i].attribute, rows_) = stored_[i];
        return true;
    }

    // What is not mapped stays as it is.
    records::DBARecord existing(const std::string& key) {
        std::optional<records::DBARecord> stored = ports::find(file_, key);
        return stored ? *std::move(stored) : file_.NewRecord(key);
    }
};

int importTable(const CommandLine& line, const Console& console, std::istream& in) {
    const std::string& file = line.words()[1];
    const std::string& name = line.words()[2];
    const auto key = line.value("--key");
    if (!key || !line.has("--map"))
        throw UsageError("--key and at least one --map are needed");
    exchange::CsvReader reader(in, separatorOf(line), encodingOf(line));
    exchange::CsvRow row;
    if (!reader.next(row)) {
        console.err << "vorandine-dba: " << name << " is empty, or cannot be read\n";
        return CannotRun;
    }
    const bool heads = !line.has("--no-header");
    if (heads && row.fault)
        throw UsageError(name + ": the heads cannot be read: " + *row.fault);
    const exchange::CsvMapping mapping(file, *key, line.values("--map"),
                                       heads ? std::optional(row.cells) : std::nullopt);
    const std::size_t width = row.cells.size();
    for (const exchange::MappedColumn& column : mapping.columns())
        if (column.column >= width)
            throw UsageError(name + " has " + std::to_string(width) + " columns only");

    store::Store store(openStore(line.words().front(), line.has("--create")
                                                           ? store::OpenMode::Create
                                                           : store::OpenMode::Existing));
    sign(store, line);
    static_cast<void>(engineFile(store.changes().engine(), file));
    const auto opened = store.OpenFile(file);
    ImportReport report(line, console);
    exchange::ImportRun run(store, report.badLines(), report.watch());
    const auto result = run.run([&] {
        TableImport import(*opened, mapping, name, width, run);
        bool more = !heads || reader.next(row);
        for (; more; more = reader.next(row))
            if (!row.empty())
                run.line(name, row.line, [&] { return import.take(row); });
        if (reader.failed())
            throw Error(errors::Unexpected, "La lecture de « " + name + " » a échoué.");
        import.finish();
    });
    return report.tell(result, "row");
}

int importCsv(const CommandLine& line, const Console& console) {
    const std::string& name = line.words()[2];
    if (name == "-")
        return importTable(line, console, console.in);
    std::ifstream in(name, std::ios::binary);
    if (!in) {
        console.err << "vorandine-dba: cannot read " << name << '\n';
        return CannotRun;
    }
    return importTable(line, console, in);
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
    "that follow each other make one record, each adding a value to the lists of the file.\n"
    "All rows are stored or none: a bad cell is told as CSV:LINE:COLUMN, and the exit status is "
    "1.\n",
    Options,
    "  vorandine-dba import-csv sqlite:agence.vor AIDANT personnel.csv --key Code --map Nom=1\n"
    "  vorandine-dba import-csv sqlite:agence.vor FORMVORANDINE formations.csv --key Code \\\n"
    "      --map Date=5 --map Formation=6 --map Heures=7 --encoding windows-1252\n"
    "  vorandine-dba import-csv sqlite:agence.vor CONTRAT c.csv --no-header --separator , \\\n"
    "      --key 1 --map 2=3 --map 3=NomAideContrat --map 4=7\n",
    importCsv,
};

} // namespace vorandine::dba
