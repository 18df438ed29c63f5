// Backs a store up, again and again, while a process writes to it without a pause: each copy is
// sound and shows the state between two transactions, and no write fails.
//     running_backup [BACKUPS] [SEED] [MIB]     MIB: about how large the store is
#include "reliability_support.h"
#include "unit/store_support.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

namespace reliability {
namespace {

namespace fs = std::filesystem;

// Both keys are always written together, with the same content.
const std::string First = keyName(0);
const std::string Second = keyName(Keys - 1);

[[noreturn]] void writeUntil(const std::string& stop, const std::string& path, std::uint64_t seed) {
    try {
        store::Store store = opened(path);
        Random random(seed);
        while (!fs::exists(stop)) {
            const Id id = idOfSize(random, random.below(Sizes.size() - 1));
            perform(store, {"writer", {{First, id}, {Second, id}}});
            // Now and then shorter than the pause of a backup, now and then longer.
            std::this_thread::sleep_for(std::chrono::milliseconds(random.below(4)));
        }
        _exit(0);
    } catch (const std::exception& error) {
        std::cerr << "the writer fails: " << error.what() << '\n';
        _exit(1);
    }
}

// How many transactions the copy holds.
std::size_t requireOneState(const std::string& copy) {
    verify(copy);
    store::Store store = opened(copy);
    const State state = stateOf(store);
    if (told(state, First) != told(state, Second))
        wrong(copy + " holds half a transaction\n  " + First + ": " + told(state, First) + "\n  " +
              Second + ": " + told(state, Second));
    const auto at = state.find(First);
    return at == state.end() ? 0 : at->second.changes.size();
}

void program(const std::vector<std::string>& words) {
    const store_test::Folder folder;
    const std::uint64_t backups = argument(words, 0, 200);
    const std::uint64_t seed = argument(words, 1, 1);
    const std::uint64_t size = argument(words, 2, 60);
    const std::string path = folder / "base.vor";
    {
        store::Store store = opened(path, store::OpenMode::Create);
        store.changes().keepCreations(false); // the history is held against the two keys alone
        store.atomically([&] {
            const std::string large(std::size_t{1} << 20U, 'x');
            for (std::uint64_t i = 0; i < size; ++i)
                store.OpenFile("AIDANT")->WriteRecord(std::to_string(i), large);
        });
    }
    const pid_t writer = fork();
    if (writer == 0)
        writeUntil(folder / "stop", path, seed);
    std::size_t writes = 0;
    std::size_t meanwhile = 0;
    for (std::uint64_t i = 0; i < backups; ++i) {
        const std::string copy = folder / "copy" + std::to_string(i);
        const std::size_t before =
            store::Store(store::openEngine("sqlite:" + path, store::OpenMode::Existing))
                .changes()
                .history(File, First)
                .size();
        std::istringstream in;
        std::ostringstream out;
        if (vorandine::dba::run({"backup", "sqlite:" + path, copy}, {in, out, out}) != 0)
            wrong("backup " + std::to_string(i) + ": " + out.str());
        const std::size_t copied = requireOneState(copy);
        if (copied < before)
            wrong(copy + " lacks writes that had returned before it was begun");
        writes = copied;
        meanwhile += copied > before;
        fs::remove(copy);
    }
    std::ofstream(folder / "stop").flush();
    int status = 0;
    waitpid(writer, &status, 0);
    if (status != 0)
        wrong("a write failed during a backup");
    std::cout << backups << " backups of " << fs::file_size(path) / 1048576 << " MiB during "
              << writes << " transactions, " << meanwhile
              << " of them with writes between their beginning and their state\n";
}

} // namespace
} // namespace reliability

int main(int count, char** words) {
    return reliability::run(count, words, reliability::program);
}
