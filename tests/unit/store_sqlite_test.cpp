// What can go wrong with an SQLite store: each condition gives its own error, changes nothing, and
// is over once its cause is gone. Disks that fail are those of tests/reliability/.
#include "store/sqlite/SqliteEngine.h"

#include "store/Store.h"
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

using store_test::numberOf;

class SqliteStore : public testing::Test {
  protected:
    store_test::Folder folder;
    std::string path = folder / "base.vor";

    SqliteEngine open(OpenMode mode = OpenMode::Existing) const {
        return SqliteEngine(path, mode, std::chrono::milliseconds(100));
    }
    void make(int records) const {
        SqliteEngine engine = open(OpenMode::Create);
        engine.atomically([&] {
            for (int i = 0; i < records; ++i)
                engine.file("TABLES")->write(std::to_string(i), std::string(1000, 'x'));
        });
    }
    std::uint32_t opening(OpenMode mode = OpenMode::Existing) const {
        const auto raised = store_test::raisedBy([&] { (void)open(mode); });
        EXPECT_TRUE(raised.number == 0 || raised.text.find(path) != std::string::npos)
            << raised.text;
        return raised.number;
    }
    static std::uint32_t writing(SqliteEngine& engine) {
        return numberOf([&] { engine.file("TABLES")->write("a", "1"); });
    }

