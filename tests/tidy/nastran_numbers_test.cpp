#include <array>
#include <cmath>
#include <cstdio>
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

// The forms that eight columns can have, tried one by one.
double nearest(double value) {
    double best = 0.0;
    std::array<char, 64> text;
    const auto take = [&](const char* form, int decimals, double scaled, int exponent) {
        int size = std::snprintf(text.data(), text.size(), form, decimals, scaled);
        std::string field(text.data(), static_cast<std::size_t>(size));
        if (field.find('.') != std::string::npos && exponent == 0)
            if (const auto zero = field.find("0."); zero == 0 || (zero == 1 && field[0] == '-'))
                field.erase(zero, 1);
        std::string scanned = field;
        if (exponent != 0) {
            field += (exponent > 0 ? "E" : "") + std::to_string(exponent);
            scanned += "E" + std::to_string(exponent);
        }
        const double read = std::stod(scanned);
        if (field.size() <= 8 && std::abs(read - value) < std::abs(best - value))
            best = read;
    };
    for (int decimals = 0; decimals < 8; ++decimals)
        take("%.*f", decimals, value, 0);
    for (int digits = 1; digits < 9; ++digits) {
        std::snprintf(text.data(), text.size(), "%.*e", digits - 1, value);
        const std::string rounded = text.data();
        const int exponent = std::stoi(rounded.substr(rounded.find('e') + 1)) - (digits - 1);
        std::string mantissa = rounded.substr(0, rounded.find('e'));
        std::erase(mantissa, '.');
        take("%.*f", 0, std::stod(mantissa), exponent);
    }
    return best;
}

TEST(TidyNastranNumbers, NoOtherFormIsNearerThanAFloatCanTell) {
    std::mt19937 random(20);
    std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
    std::uniform_int_distribution<int> exponent(-20, 20);
    for (int i = 0; i < 20'000; ++i) {
        const double value = mantissa(random) * std::pow(10.0, exponent(random));
        const double best = nearest(value);
        const ShortReal number = shortenReal(value);
        double read = 0.0;
        ASSERT_TRUE(readReal(number.text(), read));
        ASSERT_EQ(read, number.value);
        ASSERT_TRUE(isPlainReal(number.text())) << number.text();
        if (static_cast<float>(read) != static_cast<float>(best)) {
            ASSERT_LE(std::abs(read - value), std::abs(best - value))
                << value << " " << number.text();
        }
    }
}

}  // namespace
