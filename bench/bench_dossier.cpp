// What one training costs as a file grows from 50 to 5,000 of them: opening the file, composing the
// record, opening a line, selecting. Cost a training must not grow with their number; opening a
// line and selecting must not depend on it at all. Fails beyond the limits printed.
#include "measure.h"
#include "unit/control_support.h"
#include "widgets/Gestures.h"

#include <array>
#include <cstdio>

namespace {

using namespace vorandine;
using control_test::at;

constexpr std::array Sizes = {50, 500, 5000};
constexpr int Rounds = 21;
constexpr int Least = 5000; // trainings a timed piece of work goes through, whatever the size
constexpr double MostAllowed = 1.5;

// One open file of each size, and the desk for opening more.
struct Bench {
    control_test::Desk desk;
    std::array<std::unique_ptr<host::CaregiverForm>, Sizes.size()> forms;

    static std::string code(std::size_t size) { return "0000" + std::to_string(size); }

    Bench() {
        for (std::size_t i = 0; i < Sizes.size(); ++i) {
            desk.put("FORMVORANDINE", code(i), control_test::caregiver(Sizes[i]));
            forms[i] = desk.open(code(i));
        }
    }
};

struct Work {
    const char* name;
    bool whole; // goes through all trainings at once; else through one of them
    void (*run)(Bench& bench, std::size_t size, int turn);
};

const Work Works[] = {
    {"Init", true,
     [](Bench& bench, std::size_t size, int /*turn*/) {
         (void)bench.desk.open(Bench::code(size));
     }},
    {"MAJ_TabDyn", true,
     [](Bench& bench, std::size_t size, int /*turn*/) {
         bench.forms[size]->control().MAJ_TabDyn();
     }},
    {"selecting a line", false,
     [](Bench& bench, std::size_t size, int turn) {
         widgets::clickLine(at<widgets::ListBox>(*bench.forms[size], "Lst_ObsFormAidant"),
                            turn % Sizes[size]);
     }},
    {"opening a line and leaving it", false,
     [](Bench& bench, std::size_t size, int turn) {
         widgets::doubleClickLine(at<widgets::ListBox>(*bench.forms[size], "Lst_ObsFormAidant"),
                                  turn % Sizes[size]);
         widgets::pressKey(bench.forms[size]->form(), widgets::Key::Escape);
     }},
};

// Seconds a training, over enough repetitions to go through Least of them.
double cost(Bench& bench, const Work& work, std::size_t size) {
    const int repetitions = work.whole ? Least / Sizes[size] : Least;
    return bench::timed([&] {
               for (int turn = 0; turn < repetitions; ++turn)
                   work.run(bench, size, turn);
           }) /
           Least;
}

} // namespace

int main() {
    Bench bench;
    bool held = true;
    std::printf("%-30s %9s %9s %9s   %s\n", "microseconds a training", "50", "500", "5000",
                "5000 : 500 (5000 : 50)");
    for (const Work& work : Works) {
        std::array<std::vector<double>, Sizes.size()> costs;
        std::vector<double> last;
        std::vector<double> first;
        for (int round = -1; round < Rounds; ++round) {
            std::array<double, Sizes.size()> once{};
            for (std::size_t turn = 0; turn < Sizes.size(); ++turn) {
                const std::size_t size = round % 2 == 0 ? turn : Sizes.size() - 1 - turn;
                once[size] = cost(bench, work, size);
            }
            if (round < 0) // warms up
                continue;
            for (std::size_t size = 0; size < Sizes.size(); ++size)
                costs[size].push_back(once[size]);
            last.push_back(once[2] / once[1]);
            first.push_back(once[2] / once[0]);
        }
        const double ratio = bench::median(last);
        held = held && ratio <= MostAllowed;
        std::printf("%-30s %9.3f %9.3f %9.3f   %.2f (%.2f)%s\n", work.name,
                    bench::median(costs[0]) * 1e6, bench::median(costs[1]) * 1e6,
                    bench::median(costs[2]) * 1e6, ratio, bench::median(first),
                    ratio > MostAllowed ? "  MISSED" : "");
    }
    return held && bench.desk.errors.empty() ? 0 : 1;
}
