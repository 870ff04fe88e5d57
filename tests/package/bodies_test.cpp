/// Bodies of 3DI files: what kind a block is, its name, centre, size and colour.
#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "package/imported_package.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Tables without BALL and PACKAGE CAP.
const std::string kBareTables =
    "3DI MM\n" + kColors + "TABLE OBJECT\n1 SYMBOL\nTABLE LAYER\n1 OUTLINE\n2 TOP\nTABLE END\n";
const std::string kBox = "EXTR 0 0.1 0.3\n2DPG 2\n0 0 2 4\n";

TEST(PackageBody, KindsAreToldByNameOnly) {
    EXPECT_THAT(bodiesOf("GEOM\nNAME Die_1\nOBJECT 1\nLAYER 2\nCOLOR 1\n" + kBox +
                         "GEOM\nNAME die_spacer_2\nOBJECT 1\nLAYER 2\nCOLOR 1\n" + kBox +
                         "GEOM\nNAME spacer_interposer\nOBJECT 1\nLAYER 2\nCOLOR 1\n" + kBox +
                         "GEOM\nNAME interposer\nOBJECT 1\nLAYER 2\nCOLOR 1\n" + kBox),
                ElementsAre("DIE_1: centre 1 2 0.2, size 2 4 0.2, colour 255",
                            "DIE_SPACER_2: centre 1 2 0.2, size 2 4 0.2, colour 255",
                            "SPACER_INTERPOSER: centre 1 2 0.2, size 2 4 0.2, colour 255",
                            "INTERPOSER: centre 1 2 0.2, size 2 4 0.2, colour 255"));
}

TEST(PackageBody, ItsNameIsOneWordOrTheNameOfItsLayer) {
    const std::string rest = "OBJECT 1\nLAYER 3\nCOLOR 1\n" + kBox;
    const std::string tables =
        "3DI MM\n" + kColors +
        "TABLE OBJECT\n1 SYMBOL\n2 BALL\nTABLE LAYER\n1 OUTLINE\n3 Top Side Cond\n5 X\nTABLE END\n";
    EXPECT_THAT(bodiesOf("GEOM\nNAME two words\n" + rest, tables),
                ElementsAre("TWO: centre 1 2 0.2, size 2 4 0.2, colour 255"));
    EXPECT_THAT(bodiesOf("GEOM\n" + rest, tables),
                ElementsAre("TOP SIDE COND: centre 1 2 0.2, size 2 4 0.2, colour 255"));
    EXPECT_THAT(bodiesOf("GEOM\nOBJECT 2\nLAYER 3\nCOLOR 1\n####\n", tables),
                ElementsAre("TOP SIDE COND: centre 0 0 0, diameter 0, colour 255"));
    EXPECT_THAT(bodiesOf("GEOM\nOBJECT 1\nLAYER 4\nCOLOR 1\n" + kBox, tables),
                ElementsAre(": centre 1 2 0.2, size 2 4 0.2, colour 255"));
    // With a name the layer is not looked up.
    EXPECT_THAT(bodiesOf("GEOM\nNAME N\nOBJECT 1\nLAYER 99\nCOLOR 1\n" + kBox, tables),
                ElementsAre("N: centre 1 2 0.2, size 2 4 0.2, colour 255"));
}

TEST(PackageBody, OnTheOutlineItIsTheSubstrateWhateverElse) {
    for (const char* head :
         {"NAME DIE1\nOBJECT 1\n", "OBJECT 2\nBARL 9 9 9 9 0 0 1\n", "OBJECT 3\n", "NAME CAP\n"})
        EXPECT_THAT(bodiesOf(std::string("GEOM\n") + head + "LAYER 1\nCOLOR 1\n" + kBox),
                    ElementsAre("SUBSTRATE: centre 1 2 0.2, size 2 4 0.4, colour 255"))
            << head;
}

