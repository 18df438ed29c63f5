// Exact decimal numbers and the fixed-point sums made of them.
#include "text/Decimal.h"
#include "text/Error.h"
#include "text/Fixed4.h"

#include <gtest/gtest.h>

namespace vorandine::text {
namespace {

Decimal number(const char* written) {
    return Decimal::require(written);
}

TEST(Decimals, ReadWhatIsANumberAndNothingElse) {
    const struct {
        const char* written;
        const char* read;
    } numbers[] = {
        {"7", "7"},
        {"  7,5 ", "7,5"},
        {",5", "0,5"},
        {"5,", "5"},
        {"-0,50", "-0,5"},
        {"-0", "0"},
        {"000", "0"},
        {"0,000", "0"},
        {"007,100", "7,1"},
        {"100", "100"},
        {"-,5", "-0,5"},
        {"123456789012345678901234567890,10", "123456789012345678901234567890,1"},
    };
    for (const auto& [written, read] : numbers)
        EXPECT_EQ(number(written).toText(), read) << written;
    for (const char* other : {"", "   ", ",", "-", "-,", "1 000", "1.5", "+1", "--1", "1,2,3",
                              "1e3", "٣", "\t1", "5-"}) {
        EXPECT_FALSE(Decimal::parse(other)) << other;
        EXPECT_THROW((void)Decimal::require(other), Error) << other;
    }
}

TEST(Decimals, RoundOnTheirDigitsHalfAwayFromZero) {
    const struct {
        const char* value;
        int decimals;
        const char* text;
        const char* scaled;
    } cases[] = {
        {"1,005", 2, "1,01", "101"},
        {"2,675", 2, "2,68", "268"},
        {"1,00499999", 2, "1,00", "100"},
        {"-1,005", 2, "-1,01", "-101"},
        {"0,004", 2, "0,00", "0"},
        {"-0,004", 2, "-0,00", "0"},
        {"0,005", 2, "0,01", "1"},
        {"0,0005", 2, "0,00", "0"},
        {"9,995", 2, "10,00", "1000"},
        {"99,5", 0, "100", "100"},
        {"0,5", 0, "1", "1"},
        {"0,49", 0, "0", "0"},
        {"7", 2, "7,00", "700"},
        {"0", 2, "0,00", "0"},
        {",05", 1, "0,1", "1"},
        {"12,3", 4, "12,3000", "123000"},
    };
    for (const auto& [value, decimals, text, scaled] : cases) {
        EXPECT_EQ(number(value).toText(decimals), text) << value;
        EXPECT_EQ(number(value).scaledText(decimals), scaled) << value;
    }
}

TEST(Decimals, TheFloorGoesDownBelowZero) {
    const struct {
        const char* value;
        const char* floor;
    } cases[] = {{"12,5", "12"}, {"0,9", "0"},       {"0", "0"},  {"-0,1", "-1"}, {"-12,5", "-13"},
                 {"-12", "-12"}, {"-99,01", "-100"}, {",5", "0"}, {"100", "100"}};
    for (const auto& [value, floor] : cases)
        EXPECT_EQ(number(value).floorText(), floor) << value;
}

TEST(Decimals, ShiftingMovesTheCommaExactly) {
    const struct {
        const char* value;
        int places;
        const char* shifted;
    } cases[] = {{"12,5", 1, "125"},   {"12,5", 3, "12500"}, {"12,5", -3, "0,0125"},
                 {"-1200", -2, "-12"}, {"0,001", 3, "1"},    {"0", 5, "0"},
                 {"1200", -3, "1,2"},  {"0,5", 0, "0,5"}};
    for (const auto& [value, places, shifted] : cases) {
        EXPECT_EQ(number(value).shifted(places).toText(), shifted) << value;
        EXPECT_EQ(number(value).shifted(places).shifted(-places).toText(), number(value).toText());
    }
}

TEST(FixedPoint, SumsAreExactAndTextComesBack) {
    Fixed4 sum;
    for (int i = 0; i < 1000; ++i)
        sum += Fixed4(number("0,1"));
    EXPECT_EQ(sum, Fixed4(number("100")));
    EXPECT_EQ((sum - Fixed4(number("100,00005"))).toDecimal().toText(), "-0,0001");
    EXPECT_EQ(Fixed4(number("12,345")).toDecimal().toText(), "12,345");
    EXPECT_LT(Fixed4(number("-2")), Fixed4(number("-1,9999")));
    EXPECT_DOUBLE_EQ(Fixed4(number("-7,25")).toDouble(), -7.25);
}

TEST(FixedPoint, WhatDoesNotFitIsAnErrorAndChangesNothing) {
    const char* const greatest = "922337203685477,5807";
    const char* const least = "-922337203685477,5808";
    const Fixed4 step(number("0,0001"));
    Fixed4 top(number(greatest));
    Fixed4 bottom(number(least));
    EXPECT_THROW(top += step, Error);
    EXPECT_THROW(bottom -= step, Error);
    EXPECT_EQ(top.toDecimal().toText(), greatest);
    EXPECT_EQ(bottom.toDecimal().toText(), least);
    EXPECT_THROW(Fixed4(number("922337203685477,58075")), Error);
    EXPECT_THROW(Fixed4(number("-922337203685477,58085")), Error);
    EXPECT_THROW(Fixed4(number("1000000000000000000000000")), Error);
    EXPECT_EQ(top + bottom, Fixed4(number("-0,0001")));
}

} // namespace
} // namespace vorandine::text
