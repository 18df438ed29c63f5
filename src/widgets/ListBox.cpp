// Lines of a list box and how they are selected.
#include "widgets/ListBox.h"

#include "text/Characters.h"
#include "text/Error.h"

#include <algorithm>

namespace vorandine::widgets {

void ListBox::check(int i, int last) const {
    if (i < 0 || i > last)
        throw Error(errors::OutOfRange, "Ligne " + std::to_string(i) + " hors de la liste " +
                                            Name() + ", qui en compte " +
                                            std::to_string(lines_.size()) + ".");
}

std::string ListBox::List(int i) const {
    if (i >= ListCount())
        return {};
    check(i, ListCount() - 1);
    return lines_[static_cast<std::size_t>(i)].text;
}

std::vector<std::string> ListBox::inColumns(int i) const {
    std::vector<std::string> parts;
    if (columns_.empty())
        return parts;
    const std::string line = List(i);
    if (text::Len(line) >= columns_.back().first + columns_.back().length)
        return parts;
    for (const ListColumn& column : columns_)
        parts.push_back(text::Trim(text::Mid(line, column.first, column.length)));
    return parts;
}

void ListBox::List(int i, std::string text) {
    check(i, ListCount() - 1);
    line(i).text = std::move(text);
    ++revision_;
}

void ListBox::AddItem(std::string text) {
    AddItem(std::move(text), ListCount());
}

void ListBox::AddItem(std::string text, int i) {
    check(i, ListCount());
    if (ListCount() >= MaxLines)
        throw Error(errors::TooManyLines, "La liste " + Name() + " ne peut pas dépasser " +
                                              std::to_string(MaxLines) + " lignes.");
    lines_.insert(lines_.begin() + i, Line{std::move(text), false});
    ++revision_;
    if (current_ >= i)
        ++current_;
    if (anchor_ >= i)
        ++anchor_;
}

void ListBox::RemoveItem(int i) {
    check(i, ListCount() - 1);
    lines_.erase(lines_.begin() + i);
    ++revision_;
    const auto follow = [i](int& position) {
        if (position == i)
            position = -1;
        else if (position > i)
            --position;
    };
    follow(current_);
    follow(anchor_);
}

void ListBox::Clear() noexcept {
    lines_.clear();
    ++revision_;
    current_ = -1;
    anchor_ = -1;
}

void ListBox::ListIndex(int i) {
    if (i != -1)
        check(i, ListCount() - 1);
    if (i == current_)
        return;
    current_ = i;
    if (Click)
        Click();
}

bool ListBox::Selected(int i) const {
    check(i, ListCount() - 1);
    return multi_ ? lines_[static_cast<std::size_t>(i)].selected : i == current_;
}

void ListBox::Selected(int i, bool selected) {
    check(i, ListCount() - 1);
    if (multi_)
        line(i).selected = selected;
    else if (selected)
        ListIndex(i);
    else if (i == current_)
        ListIndex(-1);
}

void ListBox::click(int i, bool control, bool shift) {
    check(i, ListCount() - 1);
    if (multi_) {
        if (!control)
            for (Line& each : lines_)
                each.selected = false;
        if (shift && anchor_ >= 0) {
            for (int k = std::min(i, anchor_); k <= std::max(i, anchor_); ++k)
                line(k).selected = true;
        } else {
            line(i).selected = !control || !line(i).selected;
            anchor_ = i;
        }
    }
    current_ = i;
    if (Click)
        Click();
}

} // namespace vorandine::widgets