TEST(PackageBody, OnTheCapLayerItIsTheCapWhateverElse) {
    for (const char* head :
         {"NAME DIE1\nOBJECT 1\n", "OBJECT 2\nBARL 9 9 9 9 0 0 1\n", "OBJECT 3\n", "NAME SPACER\n"})
        EXPECT_THAT(bodiesOf(std::string("GEOM\n") + head + "LAYER 3\nCOLOR 2\n" + kBox),
                    ElementsAre("PACKAGECAP: centre 1 2 0.2, size 2 4 0.2, colour 16744448"))
            << head;
}

TEST(PackageBody, TheSizeOfTheSubstrateInZIsTheSumOfItsEnds) {
    EXPECT_THAT(bodiesOf("GEOM\nLAYER 1\nCOLOR 1\nEXTR 0 -0.5 0.25\n2DPG 2\n0 0 1 1\n"
                         "GEOM\nLAYER 3\nCOLOR 1\nEXTR 0 -0.5 0.25\n2DPG 2\n0 0 1 1\n"),
                ElementsAre("SUBSTRATE: centre 0.5 0.5 -0.125, size 1 1 -0.25, colour 255",
                            "PACKAGECAP: centre 0.5 0.5 -0.125, size 1 1 0.75, colour 255"));
}

TEST(PackageBody, ExchangedEndsGiveANegativeSize) {
    EXPECT_THAT(bodiesOf("GEOM\nNAME D\nOBJECT 1\nCOLOR 1\nEXTR 0 3 1\n2DPG 2\n0 0 1 1\n"),
                ElementsAre("D: centre 0.5 0.5 2, size 1 1 -2, colour 255"));
}

TEST(PackageBody, ABlockThatIsNeitherGivesNone) {
    EXPECT_THAT(
        bodiesOf("GEOM\nNAME D\nOBJECT 3\nLAYER 2\nCOLOR 1\n####\n"
                 "GEOM\nNAME D\nCOLOR 99\n####\nGEOM\n####\nGEOM\nOBJECT 0\nLAYER 0\n####\n"),
        IsEmpty());
}

TEST(PackageBody, WithoutAnEntryBallABlockWithoutObjectIsOne) {
    EXPECT_THAT(bodiesOf("GEOM\nLAYER 2\nCOLOR 1\nBARL 1 2 3 4 0 0 0\n####\n", kBareTables),
                ElementsAre("TOP: centre 1 2 3, diameter 8, colour 255"));
    EXPECT_THAT(bodiesOf("GEOM\nOBJECT -1\nLAYER 2\nCOLOR 1\n2DPG 1\n5 5\n", kBareTables),
                ElementsAre("TOP: centre 0 0 0, diameter 0, colour 255"));
    EXPECT_THAT(bodiesOf("GEOM\nOBJECT 2\nLAYER 2\nCOLOR 1\n####\n", kBareTables), IsEmpty());
    EXPECT_THAT(bodiesOf("GEOM\nLAYER 2\nCOLOR 1\n####\n"), IsEmpty());
    EXPECT_EQ(Package(kBareTables + "GEOM\n####\n").result, kOutOfRange);
}

TEST(PackageBody, WithoutAnEntryPackageCapABlockWithoutLayerIsTheCap) {
    EXPECT_THAT(bodiesOf("GEOM\nNAME D\nOBJECT 1\nCOLOR 1\n" + kBox, kBareTables),
                ElementsAre("PACKAGECAP: centre 1 2 0.2, size 2 4 0.2, colour 255"));
    EXPECT_THAT(bodiesOf("GEOM\nOBJECT 9\nCOLOR 1\n" + kBox, kBareTables),
                ElementsAre("PACKAGECAP: centre 1 2 0.2, size 2 4 0.2, colour 255"));
    EXPECT_THAT(bodiesOf("GEOM\nOBJECT 9\nLAYER -1\nCOLOR 1\n####\n", kBareTables),
                ElementsAre("PACKAGECAP: centre 0 0 0, size -20000000000 -20000000000 "
                            "-20000000000, colour 255"));
    EXPECT_THAT(bodiesOf("GEOM\nNAME D\nOBJECT 1\nCOLOR 1\n" + kBox),
                ElementsAre("D: centre 1 2 0.2, size 2 4 0.2, colour 255"));
}

