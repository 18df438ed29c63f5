// What can go wrong with an SQLite store: each condition gives its own error, changes nothing, and
// is over once its cause is gone.
#include "store/sqlite/SqliteEngine.h"

#include "store/sqlite/SqliteSalvage.h"
#include "store_support.h"

#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace vorandine::store {
namespace {

using store_test::asNobody;
using store_test::raisedBy;

// Another program at the same file.
class Other {
  public:
    explicit Other(const std::string& path) { sqlite3_open(path.c_str(), &handle_); }
    Other(const Other&) = delete;
    Other& operator=(const Other&) = delete;
    ~Other() { sqlite3_close(handle_); }

    void run(const char* sql) {
        ASSERT_EQ(sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(handle_);
    }

  private:
    sqlite3* handle_ = nullptr;
};

class SqliteStore : public testing::Test {
  protected:
    store_test::Folder folder;
    std::string path = folder / "base.vor";

    SqliteEngine open(OpenMode mode) const {
        return SqliteEngine(path, mode, std::chrono::milliseconds(100));
    }
    void make() const { (void)open(OpenMode::Create); }
    void make(int records) const {
        SqliteEngine engine = open(OpenMode::Create);
        engine.atomically([&] {
            for (int i = 0; i < records; ++i)
                engine.file("TABLES")->write(std::to_string(i), std::string(1000, 'x'));
        });
    }
    std::uint32_t opening(OpenMode mode) const {
        const auto raised = raisedBy([&] { (void)open(mode); });
        EXPECT_TRUE(raised.number == 0 || raised.text.find(path) != std::string::npos)
            << raised.text;
        return raised.number;
    }
    void writeBytes(const std::string& bytes) const {
        std::ofstream(path, std::ios::binary) << bytes;
    }
};

TEST_F(SqliteStore, KeepsWhatWasWrittenFromOneOpeningToTheNext) {
    EXPECT_EQ(opening(OpenMode::Existing), errors::StoreMissing);
    EXPECT_FALSE(std::filesystem::exists(path));
    open(OpenMode::Create).file("TABLES")->write("a", "1");
    EXPECT_EQ(open(OpenMode::Existing).file("TABLES")->read("a"), "1");
    EXPECT_EQ(open(OpenMode::Create).file("TABLES")->read("a"), "1");
    // One file holds the store.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST_F(SqliteStore, UrlsAndPaths) {
    const auto opened = [](const std::string& url) {
        return raisedBy([&] { (void)openEngine(url, OpenMode::Existing); }).number;
    };
    for (const char* const url : {"", "sqlite:", "memory:x", "SQLITE:a", "/a/b", "sqlite:a\nb"})
        EXPECT_EQ(opened(url), errors::UrlRefused) << url;
    // Not SQLite's own spellings: these are names of files that do not exist.
    EXPECT_EQ(opened("sqlite::memory:"), errors::StoreMissing);
    EXPECT_EQ(opened("sqlite:file:x?mode=memory"), errors::StoreMissing);
    path = folder / "missing/base.vor";
    EXPECT_EQ(opening(OpenMode::Existing), errors::StoreMissing);
    EXPECT_EQ(opening(OpenMode::Create), errors::ReadOnly);
}

TEST_F(SqliteStore, FilesOfAnotherNatureAreLeftAlone) {
    for (const OpenMode mode : {OpenMode::Existing, OpenMode::Create}) {
        for (const std::string& bytes : {std::string("x"), std::string(5000, 'x'),
                                         std::string("SQLite format 3"), std::string(100, '\0')}) {
            writeBytes(bytes);
            EXPECT_EQ(opening(mode), errors::NotADatabase);
            EXPECT_EQ(std::filesystem::file_size(path), bytes.size());
        }
    }
    path = folder.path();
    EXPECT_EQ(opening(OpenMode::Existing), errors::NotADatabase);
    EXPECT_EQ(opening(OpenMode::Create), errors::NotADatabase);
}

TEST_F(SqliteStore, AnEmptyFileIsNoStoreButMayBecomeOne) {
    writeBytes("");
    EXPECT_EQ(opening(OpenMode::Existing), errors::NotADatabase);
    EXPECT_EQ(opening(OpenMode::Create), 0U);
    EXPECT_EQ(opening(OpenMode::Existing), 0U);
}

TEST_F(SqliteStore, StoresOfOtherProgramsAndVersionsAreRefused) {
    Other(path).run("CREATE TABLE t (a)");
    EXPECT_EQ(opening(OpenMode::Existing), errors::OtherProgram);
    EXPECT_EQ(opening(OpenMode::Create), errors::OtherProgram);

    path = folder / "ours.vor";
    make();
    Other(path).run("PRAGMA user_version = 3");
    EXPECT_EQ(opening(OpenMode::Existing), errors::OtherVersion);
    Other(path).run("PRAGMA user_version = 2; CREATE TABLE t (a)");
    EXPECT_EQ(opening(OpenMode::Existing), errors::OtherProgram);
    Other(path).run("DROP TABLE t; ANALYZE");
    EXPECT_EQ(opening(OpenMode::Existing), 0U);
    Other(path).run("DROP TABLE CONTRAT");
    EXPECT_EQ(opening(OpenMode::Existing), errors::Damaged);
    Other(path).run("CREATE TABLE CONTRAT (cle, fiche)");
    EXPECT_EQ(opening(OpenMode::Existing), errors::OtherProgram);
    Other(path).run("PRAGMA application_id = 7");
    EXPECT_EQ(opening(OpenMode::Existing), errors::OtherProgram);
}

TEST_F(SqliteStore, DamageIsFoundAndTold) {
    make(500);
    const auto size = std::filesystem::file_size(path);
    std::filesystem::resize_file(path, size / 2);
    EXPECT_EQ(opening(OpenMode::Existing), errors::Damaged);
    EXPECT_EQ(opening(OpenMode::Create), errors::Damaged);

    // Pages of records overwritten: the store opens, reading there fails, the rest is still there.
    std::filesystem::remove(path);
    make(500);
    {
        std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(static_cast<std::streamoff>(size) - 20 * 16384);
        file << std::string(std::size_t{20} * 16384, '\xA5');
    }
    SqliteEngine engine = open(OpenMode::Existing);
    int read = 0;
    const auto raised =
        raisedBy([&] { engine.file("TABLES")->scan({}, [&](auto, auto) { return ++read > 0; }); });
    EXPECT_EQ(raised.number, errors::Damaged);
    EXPECT_LT(read, 500);
    EXPECT_EQ(engine.file("CONTRAT")->read("a"), std::nullopt);
}

TEST_F(SqliteStore, ALockIsWaitedForAndTold) {
    make();
    SqliteEngine engine = open(OpenMode::Existing);
    EngineFile& file = *engine.file("TABLES");
    {
        Other other(path);
        other.run("BEGIN EXCLUSIVE");
        EXPECT_EQ(opening(OpenMode::Existing), errors::Locked);
        EXPECT_EQ(raisedBy([&] { (void)file.read("a"); }).number, errors::Locked);
        EXPECT_EQ(raisedBy([&] { file.write("a", "1"); }).number, errors::Locked);
        EXPECT_EQ(raisedBy([&] { engine.atomically([] {}); }).number, errors::Locked);
    }
    {
        // A reader lets others read, and keeps writers waiting.
        Other other(path);
        other.run("BEGIN; SELECT * FROM TABLES");
        EXPECT_EQ(file.read("a"), std::nullopt);
        EXPECT_EQ(raisedBy([&] { file.write("a", "1"); }).number, errors::Locked);
        EXPECT_EQ(raisedBy([&] { engine.atomically([&] { file.write("a", "1"); }); }).number,
                  errors::Locked);
    }
    EXPECT_EQ(file.read("a"), std::nullopt);
    file.write("a", "2");
    EXPECT_EQ(open(OpenMode::Existing).file("TABLES")->read("a"), "2");
}

// Two connections of one process, and no lock lost by opening and closing a third.
TEST_F(SqliteStore, SeveralConnectionsSeeEachOthersWrites) {
    SqliteEngine first = open(OpenMode::Create);
    SqliteEngine second = open(OpenMode::Existing);
    first.atomically([&] {
        first.file("TABLES")->write("a", "1");
        EXPECT_EQ(second.file("TABLES")->read("a"), std::nullopt);
        (void)open(OpenMode::Existing);
        EXPECT_EQ(raisedBy([&] { second.file("TABLES")->write("b", "2"); }).number, errors::Locked);
    });
    EXPECT_EQ(second.file("TABLES")->read("a"), "1");
    second.file("TABLES")->write("b", "2");
    EXPECT_EQ(first.file("TABLES")->read("b"), "2");
}

// Holds files of this process to a size, as a full disk would.
class DiskLimit {
  public:
    explicit DiskLimit(std::uintmax_t bytes) {
        signal_ = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    DiskLimit(const DiskLimit&) = delete;
    DiskLimit& operator=(const DiskLimit&) = delete;
    ~DiskLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, signal_);
    }

