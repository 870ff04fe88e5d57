/// Wire models and wires of 3DI files: every state in which lines are awaited.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "package/imported_package.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> wiresOf(const std::string& lines) {
    Package loaded(kTables + lines);
    EXPECT_EQ(loaded.result, "true");
    return wires(loaded.reader);
}

/// Names of the wire models: the query sets the name also where no wire uses the model.
std::vector<std::string> models(const std::string& lines) {
    Package loaded(kTables + lines);
    EXPECT_EQ(loaded.result, "true");
    std::vector<std::string> out;
    for (int profile = 1;; ++profile) {
        const char* name = nullptr;
        double diameter = 0.0;
        unsigned color = 0;
        outcomeOf([&] { return loaded.reader.GetWireProfileData(profile, name, diameter, color); });
        if (name == nullptr)
            return out;
        out.emplace_back(name);
    }
}

// A wire by its groups of lines.
const std::string kColor = "COLOR 1\n";
const std::string kModel = "WIRE_MODEL 1\n";
const std::string kWire = "WIRE 0.5 1\n";
const std::string kPoints = "3DPL 2\n0 0 0 1 2 3\n";
const std::string kEnd = "####\nGEOM\n";
const std::string kMade = "profile 1, diameter 0.5: 0 0 0; 1 2 3";
/// A wire behind the one in question, by which it shows in what state that left off.
const std::string kNextWire = "COLOR 2\nWIRE_MODEL 2\nWIRE 4 1\n3DPL 1\n9 9 9\n####\nGEOM\n";
const std::string kNextWireMade = "profile 2, diameter 4: 9 9 9";

TEST(WireModels, AreTwoLinesEachBehindTheirHeading) {
    EXPECT_THAT(models("WIRE_MODELS\nWIRE_MODEL 1\nAU25 0.025 1 GOLD\nWIRE_MODEL 2\n"
                       "cu_20 0.02 1 copper and more\n"),
                ElementsAre("AU25", "CU_20"));
    EXPECT_THAT(models("list of wire_models:\nwire_model 1\nAu25 0.025 1 Gold"),
                ElementsAre("AU25"));
    EXPECT_THAT(models("WIRE_MODEL 1\nAU25 0.025 1 GOLD\n"), IsEmpty());
    EXPECT_THAT(models("WIRE_MODEL 1\nA 1 1 X\nWIRE_MODELS\nWIRE_MODEL 1\nB 1 1 X\n"),
                ElementsAre("B"));
    // The heading is consumed, and nothing ends the section.
    EXPECT_THAT(models("WIRE_MODELS WIRE_MODEL 1\nA 1 1 X\n"), IsEmpty());
    EXPECT_THAT(models("WIRE_MODELS\nGEOMETRIES\n####\nTABLE END\nWIRE_MODEL 1\nA 1 1 X\n"),
                ElementsAre("A"));
}

TEST(WireModels, AreNumberedByTheirPlace) {
    EXPECT_THAT(models("WIRE_MODELS\nWIRE_MODEL 7\nA 1 1 X\nWIRE_MODEL 7\nA 1 1 X\n"
                       "WIRE_MODEL -1\nB 1 1 X\n"),
                ElementsAre("A", "A", "B"));
}

TEST(WireModels, ALineThatDoesNotMatchIsSkipped) {
    for (const char* line : {"WIRE_MODEL", "WIRE_MODEL X", "WIRE_MODELS", "WIRE_MODELS 1",
                             "XWIRE_MODEL 1", "WIRE_MODELX 1", "MY WIRE_MODEL 1", "WIRE 1", ""})
        EXPECT_THAT(models(std::string("WIRE_MODELS\n") + line + "\nA 1 1 X\n"), IsEmpty()) << line;
    for (const char* line : {"WIRE_MODEL 1", "WIRE_MODEL 1 X", "WIRE_MODEL 1.5", " wire_model\t1",
                             "W 1 WIRE_MODEL", "WIRE 1 WIRE_MODELS"})
        EXPECT_THAT(models(std::string("WIRE_MODELS\n") + line + "\nA 1 1 X\n"), ElementsAre("A"))
            << line;
}

