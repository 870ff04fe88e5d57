/// Facts of the scanned fields.
#include "text/scan.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace kvocaeio::text {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr int kMaxInt = std::numeric_limits<int>::max();
constexpr int kMinInt = std::numeric_limits<int>::min();

// "%d" into a variable that holds 77.
int integerOf(std::string_view text) {
    int value = 77;
    Scan(text).integer(value);
    return value;
}

// What "%lf" stores into a variable that holds 77, and what it leaves of the text; "!" for a
// failure.
struct RealField {
    double value;
    std::string rest;
    bool operator==(const RealField& other) const {
        return value == other.value && std::signbit(value) == std::signbit(other.value) &&
               rest == other.rest;
    }
};

void PrintTo(const RealField& field, std::ostream* out) {
    *out << field.value << " and \"" << field.rest << '"';
}

RealField realOf(std::string_view text, std::size_t width = Scan::kNoWidth) {
    double value = 77;
    Scan scan(text);
    if (!scan.real(value, width))
        return {value, "!"};
    // The rest is the longest end of the text that comes next, character by character.
    const auto comesNext = [&scan](std::string_view end) {
        Scan ahead = scan;
        return std::ranges::all_of(end, [&ahead](char c) { return ahead.literal(c); });
    };
    while (!comesNext(text))
        text.remove_prefix(1);
    return {value, std::string(text)};
}

double doubleOf(std::string_view text) {
    return realOf(text).value;
}

float floatOf(std::string_view text) {
    float value = 77;
    Scan(text).real(value);
    return value;
}

TEST(ScanInteger, TakesSignAndDigitsBehindWhiteSpace) {
    EXPECT_EQ(integerOf("42"), 42);
    EXPECT_EQ(integerOf(" \t\n\v\f\r-42"), -42);
    EXPECT_EQ(integerOf("+42"), 42);
    EXPECT_EQ(integerOf("007"), 7);
    EXPECT_EQ(integerOf("12,13"), 12);
    EXPECT_EQ(integerOf("1.9"), 1);
    EXPECT_EQ(integerOf("0x10"), 0);
}

TEST(ScanInteger, FailureKeepsTheValue) {
    for (const char* text : {"", "  ", "-", "+", "--1", "+-1", "- 1", "abc", ",1", "."})
        EXPECT_EQ(integerOf(text), 77) << text;
}

TEST(ScanInteger, OutOfRangeIsTheNearestEnd) {
    EXPECT_EQ(integerOf("2147483647"), kMaxInt);
    EXPECT_EQ(integerOf("2147483648"), kMaxInt);
    EXPECT_EQ(integerOf("-2147483648"), kMinInt);
    EXPECT_EQ(integerOf("-2147483649"), kMinInt);
    EXPECT_EQ(integerOf("4294967297"), kMaxInt);
    EXPECT_EQ(integerOf("99999999999999999999999999999999"), kMaxInt);
    EXPECT_EQ(integerOf("-99999999999999999999999999999999"), kMinInt);
    EXPECT_EQ(integerOf("00000000000000000000000000000012"), 12);
}

TEST(ScanInteger, LongNumberIsUsedUp) {
    Scan scan("99999999999999999999 5");
    int first = 0;
    int second = 0;
    EXPECT_TRUE(scan.integer(first) && scan.integer(second));
    EXPECT_EQ(second, 5);
}

TEST(ScanInteger, WidthCountsSignButNoLeadingBlanks) {
    Scan columns("  12345678-9");
    int first = 0;
    int second = 0;
    int third = 0;
    EXPECT_TRUE(columns.integer(first, 4) && columns.integer(second, 8) &&
                columns.integer(third, 2));
    EXPECT_EQ(first, 1234);
    EXPECT_EQ(second, 5678);
    EXPECT_EQ(third, -9);
    int alone = 77;
    EXPECT_FALSE(Scan("-5").integer(alone, 1));
    EXPECT_EQ(alone, 77);
}

TEST(ScanReal, TakesDecimalNumbers) {
    EXPECT_EQ(realOf("1.5,"), (RealField{1.5, ","}));
    EXPECT_EQ(realOf(" \t+.5 x"), (RealField{0.5, " x"}));
    EXPECT_EQ(realOf("-5."), (RealField{-5, ""}));
    EXPECT_EQ(realOf("1e3"), (RealField{1000, ""}));
    EXPECT_EQ(realOf("25.E-1"), (RealField{2.5, ""}));
    EXPECT_EQ(realOf("-0"), (RealField{-0.0, ""}));
    EXPECT_EQ(realOf("1.2.3"), (RealField{1.2, ".3"}));
    EXPECT_EQ(realOf("1d5"), (RealField{1, "d5"}));
    EXPECT_EQ(realOf("1-3"), (RealField{1, "-3"}));
}

