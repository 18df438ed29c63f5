// Import and export of a store as JSON Lines against the least that SQLite can do with the same
// bytes:
//   bench_exchange [records]          for example: bench_exchange 1000000
// Tells too by how much the memory of this process grew, which must not depend on the records.
#include "measure.h"

#include "exchange/Exchange.h"
#include "exchange/ExchangeLine.h"
#include "records/DBARecord.h"
#include "store/Store.h"
#include "unit/store_support.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <random>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <sys/resource.h>

namespace {

using namespace vorandine;

constexpr int Rounds = 3;
constexpr double MostForImport = 2;

void require(bool done, sqlite3* database) {
    if (!done)
        throw std::runtime_error(sqlite3_errmsg(database));
}

// The most memory that this process had so far.
long peakKiB() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

std::string key(int number) {
    return "A" + std::to_string(1000000 + number / 10) + "*" + std::to_string(number % 10);
}

// A contract as the demonstration data has them.
std::string record(int number) {
    static const std::string names[] = {"Présence et soutien à domicile", "LE GUEN", "BRÛLÉ",
                                        "Maintien à domicile des Pays d'Aulne et de l'Èvre"};
    std::mt19937 random(static_cast<unsigned>(number));
    std::string text(2, records::AttributeMark);
    text += "P" + std::to_string(100 + random() % 900) + records::AttributeMark;
    text += names[random() % 4] + records::AttributeMark + "Marie-Thérèse";
    text +=
        std::string(2, records::AttributeMark) + std::to_string(20030101 + random() % 20 * 10000);
    text += records::AttributeMark + std::to_string(20230131 + random() % 3 * 10000);
    text += std::string(63 - 8, records::AttributeMark) + "202609";
    return text;
}

// What the import is held to: keys and records as they are, in one transaction. The bytes come from
// a file too, each behind its length.
void bareInserts(const std::string& path, const std::string& bytes) {
    std::filesystem::remove(path);
    sqlite3* database = nullptr;
    require(sqlite3_open(path.c_str(), &database) == SQLITE_OK, database);
    const auto run = [&](const char* sql) {
        require(sqlite3_exec(database, sql, nullptr, nullptr, nullptr) == SQLITE_OK, database);
    };
    run("PRAGMA page_size = 16384; PRAGMA cache_size = -16384; PRAGMA synchronous = EXTRA;"
        "CREATE TABLE CONTRAT (cle BLOB PRIMARY KEY, fiche BLOB NOT NULL) WITHOUT ROWID; BEGIN");
    sqlite3_stmt* insert = nullptr;
    require(sqlite3_prepare_v2(database, "INSERT INTO CONTRAT VALUES (?1, ?2)", -1, &insert,
                               nullptr) == SQLITE_OK,
            database);
    std::ifstream in(bytes, std::ios::binary);
    std::string texts[2];
    for (std::size_t at = 0;; at = 1 - at) {
        std::size_t size = 0;
        if (!in.read(reinterpret_cast<char*>(&size), sizeof size))
            break;
        texts[at].resize(size);
        in.read(texts[at].data(), static_cast<std::streamsize>(size));
        if (at == 0)
            continue;
        for (int i = 0; i < 2; ++i)
            sqlite3_bind_blob64(insert, i + 1, texts[i].data(), texts[i].size(), SQLITE_STATIC);
        require(sqlite3_step(insert) == SQLITE_DONE, database);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    run("COMMIT");
    sqlite3_close(database);
}

void importInto(const std::string& path, const std::string& lines) {
    std::filesystem::remove(path);
    store::Store store(store::openEngine("sqlite:" + path, store::OpenMode::Create));
    std::ifstream in(lines, std::ios::binary);
    exchange::ImportWatch watch;
    watch.complain = [](const std::string& complaint) { throw std::runtime_error(complaint); };
    if (!exchange::importRecords(store, {{lines, in}}, watch).stored)
        throw std::runtime_error("the import stored nothing");
}

std::size_t exportTo(const std::string& path, const std::string& lines) {
    const auto engine = store::openEngine("sqlite:" + path, store::OpenMode::Existing);
    std::ofstream out(lines, std::ios::binary);
    return exchange::exportRecords(
               *engine->file("CONTRAT"), "CONTRAT", out, [](const std::string&) {}, [] {})
        .written;
}

void writeInputs(const std::string& lines, const std::string& bytes, int records) {
    std::ofstream json(lines, std::ios::binary);
    std::ofstream raw(bytes, std::ios::binary);
    std::string line;
    for (int i = 0; i < records; ++i) {
        const std::string texts[] = {key(i), record(i)};
        line.clear();
        exchange::appendExchangeLine(line, "CONTRAT", texts[0], texts[1]);
        json << line;
        for (const std::string& text : texts) {
            const std::size_t size = text.size();
            raw.write(reinterpret_cast<const char*>(&size), sizeof size);
            raw << text;
        }
    }
}

void measure(int records) {
    const store_test::Folder folder;
    const std::string lines = folder / "in.jsonl";
    writeInputs(lines, folder / "in.bytes", records);
    std::printf("%d records, %ju MiB of JSON Lines\n", records,
                std::filesystem::file_size(lines) >> 20U);
    // The caches of SQLite are filled by either; what comes on top is this program's.
    bareInserts(folder / "warm.db", folder / "in.bytes");
    const long before = peakKiB();
    importInto(folder / "base.vor", lines);
    const long imported = peakKiB();
    if (exportTo(folder / "base.vor", folder / "out.jsonl") != static_cast<std::size_t>(records))
        throw std::runtime_error("not all records came out");
    std::printf("memory grew by %ld KiB importing, then %ld KiB exporting\n", imported - before,
                peakKiB() - imported);
    const auto ours = [&] { importInto(folder / "base.vor", lines); };
    const auto theirs = [&] { bareInserts(folder / "bare.db", folder / "in.bytes"); };
    std::printf("%-48s %13s %13s\n", "", "import", "bare inserts");
    bench::report("importing, a record", bench::compare(Rounds, ours, theirs, bench::Clock::Wall),
                  records, MostForImport);
    bench::report("importing, a record, processor alone",
                  bench::compare(Rounds, ours, theirs, bench::Clock::Processor), records);
}

} // namespace

int main(int argc, char** argv) {
    try {
        const int records = argc > 1 ? std::atoi(argv[1]) : 100000;
        if (records < 1)
            throw std::runtime_error("the argument is a number of records");
        measure(records);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_exchange: %s\n", error.what());
        return 1;
    }
}
