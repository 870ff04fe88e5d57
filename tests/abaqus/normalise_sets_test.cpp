/// Element sets expanded to element OIDs, as the log lists them.
#include <climits>

#include "abaqus/normalise_deck.h"
#include "support/hostile_texts.h"
#include "support/peak_memory.h"

namespace kvocaeio::test {
namespace {

/// Two sections, so that no generated set splits a list.
std::string twoSectionsAnd(const std::string& sets) {
    return nodeBlock(4) +
           "*ELEMENT, TYPE=C3D4, ELSET=S1\n1, 1, 2, 3, 4\n"
           "*ELEMENT, TYPE=C3D4, ELSET=S2\n2, 4, 3, 2, 1\n" +
           sets;
}

/// The set lists of a deck that holds `sets`.
std::string setLines(const std::string& sets) {
    Deck deck(twoSectionsAnd(sets));
    deck.sort();
    return deck.logBlock("Elset Data");
}

/// Lines of one set under its number and name.
std::string setOf(int counter, const std::string& name, const std::vector<int>& oids) {
    std::string lines = "------- Elset Section " + std::to_string(counter) + " --------\n" +
                        "Elset name = " + name + ", len = " + std::to_string(name.size()) + "\n";
    for (const int oid : oids)
        lines += "  Elem id = " + std::to_string(oid) + "\n";
    return lines;
}

TEST(NormaliseSets, GeneratedSetStepsFromStartToEnd) {
    EXPECT_EQ(setLines("*ELSET, ELSET=A, GENERATE\n1, 10, 3\n"),
              "------- Elset Section 0 --------\n"
              "Elset name = A, len = 1\n"
              "  Elem id = 1\n"
              "  Elem id = 4\n"
              "  Elem id = 7\n"
              "  Elem id = 10\n");
}

TEST(NormaliseSets, EndIsIncludedOnlyWhereAStepLandsOnIt) {
    EXPECT_EQ(setLines("*ELSET, ELSET=A, GENERATE\n1, 10, 2\n"), setOf(0, "A", {1, 3, 5, 7, 9}));
    EXPECT_EQ(setLines("*ELSET, ELSET=A, GENERATE\n-4, 2, 3\n"), setOf(0, "A", {-4, -1, 2}));
}

TEST(NormaliseSets, EndBelowStartIsEmpty) {
    EXPECT_EQ(setLines("*ELSET, ELSET=A, GENERATE\n5, 3, 1\n"),
              "------- Elset Section 0 --------\nElset name = A, len = 1\n");
}

TEST(NormaliseSets, MissingNumbersOfAGeneratedSet) {
    EXPECT_EQ(setLines("*ELSET, ELSET=A, GENERATE\n"), setOf(0, "A", {}));
    EXPECT_EQ(setLines("*ELSET, ELSET=A, GENERATE\n7\n"), setOf(0, "A", {7}));
    EXPECT_EQ(setLines("*ELSET, ELSET=A, GENERATE\n7, 9\n"), setOf(0, "A", {7, 8, 9}));
}

TEST(NormaliseSets, StepOfZeroOrBelowMeansOne) {
    EXPECT_EQ(setLines("*ELSET, ELSET=A, GENERATE\n7, 9, 0\n"), setOf(0, "A", {7, 8, 9}));
    EXPECT_EQ(setLines("*ELSET, ELSET=A, GENERATE\n7, 9, -2\n"), setOf(0, "A", {7, 8, 9}));
}

TEST(NormaliseSets, RangeReachesTheLargestInt) {
    EXPECT_EQ(setLines("*ELSET, ELSET=A, GENERATE\n2147483640, 2147483647\n"),
              setOf(0, "A",
                    {2147483640, 2147483641, 2147483642, 2147483643, 2147483644, 2147483645,
                     2147483646, 2147483647}));
    EXPECT_EQ(setLines("*ELSET, ELSET=A, GENERATE\n2147483640, 2147483647, 3\n"),
              setOf(0, "A", {2147483640, 2147483643, 2147483646}));
    EXPECT_EQ(setLines("*ELSET, ELSET=A, GENERATE\n2147483646, 2147483647, 2147483647\n"),
              setOf(0, "A", {2147483646}));
    EXPECT_EQ(setLines("*ELSET, ELSET=A, GENERATE\n-2147483648, 2147483647, 2147483647\n"),
              setOf(0, "A", {INT_MIN, -1, 2147483646}));
}

TEST(NormaliseSets, MembersAreLeadingDigitsOrZero) {
    EXPECT_EQ(setLines("*ELSET, ELSET=A\n5, B, 7\n"), setOf(0, "A", {5, 0, 7}));
    EXPECT_EQ(setLines("*ELSET, ELSET=A\n12ABC, +5, -3, X1, 1.9, 1E3, -, 007\n"),
              setOf(0, "A", {12, 5, -3, 0, 1, 1, 0, 7}));
}

TEST(NormaliseSets, MemberNamingAnotherSetIsNotResolved) {
    EXPECT_EQ(setLines("*ELSET, ELSET=A\n1, 2\n*ELSET, ELSET=B\nA, 2\n"),
              setOf(0, "A", {1, 2}) + setOf(1, "B", {0, 2}));
}

TEST(NormaliseSets, MembersKeepDeckOrderAndRepetitionsAndAreNotChecked) {
    EXPECT_EQ(setLines("*ELSET, ELSET=A\n9, 2, 9,\n1, 4000\n2\n"),
              setOf(0, "A", {9, 2, 9, 1, 4000, 2}));
}

TEST(NormaliseSets, MembersMayBeAsFarApartAsIntsCan) {
    EXPECT_EQ(setLines("*ELSET, ELSET=A\n-2147483648, 2147483647\n"),
              setOf(0, "A", {INT_MIN, INT_MAX}));
}

TEST(NormaliseSets, RepeatedNameContinuesItsList) {
    EXPECT_EQ(setLines("*ELSET, ELSET=A\n1, 2\n*ELSET, ELSET=A\n3\n"), setOf(0, "A", {1, 2, 3}));
    EXPECT_EQ(setLines("*ELSET, ELSET=A\n5\n*ELSET, ELSET=A, GENERATE\n1, 3\n"),
              setOf(0, "A", {5, 1, 2, 3}));
}

TEST(NormaliseSets, SetsAreListedInNameOrder) {
    EXPECT_EQ(setLines("*ELSET, ELSET=ZED\n1\n*ELSET, ELSET=AB\n2\n*ELSET, ELSET=A\n3\n"),
              setOf(0, "A", {3}) + setOf(1, "AB", {2}) + setOf(2, "ZED", {1}));
}

TEST(NormaliseSets, LengthIsThatOfTheName) {
    EXPECT_EQ(setLines("*ELSET, ELSET=LONGER_NAME\n1\n"),
              "------- Elset Section 0 --------\n"
              "Elset name = LONGER_NAME, len = 11\n"
              "  Elem id = 1\n");
}

TEST(NormaliseSets, SetWithoutANameHasTheEmptyOne) {
    EXPECT_EQ(setLines("*ELSET, ELSET=A\n1\n*ELSET\n2\n*ELSET, GENERATE\n3, 4\n"),
              "------- Elset Section 0 --------\n"
              "Elset name = , len = 0\n"
              "  Elem id = 2\n"
              "  Elem id = 3\n"
              "  Elem id = 4\n" +
                  setOf(1, "A", {1}));
}

TEST(NormaliseSets, EmptySetHasItsTwoLinesAlone) {
    EXPECT_EQ(setLines("*ELSET, ELSET=A\n*ELSET, ELSET=B\n1\n"),
              setOf(0, "A", {}) + setOf(1, "B", {1}));
}

TEST(NormaliseSets, InternalSetsAndBlockNamesMakeNoSet) {
    EXPECT_EQ(setLines("*ELSET, ELSET=A, INTERNAL\n1\n"), "");
}

TEST(NormaliseSets, RepeatedNameShiftsTheListsOfLaterSets) {
    // The index counts records, the lists count names: D reads the list of E, and E reads no list.
    EXPECT_EQ(setLines("*ELSET, ELSET=A\n1\n*ELSET, ELSET=B\n2\n*ELSET, ELSET=A\n3\n"
                       "*ELSET, ELSET=D\n4\n*ELSET, ELSET=E\n5\n"),
              setOf(0, "A", {1, 3}) + setOf(1, "B", {2}) + setOf(2, "D", {5}) + setOf(3, "E", {}));
}

TEST(NormaliseSets, RepeatedShiftedNameContinuesTheListThatItsIndexNames) {
    EXPECT_EQ(setLines("*ELSET, ELSET=A\n1\n*ELSET, ELSET=A\n2\n*ELSET, ELSET=C\n3\n"
                       "*ELSET, ELSET=D\n4\n*ELSET, ELSET=C\n5\n"),
              setOf(0, "A", {1, 2}) + setOf(1, "C", {4, 5}) + setOf(2, "D", {}));
}

TEST(NormaliseSets, MembersForAListThatIsNotThereYetAreDropped) {
    // C is repeated before D brings the list that C's index names.
    EXPECT_EQ(setLines("*ELSET, ELSET=A\n1\n*ELSET, ELSET=A\n2\n*ELSET, ELSET=C\n3\n"
                       "*ELSET, ELSET=C\n5\n*ELSET, ELSET=D\n4\n"),
              setOf(0, "A", {1, 2}) + setOf(1, "C", {4}) + setOf(2, "D", {}));
}

TEST(NormaliseSets, EveryRepetitionShiftsByOneMore) {
    EXPECT_EQ(
        setLines("*ELSET, ELSET=A\n1\n*ELSET, ELSET=A\n2\n*ELSET, ELSET=A\n3\n"
                 "*ELSET, ELSET=C\n4\n*ELSET, ELSET=D\n5\n*ELSET, ELSET=E\n6\n"),
        setOf(0, "A", {1, 2, 3}) + setOf(1, "C", {6}) + setOf(2, "D", {}) + setOf(3, "E", {}));
}

TEST(NormaliseSets, RangeOfABillionIdsTakesNoRoomAndNoTime) {
    Deck deck(twoSectionsAnd("*ELSET, ELSET=A, GENERATE\n1, 1000000000\n"
                             "*ELSET, ELSET=B, GENERATE\n-2147483648, 2147483647\n"
                             "*SURFACE, TYPE=ELEMENT, NAME=FACES\nA, S1\nB, S2\n"),
              DebugFolder::absent);
    const double before = peakMemory();
    {
        const TimeLimit limit(5.0);
        deck.sort();
        deck.sort();
    }
    EXPECT_LT(peakMemory() - before, 64.0) << "MiB";
    EXPECT_EQ(deck.solids(),
              (Sections{{"S1", 2, 4, {{0, 1, 2, 3}}}, {"S2", 2, 4, {{3, 2, 1, 0}}}}));
    EXPECT_EQ(deck.reader.GetElemShellSecNumR(), 1);
}

}  // namespace
}  // namespace kvocaeio::test
