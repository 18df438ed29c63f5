// Each kind of thing in turn: single values, positions, sets, lines. Lines are known again by where
// they came from on the screen, and in the stored text by what they hold.
#include "records/Merge.h"

#include "records/DBARecord.h"
#include "records/Layout.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <utility>

namespace vorandine::records {
namespace {

using Line = std::vector<std::string>; // one value an attribute of the unit
using LineList = std::vector<Line>;

DBARecord recordOf(std::string_view text) {
    DBARecord record;
    record() = std::string(text);
    return record;
}

// Which line of `to` is which line of `from`, both counted from 0; none where it is gone. A line is
// also known by what stands in its place in `saved`: somebody else may have saved it untouched.
class Pairing {
  public:
    Pairing(const LineList& from, const LineList& saved, const LineList& to,
            std::span<const AttributeLayout* const> unit)
        : to_(from.size()), taken_(to.size()) {
        std::vector<std::size_t> all;
        std::vector<std::size_t> date;
        std::vector<std::size_t> code;
        std::vector<std::size_t> rest;
        for (std::size_t i = 0; i < unit.size(); ++i) {
            all.push_back(i);
            (unit[i]->kind == Kind::Date       ? date
             : unit[i]->kind == Kind::Training ? code
                                               : rest)
                .push_back(i);
        }
        const auto with = [](std::vector<std::size_t> some, const std::vector<std::size_t>& more) {
            some.insert(some.end(), more.begin(), more.end());
            return some;
        };
        for (const auto& alike :
             {all, with(date, code), with(code, rest), code, with(date, rest), date}) {
            if (alike.empty())
                continue;
            pair(from, to, alike);
            pair(saved, to, alike);
        }
    }

    [[nodiscard]] std::optional<std::size_t> of(std::size_t line) const { return to_[line]; }
    [[nodiscard]] bool taken(std::size_t line) const { return taken_[line]; }

  private:
    std::vector<std::optional<std::size_t>> to_;
    std::vector<bool> taken_;

    // The lines that are left and have these attributes alike, in their order.
    void pair(const LineList& from, const LineList& to, const std::vector<std::size_t>& alike) {
        const auto key = [&](const Line& line) {
            Line values;
            for (const std::size_t i : alike)
                values.push_back(line[i]);
            return values;
        };
        std::map<Line, std::vector<std::size_t>> free;
        for (std::size_t j = to.size(); j-- > 0;)
            if (!taken_[j])
                free[key(to[j])].push_back(j);
        for (std::size_t i = 0; i < std::min(from.size(), to_.size()); ++i) {
            const auto found = to_[i] ? free.end() : free.find(key(from[i]));
            if (found == free.end() || found->second.empty())
                continue;
            to_[i] = found->second.back();
            taken_[found->second.back()] = true;
            found->second.pop_back();
        }
    }
};

class Merge {
  public:
    Merge(const MergeInput& input, Prefer prefer)
        : input_(input), prefer_(prefer), read_(recordOf(input.read)),
          untouched_(recordOf(input.untouched)), mine_(recordOf(input.mine)),
          stored_(recordOf(input.stored)) {}

    Merged run() {
        const int last =
            std::max({read_.DCount(), untouched_.DCount(), mine_.DCount(), stored_.DCount()});
        for (int a = 1; a <= last; ++a) {
            const AttributeLayout* const known = layout(input_.file, a);
            const bool first = known == nullptr || known->unit.empty() || known->unit.front() == a;
            if (!first)
                continue;
            const int alone[] = {a};
            const std::span<const int> unit =
                known == nullptr || known->unit.empty() ? std::span<const int>(alone) : known->unit;
            switch (known == nullptr ? Values::One : known->values) {
            case Values::One:
                mergeSingle(unit);
                break;
            case Values::Positions:
                mergePositions(a);
                break;
            case Values::Set:
                mergeSet(a);
                break;
            case Values::Lines:
                mergeLines(unit);
                break;
            }
        }
        merged_.text = std::as_const(result_)();
        return std::move(merged_);
    }

  private:
    const MergeInput& input_;
    Prefer prefer_;
    const DBARecord read_;
    const DBARecord untouched_;
    const DBARecord mine_;
    const DBARecord stored_;
    DBARecord result_;
    Merged merged_;

    [[nodiscard]] bool filled(int attribute) const {
        return std::find(input_.filled.begin(), input_.filled.end(), attribute) !=
               input_.filled.end();
    }

