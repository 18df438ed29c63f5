// A disk under SQLite that can fill up, fail, or lose its power: beside the files as programs see
// them it keeps what of them has reached the platters. One folder, one process, one thread.
#pragma once

#include "reliability_support.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace reliability {

class Disk {
  public:
    enum class Fault {
        None,
        PowerCut,   // every later call fails, reading too
        Full,       // there is room for nothing new
        Broken,     // whatever changes something fails
        FolderSync, // a file is deleted, but not for sure
    };

    // What SQLite opens lies on this disk as long as the object lives: one at a time.
    Disk();
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;
    ~Disk();

    // Calls that the fault can meet count from 1 here: it meets those from call `from` on, `calls`
    // of them.
    void fault(Fault fault, std::uint64_t from, std::uint64_t calls);
    // Whether a call met the fault, and whether it is still there.
    [[nodiscard]] bool struck() const noexcept { return struck_; }
    [[nodiscard]] bool failing() const noexcept { return struck_ && fault_ != Fault::None; }
    // The disk is well again.
    void mend() noexcept { fault_ = Fault::None; }

    // After a power cut, all files being closed: lays them down as they may be found. What was
    // synced is there. Of the rest each sector may be, all of it or none of it as `random` has it,
    // and may hold anything where the file grew; files not synced with their folder may be missing
    // or, deleted, be back.
    void layDown(Random& random);

  private:
    friend struct Calls;

    struct Change {
        std::uint64_t at;
        std::string bytes;
        bool truncates;
    };
    struct Content {
        std::string synced;
        std::vector<Change> since;
    };
    // What a name stands for, on the platters and as programs see it.
    struct Name {
        std::shared_ptr<Content> synced;
        std::shared_ptr<Content> seen;
    };

    std::map<std::string, Name> names_;
    Fault fault_ = Fault::None;
    std::uint64_t first_ = 0;
    std::uint64_t last_ = 0;
    std::uint64_t call_ = 0;
    bool struck_ = false;

    // Whether the fault meets the call under way, which changes something; faults that are spared
    // cannot.
    bool strikes(Fault spared = Fault::None, Fault alsoSpared = Fault::None);
    [[nodiscard]] bool dead() const noexcept { return fault_ == Fault::PowerCut && struck_; }
    Name& name(const std::string& path);
    void syncFolder();
};

} // namespace reliability
