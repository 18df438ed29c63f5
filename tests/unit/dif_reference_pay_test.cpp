// The arithmetic of the reference pay: what is exact, where it is rounded, what is no number.
#include "dif/ReferencePay.h"

#include "rules/Numbers.h"
#include "text/Characters.h"
#include "text/Error.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace vorandine::dif {
namespace {

using Lines = std::vector<std::pair<std::string, std::string>>; // hours and pay

std::string payOf(const Lines& lines) {
    records::DBARecord rows;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const int row = static_cast<int>(i) + 1;
        rows(row, 1) = "00012";
        rows(row, 2) = lines[i].first;
        rows(row, 3) = lines[i].second;
    }
    const auto pay = payOverHours(rows);
    return pay ? text::Trim(rules::Format_Numerique(*pay, 10, 2, false)) : "nothing";
}

TEST(ReferencePay, DividesTheSumsAndRoundsOnce) {
    struct Case {
        Lines lines;
        std::string pay;
    };
    const std::vector<Case> cases{
        {{{"10", "100"}, {"20", "300"}}, "13,33"},
        {{{"2", "25"}}, "12,50"},
        {{{"3", "2"}}, "0,67"},
        // A half goes away from zero as it is written, not as its nearest binary fraction.
        {{{"1", "1,005"}}, "1,01"},
        {{{"1", "-1,005"}}, "-1,01"},
        {{{"200", "201"}}, "1,01"},
        {{{"8", "1"}}, "0,13"},
        {{{"100000", "499,9999"}}, "0,00"},
        {{{"100000", "500"}}, "0,01"},
        // Each value to 4 decimals before it is added, the sums exact.
        {{{"1", "0,00004"}, {"0", "0,00004"}}, "0,00"},
        {{{"0,0001", "0,00005"}}, "1,00"},
        {{{"0,1", "0,1"}, {"0,2", "0,2"}, {"0,3", "0,3"}}, "1,00"},
        {{{"1", "900000000000000,01"}, {"", "0,0001"}}, "900000000000000,00"},
        {{{"0,0001", "900000000000000"}}, "9000000000000000000,00"},
        {{{"", "7"}, {"2", ""}, {" 2 ", " 1,5 "}}, "2,13"},
        {{{"2", "-25"}}, "-12,50"},
        {{{"5", ""}}, "0,00"},
        {{{"5", "10"}, {"-5", "10"}}, "nothing"},
        {{{"", "10"}}, "nothing"},
        {{{"0,00004", "10"}}, "nothing"},
    };
    for (const Case& one : cases)
        EXPECT_EQ(payOf(one.lines), one.pay) << one.lines[0].first << " h, " << one.lines[0].second;
}

TEST(ReferencePay, RefusesWhatCannotBeAdded) {
    const auto numberOf = [](const Lines& lines) {
        try {
            return payOf(lines), std::uint32_t{0};
        } catch (const Error& error) {
            return error.number();
        }
    };
    EXPECT_EQ(numberOf({{"1", "dix"}}), errors::NotANumber);
    EXPECT_EQ(numberOf({{"1.5", "10"}}), errors::NotANumber);
    EXPECT_EQ(numberOf({{"1", "99999999999999999999"}}), errors::Overflow);
    EXPECT_EQ(numberOf({{"1", "900000000000000"}, {"1", "900000000000000"}}), errors::Overflow);
}

} // namespace
} // namespace vorandine::dif
