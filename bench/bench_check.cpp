// Checking a whole store against the least that reads the same records with SQLite:
//   bench_check [records]             for example: bench_check 1000000
// Tells too how much memory checking takes beside reading, with ten times the records each time.
#include "bare.h"
#include "measure.h"

#include "apps/dba/Program.h"
#include "data/DBARecord.h"
#include "store/Store.h"
#include "unit/store_support.h"

#include <array>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <random>
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

// --- data ---

constexpr int Trainings = 12; // of a caregiver
constexpr int LinesOfPay = 4;
constexpr int FirstYear = 2005; // of the rights in a ledger
constexpr int LastYear = 2021;  // which gains hours once a year
constexpr unsigned CaregiversOfHousehold = 10;

constexpr std::array<const char*, 8> Remarks{"",
                                             "À distance",
                                             "",
                                             "Recyclage",
                                             "Attestation remise",
                                             "",
                                             "Absence l'après-midi",
                                             "À renouveler"};
constexpr std::array<const char*, 4> Names{"LE GUEN", "BRÛLÉ", "MAÎTRE", "D'HAUTERIVE"};

using Values = std::vector<std::string>;

// A record under way: attributes by number, values by their order.
class Draft {
  public:
    Draft& set(std::size_t attribute, const std::string& text) {
        if (attributes_.size() < attribute)
            attributes_.resize(attribute);
        attributes_[attribute - 1] = text;
        return *this;
    }
    Draft& set(std::size_t attribute, const Values& values) {
        std::string text;
        for (const std::string& value : values)
            text += (&value == values.data() ? "" : std::string(1, data::ValueMark)) + value;
        return set(attribute, text);
    }
    [[nodiscard]] std::string text() const {
        std::string whole;
        for (const std::string& attribute : attributes_)
            whole += attribute + data::AttributeMark;
        whole.erase(whole.find_last_not_of(data::AttributeMark) + 1);
        return whole;
    }

  private:
    Values attributes_;
};

std::string householdCode(unsigned number) {
    return "P" + std::to_string(100000 + number);
}

std::string trainingCode(unsigned number) {
    return "T" + std::to_string(10 + number % 30);
}

struct Charge {
    std::string date;
    std::string code;
    int hours;
};

// A sound store: tables, employers, as many whole caregivers as there is room for, and users.
class Filling {
  public:
    Filling(store::Engine& engine, int records) : engine_(engine), wanted_(records) {}

    void run() {
        tables();
        for (unsigned caregiver = 0; made_ + MostOfCaregiver <= wanted_; ++caregiver)
            fill(caregiver);
        while (made_ < wanted_)
            put("UTILISATEURS", "u" + std::to_string(made_), Draft().set(1, "LEROY Sylvie"));
    }

  private:
    static constexpr int MostOfCaregiver = 12;

    store::Engine& engine_;
    int wanted_;
    int made_ = 0;

    void put(const char* file, const std::string& key, const Draft& record) {
        ++made_;
        engine_.file(file)->write(key, record.text());
    }

    void tables() {
        Values studies;
        Values trainings;
        for (unsigned i = 0; i < 30; ++i) {
            studies.push_back(std::to_string(10 + i));
            trainings.push_back(trainingCode(i));
            put("ACTIVITES", "A" + std::to_string(10 + i), Draft().set(1, "Aide à domicile"));
        }
        put("TABLES", "DIPLOMES", Draft().set(2, studies));
        put("TABLES", "FORMPRO", Draft().set(2, trainings));
        put("TABLES", "QUALIF", Draft().set(2, Values{"Auxiliaire de vie", "Aide à domicile"}));
        for (unsigned i = 0; i < 10; ++i)
            put("ASSOCIATION", "AS" + std::to_string(i),
                Draft().set(1, "Présence et soutien n° " + std::to_string(i)));
    }

    // As caregivers mostly are: one or two associations, which know of their hours, and a
    // household, which does not.
    void fill(unsigned number) {
        std::mt19937 random(number);
        const std::string code = std::to_string(1000000 + number);
        const unsigned household = number / CaregiversOfHousehold;
        const std::string person = Names[household % Names.size()];
        if (number % CaregiversOfHousehold == 0)
            put("CIVILAIDE", householdCode(household),
                Draft().set(1, "Mme").set(2, person).set(3, "Marie-Thérèse"));
        put("AIDANT", code, Draft().set(1, std::string(Names[random() % 4]) + " Anne"));
        const auto associations = static_cast<unsigned>(1 + random() % 2);
        std::vector<std::vector<Charge>> charges(associations);
        trainingFile(code, charges, random);
        for (unsigned i = 0; i < associations; ++i) {
            const std::string digit = std::to_string((number + i) % 10);
            contract(code + "*" + std::to_string(i + 1), "AS" + digit + "012",
                     "Présence et soutien n° " + digit, "", random);
            ledger(code + "AS" + digit, charges[i], random() % 50 == 0);
        }
        contract(code + "*9", householdCode(household), person, "Marie-Thérèse", random);
        for (int month = 1; month <= LinesOfPay; ++month)
            put("DETAILCALCUL", code + "*1*20210" + std::to_string(month),
                Draft()
                    .set(1, "AS" + std::to_string(number % 10))
                    .set(2, "01")
                    .set(3, "1")
                    .set(4, "20210" + std::to_string(month))
                    .set(6, std::to_string(60 + random() % 90) + ",50")
                    .set(16, std::to_string(600 + random() % 900) + ",40"));
    }

