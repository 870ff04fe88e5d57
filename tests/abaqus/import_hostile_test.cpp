/// Decks and folders that nobody would wish for: true or false, and nothing worse.
#include <climits>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "abaqus/imported_deck.h"
#include "support/hostile_texts.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// A deck imported within a limit of time, without a dump.
struct TimedImport {
    explicit TimedImport(std::string_view deck) {
        const std::string path = folder.write("deck.inp", deck);
        const TimeLimit limit;
        CapturedOutput output;
        result = reader.ImportInpFile(path.c_str());
    }

    TempFolder folder;
    CKVOAbaqusReader reader;
    bool result = false;
};

TEST(HostileDeck, CommentsInARowStayLinear) {
    TimedImport deck("*NODE\n1, 1, 2, 3\n" + repeated("** comment\n", 200000) +
                     "*NODE\n2, 4, 5, 6\n" + repeated("**\n", 200000));
    EXPECT_TRUE(deck.result);
    EXPECT_THAT(walkNodes(deck.reader), ElementsAre(Node{1, 1, 2, 3}, Node{2, 4, 5, 6}));
}

TEST(HostileDeck, CommentsBehindAnUnknownKeywordStayLinear) {
    TimedImport deck("*STEP\n" + repeated("** comment\n", 200000) + "*NODE\n2, 4, 5, 6\n");
    EXPECT_TRUE(deck.result);
    EXPECT_THAT(walkNodes(deck.reader), ElementsAre(Node{2, 4, 5, 6}));
}

TEST(HostileDeck, BlankLinesStayLinear) {
    TimedImport deck("*ELEMENT, TYPE=S3\n" + repeated("\n", 300000) + "7, 1, 2, 3\n" +
                     repeated("** c\n \n", 100000) + "8, 1,\n" + repeated("\n", 300000) + "2, 3\n");
    EXPECT_TRUE(deck.result);
    EXPECT_THAT(walkSections(deck.reader),
                ElementsAre(Section{"", 1, 3, {7, 8}, {1, 2, 3, 1, 2, 3}}));
}

TEST(HostileDeck, ManyTinySections) {
    constexpr int kCount = 50000;
    TimedImport deck(
        repeated("*NODE\n7, 1, 2, 3\n*ELEMENT, TYPE=S3, ELSET=A\n8, 7, 7, 7\n"
                 "*ELSET, ELSET=B\n8\n*SURFACE, TYPE=ELEMENT\nB, S1\n*DLOAD\n8, P, 1\n"
                 "*SHELL SECTION, MATERIAL=M, ELSET=A\n0.5\n",
                 kCount));
    EXPECT_TRUE(deck.result);
    EXPECT_EQ(deck.reader.GetNodeNum(), kCount);
    EXPECT_EQ(deck.reader.GetElemSecNum(), kCount);
    EXPECT_EQ(deck.reader.GetShellSecNum(), kCount);
}

TEST(HostileDeck, EmptySectionsOnly) {
    TimedImport deck(repeated("*ELEMENT, TYPE=C3D8\n", 200000));
    EXPECT_TRUE(deck.result);
    EXPECT_EQ(deck.reader.GetElemSecNum(), 200000);
}

TEST(HostileDeck, WideElementsWithoutTheirNodes) {
    // The first element takes the whole rest of the deck, and then its last line "1, 2" again and
    // again: 1197 nodes before that, so that the odd places hold the 1.
    TimedImport deck(repeated("*ELEMENT, TYPE=C3D10000\n1, 2\n", 300));
    EXPECT_TRUE(deck.result);
    ASSERT_EQ(deck.reader.GetElemSecNum(), 1);
    CKVOAbaqusReader::ElemSecData section;
    ASSERT_TRUE(deck.reader.GetElemSecNext(&section));
    EXPECT_EQ(section.elemNum, 1);
    EXPECT_EQ(section.nodesPerElem, 10000);
    EXPECT_EQ(section.nodes[0], 2);
    EXPECT_EQ(section.nodes[1196], 2);
    EXPECT_EQ(section.nodes[1197], 1);
    EXPECT_EQ(section.nodes[9998], 2);
    EXPECT_EQ(section.nodes[9999], 1);
}

TEST(HostileDeck, AWidthOf99999ReadsNoNodes) {
    TimedImport deck("*ELEMENT, TYPE=C3D99999\n1, 2, 3\n4, 5, 6\n");
    EXPECT_THAT(walkSections(deck.reader), ElementsAre(Section{"", 0, 0, {1, 4}, {}}));
}

TEST(HostileDeck, NulBytesOnly) {
    TimedImport deck(std::string(1000000, '\0'));
    EXPECT_TRUE(deck.result);
    EXPECT_EQ(deck.reader.GetNodeNum(), 0);
    // 511 bytes to a piece: 1957 pieces behind the line end of the keyword.
    TimedImport inNodes("*NODE\n" + std::string(1000000, '\0'));
    EXPECT_TRUE(inNodes.result);
    EXPECT_EQ(inNodes.reader.GetNodeNum(), 1957);
}

