/// Abaqus decks that nobody would wish for: rewritten or refused, in bounded time and memory.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "support/hostile_texts.h"
#include "tidy/tidied.h"

namespace kvocaeio::test {
namespace {

using testing::Contains;

Tidied tidied(std::string_view deck) {
    const TimeLimit limit;
    return tidyText(deck, CKVODeckTidy::kAbaqus);
}

TEST(TidyAbaqusHostile, SetsInSetsInARing) {
    const Tidied deck = tidied(
        "*ELEMENT, TYPE=C3D4\n1, 1, 2, 3, 4\n*ELSET, ELSET=A\nB\n*ELSET, ELSET=B\nA, 1\n"
        "*SURFACE, NAME=S\nA, S1\n");
    EXPECT_TRUE(deck.isDone);
}

TEST(TidyAbaqusHostile, ALongChainOfSets) {
    std::string deck = "*ELEMENT, TYPE=C3D4\n1, 1, 2, 3, 4\n*ELSET, ELSET=A0\n1\n";
    for (int i = 1; i < 2000; ++i)
        deck += "*ELSET, ELSET=A" + std::to_string(i) + "\nA" + std::to_string(i - 1) + ", A" +
                std::to_string(i - 1) + "\n";
    EXPECT_TRUE(tidied(deck + "*SURFACE, NAME=S\nA1999, S1\n").isDone);
}

TEST(TidyAbaqusHostile, RangesFarBeyondTheElements) {
    const Tidied deck =
        tidied("*ELEMENT, TYPE=C3D4\n1, 1, 2, 3, 4\n" +
               repeated("*ELSET, ELSET=A, GENERATE\n-2000000000, 2000000000\n", 20000) +
               "*SURFACE, NAME=S\nA, S1\n");
    EXPECT_TRUE(deck.isDone);
}

TEST(TidyAbaqusHostile, NumbersFarApart) {
    std::string deck = "*NODE\n\n";
    for (int i = 0; i < 100000; ++i)
        deck += std::to_string(i * 20000) + "\n";
    EXPECT_TRUE(tidied(deck).isDone);
}

TEST(TidyAbaqusHostile, InstancesWithoutNumber) {
    std::string deck = "*PART, NAME=P\n*NODE\n1, 1\n*END PART\n*ASSEMBLY\n";
    for (int i = 0; i < 20000; ++i)
        deck += "*INSTANCE, NAME=I" + std::to_string(i) + ", PART=P\n*END INSTANCE\n";
    const Tidied tidy = tidied(deck);
    EXPECT_TRUE(tidy.isDone);
    EXPECT_TRUE(tidy.text.ends_with("\n20000, 1, 0, 0\n"));
}

TEST(TidyAbaqusHostile, UnfinishedLinesOfAllKinds) {
    constexpr std::string_view kDecks[] = {
        "*",
        "*,",
        "* ,=,=",
        "*NODE,",
        "*ELEMENT",
        "*ELEMENT, TYPE=\n1\n",
        "*ELEMENT, TYPE=C3D\n1\n",
        "*ELSET\n,\n",
        "*ELSET, ELSET=A, GENERATE\n",
        "*SURFACE\n,\n",
        "*SURFACE, COMBINE\n",
        "*DLOAD\n,P1\n",
        "*SHELL SECTION\n",
        "*PART\n*PART\n*END PART\n*END PART\n",
        "*INSTANCE\n",
        "*END INSTANCE\n*END ASSEMBLY\n",
        "*SYSTEM\n1\n",
        "*SYSTEM\n0,0,0,0,0,0\n0,0,0\n",
        "*NGEN\n,,\n",
        "*NFILL\n,\n",
        "*NCOPY\n",
        "*ELGEN\n",
        "*ELCOPY\n",
        "*INCLUDE\n",
        "*INCLUDE, INPUT=\n",
        "*INCLUDE, INPUT=\"\n",
        "*NODE, INPUT=\"\"\n",
        "*NODE, NSET=\"\n1\n",
        "*ELSET, ELSET=A\n\"\n",
    };
    for (const std::string_view deck : kDecks) {
        SCOPED_TRACE(deck);
        const Tidied tidy = tidied(deck);
        EXPECT_TRUE(tidy.isDone || !tidy.others.empty());
        EXPECT_TRUE(tidy.isDone || tidy.text.empty());
    }
}

TEST(TidyAbaqusHostile, ATypeNameOfAnyLength) {
    const Tidied deck =
        tidied("*ELEMENT, TYPE=" + repeated("M-8", 200) + "C3D4\n\n1, 1, 2, 3, 4\n");
    EXPECT_TRUE(deck.text.ends_with("*ELEMENT, TYPE=C3D4\n1, 1, 2, 3, 4\n"));
}

TEST(TidyAbaqusHostile, ASurfaceThatNamesALargeSetManyTimes) {
    const Tidied deck = tidied(
        "*ELEMENT, TYPE=C3D4\n1, 1, 2, 3, 4\n*ELGEN, ELSET=A\n1, 10000, 1, 1\n"
        "*SURFACE, NAME=S\n" +
        repeated("A, S1\n", 20000));
    EXPECT_TRUE(deck.isDone);
    EXPECT_TRUE(deck.text.ends_with("*SURFACE, TYPE=ELEMENT, NAME=S\nA, S1\n"));
}

TEST(TidyAbaqusHostile, ParametersOfParametersInALongLine) {
    std::string deck = "*PARAMETER\na = '" + std::string(500, 'x') +
                       "'\nb = " + repeated("(", 5000) + "1\nc = " + repeated("-", 100000) +
                       "2 ** 0.5\n";
    EXPECT_TRUE(tidied(deck + "*HEADING\n" + repeated("<a>", 300000) + "\n").isDone);
}

TEST(TidyAbaqusHostile, ADeckThatIncludesItself) {
    EXPECT_THAT(tidied("*INCLUDE, INPUT=deck\n").others, Contains("1:1 tidy.include-cycle"));
}

TEST(TidyAbaqusHostile, CombinedSurfacesThatGrow) {
    std::string deck =
        "*ELEMENT, TYPE=C3D4\n1, 1, 2, 3, 4\n*SURFACE, NAME=A0\n1, S1\n1, S2\n1, S3\n1, S4\n";
    for (int i = 1; i < 2000; ++i)
        deck += "*SURFACE, COMBINE=UNION, NAME=A" + std::to_string(i) + "\nA" +
                std::to_string(i - 1) + ", A" + std::to_string(i - 1) + ", A0\n";
    EXPECT_TRUE(tidied(deck).isDone);
}

}  // namespace
}  // namespace kvocaeio::test
