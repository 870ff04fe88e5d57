/// Standard output of an import, whole and in order.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "abaqus/imported_deck.h"

namespace kvocaeio::test {
namespace {

std::string printedWithoutDebugFolder(const std::string& deck) {
    TempFolder folder;
    const std::string path = folder.write("deck.inp", deck);
    CKVOAbaqusReader reader;
    CapturedOutput output;
    reader.ImportInpFile(path.c_str());
    return output.text();
}

TEST(PrintedOutput, OfAnEmptyDeck) {
    EXPECT_EQ(printedWithoutDebugFolder(""),
              "debug folder state = -1\n"
              "============= Loop 1 ==============\n"
              "------- Summary ------\n"
              "Node Section num = 0\n"
              "Elem Section num = 0\n"
              "Shell Section num = 0\n"
              "Surface Section num = 0\n"
              "Dload Section num = 0\n"
              "Elset Section num = 0\n"
              "============= Loop 2 ==============\n");
}

TEST(PrintedOutput, OfADeckWithAllSections) {
    EXPECT_EQ(printedWithoutDebugFolder("*Node\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n"
                                        "*Element, type=s3, elset=Skin\n1, 1, 2, 3\n"
                                        "*Node\n4, 0, 0, 1\n"
                                        "*Element, type=b31\n5, 1, 2\n6, 2, 3\n"
                                        "*Elset, elset=A, internal\n1\n"
                                        "*Elset, elset=B\n1\n"
                                        "*Surface, type=element, name=S\n1, S1\n"
                                        "*Dload\n1, P, 1\n"
                                        "*Shell Section, material=m, elset=Skin\n1.0\n"),
              "debug folder state = -1\n"
              "============= Loop 1 ==============\n"
              "Reading Node Section...\n"
              "Reading Element Section...\n"
              "  element type = S3\n"
              "  geometry type = 1\n"
              "  node num per element = 3\n"
              "  elset name = SKIN\n"
              "Reading Node Section...\n"
              "Reading Element Section...\n"
              "  element type = B31\n"
              "  geometry type = 0\n"
              "  node num per element = 0\n"
              "  elset name = \n"
              "Reading Elset Section...\n"
              "Reading Elset Section...\n"
              "Reading Surface Section...\n"
              "Reading Dload Section...\n"
              "Reading Shell Section...\n"
              "------- Summary ------\n"
              "Node Section num = 2\n"
              "  Node Block [0] = 3\n"
              "  Node Block [1] = 1\n"
              "Elem Section num = 2\n"
              "  Elem Block [0] = 1\n"
              "  Elem Block [1] = 2\n"
              "Shell Section num = 1\n"
              "Surface Section num = 1\n"
              "Dload Section num = 1\n"
              "Elset Section num = 1\n"
              "============= Loop 2 ==============\n"
              "Reading Node Section...\n"
              "Reading Element Section...\n"
              "  element type = S3\n"
              "  geometry type = 1\n"
              "  node num per element = 3\n"
              "  elset name = SKIN\n"
              "Reading Node Section...\n"
              "Reading Element Section...\n"
              "  element type = B31\n"
              "  geometry type = 0\n"
              "  node num per element = 0\n"
              "  elset name = \n"
              "Reading Elset Section...\n"
              "Reading Elset Section...\n"
              "Reading Surface Section...\n"
              "Reading Dload Section...\n"
              "Reading Shell Section...\n");
}

TEST(PrintedOutput, OfADeckWhoseReadingEndsEarly) {
    EXPECT_EQ(printedWithoutDebugFolder("*Shell Section, elset=Skin\n1.0\n*Node\n1, 0, 0, 0\n"),
              "debug folder state = -1\n"
              "============= Loop 1 ==============\n"
              "Reading Shell Section...\n"
              "------- Summary ------\n"
              "Node Section num = 0\n"
              "Elem Section num = 0\n"
              "Shell Section num = 0\n"
              "Surface Section num = 0\n"
              "Dload Section num = 0\n"
              "Elset Section num = 0\n"
              "============= Loop 2 ==============\n"
              "Reading Shell Section...\n");
}

TEST(PrintedOutput, WithADebugFolder) {
    ImportedDeck deck("*Node\n1, 0, 0, 0\n");
    EXPECT_EQ(deck.printed,
              "debug folder state = 0\n"
              "log file path = " +
                  deck.printedLogPath() +
                  "\n"
                  "============= Loop 1 ==============\n"
                  "Reading Node Section...\n"
                  "------- Summary ------\n"
                  "Node Section num = 1\n"
                  "  Node Block [0] = 1\n"
                  "Elem Section num = 0\n"
                  "Shell Section num = 0\n"
                  "Surface Section num = 0\n"
                  "Dload Section num = 0\n"
                  "Elset Section num = 0\n"
                  "============= Loop 2 ==============\n"
                  "Reading Node Section...\n"
                  "log file path = " +
                  deck.printedLogPath() +
                  "\n"
                  "writing node section...\n"
                  "writing element section...\n"
                  "writing shell section...\n"
                  "writing surface section...\n"
                  "writing dload section...\n"
                  "writing elset section...\n");
}

TEST(PrintedOutput, OfADeckThatDoesNotOpen) {
    TempFolder folder;
    CKVOAbaqusReader reader;
    CapturedOutput output;
    EXPECT_FALSE(reader.ImportInpFile(folder.file("missing.inp").c_str()));
    EXPECT_EQ(output.text(), "debug folder state = -1\n");
}

TEST(PrintedOutput, LongNamesArePrintedWhole) {
    const std::string name(400, 'N');
    EXPECT_THAT(printedWithoutDebugFolder("*ELEMENT, TYPE=" + name + "\n"),
                testing::HasSubstr("  element type = " + name + "\n"));
}

TEST(PrintedOutput, PercentSignsAreOnlyText) {
    EXPECT_THAT(printedWithoutDebugFolder("*ELEMENT, TYPE=%s%d%n, ELSET=100%\n"),
                testing::AllOf(testing::HasSubstr("  element type = %S%D%N\n"),
                               testing::HasSubstr("  elset name = 100%\n")));
}

}  // namespace
}  // namespace kvocaeio::test
