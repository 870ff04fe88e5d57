/// InputAbaqus.log byte for byte, and when it is written.
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "abaqus/imported_deck.h"

namespace kvocaeio::test {
namespace {

using testing::HasSubstr;

TEST(ImportLog, ShowsAllTables) {
    ImportedDeck deck(
        "*Node, nset=all\n"
        "1, 0., 0., 0.\n"
        "2, 1.5, 0., -2.25\n"
        "*Element, type=s3, elset=Skin\n"
        "10, 1, 2, 1\n"
        "11, 2, 1, 2\n"
        "*Element, type=B31\n"
        "7, 1, 2\n"
        "*Shell Section, elset=Skin, material=Steel\n"
        "0.25\n"
        "*Shell Section, material=Abs\n"
        "*Surface, type=ELEMENT, name=Top\n"
        "skin, spos\n"
        "10, S1\n"
        "*Surface, type=ELEMENT\n"
        "*Dload\n"
        "10, P, 1.5\n"
        "*Elset, elset=A\n"
        "1, 2\n"
        "b\n"
        "*Elset, elset=G, generate\n"
        "1, 10, 2\n"
        "*Elset, elset=None\n");
    EXPECT_EQ(deck.log,
              "=======================================\n"
              "NSET = \n"
              "ID = 1 , (0.000000, 0.000000, 0.000000)\n"
              "ID = 2 , (1.500000, 0.000000, -2.250000)\n"
              "=======================================\n"
              "Element Section count = 2\n"
              "=======================================\n"
              "----Element Section 0------\n"
              "TYPE = S3 , ELSET = SKIN\n"
              "Nodes per element = 3\n"
              "Element Num = 2 , Total Node Num = 6\n"
              "ID = 10 , ( 1 2 1 )\n"
              "ID = 11 , ( 2 1 2 )\n"
              "----Element Section 1------\n"
              "TYPE = B31 , ELSET = \n"
              "Nodes per element = 0\n"
              "Element Num = 1 , Total Node Num = 0\n"
              "ID = 7 , ( )\n"
              "=======================================\n"
              "Shell Section count = 2\n"
              "=======================================\n"
              "----Shell Section 0------\n"
              "material = STEEL , elset = SKIN\n"
              "thickness = 0.250000\n"
              "----Shell Section 1------\n"
              "material = ABS , elset = \n"
              "thickness = 0.000000\n"
              "=======================================\n"
              "Surface Section count = 2\n"
              "=======================================\n"
              "----Surface Section 0------\n"
              "type = ELEMENT , name = TOP\n"
              "SKIN, SPOS\n"
              "10, S1\n"
              "----Surface Section 1------\n"
              "type = ELEMENT , name = \n"
              "=======================================\n"
              "Dload Section count = 1\n"
              "=======================================\n"
              "----Dload Section 0------\n"
              "elemID = 10 , faceIdx = P , value = 1.500000\n"
              "=======================================\n"
              "Elset Section count = 3\n"
              "=======================================\n"
              "----Elset Section 0------\n"
              "Elset = A , parameter = \n"
              "1 2 B \n"
              "----Elset Section 1------\n"
              "Elset = G , parameter = GENERATE\n"
              "1, 10, 2\n"
              "----Elset Section 2------\n"
              "Elset = NONE , parameter = \n"
              "\n");
}

TEST(ImportLog, OfADeckWithoutKeywordsShowsSixEmptyParts) {
    const char* const empty =
        "=======================================\n"
        "NSET = \n"
        "=======================================\n"
        "Element Section count = 0\n"
        "=======================================\n"
        "=======================================\n"
        "Shell Section count = 0\n"
        "=======================================\n"
        "=======================================\n"
        "Surface Section count = 0\n"
        "=======================================\n"
        "=======================================\n"
        "Dload Section count = 0\n"
        "=======================================\n"
        "=======================================\n"
        "Elset Section count = 0\n"
        "=======================================\n";
    EXPECT_EQ(ImportedDeck("").log, empty);
    EXPECT_EQ(ImportedDeck("just\ntext\n").log, empty);
}

TEST(ImportLog, RealNumbersHaveSixDecimals) {
    EXPECT_EQ(ImportedDeck("*NODE\n"
                           "-5, 1e20, -0.0000005, 0.0000004999\n"
                           "6, 123456789.123456789, -0, 2.5e-7\n"
                           "7, inf, -inf, 0.9999999\n")
                  .logOf(LogPart::kNodes),
              "NSET = \n"
              "ID = -5 , (100000000000000000000.000000, -0.000000, 0.000000)\n"
              "ID = 6 , (123456789.123457, -0.000000, 0.000000)\n"
              "ID = 7 , (inf, -inf, 1.000000)\n");
    EXPECT_THAT(ImportedDeck("*DLOAD\n1, P, 1e300\n").logOf(LogPart::kDloads),
                HasSubstr("value = 1000000000000000052504760255204420248704468581108159154915854"));
}

TEST(ImportLog, NodesOfAnElementAreCountedInEightBits) {
    const std::string type = "*ELEMENT, TYPE=C3D";
    auto elementLine = [&](const std::string& width) {
        const std::string part = ImportedDeck(type + width + "\n9, 1\n").logOf(LogPart::kElements);
        return part.substr(part.find("ID = "));
    };
    auto alternating = [](int nodes) {
        std::string out;
        for (int n = 0; n < nodes; ++n)
            out += n % 2 == 0 ? "1 " : "9 ";
        return out;
    };
    EXPECT_EQ(elementLine("127"), "ID = 9 , ( " + alternating(127) + ")\n");
    EXPECT_EQ(elementLine("128"), "ID = 9 , ( )\n");
    EXPECT_EQ(elementLine("255"), "ID = 9 , ( )\n");
    EXPECT_EQ(elementLine("256"), "ID = 9 , ( )\n");
    EXPECT_EQ(elementLine("257"), "ID = 9 , ( 1 )\n");
    EXPECT_EQ(elementLine("300"), "ID = 9 , ( " + alternating(44) + ")\n");
}

TEST(ImportLog, ShownNodesBeginAtEachElementsOwn) {
    std::string deck = "*ELEMENT, TYPE=C3D258\n";
    for (int e = 1; e <= 2; ++e) {
        deck += std::to_string(e);
        for (int n = 0; n < 258; ++n)
            deck += (n % 16 == 15 ? ",\n" : ", ") + std::to_string(1000 * e + n);
        deck += "\n";
    }
    EXPECT_THAT(ImportedDeck(deck).logOf(LogPart::kElements),
                HasSubstr("Element Num = 2 , Total Node Num = 516\n"
                          "ID = 1 , ( 1000 1001 )\n"
                          "ID = 2 , ( 2000 2001 )\n"));
}

TEST(ImportLog, ReplacesAnOlderOne) {
    DeckFolder folder;
    folder.folder.write("debug/InputAbaqus.log", std::string(100000, 'x'));
    CKVOAbaqusReader reader;
    folder.import(reader, "");
    EXPECT_EQ(folder.log, ImportedDeck("").log);
}

TEST(ImportLog, NeedsTheDebugFolder) {
    TempFolder folder;
    const std::string path = folder.write("deck.inp", "*NODE\n1, 1, 2, 3\n");
    CKVOAbaqusReader reader;
    CapturedOutput output;
    EXPECT_TRUE(reader.ImportInpFile(path.c_str()));
    EXPECT_THAT(output.text(), testing::StartsWith("debug folder state = -1\n"
                                                   "============= Loop 1 ==============\n"));
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "debug"));
    EXPECT_EQ(reader.GetNodeNum(), 1);
}

