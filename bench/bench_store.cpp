// The store against bare SQLite on the same data:
//   bench_store [contracts ...]          for example: bench_store 10000 100000 1000000
// Each line compares one operation of the store with the least that SQLite can do in its place.
#include "bare.h"
#include "measure.h"

#include "apps/host/News.h"
#include "records/DBARecord.h"
#include "store/Store.h"
#include "store/sqlite/SqliteEngine.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace vorandine;
using bench::Bare;
using bench::Folder;
using bench::Statement;

constexpr int ContractsOfOne = 10; // contracts of a caregiver
constexpr int Attributes = 70;
constexpr int Batch = 2000; // operations timed together
constexpr bench::Seconds NewsAtMost = 20e-6;
constexpr int LargerThanCache = 100000; // contracts, from which a file is more than a cache holds

// --- data ---

struct Contract {
    std::string key;
    std::vector<std::string> attributes = std::vector<std::string>(Attributes);

    [[nodiscard]] std::string record() const {
        std::string text;
        for (const std::string& attribute : attributes)
            text += attribute + records::AttributeMark;
        text.pop_back();
        return text;
    }
};

std::string caregiver(int number) {
    return "A" + std::to_string(1000000 + number);
}

Contract contract(int number) {
    static const std::vector<std::string> names{"DUPONT",   "Lefèvre", "MARTIN", "Nuñez",
                                                "Bérard",   "Garnier", "ROUX",   "Chevalier",
                                                "Lemaître", "Petit"};
    std::mt19937 random(static_cast<unsigned>(number));
    Contract made;
    made.key = caregiver(number / ContractsOfOne) + std::to_string(1000 + number % ContractsOfOne);
    for (std::string& attribute : made.attributes)
        attribute = std::string(random() % 20, static_cast<char>('a' + random() % 26));
    const auto set = [&](int attribute, const std::string& value) {
        made.attributes[static_cast<std::size_t>(attribute) - 1] = value;
    };
    set(3, std::to_string(100 + random() % 900));
    set(4, names[random() % names.size()]);
    set(5, names[random() % names.size()]);
    set(7, std::to_string(20030101 + random() % 20 * 10000));
    set(8, random() % 3 == 0 ? "" : std::to_string(20030131 + random() % 20 * 10000));
    set(65, random() % 10 == 0 ? "X" : "");
    return made;
}

// The same contracts in a store and in a table made for the one query.
void fill(store::Engine& engine, const Bare& normalised, int contracts) {
    normalised.run("CREATE TABLE contrat (aidant TEXT, cle TEXT, employeur TEXT, nom TEXT, "
                   "prenom TEXT, fin TEXT, exclu TEXT)");
    normalised.run("BEGIN");
    const Statement insert(normalised, "INSERT INTO contrat VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7)");
    engine.atomically([&] {
        store::EngineFile& file = *engine.file("CONTRAT");
        for (int i = 0; i < contracts; ++i) {
            const Contract one = contract(i);
            file.write(one.key, one.record());
            const std::string code = caregiver(i / ContractsOfOne);
            insert.text(1, code);
            insert.text(2, one.key);
            int parameter = 3;
            for (const std::size_t attribute : {3U, 4U, 5U, 8U, 65U})
                insert.text(parameter++, one.attributes[attribute - 1]);
            (void)insert.step();
            insert.reset();
        }
    });
    // One holds all that the query needs; the other also stands in the very order it asks for,
    // which no store that sorts in French could have.
    normalised.run("CREATE INDEX couvrant ON contrat "
                   "(aidant, exclu, fin, nom, prenom, employeur, cle)");
    normalised.run("CREATE INDEX ordonne ON contrat "
                   "(aidant, exclu, nom, prenom, employeur, fin, cle)");
    normalised.run("COMMIT");
}

// --- measures ---

std::size_t sink = 0; // what is read, so that no reading can be left out

