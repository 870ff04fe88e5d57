/// Imports that somebody listens to: the same tables, what is noticed, and a host that stops them.
#include "nastran/import.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "nastran/deck.h"
#include "nastran/twin_imports.h"
#include "support/failing_reads.h"
#include "support/files.h"
#include "support/findings.h"

namespace kvocaeio::test {
namespace {

using nastran::Finding;

class ListenedImport : public testing::Test {
  protected:
    bool import(const std::string& deck) {
        return nastran::importDeck(folder.write("deck.nas", deck).c_str(), info,
                                   {&findings, nullptr});
    }
    std::vector<std::string> found(const std::string& deck) {
        import(deck);
        return describe(findings);
    }

    TempFolder folder;
    nastran::NastranFileInfo info;
    text::Findings findings;
};

using testing::ElementsAre;

const std::string kBar = "CBAR           1       1       1       1\n";
const std::string kHexa =
    "CHEXA          1       1       1       1       1       1       1       1\n";
const std::string kWholeHexa =
    "CHEXA   00000001       1       1       1       1       1       1       1\n";

TEST_F(ListenedImport, NotesCardsOfUnknownNames) {
    EXPECT_THAT(found("$ bracket\nSOL 101\nCEND\nTITLE = A\nBEGIN BULK\n" + kGrid + kBar +
                      "\nfoo\nMAT1           1\n+        1.\nPCOMP1\nCELAS1\nENDDATA\n"),
                ElementsAre("nastran.card-unknown (FOO) 9:0 foo",
                            "nastran.card-unknown (MAT1) 10:0 MAT1           1",
                            "nastran.property-unknown (PCOMP1) 12:0 PCOMP1",
                            "nastran.element-unknown (CELAS1) 13:0 CELAS1"));
}

TEST_F(ListenedImport, NotesFieldsThatKeepAnEarlierCardsValue) {
    EXPECT_THAT(
        found(kGrid + kBar + "GRID           1       0     1.5     abc     2.5\n" +
              "GRID           1       0     2.5\n"),
        ElementsAre("nastran.field-stale (GRID) 3:38 abc", "nastran.oid-twice (GRID) 4:16 1"));
    EXPECT_EQ(info.decks[0].nodes[1], 2.5F);
}

TEST_F(ListenedImport, NotesTheFieldThatIsReadWrongly) {
    EXPECT_THAT(found(kGrid + kBar + "GRID,1,0,1.5,2.,3.\n"),
                ElementsAre("nastran.free-field (GRID) 3:10 1.5"));
    findings.clear();
    EXPECT_THAT(
        found(kGrid + kBar + "GRID           1       0  1.0E+3      2.      3.\n" +
              "GRID           1       0     +1.      2.      3.\n" +
              "GRID           1       0    1.D3      2.      3.\n" +
              "GRID          1.       0      1.      2.      3.\n" + "GRID\t1\t\t1.5\t2.\t3.\n"),
        ElementsAre("nastran.exponent-torn (GRID) 3:27 1.0E+3", "nastran.sign-torn (GRID) 4:30 +1.",
                    "nastran.exponent-d (GRID) 5:29 1.D3", "nastran.field-misread (GRID) 6:15 1.",
                    "nastran.tab (GRID) 7:8 "));
}

// The first line reads as meant: only the next one tells that the coordinate is lost.
TEST_F(ListenedImport, NotesACoordinateOnTheSecondLineOfLargeFields) {
    const std::string grid = "GRID*   1               0               0               0\n";
    EXPECT_THAT(found(grid + "*       0.7\n" + kBar + grid + "*       0.0\n"),
                ElementsAre("nastran.large-field (GRID) 2:9 0.7"));
}

TEST_F(ListenedImport, NotesAFieldOfALongLineByItsColumnThere) {
    const std::string remark = "$" + std::string(253, '-');
    EXPECT_THAT(found(kGrid + kBar + remark + "GRID           1       0       x      2.      3.\n"),
                ElementsAre("nastran.line-cut 3:0 " + remark.substr(0, 80),
                            "nastran.field-stale (GRID) 3:286 x"));
    findings.clear();
    EXPECT_THAT(found(kGrid + kBar + remark +
                      "CHEXA          1       1       x       1       1       1       1       1\n"
                      "               1       1\n"),
                ElementsAre("nastran.line-cut 3:0 " + remark.substr(0, 80),
                            "nastran.field-stale (CHEXA) 3:286 x"));
}

TEST_F(ListenedImport, NotesFieldsOfMergedLinesOnTheLineThatTheyStandOn) {
    EXPECT_THAT(found(kGrid + kHexa + "               1       2\n"),
                ElementsAre("nastran.hexa-node-lost (CHEXA) 3:16 1"));
    findings.clear();
    EXPECT_THAT(found(kGrid + kHexa + ",1,2\n"),
                ElementsAre("nastran.hexa-node-lost (CHEXA) 3:2 1"));
    findings.clear();
    EXPECT_THAT(found(kGrid + kWholeHexa + "        12345678       2\n"),
                ElementsAre("nastran.continuation-misread (CHEXA) 3:9 12345678"));
    findings.clear();
    EXPECT_THAT(found(kGrid + kWholeHexa + "               1       1\n"), ElementsAre());
    EXPECT_THAT(found(kGrid + kWholeHexa + "               1\n"),
                ElementsAre("nastran.node-missing (CHEXA) 3:17 "));
}

TEST_F(ListenedImport, NotesWhatIsNoSecondLine) {
    EXPECT_THAT(
        found(kGrid + kWholeHexa + kGrid),
        ElementsAre("nastran.card-swallowed (CHEXA) 3:0 " + kGrid.substr(0, kGrid.size() - 1)));
    findings.clear();
    EXPECT_THAT(found(kGrid + kWholeHexa + "$ nodes\n               1       1\n"),
                ElementsAre("nastran.continuation-comment (CHEXA) 3:0 $ nodes"));
    findings.clear();
    EXPECT_THAT(found(kGrid + kWholeHexa),
                ElementsAre("nastran.continuation-missing (CHEXA) 2:0 " +
                            kWholeHexa.substr(0, kWholeHexa.size() - 1)));
    findings.clear();
    EXPECT_THAT(
        found(kGrid + kBar + "$ CHEXA\n" + kGrid + "$ CHEXA\n$\n"),
        ElementsAre("nastran.card-swallowed (a comment) 4:0 " + kGrid.substr(0, kGrid.size() - 1)));
}

TEST_F(ListenedImport, NotesMidsideNodesOfAnElementOnce) {
    EXPECT_THAT(found(kGrid +
                      "CTETRA         1       1       1       1       1       1       5\n"
                      "+              6       7       8       9\n"
                      "CPENTA         1       1       1       1       1       1       1"
                      "       1\n+              7\n+              8\n" +
                      kWholeHexa + "               1       1       9\n+             17\n"),
                ElementsAre("nastran.midside-nodes (CTETRA) 2:64 5",
                            "nastran.midside-nodes (CPENTA) 5:0 +              7",
                            "nastran.midside-nodes (CHEXA) 8:32 9"));
}

TEST_F(ListenedImport, NotesPropertiesThatChange) {
    EXPECT_THAT(found(kGrid + kBar +
                      "PSHELL         1       1     0.8\nPROD           2       1"
                      "     -4.\nPSOLID         1       1       0\n"),
                ElementsAre("nastran.property-fraction (PSHELL) 3:30 0.8",
                            "nastran.property-out-of-range (PROD) 4:30 -4.",
                            "nastran.property-dropped 0:0 property 2",
                            "nastran.property-dropped 0:0 property 1"));
}

TEST_F(ListenedImport, SaysWhyItFailsAndWhatWasRead) {
    EXPECT_FALSE(import("INCLUDE 'a.inc'\n$" + std::string(600, '-') + "\nGRID         abc\n"));
    EXPECT_EQ(countOf(findings, Finding::kLineCut), 2U);
    EXPECT_EQ(countOf(findings, Finding::kInclude), 1U);
    EXPECT_EQ(countOf(findings, Finding::kFieldStale), 1U);
    EXPECT_EQ(countOf(findings, Finding::kNoElements), 1U);
    EXPECT_EQ(countOf(findings, Finding::kNoNodes), 1U);
    EXPECT_EQ(findings.lastError()->kind, &rowOf(Finding::kNoNodes));
}

TEST_F(ListenedImport, FoldsMillionsOfFindings) {
    std::string deck = kGrid + kBar;
    for (int i = 0; i < 20'000; ++i)
        deck += "X" + std::to_string(i) + "\nGRID,1,0,1.5\n";
    EXPECT_TRUE(import(deck));
    EXPECT_EQ(countOf(findings, Finding::kCardUnknown), 20'000U);
    EXPECT_EQ(countOf(findings, Finding::kFreeField), 20'000U);
    EXPECT_LE(findings.entryCount(), 30U);
}

// A deck of a million characters, in several blocks.
std::string largeDeck() {
    std::string deck;
    for (int i = 0; i < 10'000; ++i)
        deck += kGrid + kTetra;
    return deck + "PSOLID         1       1       1\n";
}

TEST_F(ListenedImport, ThatIsStoppedAtAnyBlockFailsAndLeavesTheDeckBefore) {
    ASSERT_TRUE(import(kGrid + kTetra));
    const float* const nodes = info.decks[0].nodes.get();
    const std::string path = folder.write("large.nas", largeDeck());
    long stops = 0;
    for (bool imported = false; !imported; ++stops) {
        PatientHost host(stops);
        imported = nastran::importDeck(path.c_str(), info, {&findings, &host.watch});
        EXPECT_EQ(host.watch.stopped, !imported) << stops;
        EXPECT_EQ(info.extent.maxNodeId, imported ? 1 : 0) << stops;
        ASSERT_EQ(info.decks.size(), imported ? 2u : 1u) << stops;
        EXPECT_EQ(info.decks[0].nodes.get(), nodes);
        ASSERT_LT(stops, 100);
    }
    EXPECT_GT(stops, 8);
    EXPECT_EQ(info.decks[1].sectionCount, 1);
    EXPECT_TRUE(import(kGrid + kTetra));
}

TEST_F(ListenedImport, AReadErrorIsTheEndOfTheDeck) {
    const std::string path =
        folder.write("deck.nas", kGrid + kTetra + std::string(300'000, '\n') +
                                     "GRID           2       0      4.      5.      6.\n");
    FailingReads inPass1(2);
    EXPECT_TRUE(nastran::importDeck(path.c_str(), info, {&findings, &inPass1.watch}));
    EXPECT_EQ(info.extent.maxNodeId, 1);
    FailingReads inPass2(5);  // the first pass asks three times
    EXPECT_TRUE(nastran::importDeck(path.c_str(), info, {&findings, &inPass2.watch}));
    EXPECT_EQ(info.extent.maxNodeId, 2);
    EXPECT_EQ(info.decks[1].elements[0], 1);
    EXPECT_EQ(info.decks[1].nodes[4], 0.0F);
    EXPECT_EQ(info.decks[1].nodes[5], 0.0F);
}

TEST_F(ListenedImport, MakesTheSameTablesOfAllSampleFiles) {
    std::size_t read = 0;
    for (const char* const samples : {"tests/fuzz/corpus/nastran", "examples/data"})
        for (const auto& file : std::filesystem::directory_iterator(
                 std::filesystem::path(KVOCAEIO_SOURCES) / samples)) {
            if (!file.is_regular_file())
                continue;
            const std::string path = file.path().string();
            KVONASTRAN_Reader reader;
            const bool result = reader.SetFilePath(path.c_str());
            EXPECT_EQ(differenceToTwins(reader, result, path.c_str()), "") << path;
            read += result ? 1 : 0;
        }
    EXPECT_GT(read, 10u);
}

}  // namespace
}  // namespace kvocaeio::test
