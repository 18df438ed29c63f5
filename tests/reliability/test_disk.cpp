// The disk as SQLite sees it: its default file system, which hands on to the platform's what it
// does not refuse.
#include "test_disk.h"

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>

namespace reliability {

// The functions that SQLite calls, on the one disk there is.
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

    static int close(sqlite3_file* file) { return real(file)->pMethods->xClose(real(file)); }

    static int read(sqlite3_file* file, void* to, int amount, sqlite3_int64 at) {
        if (disk->dead())
            return refused(SQLITE_IOERR_READ);
        return real(file)->pMethods->xRead(real(file), to, amount, at);
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

    static int size(sqlite3_file* file, sqlite3_int64* result) {
        if (disk->dead())
            return refused(SQLITE_IOERR_FSTAT);
        return real(file)->pMethods->xFileSize(real(file), result);
    }

    static const sqlite3_io_methods& methods() {
        static const sqlite3_io_methods all = [] {
            sqlite3_io_methods set{};
            set.iVersion = 1; // no shared memory: the store has no use for it
            set.xClose = close;
            set.xRead = read;
            set.xWrite = write;
            set.xTruncate = truncate;
            set.xSync = sync;
            set.xFileSize = size;
            set.xLock = [](sqlite3_file* f, int l) { return real(f)->pMethods->xLock(real(f), l); };
            set.xUnlock = [](sqlite3_file* f, int l) {
                return real(f)->pMethods->xUnlock(real(f), l);
            };
            set.xCheckReservedLock = [](sqlite3_file* f, int* result) {
                return real(f)->pMethods->xCheckReservedLock(real(f), result);
            };
            set.xFileControl = [](sqlite3_file* f, int what, void* with) {
                return real(f)->pMethods->xFileControl(real(f), what, with);
            };
            set.xSectorSize = [](sqlite3_file* f) {
                return real(f)->pMethods->xSectorSize(real(f));
            };
            set.xDeviceCharacteristics = [](sqlite3_file* f) {
                return real(f)->pMethods->xDeviceCharacteristics(real(f));
            };
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
                return lastErrno != 0 ? lastErrno : platform->xGetLastError(platform, room, text);
            };
            return made;
        }();
        return own;
    }
};

Disk::Disk() {
    Calls::disk = this;
    sqlite3_vfs_register(&Calls::vfs(), 1);
}

Disk::~Disk() {
    sqlite3_vfs_register(Calls::platform, 1);
    Calls::disk = nullptr;
}

void Disk::fault(Fault fault, std::uint64_t from, std::uint64_t calls) {
    fault_ = fault;
    first_ = from;
    last_ = from + calls - 1;
    call_ = 0;
    struck_ = false;
    Calls::lastErrno = 0;
}

bool Disk::strikes(Fault spared, Fault alsoSpared) {
    if (dead() || fault_ == Fault::None || fault_ == spared || fault_ == alsoSpared)
        return false;
    ++call_;
    if (call_ < first_ || call_ > last_)
        return false;
    struck_ = true;
    return true;
}

// A file that was there before the disk was is on the platters as it is.
Disk::Name& Disk::name(const std::string& path) {
    const auto [at, isNew] = names_.try_emplace(path);
    if (isNew && std::filesystem::exists(path)) {
        std::ifstream in(path, std::ios::binary);
        at->second.synced = std::make_shared<Content>();
        at->second.synced->synced = std::string(std::istreambuf_iterator<char>(in), {});
        at->second.seen = at->second.synced;
    }
    return at->second;
}

void Disk::syncFolder() {
    for (auto& [path, name] : names_)
        name.synced = name.seen;
}

void Disk::layDown(Random& random) {
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

} // namespace reliability
