// The record as its users write it: what reading, writing and rebinding give and leave.
#include "data/DBAFile.h"
#include "text/Error.h"

#include <gtest/gtest.h>

#include <map>
#include <type_traits>

namespace vorandine::data {
namespace {

// A file that remembers what was written.
class Shelf : public DBAFile {
  public:
    std::map<std::string, std::string> records;

    [[nodiscard]] DBARecord ReadRecord(const std::string& key) override {
        const auto found = records.find(key);
        if (found == records.end())
            throw Error(errors::RecordMissing, "absent");
        return {shared_from_this(), key, found->second};
    }
    void DeleteRecord(const std::string& key) override { records.erase(key); }
    void WriteRecord(const std::string& key, std::string_view text) override {
        records[key] = std::string(text);
    }
};

// Separators as one reads them: ^ between attributes, ] between values.
std::string marks(std::string text) {
    for (char& c : text)
        c = c == '^' ? AttributeMark : c == ']' ? ValueMark : c;
    return text;
}

DBARecord record(const std::string& text) {
    return {nullptr, "", marks(text)};
}

TEST(Record, ReadsWhatIsThereAndNothingBeyond) {
    const DBARecord rec = record("LEROY^^a]b]]d^x");
    EXPECT_EQ(rec(), marks("LEROY^^a]b]]d^x"));
    EXPECT_EQ(rec(1), "LEROY");
    EXPECT_EQ(rec(3), marks("a]b]]d"));
    EXPECT_EQ(rec(3, 2), "b");
    for (const int a : {0, -1, 2, 5, 99})
        EXPECT_EQ(rec(a), "") << a;
    for (const int v : {0, -1, 3, 5, 99})
        EXPECT_EQ(rec(3, v), "") << v;
    EXPECT_EQ(rec.DCount(), 4);
    EXPECT_EQ(rec.DCount(1), 1);
    EXPECT_EQ(rec.DCount(2), 0);
    EXPECT_EQ(rec.DCount(3), 4);
    EXPECT_EQ(rec.DCount(9), 0);
}

TEST(Record, WritingGivesTheTextExpected) {
    const struct {
        const char* what;
        const char* before;
        void (*write)(DBARecord&);
        const char* after;
    } cases[] = {
        {"whole", "a^b", [](DBARecord& r) { r() = marks("c]d^^"); }, "c]d"},
        {"attribute", "a^b", [](DBARecord& r) { r(1) = marks("x]y"); }, "x]y^b"},
        {"attribute past the end", "a", [](DBARecord& r) { r(3) = "c"; }, "a^^c"},
        {"empty past the end", "a", [](DBARecord& r) { r(3) = ""; }, "a"},
        {"value", "a]b]c", [](DBARecord& r) { r(1, 2) = "x"; }, "a]x]c"},
        {"value past the end", "a", [](DBARecord& r) { r(1, 3) = "x"; }, "a]]x"},
        {"empty value past the end", "a", [](DBARecord& r) { r(1, 3) = ""; }, "a]]"},
        {"append", "a]b", [](DBARecord& r) { r(1, -1) = "c"; }, "a]b]c"},
        {"append to nothing", "", [](DBARecord& r) { r(2, -1) = "c"; }, "^c"},
        {"insert first", "a]b", [](DBARecord& r) { r.Insert(1, 1) = "x"; }, "x]a]b"},
        {"insert between", "a]b", [](DBARecord& r) { r.Insert(1, 2) = "x"; }, "a]x]b"},
        {"insert past the end", "a", [](DBARecord& r) { r.Insert(1, 3) = "x"; }, "a]]x"},
        {"delete first", "a]b]c^z", [](DBARecord& r) { r.Delete(1, 1); }, "b]c^z"},
        {"delete last", "a]b]c^z", [](DBARecord& r) { r.Delete(1, 3); }, "a]b^z"},
        {"delete nothing", "a]b",
         [](DBARecord& r) {
             r.Delete(1, 3);
             r.Delete(4, 1);
             r.Delete(1, 0);
         },
         "a]b"},
        {"delete all", "a]b^z",
         [](DBARecord& r) {
             r.Delete(1, 1);
             r.Delete(1, 1);
         },
         "^z"},
        {"copy within", "a]b^c",
         [](DBARecord& r) {
             r(2) = r(1);
             r(1, 1) = r(1, 2);
         },
         "b]b^a]b"},
    };
    for (const auto& [what, before, write, after] : cases) {
        DBARecord rec = record(before);
        write(rec);
        EXPECT_EQ(std::as_const(rec)(), marks(after)) << what;
    }
}

TEST(Record, EmptyValuesCountOnceMoreThanOneStands) {
    DBARecord rec;
    for (int i = 0; i < 7; ++i)
        rec(2, -1) = i == 3 ? "x" : "";
    EXPECT_EQ(rec.DCount(2), 7);
    EXPECT_EQ(std::as_const(rec)(2, 4), "x");
    EXPECT_EQ(std::as_const(rec)(), marks("^]]]x]]]"));

    // A single empty value reads back as none.
    DBARecord single;
    single(1, -1) = "";
    EXPECT_EQ(single.DCount(1), 0);
    EXPECT_EQ(std::as_const(single)(), "");
}

TEST(Record, ARefusedWriteLeavesTheRecordAsItWas) {
    const struct {
        const char* what;
        void (*write)(DBARecord&);
        std::uint32_t error;
    } cases[] = {
        {"attribute 0", [](DBARecord& r) { r(0) = "x"; }, errors::OutOfRange},
        {"value 0", [](DBARecord& r) { r(9, 0) = "x"; }, errors::OutOfRange},
        {"value -2", [](DBARecord& r) { r(9, -2) = "x"; }, errors::OutOfRange},
        {"insert at -1", [](DBARecord& r) { r.Insert(9, -1) = "x"; }, errors::OutOfRange},
        {"append to attribute 0", [](DBARecord& r) { r(0, -1) = "x"; }, errors::OutOfRange},
        {"value with a mark", [](DBARecord& r) { r(9, 1) = marks("x]y"); }, errors::TextRefused},
        {"inserted mark", [](DBARecord& r) { r.Insert(9, 1) = marks("^"); }, errors::TextRefused},
        {"attribute with a mark", [](DBARecord& r) { r(9) = marks("x^y"); }, errors::TextRefused},
        {"write without a file", [](DBARecord& r) { r.DBWrite(); }, errors::FreeRecord},
    };
    for (const auto& [what, write, number] : cases) {
        DBARecord rec = record("a]b^c");
        try {
            write(rec);
            ADD_FAILURE() << what;
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), number) << what;
        }
        EXPECT_EQ(std::as_const(rec)(), marks("a]b^c")) << what;
        EXPECT_EQ(rec.DCount(), 2) << what;
    }
}