TEST(WireModels, TheDataLineIsTheNextOneWhateverItHolds) {
    for (const char* line : {"", "A 1 1", "A 1 X X", "A X 1 X", "A", "1 1 1", "WIRE_MODEL 2 3"})
        EXPECT_THAT(
            models(std::string("WIRE_MODELS\nWIRE_MODEL 1\n") + line + "\nB 1 1 X\nC 1 1 X\n"),
            IsEmpty())
            << line;
    // A second heading is taken for the data of the first; what is behind it goes by.
    EXPECT_THAT(models("WIRE_MODELS\nWIRE_MODEL 1\nWIRE_MODEL 2\nA 1 1 X\nWIRE_MODEL 3\nB 1 1 X\n"),
                ElementsAre("B"));
    EXPECT_THAT(models("WIRE_MODELS\nWIRE_MODEL 1\nWIRE_MODEL 1 1 X\n"), ElementsAre("WIRE_MODEL"));
    EXPECT_THAT(models("WIRE_MODELS\nWIRE_MODEL 1\nTABLE 1e3 -1 #\n"), ElementsAre("TABLE"));
}

TEST(WireModels, WiresAddOneOnlyByAWordBehindTheirNumbers) {
    const std::string start = "WIRE_MODELS\nWIRE_MODEL 1\nA 1 1 X\n" + kColor + kModel;
    EXPECT_THAT(models(start + kWire + kPoints), ElementsAre("A"));
    EXPECT_THAT(models(start + "WIRE 0.5 1 X\n" + kPoints), ElementsAre("A", "WIRE"));
}

TEST(Wire, IsStoredWithItsGroups) {
    EXPECT_THAT(wiresOf(kColor + kModel + kWire + kPoints + kEnd), ElementsAre(kMade));
    EXPECT_THAT(wiresOf("color 1\nwire_model 1\nwire .5 1\n3dpl 2\n0 0 0 1 2 3\n-\n-"),
                ElementsAre(kMade));
    EXPECT_THAT(wiresOf(kColor + kModel + kWire + kPoints + kEnd + kNextWire),
                ElementsAre(kMade, kNextWireMade));
}

TEST(Wire, AwaitingAColourOtherLinesAreSkipped) {
    for (const char* line :
         {"", "COLOR", "COLOR X", "COLORS 1", "XCOLOR 1", "#COLOR 1", "MY COLOR 1", "TABLE COLOR"})
        EXPECT_THAT(wiresOf(std::string(line) + "\n" + kModel + kWire + kPoints + kEnd + kNextWire),
                    ElementsAre(kNextWireMade))
            << line;
    for (const char* line : {"COLOR 1 X", "COLOR 1.5", " color +1", "C 1 COLOR", "COL -1 COLORS"})
        EXPECT_THAT(wiresOf(std::string(line) + "\n" + kModel + kWire + kPoints + kEnd),
                    ElementsAre(kMade))
            << line;
    EXPECT_THAT(wiresOf(kModel + kWire + kPoints + kEnd), IsEmpty());
}

TEST(Wire, AwaitingAModelOtherLinesAreSkipped) {
    EXPECT_THAT(wiresOf(kColor + "\nLAYER 2\nOBJECT 3\nWIRE 9 9\n3DPL 1\n9 9 9\n####\nGEOM\n" +
                        kModel + kWire + kPoints + kEnd),
                ElementsAre(kMade));
    EXPECT_THAT(wiresOf(kColor + "W 1 WIRE_MODEL\n" + kWire + kPoints + kEnd), ElementsAre(kMade));
}

