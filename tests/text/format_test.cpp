/// Facts of the formatted fields.
#include "text/format.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "support/files.h"
#include "text/file.h"

namespace kvocaeio::text {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// What `write` writes, as it stands in the file.
std::string written(const std::function<void(Writer&)>& write) {
    const test::TempFolder folder;
    {
        const File file = openFile(folder.file("file").c_str(), "wb");
        Writer writer(file.get());
        write(writer);
        EXPECT_TRUE(writer.flush());
    }
    return test::readBytes(folder.path() / "file");
}

std::string integer(int value, int width = 0) {
    return written([=](Writer& writer) { writer.integer(value, width); });
}

std::string fixed(double value, int decimals = 6, int width = 0) {
    return written([=](Writer& writer) { writer.fixed(value, decimals, width); });
}

std::string scientific(double value, int width = 0) {
    return written([=](Writer& writer) { writer.scientific(value, width); });
}

TEST(Writer, WritesTextAsItStands) {
    EXPECT_EQ(written([](Writer& writer) {
                  writer.text("ID = ").integer(7).text(" , (").fixed(0.5).text(")\n");
                  writer.character('a').character('\n').text("");
              }),
              "ID = 7 , (0.500000)\na\n");
}

TEST(Writer, Integers) {
    EXPECT_EQ(integer(0), "0");
    EXPECT_EQ(integer(-2147483647 - 1), "-2147483648");
    EXPECT_EQ(integer(12, 8), "      12");
    EXPECT_EQ(integer(-12, 8), "     -12");
    EXPECT_EQ(integer(123456789, 8), "123456789");
}

TEST(Writer, FixedReals) {
    EXPECT_EQ(fixed(0), "0.000000");
    EXPECT_EQ(fixed(-0.0), "-0.000000");
    EXPECT_EQ(fixed(-1e-7), "-0.000000");
    EXPECT_EQ(fixed(1.0 / 3), "0.333333");
    EXPECT_EQ(fixed(0.5, 0), "0");
    EXPECT_EQ(fixed(1.5, 0), "2");
    EXPECT_EQ(fixed(12.0625, 3, 8), "  12.062");
    EXPECT_EQ(fixed(-12.1875, 3, 8), " -12.188");
    EXPECT_EQ(fixed(12345678.9, 3, 8), "12345678.900");
}

TEST(Writer, ScientificReals) {
    EXPECT_EQ(scientific(0), "0.000000E+00");
    EXPECT_EQ(scientific(-0.0), "-0.000000E+00");
    EXPECT_EQ(scientific(1234.5678, 16), "    1.234568E+03");
    EXPECT_EQ(scientific(-1e-9, 16), "   -1.000000E-09");
    EXPECT_EQ(scientific(1e100, 16), "   1.000000E+100");
    EXPECT_EQ(scientific(9999999.4), "9.999999E+06");
    EXPECT_EQ(scientific(9999999.5), "1.000000E+07");  // half way, to the even digit
    EXPECT_EQ(scientific(9999999.6), "1.000000E+07");
    EXPECT_EQ(scientific(999999.95), "9.999999E+05");  // just below half way
    EXPECT_EQ(scientific(99999995), "1.000000E+08");
    EXPECT_EQ(scientific(99999994), "9.999999E+07");
}

TEST(Writer, InfinityAndNan) {
    EXPECT_EQ(fixed(HUGE_VAL), "inf");
    EXPECT_EQ(fixed(-HUGE_VAL, 3, 8), "    -inf");
    EXPECT_EQ(fixed(std::copysign(kNan, 1.0)), "nan");
    EXPECT_EQ(fixed(std::copysign(kNan, -1.0)), "-nan");
    EXPECT_EQ(scientific(HUGE_VAL, 16), "             INF");
    EXPECT_EQ(scientific(-HUGE_VAL), "-INF");
    EXPECT_EQ(scientific(std::copysign(kNan, 1.0)), "NAN");
    EXPECT_EQ(scientific(std::copysign(kNan, -1.0)), "-NAN");
}

TEST(Writer, LargestRealHasAllItsDigits) {
    const std::string digits = fixed(-std::numeric_limits<double>::max());
    EXPECT_EQ(digits.size(), 1U + 309 + 1 + 6);
    EXPECT_EQ(digits.substr(0, 18), "-17976931348623157");
    EXPECT_EQ(digits.substr(digits.size() - 13), "858368.000000");
    EXPECT_EQ(fixed(std::numeric_limits<double>::denorm_min(), Writer::kMaxDecimals),
              "0." + std::string(64, '0'));
}

TEST(Writer, TextLongerThanItsBuffer) {
    std::string expected;
    const std::string actual = written([&](Writer& writer) {
        const std::string longText(200'000, 'x');
        for (int i = 0; i < 10; ++i) {
            writer.text(longText).integer(i, 70'000).character('\n');
            expected += longText + std::string(69'999, ' ') + std::to_string(i) + '\n';
        }
    });
    EXPECT_TRUE(actual == expected);
}

TEST(Writer, DestructorWritesWhatIsLeft) {
    const test::TempFolder folder;
    const File file = openFile(folder.file("file").c_str(), "wb");
    Writer(file.get()).text("abc");
    EXPECT_EQ(test::readBytes(folder.path() / "file"), "abc");
}

TEST(Writer, LineEndsAreTheStreams) {
    const test::TempFolder folder;
    const File file = openFile(folder.file("file").c_str(), "w");
    Writer(file.get()).text("a\nb\n");
    EXPECT_EQ(test::readText(folder.path() / "file"), "a\nb\n");
}

TEST(Writer, FailingStreamIsNoticed) {
    const test::TempFolder folder;
    const File file = openFile(folder.write("file", "").c_str(), "rb");  // cannot be written
    Writer writer(file.get());
    EXPECT_TRUE(writer.flush());
    writer.text("abc");
    EXPECT_FALSE(writer.flush());
    EXPECT_FALSE(writer.flush());
}

#if defined(__linux__)
TEST(Writer, FullDiskIsNoticed) {
    const File file = openFile("/dev/full", "w");
    ASSERT_NE(file, nullptr);
    Writer few(file.get());
    EXPECT_FALSE(few.text("abc").flush());
    Writer many(file.get());
    for (int i = 0; i < 100'000; ++i)
        many.integer(i, 8);
    EXPECT_FALSE(many.flush());
}
#endif

}  // namespace
}  // namespace kvocaeio::text
