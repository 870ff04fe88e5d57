/// A lone section cut into one section per generated set.
#include <cstdlib>
#include <new>
#include <stdexcept>

#include "abaqus/normalise_deck.h"

#if defined(__linux__)
#include <sys/resource.h>
#endif

namespace kvocaeio::test {
namespace {

/// One solid block ALL of tetrahedra: element e from 1 to `count` has the new nodes e-1 to e+2.
std::string tetrahedra(int count) {
    std::string text = nodeBlock(count + 3) + "*ELEMENT, TYPE=C3D4, ELSET=ALL\n";
    for (int oid = 1; oid <= count; ++oid)
        text += elementLine(oid, oid, 4);
    return text;
}

std::string setLine(const std::string& name, const std::string& numbers) {
    return "*ELSET, ELSET=" + name + ", GENERATE\n" + numbers + "\n";
}

TEST(NormaliseSplit, LoneSectionBecomesOneSectionPerGeneratedSet) {
    Deck deck(tetrahedra(10) + setLine("P", "1, 4, 1") + setLine("Q", "5, 10, 1"));
    deck.sort();
    EXPECT_EQ(deck.solids(),
              (Sections{{"P", 2, 4, {{0, 1, 2, 3}, {1, 2, 3, 4}, {2, 3, 4, 5}, {3, 4, 5, 6}}},
                        {"Q",
                         2,
                         4,
                         {{4, 5, 6, 7},
                          {5, 6, 7, 8},
                          {6, 7, 8, 9},
                          {7, 8, 9, 10},
                          {8, 9, 10, 11},
                          {9, 10, 11, 12}}}}));
    EXPECT_EQ(deck.printed,
              "elem sec num = 1\nsec 0 , geom type = 2\nelement node num = 4\n"
              "generate found\n  start ID = 1 , End ID = 4\n"
              "generate found\n  start ID = 5 , End ID = 10\n" +
                  deck.logLine());
}

TEST(NormaliseSplit, NewSectionsHaveNoTypeAndTheirOids) {
    Deck deck(tetrahedra(3) + setLine("P", "2, 3, 1"));
    deck.sort();
    EXPECT_EQ(deck.logBlock("Solid Element Data"),
              "------- Solid Element Section 0 --------\n"
              "Type = , Elset = P, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 2 , 1 2 3 4\n"
              "New ID = 1 , Old ID = 3 , 2 3 4 5\n");
}

TEST(NormaliseSplit, SectionsBearTheNamesOfTheFirstRecords) {
    // A plain set in front takes the first name, and the last generated set loses its own.
    Deck deck(tetrahedra(4) + "*ELSET, ELSET=X\n1\n" + setLine("P", "1, 2, 1") +
              setLine("Q", "3, 4, 1"));
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"X", 2, 4, {{0, 1, 2, 3}, {1, 2, 3, 4}}},
                                       {"P", 2, 4, {{2, 3, 4, 5}, {3, 4, 5, 6}}}}));
}

TEST(NormaliseSplit, PlainSetBetweenGeneratedOnesGivesItsNameToo) {
    Deck deck(tetrahedra(2) + setLine("P", "1, 1, 1") + "*ELSET, ELSET=X\n1\n" +
              setLine("Q", "2, 2, 1"));
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"P", 2, 4, {{0, 1, 2, 3}}}, {"X", 2, 4, {{1, 2, 3, 4}}}}));
}

TEST(NormaliseSplit, SteppedRangeLeavesBlankRowsBehind) {
    Deck deck(tetrahedra(10) + setLine("P", "1, 10, 2"));
    deck.sort();
    EXPECT_EQ(deck.logBlock("Solid Element Data"),
              "------- Solid Element Section 0 --------\n"
              "Type = , Elset = P, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 1 , 0 1 2 3\n"
              "New ID = 1 , Old ID = 3 , 2 3 4 5\n"
              "New ID = 2 , Old ID = 5 , 4 5 6 7\n"
              "New ID = 3 , Old ID = 7 , 6 7 8 9\n"
              "New ID = 4 , Old ID = 9 , 8 9 10 11\n"
              "New ID = 5 , Old ID = 0 , 0 0 0 0\n"
              "New ID = 6 , Old ID = 0 , 0 0 0 0\n"
              "New ID = 7 , Old ID = 0 , 0 0 0 0\n"
              "New ID = 8 , Old ID = 0 , 0 0 0 0\n"
              "New ID = 9 , Old ID = 0 , 0 0 0 0\n");
    EXPECT_EQ(deck.solids().at(0).elements.size(), 10U);
}