static_assert(!std::is_copy_assignable_v<DBARecord> && !std::is_copy_constructible_v<DBARecord>,
              "assigning one named record to another could only alias");

TEST(Record, RebindingIsNotCopying) {
    const auto file = std::make_shared<Shelf>();
    file->records = {{"1", marks("a^b")}, {"2", "z"}};
    DBARecord one = file->ReadRecord("1");
    DBARecord two = file->ReadRecord("2");

    // The content is copied: key and file stay.
    one() = two();
    one.DBWrite();
    EXPECT_EQ(file->records["1"], "z");
    EXPECT_EQ(one.key(), "1");
    two(1) = "changed";
    EXPECT_EQ(std::as_const(one)(1), "z");

    // The record is bound anew: what is written goes to the other key, as that stood.
    one = file->ReadRecord("2");
    one(2) = "é";
    one.DBWrite();
    EXPECT_EQ(file->records["2"], marks("z^é"));
    EXPECT_EQ(file->records["1"], "z");

    DBARecord given = std::move(one);
    EXPECT_EQ(given.key(), "2");
    // NOLINTNEXTLINE(bugprone-use-after-move): the record given away is free and empty.
    EXPECT_EQ(std::as_const(one)(), "");
    EXPECT_EQ(one.DCount(), 0);
    EXPECT_THROW(one.DBWrite(), Error);

    given() = "";
    given.DBWrite();
    EXPECT_EQ(file->records["2"], "");
}

TEST(Record, ARecordKeepsItsFileAlive) {
    auto file = std::make_shared<Shelf>();
    const std::weak_ptr<Shelf> watch = file;
    {
        DBARecord rec = file->NewRecord("n");
        EXPECT_TRUE(file->records.empty());
        file.reset();
        rec(1) = "x";
        rec.DBWrite();
        ASSERT_FALSE(watch.expired());
        EXPECT_EQ(watch.lock()->records["n"], "x");
    }
    EXPECT_TRUE(watch.expired());
}

} // namespace
} // namespace vorandine::data
