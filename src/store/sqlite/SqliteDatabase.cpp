// The calls into SQLite that every statement shares, and what its result codes mean to the user.
#include "store/sqlite/SqliteDatabase.h"

#include "text/Error.h"

#include <cerrno>
#include <exception>
#include <fcntl.h>
#include <new>
#include <sqlite3.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace vorandine::store {
namespace {

// What a failure is, whichever statement met it.
struct Meaning {
    std::uint32_t number;
    const char* text; // goes on after "La base « path » "
};

// SQLite gives most failures of the disk and of the rights as one of two codes; errno tells them
// apart.
Meaning meaningOfErrno(int systemError) noexcept {
    switch (systemError) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return {errors::DiskFull, "n'a plus de place : le disque est plein ou une limite de taille "
                                  "est atteinte. Libérez de la place, puis recommencez."};
    case EACCES:
    case EPERM:
    case EROFS:
    case ENOENT: // SQLite could not make a file, and then found none to read
        return {errors::ReadOnly, "ne peut pas être modifiée : le fichier ou son dossier est "
                                  "protégé. Vérifiez vos droits sur l'un et l'autre."};
    case EMFILE:
    case ENFILE:
        return {errors::StoreFailed,
                "n'a pas pu être ouverte : trop de fichiers sont ouverts. Fermez d'autres "
                "programmes, puis recommencez."};
    default:
        return {errors::StoreFailed,
                "n'a pas pu être lue ou écrite. Vérifiez le disque, le dossier "
                "et vos droits, puis recommencez."};
    }
}

Meaning meaningOf(int code, int systemError) noexcept {
    if (code == SQLITE_READONLY_DBMOVED)
        return {errors::StoreMissing, "a été déplacée ou supprimée pendant son utilisation. "
                                      "Remettez-la en place et rouvrez-la."};
    if (code == SQLITE_IOERR_DIR_FSYNC)
        return {errors::StoreFailed,
                "a été écrite, mais le disque ne l'a pas confirmé : une coupure de courant "
                "pourrait annuler cette écriture. Vérifiez le disque, puis recommencez."};
    if (code == SQLITE_READONLY_ROLLBACK || code == SQLITE_READONLY_RECOVERY)
        return {errors::ReadOnly,
                "a été interrompue pendant une écriture, qu'il faut d'abord annuler, mais le "
                "fichier est protégé. Ouvrez-la une fois avec le droit de la modifier."};
    switch (code & 0xFF) {
    case SQLITE_NOTADB:
        return {
            errors::NotADatabase,
            "n'en est pas une : le fichier est d'une autre nature. Choisissez un autre chemin."};
    case SQLITE_CORRUPT:
        return {errors::Damaged, "est endommagée. Remplacez-la par une copie de sauvegarde."};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {errors::Locked, "est occupée par un autre programme. Attendez qu'il ait fini ou "
                                "fermez-le, puis recommencez."};
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return meaningOfErrno(EACCES);
    case SQLITE_FULL:
        return meaningOfErrno(ENOSPC);
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
        return meaningOfErrno(systemError);
    default:
        return meaningOfErrno(0);
    }
}

// SQLite's own new file would be for everybody to read. Where it cannot be made, SQLite finds none
// either and tells why. Closing a file that nobody has open yet drops nobody's locks.
void makePrivately(const std::string& path) noexcept {
    const int file = open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file >= 0)
        close(file);
}

std::string_view bytesOf(sqlite3_value* value) noexcept {
    // The pointer first: asking for it may convert the value, and so change its length.
    const void* const data = sqlite3_value_blob(value);
    const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
    return data == nullptr ? std::string_view()
                           : std::string_view(static_cast<const char*>(data), size);
}

} // namespace

struct SqliteDatabase::Visit {
    const Visitor& visitor;
    bool ended = false;
    std::exception_ptr thrown; // no exception may pass through SQLite
};

SqliteDatabase::SqliteDatabase(std::string path, bool create, std::chrono::milliseconds patience)
    : path_(std::move(path)), patience_(patience) {
    if (create)
        makePrivately(path_);
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE |
                      (create ? SQLITE_OPEN_CREATE : 0);
    const int code = sqlite3_open_v2(path_.c_str(), &handle_, flags, nullptr);
    try {
        if (code != SQLITE_OK)
            fail(code);
        waitAnew();
        const int added =
            sqlite3_create_function_v2(handle_, "visite", 2, SQLITE_UTF8 | SQLITE_DIRECTONLY, this,
                                       &SqliteDatabase::callVisitor, nullptr, nullptr, nullptr);
        if (added != SQLITE_OK)
            fail(added);
    } catch (...) {
        sqlite3_close(handle_);
        throw;
    }
}

SqliteDatabase::~SqliteDatabase() {
    sqlite3_close(handle_);
}

void SqliteDatabase::run(const std::string& sql) {
    SqliteStatement statement(*this, sql);
    SqliteStatement::Run run(statement);
    while (run.step()) {
    }
}

std::int64_t SqliteDatabase::number(const std::string& sql) {
    SqliteStatement statement(*this, sql);
    SqliteStatement::Run run(statement);
    return run.step() ? run.number(0) : 0;
}

