// A disk under SQLite that can fill up, fail, or lose its power: beside the files as programs see
// them it keeps what of them has reached the platters. One folder, one process, one thread.
#pragma once

#include "reliability_support.h"

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <new>
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
    Disk() {
        Calls::disk = this;
        sqlite3_vfs_register(&Calls::vfs(), 1);
    }
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;
    ~Disk() {
        sqlite3_vfs_register(Calls::platform, 1);
        Calls::disk = nullptr;
    }

    // Calls that the fault can meet count from 1 here: it meets those from call `from` on, `calls`
    // of them.
    void fault(Fault fault, std::uint64_t from, std::uint64_t calls) {
        fault_ = fault;
        first_ = from;
        last_ = from + calls - 1;
        call_ = 0;
        struck_ = false;
        Calls::lastErrno = 0;
    }
    // Whether a call met the fault, and whether it is still there.
    [[nodiscard]] bool struck() const noexcept { return struck_; }
    [[nodiscard]] bool failing() const noexcept { return struck_ && fault_ != Fault::None; }
    // The disk is well again.
    void mend() noexcept { fault_ = Fault::None; }

    // After a power cut, all files being closed: lays them down as they may be found. What was
    // synced is there. Of the rest each sector may be, all of it or none of it as `random` has it,
    // and may hold anything where the file grew; files not synced with their folder may be missing
    // or, deleted, be back.
    void layDown(Random& random) {
        constexpr std::uint64_t Sector = 512;
        // Out of 4: how many of the sectors come through.
        const std::uint64_t chance = random.below(5);
        const auto comesThrough = [&] { return random.below(4) < chance; };
        const bool garbage = random.one(2);
        for (auto& [path, name] : names_) {
            std::filesystem::remove(path);
            const std::shared_ptr<Content> found = comesThrough() ? name.seen : name.synced;
            if (!found)
                continue;
            std::string bytes = found->synced;
            for (const Change& change : found->since) {
                if (change.truncates && comesThrough())
                    bytes.resize(change.at);
                for (std::uint64_t at = change.at, end = at + change.bytes.size(); at < end;) {
                    const std::uint64_t next = std::min(end, (at / Sector + 1) * Sector);
                    const bool whole = comesThrough();
                    if (bytes.size() < next && (whole || garbage))
                        bytes.resize(next, garbage ? static_cast<char>(random.number()) : '\0');
                    if (whole)
                        bytes.replace(at, next - at, change.bytes, at - change.at, next - at);
                    at = next;
                }
            }
            std::ofstream(path, std::ios::binary) << bytes;
        }
        names_.clear();
    }

  private:
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
    bool strikes(Fault spared = Fault::None, Fault alsoSpared = Fault::None) {
        if (dead() || fault_ == Fault::None || fault_ == spared || fault_ == alsoSpared)
            return false;
        ++call_;
        if (call_ < first_ || call_ > last_)
            return false;
        struck_ = true;
        return true;
    }
    [[nodiscard]] bool dead() const noexcept { return fault_ == Fault::PowerCut && struck_; }
    // A file that was there before the disk was is on the platters as it is.
    Name& name(const std::string& path) {
        const auto [at, isNew] = names_.try_emplace(path);
        if (isNew && std::filesystem::exists(path)) {
            std::ifstream in(path, std::ios::binary);
            at->second.synced = std::make_shared<Content>();
            at->second.synced->synced = std::string(std::istreambuf_iterator<char>(in), {});
            at->second.seen = at->second.synced;
        }
        return at->second;
    }
    void syncFolder() {
        for (auto& [path, name] : names_)
            name.synced = name.seen;
    }

    // The functions that SQLite calls, on the one disk there is: they hand on to the platform's
    // what they do not refuse.
    struct Calls {
        struct File {
            sqlite3_file base;
            Disk::Content* content; // null for a file without a name, which no other process sees
            bool syncsFolder;       // with its next sync
            sqlite3_file* real;     // lies behind this structure
        };

        inline static Disk* disk = nullptr;
        inline static sqlite3_vfs* platform = nullptr;
        inline static int lastErrno = 0;

        static File& fileOf(sqlite3_file* file) { return *reinterpret_cast<File*>(file); }
        static sqlite3_file* real(sqlite3_file* file) { return fileOf(file).real; }
        // A failure, with what the platform would say.
        static int refused(int code) {
            lastErrno = disk->fault_ == Disk::Fault::Full ? ENOSPC : EIO;
            errno = lastErrno;
            return code;
        }

        static int open(sqlite3_vfs* /*vfs*/, const char* path, sqlite3_file* opened, int flags,
                        int* given) {
            File& file = *new (opened) File{};
            file.real = reinterpret_cast<sqlite3_file*>(&file + 1);
            lastErrno = 0;
            bool created = false;
            if (path != nullptr) {
                created = !std::filesystem::exists(path);
                const bool refusing = created && (flags & SQLITE_OPEN_CREATE) != 0 &&
                                      disk->strikes(Disk::Fault::FolderSync);
                if (disk->dead() || refusing)
                    return refused(SQLITE_CANTOPEN);
            }
            const int code = platform->xOpen(platform, path, file.real, flags, given);
            file.base.pMethods = file.real->pMethods == nullptr ? nullptr : &methods();
            if (code != SQLITE_OK || path == nullptr)
                return code;
            Disk::Name& name = disk->name(path);
            if (created)
                name.seen = std::make_shared<Disk::Content>();
            file.content = name.seen.get();
            // The platform's file system does so, for it is of no use to know what to undo, and not
            // where.
            file.syncsFolder = created && (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0;
            return code;
        }

        // What the platform does.
        template <auto Method, typename... Given>
        static int pass(sqlite3_file* file, Given... given) {
            return (real(file)->pMethods->*Method)(real(file), given...);
        }

        // What the platform does, unless the power is gone.
        template <auto Method, int Code, typename... Given>
        static int alive(sqlite3_file* file, Given... given) {
            return disk->dead() ? refused(Code) : pass<Method>(file, given...);
        }

        static int write(sqlite3_file* file, const void* from, int amount, sqlite3_int64 at) {
            Disk::Content* const content = fileOf(file).content;
            const bool refusing = content != nullptr && disk->strikes(Disk::Fault::FolderSync);
            if (disk->dead() && !refusing)
                return refused(SQLITE_IOERR_WRITE);
            // What is refused has been done by half, and may reach the platters all the same.
            const int done = refusing ? amount / 2 : amount;
            if (content != nullptr)
                content->since.push_back(
                    {static_cast<std::uint64_t>(at),
                     std::string(static_cast<const char*>(from),
                                 static_cast<std::size_t>(disk->dead() ? amount : done)),
                     false});
            const int code = real(file)->pMethods->xWrite(real(file), from, done, at);
            if (!refusing)
                return code;
            return refused(disk->fault_ == Disk::Fault::Full ? SQLITE_FULL : SQLITE_IOERR_WRITE);
        }

        static int truncate(sqlite3_file* file, sqlite3_int64 size) {
            Disk::Content* const content = fileOf(file).content;
            const bool refusing =
                content != nullptr && disk->strikes(Disk::Fault::FolderSync, Disk::Fault::Full);
            if (content != nullptr && (!disk->dead() || refusing))
                content->since.push_back({static_cast<std::uint64_t>(size), "", true});
            if (refusing || disk->dead())
                return refused(SQLITE_IOERR_TRUNCATE);
            return real(file)->pMethods->xTruncate(real(file), size);
        }

        // Nothing else loses its power here: the platform need not sync.
        static int sync(sqlite3_file* file, int /*flags*/) {
            Disk::Content* const content = fileOf(file).content;
            if (content == nullptr)
                return SQLITE_OK;
            if (disk->strikes(Disk::Fault::FolderSync) || disk->dead())
                return refused(SQLITE_IOERR_FSYNC);
            for (const Disk::Change& change : content->since) {
                const std::size_t end = change.at + change.bytes.size();
                if (change.truncates || content->synced.size() < end)
                    content->synced.resize(end);
                std::copy(change.bytes.begin(), change.bytes.end(),
                          content->synced.begin() + static_cast<std::ptrdiff_t>(change.at));
            }
            content->since.clear();
            if (std::exchange(fileOf(file).syncsFolder, false))
                disk->syncFolder();
            return SQLITE_OK;
        }

        static int remove(sqlite3_vfs* /*vfs*/, const char* path, int syncsFolder) {
            if (disk->dead() || !std::filesystem::exists(path))
                return disk->dead() ? refused(SQLITE_IOERR_DELETE) : SQLITE_IOERR_DELETE_NOENT;
            Disk::Name& name = disk->name(path);
            const bool refusing = disk->strikes(Disk::Fault::Full);
            if (refusing && disk->fault_ == Disk::Fault::Broken)
                return refused(SQLITE_IOERR_DELETE);
            name.seen.reset();
            const int code = platform->xDelete(platform, path, 0);
            if (refusing)
                return refused(SQLITE_IOERR_DIR_FSYNC);
            if (code == SQLITE_OK && syncsFolder != 0)
                disk->syncFolder();
            return code;
        }

        static int access(sqlite3_vfs* /*vfs*/, const char* path, int flags, int* result) {
            if (disk->dead())
                return refused(SQLITE_IOERR_ACCESS);
            return platform->xAccess(platform, path, flags, result);
        }

        static const sqlite3_io_methods& methods() {
            static const sqlite3_io_methods all = [] {
                sqlite3_io_methods set{};
                set.iVersion = 1; // no shared memory: the store has no use for it
                set.xClose = pass<&sqlite3_io_methods::xClose>;
                set.xRead = alive<&sqlite3_io_methods::xRead, SQLITE_IOERR_READ>;
                set.xWrite = write;
                set.xTruncate = truncate;
                set.xSync = sync;
                set.xFileSize = alive<&sqlite3_io_methods::xFileSize, SQLITE_IOERR_FSTAT>;
                set.xLock = pass<&sqlite3_io_methods::xLock>;
                set.xUnlock = pass<&sqlite3_io_methods::xUnlock>;
                set.xCheckReservedLock = pass<&sqlite3_io_methods::xCheckReservedLock>;
                set.xFileControl = pass<&sqlite3_io_methods::xFileControl>;
                set.xSectorSize = pass<&sqlite3_io_methods::xSectorSize>;
                set.xDeviceCharacteristics = pass<&sqlite3_io_methods::xDeviceCharacteristics>;
                return set;
            }();
            return all;
        }

        static sqlite3_vfs& vfs() {
            static sqlite3_vfs own = [] {
                sqlite3_initialize();
                platform = sqlite3_vfs_find(nullptr);
                sqlite3_vfs made = *platform;
                made.pNext = nullptr;
                made.zName = "test-disk";
                made.szOsFile = static_cast<int>(sizeof(File)) + platform->szOsFile;
                made.xOpen = open;
                made.xDelete = remove;
                made.xAccess = access;
                made.xGetLastError = [](sqlite3_vfs* /*vfs*/, int room, char* text) {
                    return lastErrno != 0 ? lastErrno
                                          : platform->xGetLastError(platform, room, text);
                };
                return made;
            }();
            return own;
        }
    };
};

} // namespace reliability