TEST(Wire, AModelLineThatDoesNotMatchStartsAgain) {
    for (const char* line :
         {"WIRE_MODEL", "WIRE_MODEL X", "XWIRE_MODEL 1", "WIRE_MODELS", "WIRE_MODELS 1"}) {
        EXPECT_THAT(wiresOf(kColor + line + "\n" + kModel + kWire + kPoints + kEnd + kNextWire),
                    ElementsAre(kNextWireMade))
            << line;
        EXPECT_THAT(wiresOf(kColor + line + "\n" + kColor + kModel + kWire + kPoints + kEnd),
                    ElementsAre(kMade))
            << line;
    }
}

TEST(Wire, AwaitingTheDiameterLinesWithoutWireAreSkipped) {
    EXPECT_THAT(wiresOf(kColor + kModel + "\nCOLOR 2\nOBJECT 3\n3DPL 1\nWIR 1 1\n####\n" + kWire +
                        kPoints + kEnd),
                ElementsAre(kMade));
    EXPECT_THAT(wiresOf(kColor + kModel + "W 0.5 1 WIRE\n" + kPoints + kEnd), ElementsAre(kMade));
    EXPECT_THAT(wiresOf(kColor + kModel + "WIRE 0.5 1.7 X\n" + kPoints + kEnd), ElementsAre(kMade));
}

TEST(Wire, AWireLineThatDoesNotMatchStartsAgain) {
    for (const char* line : {"WIRE", "WIRE 0.5", "WIRE X 1", "WIRE 0.5 X", "WIRES 0.5 1",
                             "XWIRE 0.5 1", "WIREBOND", "WIRE_MODEL 1", "WIRE_MODEL 1 1"}) {
        EXPECT_THAT(wiresOf(kColor + kModel + line + "\n" + kWire + kPoints + kEnd + kNextWire),
                    ElementsAre(kNextWireMade))
            << line;
        EXPECT_THAT(
            wiresOf(kColor + kModel + line + "\n" + kColor + kModel + kWire + kPoints + kEnd),
            ElementsAre(kMade))
            << line;
    }
}

TEST(Wire, TheNextLineMustBeThePolyline) {
    for (const char* line : {"", "####", "3DPL", "3DPL X", "3DPLX 2", "X3DPL 2", "MY 3DPL 2",
                             "3DP 2", "WIRE 0.5 1", "COLOR 1"})
        EXPECT_THAT(wiresOf(kColor + kModel + kWire + line + "\n" + kPoints + kEnd + kNextWire),
                    ElementsAre(kNextWireMade))
            << line;
    for (const char* line : {"3DPL 2 X", "3D 2 3DPL", "3 2 3DPL", " 3dpl\t+2.5"})
        EXPECT_THAT(wiresOf(kColor + kModel + kWire + line + "\n0 0 0 1 2 3\n" + kEnd),
                    ElementsAre(kMade))
            << line;
}

TEST(Wire, PointsComeOnSeveralRowsWithTextBetween) {
    EXPECT_THAT(wiresOf(kColor + kModel + kWire +
                        "3DPL 4\n0 0 0\nCOLOR 2\n1 2 3 4 5 6 x 9 9 9\nWIRE_MODEL 7\n####\n"
                        "\t7 8e0 9.\r\n" +
                        kEnd),
                ElementsAre("profile 1, diameter 0.5: 0 0 0; 1 2 3; 4 5 6; 7 8 9"));
}

TEST(Wire, ThirtyNumbersOfARowAreRead) {
    const std::string three = " 1 2 3 4 5 6 7 8 9";
    const std::string nine = three + three + three;
    EXPECT_THAT(
        wiresOf(kColor + kModel + kWire + "3DPL 11\n" + nine + " 0 0 0 5 5 5 5\n8 8 8\n" + kEnd),
        ElementsAre("profile 1, diameter 0.5: 1 2 3; 4 5 6; 7 8 9; 1 2 3; 4 5 6; 7 8 9; "
                    "1 2 3; 4 5 6; 7 8 9; 0 0 0; 8 8 8"));
    EXPECT_THAT(wiresOf(kColor + kModel + kWire + "3DPL 10\n" + nine + " 0 0\n" + kEnd + kNextWire),
                ElementsAre(kNextWireMade));
}

