// Editing of a line of text, and the entries of a combo box.
#include "widgets/TextField.h"

#include "text/Characters.h"
#include "text/Collation.h"
#include "text/Error.h"
#include "widgets/ListBox.h"

#include <algorithm>
#include <utility>

namespace vorandine::widgets {

std::string TextField::Text() const {
    return text::Encode(characters_);
}

void TextField::Text(std::string_view text) {
    std::u32string characters = text::Decode(text);
    const bool different = characters != characters_;
    characters_ = std::move(characters);
    before_.reset();
    caretToEnd();
    if (different)
        changed();
}

std::string TextField::selectedText() const {
    const std::size_t from = std::min(caret_, anchor_);
    return text::Encode(
        std::u32string_view(characters_).substr(from, std::max(caret_, anchor_) - from));
}

// One run of characters typed one after the other is undone at once.
void TextField::remember(bool typing) {
    const bool run = typing && before_ && before_->typedTo > 0 && before_->typedTo == caret_ &&
                     caret_ == anchor_;
    if (!run)
        before_ = Before{characters_, 0};
}

void TextField::undo() {
    if (!before_ || before_->characters == characters_)
        return;
    std::swap(before_->characters, characters_);
    before_->typedTo = 0;
    caretToEnd();
    changed();
}

void TextField::changed() {
    if (Change)
        Change();
}

void TextField::select(std::size_t from, std::size_t to) noexcept {
    anchor_ = std::min(from, characters_.size());
    caret_ = std::min(to, characters_.size());
}

void TextField::replace(std::size_t from, std::size_t to, std::u32string_view with) {
    if (from == to && with.empty())
        return;
    remember(from == to && with.size() == 1);
    characters_.replace(from, to - from, with);
    select(from + with.size(), from + with.size());
    before_->typedTo = from == to && with.size() == 1 ? caret_ : 0;
    changed();
}

void TextField::replaceSelection(std::u32string_view with) {
    const std::size_t from = std::min(caret_, anchor_);
    const std::size_t to = std::max(caret_, anchor_);
    const std::size_t kept = characters_.size() - (to - from);
    if (maxLength_ > 0)
        with = with.substr(0, maxLength_ > kept ? maxLength_ - kept : 0);
    replace(from, to, with);
}

void TextField::typeCharacter(char32_t character) {
    if (KeyPress)
        KeyPress(character);
    if (character != 0 && !text::IsControl(character))
        replaceSelection(std::u32string_view(&character, 1));
}

void TextField::pressBackspace() {
    char32_t key = BackspaceKey;
    if (KeyPress)
        KeyPress(key);
    if (key != BackspaceKey)
        return;
    if (caret_ == anchor_ && caret_ > 0)
        replace(caret_ - 1, caret_, {});
    else
        replaceSelection({});
}

void TextField::pressDelete() {
    if (caret_ == anchor_ && caret_ < characters_.size())
        replace(caret_, caret_ + 1, {});
    else
        replaceSelection({});
}

void TextField::paste(std::string_view text) {
    std::u32string pasted;
    for (const char32_t character : text::Decode(text)) {
        if (character == U'\t' || character == U'\n')
            pasted.push_back(U' ');
        else if (!text::IsControl(character))
            pasted.push_back(character);
    }
    replaceSelection(pasted);
}

void ComboBox::Text(std::string_view text) {
    if (dropDownList_ && !text.empty() &&
        std::none_of(entries_.begin(), entries_.end(),
                     [&](const Entry& entry) { return entry.text == text; }))
        throw Error(errors::NotAnEntry,
                    "« " + std::string(text) + " » n'est pas un choix de " + Name() + ".");
    TextField::Text(text);
}

void ComboBox::AddItem(std::string entry) {
    if (ListCount() >= MaxLines)
        throw Error(errors::TooManyLines, "La liste " + Name() + " ne peut pas dépasser " +
                                              std::to_string(MaxLines) + " lignes.");
    Entry added{std::move(entry), {}};
    if (sorted_)
        added.order = text::CollationKey(added.text);
    const auto place =
        sorted_ ? std::upper_bound(entries_.begin(), entries_.end(), added,
                                   [](const Entry& a, const Entry& b) { return a.order < b.order; })
                : entries_.end();
    entries_.insert(place, std::move(added));
    ++revision_;
}

void ComboBox::Clear() {
    entries_.clear();
    ++revision_;
    TextField::Text({});
}

std::string ComboBox::List(int i) const {
    if (i < 0)
        throw Error(errors::OutOfRange,
                    "Choix " + std::to_string(i) + " hors de la liste " + Name() + ".");
    return i < ListCount() ? entries_[static_cast<std::size_t>(i)].text : std::string();
}

int ComboBox::ListIndex() const {
    const std::string text = Text();
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& entry) { return entry.text == text; });
    return found == entries_.end() ? -1 : static_cast<int>(found - entries_.begin());
}

void ComboBox::ListIndex(int i) {
    if (i < -1 || i >= ListCount())
        throw Error(errors::OutOfRange,
                    "Choix " + std::to_string(i) + " hors de la liste " + Name() + ".");
    const int before = ListIndex();
    TextField::Text(i < 0 ? std::string() : List(i));
    if (i != before && Click)
        Click();
}

} // namespace vorandine::widgets