// `index` is the one that the statement is to use.
bench::Comparison contractRequests(store::Store& store, const Bare& normalised,
                                   const std::string& index,
                                   const std::vector<std::string>& codes) {
    const auto ours = [&] {
        for (const std::string& code : codes) {
            const std::string request =
                "SSELECT CONTRAT AVEC 65 = \"\" AND AVEC 0 = \"" + code +
                "]\" AND AVEC 8 >= \"20050501\" OR = \"\" PAR NomAideContrat PAR PrenomAideContrat "
                "PAR 3 PAR 8" +
                records::AttributeMark + "CONTRAT" + records::AttributeMark + "0 3 8";
            const records::DBARecord rows = store.Select(request);
            sink += rows().size();
        }
    };
    const std::string sql = "SELECT cle, employeur, fin FROM contrat INDEXED BY " + index +
                            " WHERE aidant = ?1 AND exclu = '' AND (fin >= ?2 OR fin = '') "
                            "ORDER BY nom, prenom, employeur, fin";
    const Statement query(normalised, sql.c_str());
    const std::string date = "20050501";
    const auto theirs = [&] {
        for (const std::string& code : codes) {
            query.text(1, code);
            query.text(2, date);
            std::string rows;
            while (query.step())
                for (int column = 0; column < 3; ++column)
                    query.append(column, rows);
            query.reset();
            sink += rows.size();
        }
    };
    return bench::compare(21, ours, theirs, bench::Clock::Processor);
}

bench::Comparison pointReads(ports::DBAFile& file, const Bare& bare,
                             const std::vector<std::string>& keys) {
    const auto ours = [&] {
        for (const std::string& key : keys)
            sink += static_cast<std::size_t>(file.ReadRecord(key).key().size());
    };
    const Statement query(bare, "SELECT fiche FROM CONTRAT WHERE cle = ?1");
    const auto theirs = [&] {
        for (const std::string& key : keys) {
            query.blob(1, key);
            std::string record;
            if (query.step())
                query.append(0, record);
            query.reset();
            sink += record.size();
        }
    };
    return bench::compare(21, ours, theirs, bench::Clock::Processor);
}

bench::Comparison wholeFile(store::Store& store, const Bare& bare) {
    const std::string request = std::string("SSELECT CONTRAT AVEC 65 = \"Y\"") +
                                records::AttributeMark + "CONTRAT" + records::AttributeMark + "0";
    const Statement query(bare, "SELECT cle, fiche FROM CONTRAT ORDER BY cle");
    return bench::compare(
        9,
        [&] {
            const records::DBARecord rows = store.Select(request);
            sink += rows().size();
        },
        [&] {
            while (query.step())
                ++sink;
            query.reset();
        },
        bench::Clock::Processor);
}

// Asking for news of a file while there are none, as hosts do all the time, against the bare
// statement.
bench::Comparison askingForNews(const std::shared_ptr<store::Store>& store, const Bare& bare) {
    host::News news(store, caregiver(0));
    const Statement pragma(bare, "PRAGMA data_version");
    return bench::compare(
        21,
        [&] {
            for (int i = 0; i < Batch; ++i)
                sink += news.ask().size() + 1;
        },
        [&] {
            for (int i = 0; i < Batch; ++i) {
                sink += pragma.step() ? 1 : 0;
                pragma.reset();
            }
        },
        bench::Clock::Wall);
}

// Two ways to store a record, each in a file of its own, so that neither writes into the other's
// pages.
bench::Comparison writes(const std::vector<std::string>& keys,
                         const std::function<void(const std::string&, const std::string&)>& one,
                         const std::function<void(const std::string&, const std::string&)>& other) {
    // Never the record that is there: SQLite would see it, and write nothing.
    static int fresh = 0;
    std::size_t next = 0;
    std::size_t nextOther = 0;
    const auto store = [&](std::size_t& at, const auto& way) {
        const std::string record = contract(++fresh).record();
        way(keys[at % keys.size()], record);
        ++at;
    };
    return bench::compare(
        101, [&] { store(next, one); }, [&] { store(nextOther, other); }, bench::Clock::Wall);
}