TEST(ImportLog, EachImportTestsItsOwnDebugFolder) {
    ImportedDeck withFolder("*NODE\n1, 1, 2, 3\n");
    const std::string before = withFolder.log;
    TempFolder without;
    const std::string path = without.write("deck.inp", "");
    CKVOAbaqusReader reader;
    CapturedOutput output;
    EXPECT_TRUE(reader.ImportInpFile(path.c_str()));
    EXPECT_THAT(output.text(), testing::Not(HasSubstr("log file path")));
    EXPECT_EQ(readText(withFolder.folder.path() / "debug" / "InputAbaqus.log"), before);
}

TEST(ImportLog, OfADeckThatDoesNotOpenIsNotWritten) {
    DeckFolder folder;
    CKVOAbaqusReader reader;
    CapturedOutput output;
    EXPECT_FALSE(reader.ImportInpFile(folder.folder.file("missing.inp").c_str()));
    EXPECT_EQ(output.text(),
              "debug folder state = 0\n"
              "log file path = " +
                  folder.printedLogPath() + "\n");
    EXPECT_TRUE(std::filesystem::is_empty(folder.folder.path() / "debug"));
}

TEST(ImportLog, ADeckByBareNameHasItsDebugFolderAtTheRoot) {
    const std::filesystem::path root = std::filesystem::current_path().root_path();
    if (std::filesystem::exists(root / "debug"))
        GTEST_SKIP() << "this machine has a folder named debug at its root";
    DeckFolder folder;
    folder.folder.write("deck.inp", "*NODE\n1, 1, 2, 3\n");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.folder.path());
    CKVOAbaqusReader reader;
    CapturedOutput output;
    const bool result = reader.ImportInpFile("deck.inp");
    std::filesystem::current_path(before);
    EXPECT_TRUE(result);
    EXPECT_THAT(output.text(), testing::StartsWith("debug folder state = -1\n"));
    EXPECT_TRUE(std::filesystem::is_empty(folder.folder.path() / "debug"));
    EXPECT_EQ(reader.GetNodeNum(), 1);
}

TEST(ImportLog, ARelativePathFindsTheFolderBesideTheDeck) {
    DeckFolder folder;
    folder.folder.write("deck.inp", "");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.folder.path());
    CKVOAbaqusReader reader;
    CapturedOutput output;
    const bool result = reader.ImportInpFile("./deck.inp");
    std::filesystem::current_path(before);
    EXPECT_TRUE(result);
#if defined(_WIN32)
    const char* const log = "./\\debug\\InputAbaqus.log";
#else
    const char* const log = ".//debug/InputAbaqus.log";
#endif
    EXPECT_THAT(
        output.text(),
        testing::StartsWith("debug folder state = 0\nlog file path = " + std::string(log) + "\n"));
    EXPECT_EQ(readText(folder.folder.path() / "debug" / "InputAbaqus.log"), ImportedDeck("").log);
}

#if !defined(_WIN32)
TEST(ImportLog, OffWindowsABackslashSeparatesNothing) {
    DeckFolder folder;
    folder.folder.makeFolder("sub\\debug");
    const std::string path = folder.folder.write("sub\\deck.inp", "");
    CKVOAbaqusReader reader;
    CapturedOutput output;
    EXPECT_TRUE(reader.ImportInpFile(path.c_str()));
    EXPECT_THAT(output.text(), HasSubstr("log file path = " + folder.printedLogPath() + "\n"));
}
#endif

}  // namespace
}  // namespace kvocaeio::test
