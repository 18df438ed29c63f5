// The history of records: kept with each change, in its transaction, on every kind of store.
#include "store/Store.h"
#include "store_support.h"

#include <gtest/gtest.h>

namespace vorandine::store {
namespace {

using store_test::numberOf;

class History : public testing::TestWithParam<bool> {
  protected:
    store_test::Folder folder;
    std::shared_ptr<Engine> engine =
        openEngine(GetParam() ? "sqlite:" + (folder / "h.vor") : "memory:", OpenMode::Create);
    Moment clock = 1'795'399'384'567'890; // 2026-11-23 02:03:04.567890 UTC
    Store store{engine, [this] { return clock; }};

    void put(const std::string& key, const std::string& text) {
        store.OpenFile("TABLES")->WriteRecord(key, text);
    }
    void remove(const std::string& key) { store.OpenFile("TABLES")->DeleteRecord(key); }
    // Each version without its day: "second who what, ".
    std::string told(const std::string& key) {
        std::string text;
        for (const Version& version : store.changes().history("TABLES", key)) {
            EXPECT_TRUE(version.moment.starts_with("2026-11-23T02:03:0")) << version.moment;
            text += version.moment.substr(18) + " " + version.user + " " +
                    version.record.value_or("-") + ", ";
        }
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
    remove("é");
    remove("é"); // nothing there any more
    put("éa", "autre");
    EXPECT_EQ(told("é"), "4.567890Z sylvie -, 4.567891Z sylvie un, 4.567892Z sylvie deux, "
                         "5.567890Z karim trois, ");
    EXPECT_EQ(told("éa"), "5.567890Z karim -, ");
    // No host sees it as a file, and a name takes no mark into it.
    EXPECT_EQ(numberOf([&] { (void)store.OpenFile("HISTORIQUE"); }), errors::FileUnknown);
    EXPECT_EQ(numberOf([&] { store.changes().user("a\xFF"); }), errors::TextRefused);
    EXPECT_EQ(store.changes().prune(clock), 3U);
    EXPECT_EQ(told("é"), "5.567890Z karim trois, ");
}

// A load leaves no creations, save where the record was known: it must not seem to be the one that
// was deleted.
TEST_P(History, OfALoadIsThatOfReplacedRecords) {
    store.changes().keepCreations(false);
    store.atomically([&] {
        put("a", "un"); // before the first one known
        put("k", "un");
        put("k", "deux");
        remove("k");
        put("j", "un");
        put("k", "trois");
        put("l", "un");
    });
    EXPECT_EQ(told("a") + told("j") + told("l"), "");
    EXPECT_EQ(told("k"), "4.567890Z  un, 4.567891Z  deux, 4.567892Z  -, ");
}

TEST_P(History, IsOfTheTransactionOfItsChangeAndPrunedInManySteps) {
    put("k", "un");
    const std::string created = told("k");
    const auto fail = [&] {
        put("k", "deux");
        throw Error(errors::Unexpected, "x");
    };
    EXPECT_EQ(numberOf([&] { store.atomically(fail); }), errors::Unexpected);
    EXPECT_EQ(told("k"), created);
    put("k", "deux"); // a transaction that failed leaves single changes their own
    store.atomically([&] {
        for (int i = 0; i < 10'001; ++i)
            put(std::to_string(i), "un");
    });
    EXPECT_EQ(store.changes().history("TABLES", "k").size(), 2U);
    EXPECT_EQ(store.changes().prune(clock), 0U);
    EXPECT_EQ(store.changes().prune(clock + 2), 10'003U);
    EXPECT_EQ(told("0") + told("k"), "");
}

INSTANTIATE_TEST_SUITE_P(Stores, History, testing::Bool(), [](const auto& sqlite) {
    return std::string(sqlite.param ? "sqlite" : "memory");
});

} // namespace
} // namespace vorandine::store
