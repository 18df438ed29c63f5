// Several processes write the same few records at once: no write is lost, none is stored that was
// not made, each version has its author and its place. And a lock held for too long is told.
//     two_writers [WRITES] [SEED] [PROCESSES] [PATIENCE]     PATIENCE: for a lock, in ms
#include "reliability_support.h"
#include "store/sqlite/SqliteEngine.h"
#include "unit/store_support.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <thread>
#include <utility>

namespace reliability {
namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

constexpr std::uint64_t SharedKeys = 3;
constexpr std::uint64_t MostWriters = 64;

struct Settings {
    std::string path;
    std::uint64_t writes; // of each writer
    std::uint64_t seed;
    std::uint64_t writers;
    Milliseconds patience;
    Clock::time_point begin; // of all writers

    store::Store open() const {
        return store::Store(
            std::make_shared<store::SqliteEngine>(path, store::OpenMode::Existing, patience));
    }
};

// What a writer tells at its end.
struct Told {
    std::uint64_t locked = 0; // times that it had to begin again
    std::int64_t longest = 0; // ms that a write took, all its attempts together
};

std::string userOf(Id id) {
    return "writer" + std::to_string(id / Sizes.size() % MostWriters);
}

// All that a writer writes, in order.
std::vector<Step> stepsOf(const Settings& settings, std::uint64_t writer) {
    Random random(settings.seed * MostWriters + writer);
    std::vector<Step> steps;
    for (std::uint64_t number = 0; number < settings.writes; ++number) {
        const Id id = (number * MostWriters + writer) * Sizes.size() +
                      random.below(random.one(8) ? Sizes.size() : 2);
        steps.push_back({userOf(id), {{keyName(random.below(SharedKeys)), id}}});
    }
    return steps;
}

Told writeAll(const Settings& settings, std::uint64_t writer) {
    Told told;
    store::Store store = settings.open();
    std::this_thread::sleep_until(settings.begin);
    for (const Step& step : stepsOf(settings, writer)) {
        const auto start = Clock::now();
        while (const std::uint32_t number =
                   store_test::raisedBy([&] { perform(store, step); }).number) {
            if (number != vorandine::errors::Locked)
                wrong("a write fails with error " + std::to_string(number));
            ++told.locked;
        }
        const auto taken = std::chrono::duration_cast<Milliseconds>(Clock::now() - start);
        told.longest = std::max<std::int64_t>(told.longest, taken.count());
    }
    return told;
}

// A process of its own that does `work` and tells what it gives.
class Process {
  public:
    template <typename Work>
    explicit Process(const Work& work) {
        std::array<int, 2> ends{};
        if (pipe(ends.data()) != 0)
            wrong("no pipe");
        child_ = fork();
        if (child_ == 0) {
            int status = 1;
            try {
                const Told told = work();
                status = write(ends[1], &told, sizeof told) == sizeof told ? 0 : 1;
            } catch (const std::exception& error) {
                std::cerr << error.what() << '\n';
            }
            _exit(status);
        }
        close(ends[1]);
        end_ = ends[0];
    }

    // Waits for its end.
    Told told() const {
        Told told;
        const bool whole = read(end_, &told, sizeof told) == sizeof told;
        close(end_);
        int status = 0;
        waitpid(child_, &status, 0);
        if (!whole || status != 0)
            wrong("one of the processes failed");
        return told;
    }

