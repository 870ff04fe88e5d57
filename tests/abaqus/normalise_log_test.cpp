/// "SortData.log" byte for byte, and when it is written.
#include "abaqus/normalise_deck.h"

namespace kvocaeio::test {
namespace {

const char* const kOneTetrahedron =
    "*NODE\n10, 0., 0., 0.\n30, 0., 0., 0.\n20, 0., 0., 0.\n40, 0., 0., 0.\n"
    "*ELEMENT, TYPE=C3D4\n7, 10, 30, 20, 40\n";

const char* const kOneTetrahedronLog =
    "--------------- Node ID Map-----------------\n"
    "Old ID = 10 , New ID = 0\n"
    "Old ID = 30 , New ID = 1\n"
    "Old ID = 20 , New ID = 2\n"
    "Old ID = 40 , New ID = 3\n"
    "--------------- Element ID Map-----------------\n"
    "Old ID = 7 , MapData = (0, 0)\n"
    "-------- Node Data--------\n"
    "New ID = 0 , Old ID = 10 , (0.000000, 0.000000, 0.000000)\n"
    "New ID = 1 , Old ID = 30 , (0.000000, 0.000000, 0.000000)\n"
    "New ID = 2 , Old ID = 20 , (0.000000, 0.000000, 0.000000)\n"
    "New ID = 3 , Old ID = 40 , (0.000000, 0.000000, 0.000000)\n"
    "-------- Solid Element Data--------\n"
    "------- Solid Element Section 0 --------\n"
    "Type = C3D4, Elset = , Element Node Num = 4\n"
    "New ID = 0 , Old ID = 7 , 0 1 2 3\n"
    "-------- Shell Element Data--------\n"
    "-------- Elset Data--------\n"
    "-------- Dload Data--------\n"
    "Face Elem Num = 0\n";

const Sections kOneTetrahedronSolids{{"", 2, 4, {{0, 1, 2, 3}}}};

TEST(NormaliseLog, OneTetrahedron) {
    Deck deck(kOneTetrahedron);
    deck.sort();
    EXPECT_EQ(deck.log(), kOneTetrahedronLog);
    EXPECT_EQ(deck.printed,
              "elem sec num = 1\nsec 0 , geom type = 2\nelement node num = 4\n" + deck.logLine());
}

TEST(NormaliseLog, EveryBlockOfAMixedDeck) {
    Deck deck(
        "*NODE\n4, 0.5, -1.25, 1000000.\n2, 1., 0., 0.\n6, 0., 1.0000006, 0.\n2, 0., 0., 2e-7\n"
        "*ELEMENT, TYPE=B31, ELSET=BEAM\n9, 4, 2\n12, 2, 4\n"
        "*ELEMENT, TYPE=C3D4, ELSET=BODY\n5, 4, 2, 6, 3\n7, 6, 2, 4, 4\n"
        "*ELEMENT, TYPE=S3, ELSET=SKIN\n9, 4, 6, 2\n"
        "*ELSET, ELSET=TWO\n7, 5\n*ELSET, ELSET=ONE\n*SURFACE, TYPE=ELEMENT, NAME=F\nTWO, S3\n"
        "*DLOAD\n7, P1, 2.5\n");
    deck.sort();
    EXPECT_EQ(deck.log(),
              "--------------- Node ID Map-----------------\n"
              "Old ID = 4 , New ID = 0\n"
              "Old ID = 2 , New ID = 3\n"
              "Old ID = 6 , New ID = 2\n"
              "Old ID = 2 , New ID = 3\n"
              "--------------- Element ID Map-----------------\n"
              "Old ID = 9 , MapData = (2, 0)\n"
              "Old ID = 12 , MapData = (0, 1)\n"
              "Old ID = 5 , MapData = (1, 0)\n"
              "Old ID = 7 , MapData = (1, 1)\n"
              "Old ID = 9 , MapData = (2, 0)\n"
              "-------- Node Data--------\n"
              "New ID = 0 , Old ID = 4 , (0.500000, -1.250000, 1000000.000000)\n"
              "New ID = 1 , Old ID = 2 , (1.000000, 0.000000, 0.000000)\n"
              "New ID = 2 , Old ID = 6 , (0.000000, 1.000001, 0.000000)\n"
              "New ID = 3 , Old ID = 2 , (0.000000, 0.000000, 0.000000)\n"
              "-------- Solid Element Data--------\n"
              "------- Solid Element Section 0 --------\n"
              "Type = C3D4, Elset = BODY, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 5 , 0 3 2 0\n"
              "New ID = 1 , Old ID = 7 , 2 3 0 0\n"
              "-------- Shell Element Data--------\n"
              "------- Shell Element Section 0 --------\n"
              "Type = S3, Elset = SKIN, Element Node Num = 3\n"
              "New ID = 0 , Old ID = 9 , 0 2 3\n"
              "------- Shell Element Section 1 --------\n"
              "Type = S4, Elset = Dload_Shell, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 0 , 2 0 3 3\n"
              "------- Shell Element Section 2 --------\n"
              "Type = S4, Elset = Surface_Shell, Element Node Num = 4\n"
              "New ID = 0 , Old ID = 0 , 3 0 0 0\n"
              "New ID = 1 , Old ID = 1 , 3 2 0 0\n"
              "-------- Elset Data--------\n"
              "------- Elset Section 0 --------\n"
              "Elset name = ONE, len = 3\n"
              "------- Elset Section 1 --------\n"
              "Elset name = TWO, len = 3\n"
              "  Elem id = 7\n"
              "  Elem id = 5\n"
              "-------- Dload Data--------\n"
              "Face Elem Num = 1\n"
              "Added face : (2, 0, 3, 3)\n");
}

TEST(NormaliseLog, LinesEndAsTextFilesOfThePlatformDo) {
    Deck deck(kOneTetrahedron);
    deck.sort();
    const std::string bytes = readBytes(deck.logFile());
#if defined(_WIN32)
    const std::string heading = "--------------- Node ID Map-----------------\r\nOld ID = 10 ";
#else
    const std::string heading = "--------------- Node ID Map-----------------\nOld ID = 10 ";
#endif
    EXPECT_EQ(bytes.substr(0, heading.size()), heading);
}

TEST(NormaliseLog, OldLogIsReplaced) {
    Deck deck(kOneTetrahedron);
    deck.folder.write("debug/SortData.log", std::string(100000, 'x'));
    deck.sort();
    EXPECT_EQ(deck.log(), kOneTetrahedronLog);
    deck.sort();
    EXPECT_EQ(deck.log(), kOneTetrahedronLog);
}

TEST(NormaliseLog, EarlyExitLeavesNoLog) {
    Deck deck(nodeBlock(3));
    deck.sort();
    EXPECT_EQ(deck.printed, "");
    EXPECT_FALSE(std::filesystem::exists(deck.logFile()));
}

TEST(NormaliseLog, LogStandsBesideThatOfTheImport) {
    Deck deck(kOneTetrahedron);
    const std::filesystem::path importLog = deck.folder.path() / "debug" / "InputAbaqus.log";
    const std::string before = readBytes(importLog);
    EXPECT_NE(before, "");
    EXPECT_FALSE(std::filesystem::exists(deck.logFile()));
    deck.sort();
    EXPECT_EQ(readBytes(importLog), before);
    EXPECT_TRUE(std::filesystem::exists(deck.logFile()));
}

TEST(NormaliseLog, LatestImportOfAnyReaderDecidesWhereItGoes) {
    Deck first(kOneTetrahedron);
    Deck second(nodeBlock(3) + "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, 3\n");
    first.sort();
    EXPECT_EQ(first.printed,
              "elem sec num = 1\nsec 0 , geom type = 2\nelement node num = 4\n" + second.logLine());
    EXPECT_FALSE(std::filesystem::exists(first.logFile()));
    EXPECT_EQ(second.log(), kOneTetrahedronLog);
}

TEST(NormaliseLog, LatestImportOfAnyReaderDecidesWhetherItIsWritten) {
    Deck first(kOneTetrahedron);
    const Deck second(kOneTetrahedron, DebugFolder::absent);
    first.sort();
    EXPECT_EQ(first.printed, "elem sec num = 1\nsec 0 , geom type = 2\nelement node num = 4\n");
    EXPECT_FALSE(std::filesystem::exists(first.logFile()));
}

TEST(NormaliseLog, FolderInItsPlaceLeavesTheModelTheSame) {
    Deck deck(kOneTetrahedron);
    std::filesystem::create_directory(deck.logFile());
    deck.sort();
    EXPECT_EQ(deck.printed,
              "elem sec num = 1\nsec 0 , geom type = 2\nelement node num = 4\n" + deck.logLine());
    EXPECT_EQ(deck.solids(), kOneTetrahedronSolids);
    EXPECT_TRUE(std::filesystem::is_empty(deck.logFile()));
}

TEST(NormaliseLog, DebugFolderGoneSinceTheImportLeavesTheModelTheSame) {
    Deck deck(kOneTetrahedron);
    std::filesystem::remove_all(deck.folder.path() / "debug");
    deck.sort();
    EXPECT_EQ(deck.solids(), kOneTetrahedronSolids);
    EXPECT_FALSE(std::filesystem::exists(deck.folder.path() / "debug"));
}

#if defined(__linux__)
TEST(NormaliseLog, FullDiskLeavesTheModelTheSame) {
    std::string text = nodeBlock(5000) + "*ELEMENT, TYPE=S3, ELSET=A\n";
    for (int oid = 1; oid <= 4000; ++oid)
        text += elementLine(oid, oid, 3);
    Deck deck(text);
    std::filesystem::create_symlink("/dev/full", deck.logFile());
    deck.sort();
    const Sections shells = deck.shells();
    ASSERT_EQ(shells.size(), 1U);
    ASSERT_EQ(shells[0].elements.size(), 4000U);
    EXPECT_EQ(shells[0].elements.front(), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(shells[0].elements.back(), (std::vector<int>{3999, 4000, 4001}));
    EXPECT_EQ(deck.printed, "elem sec num = 1\nsec 0 , geom type = 1\n" + deck.logLine());
}
#endif

TEST(NormaliseLog, IdsOutsideTheMapsShowZeros) {
    Deck deck(
        "*NODE\n1, 0., 0., 0.\n2, 0., 0., 0.\n-5, 0., 0., 0.\n"
        "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, -5\n*ELEMENT, TYPE=S3, ELSET=B\n-7, 2, 1, -5\n");
    deck.sort();
    const std::string log = deck.log();
    EXPECT_NE(log.find("Old ID = 2 , New ID = 1\nOld ID = -5 , New ID = 0\n"), std::string::npos);
    EXPECT_NE(log.find("Old ID = 1 , MapData = (0, 0)\nOld ID = -7 , MapData = (0, 0)\n"),
              std::string::npos);
    EXPECT_NE(log.find("New ID = 0 , Old ID = -7 , 1 0 0\n"), std::string::npos);
}

TEST(NormaliseLog, LargestIntsAreShown) {
    Deck deck(
        "*NODE\n2147483647, 0., 0., 0.\n5, 0., 0., 0.\n"
        "*ELEMENT, TYPE=S3, ELSET=A\n2147483647, 5, 2147483647, 5\n");
    deck.sort();
    const std::string log = deck.log();
    EXPECT_NE(log.find("Old ID = 2147483647 , New ID = 0\nOld ID = 5 , New ID = 1\n"),
              std::string::npos);
    EXPECT_NE(log.find("Old ID = 2147483647 , MapData = (0, 0)\n"), std::string::npos);
    EXPECT_NE(log.find("New ID = 0 , Old ID = 2147483647 , 1 0 1\n"), std::string::npos);
}

}  // namespace
}  // namespace kvocaeio::test
