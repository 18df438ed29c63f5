// What the files of a store hold, attribute by attribute: the one description that the store, the
// screens, the checks and the exchange read. docs/store.md tells the same to people.
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
    std::string_view dictionaryName = {}; // by which requests may call it; "" if they may not
    int countedBy = 0;             // the list of the same lines that tells how many there are
    std::string_view choices = {}; // with blanks between
    Order order = Order::Free;
};

struct FileLayout {
    std::string_view name;
    std::span<const AttributeLayout> attributes; // those that this system knows, ascending
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