    // Another program at the same file, until it is let go.
    using Other = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;
    Other other(const char* sql) const {
        sqlite3* handle = nullptr;
        sqlite3_open(path.c_str(), &handle);
        EXPECT_EQ(sqlite3_exec(handle, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
        return {handle, &sqlite3_close};
    }
};

TEST_F(SqliteStore, UrlsAndPaths) {
    const auto opened = [](const std::string& url) {
        return numberOf([&] { (void)openEngine(url, OpenMode::Existing); });
    };
    for (const char* const url : {"", "sqlite:", "memory:x", "SQLITE:a", "/a/b", "sqlite:a\nb"})
        EXPECT_EQ(opened(url), errors::UrlRefused) << url;
    // Not SQLite's own spellings: these are names of files that do not exist.
    EXPECT_EQ(opened("sqlite::memory:"), errors::StoreMissing);
    EXPECT_EQ(opened("sqlite:file:x?mode=memory"), errors::StoreMissing);
    EXPECT_EQ(opening(), errors::StoreMissing);
    EXPECT_FALSE(std::filesystem::exists(path));
    open(OpenMode::Create).file("TABLES")->write("a", "1");
    EXPECT_EQ(open().file("TABLES")->read("a"), "1");
    EXPECT_EQ(open(OpenMode::Create).file("TABLES")->read("a"), "1");
    // One file holds the store.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
    path = folder / "missing/base.vor";
    EXPECT_EQ(opening(), errors::StoreMissing);
    EXPECT_EQ(opening(OpenMode::Create), errors::ReadOnly);
}

TEST_F(SqliteStore, FilesOfAnotherNatureAreLeftAlone) {
    for (const std::string& bytes : {std::string("x"), std::string(5000, 'x'),
                                     std::string("SQLite format 3"), std::string(100, '\0')}) {
        std::ofstream(path, std::ios::binary) << bytes;
        EXPECT_EQ(opening(), errors::NotADatabase);
        EXPECT_EQ(opening(OpenMode::Create), errors::NotADatabase);
        EXPECT_EQ(std::filesystem::file_size(path), bytes.size());
    }
    // An empty file is no store, but may become one.
    std::filesystem::resize_file(path, 0);
    EXPECT_EQ(opening(), errors::NotADatabase);
    EXPECT_EQ(opening(OpenMode::Create), 0U);
    EXPECT_EQ(opening(), 0U);
    path = folder.path();
    EXPECT_EQ(opening(), errors::NotADatabase);
    EXPECT_EQ(opening(OpenMode::Create), errors::NotADatabase);
}

TEST_F(SqliteStore, StoresOfOtherProgramsAndVersionsAndDamagedOnesAreRefused) {
    other("CREATE TABLE t (a)");
    EXPECT_EQ(opening(), errors::OtherProgram);
    EXPECT_EQ(opening(OpenMode::Create), errors::OtherProgram);
    path = folder / "ours.vor";
    make(500);
    const std::pair<const char*, std::uint32_t> changes[] = {
        {"PRAGMA user_version = 3", errors::OtherVersion},
        {"PRAGMA user_version = 0", errors::OtherVersion},
        {"PRAGMA user_version = 2; CREATE TABLE t (a)", errors::OtherProgram},
        {"DROP TABLE t; ANALYZE", 0},
        {"DROP TABLE CONTRAT", errors::Damaged},
        {"CREATE TABLE CONTRAT (cle, fiche)", errors::OtherProgram},
        {"PRAGMA application_id = 7", errors::OtherProgram}};
    for (const auto& [sql, number] : changes) {
        other(sql);
        EXPECT_EQ(opening(), number) << sql;
    }
    std::filesystem::resize_file(path, std::filesystem::file_size(path) / 2);
    EXPECT_EQ(opening(), errors::Damaged);
    EXPECT_EQ(opening(OpenMode::Create), errors::Damaged);
}

// By another program, or by another connection of this one, of which opening and closing a third
// loses no lock.
TEST_F(SqliteStore, ALockIsWaitedForAndTold) {
    SqliteEngine engine = open(OpenMode::Create);
    EngineFile& file = *engine.file("TABLES");
    {
        const Other writer = other("BEGIN EXCLUSIVE");
        EXPECT_EQ(opening(), errors::Locked);
        EXPECT_EQ(numberOf([&] { (void)file.read("a"); }), errors::Locked);
        EXPECT_EQ(numberOf([&] { engine.atomically([] {}); }), errors::Locked);
        EXPECT_EQ(writing(engine), errors::Locked);
    }
    {
        // A reader lets others read, and keeps writers waiting.
        const Other reader = other("BEGIN; SELECT * FROM TABLES");
        EXPECT_EQ(file.read("a"), std::nullopt);
        EXPECT_EQ(writing(engine), errors::Locked);
        EXPECT_EQ(numberOf([&] { engine.atomically([&] { file.write("a", "1"); }); }),
                  errors::Locked);
    }
    SqliteEngine second = open();
    second.atomically([&] {
        second.file("TABLES")->write("a", "2");
        EXPECT_EQ(file.read("a"), std::nullopt);
        (void)open();
        EXPECT_EQ(writing(engine), errors::Locked);
    });
    EXPECT_EQ(file.read("a"), "2");
    // One state of all files is seen: between two of them, nobody writes.
    second.consistently([&] {
        EXPECT_EQ(second.file("CONTRAT")->read("1"), std::nullopt);
        EXPECT_EQ(writing(engine), errors::Locked);
    });
    EXPECT_EQ(writing(engine), 0U);
    EXPECT_EQ(second.file("TABLES")->read("a"), "1");
}

// Files of this process are held to a size, as a full disk would. Work that swallows the failure
// does not get its other writes stored alone.
TEST_F(SqliteStore, ATransactionUndoneBeneathItsWorkStoresNothing) {
    make(100);
    SqliteEngine engine = open();
    EngineFile& file = *engine.file("TABLES");
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{std::filesystem::file_size(path), before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    const std::uint32_t number = numberOf([&] {
        engine.atomically([&] {
            file.write("2", "before");
            for (int i = 10; i < 50; ++i)
                (void)numberOf([&] { file.write(std::to_string(i), std::string(1000000, 'y')); });
            (void)numberOf([&] { file.write("3", "after"); });
        });
    });
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, SIG_DFL);
    EXPECT_NE(number, 0U);
    for (const char* const key : {"2", "3", "15"})
        EXPECT_EQ(file.read(key), std::string(1000, 'x'));
    EXPECT_EQ(writing(engine), 0U);
}

TEST_F(SqliteStore, AFileTakenAwayIsNoticedWhenWriting) {
    SqliteEngine engine = open(OpenMode::Create);
    std::filesystem::rename(path, folder / "elsewhere");
    EXPECT_EQ(writing(engine), errors::StoreMissing);
    std::filesystem::rename(folder / "elsewhere", path);
    EXPECT_EQ(writing(engine), 0U);
}

TEST_F(SqliteStore, WhatIsProtectedIsReadAndNotWritten) {
    make(1);
    const auto isOnlyRead = [&] {
        SqliteEngine engine = open();
        EngineFile& file = *engine.file("TABLES");
        return writing(engine) == errors::ReadOnly &&
               numberOf([&] { file.erase("0"); }) == errors::ReadOnly &&
               file.read("0") == std::string(1000, 'x');
    };
    const auto isOnlyReadByNobody = [&](unsigned fileMode, unsigned folderMode) {
        chmod(path.c_str(), fileMode);
        chmod(folder.path().c_str(), folderMode);
        EXPECT_EQ(store_test::asNobody([&] { return isOnlyRead() ? 0 : 1; }), 0) << fileMode;
    };
    isOnlyReadByNobody(0444, 0777);
    isOnlyReadByNobody(0666, 0555); // no journal can be made
    EXPECT_EQ(store_test::asNobody([&] {
                  path = folder / "new.vor";
                  return opening(OpenMode::Create) == errors::ReadOnly ? 0 : 1;
              }),
              0);
    // The format before gets its history at the first opening. As long as that cannot be, the store
    // is read, and not written without a history.
    other("DROP TABLE HISTORIQUE; PRAGMA user_version = 1");
    isOnlyReadByNobody(0666, 0555);
    chmod(folder.path().c_str(), 0755);
    {
        const Other reader = other("BEGIN; SELECT * FROM TABLES");
        EXPECT_TRUE(isOnlyRead());
    }
    for (std::size_t times = 1; times <= 2; ++times) {
        Store store(std::make_shared<SqliteEngine>(path, OpenMode::Existing));
        store.OpenFile("TABLES")->WriteRecord("0", "changed");
        EXPECT_EQ(store.changes().history("TABLES", "0").size(), times);
    }
}

TEST_F(SqliteStore, ByAnotherNameItIsOnlyReadUntilThatIsGone) {
    make(1);
    SqliteEngine engine = open();
    std::filesystem::create_hard_link(path, folder / "second.vor");
    EXPECT_EQ(writing(engine), errors::ReadOnly);
    EXPECT_EQ(numberOf([&] { engine.atomically([] {}); }), errors::ReadOnly);
    path = folder / "second.vor";
    SqliteEngine second = open();
    EXPECT_EQ(second.file("TABLES")->read("0"), std::string(1000, 'x'));
    EXPECT_EQ(writing(second), errors::ReadOnly);
    EXPECT_EQ(second.dangers().size(), 1U);
    second.backUp(folder / "copy.vor", [](std::size_t) {});
    std::filesystem::remove(path);
    EXPECT_EQ(writing(engine), 0U);
    path = folder / "copy.vor";
    SqliteEngine copy = open();
    EXPECT_EQ(writing(copy), 0U);
}

TEST_F(SqliteStore, NobodyReadsOrReplacesWhatHeMayNot) {
    const auto mode = [](const std::string& file) {
        struct stat status {};
        stat(file.c_str(), &status);
        return status.st_mode & 07777U;
    };
    make(1);
    EXPECT_EQ(mode(path), 0600U);
    const mode_t before = umask(0077);
    for (const unsigned own : {0600U, 0660U, 0644U, 0400U}) {
        chmod(path.c_str(), own);
        open().backUp(folder / "copy.vor", [](std::size_t) {});
        (void)repair(path, folder / "mended.vor",
                     [&] { EXPECT_EQ(mode(folder / "mended.vor.part"), own | 0600U); });
        for (const char* const made : {"copy.vor", "mended.vor"}) {
            EXPECT_EQ(mode(folder / made), own | 0600U) << made;
            std::filesystem::remove(folder / made);
        }
    }
    umask(before);
    for (int i = 0; i < 5; ++i) // more than is copied at once
        open().file("TABLES")->write(std::to_string(i), std::string(1U << 20U, 'x'));
    const auto meanwhile = [&](std::size_t) { std::ofstream(folder / "copy.vor") << "mine"; };
    EXPECT_EQ(numberOf([&] { open().backUp(folder / "copy.vor", meanwhile); }),
              errors::StoreExists);
    EXPECT_EQ(std::filesystem::file_size(folder / "copy.vor"), 4U);
    EXPECT_FALSE(std::filesystem::exists(folder / "copy.vor.part"));
}

TEST_F(SqliteStore, WhatNoScanMeetsIsAFaultAndWhatIsMissingIsLost) {
    make(1);
    const auto lost = [&] { return salvage(path, [](auto, auto, auto) {}); };
    EXPECT_EQ(open().faults().size(), 0U);
    EXPECT_EQ(lost(), 0U);
    other("INSERT INTO TABLES VALUES ('a text for a key', x'31')");
    EXPECT_EQ(open().faults().size(), 1U);
    EXPECT_EQ(lost(), 1U);
    other("DROP TABLE CONTRAT");
    EXPECT_EQ(lost(), 2U);
    other("PRAGMA user_version = 3");
    EXPECT_EQ(numberOf([&] { (void)lost(); }), errors::OtherVersion);
}

} // namespace
} // namespace vorandine::store
