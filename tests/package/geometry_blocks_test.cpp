/// Geometry blocks of 3DI files: where they begin and end, their head lines and polygon rows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "package/imported_package.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The head of a die named D, from 0 to 1 in z.
const std::string kHead = "GEOM\nNAME D\nOBJECT 1\nLAYER 2\nCOLOR 1\nEXTR 0 0 1\n";
const std::string kSquare = "2DPG 4\n0 0 2 0 2 2 0 2\n";
const std::string kDie = kHead + kSquare;
const std::string kDieMade = "D: centre 1 1 0.5, size 2 2 1, colour 255";
/// A body that would show that a block before it swallowed or changed something.
const std::string kNext =
    "GEOM\nNAME NEXT\nOBJECT 1\nLAYER 2\nCOLOR 2\nEXTR 0 1 2\n2DPG 2\n-3 -3 -1 -1\n";
const std::string kNextMade = "NEXT: centre -2 -2 1.5, size 2 2 1, colour 16744448";

TEST(GeometryBlock, BeginsAtALineThatHoldsGeom) {
    for (const char* line : {"GEOM", "geom", "GEOM 12", "XGEOMX", "a GEOM", "GEOMETRY"}) {
        std::string content = kDie;
        content.replace(0, 4, line);
        EXPECT_THAT(bodiesOf(content), ElementsAre(kDieMade)) << line;
    }
    for (const char* line : {"", "####", "GEO", "GEOMETRIES", "GEOM GEOMETRIES"}) {
        std::string content = kDie;
        content.replace(0, 4, line);
        EXPECT_THAT(bodiesOf(content), IsEmpty()) << line;
    }
}

TEST(GeometryBlock, LinesOutsideOneAreSkipped) {
    EXPECT_THAT(bodiesOf("NAME X\nOBJECT 1\nLAYER 2\nCOLOR 1\nEXTR 0 5 6\nBARL 1 1 1 1 1 1 1\n" +
                         kSquare + "####\n" + kDie),
                ElementsAre(kDieMade));
}

TEST(GeometryBlock, ValuesOfTheBlockBeforeDoNotStay) {
    // Without a layer and a name there is nothing to look the name up with.
    EXPECT_EQ(Package(kTables + kDie + "GEOM\nOBJECT 1\nCOLOR 1\n####\n").result, kOutOfRange);
    EXPECT_EQ(Package(kTables + kDie + "GEOM\nNAME E\nOBJECT 1\n####\n").result, kOutOfRange);
    EXPECT_THAT(bodiesOf(kDie + "GEOM\nNAME E\nLAYER 2\nCOLOR 1\n####\n"), ElementsAre(kDieMade));
    EXPECT_THAT(bodiesOf(kDie + "GEOM\nLAYER 2\nOBJECT 1\nCOLOR 1\n####\n"),
                ElementsAre(kDieMade,
                            "TOP: centre 0 0 0, size -20000000000 -20000000000 -20000000000, "
                            "colour 255"));
}

TEST(GeometryBlock, HeadLinesComeInAnyOrder) {
    EXPECT_THAT(bodiesOf("GEOM\nEXTR 0 0 1\nCOLOR 1\nLAYER 2\nOBJECT 1\nNAME D\n" + kSquare),
                ElementsAre(kDieMade));
}

TEST(GeometryBlock, TheFirstWordOfAHeadLineIsNotLookedAt) {
    EXPECT_THAT(bodiesOf("GEOM\nx d NAME\nx 1 OBJECT\nMYLAYER 2\nx 1 COLOR\nx 0 0 1 EXTR\n"
                         "x 4 2DPG\n0 0 2 0 2 2 0 2\n"),
                ElementsAre(kDieMade));
}

TEST(GeometryBlock, ALaterHeadLineReplacesAnEarlierOne) {
    EXPECT_THAT(bodiesOf("GEOM\nNAME E\nOBJECT 3\nLAYER 1\nCOLOR 9\nEXTR 0 7 8\n" +
                         kHead.substr(5) + kSquare),
                ElementsAre(kDieMade));
}

