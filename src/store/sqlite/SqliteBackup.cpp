// SQLite's own backup, a number of pages at a time.
#include "store/sqlite/SqliteBackup.h"

#include "store/sqlite/PartFile.h"
#include "store/sqlite/SqliteEngine.h"

#include <chrono>
#include <memory>
#include <sqlite3.h>
#include <thread>

namespace vorandine::store {
namespace {

constexpr int PagesAtOnce = 256;              // of 16 KiB
constexpr std::chrono::milliseconds Pause{1}; // for writers who wait for the lock
constexpr int MostBeginnings = 5;

// A database that others read and nobody writes, from hold() on.
class Held {
  public:
    Held() = default;
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() {
        if (database_ != nullptr)
            database_->rollBack(); // nothing was written
    }

    void hold(SqliteDatabase& database) {
        database.run("BEGIN");
        database_ = &database;
        static_cast<void>(database.number("PRAGMA schema_version")); // only reading locks it
    }

  private:
    SqliteDatabase* database_ = nullptr;
};

void copy(SqliteDatabase& from, SqliteDatabase& to, const CopyStep& step) {
    const std::unique_ptr<sqlite3_backup, int (*)(sqlite3_backup*)> backup(
        sqlite3_backup_init(to.handle(), "main", from.handle(), "main"), sqlite3_backup_finish);
    if (!backup)
        to.fail(sqlite3_extended_errcode(to.handle()));
    Held held;
    int beginnings = 1;
    int left = 0;
    for (;;) {
        from.waitAnew();
        const int code = sqlite3_backup_step(backup.get(), PagesAtOnce);
        if (code == SQLITE_DONE)
            return;
        // Reading and writing fail with the same codes: the copy is by far the likelier one to have
        // no room or no right, and the store tells its own faults when it is verified.
        if (code != SQLITE_OK)
            ((code & 0xFF) == SQLITE_BUSY || (code & 0xFF) == SQLITE_CORRUPT ? from : to)
                .fail(code);
        const int now = sqlite3_backup_remaining(backup.get());
        if (left != 0 && now >= left && ++beginnings == MostBeginnings)
            held.hold(from);
        left = now;
        step(static_cast<std::size_t>(sqlite3_backup_pagecount(backup.get()) - left));
        if (beginnings < MostBeginnings)
            std::this_thread::sleep_for(Pause);
    }
}

} // namespace

void backUp(SqliteDatabase& from, const std::string& path, const CopyStep& step) {
    PartFile part(path, from.path());
    {
        SqliteDatabase to(part.path(), false, SqlitePatience);
        to.run("PRAGMA synchronous = EXTRA");
        copy(from, to, step);
    }
    part.keep();
}

} // namespace vorandine::store
