// A disk that fills up, fails or loses its power at every point of a write.
//     failing_disk [STRIDE] [STRIDE] [DISKS] [SEED]     STRIDE: only every so many calls fail, or
//     lose
//                                                       the power, to be faster
//                                                       DISKS: in how many ways one is found then
#include "test_disk.h"
#include "unit/store_support.h"

#include <memory>

namespace reliability {
namespace {

namespace errors = vorandine::errors;

constexpr std::uint64_t ForEver = std::uint64_t{1} << 40U;

struct Work {
    std::string name;
    store::OpenMode mode;
    bool smallCache = false; // SQLite gets so little memory that pages are written before the end
    std::vector<Step> steps;

    [[nodiscard]] bool makesStore() const { return mode == store::OpenMode::Create; }
};

// Each has a step before the one that it is about, and one after it.
std::vector<Work> diskWorks() {
    Random random(7);
    const auto made = [&](std::uint64_t key, std::uint64_t size) {
        return Step::Write{keyName(key), idOfSize(random, size)};
    };
    const auto gone = [](std::uint64_t key) { return Step::Write{keyName(key), std::nullopt}; };
    std::vector<Step::Write> many;
    for (std::uint64_t key = 0; key < 24; ++key)
        many.push_back(key % 8 == 5 ? gone(key) : made(key, 3));
    using enum store::OpenMode;
    std::vector<Work> works{
        {"a write", Existing, false, {{"anne", {made(1, 3)}}}},
        {"a creation", Existing, false, {{"anne", {made(20, 2)}}}},
        {"a deletion", Existing, false, {{"anne", {gone(3)}}}},
        {"a transaction",
         Existing,
         false,
         {{"anne", {made(1, 1), gone(4), made(21, 0), made(5, 3)}}}},
        {"a transaction larger than the cache", Existing, true, {{"anne", many}}},
        {"a pruning", Existing, false, {{"anne", {}}}},
        {"a new store", Create, false, {{"anne", {made(6, 2)}}}},
    };
    for (Work& work : works) {
        work.steps.insert(work.steps.begin(), {"before", {made(1, 0)}});
        work.steps.push_back({"after", {made(2, 1)}});
    }
    return works;
}

// Lays down the store that works begin with, or none, again and again.
class Beginning {
  public:
    explicit Beginning(const std::string& path) : path_(path) {
        Random random(8);
        store::Store store = opened(path, store::OpenMode::Create);
        for (std::uint64_t number = 0; number < 18; ++number) {
            const Step step{"base", {{keyName(number % 12), idOfSize(random, number % 4)}}};
            perform(store, step);
            state_ = after(std::move(state_), step);
        }
        std::ifstream in(path, std::ios::binary);
        bytes_ = std::string(std::istreambuf_iterator<char>(in), {});
    }

    State layDown(const Work& work) const {
        std::filesystem::remove(path_ + "-journal");
        std::filesystem::remove(path_);
        if (!work.makesStore())
            std::ofstream(path_, std::ios::binary) << bytes_;
        sqlite3_soft_heap_limit64(work.smallCache ? 400'000 : 0);
        return work.makesStore() ? State() : state_;
    }

  private:
    std::string path_;
    std::string bytes_;
    State state_;
};

// Runs `round` with a fault at call 1 and every `step` calls after it, until it says that none was
// met.
void everyCall(const std::string& where, std::uint64_t step,
               const std::function<bool(std::uint64_t call)>& round) {
    for (std::uint64_t call = 1;; call += step)
        try {
            if (!round(call))
                return;
        } catch (const std::exception& error) {
            wrong(where + ", fault at call " + std::to_string(call) + ": " + error.what());
        }
}

// A disk that fills up or fails, and is well again: the write says so, nothing is lost or half
// there, and the same write, made again on the same opened store, is stored once. What fails is not
// stored, but for one case: the file that could undo the write is deleted, and the disk does not
// say that it will stay so.
struct Trouble {
    std::string name;
    Disk::Fault fault;
    std::uint64_t calls; // how many in a row it meets
    std::uint32_t number;
    std::string says; // the error, beside the store's path
};

class FailingDisk {
  public:
    explicit FailingDisk(Trouble trouble) : trouble_(std::move(trouble)) {}

    // Whether the disk failed before the work was done.
    bool round(const Work& work, std::uint64_t call) {
        State state = beginning_.layDown(work);
        {
            Disk disk;
            std::unique_ptr<store::Store> store;
            const auto open = [&] {
                store.reset();
                store =
                    std::make_unique<store::Store>(store::openEngine("sqlite:" + path_, work.mode));
            };
            if (!work.makesStore())
                open();
            disk.fault(trouble_.fault, call, trouble_.calls);
            if (work.makesStore() && failed(disk, open)) {
                requireNoStore();
                open();
            }
            for (const Step& step : work.steps) {
                if (failed(disk, [&] { perform(*store, step); })) {
                    const bool isStored = trouble_.fault == Disk::Fault::FolderSync;
                    requireSame(stateOf(*store), isStored ? after(state, step) : state,
                                "after the failure");
                    if (!isStored)
                        perform(*store, step);
                }
                state = after(std::move(state), step);
                requireSame(stateOf(*store), state, "once the step is made");
            }
            if (!disk.struck())
                return false;
            ++faults;
        }
        requireSame(stateOf(path_), state, "at a new opening");
        verify(path_);
        return true;
    }