TEST(PackageBall, ZIsCorrectedByRadiusAndHeight) {
    EXPECT_THAT(bodiesOf("GEOM\nOBJECT 2\nLAYER 2\nCOLOR 2\nBARL 1 -2 0.5 0.5 0 0.3 1\n####\n"),
                ElementsAre("TOP: centre 1 -2 0.4, diameter 1, colour 16744448"));
    EXPECT_THAT(bodiesOf("GEOM\nOBJECT 2\nLAYER 2\nCOLOR 2\nBARL 0 0 5 13 99 12 1\n####\n"),
                ElementsAre("TOP: centre 0 0 -3, diameter 26, colour 16744448"));
    EXPECT_THAT(bodiesOf("GEOM\nOBJECT 2\nLAYER 2\nCOLOR 2\nBARL 0 0 5 13 99 -13 1\n####\n"),
                ElementsAre("TOP: centre 0 0 -8, diameter 26, colour 16744448"));
}

TEST(PackageBall, ZIsNoNumberWhereTheHeightIsAboveTheRadius) {
    EXPECT_THAT(bodiesOf("GEOM\nOBJECT 2\nLAYER 2\nCOLOR 2\nBARL 1 2 5 1 0 1.5 1\n####\n"),
                ElementsAre("TOP: centre 1 2 nan, diameter 2, colour 16744448"));
}

TEST(PackageBall, WithoutItsLineItIsThatOfTheBallBefore) {
    const std::string bare = "GEOM\nOBJECT 2\nLAYER 2\nCOLOR 1\n####\n";
    EXPECT_THAT(bodiesOf(bare + "GEOM\nOBJECT 3\nBARL 1 2 3 4 0 0 0\n####\n" + bare),
                ElementsAre("TOP: centre 0 0 0, diameter 0, colour 255",
                            "TOP: centre 1 2 3, diameter 8, colour 255"));
    EXPECT_THAT(bodiesOf("BARL 1 2 3 4 0 0 0\n" + bare),
                ElementsAre("TOP: centre 0 0 0, diameter 0, colour 255"));
}

TEST(PackageBall, TakesItsRangesFromNoPolygon) {
    EXPECT_THAT(bodiesOf("GEOM\nOBJECT 2\nLAYER 2\nCOLOR 1\nBARL 1 2 3 4 0 0 0\nEXTR 0 7 9\n"
                         "2DPG 2\n10 10 20 20\n"),
                ElementsAre("TOP: centre 1 2 3, diameter 8, colour 255"));
}

TEST(PackageBody, LengthsAreScaledToMillimetres) {
    const std::string geometries =
        "GEOM\nNAME D\nOBJECT 1\nCOLOR 1\nEXTR 0 100 300\n2DPG 2\n0 0 2000 4000\n"
        "GEOM\nOBJECT 2\nLAYER 2\nCOLOR 1\nBARL 1000 2000 100 50 0 30 1\n####\n"
        "GEOM\nLAYER 1\nCOLOR 1\nEXTR 0 100 300\n2DPG 2\n0 0 2000 4000\n";
    EXPECT_THAT(bodiesOf(geometries, "3DI UM\n" + kColors + kNames),
                ElementsAre("D: centre 1 2 0.2, size 2 4 0.2, colour 255",
                            "TOP: centre 1 2 0.09, diameter 0.1, colour 255",
                            "SUBSTRATE: centre 1 2 0.2, size 2 4 0.4, colour 255"));
    EXPECT_THAT(bodiesOf(geometries, "3DI INCH\n" + kColors + kNames),
                ElementsAre("D: centre 25400 50800 5080, size 50800 101600 5080, colour 255",
                            "TOP: centre 25400 50800 2286, diameter 2540, colour 255",
                            "SUBSTRATE: centre 25400 50800 5080, size 50800 101600 10160, "
                            "colour 255"));
}

