// Checking a whole store against the least that reads the same records with SQLite:
//   bench_check [records]             for example: bench_check 1000000
// Tells too how much memory checking takes beside reading, with ten times the records each time.
#include "bare.h"
#include "measure.h"

#include "apps/dba/Program.h"
#include "exchange/Exchange.h"
#include "store/Store.h"
#include "unit/store_support.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

using namespace vorandine;

constexpr int Rounds = 7;
constexpr double MostForCheck = 3;
constexpr int FewRecords = 10000; // the smallest store whose memory is told

// The demonstration data, its caregivers again and again under other codes.
class Filling {
  public:
    Filling(store::Engine& engine, int records)
        : engine_(engine), wanted_(static_cast<std::size_t>(records)) {
        store::Store demo(store::openEngine("memory:", store::OpenMode::Create));
        exchange::ImportWatch watch;
        watch.complain = [](const std::string& complaint) { throw std::runtime_error(complaint); };
        const auto folder = std::filesystem::path(__FILE__).parent_path() / "../demo";
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().extension() != ".jsonl")
                continue;
            std::ifstream lines(entry.path());
            static_cast<void>(exchange::importRecords(demo, {{entry.path(), lines}}, watch));
        }
        for (const std::string& file : demo.files())
            demo.changes().engine().file(file)->scan({}, [&](auto key, auto record) {
                demo_.push_back({file, std::string(key), std::string(record)});
                return true;
            });
    }

    // As many whole copies as there is room for; users make up the number.
    void run() {
        for (int copy = 0; made_ + demo_.size() <= wanted_; ++copy)
            for (const Entry& entry : demo_)
                if (OfCaregivers.contains(entry.file))
                    put(entry.file, std::to_string(FirstCopy + copy) + entry.key, entry.record);
                else if (copy == 0)
                    put(entry.file, entry.key, entry.record);
        while (made_ < wanted_)
            put("UTILISATEURS", "u" + std::to_string(made_), "LEROY Sylvie");
    }

  private:
    struct Entry {
        std::string file;
        std::string key;
        std::string record;
    };

    static constexpr int FirstCopy = 1000; // all of one length: none begins another one

    const std::set<std::string> OfCaregivers{"AIDANT", "CONTRAT", "DETAILCALCUL", "DIFAIDANT",
                                             "FORMVORANDINE"};
    store::Engine& engine_;
    std::size_t wanted_;
    std::size_t made_ = 0;
    std::vector<Entry> demo_;

    void put(const std::string& file, const std::string& key, const std::string& record) {
        engine_.file(file)->write(key, record);
        ++made_;
    }
};

// --- measures ---

std::size_t sink = 0; // what is read, so that no reading can be left out

void make(const std::string& path, int records) {
    const auto engine = store::openEngine("sqlite:" + path, store::OpenMode::Create);
    engine->atomically([&] { Filling(*engine, records).run(); });
}

void requireAll(int found, int records) {
    if (found != records)
        throw std::runtime_error("the scan met " + std::to_string(found) + " records");
}

// The least that a program does to read all records: SQLite's rows, keys and records taken over.
void read(const std::string& path, int records) {
    const std::vector<std::string> files =
        store::openEngine("sqlite:" + path, store::OpenMode::Existing)->files();
    const bench::Bare database(path);
    std::string key;
    std::string record;
    int found = 0;
    for (const std::string& file : files) {
        const bench::Statement rows(
            database, ("SELECT cle, fiche FROM \"" + file + "\" ORDER BY cle").c_str());
        for (; rows.step(); ++found) {
            key.clear();
            record.clear();
            rows.append(0, key);
            rows.append(1, record);
            sink += key.size() + record.size();
        }
    }
    requireAll(found, records);
}

// The store's own scan, which shows records where they lie: not even a byte of them is looked at.
void pass(const std::string& path, int records) {
    const auto engine = store::openEngine("sqlite:" + path, store::OpenMode::Existing);
    int found = 0;
    for (const std::string& file : engine->files())
        engine->file(file)->scan({}, [&](std::string_view key, std::string_view record) {
            sink += key.size() + record.size();
            ++found;
            return true;
        });
    requireAll(found, records);
}

void check(const std::string& path) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream errors;
    if (dba::run({"check", "sqlite:" + path}, {in, out, errors, false, false}) != 0 ||
        out.str() != "0 findings\n")
        throw std::runtime_error(
            "a sound store was found fault with: " + out.str().substr(0, 1000) + errors.str());
}

// The most memory that a process took for the work alone.
long peakKiB(const std::function<void()>& work) {
    const pid_t child = fork();
    if (child == 0) {
        try {
            work();
            _exit(0);
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
            _exit(1);
        }
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0)
        throw std::runtime_error("work in a process of its own failed");
    return usage.ru_maxrss;
}

// In processes of their own, so that none finds the memory that another one left.
void measureMemory(const std::string& path, int records) {
    const long scanning = peakKiB([&] { read(path, records); });
    const long checking = peakKiB([&] { check(path); });
    std::printf("%9d records, %4ju MiB: reading takes %ld KiB, checking %ld KiB more\n", records,
                std::filesystem::file_size(path) >> 20U, scanning, checking - scanning);
    std::fflush(stdout);
}

void measure(int records) {
    const store_test::Folder folder;
    const auto storeOf = [&](int size) {
        const std::string path = folder / (std::to_string(size) + ".vor");
        peakKiB([&] { make(path, size); });
        return path;
    };
    for (int fewer = FewRecords; fewer < records; fewer *= 10)
        measureMemory(storeOf(fewer), fewer);
    const std::string path = storeOf(records);
    measureMemory(path, records);
    const auto ours = [&] { check(path); };
    const auto reading = [&] { read(path, records); };
    const auto passing = [&] { pass(path, records); };
    std::printf("%-48s %13s %13s\n", "", "check", "reading");
    bench::report("checking, a record", bench::compare(Rounds, ours, reading, bench::Clock::Wall),
                  records, MostForCheck);
    bench::report("checking, a record, processor alone",
                  bench::compare(Rounds, ours, reading, bench::Clock::Processor), records);
    bench::report("the same, beside the store's scan of no byte",
                  bench::compare(Rounds, ours, passing, bench::Clock::Processor), records);
}

} // namespace

int main(int argc, char** argv) {
    try {
        const int records = argc > 1 ? std::atoi(argv[1]) : 100000;
        if (records < 1000)
            throw std::runtime_error("the argument is a number of records, at least 1000");
        measure(records);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_check: %s\n", error.what());
        return 1;
    }
}
