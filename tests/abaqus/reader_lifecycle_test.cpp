/// A reader's life: decks that do not open, second imports, copies.
#include <cstdio>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <new>
#include <string>

#include "abaqus/imported_deck.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;

bool importQuietly(CKVOAbaqusReader& reader, const char* path) {
    CapturedOutput output;
    return reader.ImportInpFile(path);
}

TEST(ReaderLifecycle, DecksThatDoNotOpenGiveFalse) {
    TempFolder folder;
    folder.makeFolder("folder");
    CKVOAbaqusReader reader;
    EXPECT_FALSE(importQuietly(reader, nullptr));
    EXPECT_FALSE(importQuietly(reader, ""));
    EXPECT_FALSE(importQuietly(reader, folder.file("missing.inp").c_str()));
    EXPECT_FALSE(importQuietly(reader, folder.file("missing/deck.inp").c_str()));
    EXPECT_FALSE(importQuietly(reader, folder.file("folder").c_str()));
    EXPECT_FALSE(importQuietly(reader, folder.file("folder/").c_str()));
    EXPECT_FALSE(importQuietly(reader, folder.file(std::string(5000, 'x')).c_str()));
}

TEST(ReaderLifecycle, AReadOnlyDeckDoesNotOpen) {
    TempFolder folder;
    const std::string path = folder.write("deck.inp", "*NODE\n1, 1, 2, 3\n");
    using std::filesystem::perms;
    for (const perms allowed : {perms::owner_read, perms::none}) {
        std::filesystem::permissions(path, allowed);
        if (std::FILE* file = std::fopen(path.c_str(), "r+b")) {
            std::fclose(file);
            GTEST_SKIP() << "permissions do not bind here";
        }
        CKVOAbaqusReader reader;
        EXPECT_FALSE(importQuietly(reader, path.c_str()));
        EXPECT_EQ(reader.GetNodeNum(), 0);
    }
    std::filesystem::permissions(path, perms::owner_all);
}

TEST(ReaderLifecycle, TheDeckIsNeverWrittenTo) {
    TempFolder folder;
    const std::string deck = "*NODE\r\n1, 1, 2, 3\n*ELEMENT, TYPE=S3\n1, 1";
    const std::string path = folder.write("deck.inp", deck);
    CKVOAbaqusReader reader;
    EXPECT_TRUE(importQuietly(reader, path.c_str()));
    EXPECT_EQ(readBytes(path), deck);
}

TEST(ReaderLifecycle, TheDeckIsClosedAfterTheImport) {
    TempFolder folder;
    const std::string path = folder.write("deck.inp", "*NODE\n1, 1, 2, 3\n");
    CKVOAbaqusReader reader;
    EXPECT_TRUE(importQuietly(reader, path.c_str()));
    std::error_code error;
    // A file that is open cannot be removed on Windows.
    EXPECT_TRUE(std::filesystem::remove(path, error)) << error.message();
    EXPECT_THAT(walkNodes(reader), ElementsAre(Node{1, 1, 2, 3}));
}

TEST(ReaderLifecycle, ADeckThatDoesNotOpenLeavesTheTables) {
    ImportedDeck deck("*NODE\n1, 1, 2, 3\n*ELEMENT, TYPE=S3\n7, 1, 1, 1\n");
    EXPECT_FALSE(importQuietly(deck.reader, deck.folder.file("missing.inp").c_str()));
    EXPECT_THAT(deck.nodes(), ElementsAre(Node{1, 1, 2, 3}));
    EXPECT_THAT(deck.sections(), ElementsAre(Section{"", 1, 3, {7}, {1, 1, 1}}));
}

TEST(SecondImport, KeepsWhatItDoesNotOverwrite) {
    ImportedDeck deck(
        "*NODE\n1, 1, 2, 3\n2, 4, 5, 6\n3, 7, 8, 9\n"
        "*SHELL SECTION, MATERIAL=M, ELSET=A\n0.5\n");
    EXPECT_TRUE(deck.import(deck.reader,
                            "*NODE\n\n20, 40\n"
                            "*SHELL SECTION, MATERIAL=M, ELSET=B\n"));
    EXPECT_THAT(deck.nodes(), ElementsAre(Node{1, 1, 2, 3}, Node{20, 40, 5, 6}));
    EXPECT_THAT(deck.shellSections(), ElementsAre(ShellThickness{"B", 0.5}));
}

TEST(SecondImport, ReplacesElementSections) {
    ImportedDeck deck(
        "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, 3\n2, 4, 5, 6\n"
        "*ELEMENT, TYPE=S4, ELSET=B\n3, 1, 2, 3, 4\n");
    EXPECT_TRUE(deck.import(deck.reader, "*ELEMENT, TYPE=C3D4\n9, 9, 8, 7, 6\n"));
    EXPECT_THAT(deck.sections(), ElementsAre(Section{"", 2, 4, {9}, {9, 8, 7, 6}}));
    EXPECT_TRUE(deck.import(deck.reader,
                            "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, 3\n"
                            "*ELEMENT, TYPE=B31\n4, 1\n5, 2\n"));
    EXPECT_THAT(deck.sections(),
                ElementsAre(Section{"A", 1, 3, {1}, {1, 2, 3}}, Section{"", 0, 0, {4, 5}, {}}));
}