  private:
    pid_t child_ = 0;
    int end_ = 0;
};

struct Order {
    std::uint64_t writes = 0;
    std::uint64_t turns = 0; // how often another writer came to write
};

// Each writer's writes are there, each once, in its order, under its name.
Order requireAll(const Settings& settings) {
    store::Store store = settings.open();
    std::map<std::string, std::string> users;                            // by moment and key
    std::map<std::pair<std::string, std::string>, std::vector<Id>> made; // by key and user
    Order order;
    for (const auto& [key, life] : stateOf(store)) {
        const auto versions = store.changes().history(File, key);
        for (std::size_t i = 0; i < versions.size(); ++i) {
            const std::optional<Id> id =
                i + 1 < versions.size() ? life.changes[i + 1].before : life.record;
            if (!id || userOf(*id) != versions[i].user)
                wrong("version " + std::to_string(i) + " of " + key + " is not by " +
                      versions[i].user);
            made[{key, versions[i].user}].push_back(*id);
            users[versions[i].moment + key] = versions[i].user;
        }
    }
    std::map<std::pair<std::string, std::string>, std::vector<Id>> expected;
    for (std::uint64_t writer = 0; writer < settings.writers; ++writer)
        for (const Step& step : stepsOf(settings, writer))
            expected[{step.writes[0].key, step.user}].push_back(step.writes[0].made.value());
    for (const auto& [whose, ids] : expected) {
        order.writes += ids.size();
        if (made[whose] != ids)
            wrong("of the " + std::to_string(ids.size()) + " writes of " + whose.second + " to " +
                  whose.first + ", " + std::to_string(made[whose].size()) +
                  " are there, or in another order");
    }
    std::string last;
    for (const auto& [moment, user] : users)
        order.turns += std::exchange(last, user) != user ? 1 : 0;
    return order;
}

// Another process is at the store for longer than a writer waits, then for less.
void heldLock(const Settings& settings) {
    const auto state = [&] {
        store::Store store = settings.open();
        return stateOf(store);
    };
    const State before = state();
    const Step own{"waiting", {{keyName(1), Id{4}}}};
    const Step others{"holding", {{keyName(1), Id{8}}, {keyName(2), Id{12}}}};
    for (const bool tooLong : {true, false}) {
        std::array<int, 2> begun{};
        std::array<int, 2> enough{};
        if (pipe(begun.data()) != 0 || pipe(enough.data()) != 0)
            wrong("no pipe");
        char word = 'b';
        const Process holder([&] {
            store::Store other = settings.open();
            store_test::raisedBy([&] {
                other.atomically([&] {
                    other.OpenFile(File)->DeleteRecord(keyName(0));
                    if (write(begun[1], &word, 1) != 1)
                        wrong("nobody waits");
                    std::this_thread::sleep_for(settings.patience / 2);
                    if (tooLong && read(enough[0], &word, 1) != 1)
                        wrong("nobody waits any longer");
                    throw vorandine::Error(vorandine::errors::Unexpected, "undone");
                });
            });
            return Told();
        });
        if (read(begun[0], &word, 1) != 1)
            wrong("the lock was not taken");
        store::Store store = settings.open(); // after the fork, which must carry none over
        const auto start = Clock::now();
        const std::uint32_t number =
            store_test::raisedBy([&] { perform(store, tooLong ? own : others); }).number;
        const auto taken = Clock::now() - start;
        if (tooLong ? number != vorandine::errors::Locked || taken < settings.patience * 9 / 10
                    : number != 0)
            wrong("a held lock gives error " + std::to_string(number) + " after " +
                  std::to_string(std::chrono::duration_cast<Milliseconds>(taken).count()) + " ms");
        if (tooLong) {
            requireSame(stateOf(store), before, "while another process writes");
            if (write(enough[1], &word, 1) != 1)
                wrong("the lock cannot be given back");
        }
        (void)holder.told();
        if (tooLong)
            perform(store, own);
        for (const int end : {begun[0], begun[1], enough[0], enough[1]})
            close(end);
    }
    requireSame(state(), after(after(before, own), others), "once the lock is gone");
}

void program(const std::vector<std::string>& words) {
    const store_test::Folder folder;
    const std::uint64_t writes = argument(words, 0, 5000);
    const std::uint64_t writers = argument(words, 2, 2);
    const Settings settings{folder / "base.vor",
                            writes / writers,
                            argument(words, 1, 1),
                            writers,
                            Milliseconds(argument(words, 3, store::SqlitePatience.count())),
                            Clock::now() + Milliseconds(300)};
    (void)opened(settings.path, store::OpenMode::Create);
    std::vector<Process> processes;
    for (std::uint64_t writer = 0; writer < writers; ++writer)
        processes.emplace_back([&] { return writeAll(settings, writer); });
    Told all;
    for (const Process& process : processes) {
        const Told told = process.told();
        all.locked += told.locked;
        all.longest = std::max(all.longest, told.longest);
    }
    const std::chrono::duration<double> taken = Clock::now() - settings.begin;
    const Order order = requireAll(settings);
    verify(settings.path);
    heldLock(settings);
    std::cout << order.writes << " writes of " << writers << " processes, "
              << static_cast<double>(order.writes) / taken.count() << "/s; another one's turn "
              << order.turns << " times; " << all.locked << " times locked for more than "
              << settings.patience.count() << " ms; the longest write took " << all.longest
              << " ms\n";
}

} // namespace
} // namespace reliability

int main(int count, char** words) {
    return reliability::run(count, words, reliability::program);
}