    std::uint64_t faults = 0;

  private:
    store_test::Folder folder_;
    std::string path_ = folder_ / "base.vor";
    Beginning beginning_{path_};
    Trouble trouble_;

    // Whether `work` failed because of the disk, which is mended then.
    bool failed(Disk& disk, const std::function<void()>& work) const {
        try {
            work();
            return false;
        } catch (const vorandine::Error& error) {
            if (!disk.failing())
                throw;
            disk.mend();
            const std::string text = error.what();
            if (error.number() != trouble_.number || text.find(path_) == std::string::npos ||
                text.find(trouble_.says) == std::string::npos)
                wrong("the failure is told as " + text);
            return true;
        }
    }

    void requireNoStore() const {
        const std::uint32_t number = store_test::numberOf([&] { (void)opened(path_); });
        if (trouble_.fault != Disk::Fault::FolderSync && number != errors::StoreMissing &&
            number != errors::NotADatabase)
            wrong("a store that could not be made opens with error " + std::to_string(number));
    }
};

// A disk that loses its power, and may lose it again while the store recovers: each write that
// returned is there, the one under way is there whole or not at all.
class PowerCut {
  public:
    PowerCut(std::uint64_t seed, std::uint64_t& cuts) : random_(seed), cuts_(cuts) {}

    // Whether the power was cut before the work was done.
    bool round(const Work& work, std::uint64_t call) {
        State state = beginning_.layDown(work);
        std::size_t done = 0;
        bool isOpen = false;
        {
            Disk disk;
            disk.fault(Disk::Fault::PowerCut, call, ForEver);
            try {
                store::Store store = opened(path_, work.mode);
                isOpen = true;
                for (; done < work.steps.size(); ++done) {
                    perform(store, work.steps[done]);
                    state = after(std::move(state), work.steps[done]);
                }
            } catch (const vorandine::Error&) {
                if (!disk.struck())
                    throw;
            }
            if (!disk.struck())
                return false;
            disk.layDown(random_);
        }
        ++cuts_;
        while (random_.one(3))
            cutAgain(work);
        look(work, isOpen, std::move(state), done);
        return true;
    }

  private:
    store_test::Folder folder_;
    std::string path_ = folder_ / "base.vor";
    Beginning beginning_{path_};
    Random random_;
    std::uint64_t& cuts_;

    void cutAgain(const Work& work) {
        Disk disk;
        disk.fault(Disk::Fault::PowerCut, 1 + random_.below(12), ForEver);
        try {
            store::Store store = opened(path_, work.mode);
            (void)stateOf(store);
        } catch (const vorandine::Error&) {
            if (!disk.struck())
                throw;
        }
        if (disk.struck()) {
            ++cuts_;
            disk.layDown(random_);
        }
    }

    // `isOpen`: the opening had returned; `done` steps had.
    void look(const Work& work, bool isOpen, State state, std::size_t done) {
        if (!isOpen) {
            const std::uint32_t number = store_test::numberOf([&] { (void)stateOf(path_); });
            if (number != 0 && (!work.makesStore() ||
                                (number != errors::StoreMissing && number != errors::NotADatabase)))
                wrong("the store does not open, error " + std::to_string(number));
        }
        if (!isOpen && work.makesStore())
            (void)opened(path_, store::OpenMode::Create);
        const State found = stateOf(path_);
        if (isOpen && done < work.steps.size() && found != state)
            state = after(std::move(state), work.steps[done]);
        requireSame(found, state, "after the cut");
        verify(path_);
    }
};

void program(const std::vector<std::string>& words) {
    const char* const Room = "n'a plus de place";
    const char* const Reason = "n'a pas pu être lue ou écrite";
    const std::vector<Trouble> troubles{
        {"full for a call", Disk::Fault::Full, 1, errors::DiskFull, Room},
        {"full for 3 calls", Disk::Fault::Full, 3, errors::DiskFull, Room},
        {"full", Disk::Fault::Full, ForEver, errors::DiskFull, Room},
        {"broken for a call", Disk::Fault::Broken, 1, errors::StoreFailed, Reason},
        {"broken for 3 calls", Disk::Fault::Broken, 3, errors::StoreFailed, Reason},
        {"broken", Disk::Fault::Broken, ForEver, errors::StoreFailed, Reason},
        {"deleting not for sure", Disk::Fault::FolderSync, 1, errors::StoreFailed, "pas confirmé"}};
    for (const Trouble& trouble : troubles) {
        FailingDisk failing(trouble);
        for (const Work& work : diskWorks())
            everyCall("disk " + trouble.name + ", " + work.name, argument(words, 0, 1),
                      [&](std::uint64_t call) { return failing.round(work, call); });
        std::cout << trouble.name << ": " << failing.faults << " faults; ";
    }
    std::uint64_t cuts = 0;
    const std::uint64_t seed = argument(words, 3, 1);
    for (std::uint64_t disk = seed; disk < seed + argument(words, 2, 20); ++disk) {
        PowerCut cut(disk, cuts);
        for (const Work& work : diskWorks())
            everyCall("seed " + std::to_string(disk) + ", " + work.name, argument(words, 1, 1),
                      [&](std::uint64_t call) { return cut.round(work, call); });
    }
    std::cout << cuts << " power cuts\n";
}

} // namespace
} // namespace reliability

int main(int count, char** words) {
    return reliability::run([&] { reliability::program({words + 1, words + count}); });
}
