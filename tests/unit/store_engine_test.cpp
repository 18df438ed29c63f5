// What every engine promises, and what files and records of a store promise over any engine.
#include "records/Layout.h"
#include "store/Store.h"
#include "store/memory/MemoryEngine.h"
#include "store_support.h"

#include <gtest/gtest.h>
#include <optional>

namespace vorandine::store {
namespace {

using store_test::numberOf;

class StoreEngine : public testing::TestWithParam<const char*> {
  protected:
    store_test::Folder folder;
    std::shared_ptr<Engine> engine =
        openEngine(store_test::urlOf(GetParam(), folder), OpenMode::Create);
    EngineFile& file = *engine->file("TABLES");

    std::string keys(const KeyRange& range, std::size_t atMost = 99) {
        std::string found;
        file.scan(range, [&](std::string_view key, std::string_view record) {
            found += std::string(key) + "=" + std::string(record) + " ";
            return --atMost > 0;
        });
        return found;
    }
};

constexpr auto named = [](const auto& kind) { return std::string(kind.param); };

INSTANTIATE_TEST_SUITE_P(Engines, StoreEngine, testing::ValuesIn(store_test::Kinds), named);

TEST_P(StoreEngine, KeepsBytesByKeyInAllFilesOfTheCatalogue) {
    std::vector<std::string> expected;
    for (const records::FileLayout& known : records::files())
        expected.emplace_back(known.name);
    EXPECT_EQ(engine->files(), expected);
    EXPECT_EQ(engine->file("tables"), nullptr);
    const std::string odd("\0\xFE\xFD'\"\n", 6);
    const std::string large(3000000, 'x');
    for (const auto& [key, record] : {std::pair(std::string("a"), std::string("1")),
                                      {"a", "2"},
                                      {"A", ""},
                                      {odd, odd},
                                      {"large", large}})
        file.write(key, record);
    engine->file("CONTRAT")->write("a", "other file");
    EXPECT_EQ(file.read("a"), "2");
    EXPECT_EQ(file.read("A"), "");
    EXPECT_EQ(file.read(odd), odd);
    EXPECT_EQ(file.read("large"), large);
    EXPECT_EQ(file.read(""), std::nullopt);
    EXPECT_TRUE(file.erase("a"));
    EXPECT_FALSE(file.erase("a"));
    EXPECT_EQ(file.read("a"), std::nullopt);
    EXPECT_EQ(engine->readMany({{"TABLES", "a"}, {"CONTRAT", "a"}, {"TABLES", odd}}),
              (std::vector<std::optional<std::string>>{std::nullopt, "other file", odd}));
    EXPECT_EQ(numberOf([&] { (void)engine->readMany({{"X", "a"}}); }), errors::FileUnknown);
}

TEST_P(StoreEngine, ScansInBinaryKeyOrder) {
    for (const char* const key : {"b", "a", "aa", "\xC3\xA9", "B", "a\x01", "\xFF"})
        file.write(key, "r");
    EXPECT_EQ(keys({}), "B=r a=r a\x01=r aa=r b=r \xC3\xA9=r \xFF=r ");
    EXPECT_EQ(keys({"a", "b"}), "a=r a\x01=r aa=r ");
    EXPECT_EQ(keys({"aa", std::nullopt}, 2), "aa=r b=r ");
    std::size_t seen = 0;
    file.scan(
        {"aa", std::nullopt}, [&](auto, auto) { return ++seen > 0; }, 2);
    EXPECT_EQ(seen, 2U);
    EXPECT_EQ(keys({"b", "a"}), "");
    const std::function<void()> works[] = {
        [] { throw Error(errors::Overflow, "x"); },
        [&] { (void)engine->file("CONTRAT")->read("x"); }, // no engine's work within a scan
        [&] { file.write("x", "y"); },
        [&] { file.erase("a"); },
        [&] { keys({}); },
        [&] { engine->atomically([] {}); },
    };
    for (const auto& work : works)
        EXPECT_EQ(numberOf([&] {
                      file.scan({}, [&](auto, auto) {
                          work();
                          return true;
                      });
                  }),
                  &work == works ? errors::Overflow : errors::StoreFailed);
    file.write("after", "r"); // nothing of the broken scan is in the way
    EXPECT_EQ(keys({"af", "b"}), "after=r ");
}

TEST_P(StoreEngine, TransactionsTakeEffectWholeOrNotAtAll) {
    file.write("kept", "old");
    file.write("erased", "old");
    const auto work = [&] {
        file.write("kept", "new");
        file.write("kept", "newer");
        file.write("fresh", "new");
        file.erase("fresh");
        file.write("fresh", "again");
        file.erase("erased");
        file.write("erased", "back");
        file.erase("erased");
        engine->file("CONTRAT")->write("k", "v");
    };
    const auto fail = [&] {
        work();
        throw Error(errors::Overflow, "x");
    };
    EXPECT_EQ(numberOf([&] { engine->atomically(fail); }), errors::Overflow);
    EXPECT_EQ(keys({}), "erased=old kept=old ");
    EXPECT_EQ(engine->file("CONTRAT")->read("k"), std::nullopt);
    engine->atomically(work);
    EXPECT_EQ(keys({}), "fresh=again kept=newer ");
    EXPECT_EQ(engine->file("CONTRAT")->read("k"), "v");
    EXPECT_EQ(numberOf([&] { engine->atomically([&] { engine->atomically([] {}); }); }),
              errors::StoreFailed);
    engine->atomically([&] { file.write("kept", "last"); });
    EXPECT_EQ(file.read("kept"), "last");
}

TEST_P(StoreEngine, AnotherConnectionReadsWhatOneWritesAndCanTellSo) {
    const auto other = engine->another();
    const std::uint64_t mine = engine->writesOfOthers();
    const std::uint64_t theirs = other->writesOfOthers();
    file.write("a", "1");
    EXPECT_EQ(other->file("TABLES")->read("a"), "1");
    EXPECT_NE(other->writesOfOthers(), theirs);
    EXPECT_THROW(other->atomically([&] {
        other->file("TABLES")->erase("a");
        throw 1;
    }),
                 int);
    EXPECT_EQ(engine->writesOfOthers(), mine);
    engine->atomically([&] {
        file.write("a", "2");
        if (GetParam() == std::string("memory")) { // the others would wait
            EXPECT_EQ(numberOf([&] { other->file("TABLES")->erase("a"); }), errors::Locked);
        }
    });
    EXPECT_TRUE(other->file("TABLES")->erase("a"));
    EXPECT_EQ(file.read("a"), std::nullopt); // with the answer comes the news
    EXPECT_NE(engine->writesOfOthers(), mine);
}

TEST_P(StoreEngine, RecordsAndFilesKeepTheStoreAlive) {
    records::DBARecord record;
    std::weak_ptr<Engine> watched = engine;
    {
        Store store(std::move(engine));
        record = store.OpenFile("TABLES")->NewRecord("A1");
    }
    record(2, 2) = "Zoé";
    record.DBWrite();
    EXPECT_FALSE(watched.expired());
    EXPECT_EQ(file.read("A1"), "\xFE\xFDZoé");
}

TEST_P(StoreEngine, RefusesWhatIsNoPlainText) {
    const auto opened = Store(engine).OpenFile("TABLES");
    EXPECT_EQ(numberOf([&] { (void)opened->ReadRecord("nobody"); }), errors::RecordMissing);
    EXPECT_EQ(numberOf([&] { (void)opened->ReadRecord(""); }), errors::KeyRefused);
    EXPECT_EQ(numberOf([&] { opened->WriteRecord("", "x"); }), errors::KeyRefused);
    EXPECT_EQ(numberOf([&] { (void)opened->ReadRecord("\xFE"); }), errors::TextRefused);
    EXPECT_EQ(numberOf([&] { (void)Store(engine).OpenFile("X"); }), errors::FileUnknown);
    for (const std::string bad : {"a\x01", "\xFF", "\xC3", "\xFC", "a\x7F"}) {
        EXPECT_EQ(numberOf([&] { (void)opened->ReadRecord(bad); }), errors::TextRefused);
        EXPECT_EQ(numberOf([&] { opened->DeleteRecord(bad); }), errors::TextRefused);
        EXPECT_EQ(numberOf([&] { opened->WriteRecord("k", "a\xFE" + bad); }), errors::TextRefused);
        EXPECT_EQ(file.read("k"), std::nullopt);
        file.write("damaged", "a\xFE\xFD" + bad);
        EXPECT_EQ(numberOf([&] { (void)opened->ReadRecord("damaged"); }), errors::Damaged);
    }
    opened->WriteRecord("l\"été", "\xFE\xFDé");
    const records::DBARecord back = opened->ReadRecord("l\"été");
    EXPECT_EQ(back(2, 2), "é");
}

TEST_P(StoreEngine, ARecordThatCouldNotBeReadIsNotReplaced) {
    const auto opened = Store(engine).OpenFile("TABLES");
    const auto read = [&] { return numberOf([&] { (void)opened->ReadRecord("k"); }); };
    const auto write = [&] { return numberOf([&] { opened->WriteRecord("k", "typed"); }); };
    file.write("k", "\x01");
    EXPECT_EQ(read(), errors::Damaged);
    file.write("k", "mended meanwhile");
    const auto typed = store_test::raisedBy([&] { opened->NewRecord("k").DBWrite(); });
    EXPECT_EQ(typed.number, errors::ReadHadFailed);
    EXPECT_NE(typed.text.find("« k »"), std::string::npos) << typed.text;
    EXPECT_EQ(numberOf([&] { opened->DeleteRecord("k"); }), errors::ReadHadFailed);
    EXPECT_EQ(file.read("k"), "mended meanwhile");
    opened->NewRecord("other").DBWrite();
    EXPECT_EQ(read(), 0U);
    EXPECT_EQ(write(), 0U);

    file.write("k", "\x01");
    EXPECT_EQ(read(), errors::Damaged);
    EXPECT_EQ(write(), errors::ReadHadFailed);
    file.erase("k");
    EXPECT_EQ(read(), errors::RecordMissing);
    EXPECT_EQ(write(), 0U);
    EXPECT_EQ(file.read("k"), "typed");
}

// The history of records: kept with each change, in its transaction.
class StoreHistory : public StoreEngine {
  protected:
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
            // A server adds who told it so.
            const std::string user = version.user.substr(0, version.user.find(" @ "));
            text +=
                version.moment.substr(18) + " " + user + " " + version.record.value_or("-") + ", ";
        }
        return text;
    }
};

TEST_P(StoreHistory, KeepsWhatWasBeforeEachChangeWithMomentAndUser) {
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
    // Put back, the clock dates nothing before what was there already; another record is dated by
    // it.
    clock -= 3'600'000'000;
    put("é", "quatre");
    clock += 3'599'000'000;
    put("é", "cinq");
    put("e", "un");
    EXPECT_EQ(told("é") + told("e"), "5.567890Z karim trois, 5.567891Z karim -, "
                                     "5.567892Z karim quatre, 4.567890Z karim -, ");
}

// A load leaves no creations, save where the record was known: it must not seem to be the one that
// was deleted.
TEST_P(StoreHistory, OfALoadIsThatOfReplacedRecords) {
    store.changes().keepUnchanged(false);
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
    put("k", "trois"); // as it is
    EXPECT_EQ(store.changes().history("TABLES", "k").size(), 3U);
}

TEST_P(StoreHistory, IsOfTheTransactionOfItsChangeAndPrunedInManySteps) {
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

INSTANTIATE_TEST_SUITE_P(Engines, StoreHistory, testing::ValuesIn(store_test::Kinds), named);

} // namespace
} // namespace vorandine::store
