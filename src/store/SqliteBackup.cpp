// SQLite's own backup, a number of pages at a time.
#include "store/SqliteBackup.h"

#include "text/Error.h"

#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sqlite3.h>
#include <thread>
#include <unistd.h>

namespace vorandine::store {
namespace {

namespace fs = std::filesystem;

constexpr int PagesAtOnce = 256; // of 16 KiB
constexpr int AllPages = -1;
constexpr std::chrono::milliseconds Pause{1}; // for writers who wait for the lock
constexpr int MostBeginnings = 5;
constexpr std::chrono::milliseconds Patience{5000};

void requireFree(const fs::path& path) {
    std::error_code ignored;
    if (fs::symlink_status(path, ignored).type() != fs::file_type::not_found)
        throw Error(errors::StoreExists, "Le fichier « " + path.string() +
                                             " » existe déjà : il n'est pas remplacé. Choisissez "
                                             "un autre nom, ou effacez-le d'abord.");
}

void copy(SqliteDatabase& from, SqliteDatabase& to, const CopyStep& step) {
    const std::unique_ptr<sqlite3_backup, int (*)(sqlite3_backup*)> backup(
        sqlite3_backup_init(to.handle(), "main", from.handle(), "main"), sqlite3_backup_finish);
    if (!backup)
        to.fail(sqlite3_extended_errcode(to.handle()));
    int beginnings = 1;
    int left = 0;
    for (;;) {
        const int code =
            sqlite3_backup_step(backup.get(), beginnings < MostBeginnings ? PagesAtOnce : AllPages);
        if (code == SQLITE_DONE)
            return;
        // Reading and writing fail with the same codes: the copy is by far the likelier one to have
        // no room or no right, and the store tells its own faults when it is verified.
        if (code != SQLITE_OK)
            ((code & 0xFF) == SQLITE_BUSY || (code & 0xFF) == SQLITE_CORRUPT ? from : to)
                .fail(code);
        const int now = sqlite3_backup_remaining(backup.get());
        if (left != 0 && now >= left)
            ++beginnings;
        left = now;
        step(static_cast<std::size_t>(sqlite3_backup_pagecount(backup.get()) - left));
        std::this_thread::sleep_for(Pause);
    }
}

// A name that was given must survive a power cut as the content does.
void syncFolder(const fs::path& folder) {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return; // nothing more can be done for it
    fsync(descriptor);
    close(descriptor);
}

} // namespace

void backUp(SqliteDatabase& from, const std::string& path, const CopyStep& step) {
    const fs::path target = fs::absolute(path);
    requireFree(target);
    fs::path part = target;
    part += ".part";
    try {
        SqliteDatabase to(part, true, Patience);
        to.run("PRAGMA synchronous = EXTRA");
        copy(from, to, step);
    } catch (const Error& failure) {
        // Its room may be what is missing. A locked one may be somebody else's.
        std::error_code ignored;
        if (failure.number() != errors::Locked)
            fs::remove(part, ignored);
        throw;
    }
    requireFree(target);
    std::error_code error;
    fs::rename(part, target, error);
    if (error)
        throw Error(errors::StoreFailed, "La copie « " + part.string() +
                                             " » n'a pas pu prendre son nom : " + error.message() +
                                             ".");
    syncFolder(target.parent_path());
}

} // namespace vorandine::store
