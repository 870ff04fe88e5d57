/// Heights of substrate and die from the layer report.
#include <gtest/gtest.h>

#include "package/cadence_reports.h"

namespace kvocaeio::test {
namespace {

/// The outcome of an .mcm design with a substrate, a die and these layers.
std::string layered(const std::string& rows, const std::string& unit = "MM") {
    return imported(symbols("a.mcm", kSubstrateRow + kDieRow, unit), layers("a.mcm", rows));
}

/// What the heights of an .mcm design are, by centre and size in z.
std::string heights(const std::string& substrateCenter, const std::string& substrateSize,
                    const std::string& dieCenter, const std::string& dieSize) {
    return "true\nSUBSTRATE at 2 1 " + substrateCenter + ", 4 x 2 x " + substrateSize +
           "\nChip at 1 0.5 " + dieCenter + ", 2 x 1 x " + dieSize + "\n";
}

const std::string kNoHeight = heights("0", "0", "0", "0");
const std::string k10Mils = heights("0.127", "0.254", "0.254", "0");
const std::string k20Mils = heights("0.254", "0.508", "0.508", "0");

TEST(CadenceLayers, TheSubstrateReachesFromTheFirstConductorToTheSecond) {
    EXPECT_EQ(layered(layer("CONDUCTOR", "1 MIL") + layer("DIELECTRIC", "1 MIL") +
                      layer("CONDUCTOR", "1 MIL") + layer("DIELECTRIC", "1 MIL") +
                      layer("CONDUCTOR", "1 MIL")),
              heights("0.0381", "0.0762", "0.0762", "0"));
    EXPECT_EQ(layered(layer("PLANE", "90 MIL") + layer("CONDUCTOR", "4 MIL") +
                      layer("CONDUCTOR", "6 MIL") + layer("CONDUCTOR", "50 MIL")),
              k10Mils);
    EXPECT_EQ(layered(layer("Conductor", "4 MIL") + layer("conductor", "6 MIL") +
                      layer("DIELECTRIC", "1 MIL")),
              k10Mils)
        << "in any case";
}

TEST(CadenceLayers, WithOneConductorItReachesToTheEnd) {
    EXPECT_EQ(layered(layer("X", "5 MIL") + layer("CONDUCTOR", "1 MIL") + layer("", "2 MIL") +
                      layer("CONDUCTORS", "3 MIL") + layer(" CONDUCTOR", "4 MIL")),
              k10Mils);
}

TEST(CadenceLayers, WithoutConductorThereIsNoHeight) {
    EXPECT_EQ(layered(layer("DIELECTRIC", "5 MIL") + layer("CONDUCTOR1", "5 MIL")), kNoHeight);
    EXPECT_EQ(layered(""), kNoHeight);
}

TEST(CadenceLayers, AirRightBeforeTheFirstConductorCounts) {
    const std::string rest =
        layer("CONDUCTOR", "1 MIL") + layer("DIELECTRIC", "1 MIL") + layer("CONDUCTOR", "1 MIL");
    const std::string k5Mils = heights("0.0635", "0.127", "0.127", "0");
    const std::string k3Mils = heights("0.0381", "0.0762", "0.0762", "0");
    EXPECT_EQ(layered(layer("SURFACE", "2 MIL", "AIR") + rest), k5Mils);
    EXPECT_EQ(layered(layer("X", "9 MIL", "AIR") + layer("", "2 MIL", "AIR") + rest), k5Mils)
        << "one layer of it";
    EXPECT_EQ(layered(layer("SURFACE", "2 MIL", "AIR") + layer("X", "9 MIL") + rest), k3Mils);
    for (const char* material : {"air", "Air", "AIR ", " AIR", "AIR1", "AI", ""})
        EXPECT_EQ(layered(layer("SURFACE", "2 MIL", material) + rest), k3Mils) << material;
    EXPECT_EQ(layered(layer("SURFACE", "2", "AIR") + rest), k3Mils) << "no value";
    EXPECT_EQ(layered(rest + layer("SURFACE", "2 MIL", "AIR")), k3Mils);
    EXPECT_EQ(layered(layer("CONDUCTOR", "2 MIL", "AIR") + layer("CONDUCTOR", "3 MIL", "AIR")),
              k5Mils)
        << "no look back from the first row, nor from the second conductor";
}

TEST(CadenceLayers, DieStackRowsBeforeTheFirstConductorAreTheDie) {
    EXPECT_EQ(layered(layer("DIESTACK", "4 MIL") + layer("Diestack", "6 MIL") +
                      layer("CONDUCTOR", "5 MIL") + layer("CONDUCTOR", "5 MIL") +
                      layer("DIESTACK", "7 MIL")),
              heights("0.127", "0.254", "0.381", "0.254"));
    EXPECT_EQ(
        layered(layer("DIESTACK", "10 MIL") + layer("DIESTACKS", "3 MIL") + layer("DIESTACK", "9")),
        heights("0", "0", "0.127", "0.254"))
        << "without a conductor";
    EXPECT_EQ(layered(layer("CONDUCTOR", "1 MIL") + layer("DIESTACK", "4 MIL") +
                      layer("CONDUCTOR", "5 MIL")),
              k10Mils)
        << "behind it they are the substrate's";
    EXPECT_EQ(layered(layer("DIESTACK", "10 MIL", "AIR") + layer("CONDUCTOR", "10 MIL")),
              heights("0.254", "0.508", "0.635", "0.254"))
        << "of air, right before it, they are both";
}

TEST(CadenceLayers, OnlyTheNameInTheSecondReportMakesAnMcm) {
    const std::string rows = layer("DIESTACK", "4 MIL") + layer("CONDUCTOR", "10 MIL");
    const std::string first = symbols("a.mcm", kSubstrateRow + kDieRow);
    for (const char* design : {"a.MCM", "a.sip", "", "mcm", ".mc"})
        EXPECT_EQ(imported(first, layers(design, rows)), k10Mils) << design;
    for (const char* design : {".mcm", "a.mcm.old", "a.sip.mcm"})
        EXPECT_EQ(imported(first, layers(design, rows)),
                  heights("0.127", "0.254", "0.3048", "0.1016"))
            << design;
    EXPECT_EQ(imported(symbols("a.sip", ""), layers("a.mcm", rows),
                       stack("S!DIE!d!0!0!2!2!1!2!\nS!SPACER!s!0!0!2!2!1!2!\n")),
              "true\nd at 1 1 0.3048, 2 x 2 x 0.1016\ns at 1 1 1.754, 2 x 2 x 1\n");
    EXPECT_EQ(imported(first, kLayerHeader + "J!a.old!\nJ!b.mcm!\n" + rows), k10Mils)
        << "the first of its names";
}

TEST(CadenceLayers, ASipIsLiftedAndKeepsItsSizes) {
    EXPECT_EQ(imported(symbols("a.sip", kSubstrateRow),
                       layers("a.sip", layer("DIESTACK", "99 MIL") + layer("CONDUCTOR", "4 MIL") +
                                           layer("CONDUCTOR", "6 MIL")),
                       stack("S!SPACER!s!0!0!1!1!0!0.2!\nS!DIE!d!0!0!1!1!0.2!0.6!\n"
                             "S!INTERPOSER!i!0!0!1!1!0.6!0.6!\n")),
              "true\nSUBSTRATE at 2 1 0.127, 4 x 2 x 0.254\n"
              "s at 0.5 0.5 0.354, 1 x 1 x 0.2\n"
              "d at 0.5 0.5 0.654, 1 x 1 x 0.4\n"
              "i at 0.5 0.5 0.854, 1 x 1 x 0\n");
}

TEST(CadenceLayers, AThicknessIsTwoWordsAndTheFirstIsMils) {
    for (const char* cell :
         {"10 MIL", "10 mil", "10 MM", "10 x", " \t10\v\f MIL", "10 MIL of it all", "1e1 MIL",
          "1E1\tMIL", "10mm MIL", "+10. 10", "10 \rMIL"})
        EXPECT_EQ(layered(layer("CONDUCTOR", cell)), k10Mils) << cell;
    for (const char* cell :
         {"10", "10MIL", "10 ", " 10 ", "", " ", "\t", "x MIL", "MIL 10", "- 10"})
        EXPECT_EQ(layered(layer("CONDUCTOR", cell)), kNoHeight) << cell;
    EXPECT_EQ(layered(layer("CONDUCTOR", "1.5 MM")), heights("0.01905", "0.0381", "0.0381", "0"));
    EXPECT_EQ(layered(layer("CONDUCTOR", "-10 MIL")), heights("-0.127", "-0.254", "-0.254", "0"));
}

TEST(CadenceLayers, TheUnitOfTheReportsDoesNotMatter) {
    EXPECT_EQ(imported(symbols("a.mcm", kSubstrateRow, "INCH"),
                       layers("a.mcm", layer("CONDUCTOR", "10 MIL"))),
              "true\nSUBSTRATE at 50.8 25.4 0.127, 101.6 x 50.8 x 0.254\n");
}

TEST(CadenceLayers, ASecondConductorWithoutValueEndsAtTheNextValue) {
    const std::string start = layer("CONDUCTOR", "1 MIL") + layer("X", "2 MIL");
    EXPECT_EQ(
        layered(start + layer("CONDUCTOR", "50") + layer("X", "7 MIL") + layer("X", "90 MIL")),
        k10Mils);
    EXPECT_EQ(layered(start + layer("CONDUCTOR", "") + layer("X", "8") +
                      layer("CONDUCTOR", "7 MIL") + layer("CONDUCTOR", "90 MIL")),
              k10Mils);
    EXPECT_EQ(layered(start + layer("CONDUCTOR", "y MIL") + layer("X", "7 MIL")),
              heights("0.0381", "0.0762", "0.0762", "0"))
        << "two words are a value, be it 0";
    EXPECT_EQ(layered(layer("CONDUCTOR", "") + layer("X", "") + layer("CONDUCTOR", "10 MIL") +
                      layer("X", "90 MIL")),
              k10Mils)
        << "the first may have none";
}

TEST(CadenceLayers, RowsAreTakenInTheOrderOfTheFile) {
    EXPECT_EQ(
        layered("S!3!S!CONDUCTOR!X!4 MIL!\nS!2!S!CONDUCTOR!X!6 MIL!\nS!1!S!CONDUCTOR!X!9 MIL!\n"),
        k10Mils);
    EXPECT_EQ(imported(symbols("a.mcm", kSubstrateRow + kDieRow),
                       "A!LAYER_thickness!layer_material!X!Layer_Type!LAYER_SUBCLASS!layer_sort!\n"
                       "J!!\nS!10 MIL!AIR!!X!!!\nS!10 MIL!!!CONDUCTOR!!!\n"),
              k20Mils);
}

TEST(CadenceLayers, ASecondReportWithoutJobThrowsAndTheBodiesStay) {
    const std::string thrown = "throws invalid vector<T> subscript\n";
    const std::string first = symbols("a.mcm", kSubstrateRow + kDieRow);
    const std::string flat = kFlatSubstrate + kFlatDie;
    EXPECT_EQ(imported(first, kLayerHeader + layer("CONDUCTOR", "10 MIL")), thrown + flat);
    EXPECT_EQ(imported(first, kLayerHeader + "J!\n"), thrown + flat) << "one cell";
    EXPECT_EQ(imported(first, ""), thrown + flat) << "before the columns are looked for";
    EXPECT_EQ(imported(symbols("a.sip", ""), "", stack("S!DIE!d!0!0!2!2!1!2!\n")),
              thrown + "d at 1 1 1.5, 2 x 2 x 1\n");
    EXPECT_EQ(imported(symbols("a.sip", kSubstrateRow), ""), "false\n" + kFlatSubstrate)
        << "the die stack comes first";
    EXPECT_EQ(imported(first, kLayerHeader + "J!!\n"), "true\n" + flat) << "two cells do";
    EXPECT_EQ(imported(first, kLayerHeader + "J!\nJ!\n"), "true\n" + flat) << "two lines do";
}

}  // namespace
}  // namespace kvocaeio::test