TEST(GeometryBlock, AHeadLineWithTooFewFieldsChangesNothing) {
    for (const char* line : {"NAME", "OBJECT", "OBJECT X", "LAYER", "LAYER X", "COLOR", "COLOR .",
                             "EXTR", "EXTR 0", "EXTR 0 5", "EXTR X 5 6", "EXTR 0 X 6", "EXTR 0 5 X",
                             "2DPG", "2DPG X", "text", "", "3DPL 1"})
        EXPECT_THAT(bodiesOf(kHead + line + "\n" + kSquare), ElementsAre(kDieMade)) << line;
    const std::string ball = "GEOM\nOBJECT 2\nLAYER 2\nCOLOR 1\nBARL 1 2 3 4 0 0 0\n";
    for (const char* line :
         {"BARL", "BARL 5", "BARL 5 6", "BARL 5 6 7", "BARL 5 6 7 8", "BARL 5 6 7 8 0",
          "BARL 5 6 7 8 0 0", "BARL X 6 7 8 0 0 1", "BARL 5 X 7 8 0 0 1", "BARL 5 6 X 8 0 0 1",
          "BARL 5 6 7 X 0 0 1", "BARL 5 6 7 8 X 0 1", "BARL 5 6 7 8 0 X 1", "BARL 5 6 7 8 0 0 X"})
        EXPECT_THAT(bodiesOf(ball + line + "\n####\n"),
                    ElementsAre("TOP: centre 1 2 3, diameter 8, colour 255"))
            << line;
}

TEST(GeometryBlock, FieldsAreReadAsFarAsTheyAreNumbers) {
    EXPECT_THAT(bodiesOf("GEOM\nNAME D\nOBJECT 1.9\nLAYER 2x\nCOLOR +1\nEXTR 0.25 1\n2DPG 2.7\n"
                         "1 2 3 4\n"),
                ElementsAre("D: centre 2 3 0.625, size 2 2 0.75, colour 255"));
}

TEST(GeometryBlock, TheFirstWordThatALineHoldsDecides) {
    const std::string end = "####\n";
    const std::string ball = "GEOM\nNAME D\nOBJECT 2\nLAYER 2\nCOLOR 1\nBARL 1 2 3 4 0 0 0\n";
    // NAME before OBJECT: the object stays, the name changes.
    EXPECT_THAT(bodiesOf(ball + "OBJECTNAME 1\n" + end),
                ElementsAre("1: centre 1 2 3, diameter 8, colour 255"));
    // OBJECT before LAYER: no ball any more, and not on the outline.
    EXPECT_THAT(bodiesOf(ball + "LAYEROBJECT 3\n" + end), IsEmpty());
    EXPECT_THAT(bodiesOf(ball + "COLORLAYER 1\n" + end),
                ElementsAre("SUBSTRATE: centre 0 0 0, size -20000000000 -20000000000 0, "
                            "colour 255"));
    EXPECT_THAT(bodiesOf(ball + "EXTRCOLOR 2 0 1\n" + end),
                ElementsAre("D: centre 1 2 3, diameter 8, colour 16744448"));
    EXPECT_THAT(bodiesOf(ball + "BARLEXTR 9 9 9 9 0 0 0\n" + end),
                ElementsAre("D: centre 1 2 3, diameter 8, colour 255"));
    EXPECT_THAT(bodiesOf(ball + "2DPGBARL 5 6 7 8 0 0 0\n" + end),
                ElementsAre("D: centre 5 6 7, diameter 16, colour 255"));
    EXPECT_THAT(bodiesOf(kHead + "####2DPG 4\n0 0 2 0 2 2 0 2\n"), ElementsAre(kDieMade));
    // "####" before GEOM: the line opens no block.
    EXPECT_THAT(bodiesOf(ball + "GEOM####\nOBJECT 1\nCOLOR 1\nLAYER 2\n####\n"),
                ElementsAre("D: centre 1 2 3, diameter 8, colour 255"));
    // GEOM after all others.
    EXPECT_THAT(bodiesOf("GEOM\nGEOM NAME\nOBJECT 2\nLAYER 2\nCOLOR 1\n" + end),
                ElementsAre("NAME: centre 0 0 0, diameter 0, colour 255"));
    EXPECT_THAT(bodiesOf("GEOM\nNAME N\nOBJECT 2\nLAYER 2\nCOLOR 1\nGEOM X2DPG\n" + end),
                ElementsAre("N: centre 0 0 0, diameter 0, colour 255"));
}

TEST(GeometryBlock, IsFinishedByItsPolygon) {
    EXPECT_THAT(bodiesOf(kDie), ElementsAre(kDieMade));
    EXPECT_THAT(bodiesOf(kDie + "####\n####\n" + kNext), ElementsAre(kDieMade, kNextMade));
    EXPECT_THAT(bodiesOf(kDie + kNext), ElementsAre(kDieMade, kNextMade));
}

