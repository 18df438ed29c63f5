// The D.I.F. tab as data grows:
//   bench_dif [contracts]                for example: bench_dif 1000000
// Arriving on the tab: linear in the caregiver's own contracts, whatever else the store holds, and
// held against the bare reads of the same records. Confirming a line: linear in the lines of the
// ledger. Fails beyond the limits printed.
#include "bare.h"
#include "measure.h"
#include "unit/control_support.h"
#include "widgets/Gestures.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace vorandine;
using control_test::at;

constexpr int Rounds = 21;
constexpr double MostGrowth = 1.5;    // of the cost of one contract or line, from 100 or 1,000 on
constexpr double MostStoreGrowth = 2; // of an arrival, from the small store to the large one
constexpr double MostOverBare = 3;

bool held = true;

void hold(const char* what, double ratio, double limit) {
    held = held && ratio <= limit;
    std::printf("%-44s %.2f (at most %.2f)%s\n", what, ratio, limit,
                ratio > limit ? "  MISSED" : "");
    std::fflush(stdout);
}

// --- arriving on the tab ---

constexpr std::array Contracts = {10, 100, 1000}; // of one caregiver
constexpr int ContractsOfOthers = 10;
constexpr int SmallStore = 10000;

std::string numbered(const char* text, int number, int digits) {
    const std::string figures = std::to_string(number);
    return text + std::string(static_cast<std::size_t>(digits) - figures.size(), '0') + figures;
}

std::string caregiver(std::size_t size) {
    return numbered("M", Contracts[size], 4);
}

// Associations and households take turns.
std::string employer(int number) {
    const std::string two = numbered("", number / 2 % 100, 2);
    return number % 2 == 0 ? static_cast<char>('A' + number / 200) + two : numbered("P", number, 4);
}

std::string record(const std::vector<std::pair<std::size_t, std::string>>& attributes,
                   std::size_t count, const std::string& filler) {
    std::vector<std::string> all(count, filler);
    for (const auto& [attribute, value] : attributes)
        all[attribute - 1] = value;
    std::string text;
    for (const std::string& value : all)
        text += value + records::AttributeMark;
    text.pop_back();
    return text;
}

std::string contract(int number) {
    constexpr std::size_t Attributes = 70;
    const std::string code = employer(number);
    return record({{3, code}, {4, "Nom de " + code}, {5, ""}, {7, "20050601"}, {8, ""}, {65, ""}},
                  Attributes, "rempli de so");
}

std::string ledger(int lines) {
    control_test::Content content;
    int balance = 0;
    for (int line = 0; line < lines; ++line) {
        const bool rights = line % 3 != 2;
        balance += rights ? 100 : -50;
        content[1].push_back(std::to_string(20050101 + line / 28 % 12 * 100 + line % 28));
        content[2].emplace_back(rights ? "100" : "");
        content[3].emplace_back(rights ? "" : "50");
        content[4].push_back(std::to_string(balance));
        content[5].emplace_back(rights ? "" : "MAN");
    }
    std::vector<std::pair<std::size_t, std::string>> attributes;
    for (const auto& [attribute, values] : content) {
        std::string list;
        for (const std::string& value : values)
            list += value + records::ValueMark;
        list.pop_back();
        attributes.emplace_back(attribute, list);
    }
    return record(attributes, 5, "");
}

// A store on disk of that many contracts, a ledger for each, and a desk on it.
class Office {
  public:
    Office(const std::string& path, int contracts) {
        const std::shared_ptr<store::Engine> tables = desk_.engine;
        desk_.engine = store::openEngine("sqlite:" + path, store::OpenMode::Create);
        desk_.engine->atomically([&] {
            for (const char* const name : {"TABLES", "ACTIVITES"})
                tables->file(name)->scan({}, [&](std::string_view key, std::string_view text) {
                    desk_.engine->file(name)->write(key, text);
                    return true;
                });
            for (int i = 0; i < Contracts.back(); ++i)
                desk_.engine->file(i % 2 == 0 ? "ASSOCIATION" : "CIVILAIDE")
                    ->write(employer(i), record({{1, "Nom " + employer(i)}}, 3, "prénom"));
            fill(contracts);
        });
        // Opened anew: what filled the store has its memory all over the place.
        desk_.engine.reset();
        desk_.engine = store::openEngine("sqlite:" + path, store::OpenMode::Existing);
        for (std::size_t size = 0; size < Contracts.size(); ++size)
            forms_[size] = desk_.open(caregiver(size));
    }

