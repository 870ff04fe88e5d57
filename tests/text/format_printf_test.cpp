/// Formatted fields against `snprintf` on random values; on other platforms than Linux by a digest.
#include <bit>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>

#include "support/files.h"
#include "text/digest.h"
#include "text/file.h"
#include "text/format.h"
#include "text/line_reader.h"
#include "text/random.h"

namespace kvocaeio::text {
namespace {

#if defined(NDEBUG)
constexpr int kRounds = 1'000'000;
#else
constexpr int kRounds = 100'000;
#endif

// Of all lengths, with the ends of the type and the lengths that fill a field.
int randomInteger(test::Random& random) {
    const auto bits = static_cast<std::uint32_t>(random.bits());
    if (random.oneIn(50))
        return static_cast<int>(0x7FFFFFFF + static_cast<unsigned>(random.below(3)));
    return static_cast<int>(bits) >> random.below(32);
}

// Coordinates for the most part; ties of the last decimal; any bits at all, infinity and NaN among
// them.
double randomReal(test::Random& random) {
    const auto number =
        static_cast<double>(static_cast<std::int64_t>(random.bits()) >> random.below(60));
    switch (random.below(8)) {
        case 0:
            return std::bit_cast<double>(random.bits());
        case 1:
            return std::bit_cast<double>(random.bits() | 0x7FE0000000000000);
        case 2:
            return std::ldexp(number, -40);
        case 3:
            return number / 16;
        case 4:
            return number / 2'000'000;
        default:
            return static_cast<double>(static_cast<int>(random.bits())) / 1e7;
    }
}

// Calls `round` with values that depend on the seed alone.
template <typename Round>
void forRandomValues(int rounds, Round round) {
    test::Random random(3);
    for (int i = 0; i < rounds; ++i) {
        const int integer = randomInteger(random);
        const double real = randomReal(random);
        round(integer, real);
    }
}

void writeFields(Writer& writer, int integer, double real) {
    writer.integer(integer).character('|').integer(integer, 2).character('|');
    writer.integer(integer, 7).character('|').integer(integer, 8).character('|');
    writer.fixed(real).character('|').fixed(real, 3, 8).character('|');
    writer.scientific(real).character('|').scientific(real, 16).character('\n');
}

// A file of all fields, read line by line.
class FieldFile {
  public:
    explicit FieldFile(int rounds) : file_(openFile(folder_.file("fields").c_str(), "w+b")) {
        Writer writer(file_.get());
        forRandomValues(rounds,
                        [&](int integer, double real) { writeFields(writer, integer, real); });
        EXPECT_TRUE(writer.flush());
        std::rewind(file_.get());
    }
    std::FILE* file() const { return file_.get(); }

  private:
    test::TempFolder folder_;
    File file_;
};

#if defined(__linux__)
TEST(WriterAgainstSnprintf, RandomValues) {
    const FieldFile fields(kRounds);
    LineReader reader(fields.file(), 4096, LineMode::kBinary);
    forRandomValues(kRounds, [&](int i, double r) {
        char expected[4096];
        std::snprintf(expected, sizeof expected, "%d|%2d|%7d|%8d|%f|%8.3f|%E|%16E\n", i, i, i, i, r,
                      r, r, r);
        reader.next();
        ASSERT_EQ(reader.line(), expected);
    });
    EXPECT_FALSE(reader.next());
}

// Powers of ten, and seven digits and a half, with the nearest reals about them.
TEST(WriterAgainstSnprintf, RealsThatAreNearlyRoundedOtherwise) {
    test::TempFolder folder;
    const File file = openFile(folder.file("fields").c_str(), "w+b");
    std::string expected;
    {
        Writer writer(file.get());
        test::Random random(5);
        for (int exponent = -20; exponent <= 24; ++exponent)
            for (int round = 0; round < 500; ++round) {
                const auto digits = static_cast<double>(1'000'000 + random.below(9'000'000));
                const double scale = std::pow(10.0, exponent - 6);
                double real = round == 0 ? std::pow(10.0, exponent) : (digits + 0.5) * scale;
                for (int step = 0; step < 4; ++step)
                    real = std::nextafter(real, 0.0);
                for (int step = 0; step < 8; ++step) {
                    real = std::nextafter(real, 1e300);
                    writer.scientific(real).character('\n');
                    char line[64];
                    std::snprintf(line, sizeof line, "%E\n", real);
                    expected += line;
                }
            }
        EXPECT_TRUE(writer.flush());
    }
    EXPECT_TRUE(test::readBytes(folder.path() / "fields") == expected);
}
#endif

// The same value where `snprintf` was compared and elsewhere: both write the same.
TEST(Writer, WritesTheSameOnEveryPlatform) {
    const FieldFile fields(100'000);
    LineReader reader(fields.file(), 4096, LineMode::kBinary);
    test::Digest digest;
    while (reader.next())
        digest.add(reader.line());
    EXPECT_EQ(digest.value(), 8768680933240678855U);
}

}  // namespace
}  // namespace kvocaeio::text
