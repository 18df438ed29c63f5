// A disk that fills up or fails at every point of a write, and is well again: the write says so,
// nothing is lost or half there, and the same write, made again on the same opened store, is stored
// once. And a folder that is protected while the store in it is open, and a protected file.
//     failing_disk [STRIDE]     STRIDE: only every so many calls fail, to be faster
#include "disk_works.h"
#include "test_disk.h"
#include "unit/store_support.h"

#include <sys/stat.h>
#include <unistd.h>

#include <memory>

namespace reliability {
namespace {

namespace errors = vorandine::errors;

constexpr std::uint64_t ForEver = std::uint64_t{1} << 40U;

// What fails is not stored, but for one case: the file that could undo the write is deleted, and
// the disk does not say that it will stay so.
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
                store = std::make_unique<store::Store>(store::openEngine(
                    "sqlite:" + path_,
                    work.makesStore ? store::OpenMode::Create : store::OpenMode::Existing));
            };
            if (!work.makesStore)
                open();
            disk.fault(trouble_.fault, call, trouble_.calls);
            if (work.makesStore && failed(disk, open)) {
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

// A folder that is protected: a journal can no longer be made, by whoever has the store open. A
// file that is: whoever opens the store can only read it.
void protectedPlaces(const std::string& folder) {
    const std::string path = folder + "/base.vor";
    store::Store store = opened(path, store::OpenMode::Create);
    State state;
    const std::vector<Work> works = diskWorks();
    for (const Step& step : works[0].steps) {
        const auto refused = [&](store::Store& by, const std::string& what) {
            if (store_test::numberOf([&] { perform(by, step); }) != errors::ReadOnly)
                wrong("no error tells that the " + what + " is protected");
            requireSame(stateOf(by), state, "while the " + what + " is protected");
        };
        chmod(folder.c_str(), 0555);
        refused(store, "folder");
        chmod(folder.c_str(), 0755);
        chmod(path.c_str(), 0444);
        store::Store reader = opened(path);
        refused(reader, "file");
        chmod(path.c_str(), 0644);
        perform(store, step);
        state = after(std::move(state), step);
        requireSame(stateOf(store), state, "once it no longer is");
    }
    verify(path);
}

void program(const std::vector<std::string>& words) {
    const std::uint64_t stride = argument(words, 0, 1);
    const char* const Room = "n'a plus de place";
    const char* const Reason = "n'a pas pu être lue ou écrite";
    const std::vector<Trouble> troubles{
        {"full for a call", Disk::Fault::Full, 1, errors::DiskFull, Room},
        {"full for 3 calls", Disk::Fault::Full, 3, errors::DiskFull, Room},
        {"full", Disk::Fault::Full, ForEver, errors::DiskFull, Room},
        {"broken for a call", Disk::Fault::Broken, 1, errors::StoreFailed, Reason},
        {"broken for 3 calls", Disk::Fault::Broken, 3, errors::StoreFailed, Reason},
        {"broken", Disk::Fault::Broken, ForEver, errors::StoreFailed, Reason},
        {"deleting not for sure", Disk::Fault::FolderSync, 1, errors::StoreFailed, "pas confirmé"},
    };
    for (const Trouble& trouble : troubles) {
        FailingDisk failing(trouble);
        for (const Work& work : diskWorks())
            everyCall("disk " + trouble.name + ", " + work.name, stride,
                      [&](std::uint64_t call) { return failing.round(work, call); });
        std::cout << trouble.name << ": " << failing.faults << " faults; " << std::flush;
    }
    const store_test::Folder folder;
    if (getuid() == 0 && chown(folder.path().c_str(), store_test::Nobody, store_test::Nobody) != 0)
        wrong("the folder cannot be given away");
    if (store_test::asNobody([&] { return run([&] { protectedPlaces(folder.path()); }); }) != 0)
        wrong("a protected folder or file is not taken well");
    std::cout << "a protected folder and a protected file are told and over\n";
}

} // namespace
} // namespace reliability

int main(int count, char** words) {
    return reliability::run([&] { reliability::program({words + 1, words + count}); });
}