TEST(NormaliseSplit, IdThatTheSourceLacksCopiesItsFirstElement) {
    // 3 is a gap, 4 an element of another list, -1 and 0 and 6 outside the elements' OIDs.
    Deck deck(nodeBlock(5) +
              "*ELEMENT, TYPE=C3D4, ELSET=ALL\n5, 5, 4, 3, 2\n2, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=S4, ELSET=SHELL\n4, 1, 2, 3, 4\n" +
              setLine("P", "-1, 6, 1"));
    deck.sort();
    EXPECT_EQ(deck.logBlock("Solid Element Data"),
              "------- Solid Element Section 0 --------\n"
              "Type = , Elset = P, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 5 , 4 3 2 1\n"
              "New ID = 1 , Old ID = 5 , 4 3 2 1\n"
              "New ID = 2 , Old ID = 5 , 4 3 2 1\n"
              "New ID = 3 , Old ID = 2 , 0 1 2 3\n"
              "New ID = 4 , Old ID = 5 , 4 3 2 1\n"
              "New ID = 5 , Old ID = 5 , 4 3 2 1\n"
              "New ID = 6 , Old ID = 5 , 4 3 2 1\n"
              "New ID = 7 , Old ID = 5 , 4 3 2 1\n");
}

TEST(NormaliseSplit, RangeReachesTheLargestInt) {
    Deck deck(tetrahedra(1) + setLine("P", "2147483640, 2147483647") +
              setLine("Q", "2147483645, 2147483647, 2"));
    deck.sort();
    const std::vector<int> first{0, 1, 2, 3};
    const std::vector<int> blank{0, 0, 0, 0};
    EXPECT_EQ(deck.solids(),
              (Sections{{"P", 2, 4, {first, first, first, first, first, first, first, first}},
                        {"Q", 2, 4, {first, first, blank}}}));
    EXPECT_NE(deck.printed.find("  start ID = 2147483640 , End ID = 2147483647\n"),
              std::string::npos);
}

TEST(NormaliseSplit, ElementOutsideAllRangesLeavesTheListButNotTheRawTables) {
    Deck deck(tetrahedra(3) + setLine("P", "1, 2, 1"));
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"P", 2, 4, {{0, 1, 2, 3}, {1, 2, 3, 4}}}}));
    int firstNode = 0;
    CKVOAbaqusReader::ElemData element{0, 0, &firstNode};
    EXPECT_TRUE(deck.reader.GetElemNodesByOID(3, &element));
    EXPECT_EQ(firstNode, 3);
    EXPECT_EQ(rawSectionsOf(deck.reader).at(0).elements.size(), 3U);
}

TEST(NormaliseSplit, ElementInTwoRangesStandsInBothSections) {
    Deck deck(tetrahedra(3) + setLine("P", "1, 2, 1") + setLine("Q", "2, 3, 1"));
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"P", 2, 4, {{0, 1, 2, 3}, {1, 2, 3, 4}}},
                                       {"Q", 2, 4, {{1, 2, 3, 4}, {2, 3, 4, 5}}}}));
}

TEST(NormaliseSplit, LaterRowOfARepeatedElementOidIsTaken) {
    Deck deck(nodeBlock(6) +
              "*ELEMENT, TYPE=C3D4, ELSET=ALL\n2, 1, 2, 3, 4\n1, 2, 3, 4, 5\n2, 3, 4, 5, 6\n" +
              setLine("P", "1, 2, 1"));
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"P", 2, 4, {{1, 2, 3, 4}, {2, 3, 4, 5}}}}));
}

TEST(NormaliseSplit, SectionsOfOneNameAreNotMergedAgainAndKeepDeckOrder) {
    Deck deck(tetrahedra(3) + setLine("Z", "1, 1, 1") + setLine("A", "2, 2, 1") +
              setLine("Z", "3, 3, 1"));
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"Z", 2, 4, {{0, 1, 2, 3}}},
                                       {"A", 2, 4, {{1, 2, 3, 4}}},
                                       {"Z", 2, 4, {{2, 3, 4, 5}}}}));
}