    // `times` arrivals; the way back to the first tab does nothing.
    void arrive(std::size_t size, int times) {
        auto& tabs = at<widgets::TabContainer>(*forms_[size], "Ong_Vorandine");
        for (int i = 0; i < times; ++i) {
            widgets::showTab(tabs, 0);
            widgets::showTab(tabs, 2);
        }
        if (at<widgets::ListBox>(*forms_[size], "Lst_DifEmpl").ListCount() != Contracts[size] ||
            !desk_.errors.empty())
            throw std::runtime_error("an arrival did not list all employers");
    }

  private:
    control_test::Desk desk_;
    std::array<std::unique_ptr<host::CaregiverForm>, Contracts.size()> forms_;

    void put(const std::string& code, int number) {
        desk_.engine->file("CONTRAT")->write(code + numbered("*", number, 4), contract(number));
        desk_.engine->file("DIFAIDANT")->write(code + employer(number), ledger(6));
    }
    // The others' keys stand on both sides of those measured.
    void fill(int contracts) {
        for (int i = 0; i < contracts; ++i)
            put(numbered(i % 2 == 0 ? "A" : "Z", i / ContractsOfOthers, 7), i % ContractsOfOthers);
        for (std::size_t size = 0; size < Contracts.size(); ++size)
            for (int i = 0; i < Contracts[size]; ++i)
                put(caregiver(size), i);
    }
};

// The same records read by bare prepared statements.
class BareReads {
  public:
    explicit BareReads(const std::string& path) : database_(path) {}

    void arrive(std::size_t size) {
        const std::string code = caregiver(size);
        const std::string after =
            code.substr(0, code.size() - 1) + static_cast<char>(code.back() + 1);
        std::string bytes;
        contracts_.blob(1, code);
        contracts_.blob(2, after);
        while (contracts_.step()) {
            contracts_.append(0, bytes);
            contracts_.append(1, bytes);
        }
        contracts_.reset();
        for (int i = 0; i < Contracts[size]; ++i) {
            read(ledgers_, code + employer(i), bytes);
            read(i % 2 == 0 ? associations_ : households_, employer(i), bytes);
        }
        bytes_ += bytes.size();
    }
    [[nodiscard]] std::size_t bytes() const { return bytes_; }

  private:
    bench::Bare database_;
    bench::Statement contracts_{
        database_, "SELECT cle, fiche FROM CONTRAT WHERE cle >= ?1 AND cle < ?2 ORDER BY cle"};
    bench::Statement ledgers_{database_, "SELECT fiche FROM DIFAIDANT WHERE cle = ?1"};
    bench::Statement associations_{database_, "SELECT fiche FROM ASSOCIATION WHERE cle = ?1"};
    bench::Statement households_{database_, "SELECT fiche FROM CIVILAIDE WHERE cle = ?1"};
    std::size_t bytes_ = 0;

    static void read(const bench::Statement& statement, const std::string& key, std::string& to) {
        statement.blob(1, key);
        if (statement.step())
            statement.append(0, to);
        statement.reset();
    }
};

