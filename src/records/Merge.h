// Two changes of one record put together: what one seat makes of it and what another has stored
// meanwhile, by what the layout says is one thing. Pure: it asks nobody and stores nothing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vorandine::records {

// Whole texts of one record. An empty text is a record that was not there.
struct MergeInput {
    std::string_view file;      // whose layout holds
    std::string_view read;      // what both seats began with
    std::string_view untouched; // what a save makes of `read` where its user changes nothing
    std::string_view mine;      // what is to be saved
    std::string_view stored;    // what the other seat has saved
    // Of each line of `mine`, which line of `untouched` it was, from 1; 0: a new one. Where there
    // are not as many, lines are paired by what they hold.
    std::vector<int> origins;
    // Attributes that the program filled in `mine` of its own accord: they give way.
    std::vector<int> filled;
};

// One thing that both records could hold: a single attribute or those of its unit, a line, the
// value at a position, a value of a set.
struct Point {
    int attribute;    // or the first of its unit
    int position = 0; // of a list of positions, from 1
    // Its values, one an attribute of the unit; empty where the record has no such line or value.
    std::vector<std::string> before;
    std::vector<std::string> mine;
    std::vector<std::string> theirs;
};

enum class Prefer { Mine, Theirs };

struct Merged {
    std::string text;             // conflicts as was preferred, all else from both
    std::vector<Point> conflicts; // changed by both, and not alike
    std::vector<Point> theirs;    // changed by the other seat alone
};

// Three ways, each thing for itself: changed by one, that change; by neither, `mine`; by both
// alike, that. Lines stand as they are stored, those that `mine` adds or changes where a new line
// goes by the order of their dates: before all others of its date in a falling list, behind them in
// a rising one. A line that one seat changed and the other deleted is a conflict; two that are
// added are two. A set is what is stored, with what `mine` took out and put in; where that leaves
// none of it, both have taken out what the other left, which is a conflict. What a save without a
// change would make of a record counts as unchanged.
[[nodiscard]] Merged merge(const MergeInput& input, Prefer prefer);

} // namespace vorandine::records
