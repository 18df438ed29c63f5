// The list box: lines, one current line, and where several can be selected the selection.
#pragma once

#include "widgets/Control.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vorandine::widgets {

// Positions and counters of lists are 16 bits wide.
constexpr int MaxLines = 32767;

// A part of each line, where lines are made of fixed columns, and where on the list it is shown.
struct ListColumn {
    std::size_t first = 1; // its first character, counted from 1
    std::size_t length = 0;
    int left = 0; // in twips from the list's left edge
    int right = 0;
    bool figure = false; // stands at the right; a negative one is set off
};

// Lines count from 0. An index out of range throws Error(OutOfRange) and changes nothing, save that
// reading a line past the end gives "".
class ListBox : public Control {
  public:
    [[nodiscard]] Kind kind() noexcept override { return this; }
    [[nodiscard]] ConstKind kind() const noexcept override { return this; }

    [[nodiscard]] int ListCount() const noexcept { return static_cast<int>(lines_.size()); }
    [[nodiscard]] std::string List(int i) const;
    void List(int i, std::string line);

    // Adds a line at the end or before line `i`. Throws Error(TooManyLines) at MaxLines.
    void AddItem(std::string line);
    void AddItem(std::string line, int i);
    // The selection stays on its line; removing the current line leaves -1. No Click.
    void RemoveItem(int i);
    // Leaves -1. No Click.
    void Clear() noexcept;

    // From left to right; none where a line is one text, as it is unless told otherwise.
    [[nodiscard]] const std::vector<ListColumn>& columns() const noexcept { return columns_; }
    void columns(std::vector<ListColumn> columns) { columns_ = std::move(columns); }
    // What stands in each column of line `i`, blanks at both ends left out. Empty for a line that
    // reaches beyond the columns: something in it is too wide, and it is to be shown as one text.
    [[nodiscard]] std::vector<std::string> inColumns(int i) const;

    // Another number whenever lines have come, gone or changed: for who mirrors them.
    [[nodiscard]] std::uint64_t revision() const noexcept { return revision_; }

    // The current line, -1 if there is none. Setting it from code runs Click if it changes.
    [[nodiscard]] int ListIndex() const noexcept { return current_; }
    void ListIndex(int i);

    // Whether several lines can be selected. Else the selected line is the current one.
    [[nodiscard]] bool multiSelect() const noexcept { return multi_; }
    void multiSelect(bool multi) noexcept { multi_ = multi; }
    [[nodiscard]] bool Selected(int i) const;
    // Where several can be selected: changes line `i` alone, the current line stays.
    void Selected(int i, bool selected);

    // A user's click: the current line moves, the selection follows as in every such list, and
    // Click runs even on the line that was current.
    void click(int i, bool control, bool shift);

    // Called in MouseDown: from here on the pointer drags this list, until it is released.
    void Drag() noexcept { dragging_ = true; }
    // The pointer was released. Whether a drag was under way.
    bool endDrag() noexcept { return std::exchange(dragging_, false); }

    std::function<void()> Click;
    std::function<void()> DblClick;

  private:
    struct Line {
        std::string text;
        bool selected = false;
    };
    std::vector<Line> lines_;
    std::vector<ListColumn> columns_;
    std::uint64_t revision_ = 0;
    int current_ = -1;
    int anchor_ = -1; // where a selection by Shift begins
    bool multi_ = false;
    bool dragging_ = false;

    void check(int i, int last) const;
    Line& line(int i) { return lines_[static_cast<std::size_t>(i)]; }
};

} // namespace vorandine::widgets