TEST(GeometryBlock, LinesBehindThePolygonAreSkipped) {
    EXPECT_THAT(
        bodiesOf(kDie + "NAME E\nEXTR 0 5 6\nCOLOR 2\nOBJECT 2\nLAYER 1\n" + kSquare + "####\n"),
        ElementsAre(kDieMade));
    EXPECT_THAT(bodiesOf("GEOM\nNAME D\nOBJECT 1\nLAYER 2\nCOLOR 1\n" + kSquare + "EXTR 0 0 1\n"),
                ElementsAre("D: centre 1 1 0, size 2 2 -20000000000, colour 255"));
}

TEST(GeometryBlock, IsFinishedByHashes) {
    for (const char* line : {"####", "########", " x####", "####NAM"})
        EXPECT_THAT(bodiesOf(kHead + line + "\n" + kNext),
                    ElementsAre("D: centre 0 0 0.5, size -20000000000 -20000000000 1, colour 255",
                                kNextMade))
            << line;
    EXPECT_THAT(bodiesOf(kHead + "###\n" + kSquare), ElementsAre(kDieMade));
}

TEST(GeometryBlock, IsFinishedByTheNextGeom) {
    const std::string ball = "GEOM\nOBJECT 2\nLAYER 2\nCOLOR 1\nBARL 1 2 3 4 0 0 0\n";
    EXPECT_THAT(bodiesOf(ball + kDie),
                ElementsAre("TOP: centre 1 2 3, diameter 8, colour 255", kDieMade));
    EXPECT_THAT(bodiesOf(kHead + ball + "####\n"),
                ElementsAre("D: centre 0 0 0.5, size -20000000000 -20000000000 1, colour 255",
                            "TOP: centre 1 2 3, diameter 8, colour 255"));
}

TEST(GeometryBlock, OpenedByTheEndOfAnotherReachesUpToZero) {
    const std::string opened = "GEOM\nOBJECT 3\n";
    EXPECT_THAT(bodiesOf(opened + kNext),
                ElementsAre("NEXT: centre -1.5 -1.5 1.5, size 3 3 1, colour 16744448"));
    // Its minima are as ever, and without an EXTR line its z goes from 1e10 to 0.
    EXPECT_THAT(bodiesOf(opened + "GEOM\nNAME P\nOBJECT 1\nLAYER 2\nCOLOR 1\n2DPG 2\n3 4 5 7\n"),
                ElementsAre("P: centre 4 5.5 5000000000, size 2 3 -10000000000, colour 255"));
    EXPECT_THAT(bodiesOf(opened + "####\n" + kNext), ElementsAre(kNextMade));
    EXPECT_THAT(bodiesOf(opened + "GEOM\n####\n" + kNext), ElementsAre(kNextMade));
    EXPECT_THAT(bodiesOf(kDie + kNext), ElementsAre(kDieMade, kNextMade));
}

TEST(GeometryBlock, ThatIsNotWantedEndsAtItsPolygon) {
    const std::string unwanted = "GEOM\nNAME U\nOBJECT 3\nLAYER 2\nCOLOR 9\nEXTR 0 7 8\n";
    EXPECT_THAT(bodiesOf(unwanted + "2DPG 4\n0 0 9 9\n" + kNext), ElementsAre(kNextMade));
    EXPECT_THAT(bodiesOf(unwanted + "2DPG 4\nOBJECT 1\nCOLOR 1\n####\n" + kNext),
                ElementsAre(kNextMade));
    EXPECT_THAT(bodiesOf(unwanted + "####\n" + kNext), ElementsAre(kNextMade));
    // What makes it wanted must stand before.
    EXPECT_THAT(bodiesOf("GEOM\nNAME D\nLAYER 2\nCOLOR 1\n2DPG 2\nOBJECT 1\n0 0 1 1\n" + kNext),
                ElementsAre(kNextMade));
}

