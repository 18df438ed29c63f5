// The history of records: kept with each change, in its transaction, on every kind of store.
#include "store/Store.h"
#include "store_support.h"

#include <gtest/gtest.h>

namespace vorandine::store {
namespace {

using store_test::raisedBy;

class History : public testing::TestWithParam<const char*> {
  protected:
    store_test::Folder folder;
    std::string url = std::string(GetParam()) == "sqlite" ? "sqlite:" + (folder / "h.vor")
                                                          : std::string("memory:");
    std::shared_ptr<Engine> engine = openEngine(url, OpenMode::Create);
    Moment clock = 1'795'399'384'567'890; // 2026-11-23 02:03:04.567890 UTC
    Store store{engine, [this] { return clock; }};

    void put(const std::string& key, const std::string& text) {
        auto record = store.OpenFile("TABLES")->NewRecord(key);
        record(1) = text;
        record.DBWrite();
    }
    std::string told(const std::string& key) {
        std::string text;
        for (const Version& version : store.changes().history("TABLES", key))
            text += version.moment + " " + version.user + " " + version.record.value_or("-") + "\n";
        return text;
    }
};

TEST_P(History, KeepsWhatWasBeforeEachChangeWithMomentAndUser) {
    store.changes().user("sylvie");
    put("é", "un");
    put("é", "deux");
    put("é", "trois"); // within the same microsecond
    store.changes().user("karim");
    clock += 1'000'000;
    store.OpenFile("TABLES")->DeleteRecord("é");
    store.OpenFile("TABLES")->DeleteRecord("é"); // nothing there any more
    put("éa", "autre");
    EXPECT_EQ(told("é"), "2026-11-23T02:03:04.567890Z sylvie -\n"
                         "2026-11-23T02:03:04.567891Z sylvie un\n"
                         "2026-11-23T02:03:04.567892Z sylvie deux\n"
                         "2026-11-23T02:03:05.567890Z karim trois\n");
    EXPECT_EQ(told("éa"), "2026-11-23T02:03:05.567890Z karim -\n");
    // No host sees it as a file, and a name takes no mark into it.
    EXPECT_EQ(raisedBy([&] { (void)store.OpenFile("HISTORIQUE"); }).number, errors::FileUnknown);
    EXPECT_EQ(raisedBy([&] { store.changes().user("a\xFF"); }).number, errors::TextRefused);
    EXPECT_EQ(store.changes().prune(clock), 3U);
    EXPECT_EQ(told("é"), "2026-11-23T02:03:05.567890Z karim trois\n");
}

// A load leaves no creations, save where the record was known: it must not seem to be the one that
// was deleted.
TEST_P(History, OfALoadIsThatOfReplacedRecords) {
    store.changes().keepCreations(false);
    store.atomically([&] {
        put("a", "un"); // before the first one known
        put("k", "un");
        put("k", "deux");
        store.OpenFile("TABLES")->DeleteRecord("k");
        put("j", "un");
        put("k", "trois");
        put("l", "un");
    });
    for (const std::string key : {"a", "j", "l"})
        EXPECT_EQ(told(key), "");
    EXPECT_EQ(told("k"), "2026-11-23T02:03:04.567890Z  un\n"
                         "2026-11-23T02:03:04.567891Z  deux\n"
                         "2026-11-23T02:03:04.567892Z  -\n");
}

TEST_P(History, IsOfTheTransactionOfItsChange) {
    put("k", "un");
    const std::string created = told("k");
    EXPECT_EQ(raisedBy([&] {
                  store.atomically([&] {
                      put("k", "deux");
                      throw Error(errors::Unexpected, "x");
                  });
              }).number,
              errors::Unexpected);
    EXPECT_EQ(told("k"), created);
    store.atomically([&] {
        put("k", "deux");
        put("k", "trois");
    });
    EXPECT_EQ(store.changes().history("TABLES", "k").size(), 3U);
    // A transaction that failed leaves single changes their own.
    put("k", "quatre");
    EXPECT_EQ(store.changes().history("TABLES", "k").back().record, "trois");
}

TEST_P(History, IsPrunedInManySteps) {
    store.atomically([&] {
        for (int i = 0; i < 10'001; ++i)
            put(std::to_string(i), "un");
    });
    EXPECT_EQ(store.changes().prune(clock), 0U);
    EXPECT_EQ(store.changes().prune(clock + 1), 10'001U);
    EXPECT_EQ(told("0"), "");
}

INSTANTIATE_TEST_SUITE_P(Stores, History, testing::Values("memory", "sqlite"),
                         [](const auto& store) { return std::string(store.param); });

} // namespace
} // namespace vorandine::store
