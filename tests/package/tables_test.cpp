/// Units and tables of 3DI files, seen through the bodies that use them.
#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "package/imported_package.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;

/// A die without name, 2000 units wide.
std::string die(const std::string& layer, const std::string& color) {
    return "GEOM\nOBJECT 1\nLAYER " + layer + "\nCOLOR " + color +
           "\nEXTR 0 0 1\n2DPG 2\n0 0 2000 1\n";
}

/// Size of the die in millimetres under these header lines.
std::string widthUnder(const std::string& header) {
    Package loaded(header + kColors + kNames + die("2", "1"));
    std::array<char, 1024> name{};
    int isBall = 0;
    double center[3];
    double size[5];
    unsigned color = 0;
    if (!loaded.reader.GetComponentData(0, name.data(), isBall, center, size, color))
        return loaded.result;
    return numberText(size[0]);
}

/// Packed colours of the ids 0, 1 ... up to the first that is not in the table.
std::vector<std::string> colors(const std::string& table) {
    std::vector<std::string> out;
    for (int id = 0;; ++id) {
        Package loaded("3DI MM\n" + table + kNames + die("2", std::to_string(id)));
        if (loaded.result != "true") {
            if (loaded.result != kOutOfRange)
                out.push_back(loaded.result);
            return out;
        }
        const std::string body = bodies(loaded.reader).at(0);
        out.push_back(body.substr(body.rfind(' ') + 1));
    }
}

/// Names of the layers 0, 1 ... up to the first that is not in the table, "false" where the import
/// fails. OUTLINE and PACKAGE CAP are told by what they make of a body.
std::vector<std::string> layers(const std::string& table) {
    std::vector<std::string> out;
    for (int id = 0;; ++id) {
        Package loaded("3DI MM\n" + kColors + "TABLE OBJECT\n1 SYMBOL\n2 BALL\nTABLE END\n" +
                       table + "TABLE END\n" + die(std::to_string(id), "1"));
        if (loaded.result != "true") {
            if (loaded.result != kOutOfRange)
                out.push_back(loaded.result);
            return out;
        }
        const std::string body = bodies(loaded.reader).at(0);
        out.push_back(body.substr(0, body.find(':')));
    }
}

/// What the object ids 0 to 4 stand for: 'S' a body, 'B' a ball, '-' neither; "false" where the
/// import fails.
std::string objects(const std::string& table) {
    std::string out;
    for (int id = 0; id < 5; ++id) {
        Package loaded(
            "3DI MM\n" + kColors + "TABLE LAYER\n1 OUTLINE\n2 TOP\n3 PACKAGE CAP\nTABLE END\n" +
            table + "TABLE END\nGEOM\nOBJECT " + std::to_string(id) + "\nLAYER 2\nCOLOR 1\n####\n");
        if (loaded.result != "true")
            return loaded.result;
        const std::vector<std::string> made = bodies(loaded.reader);
        out += made.empty() ? '-' : made[0].find("diameter") != std::string::npos ? 'B' : 'S';
    }
    return out;
}

TEST(PackageUnits, EveryWordHasItsScale) {
    EXPECT_EQ(widthUnder("3DI MM\n"), "2000");
    EXPECT_EQ(widthUnder("3DI MILLIMETERS\n"), "2000");
    EXPECT_EQ(widthUnder("3DI UM\n"), "2");
    EXPECT_EQ(widthUnder("3DI MICRONS\n"), "2");
    EXPECT_EQ(widthUnder("3DI NM\n"), "0.002");
    EXPECT_EQ(widthUnder("3DI NANOMETERS\n"), "0.002");
    EXPECT_EQ(widthUnder("3DI INCH\n"), "50800");
    EXPECT_EQ(widthUnder("3DI INCHS\n"), "50800");
}

TEST(PackageUnits, TheFirstWordOfTheListDecidesWhereverItStands) {
    EXPECT_EQ(widthUnder("3di file units: inch\n"), "50800");
    EXPECT_EQ(widthUnder("3DI COMMENT MICRONS\n"), "2000");
    EXPECT_EQ(widthUnder("3DI ALUMINUM\n"), "2");
    EXPECT_EQ(widthUnder("um of the 3di\n"), "2");
    EXPECT_EQ(widthUnder("X3DIUMX\n"), "2");
    EXPECT_EQ(widthUnder("3DI INCH UM\n"), "2");
    EXPECT_EQ(widthUnder("3DI NM UM MM\n"), "2000");
    EXPECT_EQ(widthUnder("3DI INCH NM\n"), "0.002");
    EXPECT_EQ(widthUnder("3DI INCH MICRONS\n"), "2");
    EXPECT_EQ(widthUnder("3DI UM MILLIMETERS\n"), "2000");
    EXPECT_EQ(widthUnder("3DI NM MICRONS\n"), "2");
    EXPECT_EQ(widthUnder("3DI INCH NANOMETERS\n"), "0.002");
}