TEST(Wire, ALineThatIsNoRowDropsItWhilePointsAreMissing) {
    for (const char* line : {"", " \t", "1 2", "1 2 3 4", "1", "2DPG 4", "0 0 0 1 2 x"}) {
        EXPECT_THAT(wiresOf(kColor + kModel + kWire + "3DPL 3\n0 0 0\n" + line + "\n1 2 3 4 5 6\n" +
                            kEnd + kNextWire),
                    ElementsAre(kNextWireMade))
            << line;
        EXPECT_THAT(wiresOf(kColor + kModel + kWire + "3DPL 1\n" + line + "\n" + kNextWire),
                    ElementsAre(kNextWireMade))
            << line;
    }
}

TEST(Wire, NeedsTwoLinesBehindItsRows) {
    const std::string start = kColor + kModel + kWire + kPoints;
    EXPECT_THAT(wiresOf(start), IsEmpty());
    EXPECT_THAT(wiresOf(start + "x\n"), IsEmpty());
    for (const char* lines : {"x\nx", "\n\n", "1 2 3\n4 5 6\n", "1 2\n1", "####\n7 7 7 7 7 7\n"})
        EXPECT_THAT(wiresOf(start + lines), ElementsAre(kMade)) << lines;
}

TEST(Wire, AColourOnThoseTwoLinesIsUsedUp) {
    const std::string start = kColor + kModel + kWire + kPoints;
    EXPECT_THAT(wiresOf(start + kNextWire), ElementsAre(kMade));
    EXPECT_THAT(wiresOf(start + "####\n" + kNextWire), ElementsAre(kMade));
    EXPECT_THAT(wiresOf(start + "####\nGEOM\n" + kNextWire), ElementsAre(kMade, kNextWireMade));
}

TEST(Wire, TooManyPointsDropItAtTheNextLine) {
    const std::string start = kColor + kModel + kWire;
    EXPECT_THAT(wiresOf(start + "3DPL 1\n0 0 0 1 2 3\n" + kEnd + kNextWire),
                ElementsAre(kNextWireMade));
    EXPECT_THAT(wiresOf(start + "3DPL 1\n0 0 0 1 2 3\n" + kNextWire + kEnd), IsEmpty());
    EXPECT_THAT(wiresOf(start + "3DPL 3\n0 0 0 1 2 3\n4 4 4 5 5 5\n-\n-\n-\n" + kNextWire),
                ElementsAre(kNextWireMade));
}

TEST(Wire, ACountOfZeroIsAWireWithoutPoints) {
    const std::string start = kColor + kModel + kWire + "3DPL 0\n";
    EXPECT_THAT(wiresOf(start + "-\n-\n" + kNextWire),
                ElementsAre("profile 1, diameter 0.5:", kNextWireMade));
    EXPECT_THAT(wiresOf(start + "1 2 3\n4 5 6\n" + kNextWire),
                ElementsAre("profile 1, diameter 0.5:", kNextWireMade));
    EXPECT_THAT(wiresOf(start + "-\n"), IsEmpty());
}

TEST(Wire, ACountBelowZeroDropsItAtTheNextLine) {
    EXPECT_THAT(wiresOf(kColor + kModel + kWire + "3DPL -1\n1 2 3\n" + kNextWire),
                ElementsAre(kNextWireMade));
    EXPECT_THAT(wiresOf(kColor + kModel + kWire + "3DPL -1\n" + kNextWire), IsEmpty());
}

