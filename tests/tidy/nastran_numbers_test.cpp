#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <string_view>

#include "tidy/nastran/numbers.h"

namespace {

using namespace kvocaeio::tidy::nastran;

double realOf(std::string_view text) {
    double value = -77.0;
    EXPECT_TRUE(readReal(text, value)) << text;
    return value;
}

std::string shortened(double value) {
    return std::string(shortenReal(value).text());
}

TEST(TidyNastranNumbers, RealsInAllTheirForms) {
    EXPECT_EQ(realOf("1.5"), 1.5);
    EXPECT_EQ(realOf("+1.5"), 1.5);
    EXPECT_EQ(realOf("-.5"), -0.5);
    EXPECT_EQ(realOf("7"), 7.0);
    EXPECT_EQ(realOf("7."), 7.0);
    EXPECT_EQ(realOf("1.5E3"), 1500.0);
    EXPECT_EQ(realOf("1.5e+3"), 1500.0);
    EXPECT_EQ(realOf("1.5D+3"), 1500.0);
    EXPECT_EQ(realOf("1.5d-3"), 0.0015);
    EXPECT_EQ(realOf("1.5+3"), 1500.0);
    EXPECT_EQ(realOf("-1.5-3"), -0.0015);
    EXPECT_EQ(realOf("70.-1"), 7.0);
}

TEST(TidyNastranNumbers, WhatIsNoReal) {
    for (const std::string_view text :
         {"", ".", "-", "+", "E5", "1.5E", "1.5+", "1.5-", "1 5", "1.5.", "1,5", "0x10", "inf",
          "nan", "--1", "1.5F3", "1E999"}) {
        double value = 0.0;
        EXPECT_FALSE(readReal(text, value)) << text;
    }
}

TEST(TidyNastranNumbers, IntegersHaveSignsAndNothingElse) {
    long long value = 0;
    EXPECT_TRUE(readInteger("+12", value));
    EXPECT_EQ(value, 12);
    EXPECT_TRUE(readInteger("-7", value));
    EXPECT_EQ(value, -7);
    EXPECT_TRUE(readInteger("99999999999999999999", value));
    EXPECT_EQ(value, std::numeric_limits<long long>::max());
    for (const std::string_view text : {"", "-", "1.", "1 2", "x"})
        EXPECT_FALSE(readInteger(text, value)) << text;
}

TEST(TidyNastranNumbers, PlainRealsAreThoseTheReaderTakes) {
    for (const std::string_view text :
         {"1.5", "-1.5", "1.5E3", "1.5E-3", "1.5-3", "12345678", ".5"})
        EXPECT_TRUE(isPlainReal(text)) << text;
    for (const std::string_view text :
         {"+1.5", "1.5E+3", "1.5+3", "1.5D3", "1.5d-3", "123456789", ""})
        EXPECT_FALSE(isPlainReal(text)) << text;
}

TEST(TidyNastranNumbers, EightColumnsHoldAsManyDigitsAsFit) {
    EXPECT_EQ(shortened(0.0), "0.");
    EXPECT_EQ(shortened(1.0), "1.");
    EXPECT_EQ(shortened(-2.5), "-2.5");
    EXPECT_EQ(shortened(0.25), ".25");
    EXPECT_EQ(shortened(1.0 / 3.0), ".3333333");
    EXPECT_EQ(shortened(-2.0 / 3.0), "-.666667");
    EXPECT_EQ(shortened(123.456789), "123.4568");
    EXPECT_EQ(shortened(1234567.4), "1234567.");
    EXPECT_EQ(shortened(-123456.78), "-123457.");
}

TEST(TidyNastranNumbers, LargeAndSmallOnesHaveExponents) {
    EXPECT_EQ(shortened(1.5e9), "1.5E9");
    EXPECT_EQ(shortened(1.23456e-4), "123456-9");  // a point would cost a digit
    EXPECT_EQ(shortened(1.234e-4), ".0001234");
    EXPECT_EQ(shortened(1.2345e-4), "1.2345-4");
    EXPECT_EQ(shortened(12345678.0), "12345678");
    EXPECT_EQ(shortened(-1e-30), "-1.-30");
    EXPECT_EQ(shortened(1e300), "1.E300");
    EXPECT_EQ(shortened(-4160670.02), "-4160670");
}

TEST(TidyNastranNumbers, RoundingMayMakeANumberLonger) {
    EXPECT_EQ(shortened(9999999.97), "1.E7");
    EXPECT_EQ(shortened(999999.96), "1000000.");
    EXPECT_EQ(shortened(0.99999999), "1.");
}

// The most digits of an integer times this power of ten that so many columns hold: behind a point,
// or with the power as an exponent. A point and an exponent together hold no more.
int mostDigits(int power, int columns) {
    const std::string exponent = power == 0 ? "" : (power > 0 ? "E" : "") + std::to_string(power);
    const int before = columns - static_cast<int>(exponent.size());
    return power < 0 && -power < columns ? std::max(columns - 1, before) : before;
}

// Of all decimals that columns hold, the one that is nearest to a number above 0, by trial of each
// power of ten that can matter. The C library rounds the exact digits.
double nearestDecimal(double magnitude, int columns) {
    double best = 0.0;
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), "%.0e", magnitude);
    const int first = std::atoi(text.data() + 2);  // the power of the first digit
    for (int count = 1; count <= 9; ++count) {
        std::snprintf(text.data(), text.size(), "%.*e", count - 1, magnitude);
        const double read = std::strtod(text.data(), nullptr);
        for (const int start : {first - 1, first})  // which rounding may have made larger
            if (count <= mostDigits(start - count + 1, columns) &&
                std::atoi(std::strchr(text.data(), 'e') + 1) == start &&
                std::abs(read - magnitude) < std::abs(best - magnitude))
                best = read;
    }
    return best;
}

