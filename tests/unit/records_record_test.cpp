// The record as its users write it: what copying and rebinding give and leave. Single reads and
// writes are held against a plain table by fuzz/fuzz_record.cpp.
#include "store/Store.h"
#include "store_support.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace vorandine::records {
namespace {

using store_test::marks;

TEST(Record, CopiesAndDeletesWithinItself) {
    DBARecord record(nullptr, "", marks("a]b^c"));
    record(2) = record(1);
    record(1, 1) = record(1, 2);
    EXPECT_EQ(std::as_const(record)(), marks("b]b^a]b"));
    // Behind the place of the last insertion.
    record.Insert(2, 1) = "x";
    record.Delete(2, 3);
    EXPECT_EQ(std::as_const(record)(), marks("b]b^x]a"));
}

static_assert(!std::is_copy_assignable_v<DBARecord> && !std::is_copy_constructible_v<DBARecord>,
              "assigning one named record to another could only alias");

TEST(Record, RebindingIsNotCopying) {
    const std::shared_ptr engine = store::openEngine("memory:", store::OpenMode::Create);
    const auto file = store::Store(engine).OpenFile("TABLES");
    const auto stored = [&](const char* key) { return engine->file("TABLES")->read(key); };
    file->WriteRecord("1", marks("a^b"));
    file->WriteRecord("2", "z");
    DBARecord one = file->ReadRecord("1");
    DBARecord two = file->ReadRecord("2");
    // The content is copied: key and file stay.
    one() = two();
    two(1) = "changed";
    one.DBWrite();
    EXPECT_EQ(stored("1"), "z");
    // The record is bound anew: what is written goes to the other key, as that stood.
    one = file->ReadRecord("2");
    one(2) = "é";
    DBARecord given = std::move(one);
    given.DBWrite();
    EXPECT_EQ(stored("2"), marks("z^é"));
    EXPECT_EQ(stored("1"), "z");
    // NOLINTNEXTLINE(bugprone-use-after-move): the record given away is free and empty.
    EXPECT_EQ(std::as_const(one)(), "");
    EXPECT_EQ(store_test::numberOf([&] { one.DBWrite(); }), errors::FreeRecord);
}

} // namespace
} // namespace vorandine::records
