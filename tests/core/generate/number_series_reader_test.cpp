#include "generate/number_series_reader.h"

#include <gtest/gtest.h>

#include <cmath>

#include "generate/leading_number.h"

namespace tessarin {
namespace {

NumberSeries Parse(const std::string& text) {
    auto series = ParseNumberSeries(text, "s.txt", NoProgress);
    EXPECT_TRUE(series.has_value());
    return series.value_or(NumberSeries{});
}

std::string Refusal(const std::string& text) {
    try {
        ParseNumberSeries(text, "s.txt", NoProgress);
    } catch (const SeriesFileError& error) {
        return error.what();
    }
    return "";
}

// Catches a separator or a line end that is not recognised, and a "+" or a leading point refused.
TEST(NumberSeriesReaderTest, ReadsNumbersBetweenAllSeparators) {
    const NumberSeries series = Parse("1 2\t3,4;5\r\n6\n7\r+8 .5 -1e1\r\n");
    EXPECT_EQ(series.values, (std::vector<float>{1, 2, 3, 4, 5, 6, 7, 8, 0.5F, -10}));
    EXPECT_EQ(series.statistics.count, 10);
    EXPECT_EQ(series.statistics.minimum, -10.0F);
    EXPECT_EQ(series.statistics.maximum, 8.0F);
    EXPECT_DOUBLE_EQ(series.statistics.mean, 2.65);
}

struct RefusalCase {
    const char* text;
    const char* message;
};

class NumberSeriesRefusalTest : public ::testing::TestWithParam<RefusalCase> {};

// Catches bad tokens taken as 0 or cut short, miscounted lines (CR LF is one end, a lone CR or LF
// is one), overflowing or non-finite values kept, and short series accepted.
TEST_P(NumberSeriesRefusalTest, RefusesWithAClearMessage) {
    EXPECT_EQ(Refusal(GetParam().text), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Files, NumberSeriesRefusalTest,
                         ::testing::Values(RefusalCase{"1 2\nabc", "Line 2 of s.txt: \"abc\" is not a number"},
                                           RefusalCase{"1\r\n2\r\n3x", "Line 3 of s.txt: \"3x\" is not a number"},
                                           RefusalCase{"1\r2\n\n4 5..6", "Line 4 of s.txt: \"5..6\" is not a number"},
                                           RefusalCase{"1 1e39", "Line 1 of s.txt: \"1e39\" is not a number"},
                                           RefusalCase{"1 nan", "Line 1 of s.txt: \"nan\" is not a number"},
                                           RefusalCase{"1 inf", "Line 1 of s.txt: \"inf\" is not a number"},
                                           RefusalCase{" 5\r\n", "File s.txt contains no time series"},
                                           RefusalCase{"", "File s.txt contains no time series"}));

struct NumberCase {
    const char* text;
    double value;
};

class LeadingNumberTest : public ::testing::TestWithParam<NumberCase> {};

// Catches blanks read inside a number, a sign or exponent dropped, and junk taken as a number.
TEST_P(LeadingNumberTest, ReadsTheLeadingNumber) {
    EXPECT_EQ(LeadingNumber(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Answers, LeadingNumberTest,
                         ::testing::Values(NumberCase{"1 0", 1}, NumberCase{" \t-1.5e1x", -15}, NumberCase{".5", 0.5},
                                           NumberCase{"+3", 3}, NumberCase{"1e", 1}, NumberCase{"2E+2", 200},
                                           NumberCase{"abc", 0}, NumberCase{"", 0}, NumberCase{"-", 0},
                                           NumberCase{"1e999", HUGE_VAL}, NumberCase{"1e-999", 0}));

// Catches rounding halves away from zero, and an overflowing cast.
TEST(LeadingNumberTest, RoundsHalvesToEven) {
    EXPECT_EQ(RoundedToInt(2.5), 2);
    EXPECT_EQ(RoundedToInt(3.5), 4);
    EXPECT_EQ(RoundedToInt(-0.5), 0);
    EXPECT_EQ(RoundedToInt(1e20), 2147483647);
}

}  // namespace
}  // namespace tessarin