TEST(ScanReal, ExponentWithoutDigitsIsUsedUp) {
    EXPECT_EQ(realOf("1.0e"), (RealField{1, ""}));
    EXPECT_EQ(realOf("1.0E-"), (RealField{1, ""}));
    EXPECT_EQ(realOf("1.5e+x"), (RealField{1.5, "x"}));
    EXPECT_EQ(realOf("1.5e+-5"), (RealField{1.5, "-5"}));
    EXPECT_EQ(realOf("2e 5"), (RealField{2, " 5"}));
    EXPECT_EQ(realOf("2e5e5"), (RealField{2e5, "e5"}));
    EXPECT_EQ(realOf("2e5.5"), (RealField{2e5, ".5"}));
}

TEST(ScanReal, FailureKeepsTheValue) {
    for (const char* text : {"", " ", ".", "-", "-.", "e5", ".e5", "--1", "na", "in", "infi",
                             "infinit", "0x", "0xg", "0xp3", ",1"})
        EXPECT_EQ(realOf(text), (RealField{77, "!"})) << text;
}

TEST(ScanReal, TakesInfinityAndNan) {
    EXPECT_EQ(realOf("inf,"), (RealField{kInfinity, ","}));
    EXPECT_EQ(realOf("-INF"), (RealField{-kInfinity, ""}));
    EXPECT_EQ(realOf("InFiNiTyx"), (RealField{kInfinity, "x"}));
    EXPECT_EQ(realOf("infx"), (RealField{kInfinity, "x"}));
    EXPECT_TRUE(std::isnan(doubleOf("NaN")));
    EXPECT_FALSE(std::signbit(doubleOf("nan")));
    EXPECT_TRUE(std::signbit(doubleOf("-nan")));
    EXPECT_EQ(realOf("nan(12)").rest, "(12)");
}

