// Paints the controls into a grid of characters, from the lowest to the one on top.
#include "frontends/headless/TextRenderer.h"

#include "frontends/headless/TextLayout.h"
#include "text/Characters.h"
#include "widgets/Kinds.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace vorandine::headless {
namespace {

constexpr int Columns = 118; // fits a terminal of 120

class Grid {
  public:
    Grid(int columns, int rows)
        : rows_(static_cast<std::size_t>(rows),
                std::u32string(static_cast<std::size_t>(columns), U' ')) {}

    // Puts one character; nothing outside the grid.
    void put(int column, int row, char32_t character) {
        if (row < 0 || column < 0 || static_cast<std::size_t>(row) >= rows_.size())
            return;
        std::u32string& line = rows_[static_cast<std::size_t>(row)];
        if (static_cast<std::size_t>(column) < line.size())
            line[static_cast<std::size_t>(column)] = character;
    }

    // Puts the text into `width` columns, an ellipsis for what does not fit. Returns the columns
    // taken.
    int write(int column, int row, std::string_view text, int width) {
        std::u32string characters = text::Decode(text);
        if (static_cast<int>(characters.size()) > width) {
            characters.resize(static_cast<std::size_t>(std::max(width, 0)));
            if (!characters.empty())
                characters.back() = U'…';
        }
        for (std::size_t i = 0; i < characters.size(); ++i)
            put(column + static_cast<int>(i), row,
                text::IsControl(characters[i]) ? U'·' : characters[i]);
        return static_cast<int>(characters.size());
    }

    void fill(const Cells& cells, char32_t character) {
        for (int row = cells.top; row < cells.bottom; ++row)
            for (int column = cells.left; column < cells.right; ++column)
                put(column, row, character);
    }

    [[nodiscard]] std::string text() const {
        std::string text;
        for (const std::u32string& row : rows_) {
            const std::string line = text::Encode(row);
            text.append(line, 0, line.find_last_not_of(' ') + 1);
            text.push_back('\n');
        }
        return text;
    }

  private:
    std::vector<std::u32string> rows_;
};

class Painter {
  public:
    Painter(Grid& grid, const Placed& placed)
        : grid_(grid), cells_(placed.cells), enabled_(placed.enabled), cut_(placed.cut),
          width_(placed.cells.right - placed.cells.left), columns_(placed.columns) {}

    void paint(const widgets::Control& control) {
        widgets::match(control, [this](const auto& kind) { draw(kind); });
    }

  private:
    void border() {
        grid_.fill(cells_, U' ');
        const int right = cells_.right - 1;
        const int bottom = cells_.bottom - 1;
        const char32_t line = enabled_ ? U'─' : U'╌';
        const char32_t side = enabled_ ? U'│' : U'┊';
        for (int column = cells_.left; column < cells_.right; ++column) {
            grid_.put(column, cells_.top, line);
            grid_.put(column, bottom, line);
        }
        for (int row = cells_.top; row < cells_.bottom; ++row) {
            grid_.put(cells_.left, row, side);
            grid_.put(right, row, side);
        }
        grid_.put(cells_.left, cells_.top, U'┌');
        grid_.put(right, cells_.top, U'┐');
        grid_.put(cells_.left, bottom, U'└');
        grid_.put(right, bottom, U'┘');
    }

    void draw(const widgets::Surface& /*surface*/) {}

    void draw(const widgets::Frame& frame) {
        border();
        const std::string caption = text::Trim(frame.Caption());
        if (!caption.empty())
            grid_.write(cells_.left + 2, cells_.top, " " + caption + " ", width_ - 4);
    }

    void draw(const widgets::TabContainer& tabs) {
        border();
        int column = cells_.left + 2;
        for (std::size_t i = 0; i < tabs.captions().size(); ++i) {
            const int tab = static_cast<int>(i);
            const std::string& name = tabs.captions()[i];
            const bool open = enabled_ && tabs.TabEnabled(tab);
            const std::string shown = tab == tabs.Tab() ? "[ " + name + " ]"
                                      : open            ? "  " + name + "  "
                                                        : "( " + name + " )";
            column += 1 + grid_.write(column, cells_.top, shown, cells_.right - 1 - column);
        }
    }

    void draw(const widgets::TextBox& box) { entry(box, false); }
    void draw(const widgets::ComboBox& combo) { entry(combo, true); }

    void entry(const widgets::TextField& field, bool combo) {
        const int room = width_ - (combo ? ComboMargin : FieldMargin);
        const int right = cells_.right - 1;
        grid_.fill(cells_, enabled_ && !combo ? U'.' : U' ');
        grid_.put(cells_.left, cells_.top, enabled_ ? U'[' : U'(');
        grid_.write(cells_.left + 1, cells_.top, field.Text(), room);
        if (combo)
            grid_.put(right - 1, cells_.top, U'v');
        grid_.put(right, cells_.top, enabled_ ? U']' : U')');
    }

