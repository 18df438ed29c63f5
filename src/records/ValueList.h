// The values of one attribute of a record, in a gap buffer: whoever walks an attribute and reads,
// sets, inserts or deletes as he goes pays for the step he takes, not for the values behind him.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorandine::records {

// Positions count from 0. An attribute read from a record stays one text until a value is asked
// for. All members may throw std::bad_alloc and then leave the list as it was.
class ValueList {
  public:
    ValueList() = default;
    // `text` is the attribute's text: values with 0xFD between them; "" is no value at all.
    explicit ValueList(std::string text) : text_(std::move(text)), split_(text_.empty()) {}

    // Number of values kept, a single empty one included.
    [[nodiscard]] std::size_t size() const;
    // Whether the text is empty: no value, or a single empty one.
    [[nodiscard]] bool empty() const;
    // The value at `i`, "" past the end.
    [[nodiscard]] std::string_view at(std::size_t i) const;
    [[nodiscard]] std::string text() const;

    // Sets the value at `i`, extending with empty ones.
    void set(std::size_t i, std::string value);
    // Puts a value before the one at `i`, extending with empty ones if there is none.
    void insert(std::size_t i, std::string value);
    // Takes out the value at `i`; nothing past the end.
    void erase(std::size_t i);

  private:
    mutable std::string text_;
    mutable std::vector<std::string> slots_; // values, with a gap of unused slots among them
    mutable std::size_t gapBegin_ = 0;
    mutable std::size_t gapEnd_ = 0;
    mutable bool split_ = true;

    void split() const;
    [[nodiscard]] std::size_t count() const { return slots_.size() - (gapEnd_ - gapBegin_); }
    [[nodiscard]] const std::string& slot(std::size_t i) const {
        return slots_[i < gapBegin_ ? i : i + (gapEnd_ - gapBegin_)];
    }
    void moveGap(std::size_t to);
    void open(std::size_t i, std::size_t many);
};

} // namespace vorandine::records