void measureArrivals(int contracts) {
    const bench::Folder folder;
    Office small(folder / "small.vor", SmallStore);
    Office large(folder / "large.vor", contracts);
    BareReads bare(folder / "large.vor");
    std::printf("arriving on the tab, store of %d contracts\n", contracts);
    std::array<double, Contracts.size()> each{};
    for (std::size_t size = 0; size < Contracts.size(); ++size) {
        const int times = Contracts.back() / Contracts[size];
        const auto ours = [&] { large.arrive(size, times); };
        const auto against = bench::compare(
            Rounds, ours,
            [&] {
                for (int i = 0; i < times; ++i)
                    bare.arrive(size);
            },
            bench::Clock::Processor);
        const auto growth = bench::compare(
            Rounds, ours, [&] { small.arrive(size, times); }, bench::Clock::Processor);
        each[size] = against.ours / Contracts.back();
        std::printf("%5d contracts: %.2f us each\n", Contracts[size], each[size] * 1e6);
        hold("  against bare reads of the same records", against.ratio, MostOverBare);
        hold("  against a store of 10,000 contracts", growth.ratio, MostStoreGrowth);
    }
    hold("one of 1,000 contracts against one of 100", each[2] / each[1], MostGrowth);
    if (bare.bytes() == 0)
        throw std::runtime_error("the bare reads found nothing");
}

// --- confirming a line ---

constexpr std::array Lines = {100, 1000, 5000};

void measureConfirming() {
    control_test::Desk desk;
    std::array<std::unique_ptr<host::CaregiverForm>, Lines.size()> forms;
    for (std::size_t size = 0; size < Lines.size(); ++size) {
        const std::string code = numbered("M", Lines[size], 4);
        desk.engine->atomically([&] {
            desk.engine->file("CONTRAT")->write(code + "*1", contract(0));
            desk.engine->file("DIFAIDANT")->write(code + employer(0), ledger(Lines[size]));
        });
        forms[size] = desk.open(code);
        widgets::showTab(at<widgets::TabContainer>(*forms[size], "Ong_Vorandine"), 2);
        widgets::doubleClickLine(at<widgets::ListBox>(*forms[size], "Lst_DifEmpl"), 0);
    }
    // Seconds to change the rights of the first line: every balance changes with it.
    const auto confirm = [&](std::size_t size, int turn) {
        host::CaregiverForm& form = *forms[size];
        auto& rights = at<widgets::TextBox>(form, "Txt_DroitDif");
        widgets::doubleClickLine(at<widgets::ListBox>(form, "Lst_DetailDif"), 0);
        widgets::erase(rights);
        widgets::typeText(rights, std::to_string(1 + turn % 7));
        return bench::timed([&] { widgets::click(at<widgets::CommandButton>(form, "Cmd_OkDif")); },
                            bench::Clock::Processor);
    };
    std::array<std::vector<double>, Lines.size()> costs;
    for (int round = -1; round < Rounds; ++round)
        for (std::size_t turn = 0; turn < Lines.size(); ++turn) {
            const std::size_t size = round % 2 == 0 ? turn : Lines.size() - 1 - turn;
            const int times = Lines.back() / Lines[size];
            double once = 0;
            for (int i = 0; i < times; ++i)
                once += confirm(size, i + round + 1);
            if (round >= 0) // the first one warms up
                costs[size].push_back(once / Lines.back());
        }
    std::printf("confirming a line\n");
    for (std::size_t size = 0; size < Lines.size(); ++size) {
        std::printf("%5d lines: %.2f us each\n", Lines[size], bench::median(costs[size]) * 1e6);
        if (at<widgets::ListBox>(*forms[size], "Lst_DetailDif").ListCount() != Lines[size] ||
            !desk.errors.empty())
            throw std::runtime_error("a line was not confirmed");
    }
    hold("one of 5,000 lines against one of 1,000",
         bench::median(costs[2]) / bench::median(costs[1]), MostGrowth);
}

} // namespace

int main(int argc, char** argv) {
    try {
        const int contracts = argc > 1 ? std::atoi(argv[1]) : 100000;
        if (contracts < ContractsOfOthers)
            throw std::runtime_error("the size is a number of contracts, at least 10");
        measureArrivals(contracts);
        measureConfirming();
        return held ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_dif: %s\n", error.what());
        return 1;
    }
}