TEST(PackageUnits, TheFirstLineWithBothWordsDecides) {
    EXPECT_EQ(widthUnder("3DI UM\n3DI MM\n"), "2");
    EXPECT_EQ(widthUnder("3DI\nMM\n3DI FILE\n3DI INCH\n3DI MM\n"), "50800");
    EXPECT_EQ(widthUnder("3D I MM\n3DI UM\n"), "2");
    EXPECT_EQ(widthUnder(std::string("3DI \0 MM\n3DI UM\n", 16)), "2");
}

TEST(PackageUnits, WithoutAUnitLengthsAreMillimetres) {
    EXPECT_EQ(widthUnder(""), "2000");
    EXPECT_EQ(widthUnder("3DI\nINCH\n"), "2000");
    EXPECT_EQ(widthUnder("3DI CM\n3DI MIL\n"), "2000");
}

TEST(PackageUnits, TheWordsMustStandInOnePieceOfALongLine) {
    // Pieces of 1023 characters: "3DI", filled up, and the unit at its end.
    EXPECT_EQ(widthUnder("3DI" + std::string(1016, ' ') + "INCH\n"), "50800");
    EXPECT_EQ(widthUnder("3DI" + std::string(1017, ' ') + "INCH\n"), "2000");
    EXPECT_EQ(widthUnder("3DI" + std::string(1020, ' ') + "INCH\n"), "2000");
    EXPECT_EQ(widthUnder(std::string(1023, '.') + "3DI INCH\n"), "50800");
    EXPECT_EQ(widthUnder(std::string(1022, '.') + "3DI INCH\n"), "2000");
}

TEST(PackageUnits, TheHeaderMayStandAtTheEnd) {
    Package loaded(kColors + kNames + die("2", "1") + "3DI INCH");
    EXPECT_THAT(bodies(loaded.reader),
                ElementsAre("TOP: centre 25400 12.7 12.7, size 50800 25.4 25.4, colour 255"));
}

TEST(PackageColorTable, TheFirstValueIsTheLowestByte) {
    EXPECT_THAT(colors("TABLE COLOR\n1 255 0 0 128\n2 0 0 255 0\n3 0 255 0 9\n4 1 2 3 4\n"),
                ElementsAre("0", "255", "16711680", "65280", "197121"));
}

TEST(PackageColorTable, ValuesAreNotMaskedAndRunIntoTheNextByte) {
    EXPECT_THAT(colors("TABLE COLOR\n1 256 0 0 0\n2 0 256 0 0\n3 0 0 256 0\n4 257 1 1 0\n"
                       "5 -1 0 0 0\n6 0 -1 0 0\n7 0 0 65535 0\n"),
                ElementsAre("0", "256", "65536", "16777216", "65793", "4294967295", "4294967040",
                            "4294901760"));
}

TEST(PackageColorTable, HasEntriesUpToItsLargestIdOrItsCountOfRows) {
    EXPECT_THAT(colors("TABLE COLOR\n1 1 0 0 0\n2 2 0 0 0\n3 3 0 0 0\n"),
                ElementsAre("0", "1", "2", "3"));
    EXPECT_THAT(colors("TABLE COLOR\n0 9 0 0 0\n1 1 0 0 0\n2 2 0 0 0\n3 3 0 0 0\n"),
                ElementsAre("9", "1", "2", "3", "0"));
    EXPECT_THAT(colors("TABLE COLOR\n1 1 0 0 0\n1 2 0 0 0\n1 3 0 0 0\n"),
                ElementsAre("0", "3", "0", "0"));
    EXPECT_THAT(colors("TABLE COLOR\n4 4 0 0 0\n2 2 0 0 0\n"),
                ElementsAre("0", "0", "2", "0", "4"));
    EXPECT_THAT(colors("TABLE COLOR\n"), ElementsAre("0"));
    EXPECT_THAT(colors(""), ElementsAre("0"));
}

TEST(PackageColorTable, OpensByTheSecondWord) {
    const std::vector<std::string> read{"0", "1"};
    const std::vector<std::string> unread{"0"};
    for (const char* opening : {"TABLE COLOR", "TABLE C", "TABLE COLO", "table color",
                                "PRETABLEX COLOR", "TABLE\tCOLOR MAP", "X COLOR TABLE"})
        EXPECT_EQ(colors(opening + std::string("\n1 1 0 0 0\n")), read) << opening;
    for (const char* opening : {"TABLE COLORS", "COLOR TABLE", "TABLE", "TABL COLOR", "COLOR",
                                "TABLE X COLOR", "TABLE OLOR"})
        EXPECT_EQ(colors(opening + std::string("\n1 1 0 0 0\n")), unread) << opening;
}