TEST(GeometryBlock, IsWantedForItsObjectOrItsLayer) {
    const std::string rest = "COLOR 1\nEXTR 0 0 1\n2DPG 2\n0 0 1 1\n";
    EXPECT_THAT(bodiesOf("GEOM\nNAME D\nOBJECT 1\nLAYER 2\n" + rest + "GEOM\nOBJECT 2\nLAYER 2\n" +
                         rest + "GEOM\nOBJECT 3\nLAYER 1\n" + rest + "GEOM\nLAYER 3\n" + rest),
                ElementsAre("D: centre 0.5 0.5 0.5, size 1 1 1, colour 255",
                            "TOP: centre 0 0 0, diameter 0, colour 255",
                            "SUBSTRATE: centre 0.5 0.5 0.5, size 1 1 1, colour 255",
                            "PACKAGECAP: centre 0.5 0.5 0.5, size 1 1 1, colour 255"));
}

TEST(GeometryBlock, UnfinishedAtTheEndOfTheFileIsDropped) {
    EXPECT_THAT(bodiesOf(kDie + "GEOM"), ElementsAre(kDieMade));
    EXPECT_THAT(bodiesOf(kDie + kHead), ElementsAre(kDieMade));
    EXPECT_THAT(bodiesOf(kDie + kHead + "2DPG 4\n"), ElementsAre(kDieMade));
    EXPECT_THAT(bodiesOf(kDie + kHead + "2DPG 4\n0 0 2 0 2 2\n"), ElementsAre(kDieMade));
    EXPECT_THAT(bodiesOf(kHead + "2DPG 2\n0 0 2 2"),
                ElementsAre("D: centre 1 1 0.5, size 2 2 1, colour 255"));
}

TEST(GeometryPolygon, TakesPointsFromSeveralRows) {
    EXPECT_THAT(bodiesOf(kHead + "2DPG 5\n0 0\n2 0 2 2\n\t0 2 1e0 1.\r\n"), ElementsAre(kDieMade));
}

TEST(GeometryPolygon, RowsThatAreNoPointsArePassedOver) {
    EXPECT_THAT(bodiesOf(kHead + "2DPG 4\n0 0 2\n\n \t\ntext\n9 9 9\n####\nGEOM\n2DPG 1\n"
                                 "0 0 2 0 x 9 9\nNAME E\nCOLOR 2\n2 2 0 2\n"),
                ElementsAre(kDieMade));
}

TEST(GeometryPolygon, ReadsTwentyNumbersOfARow) {
    const std::string ten = "0 0 2 2 0 0 2 2 0 0 2 2 0 0 2 2 0 0 2 2";
    EXPECT_THAT(bodiesOf(kHead + "2DPG 10\n" + ten + " 9 9 9\n"), ElementsAre(kDieMade));
    EXPECT_THAT(bodiesOf(kHead + "2DPG 11\n" + ten + " 9 9\n5 2\n"),
                ElementsAre("D: centre 2.5 1 0.5, size 5 2 1, colour 255"));
}

TEST(GeometryPolygon, ARowIsTakenWholeAndTooManyPointsDropTheBlock) {
    // The line behind the row abandons the block, whatever it is.
    EXPECT_THAT(bodiesOf(kHead + "2DPG 2\n0 0 1 1 2 2\n" + kNext), IsEmpty());
    EXPECT_THAT(bodiesOf(kHead + "2DPG 2\n0 0 1 1 2 2\n####\n" + kNext), ElementsAre(kNextMade));
    EXPECT_THAT(bodiesOf(kHead + "2DPG 2\n0 0 1 1 2 2\n3 3\nOBJECT 1\n####\n" + kNext),
                ElementsAre(kNextMade));
}

TEST(GeometryPolygon, SurplusOnFurtherRowsIsSkipped) {
    EXPECT_THAT(bodiesOf(kHead + "2DPG 2\n0 0 2 2\n9 9 9 9\n" + kNext),
                ElementsAre(kDieMade, kNextMade));
}

TEST(GeometryPolygon, OneThatIsTooShortGoesOnInTheBlocksBehind) {
    EXPECT_THAT(bodiesOf(kHead + "2DPG 6\n0 0 2 0 2 2 0 2\n####\n" + kNext),
                ElementsAre("D: centre -0.5 -0.5 0.5, size 5 5 1, colour 255"));
    EXPECT_THAT(bodiesOf(kHead + "2DPG 7\n0 0 2 0 2 2 0 2\n####\n" + kNext), IsEmpty());
}