void expectNearest(double value) {
    const ShortReal number = shortenReal(value);
    double read = 0.0;
    ASSERT_LE(number.size, 8u);
    ASSERT_TRUE(readReal(number.text(), read)) << number.text();
    ASSERT_EQ(read, number.value);
    ASSERT_TRUE(isPlainReal(number.text())) << number.text();
    const double best = nearestDecimal(std::abs(value), std::signbit(value) ? 7 : 8);
    ASSERT_LE(std::abs(std::abs(read) - std::abs(value)), std::abs(best - std::abs(value)))
        << std::hexfloat << value << " " << number.text() << " " << std::defaultfloat << best;
}

TEST(TidyNastranNumbers, NoOtherDecimalOfEightColumnsIsNearer) {
    std::mt19937_64 random(20);
    std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
    std::uniform_int_distribution<int> exponent(-20, 20);
    std::uniform_int_distribution<int> digits(1, 9);
    for (int i = 0; i < 20'000; ++i)
        expectNearest(mantissa(random) * std::pow(10.0, exponent(random)));
    for (int i = 0; i < 20'000; ++i) {  // numbers of few digits, as decks have them
        std::array<char, 64> text;
        std::snprintf(text.data(), text.size(), "%.*e", digits(random),
                      mantissa(random) * std::pow(10.0, exponent(random) / 2));
        expectNearest(std::strtod(text.data(), nullptr));
    }
    for (int i = 0; i < 20'000; ++i)  // of all sizes
        if (const auto value = std::bit_cast<double>(random());
            std::isfinite(value) && std::abs(value) < 1e307)
            expectNearest(value);
}

TEST(TidyNastranNumbers, WhatFitsIsKeptExactly) {
    for (const std::string_view text : {"51234001", "1.-50", "12345E35", "-1234567", ".1234567",
                                        "-.000123", "1.2345-9", "12345-13", "1.E300", "4.-320"}) {
        double value = 0.0;
        ASSERT_TRUE(readReal(text, value));
        EXPECT_EQ(shortenReal(value).value, value) << text;
    }
}

}  // namespace
