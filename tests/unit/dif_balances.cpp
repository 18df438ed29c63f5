// The three recomputations of a ledger's balances, side by side on the same ledgers.
#include "dif/Balances.h"
#include "text/Error.h"

#include <gtest/gtest.h>

namespace vorandine::dif {
namespace {

using text::Decimal;
using text::Fixed4;

Fixed4 number(const char* text) {
    return Fixed4(Decimal::require(text));
}

std::optional<Fixed4> figure(const char* text) {
    return *text == '\0' ? std::nullopt : std::optional(number(text));
}

struct Line {
    const char* rights;
    const char* hours;
    const char* stored;
    const char* all;
    const char* removal;
    const char* insertion; // inserted at position 1
    const char* insertionFirst;
};

// The columns are those of the table in dif/Balances.h.
const std::vector<std::vector<Line>> Ledgers = {
    {{"20,00", "", "20", "20", "20", "20", "20"},
     {"3,00", "", "", "23", "23", "23", "23"},
     {"", "5,00", "15", "18", "18", "18", "18"}},
    // A first line of hours: nothing, its own balance, or below zero.
    {{"", "5", "7", "0", "7", "7", "-5"}, {"10", "", "", "10", "17", "17", "5"}},
    // Both figures; then neither.
    {{"10", "4", "1", "10", "1", "1", "-4"},
     {"10", "4", "1", "20", "0", "-3", "-8"},
     {"", "", "1", "20", "0", "-3", "-8"}},
    // Below zero, and out of it again: a balance raised to zero starts from there.
    {{"1", "", "1", "1", "1", "1", "1"},
     {"", "2,5", "", "-1,5", "0", "-1,5", "-1,5"},
     {"1", "", "", "-0,5", "1", "-0,5", "-0,5"}},
    {{"0,0001", "", "0", "0,0001", "0", "0", "0,0001"},
     {"", "-0,0002", "0", "0,0003", "0,0002", "0,0002", "0,0003"}},
    {}};

void expectBalances(const std::vector<Line>& lines, const char* const Line::*expected,
                    void (*recompute)(Ledger&)) {
    Ledger ledger;
    for (const Line& line : lines)
        ledger.push_back(
            {figure(line.rights), figure(line.hours), figure(line.stored).value_or(Fixed4())});
    recompute(ledger);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(ledger[i].balance, number(lines[i].*expected))
            << "line " << i << ", expected " << lines[i].*expected;
        EXPECT_EQ(ledger[i].rights, figure(lines[i].rights));
        EXPECT_EQ(ledger[i].hours, figure(lines[i].hours));
    }
}

TEST(Balances, TheThreeRecomputationsDifferAsTold) {
    for (const std::vector<Line>& lines : Ledgers) {
        SCOPED_TRACE("ledger " + std::to_string(&lines - Ledgers.data()));
        expectBalances(lines, &Line::all, balances::allLines);
        expectBalances(lines, &Line::removal, balances::afterRemoval);
        expectBalances(lines, &Line::insertion,
                       [](Ledger& ledger) { balances::afterInsertion(ledger, 1); });
        expectBalances(lines, &Line::insertionFirst,
                       [](Ledger& ledger) { balances::afterInsertion(ledger, 0); });
    }
}

TEST(Balances, ASumThatDoesNotFitIsAnError) {
    const Fixed4 most = number("922337203685477,5807");
    const Ledger ledger{{most, std::nullopt, most}, {number("0,0001"), std::nullopt, {}}};
    for (void (*const recompute)(Ledger&) : std::initializer_list<void (*)(Ledger&)>{
             balances::allLines, balances::afterRemoval,
             [](Ledger& lines) { balances::afterInsertion(lines, 0); }}) {
        Ledger lines = ledger;
        try {
            recompute(lines);
            ADD_FAILURE() << "no error";
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), errors::Overflow);
        }
        EXPECT_EQ(lines[0].balance, most);
    }
}

} // namespace
} // namespace vorandine::dif
