// Controls that are typed in: the text box, and the combo box, which has entries beside its text.
#pragma once

#include "widgets/Control.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::widgets {

// The code that KeyPress gets for the backspace key.
constexpr char32_t BackspaceKey = 8;

// Text, caret and selection count characters. The caret stands before the character of its number,
// from 0 to the length.
class TextField : public Control {
  public:
    [[nodiscard]] std::string Text() const;
    // Puts the caret at the end. Runs Change if the text changes. MaxLength does not bind code.
    virtual void Text(std::string_view text);

    [[nodiscard]] bool empty() const noexcept { return characters_.empty(); }
    [[nodiscard]] std::size_t length() const noexcept { return characters_.size(); }
    [[nodiscard]] std::size_t caret() const noexcept { return caret_; }
    // The other end of the selection; the caret's place where nothing is selected.
    [[nodiscard]] std::size_t anchor() const noexcept { return anchor_; }
    [[nodiscard]] std::string selectedText() const;

    // At most this many characters can be typed or pasted; 0 means any number.
    [[nodiscard]] std::size_t MaxLength() const noexcept { return maxLength_; }
    void MaxLength(std::size_t characters) noexcept { maxLength_ = characters; }

    // Whether a user can type here at all.
    [[nodiscard]] virtual bool editable() const noexcept { return true; }

    // The key rule: may replace the character typed; 0 drops it.
    std::function<void(char32_t& key)> KeyPress;
    std::function<void()> Change;

    // What a user does. Each replaces the selection, if there is one.
    void typeCharacter(char32_t character); // KeyPress first; control characters are dropped
    void pressBackspace();                  // KeyPress first, with BackspaceKey
    void pressDelete();
    // Line breaks and tabs become blanks, other control characters are left out, what is longer
    // than MaxLength is cut.
    void paste(std::string_view text);
    // Puts back what stood here before the last run of typing or other edit; again: undoes that.
    // Nothing happens if code has set the text since.
    void undo();
    void select(std::size_t from, std::size_t to) noexcept; // the caret ends at `to`
    void selectAll() noexcept { select(0, characters_.size()); }
    void caretToEnd() noexcept { select(characters_.size(), characters_.size()); }

  protected:
    void changed();

  private:
    std::u32string characters_;
    std::size_t caret_ = 0;
    std::size_t anchor_ = 0; // the other end of the selection
    std::size_t maxLength_ = 0;

    struct Before {
        std::u32string characters;
        std::size_t typedTo = 0; // where the caret was after the last character typed; 0: none was
    };
    std::optional<Before> before_; // the last edit

    void remember(bool typing);
    void replace(std::size_t from, std::size_t to, std::u32string_view with);
    void replaceSelection(std::u32string_view with);
};

class TextBox : public TextField {
  public:
    [[nodiscard]] Kind kind() noexcept override { return this; }
    [[nodiscard]] ConstKind kind() const noexcept override { return this; }
};

class ComboBox : public TextField {
  public:
    [[nodiscard]] Kind kind() noexcept override { return this; }
    [[nodiscard]] ConstKind kind() const noexcept override { return this; }

    // A drop-down list takes no typing: its text is one of its entries or "".
    void dropDownList(bool only) noexcept { dropDownList_ = only; }
    [[nodiscard]] bool editable() const noexcept override { return !dropDownList_; }
    // Sorted entries stand in French order, equal ones in the order added.
    void sorted(bool sorted) noexcept { sorted_ = sorted; }

    // Throws Error(NotAnEntry) for a text that a drop-down list does not hold.
    void Text(std::string_view text) override;
    using TextField::Text;

    // Another number whenever entries have come or gone: for who mirrors them.
    [[nodiscard]] std::uint64_t revision() const noexcept { return revision_; }
    void AddItem(std::string entry); // throws Error(TooManyLines) beyond MaxLines
    void Clear();                    // the text too
    [[nodiscard]] int ListCount() const noexcept { return static_cast<int>(entries_.size()); }
    // Past the end "", below 0 Error(OutOfRange).
    [[nodiscard]] std::string List(int i) const;
    // The first entry equal to the text, -1 if there is none.
    [[nodiscard]] int ListIndex() const;
    // Puts entry `i` in the text, or "" for -1, and runs Click if the index changes.
    void ListIndex(int i);

    std::function<void()> Click;

  private:
    struct Entry {
        std::string text;
        std::string order;
    };
    std::vector<Entry> entries_;
    std::uint64_t revision_ = 0;
    bool dropDownList_ = false;
    bool sorted_ = false;
};

} // namespace vorandine::widgets
