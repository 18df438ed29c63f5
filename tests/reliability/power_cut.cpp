// Cuts the power at every point of a write, and once more while the store recovers: each write that
// returned is there, the one under way is there whole or not at all.
//     power_cut [DISKS] [SEED] [STRIDE]     DISKS: in how many ways a disk is found after each cut
//                                           STRIDE: only every so many calls, to be faster
#include "disk_works.h"
#include "test_disk.h"
#include "unit/store_support.h"

#include <memory>

namespace reliability {
namespace {

constexpr std::uint64_t ForEver = std::uint64_t{1} << 40U;

struct Figures {
    std::uint64_t cuts = 0;
    std::uint64_t second = 0; // cuts while a store recovered from one
    std::uint64_t stored = 0; // what was under way is there
};

class PowerCut {
  public:
    PowerCut(std::uint64_t seed, Figures& figures) : random_(seed), figures_(figures) {}

    // Whether the power was cut before the work was done.
    bool round(const Work& work, std::uint64_t call) {
        State state = beginning_.layDown(work);
        std::size_t done = 0;
        bool isOpen = false;
        {
            Disk disk;
            disk.fault(Disk::Fault::PowerCut, call, ForEver);
            try {
                store::Store store = opened(path_, mode(work));
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
        ++figures_.cuts;
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
    Figures& figures_;

    static store::OpenMode mode(const Work& work) {
        return work.makesStore ? store::OpenMode::Create : store::OpenMode::Existing;
    }

    void cutAgain(const Work& work) {
        Disk disk;
        disk.fault(Disk::Fault::PowerCut, 1 + random_.below(12), ForEver);
        try {
            store::Store store = opened(path_, mode(work));
            (void)stateOf(store);
        } catch (const vorandine::Error&) {
            if (!disk.struck())
                throw;
        }
        if (disk.struck()) {
            ++figures_.second;
            disk.layDown(random_);
        }
    }

    // `isOpen`: the opening had returned; `done` steps had.
    void look(const Work& work, bool isOpen, State state, std::size_t done) {
        if (!isOpen) {
            const std::uint32_t number = store_test::numberOf([&] { (void)stateOf(path_); });
            if (number != 0 && (!work.makesStore || (number != vorandine::errors::StoreMissing &&
                                                     number != vorandine::errors::NotADatabase)))
                wrong("the store does not open, error " + std::to_string(number));
        }
        if (!isOpen && work.makesStore)
            (void)opened(path_, store::OpenMode::Create);
        const State found = stateOf(path_);
        if (isOpen && done < work.steps.size() && found != state) {
            state = after(std::move(state), work.steps[done]);
            ++figures_.stored;
        }
        requireSame(found, state, "after the cut");
        verify(path_);
    }
};

void program(const std::vector<std::string>& words) {
    const std::uint64_t disks = argument(words, 0, 20);
    const std::uint64_t seed = argument(words, 1, 1);
    const std::uint64_t stride = argument(words, 2, 1);
    Figures all;
    for (const Work& work : diskWorks()) {
        for (std::uint64_t disk = seed; disk < seed + disks; ++disk) {
            PowerCut cut(disk, all);
            everyCall("seed " + std::to_string(disk) + ", " + work.name, stride,
                      [&](std::uint64_t call) { return cut.round(work, call); });
        }
    }
    std::cout << all.cuts << " cuts, " << all.second << " more while recovering; " << all.stored
              << " writes under way stored\n";
}

} // namespace
} // namespace reliability

int main(int count, char** words) {
    return reliability::run([&] { reliability::program({words + 1, words + count}); });
}
