// The three recomputations of a ledger's balances, side by side on the same ledgers: none may be
// mended to agree with another.
#include "dif/Balances.h"
#include "text/Error.h"

#include <gtest/gtest.h>

#include <array>

namespace vorandine::dif {
namespace {

using text::Fixed4;

std::optional<Fixed4> figure(const char* text) {
    return *text == '\0' ? std::nullopt : std::optional(Fixed4(text::Decimal::require(text)));
}

// As in the table of dif/Balances.h; the last two with line 1 inserted, and with line 0.
const std::array<void (*)(Ledger&), 4> Ways{balances::allLines, balances::afterRemoval,
                                            [](Ledger& l) { balances::afterInsertion(l, 1); },
                                            [](Ledger& l) { balances::afterInsertion(l, 0); }};
constexpr const char* Overflow = "overflow";

struct Line {
    const char* rights;
    const char* hours;
    const char* stored;
    std::array<const char*, Ways.size()> balances; // one a way
};

const std::vector<std::vector<Line>> Ledgers = {
    {{"20,00", "", "20", {"20", "20", "20", "20"}},
     {"3,00", "", "", {"23", "23", "23", "23"}},
     {"", "5,00", "15", {"18", "18", "18", "18"}}},
    // A first line of hours: nothing, its own balance, or below zero.
    {{"", "5", "7", {"0", "7", "7", "-5"}}, {"10", "", "", {"10", "17", "17", "5"}}},
    // Both figures; then neither.
    {{"10", "4", "1", {"10", "1", "1", "-4"}},
     {"10", "4", "1", {"20", "0", "-3", "-8"}},
     {"", "", "1", {"20", "0", "-3", "-8"}}},
    // Below zero, and out of it again: a balance raised to zero starts from there.
    {{"1", "", "1", {"1", "1", "1", "1"}},
     {"", "2,5", "", {"-1,5", "0", "-1,5", "-1,5"}},
     {"1", "", "", {"-0,5", "1", "-0,5", "-0,5"}}},
    {{"922337203685477,5807", "", "922337203685477,5807", {Overflow, Overflow, Overflow, Overflow}},
     {"0,0001", "", "", {}}},
    {}};

TEST(DifBalances, TheThreeRecomputationsDifferAsTold) {
    for (const std::vector<Line>& lines : Ledgers)
        for (std::size_t way = 0; way < Ways.size(); ++way) {
            SCOPED_TRACE(testing::Message()
                         << "ledger " << &lines - Ledgers.data() << ", way " << way);
            Ledger ledger;
            for (const Line& line : lines)
                ledger.push_back({figure(line.rights), figure(line.hours),
                                  figure(line.stored).value_or(Fixed4())});
            if (!lines.empty() && lines[0].balances[way] == Overflow) {
                EXPECT_THROW(Ways[way](ledger), Error);
                continue;
            }
            Ways[way](ledger);
            for (std::size_t i = 0; i < lines.size(); ++i)
                EXPECT_EQ(ledger[i].balance, figure(lines[i].balances[way])) << "line " << i;
        }
}

} // namespace
} // namespace vorandine::dif
