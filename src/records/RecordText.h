// A record's whole text, read where it lies: attributes found by counting separators, never by
// splitting the record.
#pragma once

#include <string>
#include <string_view>

namespace vorandine::records {

// Finds attributes of one record. Asked for ascending numbers, it passes over the record once.
class AttributeCursor {
  public:
    // Reads `record`, a whole text of any bytes, where it lies.
    explicit AttributeCursor(std::string_view record) noexcept
        : record_(record), at_(record.data()) {}

    // The text of attribute `number` (from 1), which lies in the record; empty if there is none.
    [[nodiscard]] std::string_view text(int number) noexcept;

  private:
    std::string_view record_;
    const char* at_; // where attribute next_ begins; null where the record ends before it
    int next_ = 1;
};

// The text of one attribute; empty if there is none. The view lies in `record`.
[[nodiscard]] inline std::string_view attributeText(std::string_view record, int number) noexcept {
    return AttributeCursor(record).text(number);
}

// Whether all values of a record's whole text are plain (text::IsPlain): UTF-8 without control
// characters between the separators of attributes and values, and no other byte.
[[nodiscard]] bool isPlainRecord(std::string_view record) noexcept;

// The same of a request's result, in which SubvalueMark separates too.
[[nodiscard]] bool isPlainResult(std::string_view result) noexcept;

// Whether the key of a record and the record are both plain: what can be shown and stored anew.
[[nodiscard]] bool isPlainEntry(std::string_view key, std::string_view record) noexcept;

// A key as complaints show it, which may be damaged.
[[nodiscard]] std::string shownKey(std::string_view key);

} // namespace vorandine::records
