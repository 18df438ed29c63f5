// What the store is compared with: bare SQLite with the settings of the store, and a folder for the
// files of both.
#pragma once

#include <cstddef>
#include <filesystem>
#include <random>
#include <sqlite3.h>
#include <stdexcept>
#include <string>

namespace bench {

inline void require(bool done, sqlite3* database) {
    if (!done)
        throw std::runtime_error(sqlite3_errmsg(database));
}

class Bare {
  public:
    explicit Bare(const std::string& path) {
        require(sqlite3_open_v2(path.c_str(), &handle_,
                                SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX,
                                nullptr) == SQLITE_OK,
                handle_);
        run("PRAGMA page_size = 16384");
        run("PRAGMA cache_size = -16384");
        run("PRAGMA synchronous = EXTRA");
        run("PRAGMA journal_mode = DELETE");
    }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;
    ~Bare() { sqlite3_close(handle_); }

    void run(const std::string& sql) const {
        require(sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK,
                handle_);
    }
    [[nodiscard]] sqlite3* handle() const { return handle_; }

  private:
    sqlite3* handle_ = nullptr;
};

class Statement {
  public:
    Statement(const Bare& database, const char* sql) : database_(database.handle()) {
        require(sqlite3_prepare_v3(database_, sql, -1, SQLITE_PREPARE_PERSISTENT, &handle_,
                                   nullptr) == SQLITE_OK,
                database_);
    }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement() { sqlite3_finalize(handle_); }

    void text(int at, const std::string& value) const {
        sqlite3_bind_text(handle_, at, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
    }
    void blob(int at, const std::string& value) const {
        sqlite3_bind_blob(handle_, at, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
    }
    [[nodiscard]] bool step() const {
        const int code = sqlite3_step(handle_);
        require(code == SQLITE_ROW || code == SQLITE_DONE, database_);
        return code == SQLITE_ROW;
    }
    // The bytes of a column, copied as any user must.
    void append(int at, std::string& to) const {
        const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(handle_, at));
        to.append(bytes == nullptr ? "" : bytes,
                  static_cast<std::size_t>(sqlite3_column_bytes(handle_, at)));
    }
    void reset() const { sqlite3_reset(handle_); }

  private:
    sqlite3* database_;
    sqlite3_stmt* handle_ = nullptr;
};

// Gone with all that is in it.
class Folder {
  public:
    Folder() {
        std::random_device random;
        path_ = std::filesystem::temp_directory_path() /
                ("vorandine-bench-" + std::to_string(random()));
        std::filesystem::create_directory(path_);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    [[nodiscard]] std::string operator/(const char* name) const { return path_ / name; }

  private:
    std::filesystem::path path_;
};

} // namespace bench
