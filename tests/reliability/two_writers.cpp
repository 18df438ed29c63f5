// Several processes write the same few records at once: no write is lost, none is stored that was
// not made, each version has its author and its place. A lock held for too long is told. A backup
// taken while a process writes is sound and shows the state between two writes.
//     two_writers [WRITES] [SEED] [PROCESSES] [PATIENCE] [MIB]
//         PATIENCE: for a lock, in ms     MIB: how large the store is that is backed up
#include "reliability_support.h"
#include "store/sqlite/SqliteEngine.h"
#include "unit/store_support.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <list>
#include <memory>
#include <semaphore>
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
    Clock::time_point begin;     // of all writers
    std::uint64_t mostPause = 1; // ms, less one, that a writer waits between two writes
    bool mayBeLocked = true;     // for longer than the patience: then a writer begins again

    store::Store open() const {
        return store::Store(
            std::make_shared<store::SqliteEngine>(path, store::OpenMode::Existing, patience));
    }
};

std::uint64_t writerOf(Id id) {
    return id / Sizes.size() % MostWriters;
}

std::string userOf(Id id) {
    return "writer" + std::to_string(writerOf(id));
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

// `returned` counts the writes that have.
void writeAll(const Settings& settings, std::uint64_t writer,
              std::atomic<std::uint64_t>& returned) {
    Random random(writer);
    store::Store store = settings.open();
    std::this_thread::sleep_until(settings.begin);
    for (const Step& step : stepsOf(settings, writer)) {
        while (const std::uint32_t number = store_test::numberOf([&] { perform(store, step); }))
            if (number != vorandine::errors::Locked || !settings.mayBeLocked)
                wrong("a write fails with error " + std::to_string(number));
        ++returned;
        std::this_thread::sleep_for(Milliseconds(random.below(settings.mostPause)));
    }
}

// A process that writes, and what it shares with this one.
struct Writer {
    std::atomic<std::uint64_t>& returned = *static_cast<std::atomic<std::uint64_t>*>(
        mmap(nullptr, sizeof returned, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    pid_t process = fork();

    Writer(const Settings& settings, std::uint64_t number) {
        if (process == 0)
            _exit(run([&] { writeAll(settings, number, returned); }));
    }
    // How it ended, as waitpid tells.
    int end() const {
        int status = 0;
        waitpid(process, &status, 0);
        return status;
    }
};

// The store holds of each writer's writes the first ones, each once, in its order, under its name.
// How many of all writers.
std::uint64_t requireFirsts(const Settings& settings, const std::string& path) {
    store::Store store = opened(path);
    std::map<std::uint64_t, std::map<Id, std::string>> made; // keys by writer and content
    std::uint64_t writes = 0;
    for (const auto& [key, life] : stateOf(store)) {
        const auto versions = store.changes().history(File, key);
        std::map<std::uint64_t, Id> last;
        for (std::size_t i = 0; i < versions.size(); ++i, ++writes) {
            const auto id = i + 1 < versions.size() ? life.changes[i + 1].before : life.record;
            if (!id || userOf(*id) != versions[i].user)
                wrong("version " + std::to_string(i) + " of " + key + " is not by " +
                      versions[i].user);
            if (std::exchange(last[writerOf(*id)], *id) > *id ||
                !made[writerOf(*id)].emplace(*id, key).second)
                wrong("of " + userOf(*id) + " a write to " + key + " is there twice or too late");
        }
    }
    for (const auto& [writer, keys] : made) {
        const std::vector<Step> steps = stepsOf(settings, writer);
        std::size_t next = 0;
        for (const auto& [id, key] : keys) {
            const Step::Write& write = steps.at(next++).writes[0];
            if (write.key != key || write.made != id)
                wrong("of the writes of " + userOf(id) + " number " + std::to_string(next) +
                      " is not there, but a later one is");
        }
    }
    return writes;
}

// Another connection is at the store for longer than a writer waits, then for less.
void heldLock(const Settings& settings) {
    store::Store store = settings.open();
    store::Store other = settings.open();
    const State before = stateOf(store);
    const Step step{"waiting", {{keyName(1), Id{4}}}};
    const auto write = [&] { return store_test::numberOf([&] { perform(store, step); }); };
    const auto start = Clock::now();
    std::uint32_t number = 0;
    other.atomically([&] { number = write(); });
    if (number != vorandine::errors::Locked || Clock::now() - start < settings.patience * 9 / 10)
        wrong("a lock held for long gives error " + std::to_string(number) + ", or too soon");
    requireSame(stateOf(store), before, "after the write that waited in vain");

    std::binary_semaphore begun(0);
    std::thread holder([&] {
        other.atomically([&] {
            begun.release();
            std::this_thread::sleep_for(settings.patience / 2);
        });
    });
    begun.acquire();
    number = write();
    holder.join();
    if (number != 0)
        wrong("a lock held for a while gives error " + std::to_string(number));
    requireSame(stateOf(store), after(before, step), "once the lock is gone");
}

// One process writes almost without a pause; none of its writes waits for so long that it fails.
void runningBackup(Settings settings, std::uint64_t size) {
    {
        store::Store store = opened(settings.path, store::OpenMode::Create);
        store.changes().keepUnchanged(false); // the history is that of the writer's keys alone
        store.atomically([&] {
            for (std::uint64_t i = 0; i < size; ++i)
                store.OpenFile("AIDANT")->WriteRecord(std::to_string(i),
                                                      std::string(std::size_t{1} << 20U, 'x'));
        });
    }
    settings.begin = Clock::now();
    settings.mostPause = 4; // shorter than the pause of a backup, or longer
    settings.mayBeLocked = false;
    const Writer writer(settings, 0);
    std::uint64_t backups = 0;
    std::uint64_t meanwhile = 0;
    for (std::uint64_t copied = 0; copied < settings.writes; ++backups) {
        const std::uint64_t before = writer.returned;
        const std::string copy = settings.path + std::to_string(backups);
        std::istringstream in;
        std::ostringstream out;
        if (vorandine::dba::run({"backup", "sqlite:" + settings.path, copy}, {in, out, out}) != 0)
            wrong("backup " + std::to_string(backups) + ": " + out.str());
        verify(copy);
        copied = requireFirsts(settings, copy);
        if (copied < before)
            wrong(copy + " lacks writes that had returned before it was begun");
        meanwhile += copied > before ? 1 : 0;
        std::filesystem::remove(copy);
    }
    if (writer.end() != 0)
        wrong("the writer failed");
    if (meanwhile == 0)
        wrong("nothing was written during the backups");
    std::cout << backups << " backups of a store of " << size << " MiB during " << settings.writes
              << " writes, " << meanwhile << " with writes between beginning and state\n";
}

void program(const std::vector<std::string>& words) {
    const store_test::Folder folder;
    const std::uint64_t writes = argument(words, 0, 5000);
    const std::uint64_t writers = argument(words, 2, 2);
    Settings settings{folder / "base.vor",
                      writes / writers,
                      argument(words, 1, 1),
                      writers,
                      Milliseconds(argument(words, 3, store::SqlitePatience.count())),
                      Clock::now() + Milliseconds(300)};
    (void)opened(settings.path, store::OpenMode::Create);
    std::list<Writer> processes;
    for (std::uint64_t writer = 0; writer < writers; ++writer)
        processes.emplace_back(settings, writer);
    for (const Writer& process : processes)
        if (process.end() != 0)
            wrong("one of the processes failed");
    const std::chrono::duration<double> taken = Clock::now() - settings.begin;
    const std::uint64_t stored = requireFirsts(settings, settings.path);
    if (stored != settings.writes * writers)
        wrong(std::to_string(stored) + " writes are there");
    verify(settings.path);
    heldLock(settings);
    std::cout << stored << " writes of " << writers << " processes, "
              << static_cast<double>(stored) / taken.count() << "/s; ";
    settings.path = folder / "large.vor";
    runningBackup(settings, argument(words, 4, 60));
}

} // namespace
} // namespace reliability

int main(int count, char** words) {
    return reliability::run([&] { reliability::program({words + 1, words + count}); });
}