TEST(NormaliseSplit, LoneShellSectionIsTheSourceBesideTwoSolidOnes) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=C3D4, ELSET=S1\n1, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=S3, ELSET=SHELL\n3, 1, 2, 3\n4, 2, 3, 4\n"
              "*ELEMENT, TYPE=C3D4, ELSET=S2\n2, 4, 3, 2, 1\n" +
              setLine("P", "4, 4, 1"));
    deck.sort();
    EXPECT_EQ(deck.solids(),
              (Sections{{"S1", 2, 4, {{0, 1, 2, 3}}}, {"S2", 2, 4, {{3, 2, 1, 0}}}}));
    EXPECT_EQ(deck.shells(), (Sections{{"P", 1, 3, {{1, 2, 3}}}}));
    EXPECT_EQ(deck.logBlock("Shell Element Data"),
              "------- Shell Element Section 0 --------\n"
              "Type = , Elset = P, Element Node Num = 3\n"
              "New ID = 0 , Old ID = 4 , 1 2 3\n");
}

TEST(NormaliseSplit, LoneShellSectionWithoutSolids) {
    Deck deck(nodeBlock(4) + "*ELEMENT, TYPE=S3, ELSET=SHELL\n3, 1, 2, 3\n4, 2, 3, 4\n" +
              setLine("P", "3, 3, 1"));
    deck.sort();
    EXPECT_EQ(deck.shells(), (Sections{{"P", 1, 3, {{0, 1, 2}}}}));
}

TEST(NormaliseSplit, OfTwoLoneSectionsTheSolidOneIsTreated) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=S3, ELSET=SHELL\n3, 1, 2, 3\n"
              "*ELEMENT, TYPE=C3D4, ELSET=SOLID\n1, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=B31, ELSET=BEAM\n9, 1, 2\n" +
              setLine("P", "3, 3, 1"));
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"P", 2, 4, {{0, 1, 2, 3}}}}));
    EXPECT_EQ(deck.shells(), (Sections{{"SHELL", 1, 3, {{0, 1, 2}}}}));
}

TEST(NormaliseSplit, TwoSectionsInEachListStayAsTheyAre) {
    Deck deck(nodeBlock(4) +
              "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=C3D4, ELSET=B\n2, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=S3, ELSET=C\n3, 1, 2, 3\n"
              "*ELEMENT, TYPE=S3, ELSET=D\n4, 1, 2, 3\n" +
              setLine("P", "1, 4, 1") + setLine("NEGATIVE", "9, 1, 1"));
    deck.sort();
    EXPECT_EQ(deck.reader.GetElemSolidSecNumR(), 2);
    EXPECT_EQ(deck.reader.GetElemShellSecNumR(), 2);
    EXPECT_EQ(deck.printed.find("generate found"), std::string::npos);
}

TEST(NormaliseSplit, PlainSetsSplitNothing) {
    Deck deck(tetrahedra(2) + "*ELSET, ELSET=X\n1\n*ELSET, ELSET=Y\n2\n");
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"ALL", 2, 4, {{0, 1, 2, 3}, {1, 2, 3, 4}}}}));
    EXPECT_EQ(deck.printed,
              "elem sec num = 1\nsec 0 , geom type = 2\nelement node num = 4\n" + deck.logLine());
}

TEST(NormaliseSplit, MergedSectionIsASource) {
    Deck deck(nodeBlock(5) +
              "*ELEMENT, TYPE=C3D5, ELSET=ALL\n1, 1, 2, 3, 4, 5\n"
              "*ELEMENT, TYPE=C3D4, ELSET=ALL\n2, 4, 3, 2, 1\n" +
              setLine("P", "2, 2, 1") + setLine("Q", "1, 1, 1"));
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"P", 2, 8, {{3, 2, 1, 0, 0, 0, 0, 0}}},
                                       {"Q", 2, 8, {{0, 1, 2, 3, 4, 4, 4, 4}}}}));
}

TEST(NormaliseSplit, ReducedSectionIsSplitAtItsCornerWidth) {
    Deck deck(nodeBlock(12) + "*ELEMENT, TYPE=C3D10, ELSET=ALL\n" + elementLine(1, 1, 10) +
              elementLine(2, 2, 10) + elementLine(3, 3, 10) + setLine("P", "2, 3, 1"));
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"P", 2, 4, {{1, 2, 3, 4}, {2, 3, 4, 5}}}}));
}