    // 70 attributes, of which this system knows seven.
    void contract(const std::string& key, const std::string& employer, const std::string& name,
                  const std::string& firstName, std::mt19937& random) {
        Draft record;
        for (std::size_t attribute = 1; attribute <= 70; ++attribute)
            record.set(attribute,
                       std::string(random() % 20, static_cast<char>('a' + random() % 26)));
        const bool ended = random() % 3 == 0;
        record.set(3, employer).set(4, name).set(5, firstName);
        record.set(7, std::to_string(2003 + random() % 5) + "0101");
        record.set(8, ended ? std::to_string(2009 + random() % 12) + "0331" : "");
        put("CONTRAT", key, record.set(63, ended ? "202103" : "").set(65, ""));
    }

    // Half of the trainings count, each charged to one of the employers.
    void trainingFile(const std::string& code, std::vector<std::vector<Charge>>& charges,
                      std::mt19937& random) {
        std::array<Values, 5> lists; // dates, codes, hours, remarks, whether they count
        for (int i = 0; i < Trainings; ++i) {
            const std::string date = std::to_string(LastYear - i) +
                                     std::to_string(1 + random() % 9).insert(0, 1, '0') +
                                     std::to_string(10 + random() % 19);
            const int hours = 350 * static_cast<int>(1 + random() % 4);
            const bool counts = random() % 2 == 0;
            const std::string training = trainingCode(static_cast<unsigned>(random()));
            if (counts)
                charges[random() % charges.size()].push_back({date, training, hours});
            const Values line{date, training, std::to_string(hours), Remarks[random() % 8],
                              counts ? "1" : "0"};
            for (std::size_t list = 0; list < lists.size(); ++list)
                lists[list].push_back(line[list]);
        }
        Draft record;
        record.set(1, "D").set(2, std::to_string(10 + random() % 30)).set(3, "1995");
        record.set(4, "Personnes âgées").set(5, lists[0]).set(6, lists[1]).set(7, lists[2]);
        record.set(8, lists[3]).set(11, "20050103").set(12, "20050110").set(14, lists[4]);
        record.set(9, Values{"2000-2003 : garde d'enfants à domicile", "2003-2005 : lingerie"});
        Values activities;
        for (unsigned i = 0; i < 3 + random() % 8; ++i)
            activities.push_back("A" + std::to_string(10 + (number(code) + i) % 30));
        put("FORMVORANDINE", code, record.set(10, activities).set(15, "Auxiliaire de vie"));
    }

    static unsigned number(const std::string& digits) {
        return static_cast<unsigned>(std::stoul(digits));
    }

    // Rights once a year, charges between them. Where hours are short, a removal left zero instead
    // of what is below it.
    void ledger(const std::string& key, const std::vector<Charge>& charges, bool isShort) {
        const int rights = isShort ? 100 : 2000;
        std::array<Values, 5> lists;
        int balance = 0;
        const auto add = [&](const std::string& date, int gained, int used,
                             const std::string& training) {
            balance += gained - used;
            if (isShort && balance < 0)
                balance = 0;
            const Values line{date, gained > 0 ? std::to_string(gained) : "",
                              used > 0 ? std::to_string(used) : "", std::to_string(balance),
                              training};
            for (std::size_t list = 0; list < lists.size(); ++list)
                lists[list].push_back(line[list]);
        };
        auto charge = charges.rbegin(); // the latest stands first
        for (int year = FirstYear; year <= LastYear; ++year) {
            const std::string end = std::to_string(year) + "1231";
            for (; charge != charges.rend() && charge->date <= end; ++charge)
                add(charge->date, 0, charge->hours, charge->code);
            add(end, rights, 0, "");
        }
        Draft record;
        for (std::size_t list = 0; list < lists.size(); ++list)
            record.set(list + 1, lists[list]);
        put("DIFAIDANT", key, record);
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
