// vorandine-dba query: runs a request and shows its rows, and how they were found.
#include "apps/dba/Commands.h"
#include "apps/dba/Opening.h"
#include "apps/dba/Progress.h"
#include "exchange/Naming.h"
#include "exchange/RecordJson.h"
#include "records/Layout.h"
#include "records/StoredFiles.h"
#include "store/Request.h"
#include "store/Selection.h"
#include "text/Characters.h"
#include "text/Table.h"

#include <array>
#include <ostream>
#include <sstream>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 3> queryOptions{{
    {"--attributes", "\"0 3 8\"",
     "what to show: numbers or dictionary names, 0 is the key (\"0\")"},
    {"--json", "", "one JSON array a row, a string a value or an array of several"},
    {"--explain", "", "tell on standard error what was read to find the rows"},
}};

// Counts the records that a request reads.
class CountedFile : public store::EngineFile {
  public:
    CountedFile(store::EngineFile& file, Progress& progress) : file_(file), progress_(progress) {}

    std::optional<std::string> read(std::string_view key) override { return file_.read(key); }
    std::optional<std::string> write(std::string_view key, std::string_view record) override {
        return file_.write(key, record);
    }
    std::optional<std::string> erase(std::string_view key) override { return file_.erase(key); }
    std::optional<store::Swapped> swap(const store::Swap& change) override {
        return file_.swap(change);
    }
    void scan(const store::KeyRange& range, const Visitor& visit, std::size_t atMost) override {
        const auto count = [&](std::string_view key, std::string_view record) {
            ++records_;
            progress_.step();
            return visit(key, record);
        };
        file_.scan(range, count, atMost);
    }

    [[nodiscard]] std::size_t records() const noexcept { return records_; }

  private:
    store::EngineFile& file_;
    Progress& progress_;
    std::size_t records_ = 0;
};

// The query names its file; a request says it once more.
std::string fileOf(const std::string& query) {
    std::istringstream words(query);
    std::string word;
    words >> word >> word;
    return word;
}

std::vector<int> wanted(const std::string& file, const std::string& attributes) {
    std::vector<int> numbers;
    std::istringstream words(attributes);
    for (std::string word; words >> word;)
        numbers.push_back(exchange::attributeOf(file, word));
    return numbers;
}

store::Request parse(const std::string& query, const std::vector<int>& attributes) {
    std::string numbers;
    for (const int attribute : attributes)
        numbers += std::to_string(attribute) + ' ';
    return store::parseRequest(query + records::AttributeMark + fileOf(query) +
                               records::AttributeMark + numbers);
}

void printTable(const records::DBARecord& rows, const store::Request& request, std::ostream& out) {
    std::vector<std::string> heads;
    for (const int attribute : request.wanted)
        heads.push_back(attribute == records::Key ? "KEY"
                                                  : records::headOf(request.file, attribute));
    text::Table table(std::move(heads));
    for (int i = 1; i <= rows.DCount(); ++i) {
        std::vector<std::string> cells;
        for (std::size_t v = 1; v <= request.wanted.size(); ++v) {
            std::string cell;
            for (const char c : rows(i, static_cast<int>(v)))
                c == records::SubvalueMark ? cell += " | " : cell += c;
            cells.push_back(std::move(cell));
        }
        table.add(std::move(cells));
    }
    table.print(out);
}

void printJson(const records::DBARecord& rows, const store::Request& request, std::ostream& out) {
    std::string json;
    for (int i = 1; i <= rows.DCount(); ++i) {
        json = "[";
        for (std::size_t v = 1; v <= request.wanted.size(); ++v) {
            std::string values = rows(i, static_cast<int>(v));
            for (char& c : values)
                c = c == records::SubvalueMark ? records::ValueMark : c;
            exchange::appendJsonValues(json, values);
            json += v == request.wanted.size() ? "]\n" : ",";
        }
        out << json;
    }
}

// Bounds of keys, which may hold bytes that are no text.
std::string shown(const std::string& key) {
    return '"' + text::Printable(key) + '"';
}

void explain(const store::Request& request, std::size_t read, int rows, std::ostream& err) {
    const store::KeyRange range = store::keyRange(request);
    if (range.from.empty() && !range.to)
        err << "full scan of " << request.file;
    else
        err << "key range of " << request.file << ", from " << shown(range.from)
            << (range.to ? " to before " + shown(*range.to) : " to the end");
    err << ": " << read << (read == 1 ? " record" : " records") << " read, " << rows
        << (rows == 1 ? " row" : " rows") << " found\n";
}

int query(const CommandLine& line, const Console& console) {
    const std::string& text = line.words()[1];
    const auto engine = openStore(line.words().front());
    const std::string attributes = line.value("--attributes").value_or("0");
    const store::Request request = parse(text, wanted(fileOf(text), attributes));
    Progress progress(console, "read");
    CountedFile file(engineFile(*engine, request.file), progress);
    const records::DBARecord rows = store::select(request, file);
    progress.clear();
    line.has("--json") ? printJson(rows, request, console.out)
                       : printTable(rows, request, console.out);
    if (line.has("--explain")) {
        console.out.flush();
        explain(request, file.records(), rows.DCount(), console.err);
    }
    return Done;
}

} // namespace

constexpr Command queryCommand{
    "query",
    "URL QUERY",
    2,
    2,
    "run a request and show its rows",
    "QUERY is in the retrieval language of docs/store.md. Several values of one attribute are\n"
    "shown with | between. A condition on attribute 0 limits what is read to a range of keys;\n"
    "without one the whole file is read, as --explain tells.\n",
    queryOptions,
    "  vorandine-dba query sqlite:agence.vor 'SSELECT ACTIVITES PAR 1' --attributes \"0 1\"\n"
    "  vorandine-dba query sqlite:agence.vor --attributes \"0 NomAideContrat 8\" --explain \\\n"
    "      'SSELECT CONTRAT AVEC 0 = \"00012]\" AND AVEC 8 = \"\" PAR NomAideContrat'\n"
    "  vorandine-dba query --json sqlite:agence.vor 'SSELECT DIFAIDANT AVEC 5 = \"MAN\"'\n",
    query,
};

} // namespace vorandine::dba
