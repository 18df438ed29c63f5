// The record as its users write it: what copying and rebinding give and leave. Single reads and
// writes are held against a plain table by fuzz/fuzz_record.cpp.
#include "ports/Database.h"
#include "store_support.h"
#include "text/Error.h"

#include <gtest/gtest.h>

#include <map>
#include <type_traits>

namespace vorandine::records {
namespace {

// A file that remembers what was written.
class Shelf : public ports::DBAFile {
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

TEST(Record, CopiesAndDeletesWithinItself) {
    DBARecord rec = record("a]b^c");
    rec(2) = rec(1);
    rec(1, 1) = rec(1, 2);
    EXPECT_EQ(std::as_const(rec)(), marks("b]b^a]b"));
    // Behind the place of the last insertion.
    rec.Insert(2, 1) = "x";
    rec.Delete(2, 3);
    EXPECT_EQ(std::as_const(rec)(), marks("b]b^x]a"));
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
    EXPECT_EQ(store_test::raisedBy([&] { one.DBWrite(); }).number, errors::FreeRecord);

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
} // namespace vorandine::records
