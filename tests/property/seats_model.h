// What two seats make of one caregiver's file, said as plainly as can be: values that one of them
// changed, or both, and lines. Shares nothing with the code that puts their saves together.
#pragma once

#include "records/DBARecord.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vorandine::control_test {

using Line = std::array<std::string, 5>; // date, code, hours, remarks, under the D.I.F.
using Values = std::vector<std::string>;
// Values by attribute (1: both of the study, 91 to 97: experience), and lines.
using File = std::pair<std::map<int, Values>, std::vector<Line>>;

constexpr int Chosen = 10;                                 // the activities
inline const Values Activities = {"A2", "A3", "A4", "A1"}; // by label

// A file without activities has all.
inline File fileOf(const std::string& text) {
    const records::DBARecord record(nullptr, {}, text);
    File file;
    for (const int a : {3, 4, 11, 12, 13, 15})
        file.first[a] = {record(a)};
    file.first[1] = {record(1) + record(2)};
    for (int i = 1; i <= 7; ++i)
        file.first[90 + i] = {record(9, i)};
    for (int i = 1; i <= record.DCount(Chosen); ++i)
        file.first[Chosen].push_back(record(Chosen, i));
    if (file.first[Chosen].empty())
        file.first[Chosen] = Activities;
    for (int i = 1; i <= record.DCount(6); ++i)
        file.second.push_back(
            {record(5, i), record(6, i), record(7, i), record(8, i), record(14, i)});
    return file;
}

// Latest first, the newest entry of a day on top, lines without a date last.
inline std::ptrdiff_t placeIn(const std::vector<Line>& lines, const std::string& date) {
    const auto behind = [&](const Line& line) { return line[0].empty() || date >= line[0]; };
    return std::find_if(lines.begin(), lines.end(), behind) - lines.begin();
}

// Which line of `now` each of `read` has become, from 0; -1 if none.
inline std::vector<int> become(const std::vector<Line>& read, const std::vector<Line>& now) {
    std::vector<int> all(read.size(), -1);
    std::set<int> taken;
    for (const std::vector<std::size_t>& alike :
         {std::vector<std::size_t>{0, 1, 2, 3, 4}, {0, 1}, {1}, {0}})
        for (std::size_t i = 0; i < read.size(); ++i)
            for (int j = 0; j < static_cast<int>(now.size()) && all[i] == -1; ++j)
                if (std::all_of(alike.begin(), alike.end(),
                                [&](std::size_t k) {
                                    return read[i].at(k) == now[static_cast<std::size_t>(j)].at(k);
                                }) &&
                    taken.insert(j).second)
                    all[i] = j;
    return all;
}

using Entry = std::array<std::string, 4>; // of a ledger: date, rights, hours, training

inline std::vector<Entry> entriesOf(const std::string& ledger) {
    const records::DBARecord record(nullptr, {}, ledger);
    std::vector<Entry> entries;
    for (int i = 1; i <= record.DCount(1); ++i)
        entries.push_back({record(1, i), record(2, i), record(3, i), record(5, i)});
    return entries;
}

// As stored.
inline std::string day(const std::string& text) {
    return text.empty() ? "" : text.substr(6, 4) + text.substr(3, 2) + text.substr(0, 2);
}
inline std::string hundredths(std::string text) {
    std::replace(text.begin(), text.end(), ',', '.');
    return text.empty() ? "" : std::to_string(std::lround(std::atof(text.c_str()) * 100));
}

// How many points a text lists behind `head`; the tenth may be followed by "et N autres".
inline int listed(const std::string& text, const std::string& head, const std::string& between) {
    int points = 0;
    for (auto at = text.find(head); at != text.npos; at = text.find(between, at + 1))
        ++points;
    const auto others = text.rfind(between + "et ");
    return points < 11 ? points : 10 + std::stoi(text.substr(others + between.size() + 3));
}

struct Joined {
    File file;
    int conflicts = 0;
    int theirs = 0; // changes of the other alone
};

// `from` tells of each line of `mine` which it was of `read`, from 1; 0: a new one. What the
// program `filled` gives way to what the other has changed.
inline Joined joined(const File& read, const File& mine, const std::vector<int>& from,
                     const std::set<int>& filled, const File& now, bool mineWins) {
    Joined all{.file = now};
    const auto meet = [&](bool iDid, bool theyDid, bool alike) { // whether mine is taken
        all.theirs += theyDid && !iDid && !alike ? 1 : 0;
        all.conflicts += theyDid && iDid && !alike ? 1 : 0;
        return iDid && !alike && (!theyDid || mineWins);
    };
    for (const auto& [a, was] : read.first) {
        const Values& my = mine.first.at(a);
        const Values& their = now.first.at(a);
        Values& made = all.file.first[a];
        const bool gives = filled.contains(a) && their != was;
        if (a != Chosen || their == was) {
            if (meet(my != was && !gives, their != was, my == their))
                made = my;
            continue;
        }
        const auto has = [](const Values& values, const std::string& code) {
            return std::find(values.begin(), values.end(), code) != values.end();
        };
        Values codes = my;
        std::copy_if(Activities.begin(), Activities.end(), std::back_inserter(codes),
                     [&](const std::string& code) { return !has(my, code); });
        for (const std::string& code : codes)
            if (meet(has(my, code) != has(was, code) && !gives, has(their, code) != has(was, code),
                     has(my, code) == has(their, code))) {
                std::erase(made, code);
                if (has(my, code))
                    made.push_back(code);
            }
        if (made.empty()) { // each took out what the other left: a file has one at least
            all.theirs -= static_cast<int>(my.size());
            all.conflicts += static_cast<int>(my.size() + their.size());
            made = mineWins ? my : their;
        }
    }
    const std::vector<int> at = become(read.second, now.second);
    std::vector<Line>& lines = all.file.second;
    std::set<int> dropped;
    std::set<std::size_t> put;
    for (std::size_t i = 0; i < read.second.size(); ++i) {
        const auto my = std::find(from.begin(), from.end(), static_cast<int>(i) + 1);
        const auto m = static_cast<std::size_t>(my - from.begin());
        const auto none = Line{"", "", "", "", "gone"};
        const Line& mineIs = my == from.end() ? none : mine.second[m];
        const Line& theirs = at[i] < 0 ? none : now.second[static_cast<std::size_t>(at[i])];
        if (!meet(mineIs != read.second[i], theirs != read.second[i], mineIs == theirs))
            continue;
        dropped.insert(at[i]);
        if (my != from.end())
            put.insert(m);
    }
    for (int t = static_cast<int>(lines.size()) - 1; t >= 0; --t) {
        all.theirs += std::count(at.begin(), at.end(), t) == 0 ? 1 : 0;
        if (dropped.contains(t))
            lines.erase(lines.begin() + t);
    }
    for (std::size_t m = from.size(); m-- > 0;)
        if (from[m] == 0 || put.contains(m))
            lines.insert(lines.begin() + placeIn(lines, mine.second[m][0]), mine.second[m]);
    if (now.second == read.second)
        lines = mine.second;
    return all;
}

} // namespace vorandine::control_test
