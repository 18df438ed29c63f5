// One connection to an SQLite file and its prepared statements: closed and finalised by themselves,
// failures told as Errors in French with the path and what to do.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_context;
struct sqlite3_stmt;
struct sqlite3_value;

namespace vorandine::store {

class SqliteDatabase {
  public:
    // Opens `path`, an absolute path; makes an empty file, for its owner alone to read and write,
    // if there is none and `create` is set. A lock held by another connection is waited for during
    // `patience` at most.
    SqliteDatabase(std::string path, bool create, std::chrono::milliseconds patience);
    SqliteDatabase(const SqliteDatabase&) = delete;
    SqliteDatabase& operator=(const SqliteDatabase&) = delete;
    // All statements must be gone.
    ~SqliteDatabase();

    [[nodiscard]] sqlite3* handle() const noexcept { return handle_; }
    [[nodiscard]] const std::string& path() const noexcept { return path_; }

    // Runs one statement and drops its rows.
    void run(const std::string& sql);
    // The first column of the first row: a number, a text.
    [[nodiscard]] std::int64_t number(const std::string& sql);
    [[nodiscard]] std::string text(const std::string& sql);
    // Whether a transaction is open.
    [[nodiscard]] bool inTransaction() const noexcept;
    // Ends the open transaction, if there still is one, with nothing written.
    void rollBack() noexcept;

    // The next wait for a lock has the whole patience again, though SQLite may take it for the same
    // wait as the last: it does between two steps of a backup.
    void waitAnew() noexcept;
    // Locks are not waited for until then.
    void waitNever() noexcept;

    // Throws what SQLite's result `code` means for the user.
    [[noreturn]] void fail(int code) const;

    // Gets the two columns given to the SQL function `visite`; false ends the statement. The views
    // end with the call.
    using Visitor = std::function<bool(std::string_view, std::string_view)>;

  private:
    friend class SqliteStatement;
    struct Visit;

    std::string path_;
    std::chrono::milliseconds patience_;
    std::chrono::steady_clock::time_point waitingSince_;
    sqlite3* handle_ = nullptr;
    Visit* visit_ = nullptr; // of the run that is under way, if it has one

    static int waitForLock(void* database, int attempts);
    static void callVisitor(sqlite3_context* context, int count, sqlite3_value** values);
};

class SqliteStatement {
  public:
    SqliteStatement(SqliteDatabase& database, const std::string& sql);
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;
    ~SqliteStatement();

    // One run of the statement: parameters are bound, rows stepped through, and its end, however
    // it comes, gives the locks back and makes the statement ready for the next run.
    class Run {
      public:
        // Throws Error(StoreFailed) where a visitor is being called.
        explicit Run(SqliteStatement& statement);
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;
        ~Run();

        // Parameters count from 1. The bytes must outlive the run.
        void bind(int parameter, std::string_view bytes);
        // Whether there is a row; false at the end.
        [[nodiscard]] bool step();
        // Whether the statement, at its end, has changed a row.
        [[nodiscard]] bool changed() const noexcept;
        // Columns count from 0; the view ends with the next step.
        [[nodiscard]] std::string_view column(int column) const noexcept;
        [[nodiscard]] std::int64_t number(int column) const noexcept;
        // Runs to the end a statement whose condition calls `visite`, which calls `visitor` and
        // selects no row: rows are handed over within SQLite's own loop, since leaving it and
        // coming back for each of them takes as long as looking at it. Throws what `visitor` does.
        void visitAll(const SqliteDatabase::Visitor& visitor);

      private:
        SqliteStatement& statement_;
    };

  private:
    SqliteDatabase& database_;
    sqlite3_stmt* handle_ = nullptr;
};

} // namespace vorandine::store
