// What the files of a store hold, attribute by attribute: the one description that the store, the
// requests, the checks, the history and the exchange read. docs/store.md tells the same to people.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vorandine::records {

// Above any attribute that a record may reasonably have.
constexpr int LastAttribute = 65535;

enum class Kind {
    Text,
    Date,          // yyyymmdd
    Hours,         // whole hundredths of an hour, not below zero
    Balance,       // likewise, may be below zero
    Figure,        // a number with a decimal comma
    Whole,         // digits
    Period,        // yyyymm
    Choice,        // one of `choices`
    Study,         // a code of table::Diplomas
    Training,      // a code of table::Trainings
    Qualification, // an entry of table::Qualifications
    Activity,      // a key of ACTIVITES, or one of `choices`
    Employer,      // a key of ASSOCIATION or CIVILAIDE
};

// How many values an attribute has, and what makes one of them the same in another record.
enum class Values {
    One,
    Lines,     // value i belongs to line i, as value i of the other attributes of its unit does
    Positions, // value i is the i-th of a fixed number
    Set,       // each value once, in an order that is kept
};

// How the values of a list of dates follow each other; empty ones stand anywhere in a rising list,
// and last in a falling one.
enum class Order { Free, Rising, Falling };

struct AttributeLayout {
    int attribute;
    Kind kind;
    std::string_view meaning;
    std::string_view dictionaryName = {}; // by which requests may call it; "" if they may not
    std::string_view choices = {};        // with blanks between
    Values values = Values::One;
    // The attributes, this one among them, that make one thing: the lists of the same lines, of
    // which the first counts them, or single values that say nothing apart. Empty: it stands alone.
    std::span<const int> unit = {};
    Order order = Order::Free;
    int counter = 0; // of lines: which list of the unit tells how many there are; 0: the first

    [[nodiscard]] constexpr bool list() const noexcept { return values != Values::One; }
    // The list that tells how many lines there are; 0 where values are no lines.
    [[nodiscard]] constexpr int countedBy() const noexcept {
        return values != Values::Lines ? 0 : counter != 0 ? counter : unit.front();
    }
};

struct FileLayout {
    std::string_view name;
    std::span<const AttributeLayout> attributes; // ascending; any other is kept as it is
};

// The files that every store has from the start, sorted by name.
[[nodiscard]] std::span<const FileLayout> files() noexcept;

// The known attributes of a file, ascending; none for a file that is unknown.
[[nodiscard]] std::span<const AttributeLayout> layout(std::string_view file) noexcept;

// The one of that number; null where nothing is known of it.
[[nodiscard]] const AttributeLayout* layout(std::string_view file, int attribute) noexcept;

// The attribute that `name` stands for in requests to `file`; none if the file or the name is
// unknown. Names are letter for letter.
[[nodiscard]] std::optional<int> dictionaryAttribute(std::string_view file,
                                                     std::string_view name) noexcept;

// What a column of the attribute is headed with: its dictionary name, or its number.
[[nodiscard]] std::string headOf(std::string_view file, int attribute);

} // namespace vorandine::records