TEST(PackageBody, AColourThatIsNotInTheTableThrows) {
    const std::string first = "GEOM\nNAME FIRST\nOBJECT 1\nCOLOR 1\n" + kBox;
    for (const char* line :
         {"", "COLOR -1\n", "COLOR 3\n", "COLOR 2147483647\n", "COLOR -2147483648\n"})
        for (const char* kind :
             {"NAME D\nOBJECT 1\n", "NAME D\nOBJECT 2\n", "LAYER 1\n", "LAYER 3\n"}) {
            Package loaded(kTables + first + "GEOM\n" + kind + line + "####\n" + first);
            EXPECT_EQ(loaded.result, kOutOfRange) << kind << line;
            EXPECT_THAT(bodies(loaded.reader),
                        ElementsAre("FIRST: centre 1 2 0.2, size 2 4 0.2, colour 255"));
        }
}

TEST(PackageBody, ALayerThatIsNotInTheTableThrowsWithoutAName) {
    for (const char* line : {"", "LAYER -1\n", "LAYER 4\n", "LAYER 2147483647\n"})
        for (const char* kind : {"OBJECT 1\n", "OBJECT 2\n"})
            EXPECT_EQ(Package(kTables + "GEOM\nCOLOR 1\n" + kind + line + "####\n").result,
                      kOutOfRange)
                << kind << line;
}

TEST(PackageBody, WithoutAColourTableOnlyId0HasAColour) {
    EXPECT_THAT(bodiesOf("GEOM\nNAME D\nOBJECT 1\nCOLOR 0\n" + kBox, "3DI MM\n" + kNames),
                ElementsAre("D: centre 1 2 0.2, size 2 4 0.2, colour 0"));
    EXPECT_EQ(Package("3DI MM\n" + kNames + "GEOM\nNAME D\nOBJECT 1\nCOLOR 1\n" + kBox).result,
              kOutOfRange);
}

TEST(PackageBody, WiresAreNotReadBehindAnError) {
    const std::string wire =
        "WIRE_MODELS\nWIRE_MODEL 1\nAU 1 1 X\nCOLOR 1\nWIRE_MODEL 1\nWIRE 1 1\n3DPL 1\n"
        "0 0 0\n-\n-\n";
    Package failing(kTables + wire + "GEOM\nOBJECT 1\n####\n");
    EXPECT_EQ(failing.result, kOutOfRange);
    EXPECT_EQ(failing.reader.GetWireLineCount(), 0);
    EXPECT_EQ(failing.reader.GetWireProfileCount(), 0);
    EXPECT_EQ(profileData(failing.reader, 1), "invalid vector<T> subscript: -, -, -");
    Package sound(kTables + wire);
    EXPECT_EQ(sound.reader.GetWireLineCount(), 1);
}

TEST(PackageBody, NamesMayFillAWholeLine) {
    // 5 characters before and the line end leave 1017 for the name.
    const std::string name(1017, 'N');
    const std::vector<std::string> made =
        bodiesOf("GEOM\nNAME " + name + "\nOBJECT 1\nCOLOR 1\n" + kBox);
    ASSERT_EQ(made.size(), 1U);
    EXPECT_EQ(made[0], name + ": centre 1 2 0.2, size 2 4 0.2, colour 255");
}

TEST(PackageBody, CapitalsAreMadeOfAsciiLettersOnly) {
    EXPECT_THAT(bodiesOf("GEOM\nNAME \xE4z\xFF\nOBJECT 1\nCOLOR 1\n" + kBox),
                ElementsAre("\xE4Z\xFF: centre 1 2 0.2, size 2 4 0.2, colour 255"));
}

}  // namespace
}  // namespace kvocaeio::test
