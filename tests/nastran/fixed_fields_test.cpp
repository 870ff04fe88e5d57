/// What one look at a card tells, and fields of eight columns against the normalised text.
#include "nastran/fixed_fields.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

#include "nastran/cards.h"
#include "text/random.h"

namespace kvocaeio::test {
namespace {

using namespace nastran;

TEST(GlanceAtALine, KnowsAFirstFieldThatHoldsANameAlone) {
    const auto nameOf = [](const char* line) -> std::string_view {
        const CardRule* const rule = glanceAt(line).rule;
        return rule == nullptr ? "" : rule->name;
    };
    EXPECT_EQ(nameOf("GRID           1\n"), "GRID");
    EXPECT_EQ(nameOf("CHEXA          1       1+EL1\n"), "CHEXA");
    EXPECT_EQ(nameOf("CQUAD4         1\n"), "CQUAD4");
    EXPECT_EQ(nameOf("PSOLID  "), "PSOLID");
    for (const char* const other :
         {"GRID", "GRID*          1\n", " GRID          1\n", "GRID,1,0\n", "grid           1\n",
          "CBARL          1\n", "MAT1           1\n", ""})
        EXPECT_EQ(nameOf(other), "") << other;
}

TEST(GlanceAtALine, LeavesLinesWithALetterThatANameMayBeginWithToTheText) {
    for (const char* const line : {"GRID           1    CBAR\n", "GRID           1       G\n",
                                   "CHEXA          1       P\n", "CBAR           1   1C1\n"}) {
        EXPECT_EQ(glanceAt(line).rule, nullptr) << line;
        EXPECT_FALSE(glanceAt(line).isNameless) << line;
    }
}

TEST(GlanceAtALine, KnowsLinesWithoutAName) {
    for (const char* const line : {"", "\n", "+EL1          17\n", "FORCE          2\n", "$ note\n",
                                   "PARAM,POST,-1\n", "grid           1\n", "CORD2R\n", "1.5E-3\n"})
        EXPECT_TRUE(glanceAt(line).isNameless) << line;
    for (const char* const line :
         {"X GRID 1\n", "CTUB-\n", "PTUB-,1\n", "$ CHEXA\n", "GRIDGRID\n", "MAT1    PSHEAR\n"})
        EXPECT_FALSE(glanceAt(line).isNameless) << line;
}

// What the plain way makes of one field of a card.
template <class Number>
bool readPlainly(const std::string& columns, Number& value) {
    CardText normalised;
    normalised.normalise(columns, LineFeeds::kPad);
    text::Scan scan(normalised.view());
    if constexpr (std::is_same_v<Number, int>)
        return scan.integer(value);
    else
        return scan.real(value);
}

template <class Number>
bool readAlike(const std::string& columns) {
    Number fast = 77;
    Number plain = 77;
    const bool isTaken = readField(columns.data(), fast);
    if (isTaken) {
        EXPECT_TRUE(readPlainly(columns, plain)) << '"' << columns << '"';
        EXPECT_EQ(std::memcmp(&fast, &plain, sizeof fast), 0) << '"' << columns << '"';
    } else {
        EXPECT_EQ(fast, 77) << '"' << columns << '"';
    }
    return isTaken;
}

TEST(FixedField, IsTakenWherePlain) {
    if (!text::kEightColumnsWork)
        GTEST_SKIP();
    for (const char* const columns : {"        ", "       7", "7       ", "  012   ", "99999999"}) {
        EXPECT_TRUE(readAlike<int>(columns)) << columns;
        EXPECT_TRUE(readAlike<double>(columns)) << columns;
    }
    for (const char* const columns : {"-1.25   ", "     -.5", "      5.", ".1234567", "-0.     ",
                                      "1234567.", "-9999999", "  -0    ", "12.50000"}) {
        EXPECT_FALSE(readAlike<int>(columns)) << columns;
        EXPECT_TRUE(readAlike<double>(columns)) << columns;
    }
    for (const char* const columns :
         {"       .", "-.      ", "       -", "-       ", "1.5-3   ", "1.5E3   ", "  1..2  ",
          "  1 2   ", "   --1  ", "1\t      ", "\t      1", "      1\n", "  +1    ", "1,2     ",
          "1.2.    "}) {
        EXPECT_FALSE(readAlike<int>(columns)) << columns;
        EXPECT_FALSE(readAlike<double>(columns)) << columns;
    }
}

TEST(FixedField, IsReadAsInTheNormalisedText) {
    Random random(11);
    for (int i = 0; i < 200'000; ++i) {
        std::string columns;
        for (int column = 0; column < 8; ++column)
            columns += "     0123456789..-"[random.below(18)];
        readAlike<int>(columns);
        readAlike<double>(columns);
        std::ranges::sort(columns.begin(), columns.begin() + static_cast<int>(random.below(9)));
        readAlike<double>(columns);
    }
}

TEST(FixedField, WithAnyByteIsReadAsInTheNormalisedText) {
    for (const std::string number : {"       7", "   12345", "12.5    ", "-1.25   ", "99999999"})
        for (std::size_t at = 0; at < 8; ++at)
            for (int byte = 1; byte < 256; ++byte) {
                std::string columns = number;
                columns[at] = static_cast<char>(byte);
                readAlike<int>(columns);
                readAlike<double>(columns);
            }
}

}  // namespace
}  // namespace kvocaeio::test