  private:
    rlimit before_{};
    void (*signal_)(int) = nullptr;
};

TEST_F(SqliteStore, AFullDiskLosesNothingAndIsForgottenWhenItHasRoom) {
    make(100);
    SqliteEngine engine = open(OpenMode::Existing);
    EngineFile& file = *engine.file("TABLES");
    const std::string large(1000000, 'y');
    {
        const DiskLimit limit(std::filesystem::file_size(path));
        EXPECT_EQ(raisedBy([&] { file.write("1", large); }).number, errors::DiskFull);
        EXPECT_EQ(file.read("1"), std::string(1000, 'x'));
        // Work that swallows the failure does not get its other writes stored alone.
        EXPECT_NE(raisedBy([&] {
                      engine.atomically([&] {
                          file.write("2", "before");
                          for (int i = 0; i < 40; ++i)
                              (void)raisedBy([&] { file.write("1" + std::to_string(i), large); });
                          (void)raisedBy([&] { file.write("3", "after"); });
                      });
                  }).number,
                  0U);
        EXPECT_EQ(file.read("2"), std::string(1000, 'x'));
        EXPECT_EQ(file.read("3"), std::string(1000, 'x'));
    }
    file.write("1", large);
    EXPECT_EQ(open(OpenMode::Existing).file("TABLES")->read("1"), large);
}

TEST_F(SqliteStore, AFileTakenAwayIsNoticedWhenWriting) {
    make();
    SqliteEngine engine = open(OpenMode::Existing);
    std::filesystem::rename(path, folder / "elsewhere");
    EXPECT_EQ(raisedBy([&] { engine.file("TABLES")->write("a", "1"); }).number,
              errors::StoreMissing);
    std::filesystem::rename(folder / "elsewhere", path);
    engine.file("TABLES")->write("a", "1");
}

TEST_F(SqliteStore, AProtectedFileIsReadAndNotWritten) {
    make(1);
    const auto readsAndIsRefused = [&] {
        SqliteEngine engine = open(OpenMode::Existing);
        EngineFile& file = *engine.file("TABLES");
        if (file.read("0") != std::string(1000, 'x'))
            return 1;
        if (raisedBy([&] { file.write("0", "1"); }).number != errors::ReadOnly)
            return 2;
        if (raisedBy([&] { engine.atomically([&] { file.erase("0"); }); }).number !=
            errors::ReadOnly)
            return 3;
        return file.read("0") == std::string(1000, 'x') ? 0 : 4;
    };
    chmod(path.c_str(), 0444);
    chmod(folder.path().c_str(), 0555);
    EXPECT_EQ(asNobody(readsAndIsRefused), 0); // the file is protected
    chmod(path.c_str(), 0666);
    EXPECT_EQ(asNobody(readsAndIsRefused), 0); // its folder is: no journal can be made
    // A store of the format before cannot be given its history then, and is read all the same.
    Other(path).run("DROP TABLE HISTORIQUE; PRAGMA user_version = 1");
    EXPECT_EQ(asNobody(readsAndIsRefused), 0);
    path = folder / "new.vor";
    EXPECT_EQ(asNobody([&] { return opening(OpenMode::Create) == errors::ReadOnly ? 0 : 1; }), 0);
    chmod(folder.path().c_str(), 0755);
}

TEST_F(SqliteStore, TheFormatBeforeGetsItsHistoryAtTheFirstOpening) {
    make(1);
    Other(path).run("DROP TABLE HISTORIQUE; PRAGMA user_version = 1");
    {
        // As long as that cannot be, the store is read, and not written without a history.
        Other other(path);
        other.run("BEGIN; SELECT * FROM TABLES");
        SqliteEngine engine = open(OpenMode::Existing);
        other.run("COMMIT");
        EXPECT_EQ(engine.file("TABLES")->read("0"), std::string(1000, 'x'));
        EXPECT_EQ(raisedBy([&] { engine.file("TABLES")->write("0", "1"); }).number,
                  errors::ReadOnly);
    }
    for (std::size_t times = 1; times <= 2; ++times) {
        Store store(std::make_shared<SqliteEngine>(path, OpenMode::Existing));
        auto record = store.OpenFile("TABLES")->ReadRecord("0");
        record(1) = "changed";
        record.DBWrite();
        EXPECT_EQ(store.changes().history("TABLES", "0").size(), times);
    }
}

TEST_F(SqliteStore, WhatNoScanMeetsIsAFaultAndWhatIsMissingIsLost) {
    make(1);
    const auto lost = [&] { return salvage(path, [](auto, auto, auto) {}); };
    EXPECT_EQ(open(OpenMode::Existing).faults().size(), 0U);
    EXPECT_EQ(lost(), 0U);
    Other(path).run("INSERT INTO TABLES VALUES ('a text for a key', x'31')");
    EXPECT_EQ(open(OpenMode::Existing).faults().size(), 1U);
    EXPECT_EQ(lost(), 1U);
    Other(path).run("DROP TABLE CONTRAT");
    EXPECT_EQ(lost(), 2U);
    Other(path).run("PRAGMA user_version = 3");
    EXPECT_EQ(raisedBy([&] { (void)lost(); }).number, errors::OtherVersion);
}

} // namespace
} // namespace vorandine::store