TEST(GeometryPolygon, ACountOfZeroIsMetByTheNextLine) {
    const std::string none = "D: centre 0 0 0.5, size -20000000000 -20000000000 1, colour 255";
    EXPECT_THAT(bodiesOf(kHead + "2DPG 0\nGEOM\n" + kNext), ElementsAre(none, kNextMade));
    EXPECT_THAT(bodiesOf(kHead + "2DPG 0\n5 5 6 6\n" + kNext), ElementsAre(none, kNextMade));
    EXPECT_THAT(bodiesOf(kHead + "2DPG 0\n\n" + kNext), ElementsAre(none, kNextMade));
    EXPECT_THAT(bodiesOf(kHead + "2DPG 0\n" + kNext), ElementsAre(none));
    EXPECT_THAT(bodiesOf(kHead + "2DPG 0\nGEOMETRIES\n" + kNext), ElementsAre(none));
    EXPECT_THAT(bodiesOf(kHead + "2DPG 0\n"), IsEmpty());
}

TEST(GeometryPolygon, ACountBelowZeroDropsTheBlockAtTheNextLine) {
    EXPECT_THAT(bodiesOf(kHead + "2DPG -1\n0 0 1 1\n" + kNext), ElementsAre(kNextMade));
    EXPECT_THAT(bodiesOf(kHead + "2DPG -1\n" + kNext), IsEmpty());
}

TEST(GeometryPolygon, EveryPointCountsAndTheLowestAndHighestStay) {
    EXPECT_THAT(bodiesOf(kHead + "2DPG 4\n5 -1\n-2 3\n1 1\n4 -6\n"),
                ElementsAre("D: centre 1.5 -1.5 0.5, size 7 9 1, colour 255"));
}

TEST(GeometryPolygon, ACoordinateThatIsNoNumberIsReplacedByTheNext) {
    // It is not above the minimum and not below the maximum, and nothing is above or below it.
    EXPECT_THAT(bodiesOf(kHead + "2DPG 4\n1 1\nnan 2\n3 nan\n4 4\n"),
                ElementsAre("D: centre 3.5 4 0.5, size 1 0 1, colour 255"));
    EXPECT_THAT(bodiesOf(kHead + "2DPG 2\n1 1\nnan 2\n"),
                ElementsAre("D: centre nan 1.5 0.5, size nan 1 1, colour 255"));
}

TEST(GeometryBlock, GeometriesHasNoEffectAnywhere) {
    EXPECT_THAT(bodiesOf("GEOMETRIES\nGEOM\nGEOMETRIES OBJECT 3\nNAME D\nOBJECT 1\nLAYER 2\n"
                         "COLOR 1\n####GEOMETRIES\nEXTR 0 0 1\n2DPG 4\nGEOMETRIES\n0 0 2 0\n"
                         "9 9 GEOMETRIES\n2 2 0 2\nGEOMETRIES\n" +
                         kNext),
                ElementsAre(kDieMade, kNextMade));
}

TEST(GeometryBlock, ATableRowWithGeomOpensOne) {
    const std::string start = "3DI MM\n" + kColors + "TABLE OBJECT\n1 SYMBOL\n2 BALL\n3 WIREBOND\n";
    const std::string end = "TABLE LAYER\n1 OUTLINE\n2 TOP\n3 PACKAGE CAP\n";
    // It runs on to the first real block, which is opened by its end and so reaches up to 0.
    EXPECT_THAT(bodies(Package(start + "4 GEOMETRY\n" + end + kNext).reader),
                ElementsAre("NEXT: centre -1.5 -1.5 1.5, size 3 3 1, colour 16744448"));
    EXPECT_THAT(bodies(Package(start + "4 GEOMETRIES\n" + end + kNext).reader),
                ElementsAre(kNextMade));
}

TEST(GeometryBlock, HeadLinesAreCutAfter1023Characters) {
    const std::string blanks(1018, ' ');
    EXPECT_THAT(bodiesOf("GEOM\nNAME " + blanks + "D\nOBJECT 1\nLAYER 2\nCOLOR 1\n####\n"),
                ElementsAre("TOP: centre 0 0 0, size -20000000000 -20000000000 -20000000000, "
                            "colour 255"));
    EXPECT_THAT(bodiesOf("GEOM\nNAME" + blanks + "D\nOBJECT 1\nLAYER 2\nCOLOR 1\n####\n"),
                ElementsAre("D: centre 0 0 0, size -20000000000 -20000000000 -20000000000, "
                            "colour 255"));
}

}  // namespace
}  // namespace kvocaeio::test