TEST(Wire, MayHaveMoreThanTwentyPoints) {
    std::string rows, made = "profile 1, diameter 0.5:";
    for (int i = 0; i < 25; ++i) {
        const std::string point = " " + std::to_string(i) + " 1 2";
        rows += point + (i % 5 == 4 ? "\n" : "");
        made += (i == 0 ? "" : ";") + point;
    }
    EXPECT_THAT(wiresOf(kColor + kModel + kWire + "3DPL 25\n" + rows + kEnd + kNextWire),
                ElementsAre(made, kNextWireMade));
    EXPECT_THAT(wiresOf(kColor + kModel + kWire + "3DPL 26\n" + rows + kEnd + "\n" + kNextWire),
                ElementsAre(kNextWireMade));
    EXPECT_THAT(
        wiresOf(kColor + kModel + kWire + "3DPL 2147483647\n" + rows + kEnd + "\n" + kNextWire),
        ElementsAre(kNextWireMade));
    // 23 announced, 25 there: the row that overruns is taken whole.
    EXPECT_THAT(wiresOf(kColor + kModel + kWire + "3DPL 23\n" + rows + kEnd + kNextWire),
                ElementsAre(kNextWireMade));
}

TEST(Wire, ARowThatOverrunsTwentyPointsDropsIt) {
    const std::string three = "1 1 1 2 2 2 3 3 3\n";
    const std::string eighteen = three + three + three + three + three + three;
    EXPECT_THAT(
        wiresOf(kColor + kModel + kWire + "3DPL 20\n" + eighteen + three + kEnd + kNextWire),
        ElementsAre(kNextWireMade));
}

TEST(Wire, UnfinishedAtTheEndOfTheFileIsDropped) {
    const std::string whole = kColor + kModel + kWire + kPoints + "-\n-";
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_THAT(wiresOf(whole.substr(0, length)), IsEmpty()) << length;
    EXPECT_THAT(wiresOf(whole), ElementsAre(kMade));
}

TEST(Wire, LengthsAreScaledToMillimetres) {
    const std::string wire = kColor + kModel + "WIRE 25 1\n3DPL 2\n0 100 -200 1 2 3\n" + kEnd;
    EXPECT_THAT(wires(Package("3DI MICRONS\n" + kColors + kNames + wire).reader),
                ElementsAre("profile 1, diameter 0.025: 0 0.1 -0.2; 0.001 0.002 0.003"));
    EXPECT_THAT(wires(Package("3DI INCH\n" + kColors + kNames + wire).reader),
                ElementsAre("profile 1, diameter 635: 0 2540 -5080; 25.4 50.8 76.2"));
}

TEST(Wire, ProfileAndColourAreNotTestedWhenRead) {
    Package loaded(kTables + "COLOR -7\nWIRE_MODEL -3\nWIRE -1 1\n3DPL 1\n1 1 1\n" + kEnd +
                   "COLOR 2147483647\nWIRE_MODEL 2147483647\nWIRE 0 1\n3DPL 1\n2 2 2\n" + kEnd);
    EXPECT_EQ(loaded.result, "true");
    EXPECT_THAT(wires(loaded.reader), ElementsAre("profile -3, diameter -1: 1 1 1",
                                                  "profile 2147483647, diameter 0: 2 2 2"));
    EXPECT_EQ(loaded.reader.GetWireProfileCount(), 2147483647);
}

TEST(Wire, TheHighestProfileCounts) {
    EXPECT_EQ(Package(kTables + kNextWire + kColor + kModel + kWire + kPoints + kEnd)
                  .reader.GetWireProfileCount(),
              2);
    EXPECT_EQ(Package(kTables + kColor + "WIRE_MODEL -3\n" + kWire + kPoints + kEnd)
                  .reader.GetWireProfileCount(),
              0);
    // A wire that is dropped does not count.
    EXPECT_EQ(Package(kTables + kColor + "WIRE_MODEL 9\n" + kWire + "3DPL 1\n\n" + kNextWire)
                  .reader.GetWireProfileCount(),
              2);
}

}  // namespace
}  // namespace kvocaeio::test