TEST(PackageColorTable, ALineWithTableEndsItAndOpensNone) {
    const std::string first = "TABLE COLOR\n5 5 0 0 0\n";
    const std::vector<std::string> firstOnly{"0", "0", "0", "0", "0", "5"};
    EXPECT_EQ(colors(first + "TABLE COLOR\n1 1 0 0 0\n"), firstOnly);
    EXPECT_EQ(colors(first + "VEGETABLES\n1 1 0 0 0\n"), firstOnly);
    EXPECT_EQ(colors(first + "1 9 9 9 9 TABLE\n1 1 0 0 0\n"), firstOnly);
    // The third line opens again: the rows are replaced, while the largest id stays.
    EXPECT_THAT(colors(first + "TABLE END\nTABLE COLOR\n1 1 0 0 0\n"),
                ElementsAre("0", "1", "0", "0", "0", "0"));
    EXPECT_THAT(colors(first + "TABLE END\nTABLE COLOR\n"),
                ElementsAre("0", "0", "0", "0", "0", "0"));
}

TEST(PackageColorTable, ALineThatIsNoRowIsSkippedWhileNoIdIsAboveZero) {
    EXPECT_THAT(colors("TABLE COLOR\n# comment\n\n1 1 0\n0 7 0 0 0\nx\n1 1 0 0 0\n"),
                ElementsAre("7", "1", "0"));
    EXPECT_THAT(colors("TABLE COLOR\n1 1 1\n1 1 0 0 x\n1.5 0 0 0 0\n2 2 0 0 0\n"),
                ElementsAre("0", "0", "2"));
}

TEST(PackageColorTable, ALineThatIsNoRowEndsThePassBehindAnIdAboveZero) {
    for (const char* line : {"# comment", "", "2 2 0 0", "x 2 0 0 0 0", "2 2 0 0 ."})
        EXPECT_THAT(colors("TABLE COLOR\n1 1 0 0 0\n" + std::string(line) +
                           "\n2 2 0 0 0\nTABLE END\nTABLE COLOR\n3 3 0 0 0\n"),
                    ElementsAre("0", "1"))
            << line;
    // The largest id of the first table counts in the second as well; its rows do not.
    EXPECT_THAT(colors("TABLE COLOR\n1 1 0 0 0\nTABLE END\nTABLE COLOR\n#\n1 2 0 0 0\n"),
                ElementsAre("0", "0"));
}

TEST(PackageColorTable, MoreFieldsThanFiveDoNotMatter) {
    EXPECT_THAT(colors("TABLE COLOR\n  +1\t1 0 0 0 name 5\n"), ElementsAre("0", "1"));
}

TEST(PackageColorTable, RowsWithIdsThatNoTableHoldsArePassedOver) {
    EXPECT_THAT(colors("TABLE COLOR\n-1 9 0 0 0\n16777216 9 0 0 0\n2147483647 9 0 0 0\n"
                       "99999999999 9 0 0 0\n-99999999999 9 0 0 0\nx\n1 1 0 0 0\n"),
                ElementsAre("0", "1"));
    EXPECT_THAT(colors("TABLE COLOR\n1 1 0 0 0\n-1 9 0 0 0\n2 2 0 0 0\n"),
                ElementsAre("0", "1", "2"));
}

TEST(PackageColorTable, HoldsIdsBelow16777216) {
    const std::string start = "3DI MM\nTABLE COLOR\n16777215 9 0 0 0\n" + kNames;
    EXPECT_THAT(bodies(Package(start + die("2", "16777215")).reader),
                ElementsAre("TOP: centre 1000 0.5 0.5, size 2000 1 1, colour 9"));
    EXPECT_THAT(bodies(Package(start + die("2", "16777214")).reader),
                ElementsAre("TOP: centre 1000 0.5 0.5, size 2000 1 1, colour 0"));
    EXPECT_EQ(Package(start + die("2", "16777216")).result, kOutOfRange);
}

TEST(PackageNameTable, EntriesAreUpToFiveWordsInCapitals) {
    EXPECT_THAT(layers("TABLE LAYER\n1 OUTLINE\n2 package  \t Cap\n3 a b c d e f g\n4 top\n"),
                ElementsAre("", "SUBSTRATE", "PACKAGECAP", "A B C D E", "TOP"));
}

