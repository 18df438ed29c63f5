// What the files of a store hold, attribute by attribute: one table for all commands that must know
// more of a value than its text. docs/store.md tells the same to people.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace vorandine::dba {

enum class Kind {
    Text,
    Date,          // yyyymmdd
    Hours,         // whole hundredths of an hour, not below zero
    Balance,       // likewise, may be below zero
    Figure,        // a number with a decimal comma
    Whole,         // digits
    Period,        // yyyymm
    Choice,        // one of `choices`
    Study,         // a code of TABLES DIPLOMES
    Training,      // a code of TABLES FORMPRO
    Qualification, // an entry of TABLES QUALIF
    Activity,      // a key of ACTIVITES, or one of `choices`
    Employer,      // a key of ASSOCIATION or CIVILAIDE
};

// How many values an attribute has.
enum class Values { One, Many };

// How the values of a list of dates follow each other; empty ones stand anywhere in a rising list,
// and last in a falling one.
enum class Order { Free, Rising, Falling };

struct AttributeLayout {
    int attribute;
    Kind kind;
    Values values;
    std::string_view meaning;
    int countedBy = 0;             // the list of the same lines that tells how many there are
    std::string_view choices = {}; // with blanks between
    Order order = Order::Free;
};

// The known attributes of a file, ascending; none for a file that is unknown.
[[nodiscard]] std::span<const AttributeLayout> layout(std::string_view file) noexcept;

// The one of that number; null where nothing is known of it.
[[nodiscard]] const AttributeLayout* layout(std::string_view file, int attribute) noexcept;

// The attribute that a word of the command line names, by its number or by its dictionary name.
// Throws UsageError.
[[nodiscard]] int attributeOf(std::string_view file, const std::string& word);

// What a column of the attribute is headed with: its dictionary name, or its number.
[[nodiscard]] std::string headOf(std::string_view file, int attribute);

} // namespace vorandine::dba
