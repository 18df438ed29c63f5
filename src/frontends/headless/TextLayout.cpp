// Rows first, from the middle of each line of controls; then columns, which must know who stands
// beside whom.
#include "frontends/headless/TextLayout.h"

#include "text/Characters.h"
#include "widgets/Kinds.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

namespace vorandine::headless {
namespace {

using widgets::Container;
using widgets::Control;

constexpr int SameRow = 110;       // twips between the middles of controls that share a row
constexpr int RowPitch = 240;      // twips a row beside a list
constexpr int LinePitch = 195;     // twips a line of a list
constexpr int BlankRowFrom = 600;  // so far apart, a blank row stands between two rows
constexpr int WideCharacter = 105; // twips, so that an empty field has room for what it is made for
constexpr int ShortText = 12;      // texts up to here are always shown whole

enum class Shape {
    Bare, // a surface: nothing of it is seen
    Box,  // frame, tabs: a border around others
    Tall, // several rows
    Line,
};

struct Item {
    const Control* control = nullptr;
    const Container* parent = nullptr;
    int box = -1; // the item of the border around it
    Shape shape = Shape::Line;
    bool enabled = true;
    bool cut = false;
    int left = 0; // twips, from the form's corner
    int top = 0;
    int right = 0;
    int bottom = 0;
    int firstRow = 0;
    int lastRow = 0;
};

Shape shapeOf(const Control& control) {
    return widgets::match(
        control, [](const widgets::Frame&) { return Shape::Box; },
        [](const widgets::TabContainer&) { return Shape::Box; },
        [](const widgets::Surface&) { return Shape::Bare; },
        [](const widgets::ListBox&) { return Shape::Tall; },
        [](const widgets::Label& label) { return label.wraps() ? Shape::Tall : Shape::Line; },
        [](const widgets::ScrollBar& bar) {
            return bar.place().height > bar.place().width ? Shape::Tall : Shape::Line;
        },
        [](const widgets::CommandButton&) { return Shape::Line; },
        [](const widgets::OptionButton&) { return Shape::Line; },
        [](const widgets::TextField&) { return Shape::Line; });
}

void collect(const Container& parent, const Item& origin, int box, std::vector<Item>& items) {
    for (const Control* const child : parent.children()) {
        const Control& control = *child;
        const widgets::Place& place = control.place();
        if (!control.Visible() || !parent.shows(control) || control.covered())
            continue;
        if (const auto* const label = widgets::as<widgets::Label>(&control);
            label != nullptr && text::Trim(label->Caption()).empty())
            continue;
        Item item;
        item.control = &control;
        item.parent = &parent;
        item.box = box;
        item.shape = shapeOf(control);
        item.enabled = origin.enabled && control.Enabled();
        item.left = origin.left + place.left;
        item.top = origin.top + place.top;
        item.right = item.left + place.width;
        item.bottom = item.top + place.height;
        const int index = static_cast<int>(items.size());
        items.push_back(item);
        if (const auto* const container = widgets::as<Container>(&control))
            collect(*container, item, item.shape == Shape::Box ? index : box, items);
    }
}

// Gives each item its rows; the number of rows in all.
int placeRows(std::vector<Item>& items) {
    // Where a row begins to be needed. Borders share no row with what stands beside them.
    struct Mark {
        int at;
        bool border;
        int* row;
    };
    std::vector<Mark> marks;
    for (Item& item : items) {
        const bool box = item.shape == Shape::Box;
        if (box || item.shape == Shape::Tall) {
            const int inset = box ? 0 : std::min(LinePitch, item.bottom - item.top) / 2;
            marks.push_back({item.top + inset, box, &item.firstRow});
            marks.push_back({item.bottom - inset, box, &item.lastRow});
        } else if (item.shape == Shape::Line) {
            marks.push_back({(item.top + item.bottom) / 2, false, &item.firstRow});
        }
    }
    std::stable_sort(marks.begin(), marks.end(),
                     [](const Mark& a, const Mark& b) { return a.at < b.at; });

    // First by number, without regard to how high each row is.
    struct Row {
        int at;
        bool border;
        int number;
    };
    std::vector<Row> rows;
    for (const Mark& mark : marks) {
        if (rows.empty() || rows.back().border != mark.border || mark.at - rows.back().at > SameRow)
            rows.push_back({mark.at, mark.border, 0});
        *mark.row = static_cast<int>(rows.size()) - 1;
    }

    for (std::size_t i = 1; i < rows.size(); ++i) {
        Row& row = rows[i];
        const Row& before = rows[i - 1];
        const int apart = row.at - before.at;
        int step = apart >= BlankRowFrom && !row.border && !before.border ? 2 : 1;
        int least = 0;
        for (const Item& item : items) {
            const auto first = static_cast<std::size_t>(item.firstRow);
            const auto last = static_cast<std::size_t>(item.lastRow);
            if (item.shape != Shape::Tall || i <= first || i > last)
                continue;
            step = std::max(step, (apart + RowPitch / 2) / RowPitch);
            if (i == last)
                least =
                    std::max(least, rows[first].number + (item.bottom - item.top) / LinePitch - 1);
        }
        row.number = std::max(before.number + step, least);
    }
    for (Item& item : items) {
        if (item.shape == Shape::Bare)
            continue;
        item.firstRow = rows[static_cast<std::size_t>(item.firstRow)].number;
        item.lastRow = item.shape == Shape::Line
                           ? item.firstRow
                           : rows[static_cast<std::size_t>(item.lastRow)].number;
    }
    return rows.empty() ? 0 : rows.back().number + 1;
}

bool standsAlone(const Item& item) {
    return item.shape == Shape::Line || item.shape == Shape::Tall;
}

bool shareRow(const Item& a, const Item& b) {
    return a.firstRow <= b.lastRow && b.firstRow <= a.lastRow;
}

// A control that runs under its right neighbour ends, for the eye, where that one begins.
void cutCovered(std::vector<Item>& items) {
    for (auto item = items.begin(); item != items.end(); ++item)
        for (auto above = std::next(item); above != items.end(); ++above)
            if (standsAlone(*item) && standsAlone(*above) && item->parent == above->parent &&
                above->firstRow <= item->firstRow && above->lastRow >= item->lastRow &&
                above->left > item->left && above->left < item->right) {
                item->right = above->left;
                item->cut = true;
            }
}

int length(const std::string& text) {
    return static_cast<int>(text::Len(text));
}

// At least so many columns from one place to another.
struct Need {
    int from;
    int to;
    int columns;
};

// Captions may run on to the right as far as nothing stands there.
Need captionNeed(const std::vector<Item>& items, const Item& item, int columns, int formRight) {
    int limit = formRight;
    int border = 0;
    if (item.box >= 0) {
        limit = items[static_cast<std::size_t>(item.box)].right;
        border = 1;
    }
    for (const Item& other : items)
        if (standsAlone(other) && shareRow(item, other) && other.left > item.left &&
            other.left < limit) {
            limit = other.left;
            border = 0;
        }
    return {item.left, std::max(limit, item.left + 1), columns + 1 + border};
}

int longestLine(const widgets::ListBox& list) {
    int longest = 0;
    for (int i = 0; i < list.ListCount(); ++i)
        longest = std::max(longest, length(list.List(i)));
    return longest;
}

Need need(const std::vector<Item>& items, const Item& item, int formRight) {
    const auto own = [&](int text, int margin) {
        return Need{item.left, item.right, std::min(text, ShortText) + margin};
    };
    const auto ofCaption = [&](const widgets::Captioned& captioned, int margin) {
        return captionNeed(items, item, length(text::Trim(captioned.Caption())) + margin,
                           formRight);
    };
    return widgets::match(
        *item.control,
        [&](const widgets::ComboBox& combo) { return own(length(combo.Text()), ComboMargin); },
        [&](const widgets::TextBox& box) {
            return own(std::max({length(box.Text()), static_cast<int>(box.MaxLength()),
                                 (item.right - item.left) / WideCharacter}),
                       FieldMargin);
        },
        [&](const widgets::ListBox& list) { return own(longestLine(list), ListMargin); },
        [&](const widgets::CommandButton& button) { return ofCaption(button, ButtonMargin); },
        [&](const widgets::OptionButton& option) { return ofCaption(option, OptionMargin); },
        // Notices and texts of several lines take what room there is, and leave the rest of the
        // form as it is.
        [&](const widgets::Label& label) {
            return label.notice() || label.wraps() ? own(0, 0) : ofCaption(label, 0);
        },
        [&](const widgets::ScrollBar&) { return own(0, 1); },
        [&](const widgets::Frame&) { return own(0, 2); },
        [&](const widgets::TabContainer&) { return own(0, 2); },
        [&](const widgets::Surface&) { return own(0, 0); });
}

// Each column of a list has room for its characters, between the bars and behind the mark.
void columnNeeds(const Item& item, std::vector<Need>& needs) {
    const auto* const list = widgets::as<widgets::ListBox>(item.control);
    if (list == nullptr)
        return;
    int from = item.left;
    int before = 2;
    for (const widgets::ListColumn& column : list->columns()) {
        const int left = item.left + column.left;
        const int right = item.left + column.right;
        needs.push_back({from, left, before});
        needs.push_back({left, right, static_cast<int>(column.length)});
        from = right;
        before = 0;
    }
    if (from != item.left)
        needs.push_back({from, item.right, 1});
}

// The column of every left and right end, at `scale` twips a column where nothing needs more.
std::map<int, int> columnsAt(int scale, const std::vector<Item>& items,
                             const std::vector<Need>& needs) {
    std::map<int, int> columns;
    for (const Item& item : items)
        columns[item.left] = columns[item.right] = 0;
    for (const Need& each : needs)
        columns[each.from] = columns[each.to] = 0;
    const auto natural = [&](int at) {
        return static_cast<int>(std::lround(static_cast<double>(at) / scale));
    };
    // A stretch that a text has widened is made good by the next one that has room to spare.
    const std::pair<const int, int>* before = nullptr;
    for (auto& place : columns) {
        auto& [at, column] = place;
        column = std::max(0, natural(at));
        if (before != nullptr)
            column =
                std::max(column, before->second + (natural(at) > natural(before->first) ? 1 : 0));
        for (const Need& each : needs)
            if (each.to == at)
                column = std::max(column, columns[each.from] + each.columns);
        before = &place;
    }
    return columns;
}

} // namespace

Layout layOut(const widgets::Form& form, int columns) {
    std::vector<Item> items;
    Item corner;
    corner.enabled = form.Enabled();
    collect(form, corner, -1, items);
    Layout layout;
    if (items.empty())
        return layout;
    layout.rows = placeRows(items);
    cutCovered(items);

    int formRight = form.place().width;
    for (const Item& item : items)
        formRight = std::max(formRight, item.right);
    std::vector<Need> needs;
    for (const Item& item : items) {
        if (item.shape != Shape::Bare)
            needs.push_back(need(items, item, formRight));
        columnNeeds(item, needs);
        // Between two borders, one inside the other, there is air.
        if (item.shape == Shape::Box && item.box >= 0)
            needs.push_back({item.right, items[static_cast<std::size_t>(item.box)].right, 2});
    }

    // The most generous scale at which the form still fits.
    std::map<int, int> places;
    for (int scale = 80; scale <= 120; scale += 2) {
        places = columnsAt(scale, items, needs);
        if (places.rbegin()->second <= columns)
            break;
    }
    layout.columns = places.rbegin()->second;
    for (const Item& item : items) {
        if (item.shape == Shape::Bare)
            continue;
        layout.controls.push_back(
            {item.control,
             {places[item.left], item.firstRow, places[item.right], item.lastRow + 1},
             item.enabled,
             item.cut,
             {}});
        if (const auto* const label = widgets::as<widgets::Label>(item.control);
            label != nullptr && label->notice() && item.box >= 0) {
            // Too long for its place, it begins further left.
            Cells& cells = layout.controls.back().cells;
            const int border = places[items[static_cast<std::size_t>(item.box)].left];
            cells.left = std::clamp(cells.right - length(label->Caption()), border + 2,
                                    std::max(cells.left, border + 2));
        }
        if (const auto* const list = widgets::as<widgets::ListBox>(item.control))
            for (const widgets::ListColumn& column : list->columns()) {
                layout.controls.back().columns.push_back(places[item.left + column.left]);
                layout.controls.back().columns.push_back(places[item.left + column.right]);
            }
    }
    return layout;
}

} // namespace vorandine::headless