std::string SqliteDatabase::text(const std::string& sql) {
    SqliteStatement statement(*this, sql);
    SqliteStatement::Run run(statement);
    return run.step() ? std::string(run.column(0)) : std::string();
}

bool SqliteDatabase::inTransaction() const noexcept {
    return sqlite3_get_autocommit(handle_) == 0;
}

void SqliteDatabase::rollBack() noexcept {
    // Some failures, a full disk among them, make SQLite roll back by itself. A roll back that
    // fails leaves the journal, which the next access to the file rolls back.
    if (inTransaction())
        sqlite3_exec(handle_, "ROLLBACK", nullptr, nullptr, nullptr);
}

void SqliteDatabase::fail(int code) const {
    const int cause = errno;
    if ((code & 0xFF) == SQLITE_NOMEM)
        throw std::bad_alloc();
    // SQLite does not keep errno of every failure, and then it still stands.
    const int kept = sqlite3_system_errno(handle_);
    const Meaning meaning = meaningOf(code, kept != 0 ? kept : cause);
    std::string text = "La base « " + path_ + " » " + meaning.text;
    if (meaning.number == errors::StoreFailed)
        text +=
            std::string(" (SQLite ") + std::to_string(code) + " : " + sqlite3_errstr(code) + ")";
    throw Error(meaning.number, text);
}

// Setting the handler makes SQLite count its attempts from zero.
void SqliteDatabase::waitAnew() noexcept {
    sqlite3_busy_handler(handle_, &SqliteDatabase::waitForLock, this);
}

void SqliteDatabase::waitNever() noexcept {
    sqlite3_busy_handler(handle_, nullptr, nullptr);
}

// Nobody is told when a lock is free: one has to come by at the right time. SQLite's own waiting
// comes by ever more seldom, and so hardly ever between two writes of another process that makes
// one after the other.
int SqliteDatabase::waitForLock(void* database, int attempts) {
    constexpr std::chrono::microseconds Pause{250};
    SqliteDatabase& self = *static_cast<SqliteDatabase*>(database);
    const auto now = std::chrono::steady_clock::now();
    if (attempts == 0)
        self.waitingSince_ = now;
    if (now - self.waitingSince_ >= self.patience_)
        return 0;
    std::this_thread::sleep_for(Pause);
    return 1;
}

void SqliteDatabase::callVisitor(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    Visit& visit = *static_cast<SqliteDatabase*>(sqlite3_user_data(context))->visit_;
    try {
        visit.ended = !visit.visitor(bytesOf(values[0]), bytesOf(values[1]));
    } catch (...) {
        visit.thrown = std::current_exception();
    }
    if (visit.ended || visit.thrown)
        sqlite3_result_error_code(context, SQLITE_ABORT);
}

SqliteStatement::SqliteStatement(SqliteDatabase& database, const std::string& sql)
    : database_(database) {
    const int code = sqlite3_prepare_v3(database.handle(), sql.c_str(), -1,
                                        SQLITE_PREPARE_PERSISTENT, &handle_, nullptr);
    if (code != SQLITE_OK)
        database.fail(code);
}

SqliteStatement::~SqliteStatement() {
    sqlite3_finalize(handle_);
}

SqliteStatement::Run::Run(SqliteStatement& statement) : statement_(statement) {
    const SqliteDatabase& database = statement.database_;
    if (database.visit_ != nullptr)
        throw Error(errors::StoreFailed,
                    "La base « " + database.path() + " » est en cours de lecture.");
}

SqliteStatement::Run::~Run() {
    sqlite3_reset(statement_.handle_);
}

void SqliteStatement::Run::bind(int parameter, std::string_view bytes) {
    // A null pointer would bind NULL where an empty text is meant.
    const char* const data = bytes.empty() ? "" : bytes.data();
    const int code =
        sqlite3_bind_blob64(statement_.handle_, parameter, data, bytes.size(), SQLITE_STATIC);
    if (code != SQLITE_OK)
        statement_.database_.fail(code);
}

bool SqliteStatement::Run::step() {
    const int code = sqlite3_step(statement_.handle_);
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        statement_.database_.fail(code);
    return false;
}

bool SqliteStatement::Run::changed() const noexcept {
    return sqlite3_changes(statement_.database_.handle()) > 0;
}

std::string_view SqliteStatement::Run::column(int column) const noexcept {
    return bytesOf(sqlite3_column_value(statement_.handle_, column));
}

std::int64_t SqliteStatement::Run::number(int column) const noexcept {
    return sqlite3_column_int64(statement_.handle_, column);
}

void SqliteStatement::Run::visitAll(const SqliteDatabase::Visitor& visitor) {
    SqliteDatabase::Visit visit{visitor, false, nullptr};
    statement_.database_.visit_ = &visit;
    const int code = sqlite3_step(statement_.handle_);
    statement_.database_.visit_ = nullptr;
    if (visit.thrown)
        std::rethrow_exception(visit.thrown);
    if (code != SQLITE_DONE && !visit.ended)
        statement_.database_.fail(code);
}

} // namespace vorandine::store