void writing(const std::string& path, const std::string& copy,
             const std::vector<std::string>& keys) {
    const std::shared_ptr<store::Engine> engine =
        store::openEngine("sqlite:" + path, store::OpenMode::Existing);
    const auto withoutHistory = [&](const std::string& key, const std::string& record) {
        engine->file("CONTRAT")->write(key, record);
    };
    {
        const Bare bare(copy);
        const Statement upsert(bare, "INSERT INTO CONTRAT VALUES (?1, ?2) "
                                     "ON CONFLICT (cle) DO UPDATE SET fiche = excluded.fiche");
        bench::report("storing one record, no history",
                      writes(keys, withoutHistory,
                             [&](const std::string& key, const std::string& record) {
                                 upsert.blob(1, key);
                                 upsert.blob(2, record);
                                 (void)upsert.step();
                                 upsert.reset();
                             }),
                      1, 1.3);
    }
    const auto contracts = [](const std::string& of) {
        return store::Store(store::openEngine("sqlite:" + of, store::OpenMode::Existing))
            .OpenFile("CONTRAT");
    };
    const auto kept = contracts(copy);
    bench::report(
        "storing one record, history against none",
        writes(
            keys,
            [&](const std::string& key, const std::string& text) { kept->WriteRecord(key, text); },
            withoutHistory),
        1, 1.6);
    // A record that is read and changed, as saves do: they see that it is still the one read.
    const auto alsoKept = contracts(path);
    bench::report("reading and storing one, compared against not",
                  writes(
                      keys,
                      [&](const std::string& key, const std::string& text) {
                          records::DBARecord record = alsoKept->ReadRecord(key);
                          record() = text;
                          record.DBWrite();
                      },
                      [&](const std::string& key, const std::string& text) {
                          records::DBARecord record = kept->ReadRecord(key);
                          record() = text;
                          kept->WriteRecord(key, text);
                      }),
                  1, 1.1);
}

void measure(int contracts, double& previousRequest, int& previousContracts) {
    const Folder folder;
    const std::string path = folder / "base.vor";
    const Bare normalised(folder / "normalised.db");
    fill(*store::openEngine("sqlite:" + path, store::OpenMode::Create), normalised, contracts);
    std::printf("\n%d contracts of %d attributes, store of %ju MiB\n", contracts, Attributes,
                std::filesystem::file_size(path) >> 20U);
    std::printf("%-48s %13s %13s\n", "", "store", "bare SQLite");

    std::mt19937 random(1);
    std::vector<std::string> codes;
    std::vector<std::string> keys;
    for (int i = 0; i < Batch; ++i) {
        const int number = static_cast<int>(random() % static_cast<unsigned>(contracts));
        codes.push_back(caregiver(number / ContractsOfOne));
        keys.push_back(contract(number).key);
    }
    // Opened anew, as bare SQLite is: what filled the store has its memory all over the place.
    const auto opened = std::make_shared<store::Store>(
        store::openEngine("sqlite:" + path, store::OpenMode::Existing));
    store::Store& store = *opened;
    const Bare bare(path);
    const std::vector<std::string> again(codes.size(), codes.front());
    bench::report("contracts of one caregiver, again and again",
                  contractRequests(store, normalised, "couvrant", again), Batch, 1.5);
    const auto requests = contractRequests(store, normalised, "couvrant", codes);
    bench::report("contracts of a caregiver at random", requests, Batch, 1.5);
    bench::report("contracts of one caregiver, index in order",
                  contractRequests(store, normalised, "ordonne", codes), Batch);
    bench::report("reading one record", pointReads(*store.OpenFile("CONTRAT"), bare, keys), Batch,
                  1.25);
    const auto news = askingForNews(opened, bare);
    bench::report("asking for news while there are none", news, Batch);
    if (news.ours / Batch > NewsAtMost)
        std::printf("that takes more than %.0f us: too much\n", NewsAtMost * 1e6);
    const auto whole = wholeFile(store, bare);
    bench::report("whole file by attribute 65, one record", whole, contracts,
                  contracts >= LargerThanCache ? 1.3 : 0);
    std::filesystem::copy_file(path, folder / "copy.vor");
    writing(path, folder / "copy.vor", keys);

    const double request = requests.ours / Batch;
    std::printf("a whole file takes %.0f times the contracts of one caregiver\n",
                whole.theirs / request);
    if (previousRequest > 0)
        std::printf("contracts of one caregiver: %.2f times as long as with %d contracts\n",
                    request / previousRequest, previousContracts);
    previousRequest = request;
    previousContracts = contracts;
}

} // namespace

int main(int argc, char** argv) {
    try {
        std::vector<int> sizes;
        for (int i = 1; i < argc; ++i)
            sizes.push_back(std::atoi(argv[i]));
        if (sizes.empty())
            sizes = {10000, 100000};
        double previousRequest = 0;
        int previousContracts = 0;
        for (const int contracts : sizes) {
            if (contracts < ContractsOfOne)
                throw std::runtime_error("a size is a number of contracts, at least 10");
            measure(contracts, previousRequest, previousContracts);
        }
        return sink == 0 ? 1 : 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_store: %s\n", error.what());
        return 1;
    }
}
