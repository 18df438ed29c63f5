// What every engine promises, and what files and records of a store promise over any engine.
#include "records/Layout.h"
#include "store/Store.h"
#include "store/memory/MemoryEngine.h"
#include "store_support.h"

#include <gtest/gtest.h>
#include <optional>

namespace vorandine::store {
namespace {

using store_test::raisedBy;

class StoreEngine : public testing::TestWithParam<const char*> {
  protected:
    store_test::Folder folder;
    std::string url =
        std::string(GetParam()) + (std::string(GetParam()) == "memory:" ? "" : folder / "base.vor");
    std::shared_ptr<Engine> engine = openEngine(url, OpenMode::Create);
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

INSTANTIATE_TEST_SUITE_P(Engines, StoreEngine, testing::Values("memory:", "sqlite:"),
                         [](const auto& engine) {
                             return std::string(engine.param, std::string(engine.param).size() - 1);
                         });

TEST_P(StoreEngine, HasAllFilesOfTheCatalogue) {
    std::vector<std::string> expected;
    for (const records::FileLayout& known : records::files())
        expected.emplace_back(known.name);
    EXPECT_EQ(engine->files(), expected);
    EXPECT_EQ(engine->file("tables"), nullptr);
    for (const std::string& name : expected)
        EXPECT_EQ(engine->file(name)->read("x"), std::nullopt) << name;
}

TEST_P(StoreEngine, KeepsBytesByKey) {
    const std::string odd("\0\xFE\xFD'\"\n", 6);
    const std::string large(3000000, 'x');
    file.write("a", "1");
    file.write("a", "2");
    file.write("A", "");
    file.write(odd, odd);
    file.write("large", large);
    engine->file("CONTRAT")->write("a", "other file");
    EXPECT_EQ(file.read("a"), "2");
    EXPECT_EQ(file.read("A"), "");
    EXPECT_EQ(file.read(odd), odd);
    EXPECT_EQ(file.read("large"), large);
    EXPECT_EQ(file.read(""), std::nullopt);
    EXPECT_TRUE(file.erase("a"));
    EXPECT_FALSE(file.erase("a"));
    EXPECT_EQ(file.read("a"), std::nullopt);
    EXPECT_EQ(engine->file("CONTRAT")->read("a"), "other file");
}

TEST_P(StoreEngine, ScansInBinaryKeyOrder) {
    for (const char* const key : {"b", "a", "aa", "\xC3\xA9", "B", "a\x01", "\xFF"})
        file.write(key, "r");
    EXPECT_EQ(keys({}), "B=r a=r a\x01=r aa=r b=r \xC3\xA9=r \xFF=r ");
    EXPECT_EQ(keys({"a", "b"}), "a=r a\x01=r aa=r ");
    EXPECT_EQ(keys({"aa", std::nullopt}, 2), "aa=r b=r ");
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
        EXPECT_EQ(raisedBy([&] {
                      file.scan({}, [&](auto, auto) {
                          work();
                          return true;
                      });
                  }).number,
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
    EXPECT_EQ(raisedBy([&] {
                  engine->atomically([&] {
                      work();
                      throw Error(errors::Overflow, "x");
                  });
              }).number,
              errors::Overflow);
    EXPECT_EQ(keys({}), "erased=old kept=old ");
    EXPECT_EQ(engine->file("CONTRAT")->read("k"), std::nullopt);
    engine->atomically(work);
    EXPECT_EQ(keys({}), "fresh=again kept=newer ");
    EXPECT_EQ(engine->file("CONTRAT")->read("k"), "v");
    EXPECT_EQ(raisedBy([&] { engine->atomically([&] { engine->atomically([] {}); }); }).number,
              errors::StoreFailed);
    engine->atomically([&] { file.write("kept", "last"); });
    EXPECT_EQ(file.read("kept"), "last");
}

TEST_P(StoreEngine, RecordsAndFilesKeepTheStoreAlive) {
    records::DBARecord record;
    std::weak_ptr<Engine> watched = engine;
    {
        Store store(std::move(engine));
        record = store.OpenFile("FORMVORANDINE")->NewRecord("A1");
    }
    record(10, 2) = std::string("Zoé");
    record.DBWrite();
    EXPECT_FALSE(watched.expired());
    const auto readBack = Store(watched.lock()).OpenFile("FORMVORANDINE")->ReadRecord("A1");
    EXPECT_EQ(readBack(10, 2), "Zoé");
    EXPECT_EQ(readBack.DCount(), 10);
}

TEST_P(StoreEngine, RefusesWhatIsNoPlainText) {
    const auto opened = Store(engine).OpenFile("TABLES");
    EXPECT_EQ(raisedBy([&] { (void)opened->ReadRecord("nobody"); }).number, errors::RecordMissing);
    EXPECT_EQ(raisedBy([&] { (void)opened->ReadRecord(""); }).number, errors::KeyRefused);
    EXPECT_EQ(raisedBy([&] { opened->WriteRecord("", "x"); }).number, errors::KeyRefused);
    for (const char* const bad : {"a\x01", "\xFF", "\xC3", "\xFC", "a\x7F"}) {
        EXPECT_EQ(raisedBy([&] { (void)opened->ReadRecord(bad); }).number, errors::TextRefused);
        EXPECT_EQ(raisedBy([&] { opened->DeleteRecord(bad); }).number, errors::TextRefused);
        EXPECT_EQ(raisedBy([&] { opened->WriteRecord("k", std::string("a\xFE") + bad); }).number,
                  errors::TextRefused);
        EXPECT_EQ(file.read("k"), std::nullopt);
        file.write("damaged", std::string("a\xFE\xFD") + bad);
        EXPECT_EQ(raisedBy([&] { (void)opened->ReadRecord("damaged"); }).number, errors::Damaged);
    }
    EXPECT_EQ(raisedBy([&] { (void)opened->ReadRecord("\xFE"); }).number, errors::TextRefused);
    opened->WriteRecord("l\"été", "\xFE\xFD"
                                  "é");
    EXPECT_EQ(
        std::as_const(*std::make_unique<records::DBARecord>(opened->ReadRecord("l\"été")))(2, 2),
        "é");
    EXPECT_EQ(raisedBy([&] { (void)Store(engine).OpenFile("X"); }).number, errors::FileUnknown);
}

// An engine whose only file can be told to fail.
class FailingEngine : public Engine, private EngineFile {
  public:
    bool failing = false;
    std::optional<std::string> record = "stored";

    EngineFile* file(const std::string& name) override { return name == "TABLES" ? this : nullptr; }
    std::vector<std::string> files() override { return {"TABLES"}; }
    void atomically(const std::function<void()>& work) override { work(); }

  private:
    std::optional<std::string> read(std::string_view) override {
        if (failing)
            throw Error(errors::Locked, "x");
        return record;
    }
    std::optional<std::string> write(std::string_view, std::string_view text) override {
        return std::exchange(record, text);
    }
    std::optional<std::string> erase(std::string_view) override {
        return std::exchange(record, std::nullopt);
    }
    void scan(const KeyRange&, const Visitor&) override {}
};

TEST(StoreFiles, ARecordThatCouldNotBeReadIsNotReplaced) {
    const auto engine = std::make_shared<FailingEngine>();
    const auto file = Store(engine).OpenFile("TABLES");
    engine->failing = true;
    EXPECT_EQ(raisedBy([&] { (void)file->ReadRecord("k"); }).number, errors::Locked);
    engine->failing = false;
    const auto typed = raisedBy([&] {
        auto record = file->NewRecord("k");
        record(1) = std::string("typed");
        record.DBWrite();
    });
    EXPECT_EQ(typed.number, errors::ReadHadFailed);
    EXPECT_NE(typed.text.find("« k »"), std::string::npos);
    EXPECT_EQ(raisedBy([&] { file->DeleteRecord("k"); }).number, errors::ReadHadFailed);
    EXPECT_EQ(engine->record, "stored");
    file->NewRecord("other").DBWrite();
    engine->record = "stored";

    (void)file->ReadRecord("k"); // found
    file->WriteRecord("k", "typed");
    EXPECT_EQ(engine->record, "typed");

    engine->record = "\x01";
    EXPECT_EQ(raisedBy([&] { (void)file->ReadRecord("k"); }).number, errors::Damaged);
    EXPECT_EQ(raisedBy([&] { file->WriteRecord("k", "x"); }).number, errors::ReadHadFailed);
    engine->record.reset();
    EXPECT_EQ(raisedBy([&] { (void)file->ReadRecord("k"); }).number, errors::RecordMissing);
    file->WriteRecord("k", "typed");
    EXPECT_EQ(engine->record, "typed");
}

} // namespace
} // namespace vorandine::store