TEST(SecondImport, AppendsToTheInnerLists) {
    ImportedDeck deck(
        "*ELSET, ELSET=A\n1\n*SURFACE, TYPE=ELEMENT, NAME=S\n1, S1\n*DLOAD\n1, P1, 1\n");
    EXPECT_TRUE(deck.import(
        deck.reader,
        "*ELSET, ELSET=B\n2\n*SURFACE, TYPE=ELEMENT, NAME=T\n2, S2\n*DLOAD\n2, P2, 2\n"));
    EXPECT_EQ(deck.logOf(LogPart::kElsets),
              "Elset Section count = 1\n"
              "----Elset Section 0------\n"
              "Elset = B , parameter = \n"
              "1 2 \n");
    EXPECT_EQ(deck.logOf(LogPart::kSurfaces),
              "Surface Section count = 1\n"
              "----Surface Section 0------\n"
              "type = ELEMENT , name = T\n"
              "1, S1\n"
              "2, S2\n");
    EXPECT_EQ(deck.logOf(LogPart::kDloads),
              "Dload Section count = 1\n"
              "----Dload Section 0------\n"
              "elemID = 1 , faceIdx = P1 , value = 1.000000\n"
              "elemID = 2 , faceIdx = P2 , value = 2.000000\n");
}

TEST(SecondImport, RebuildsTheLookUps) {
    ImportedDeck deck("*NODE\n5, 1, 0, 0\n100, 2, 0, 0\n*ELEMENT, TYPE=S3\n1, 5, 5, 5\n");
    EXPECT_TRUE(deck.import(deck.reader, "*NODE\n6, 3, 0, 0\n7, 4, 0, 0\n*ELEMENT, TYPE=S3\n"));
    double xyz[3] = {};
    CKVOAbaqusReader::NodeData node{0, xyz};
    EXPECT_TRUE(deck.reader.GetNodeDataByOID(7, &node));
    EXPECT_EQ(xyz[0], 4);
    EXPECT_FALSE(deck.reader.GetNodeDataByOID(100, &node));
    EXPECT_TRUE(deck.reader.GetNodeDataByOID(5, &node));
    EXPECT_EQ(xyz[0], 3);
}

TEST(SecondImport, OfTheEmptyDeckEmptiesTheTables) {
    ImportedDeck deck("*NODE\n1, 1, 2, 3\n*ELEMENT, TYPE=S3\n*SHELL SECTION, MATERIAL=M\n");
    EXPECT_TRUE(deck.import(deck.reader, ""));
    EXPECT_EQ(deck.reader.GetNodeNum(), 0);
    EXPECT_EQ(deck.reader.GetElemSecNum(), 0);
    EXPECT_EQ(deck.reader.GetShellSecNum(), 0);
}

/// A copy that is never destroyed, as the shared tables ask for.
class UnownedCopy {
  public:
    explicit UnownedCopy(const CKVOAbaqusReader& original)
        : reader(*new (storage_) CKVOAbaqusReader(original)) {}

  private:
    alignas(CKVOAbaqusReader) unsigned char storage_[sizeof(CKVOAbaqusReader)];

  public:
    CKVOAbaqusReader& reader;
};

TEST(ReaderCopy, SharesTheTablesAndCopiesTheCursors) {
    ImportedDeck deck("*NODE\n1, 1, 2, 3\n2, 4, 5, 6\n3, 7, 8, 9\n");
    CKVOAbaqusReader::NodeData node;
    deck.reader.GetNodeNext(&node);
    UnownedCopy copy(deck.reader);
    CKVOAbaqusReader::NodeData other;
    ASSERT_TRUE(copy.reader.GetNodeNext(&other));
    EXPECT_EQ(other.id, 2);
    ASSERT_TRUE(deck.reader.GetNodeNext(&node));
    EXPECT_EQ(node.id, 2);
    EXPECT_EQ(node.coord, other.coord);
}

TEST(ReaderCopy, AssignmentSharesTheTablesOfTheOther) {
    ImportedDeck first("*NODE\n1, 1, 2, 3\n");
    ImportedDeck second("*NODE\n8, 4, 5, 6\n9, 4, 5, 6\n");
    UnownedCopy copy(first.reader);
    CKVOAbaqusReader::NodeData node;
    second.reader.GetNodeNext(&node);
    EXPECT_EQ(&(copy.reader = second.reader), &copy.reader);
    EXPECT_EQ(copy.reader.GetNodeNum(), 2);
    ASSERT_TRUE(copy.reader.GetNodeNext(&node));
    EXPECT_EQ(node.id, 9);
    EXPECT_EQ(first.reader.GetNodeNum(), 1);
}

}  // namespace
}  // namespace kvocaeio::test
