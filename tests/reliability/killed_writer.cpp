// Kills a process that writes to a store, at any moment, again and again: each write that returned
// is there, the one under way is there whole or not at all, and the store goes on being used.
//     killed_writer [KILLS] [SEED]
#include "reliability_support.h"
#include "unit/store_support.h"

#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>

namespace reliability {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

// What the writer tells through its pipe.
constexpr char Opened = 'o';
constexpr char Begins = 'b';
constexpr char Returned = 'r';

enum Kind { Write, Deletion, Transaction, Large, Pruning, Kinds };
constexpr std::array<const char*, Kinds> Names{"write", "deletion", "transaction",
                                               "large transaction", "pruning"};

struct Task {
    Kind kind;
    bool reopens; // before the step
    Step step;
};

// Both the writer and the one who kills it draw the tasks of a round from the same seed.
Task drawTask(Random& random, bool large) {
    Task task{Write, random.one(12), {"user" + std::to_string(random.below(5)), {}}};
    const auto add = [&](bool deletion, std::uint64_t size) {
        const Id id = idOfSize(random, size);
        task.step.writes.push_back(
            {keyName(random.below(Keys)), deletion ? std::nullopt : std::optional(id)});
    };
    const std::uint64_t kind = random.below(20);
    if (large) {
        // Beyond the cache of a connection, so that pages reach the file before the end.
        task.kind = Large;
        for (int i = 0; i < 800; ++i)
            add(false, Sizes.size() - 1);
    } else if (kind < 9) {
        add(false, random.below(Sizes.size()));
    } else if (kind < 12) {
        task.kind = Deletion;
        add(true, 0);
    } else if (kind < 19) {
        task.kind = Transaction;
        for (std::uint64_t left = 2 + random.below(15); left > 0; --left)
            add(random.one(4), random.below(Sizes.size()));
    } else {
        task.kind = Pruning;
    }
    return task;
}

struct Round {
    std::string path;
    std::uint64_t seed;
    bool large;      // begins with a transaction larger than the cache
    bool smallCache; // SQLite gets little memory: every transaction is larger than its cache
};

[[noreturn]] void writeOn(const Round& round, int pipe) {
    const auto tell = [pipe](char what) {
        if (write(pipe, &what, 1) != 1)
            _exit(1);
    };
    try {
        if (round.smallCache)
            sqlite3_soft_heap_limit64(500'000);
        auto store = std::make_unique<store::Store>(
            store::openEngine("sqlite:" + round.path, store::OpenMode::Create));
        tell(Opened);
        Random random(round.seed);
        for (bool large = round.large;; large = false) {
            const Task task = drawTask(random, large);
            if (task.reopens) {
                store.reset();
                store = std::make_unique<store::Store>(
                    store::openEngine("sqlite:" + round.path, store::OpenMode::Existing));
            }
            tell(Begins);
            perform(*store, task.step);
            tell(Returned);
        }
    } catch (const std::exception& error) {
        std::cerr << "the writer failed: " << error.what() << '\n';
    }
    _exit(1);
}

struct Figures {
    std::uint64_t opening = 0;
    std::uint64_t between = 0;
    std::array<std::uint64_t, Kinds> within{};
    std::uint64_t journals = 0; // left behind
    std::uint64_t hot = 0;      // of these, to be rolled back
    std::uint64_t stored = 0;   // what was under way is there
    std::uint64_t undone = 0;
    std::uint64_t returned = 0;
};

// Lets a writer run until a moment within the round, kills it and gives all that it told.
std::string killed(const Round& round, Random& random) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        wrong("no pipe");
    const auto start = Clock::now();
    const pid_t writer = fork();
    if (writer == 0) {
        close(ends[0]);
        writeOn(round, ends[1]);
    }
    close(ends[1]);
    std::string told;
    const auto listen = [&] {
        char what = 0;
        if (read(ends[0], &what, 1) != 1)
            return false;
        told += what;
        return true;
    };
    // So many words of the writer, then some time more: up to twice what a word has taken so far.
    static Seconds opening{0.01};
    const std::uint64_t words = round.large ? 2 : random.below(16);
    while (told.size() < words && listen())
        if (told.size() == 1)
            opening = Clock::now() - start;
    const Seconds pace =
        words == 0 ? opening / 2 : Seconds(Clock::now() - start) / static_cast<double>(words);
    std::this_thread::sleep_for(pace * (round.large ? 60.0 : 2.0) *
                                (static_cast<double>(random.below(1000)) / 1000));
    kill(writer, SIGKILL);
    while (listen()) {
    }
    close(ends[0]);
    int status = 0;
    waitpid(writer, &status, 0);
    if (!WIFSIGNALED(status) || WTERMSIG(status) != SIGKILL)
        wrong("the writer ended by itself");
    return told;
}

// A journal whose header counts pages is played back by the next opening.
void lookAtJournal(const std::string& path, Figures& figures) {
    std::ifstream journal(path + "-journal", std::ios::binary);
    if (!journal)
        return;
    ++figures.journals;
    std::array<char, 12> header{};
    journal.read(header.data(), header.size());
    figures.hot += journal && std::memcmp(header.data() + 8, "\0\0\0\0", 4) != 0 ? 1 : 0;
}

// One kill, and what it left. Gives the store's state.
State killOnce(const Round& round, State state, Random& random, Figures& figures) {
    const std::string told = killed(round, random);
    lookAtJournal(round.path, figures);

    Random tasks(round.seed);
    std::optional<Task> underWay;
    bool large = round.large;
    for (const char word : told) {
        if (word == Begins)
            underWay = drawTask(tasks, std::exchange(large, false));
        if (word != Returned)
            continue;
        state = after(std::move(state), underWay.value().step);
        underWay.reset();
        ++figures.returned;
    }
    if (told.empty())
        ++figures.opening;
    else if (underWay)
        ++figures.within.at(underWay->kind);
    else
        ++figures.between;

    // A store whose making was interrupted may be made anew; any other one is there.
    store::Store store =
        opened(round.path, told.empty() ? store::OpenMode::Create : store::OpenMode::Existing);
    const State found = stateOf(store);
    if (underWay && found != state) {
        state = after(std::move(state), underWay->step);
        ++figures.stored;
    } else if (underWay) {
        ++figures.undone;
    }
    requireSame(found, state, "after the kill");
    verify(round.path);
    return state;
}

void program(const std::vector<std::string>& words) {
    const std::uint64_t kills = argument(words, 0, 1000);
    const std::uint64_t seed = argument(words, 1, 1);
    constexpr std::uintmax_t LargestStore = 8'000'000;
    const store_test::Folder folder;
    Random random(seed);
    Figures figures;
    State state;
    std::string path;
    std::uint64_t stores = 0;
    const auto start = Clock::now();
    for (std::uint64_t kill = 1; kill <= kills; ++kill) {
        std::error_code missing;
        const std::uintmax_t size = std::filesystem::file_size(path, missing);
        if (missing || size > LargestStore || random.one(12)) {
            std::filesystem::remove(path, missing);
            path = folder / ("store" + std::to_string(++stores));
            state.clear();
        }
        const Round round{path, random.number(), kill % 50 == 25, random.one(3)};
        try {
            state = killOnce(round, std::move(state), random, figures);
        } catch (const std::exception& error) {
            wrong("seed " + std::to_string(seed) + ", kill " + std::to_string(kill) + ": " +
                  error.what());
        }
    }
    const Seconds taken = Clock::now() - start;
    std::cout << kills << " kills, " << static_cast<double>(kills) / taken.count() << "/s, of "
              << stores << " stores: " << figures.opening << " while opening, " << figures.between
              << " between writes";
    for (int kind = 0; kind < Kinds; ++kind)
        std::cout << ", " << figures.within.at(kind) << " in a " << Names.at(kind);
    std::cout << "; " << figures.journals << " journals left, " << figures.hot
              << " of them hot; of the writes under way " << figures.stored << " stored, "
              << figures.undone << " undone; " << figures.returned << " writes returned\n";
    if (kills > 500 && (figures.hot == 0 || figures.stored == 0 || figures.undone == 0))
        wrong("the kills never met a write at its end: nothing is shown");
}

} // namespace
} // namespace reliability

int main(int count, char** words) {
    return reliability::run(count, words, reliability::program);
}