TEST(PackageNameTable, OpensByTheSecondWord) {
    for (const char* opening :
         {"TABLE LAYER", "TABLE L", "table lay", "PRETABLEX LAYER", "MY LAYER TABLE"})
        EXPECT_THAT(layers(opening + std::string("\n1 OUTLINE\n")), ElementsAre("", "SUBSTRATE"))
            << opening;
    for (const char* opening : {"TABLE LAYERS", "LAYER TABLE", "TABLE", "TABLE OBJECT", "LAYER"})
        EXPECT_THAT(layers(opening + std::string("\n1 OUTLINE\n")), ElementsAre("false"))
            << opening;
    for (const char* opening : {"TABLE OBJECT", "TABLE O", "table obj", "TABLES OBJECT"})
        EXPECT_EQ(objects(opening + std::string("\n1 SYMBOL\n2 BALL\n")), "-SB--") << opening;
    for (const char* opening : {"TABLE OBJECTS", "OBJECT TABLE", "TABLE", "TABLE LAYER"})
        EXPECT_EQ(objects(opening + std::string("\n1 SYMBOL\n2 BALL\n")), "false") << opening;
}

TEST(PackageNameTable, ALaterRowReplacesAnEarlierOneOfItsId) {
    EXPECT_THAT(layers("TABLE LAYER\n1 OUTLINE\n3 TOP\n3 TOP COND\n"),
                ElementsAre("", "SUBSTRATE", "", "TOP COND"));
}

TEST(PackageNameTable, HasEntriesUpToItsLargestIdOrItsCountOfRows) {
    EXPECT_THAT(layers("TABLE LAYER\n0 OUTLINE\n1 A\n"), ElementsAre("SUBSTRATE", "A", ""));
    EXPECT_THAT(layers("TABLE LAYER\n1 A\n1 B\n1 OUTLINE\n"), ElementsAre("", "SUBSTRATE", "", ""));
    EXPECT_THAT(layers("TABLE LAYER\n3 OUTLINE\n"), ElementsAre("", "", "", "SUBSTRATE"));
}

TEST(PackageNameTable, ALineWithTableEndsIt) {
    EXPECT_THAT(layers("TABLE LAYER\n1 OUTLINE\n2 TABLETOP\n3 TOP\n"),
                ElementsAre("", "SUBSTRATE"));
    EXPECT_THAT(layers("TABLE LAYER\n3 A\nTABLE LAYER\n1 B\nTABLE LAYER\n1 OUTLINE\n"),
                ElementsAre("", "SUBSTRATE", "", ""));
}

TEST(PackageNameTable, ALineThatIsNoRowEndsThePassBehindAnIdAboveZero) {
    EXPECT_THAT(layers("TABLE LAYER\n# A\n7\n\n0 A\nB\n1 OUTLINE\n"),
                ElementsAre("A", "SUBSTRATE", ""));
    for (const char* line : {"# A", "2", "", "x 2 A", "2\t "})
        EXPECT_THAT(layers("TABLE LAYER\n1 OUTLINE\n" + std::string(line) +
                           "\n2 A\nTABLE END\nTABLE LAYER\n3 A\n"),
                    ElementsAre("", "SUBSTRATE"))
            << line;
}

TEST(PackageNameTable, RowsWithIdsThatNoTableHoldsArePassedOver) {
    EXPECT_THAT(layers("TABLE LAYER\n-1 A\n16777216 B\n2147483648 C\nx\n1 OUTLINE\n"),
                ElementsAre("", "SUBSTRATE"));
}

TEST(PackageNameTable, SymbolAndOutlineMustBeThereInFull) {
    EXPECT_EQ(objects(""), "false");
    EXPECT_EQ(objects("TABLE OBJECT\n1 BALL\n"), "false");
    EXPECT_EQ(objects("TABLE OBJECT\n1 SYMBOLS\n2 SYMBO\n3 A SYMBOL\n"), "false");
    EXPECT_EQ(objects("TABLE OBJECT\n1 SYMBOL\n1 BALL\n"), "false");
    EXPECT_EQ(objects("TABLE OBJECT\n0 symbol\n"), "S----");
    EXPECT_THAT(layers(""), ElementsAre("false"));
    EXPECT_THAT(layers("TABLE LAYER\n1 OUTLINES\n2 THE OUTLINE\n"), ElementsAre("false"));
}

TEST(PackageNameTable, TheFirstOfEqualEntriesIsMeant) {
    EXPECT_EQ(objects("TABLE OBJECT\n4 SYMBOL\n1 BALL\n2 SYMBOL\n3 BALL\n"), "-BS--");
    EXPECT_THAT(layers("TABLE LAYER\n1 A\n2 OUTLINE\n3 OUTLINE\n4 PACKAGE CAP\n5 PACKAGE CAP\n"),
                ElementsAre("", "A", "SUBSTRATE", "OUTLINE", "PACKAGECAP", "PACKAGE CAP"));
}

TEST(PackageNameTable, BallAndCapMayBeMissing) {
    EXPECT_EQ(objects("TABLE OBJECT\n3 SYMBOL\n"), "---S-");
    EXPECT_THAT(layers("TABLE LAYER\n1 OUTLINE\n2 PACKAGE CAPS\n"),
                ElementsAre("", "SUBSTRATE", "PACKAGE CAPS"));
}

}  // namespace
}  // namespace kvocaeio::test