TEST(ScanReal, TakesHexadecimalNumbers) {
    EXPECT_EQ(realOf("0x1.8g"), (RealField{1.5, "g"}));
    EXPECT_EQ(realOf("-0XAp-1"), (RealField{-5, ""}));
    EXPECT_EQ(realOf("0x1e5"), (RealField{485, ""}));
    EXPECT_EQ(realOf("0x1p+x"), (RealField{1, "x"}));
    EXPECT_EQ(realOf("0x.p3"), (RealField{0, "p3"}));
    EXPECT_EQ(realOf("00x1"), (RealField{0, "x1"}));
    EXPECT_EQ(doubleOf("0x1p1024"), kInfinity);
    EXPECT_EQ(doubleOf("0x.0001p1028"), 0x1p1012);
    EXPECT_EQ(doubleOf("0x1p-1074"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(doubleOf("0x1p-1075"), 0);
    EXPECT_EQ(doubleOf("0x1.8p-1075"), std::numeric_limits<double>::denorm_min());
}

TEST(ScanReal, WidthEndsTheNumber) {
    EXPECT_EQ(realOf("12.345", 4), (RealField{12.3, "45"}));
    EXPECT_EQ(realOf("  1e15", 3), (RealField{10, "5"}));
    EXPECT_EQ(realOf("1e15", 2), (RealField{1, "15"}));
    EXPECT_EQ(realOf("infinity", 3), (RealField{kInfinity, "inity"}));
    EXPECT_EQ(realOf("infinity", 5), (RealField{77, "!"}));
    EXPECT_EQ(realOf("nan", 2), (RealField{77, "!"}));
    EXPECT_EQ(realOf("0x15", 3), (RealField{1, "5"}));
    EXPECT_EQ(realOf("0x15", 2), (RealField{0, "x15"}));
    EXPECT_EQ(realOf("-5", 1), (RealField{77, "!"}));
}

TEST(ScanReal, RangeEndsInInfinityAndZero) {
    EXPECT_EQ(doubleOf("1e308"), 1e308);
    EXPECT_EQ(doubleOf("1.7976931348623159e308"), kInfinity);
    EXPECT_EQ(doubleOf("-1e99999999999999999999"), -kInfinity);
    EXPECT_EQ(realOf("-1e-99999999999999999999"), (RealField{-0.0, ""}));
    EXPECT_EQ(doubleOf("4.9e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(doubleOf("2.4703282292062328e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(doubleOf("2.4703282292062327e-324"), 0);
    EXPECT_EQ(doubleOf("0e99999"), 0);
    EXPECT_EQ(doubleOf("0." + std::string(400, '0') + "1e401"), 1);
    EXPECT_EQ(doubleOf("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(doubleOf("1" + std::string(400, '0')), kInfinity);
    EXPECT_EQ(doubleOf("1" + std::string(400, '0') + "e-400"), 1);
}

TEST(ScanReal, TiesGoToTheEvenNeighbour) {
    EXPECT_EQ(doubleOf("9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(doubleOf("9007199254740993.00000000000000000000000000000001"), 9007199254740994.0);
    EXPECT_EQ(doubleOf("9007199254740995"), 9007199254740996.0);
}

// 1 + 2^-24, half way between two floats, and a little more: by way of double both would be 1.
TEST(ScanReal, FloatIsRoundedOnce) {
    EXPECT_EQ(floatOf("1.000000059604644775390625"), 1.0F);
    EXPECT_EQ(floatOf("1.000000059604644775390626"), 1.00000012F);
    EXPECT_EQ(floatOf("16777217"), 16777216.0F);
    EXPECT_EQ(floatOf("1e39"), std::numeric_limits<float>::infinity());
    EXPECT_EQ(floatOf("1e-46"), 0.0F);
}

TEST(ScanWord, TakesAllUpToWhiteSpace) {
    Scan scan("  *NODE,NSET=A\tnext\r\n");
    std::string_view first;
    std::string_view second;
    std::string_view third = "kept";
    EXPECT_TRUE(scan.word(first));
    EXPECT_TRUE(scan.word(second));
    EXPECT_FALSE(scan.word(third));
    EXPECT_EQ(first, "*NODE,NSET=A");
    EXPECT_EQ(second, "next");
    EXPECT_EQ(third, "kept");
}

TEST(ScanWord, WidthEndsTheWord) {
    Scan scan(" abcdef");
    std::string_view first;
    std::string_view second;
    EXPECT_TRUE(scan.word(first, 4) && scan.word(second, 4));
    EXPECT_EQ(first, "abcd");
    EXPECT_EQ(second, "ef");
}

TEST(Scan, FieldsBehindAFailureFail) {
    Scan scan("1 x 2");
    int value = 0;
    std::string_view word = "kept";
    EXPECT_TRUE(scan.integer(value));
    EXPECT_FALSE(scan.integer(value));
    EXPECT_FALSE(scan.word(word));
    EXPECT_EQ(value, 1);
    EXPECT_EQ(word, "kept");
}

TEST(Scan, LiteralsStandWhereTheyAreAskedFor) {
    int first = 0;
    int second = 0;
    Scan noBlank("1 ,2");
    EXPECT_FALSE(noBlank.integer(first) && noBlank.literal(',') && noBlank.integer(second));
    Scan freeBlanks("1 \t, 2");
    EXPECT_TRUE(freeBlanks.integer(first) && freeBlanks.separator(',') &&
                freeBlanks.integer(second));
    EXPECT_EQ(second, 2);
}

TEST(Scan, TheRestIsWhatNoDirectiveHasTaken) {
    int number = 0;
    Scan scan("12.5, 3");
    EXPECT_TRUE(scan.integer(number));
    EXPECT_EQ(scan.rest(), ".5, 3");
    EXPECT_FALSE(scan.literal(','));
    EXPECT_EQ(scan.rest(), "");
}

TEST(TrimSpace, TakesWhiteSpaceOfAllKindsAtBothEnds) {
    EXPECT_EQ(trimSpace(" \t a b\v\r\n"), "a b");
    EXPECT_EQ(trimSpace(" \n"), "");
}

TEST(Scan, TextEndsAtItsFirstNul) {
    using namespace std::string_view_literals;
    EXPECT_EQ(integerOf("12\0003"sv), 12);
    EXPECT_EQ(integerOf("\0003"sv), 77);
    std::string_view word;
    EXPECT_TRUE(Scan("ab\0cd"sv).word(word));
    EXPECT_EQ(word, "ab");
    EXPECT_FALSE(Scan("\0cd"sv).word(word));
}

TEST(ToInteger, IsZeroWithoutANumber) {
    EXPECT_EQ(toInteger(" -12abc"), -12);
    EXPECT_EQ(toInteger("99999999999"), kMaxInt);
    EXPECT_EQ(toInteger("abc"), 0);
    EXPECT_EQ(toInteger(""), 0);
}

TEST(ToReal, TakesTheFrontOfAFieldThatFails) {
    EXPECT_EQ(toReal(" -1.5e2abc"), -150);
    EXPECT_EQ(toReal("1e"), 1);
    EXPECT_EQ(toReal("abc"), 0);
    EXPECT_EQ(toReal(""), 0);
    EXPECT_EQ(toReal("info"), kInfinity);
    EXPECT_EQ(toReal("-infini"), -kInfinity);
    EXPECT_TRUE(std::signbit(toReal("-0x")));
}

}  // namespace
}  // namespace kvocaeio::text
