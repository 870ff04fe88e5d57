/// Kinds of design, substrate and die from the symbol report, members of the die stack.
#include <gtest/gtest.h>
#include <utility>

#include "package/cadence_reports.h"

namespace kvocaeio::test {
namespace {

/// The bodies of an .mcm design with these symbol rows.
std::string mcm(const std::string& rows, const std::string& unit = "MM") {
    return imported(symbols("a.mcm", rows, unit), layers("a.mcm"));
}

/// The bodies of a .sip design without substrate and with these rows of its die stack.
std::string sip(const std::string& rows, const std::string& unit = "MM") {
    return imported(symbols("a.sip", "", unit), layers("a.sip"), stack(rows));
}

const std::string kGapRow = "S!SPACER!Gap!0!0!1!1!0!2!\n";
const std::string kFlatGap = "Gap at 0.5 0.5 1, 1 x 1 x 2\n";

/// A row of the die stack report.
std::string member(const std::string& type, const std::string& name = "M",
                   const std::string& extents = "0!0!1!1", const std::string& heights = "0!2") {
    return "S!" + type + "!" + name + "!" + extents + "!" + heights + "!\n";
}

/// A first row of the symbol report that is a substrate or die by its REFDES and graphic.
std::string symbol(const std::string& refdes, const std::string& graphic = "RECTANGLE") {
    return "S!" + refdes + "!Chip!0!0!2!1!" + graphic + "!0!0!4!2!\n";
}

TEST(CadenceDesign, TheKindIsInTheNameInTheReport) {
    const std::string substrate = "true\n" + kFlatSubstrate;
    const std::pair<const char*, std::string> designs[] = {
        {"a.mcm", substrate + kFlatDie},
        {"a.sip", substrate + kFlatGap},
        {"a.brd", "true\n"},
        {".mcm", substrate + kFlatDie},
        {".sip", substrate + kFlatGap},
        {".brd", "true\n"},
        {"C:/cad.mcm/a.old", substrate + kFlatDie},
        {"a.sips", substrate + kFlatGap},
        {"x.brd.brd", "true\n"},
        {"a.brd.sip", substrate + kFlatGap},
        {"a.brd.mcm", substrate + kFlatDie},
        {"a.MCM", "false\n"},
        {"a.Sip", "false\n"},
        {"a.BRD", "false\n"},
        {"a.cad", "false\n"},
        {"mcm", "false\n"},
        {"a.mc", "false\n"},
        {".m", "false\n"},
        {" ", "false\n"},
        {"", "false\n"},
        {". mcm", "false\n"},
    };
    for (const auto& [design, bodies] : designs)
        EXPECT_EQ(imported(symbols(design, kSubstrateRow + kDieRow), layers(""), stack(kGapRow)),
                  bodies)
            << design;
}

TEST(CadenceDesign, AnMcmThatSaysSipSomewhereHasNoDieOfItsSymbols) {
    for (const char* design : {"a.sip.mcm", "a.mcm.sip"})
        EXPECT_EQ(imported(symbols(design, kSubstrateRow + kDieRow), layers(""), stack(kGapRow)),
                  "true\n" + kFlatSubstrate)
            << "the stages are those of an .mcm";
}

TEST(CadenceDesign, ABrdAsksForNoColumns) {
    EXPECT_EQ(imported(job("a.brd"), ""), "true\n");
    EXPECT_EQ(imported(symbols("a.brd", kSubstrateRow), layers("a.brd"), stack(kGapRow)), "true\n");
}

TEST(CadenceDesign, EachColumnOfTheSymbolsIsAskedFor) {
    for (const char* column : {"!REFDES", "!SYM_NAME", "!SYM_BOX_X1", "!SYM_BOX_Y1", "!SYM_BOX_X2",
                               "!SYM_BOX_Y2", "!GRAPHIC_DATA_NAME", "!GRAPHIC_DATA_1",
                               "!GRAPHIC_DATA_2", "!GRAPHIC_DATA_3", "!GRAPHIC_DATA_4"}) {
        const std::string report = changed(symbols("a.mcm", kSubstrateRow), column, "!OTHER");
        EXPECT_EQ(imported(report, layers("a.mcm")), "false\n") << column;
    }
    EXPECT_EQ(imported(job("a.mcm"), layers("a.mcm")), "false\n");
}

TEST(CadenceDesign, EachColumnOfTheLayersIsAskedForAndTheBodiesStay) {
    for (const char* column :
         {"!LAYER_SORT", "!LAYER_SUBCLASS", "!LAYER_TYPE", "!LAYER_MATERIAL", "!LAYER_THICKNESS"}) {
        const std::string report =
            changed(layers("a.mcm", layer("CONDUCTOR", "5 MIL")), column, "!OTHER");
        EXPECT_EQ(imported(symbols("a.mcm", kSubstrateRow + kDieRow), report),
                  "false\n" + kFlatSubstrate + kFlatDie)
            << column;
    }
}

TEST(CadenceDesign, EachColumnOfTheDieStackIsAskedForAndNoLayerIsReadWithout) {
    const std::string first = symbols("a.sip", kSubstrateRow);
    const std::string second = layers("a.sip", layer("CONDUCTOR", "10 MIL"));
    for (const char* column :
         {"!DSA_MEMBER_TYPE", "!DSA_MEMBER_NAME", "!DSA_EXTENTS_X1", "!DSA_EXTENTS_Y1",
          "!DSA_EXTENTS_X2", "!DSA_EXTENTS_Y2", "!DSA_STACK_HEIGHT_MIN", "!DSA_STACK_HEIGHT_MAX"})
        EXPECT_EQ(imported(first, second, changed(stack(kGapRow), column, "!OTHER")),
                  "false\n" + kFlatSubstrate)
            << column;
    EXPECT_EQ(imported(first, second), "false\n" + kFlatSubstrate) << "no third report";
    EXPECT_EQ(imported(first, second, stack("")), "true\nSUBSTRATE at 2 1 0.127, 4 x 2 x 0.254\n");
}

TEST(CadenceSymbols, WithoutRowsTheNextStageRuns) {
    EXPECT_EQ(mcm(""), "true\n");
    EXPECT_EQ(imported(symbols("a.mcm", ""), "J!a.mcm!\n"), "false\n") << "no layer columns";
    EXPECT_EQ(imported(symbols("a.sip", ""), layers("a.sip"), stack(kGapRow)), "true\n" + kFlatGap);
}

TEST(CadenceSymbols, TheTypeIsTheWholeReferenceInAnyCase) {
    for (const char* name : {"BGA", "PBGA", "bga", "pbga", "Pbga", "bGa"})
        EXPECT_EQ(mcm(symbol(name)), "true\n" + kFlatSubstrate) << name;
    for (const char* name : {"DIE", "die", "Die", "dIE"})
        EXPECT_EQ(mcm(symbol(name)), "true\n" + kFlatDie) << name;
    for (const char* name : {"DIE1", "BGA2", "PBGA ", "XBGA", "FBGA", "DI", "BG", "PBG", "", "U1",
                             "1DIE", "DIE BGA", "SUBSTRATE", "INTERPOSER", "SPACER"})
        EXPECT_EQ(mcm(symbol(name)), "true\n") << name;
}

TEST(CadenceSymbols, ASubstrateIsARectangleAndADieAnything) {
    for (const char* graphic : {"RECTANGLE", "rectangle", "Rectangle"})
        EXPECT_EQ(mcm(symbol("BGA", graphic)), "true\n" + kFlatSubstrate) << graphic;
    for (const char* graphic : {"LINE", "", "RECTANGLE1", " RECTANGLE", "RECTANGL", "SQUARE"}) {
        EXPECT_EQ(mcm(symbol("BGA", graphic)), "true\n") << graphic;
        EXPECT_EQ(mcm(symbol("PBGA", graphic)), "true\n") << graphic;
        EXPECT_EQ(mcm(symbol("DIE", graphic)), "true\n" + kFlatDie) << graphic;
    }
}

TEST(CadenceSymbols, TheFirstRowOfATypeWins) {
    const std::string other = "S!BGA!Other!0!0!8!8!RECTANGLE!0!0!8!8!\n";
    const std::string otherDie = "S!die!Other!0!0!8!8!RECTANGLE!0!0!8!8!\n";
    EXPECT_EQ(mcm(kSubstrateRow + other), "true\n" + kFlatSubstrate);
    EXPECT_EQ(mcm(kSubstrateRow + changed(other, "BGA", "PBGA")), "true\n" + kFlatSubstrate);
    EXPECT_EQ(mcm(changed(kSubstrateRow, "BGA", "PBGA") + other), "true\n" + kFlatSubstrate);
    EXPECT_EQ(mcm(changed(other, "RECTANGLE", "LINE") + kSubstrateRow), "true\n" + kFlatSubstrate);
    EXPECT_EQ(mcm(kDieRow + kSubstrateRow + otherDie + other + otherDie),
              "true\n" + kFlatDie + kFlatSubstrate)
        << "in the order of the first rows";
}

TEST(CadenceSymbols, ASipTakesItsDiesFromTheStackAlone) {
    EXPECT_EQ(imported(symbols("a.sip", kDieRow + kSubstrateRow), layers("a.sip"),
                       stack(member("DIE", "Stacked"))),
              "true\n" + kFlatSubstrate + "Stacked at 0.5 0.5 1, 1 x 1 x 2\n");
}

TEST(CadenceSymbols, ADieIsNamedByItsSymbolAndASubstrateIsNot) {
    EXPECT_EQ(mcm("S!DIE!miXed Case_1!0!0!2!1!!!!!!\nS!BGA!miXed!0!0!0!0!RECTANGLE!0!0!4!2!\n"),
              "true\nmiXed Case_1 at 1 0.5 0, 2 x 1 x 0\n" + kFlatSubstrate);
}

TEST(CadenceSymbols, ADieHasTheSymbolsBoxAndASubstrateTheRectangle) {
    const std::string numbers = "!N!1!2!4!8!RECTANGLE!10!20!40!80!\n";
    EXPECT_EQ(mcm("S!BGA" + numbers + "S!DIE" + numbers),
              "true\nSUBSTRATE at 25 50 0, 30 x 60 x 0\nN at 2.5 5 0, 3 x 6 x 0\n");
    EXPECT_EQ(mcm("S!BGA" + numbers + "S!DIE" + numbers, "INCH"),
              "true\nSUBSTRATE at 635 1270 0, 762 x 1524 x 0\n"
              "N at 63.5 127 0, 76.2 x 152.4 x 0\n");
    EXPECT_EQ(mcm("S!DIE!N!0!0!1!2!!!!!!\n", "inches"),
              "true\nN at 12.7 25.4 0, 25.4 x 50.8 x 0\n");
}

TEST(CadenceSymbols, ExchangedEndsGiveNegativeSizes) {
    EXPECT_EQ(mcm("S!DIE!N!4!1!1!-1!!!!!!\n"), "true\nN at 2.5 0 0, -3 x -2 x 0\n");
}

TEST(CadenceSymbols, NumbersAreReadAsFarAsTheyGo) {
    EXPECT_EQ(mcm("S!DIE!N!abc!!2mm! 1.5e1 x!!!!!!\n"), "true\nN at 1 7.5 0, 2 x 15 x 0\n");
    EXPECT_EQ(mcm("S!DIE!N!-.5!+1!.5!3,9!!!!!!\n"), "true\nN at 0 2 0, 1 x 2 x 0\n");
}

TEST(CadenceSymbols, BodiesHaveNoColourAndAreNoBalls) {
    ReportFolder reports;
    ASSERT_EQ(reports.import(symbols("a.mcm", kDieRow), layers("a.mcm")), "true\n" + kFlatDie);
    char name[8] = {};
    int isBall = -1;
    double center[3] = {9, 9, 9}, size[5] = {9, 9, 9, 9, 9};
    unsigned color = 9;
    ASSERT_TRUE(reports.reader.GetComponentData(0, name, isBall, center, size, color));
    EXPECT_EQ(isBall, 0);
    EXPECT_EQ(color, 0U);
    EXPECT_EQ(size[3], 0.0);
    EXPECT_EQ(size[4], 0.0);
    EXPECT_FALSE(reports.reader.GetComponentData(1, name, isBall, center, size, color));
    EXPECT_FALSE(reports.reader.GetComponentData(-1, name, isBall, center, size, color));
}

TEST(CadenceStack, TheTypeIsTheWholeCellInAnyCase) {
    for (const char* type : {"DIE", "INTERPOSER", "SPACER", "die", "Interposer", "sPACER"})
        EXPECT_EQ(sip(member(type)), "true\nM at 0.5 0.5 1, 1 x 1 x 2\n") << type;
    for (const char* type : {"DIE ATTACH", "SPACER1", " DIE", "DI", "", "BGA", "BUMP", "INTERPOSE"})
        EXPECT_EQ(sip(member(type)), "true\n") << type;
}

TEST(CadenceStack, EveryRowIsABodyInTheOrderOfTheReport) {
    EXPECT_EQ(imported(symbols("a.sip", kSubstrateRow), layers("a.sip"),
                       stack(member("SPACER", "b") + member("DIE", "a") + member("GLUE", "c") +
                             member("DIE", "a") + member("INTERPOSER", "") + member("DIE", "a"))),
              "true\n" + kFlatSubstrate +
                  "b at 0.5 0.5 1, 1 x 1 x 2\n"
                  "a at 0.5 0.5 1, 1 x 1 x 2\n"
                  "a at 0.5 0.5 1, 1 x 1 x 2\n"
                  " at 0.5 0.5 1, 1 x 1 x 2\n"
                  "a at 0.5 0.5 1, 1 x 1 x 2\n");
}

TEST(CadenceStack, TheBoxIsInTheReportsUnit) {
    EXPECT_EQ(sip(member("DIE", "M", "1!2!4!8", "16!32")), "true\nM at 2.5 5 24, 3 x 6 x 16\n");
    EXPECT_EQ(sip(member("DIE", "M", "1!2!4!8", "16!32"), "um"),
              "true\nM at 0.0025 0.005 0.024, 0.003 x 0.006 x 0.016\n");
    EXPECT_EQ(sip(member("SPACER", "M", "0!0!0!0", "0.1!0.3")), "true\nM at 0 0 0.2, 0 x 0 x 0.2\n")
        << "a body without extent is kept";
    EXPECT_EQ(sip(member("SPACER", "M", "4!8!1!2", "32!16")),
              "true\nM at 2.5 5 24, -3 x -6 x -16\n");
    EXPECT_EQ(sip(member("SPACER", "M", "x!!2!1z", "-!4")), "true\nM at 1 0.5 2, 2 x 1 x 4\n");
}

TEST(CadenceStack, ColumnsStandInAnyOrderAndCase) {
    EXPECT_EQ(imported(symbols("a.sip", ""), layers(""),
                       "A!dsa_stack_height_max!DSA_STACK_HEIGHT_MIN!X!Dsa_Extents_Y2!"
                       "DSA_EXTENTS_X2!DSA_EXTENTS_Y1!DSA_EXTENTS_X1!DSA_MEMBER_NAME!"
                       "DSA_MEMBER_TYPE!\nS!32!16!9!8!4!2!1!M!SPACER!\n"),
              "true\nM at 2.5 5 24, 3 x 6 x 16\n");
}

}  // namespace
}  // namespace kvocaeio::test