TEST(NormaliseSplit, SourceWithoutElementsLeavesTheRowsBlank) {
    Deck deck(nodeBlock(4) + "*ELEMENT, TYPE=C3D10, ELSET=ALL\n*ELEMENT, TYPE=B31\n3, 1, 2\n" +
              setLine("P", "3, 4, 1"));
    deck.sort();
    const std::vector<int> blank(10, 0);
    EXPECT_EQ(deck.solids(), (Sections{{"P", 2, 10, {blank, blank}}}));
    EXPECT_EQ(deck.logBlock("Solid Element Data"),
              "------- Solid Element Section 0 --------\n"
              "Type = , Elset = P, Element Node Num = 10\n"
              "New ID = 0 , Old ID = 0 , 0 0 0 0 0 0 0 0 0 0\n"
              "New ID = 1 , Old ID = 0 , 0 0 0 0 0 0 0 0 0 0\n");
}

TEST(NormaliseSplit, EndOneBelowStartMakesAnEmptySection) {
    Deck deck(tetrahedra(1) + setLine("P", "5, 4, 1") + "*ELSET, ELSET=Q, GENERATE\n");
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"P", 2, 4, {}}, {"Q", 2, 4, {}}}));
    EXPECT_NE(deck.printed.find("  start ID = 0 , End ID = -1\n"), std::string::npos);
}

TEST(NormaliseSplit, FacesOfLoadsAreAddedBehindTheSplitAndTakeNoPart) {
    Deck deck(tetrahedra(2) + setLine("P", "2, 2, 1") + "*DLOAD\n1, P1, 1.0\n");
    deck.sort();
    EXPECT_EQ(deck.solids(), (Sections{{"P", 2, 4, {{1, 2, 3, 4}}}}));
    EXPECT_EQ(deck.shells(), (Sections{{"Dload_Shell", 1, 4, {{0, 2, 1, 1}}}}));
}

TEST(NormaliseSplit, NegativeCountThrowsAndLeavesTheReaderUsable) {
    Deck deck(tetrahedra(2) + setLine("P", "1, 1, 1") + setLine("BACK", "5, 3, 1") +
              "*DLOAD\n1, P1, 1.0\n");
    for (int call = 1; call <= 2; ++call) {
        SCOPED_TRACE(call);
        std::string what;
        try {
            deck.sort();
        } catch (const std::length_error& error) {
            what = error.what();
        }
        EXPECT_EQ(what, "vector<T> too long");
        EXPECT_EQ(deck.printed,
                  "elem sec num = 1\nsec 0 , geom type = 2\nelement node num = 4\n"
                  "generate found\n  start ID = 1 , End ID = 1\n"
                  "generate found\n  start ID = 5 , End ID = 3\n");
        EXPECT_EQ(deck.solids(), (Sections{{"ALL", 2, 4, {{0, 1, 2, 3}, {1, 2, 3, 4}}}}));
        EXPECT_EQ(deck.shells(), Sections{});
        EXPECT_FALSE(std::filesystem::exists(deck.logFile()));
        EXPECT_EQ(rawSectionsOf(deck.reader),
                  (Sections{{"ALL", 2, 4, {{1, 1, 2, 3, 4}, {2, 2, 3, 4, 5}}}}));
    }
}

#if defined(__linux__)
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kMemoryCanBeLimited = false;
#elif defined(__has_feature)
constexpr bool kMemoryCanBeLimited = !__has_feature(address_sanitizer);
#else
constexpr bool kMemoryCanBeLimited = true;
#endif

/// Runs in a process of its own: the limit stays.
bool survivesLittleMemory() {
    Deck deck(tetrahedra(2) + setLine("P", "1, 2147483647, 1"), DebugFolder::absent);
    const rlimit limit{rlim_t{1} << 30, rlim_t{1} << 30};
    if (setrlimit(RLIMIT_AS, &limit) != 0)
        return false;
    int thrown = 0;
    for (int call = 1; call <= 2; ++call) {
        try {
            deck.reader.SortData();
        } catch (const std::bad_alloc&) {
            ++thrown;
        }
        EXPECT_EQ(rawSectionsOf(deck.reader).size(), 1U);
        solidsOf(deck.reader);
        shellsOf(deck.reader);
    }
    return thrown == 2 && !testing::Test::HasFailure();
}

TEST(NormaliseSplit, RangeBeyondMemoryThrowsAndLeavesTheReaderUsable) {
    if (!kMemoryCanBeLimited)
        GTEST_SKIP() << "the sanitizer needs its address space";
    EXPECT_EXIT(std::_Exit(survivesLittleMemory() ? 0 : 1), testing::ExitedWithCode(0), "");
}
#endif

}  // namespace
}  // namespace kvocaeio::test