    // Whether mine is what goes into the result, of a thing that `iChanged` and they have changed.
    bool takesMine(Point point, bool iChanged, bool theyChanged) {
        const bool alike = point.mine == point.theirs;
        if (theyChanged && !alike && !iChanged)
            merged_.theirs.push_back(std::move(point));
        else if (theyChanged && !alike)
            merged_.conflicts.push_back(std::move(point));
        if (!theyChanged)
            return true;
        return !alike && iChanged && prefer_ == Prefer::Mine;
    }

    void mergeSingle(std::span<const int> unit) {
        Point point{.attribute = unit.front(), .before = {}, .mine = {}, .theirs = {}};
        bool iChanged = false;
        bool theyChanged = false;
        bool theyDid = false;
        for (const int a : unit) {
            point.before.push_back(read_(a));
            point.mine.push_back(mine_(a));
            point.theirs.push_back(stored_(a));
            iChanged = iChanged || (mine_(a) != untouched_(a) && !filled(a));
            theyChanged = theyChanged || stored_(a) != read_(a);
            theyDid = theyDid || stored_(a) != untouched_(a);
        }
        const bool mine = takesMine(std::move(point), iChanged, theyChanged && theyDid);
        for (const int a : unit)
            if (std::string value = mine ? mine_(a) : stored_(a); !value.empty())
                result_(a) = std::move(value);
    }

    void mergePositions(int a) {
        const int count =
            std::max({read_.DCount(a), untouched_.DCount(a), mine_.DCount(a), stored_.DCount(a)});
        for (int v = 1; v <= count; ++v) {
            const std::string theirs = stored_(a, v);
            const bool mine = takesMine({.attribute = a,
                                         .position = v,
                                         .before = {read_(a, v)},
                                         .mine = {mine_(a, v)},
                                         .theirs = {theirs}},
                                        mine_(a, v) != untouched_(a, v),
                                        theirs != read_(a, v) && theirs != untouched_(a, v));
            // As many values as mine has, even if they are empty; more only where they say
            // something.
            std::string value = mine ? mine_(a, v) : theirs;
            if (v <= mine_.DCount(a) || !value.empty())
                result_(a, v) = std::move(value);
        }
    }

    static std::vector<std::string> valuesOf(const DBARecord& record, int a) {
        std::vector<std::string> values;
        const int count = record.DCount(a);
        for (int v = 1; v <= count; ++v)
            values.push_back(record(a, v));
        return values;
    }

    void mergeSet(int a) {
        const auto before = valuesOf(untouched_, a);
        const auto mine = valuesOf(mine_, a);
        const auto stored = valuesOf(stored_, a);
        auto values = stored;
        const auto has = [](const auto& list, const std::string& value) {
            return std::find(list.begin(), list.end(), value) != list.end();
        };
        const bool theyChanged = stored_(a) != read_(a) && stored_(a) != untouched_(a);
        if (!theyChanged || (filled(a) && values.empty())) {
            values = mine;
        } else {
            for (const std::string& value : values)
                if (!has(before, value) && !has(mine, value))
                    merged_.theirs.push_back(
                        {.attribute = a, .before = {}, .mine = {}, .theirs = {value}});
            for (const std::string& value : before)
                if (!has(values, value) && has(mine, value))
                    merged_.theirs.push_back(
                        {.attribute = a, .before = {value}, .mine = {value}, .theirs = {}});
            if (!filled(a)) {
                std::erase_if(values, [&](const std::string& value) {
                    return has(before, value) && !has(mine, value);
                });
                for (const std::string& value : mine)
                    if (!has(before, value) && !has(values, value))
                        values.push_back(value);
            }
            if (values.empty() && !mine.empty())
                values = keepOne(a, mine, stored);
        }
        for (std::size_t v = 0; v < values.size(); ++v)
            result_(a, static_cast<int>(v) + 1) = values[v];
    }

    // Each took out what the other left, and a file is never saved without any: one of both stays.
    std::vector<std::string> keepOne(int a, const std::vector<std::string>& mine,
                                     const std::vector<std::string>& stored) {
        std::erase_if(merged_.theirs, [a](const Point& point) { return point.attribute == a; });
        if (stored.empty())
            return mine;
        for (const std::string& value : mine)
            merged_.conflicts.push_back(
                {.attribute = a, .before = {value}, .mine = {value}, .theirs = {}});
        for (const std::string& value : stored)
            merged_.conflicts.push_back(
                {.attribute = a, .before = {value}, .mine = {}, .theirs = {value}});
        return prefer_ == Prefer::Mine ? mine : stored;
    }

