/// Fields of eight columns against their plain ways.
#include "text/eight_columns.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

#include "text/random.h"

namespace kvocaeio::text {
namespace {

bool isPlainNumber(const std::string& columns) {
    const std::size_t digits = columns.find_first_not_of(' ');
    return digits != std::string::npos &&
           columns.find_first_not_of("0123456789", digits) == std::string::npos;
}

void expectSameReading(const std::string& columns) {
    int value = -1;
    const bool plain = kEightColumnsWork && isPlainNumber(columns);
    ASSERT_EQ(readEightColumns(columns.data(), value), plain) << '"' << columns << '"';
    ASSERT_EQ(value, plain ? std::atoi(columns.c_str()) : -1) << '"' << columns << '"';
}

TEST(EightColumns, ReadBlanksAndThenDigitsOnly) {
    test::Random random(7);
    for (int i = 0; i < 200'000; ++i) {
        std::string columns(8, ' ');
        for (std::size_t k = random.below(9); k < columns.size(); ++k)
            columns[k] = random.oneIn(60) ? ' ' : static_cast<char>('0' + random.below(10));
        expectSameReading(columns);
    }
}

TEST(EightColumns, ReadNothingElse) {
    for (const char* const number : {"       7", "   12345", "99999999"})
        for (std::size_t at = 0; at < 8; ++at)
            for (int byte = 1; byte < 256; ++byte) {
                std::string columns = number;
                columns[at] = static_cast<char>(byte);
                expectSameReading(columns);
            }
}

TEST(EightColumns, ReadDigitsUpToAnythingElse) {
    struct Case {
        const char* columns;
        int count;
        int value;
    };
    constexpr Case kCases[] = {
        {"1234567,", 7, 1'234'567}, {"12345678", 8, 12'345'678}, {"7, 8, 9,", 1, 7},
        {"007\x80\xFFzzz", 3, 7},   {",1234567", 0, 0},          {"99:9999/", 2, 99},
        {"\0\0\0\0\0\0\0", 0, 0},
    };
    for (const auto& [columns, count, wanted] : kCases) {
        int value = -1;
        EXPECT_EQ(readLeadingDigits(columns, value), kEightColumnsWork ? count : 0) << columns;
        EXPECT_EQ(value, kEightColumnsWork ? wanted : 0) << columns;
    }
    test::Random random(8);
    for (int i = 0; i < 200'000; ++i) {
        std::string columns;
        while (columns.size() < 8)
            columns +=
                static_cast<char>(random.oneIn(8) ? random.below(256) : '0' + random.below(10));
        const std::size_t plain = std::min<std::size_t>(columns.find_first_not_of("0123456789"), 8);
        int value = -1;
        ASSERT_EQ(readLeadingDigits(columns.data(), value),
                  kEightColumnsWork ? static_cast<int>(plain) : 0);
        ASSERT_EQ(value, kEightColumnsWork ? std::atoi(columns.substr(0, plain).c_str()) : 0);
    }
}

TEST(EightColumns, WriteAsPrintf) {
    for (int value = 0; value <= 99'999'999; value += value < 20'000 ? 1 : 1'999) {
        for (int width = 0; width <= 8; ++width) {
            char expected[16];
            const int length = std::snprintf(expected, sizeof expected, "%*d", width, value);
            char columns[8];
            const char* const behind = writeEightColumns(columns, value, width);
            if (!kEightColumnsWork)
                continue;
            ASSERT_EQ(std::string(columns, static_cast<std::size_t>(behind - columns)), expected);
            ASSERT_EQ(behind - columns, length);
        }
    }
}

TEST(EightColumns, WriteNoLongerNumbers) {
    char columns[8] = {'?'};
    EXPECT_EQ(writeEightColumns(columns, 100'000'000, 8), nullptr);
    EXPECT_EQ(writeEightColumns(columns, 2'147'483'647, 8), nullptr);
    EXPECT_EQ(writeEightColumns(columns, -1, 8), nullptr);
    EXPECT_EQ(columns[0], '?');
}

}  // namespace
}  // namespace kvocaeio::text
