#include "logfile/number_text.h"

#include <gtest/gtest.h>

#include <clocale>

namespace tessarin {
namespace {

TEST(NumberTextTest, IntegersInFullWithLeadingBlankOrMinus) {
    EXPECT_EQ(IntegerText(1000), " 1000");
    EXPECT_EQ(IntegerText(0), " 0");
    EXPECT_EQ(IntegerText(-3), "-3");
    EXPECT_EQ(IntegerText(123456789012LL), " 123456789012");  // never scientific
}

struct FloatingCase {
    double value;
    bool single;
    const char* text;
};

class FloatingTextTest : public ::testing::TestWithParam<FloatingCase> {};

// Catches: the "0" before the point, trailing zeros, the switch to scientific form at both
// ends, the exponent's sign and digits, and single versus double precision digits.
TEST_P(FloatingTextTest, WritesTheNumberTextRule) {
    const FloatingCase& c = GetParam();
    EXPECT_EQ(c.single ? SingleText(static_cast<float>(c.value)) : DoubleText(c.value), c.text) << c.value;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FloatingTextTest,
    ::testing::Values(FloatingCase{1000, true, " 1000"}, FloatingCase{-3, true, "-3"}, FloatingCase{0.25, true, " .25"},
                      FloatingCase{-0.25, false, "-.25"}, FloatingCase{0.9463946, true, " .9463946"},
                      FloatingCase{0.0001, true, " .0001"}, FloatingCase{0.00001, true, " 1E-05"},
                      FloatingCase{1e-8, false, " 1E-08"}, FloatingCase{12345678, true, " 1.234568E+07"},
                      FloatingCase{1234567, true, " 1234567"}, FloatingCase{9999999.7, false, " 9999999.7"},
                      FloatingCase{1.0 / 3.0, false, " .333333333333333"}, FloatingCase{1.0 / 3.0, true, " .3333333"},
                      FloatingCase{0.1, true, " .1"}, FloatingCase{45.12, false, " 45.12"}, FloatingCase{0, true, " 0"},
                      FloatingCase{1.5e300, false, " 1.5E+300"}, FloatingCase{2.5, true, " 2.5"}));

TEST(NumberTextTest, PointWhateverTheLocale) {
    // The desktop toolkit sets the C locale from the environment; a comma must never appear.
    const char* previous = std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    EXPECT_EQ(SingleText(2.5F), " 2.5");
    EXPECT_EQ(FixedDecimalsText(2.5, 3), "2.500");
    if (previous != nullptr) std::setlocale(LC_NUMERIC, "C");
}

TEST(NumberTextTest, FixedDecimalsRoundWithLeadingZero) {
    EXPECT_EQ(FixedDecimalsText(0.12345, 3), "0.123");
    EXPECT_EQ(FixedDecimalsText(-1.5, 2), "-1.50");
    EXPECT_EQ(FixedDecimalsText(-0.0001, 3), "0.000");
}

}  // namespace
}  // namespace tessarin
