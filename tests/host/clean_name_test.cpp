/// Names that would steer a terminal.
#include "clean_name.h"

#include <gtest/gtest.h>

namespace kvocaeio::test {
namespace {

using host::cleanName;

TEST(CleanName, KeepsLettersOfAnyLanguage) {
    EXPECT_EQ(cleanName("Deckel \xc3\xbc.inp"), "Deckel \xc3\xbc.inp");
    EXPECT_EQ(cleanName("\xe6\xa8\xa1\xe5\x85\xb7.inp"), "\xe6\xa8\xa1\xe5\x85\xb7.inp");
    EXPECT_EQ(cleanName("\xf0\x9f\x94\xa7"), "\xf0\x9f\x94\xa7");
    EXPECT_EQ(cleanName(""), "");
}

TEST(CleanName, ReplacesControlCharacters) {
    EXPECT_EQ(cleanName("a\x1b[31mred\nb\tc\x7f"), "a?[31mred?b?c?");
    EXPECT_EQ(cleanName(std::string_view("a\0b", 3)), "a?b");
}

TEST(CleanName, ReplacesControlCharactersAbove0x7f) {
    EXPECT_EQ(cleanName("a\xc2\x9b"
                        "31mred"),
              "a?31mred");
    EXPECT_EQ(cleanName("a\xc2\x85z"), "a?z");
    EXPECT_EQ(cleanName("a\xc2\xa0z"), "a\xc2\xa0z");
}

TEST(CleanName, ReplacesMarksOfDirectionAndLineSeparators) {
    EXPECT_EQ(cleanName("inp.\xe2\x80\xaetap"), "inp.?tap");
    EXPECT_EQ(cleanName("a\xe2\x80\xa8z\xe2\x81\xa6"), "a?z?");
}

TEST(CleanName, ReplacesBytesThatAreNoUtf8) {
    EXPECT_EQ(cleanName("Deckel \xfc.inp"), "Deckel ?.inp");
    EXPECT_EQ(cleanName("\x9b"
                        "31m"),
              "?31m");
    EXPECT_EQ(cleanName("\xc0\x8a"), "??");            // a line feed in two bytes
    EXPECT_EQ(cleanName("\xe0\x82\x9b"), "???");       // a control character in three
    EXPECT_EQ(cleanName("\xed\xa0\x80"), "???");       // half of a pair
    EXPECT_EQ(cleanName("\xf4\x90\x80\x80"), "????");  // above the last character
    EXPECT_EQ(cleanName("a\xe6\xa8"), "a??");          // cut off
}

}  // namespace
}  // namespace kvocaeio::test