    void draw(const widgets::ListBox& list) {
        grid_.fill(cells_, U' ');
        const char32_t side = enabled_ ? U'│' : U'┊';
        const int height = cells_.bottom - cells_.top;
        const int count = list.ListCount();
        // The current line stays in sight, with the count of what lies above and below.
        int first = 0;
        if (count > height)
            first = std::clamp(list.ListIndex() - height / 2, 0, count - height);
        const int room = width_ - ListMargin + (cut_ ? 1 : 0);
        for (int i = 0; i < height; ++i) {
            const int row = cells_.top + i;
            const int line = first + i;
            grid_.put(cells_.left, row, side);
            if (!cut_)
                grid_.put(cells_.right - 1, row, side);
            const bool above = i == 0 && first > 0;
            const bool below = i == height - 1 && first + height < count;
            if (above || below) {
                const int hidden = above ? line + 1 : count - line;
                grid_.write(cells_.left + 2, row, (above ? "↑ " : "↓ ") + std::to_string(hidden),
                            room);
            } else if (line < count) {
                if (list.Selected(line))
                    grid_.put(cells_.left + 1, row, U'>');
                content(list, line, row, room);
            }
        }
    }

    void content(const widgets::ListBox& list, int line, int row, int room) {
        const std::vector<std::string> parts = list.inColumns(line);
        if (parts.empty())
            grid_.write(cells_.left + 2, row, list.List(line), room);
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const int left = columns_[2 * i];
            const int length = static_cast<int>(text::Len(parts[i]));
            const int start = list.columns()[i].figure ? columns_[2 * i + 1] - length : left;
            grid_.write(start, row, parts[i], length);
        }
    }

    void draw(const widgets::ScrollBar& bar) {
        const bool tall = cells_.bottom - cells_.top > 1;
        Cells track = cells_;
        if (tall)
            track.right = track.left + 1;
        const int cells = tall ? track.bottom - track.top : track.right - track.left;
        const bool live = enabled_ && bar.Max() > 0 && cells > 2;
        grid_.fill(cells_, U' ');
        grid_.fill(track, live ? U'░' : U'┊');
        if (!live)
            return;
        const int thumb =
            1 + static_cast<int>(static_cast<long>(bar.Value()) * (cells - 3) / bar.Max());
        const auto mark = [&](int at, char32_t character) {
            grid_.put(track.left + (tall ? 0 : at), track.top + (tall ? at : 0), character);
        };
        mark(0, tall ? U'▲' : U'◄');
        mark(thumb, U'█');
        mark(cells - 1, tall ? U'▼' : U'►');
    }

    void draw(const widgets::OptionButton& option) {
        caption((option.Value() ? "(•) " : "( ) ") + text::Trim(option.Caption()));
    }

    void draw(const widgets::CommandButton& button) {
        caption((enabled_ ? "< " : "( ") + text::Trim(button.Caption()) + (enabled_ ? " >" : " )"));
    }

    void draw(const widgets::Label& label) {
        const std::string shown = text::Trim(label.Caption());
        if (label.wraps())
            paragraph(shown);
        else if (label.notice())
            grid_.write(cells_.left, cells_.top, shown, width_);
        else
            caption(shown);
    }

    void caption(const std::string& shown) {
        grid_.write(cells_.left, cells_.top, shown, static_cast<int>(text::Len(shown)));
    }

    // Word by word, as many to a row as it holds; the last row takes the rest.
    void paragraph(const std::string& text) {
        int row = cells_.top;
        std::string shown;
        for (std::size_t from = 0; from < text.size();) {
            const std::size_t to = std::min(text.find(' ', from), text.size());
            const std::string word = text.substr(from, to - from);
            const std::string longer = shown.empty() ? word : shown + ' ' + word;
            if (static_cast<int>(text::Len(longer)) > width_ && row + 1 < cells_.bottom) {
                grid_.write(cells_.left, row++, shown, width_);
                shown = word;
            } else {
                shown = longer;
            }
            from = to + 1;
        }
        grid_.write(cells_.left, row, shown, width_);
    }

    Grid& grid_;
    Cells cells_;
    bool enabled_;
    bool cut_;
    int width_;
    const std::vector<int>& columns_;
};

} // namespace

std::string render(const widgets::Form& form) {
    const Layout layout = layOut(form, Columns);
    Grid grid(layout.columns, layout.rows);
    for (const Placed& placed : layout.controls)
        Painter(grid, placed).paint(*placed.control);

    // The title above, a line below.
    const auto width = static_cast<std::size_t>(std::max(layout.columns, 40));
    const std::string caption = form.Caption().empty() ? "" : " " + form.Caption() + " ";
    const std::size_t taken = 3 + text::Len(caption);
    const auto rule = [](std::size_t columns) {
        return text::Encode(std::u32string(columns, U'═'));
    };
    return rule(3) + caption + rule(width > taken ? width - taken : 0) + "\n" + grid.text() +
           rule(width) + "\n";
}

} // namespace vorandine::headless