TEST(HostileDeck, IdsAtTheEndsOfInt) {
    TimedImport deck(
        "*NODE\n2147483647, 1, 0, 0\n-2147483648, 2, 0, 0\n99999999999, 3, 0, 0\n"
        "*ELEMENT, TYPE=S3\n2147483647, -2147483648, 2147483648, -99999999999\n"
        "-2147483648, 1, 2, 3\n"
        "*ELSET, ELSET=A, GENERATE\n-99999999999, 99999999999, 99999999999\n");
    EXPECT_TRUE(deck.result);
    EXPECT_THAT(
        walkSections(deck.reader),
        ElementsAre(Section{"", 1, 3, {INT_MAX, INT_MIN}, {INT_MIN, INT_MAX, INT_MIN, 1, 2, 3}}));
    double xyz[3] = {};
    CKVOAbaqusReader::NodeData node{0, xyz};
    EXPECT_TRUE(deck.reader.GetNodeDataByOID(INT_MAX, &node));
    EXPECT_EQ(xyz[0], 3);
    EXPECT_FALSE(deck.reader.GetNodeDataByOID(INT_MIN, &node));
}

TEST(HostileDeck, AMegabyteOfOneToken) {
    TimedImport deck("*ELEMENT, TYPE=S3\n" + std::string(1000000, '7') + "\n");
    EXPECT_TRUE(deck.result);
    ASSERT_EQ(deck.reader.GetElemSecNum(), 1);
    // 1957 pieces of 511 bytes, four to an element; the last element takes the last piece again.
    EXPECT_EQ(walkSections(deck.reader)[0].ids.size(), 490U);
}

/// Writes the deck "*NODE\n1, 1, 2, 3\n", imports it and expects all of it there, but no dump.
void expectImportWithoutDump(DeckFolder& folder) {
    CKVOAbaqusReader reader;
    EXPECT_TRUE(folder.import(reader, "*NODE\n1, 1, 2, 3\n"));
    EXPECT_THAT(walkNodes(reader), ElementsAre(Node{1, 1, 2, 3}));
    EXPECT_EQ(folder.log, "");
    EXPECT_THAT(folder.printed, Not(HasSubstr("writing")));
}

TEST(HostileFolder, DebugIsAPlainFile) {
    DeckFolder folder;
    std::filesystem::remove(folder.folder.path() / "debug");
    folder.folder.write("debug", "a file");
    expectImportWithoutDump(folder);
    // It can be read and written, which is all that is tested; only the log cannot be opened.
    EXPECT_THAT(folder.printed, testing::StartsWith("debug folder state = 0\n"));
    EXPECT_EQ(readBytes(folder.folder.path() / "debug"), "a file");
}

TEST(HostileFolder, TheLogIsAFolder) {
    DeckFolder folder;
    std::filesystem::create_directory(folder.folder.path() / "debug" / "InputAbaqus.log");
    expectImportWithoutDump(folder);
    // The path is said before the opening fails, and nothing after it.
    EXPECT_THAT(folder.printed, testing::EndsWith("Reading Node Section...\nlog file path = " +
                                                  folder.printedLogPath() + "\n"));
}

TEST(HostileFolder, TheDebugFolderCannotBeWritten) {
    DeckFolder folder;
    const std::filesystem::path debug = folder.folder.path() / "debug";
    using std::filesystem::perms;
    std::filesystem::permissions(debug, perms::owner_read | perms::owner_exec);
    if (std::ofstream(debug / "probe").is_open())
        GTEST_SKIP() << "permissions do not bind here";
    expectImportWithoutDump(folder);
    EXPECT_THAT(folder.printed, testing::StartsWith("debug folder state = -1\n===="));
    std::filesystem::permissions(debug, perms::owner_all);
}

#if defined(__linux__)
TEST(HostileDeck, AnotherProcessWritesItMeanwhile) {
    // The counts of one state never fit the other: neither blocks, nor widths, nor rows.
    const RestlessFile file(
        {"*NODE\n" + repeated("1, 1, 2, 3\n", 60000),
         repeated("*ELEMENT, TYPE=C3D8\n1, 2, 3, 4, 5, 6, 7, 8, 9\n*NODE\n7, 1, 2, 3\n", 8000),
         "*ELEMENT, TYPE=S3\n" + repeated("1, 2, 3, 4\n", 50000),
         repeated("*ELSET, ELSET=A\n1, 2\n*DLOAD\n1, P, 2\n", 10000)});
    CapturedOutput output;
    for (int round = 0; round < 30; ++round) {
        CKVOAbaqusReader reader;
        EXPECT_TRUE(reader.ImportInpFile(file.path().c_str()));
        EXPECT_EQ(walkNodes(reader).size(), static_cast<std::size_t>(reader.GetNodeNum()));
        EXPECT_EQ(walkSections(reader).size(), static_cast<std::size_t>(reader.GetElemSecNum()));
    }
}

TEST(HostileFolder, TheDiskUnderTheLogIsFull) {
    DeckFolder folder;
    std::filesystem::create_symlink("/dev/full",
                                    folder.folder.path() / "debug" / "InputAbaqus.log");
    const std::string path =
        folder.folder.write("deck.inp", "*NODE\n" + repeated("1, 1, 2, 3\n", 20000));
    CKVOAbaqusReader reader;
    CapturedOutput output;
    EXPECT_TRUE(reader.ImportInpFile(path.c_str()));
    EXPECT_THAT(output.text(), testing::EndsWith("writing elset section...\n"));
    EXPECT_EQ(reader.GetNodeNum(), 20000);
}

TEST(HostileFolder, TheDeckIsADevice) {
    CKVOAbaqusReader reader;
    CapturedOutput output;
    EXPECT_FALSE(reader.ImportInpFile("/dev/null"));
    EXPECT_EQ(reader.GetNodeNum(), 0);
}
#endif

}  // namespace
}  // namespace kvocaeio::test
