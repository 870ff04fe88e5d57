/// Widths of text on a terminal, and text that is cut or wrapped by them.
#include "display_width.h"

#include <gmock/gmock.h>

namespace kvocaeio::test {
namespace {

using host::cutInTheMiddle;
using host::displayWidth;
using host::wrapped;
using testing::ElementsAre;

TEST(DisplayWidth, OfLettersMarksAndWideCharacters) {
    EXPECT_EQ(displayWidth(""), 0u);
    EXPECT_EQ(displayWidth("HOUSING"), 7u);
    EXPECT_EQ(displayWidth("Geh\u00e4use"), 7u);
    EXPECT_EQ(displayWidth("Geha\u0308use"), 7u);       // a and a combining diaeresis
    EXPECT_EQ(displayWidth("\u5916\u58f3"), 4u);        // two Chinese characters
    EXPECT_EQ(displayWidth("\uff21\uff76"), 3u);        // a wide A, a narrow katakana
    EXPECT_EQ(displayWidth("\U0001f600"), 2u);          // an emoji
    EXPECT_EQ(displayWidth("\u0412\u0430\u043b"), 3u);  // Cyrillic
    EXPECT_EQ(displayWidth("a\u200bb"), 2u);            // a blank of no width
    EXPECT_EQ(displayWidth("A\xff\xfe"), 3u);
}

TEST(DisplayWidth, NamesAreCutInTheMiddle) {
    EXPECT_EQ(cutInTheMiddle("HOUSING", 7), "HOUSING");
    EXPECT_EQ(cutInTheMiddle("ASSEMBLY_HOUSING_LEFT", 12), "ASSEM...LEFT");
    EXPECT_EQ(cutInTheMiddle("\u5916\u58f3\u5916\u58f3\u5916\u58f3", 10), "\u5916\u58f3...\u58f3");
    EXPECT_EQ(cutInTheMiddle("abcdefgha\u0308", 7), "ab...ha\u0308");
}

TEST(DisplayWidth, WordsAreWrapped) {
    EXPECT_THAT(wrapped("", 10), ElementsAre(""));
    EXPECT_THAT(wrapped("one two three", 7), ElementsAre("one two", "three"));
    EXPECT_THAT(wrapped("a unbreakable b", 4), ElementsAre("a", "unbreakable", "b"));
    EXPECT_THAT(wrapped("\u5916\u58f3 \u5916\u58f3", 8),
                ElementsAre("\u5916\u58f3", "\u5916\u58f3"));
}

TEST(DisplayWidth, NumbersStayWithWhatTheyCount) {
    EXPECT_THAT(wrapped("4 wedges, 44 tetrahedra", 12), ElementsAre("4 wedges,", "44 tetrahedra"));
    EXPECT_THAT(wrapped("(0, 0, 1) to (2, 3, 4)", 12), ElementsAre("(0, 0, 1) to", "(2, 3, 4)"));
    EXPECT_THAT(wrapped("(pyramids, unknown types)", 12),
                ElementsAre("(pyramids,", "unknown", "types)"));
}

}  // namespace
}  // namespace kvocaeio::test