    static LineList linesOf(const DBARecord& record, std::span<const int> unit) {
        int count = 0;
        for (const int a : unit)
            count = std::max(count, record.DCount(a));
        LineList lines;
        for (int i = 1; i <= count; ++i) {
            Line& line = lines.emplace_back();
            for (const int a : unit)
                line.push_back(record(a, i));
        }
        return lines;
    }

    void mergeLines(std::span<const int> unit) {
        std::vector<const AttributeLayout*> members;
        for (const int a : unit)
            members.push_back(layout(input_.file, a));
        const LineList read = linesOf(read_, unit);
        const LineList untouched = linesOf(untouched_, unit);
        const LineList mine = linesOf(mine_, unit);
        const LineList stored = linesOf(stored_, unit);
        const Pairing theirs(read, untouched, stored, members);

        // What I made of each line of the untouched text, and what is new.
        std::vector<std::optional<std::size_t>> made(untouched.size());
        std::set<std::size_t> placed; // of mine: goes where a new line goes
        const bool known = input_.origins.size() == mine.size();
        const LineList none;
        const Pairing guessed(known ? none : untouched, none, known ? none : mine, members);
        if (!known)
            for (std::size_t b = 0; b < untouched.size(); ++b)
                made[b] = guessed.of(b);
        for (std::size_t m = 0; m < mine.size(); ++m) {
            const std::size_t origin = known ? static_cast<std::size_t>(input_.origins[m]) : 0;
            if (known && origin > 0 && origin <= made.size())
                made[origin - 1] = m;
            else if (known || !guessed.taken(m))
                placed.insert(m);
        }

        std::vector<bool> dropped(stored.size());
        LineList normal = stored;
        for (std::size_t b = 0; b < std::max(read.size(), untouched.size()); ++b) {
            const std::optional<std::size_t> t = b < read.size() ? theirs.of(b) : std::nullopt;
            const bool shown = b < untouched.size();
            const std::optional<std::size_t> m = shown ? made[b] : std::nullopt;
            const bool iChanged = shown && (!m || mine[*m] != untouched[b]);
            const bool theyChanged =
                !t || (stored[*t] != read[b] && !(shown && stored[*t] == untouched[b]));
            const Line& before = shown ? untouched[b] : read[b];
            Point point{.attribute = unit.front(),
                        .before = before,
                        .mine = m ? mine[*m] : (shown ? Line() : before),
                        .theirs = t ? stored[*t] : Line()};
            const bool takes = takesMine(std::move(point), iChanged, theyChanged);
            if (!iChanged) {
                if (t && !theyChanged && shown)
                    normal[*t] = untouched[b];
            } else if (takes) {
                if (t)
                    dropped[*t] = true;
                if (m)
                    placed.insert(*m);
            }
        }
        for (std::size_t t = 0; t < stored.size(); ++t)
            if (!theirs.taken(t))
                merged_.theirs.push_back(
                    {.attribute = unit.front(), .before = {}, .mine = {}, .theirs = stored[t]});

        LineList lines;
        const bool asRead = stored == read || stored == untouched;
        if (asRead)
            lines = mine;
        for (std::size_t t = 0; t < stored.size() && !asRead; ++t)
            if (!dropped[t])
                lines.push_back(std::move(normal[t]));
        // From the last on, so that of two with one date the first stands before the other.
        for (auto m = placed.rbegin(); m != placed.rend() && !asRead; ++m)
            place(lines, mine[*m], members);
        for (std::size_t i = 0; i < lines.size(); ++i)
            for (std::size_t k = 0; k < unit.size(); ++k)
                result_(unit[k], static_cast<int>(i) + 1) = lines[i][k];
    }

    // Dates compare as texts, the empty one before all.
    static void place(LineList& lines, const Line& line,
                      std::span<const AttributeLayout* const> unit) {
        auto at = lines.end();
        for (std::size_t k = 0; k < unit.size(); ++k) {
            const auto first = [&](const auto& goesBefore) {
                return std::find_if(lines.begin(), lines.end(), goesBefore);
            };
            if (unit[k]->order == Order::Falling)
                at = first([&](const Line& here) { return here[k].empty() || line[k] >= here[k]; });
            else if (unit[k]->order == Order::Rising)
                at = first([&](const Line& here) { return line[k] < here[k]; });
        }
        lines.insert(at, line);
    }
};

} // namespace

Merged merge(const MergeInput& input, Prefer prefer) {
    return Merge(input, prefer).run();
}

} // namespace vorandine::records
