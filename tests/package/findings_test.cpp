/// What imports of packages and the passes over their files note, and where.
#include "package/findings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "package/cadence_reports.h"
#include "package/geometry_section.h"
#include "package/import_3di.h"
#include "package/import_cadence.h"
#include "package/length_units.h"
#include "package/lines.h"
#include "package/table_section.h"
#include "package/wire_sections.h"
#include "support/files.h"
#include "support/findings.h"

namespace kvocaeio::test {
namespace {

using package::InputFile;
using package::Model;
using testing::ElementsAre;
using testing::IsEmpty;

// What `pass` notes of a file of these bytes.
template <class Pass>
std::vector<std::string> notesOf(std::string_view bytes, const Pass& pass) {
    const TempFolder folder;
    const std::string path = folder.write("package.3di", bytes);
    text::Findings findings;
    InputFile file(path.c_str());
    EXPECT_TRUE(pass(file, text::Listener{&findings, nullptr}));
    EXPECT_EQ(file.stream, nullptr);
    return describe(findings);
}

std::vector<std::string> notesOfUnits(std::string_view bytes) {
    double unitScale = 1.0;
    return notesOf(bytes, [&](auto& file, const auto& listener) {
        return package::readUnits(file, listener, unitScale);
    });
}

std::vector<std::string> notesOfLayers(std::string_view bytes) {
    package::IdTable<std::string> layers;
    return notesOf(bytes, [&](auto& file, const auto& listener) {
        return package::readNameTable(file, listener, "LAYER", layers);
    });
}

// Object 1 is the symbol, 2 the ball; layer 1 is the outline, 2 the cap; there is a colour 1.
std::vector<std::string> notesOfGeometries(std::string_view bytes) {
    Model model;
    model.colorTable.resize(2);
    model.colorTable.set(1, 255);
    model.objectNames.resize(3);
    model.objectNames.set(1, "SYMBOL");
    model.objectNames.set(2, "BALL");
    model.layerNames.resize(3);
    model.layerNames.set(1, "OUTLINE");
    model.layerNames.set(2, "PACKAGE CAP");
    return notesOf(bytes, [&](auto& file, const auto& listener) {
        return package::readGeometries(file, listener, model, 1.0, model.components);
    });
}

std::vector<std::string> notesOfWires(std::string_view bytes) {
    package::WireTables wires;
    return notesOf(bytes, [&](auto& file, const auto& listener) {
        return package::readWires(file, listener, 1.0, wires);
    });
}

constexpr std::string_view kWireHead = "COLOR 1\nWIRE_MODEL 1\nWIRE 1 1\n3DPL 2\n";

TEST(PackageFindings, AreOddLinesOnceForAllPasses) {
    const std::string piece = "3DI" + std::string(1020, '-');
    const auto pass = [](auto& file, const auto& listener) {
        return package::noteLines(file, listener);
    };
    EXPECT_THAT(notesOf("\n" + piece + "\n3DI\nA\n", pass),
                ElementsAre("package.line-cut 2:0 3DI" + std::string(77, '-')));
    EXPECT_THAT(notesOf(std::string_view("A\n\0\n B\0C\n", 9), pass),
                ElementsAre("package.line-nul 2:0 ", "package.line-nul 3:0  B"));
    EXPECT_THAT(notesOf("A\nB\n\x1A\nC", pass), ElementsAre("file.end-mark 2:0 B"));
    EXPECT_THAT(notesOf("A\n\x1A\r\n \x1A\n", pass), IsEmpty()) << "nothing is lost";
}

TEST(PackageFindings, AreUnitsThatAreNoneOrStandInOtherWords) {
    EXPECT_THAT(notesOfUnits("\n 3DI parsec\n3DI CM\n"),
                ElementsAre("package.unit-unknown 2:0  3DI parsec"));
    EXPECT_THAT(notesOfUnits("MM\n"), ElementsAre("package.unit-missing 0:0 "));
    EXPECT_THAT(notesOfUnits("3DI parsec\n3di mm\n3DI\n"), IsEmpty());
    EXPECT_THAT(notesOfUnits("\n3DI COMMENT MICRONS\n"),
                ElementsAre("package.unit-in-word 2:5 COMMENT"));
    for (const char* sound : {"3DI (MICRONS)", "3DI inches", "3DI COMMENT 5MM.", "3DI NANOMETERS"})
        EXPECT_THAT(notesOfUnits(sound), IsEmpty()) << sound;
}

TEST(PackageFindings, AreRowsThatNoTableHasAndTheLineThatATableIsLeftAt) {
    EXPECT_THAT(
        notesOfLayers("TABLE LAYER\nnote\n2\n-1 A\n1 TOP\n  16777216 B\n# end\n\n2 C\n"),
        ElementsAre("package.row-skipped 2:0 note", "package.row-incomplete 3:0 2",
                    "package.id-out-of-range 4:1 -1", "package.id-out-of-range 6:3 16777216",
                    "package.table-left 7:0 # end"));
    EXPECT_THAT(notesOfLayers("TABLE LAYER\n1 TOP\n\nGEOM\n4 4 4\n"), IsEmpty());
    EXPECT_THAT(notesOfLayers("TABLE LAYER\n1 TOP\n\nGEOM\nTABLE COLOR\nTABLE LAYER\n"),
                ElementsAre("package.table-left 3:0 "));
    EXPECT_THAT(notesOfLayers("TABLE LAYER\n1 TOP\n5\n"), ElementsAre("package.table-left 3:0 5"));
}

TEST(PackageFindings, AreTablesThatAreEndedOrReplacedAndEntriesThatAreReplacedOrCut) {
    EXPECT_THAT(
        notesOfLayers("TABLE LAYER\n1 A B C D E  F G\n 1 X\nTABLE LAYER\n2 Y\n"
                      "TABLE LAYER\n1 UNSTABLE\nPRETABLE L\n"),
        ElementsAre("package.words-dropped 2:14 F", "package.id-repeated 3:2 1",
                    "package.table-not-opened 4:0 TABLE LAYER",
                    "package.table-replaced 6:0 TABLE LAYER", "package.table-ended 7:0 1 UNSTABLE",
                    "package.word-in-line (TABLE) 8:0 PRETABLE L"));
    EXPECT_THAT(notesOfLayers("TABLE COLOR\n1 2 3 4 5\n"),
                ElementsAre("package.table-missing (LAYER) 0:0 "));
}

TEST(PackageFindings, OfAllTablesArePassesOfOne) {
    package::IdTable<unsigned> colors;
    EXPECT_THAT(
        notesOf("TABLE PLATE\nTABLE OBJECT\nTABLE COLOR\n1 256 0 0 0\n2 0 -1 0 0\nTABLE X\n",
                [&](auto& file, const auto& listener) {
                    return package::readColorTable(file, listener, colors);
                }),
        ElementsAre("package.table-unknown (PLATE) 1:0 TABLE PLATE",
                    "package.color-value 4:0 1 256 0 0 0", "package.color-value 5:0 2 0 -1 0 0",
                    "package.table-unknown (X) 6:0 TABLE X"));
}

TEST(PackageFindings, AreFieldsAndRowsOfABlock) {
    EXPECT_THAT(
        notesOfGeometries("GEOM\nNAME\nLAYER 1\nCOLOR red\nCOLOR 1\nEXTR 0 1\nEXTR 0 0 1D1\n"
                          "BARL 1\n2DPG\n2DPG 2\ntext\n1 1 2\n0 0 1 1 x\n####\n"),
        ElementsAre("package.head-field 2:0 NAME", "package.head-field 4:0 COLOR red",
                    "package.head-field 6:0 EXTR 0 1", "package.head-field 8:0 BARL 1",
                    "package.head-field 9:0 2DPG", "package.number-torn 7:11 D1",
                    "package.number-torn 13:9 x", "package.point-text 11:0 text",
                    "package.point-row 12:0 1 1 2"));
    EXPECT_THAT(
        notesOfGeometries("GEOM\nOBJECT 1\nLAYER NAME_A\nNAME B C\nCOLOR 1\n COLOR 1\nMADE OF\n"
                          "EXTR 0 0 1\n2DPG 1\n1 1\n\nGEOM\nWIRE_MODEL 1\nanything\n####\n"),
        ElementsAre("package.word-in-line (NAME) 3:0 LAYER NAME_A",
                    "package.head-repeated 4:0 NAME B C", "package.head-repeated 6:0  COLOR 1",
                    "package.words-dropped 4:8 C", "package.line-unknown (MADE) 7:0 MADE OF"));
}

TEST(PackageFindings, AreBlocksThatAreLost) {
    EXPECT_THAT(
        notesOfGeometries("GEOM\nNAME A\nLAYER 1\n2DPG 2\n0 0 1 1 2 2\n3 3\nGEOM\nLAYER 1\n"),
        ElementsAre("package.polygon-dropped 1:0 A", "package.cut-short 8:0 LAYER 1"));
    EXPECT_THAT(notesOfGeometries("GEOM\nLAYER 1\nCOLOR 1\n2DPG 2\n0 0\n"),
                ElementsAre("package.cut-short 5:0 0 0"));
    EXPECT_THAT(
        notesOfGeometries("GEOM\nOBJECT 5\nLAYER 5\n2DPG 2\n0 0\nGEOM\nOBJECT 1\n2DPG 2\n"),
        ElementsAre("package.block-of-no-kind ((unknown)) 1:0 ", "package.cut-short 8:0 2DPG 2"));
}

TEST(PackageFindings, AreBodiesThatEndTheImport) {
    Model model;
    model.objectNames.resize(2);
    model.objectNames.set(1, "SYMBOL");
    model.layerNames.resize(2);
    model.layerNames.set(1, "OUTLINE");
    const auto notes = [&](std::string_view bytes) {
        return notesOf(bytes, [&](auto& file, const auto& listener) {
            EXPECT_THROW(package::readGeometries(file, listener, model, 1.0, model.components),
                         std::out_of_range);
            file.close();
            return true;
        });
    };
    EXPECT_THAT(notes("-\nGEOM\nOBJECT 1\nLAYER 3\nCOLOR 1\n####\n"),
                ElementsAre("package.name-unknown 2:0 layer 3"));
    EXPECT_THAT(notes("-\nGEOM\nNAME A\nOBJECT 1\n####\n"),
                ElementsAre("package.color-unknown 2:0 colour -1"));
}

TEST(PackageFindings, AreWiresThatAreLost) {
    const std::string head(kWireHead);
    EXPECT_THAT(notesOfWires(head + "note\n0 0 0\n\n" + head + "0 0 0 1 1 1\n"),
                ElementsAre("package.point-text 5:0 note", "package.wire-points 7:0 ",
                            "package.wire-unfinished 12:0 0 0 0 1 1 1"));
    EXPECT_THAT(notesOfWires(head + "0 0 0 1 1 1\n-\n"),
                ElementsAre("package.wire-unfinished 6:0 -"));
    EXPECT_THAT(notesOfWires(head), ElementsAre("package.cut-short 4:0 3DPL 2"));
    EXPECT_THAT(notesOfWires("COLOR 1\nWIRE_MODEL 1\nWIRE 1 1\n"),
                ElementsAre("package.cut-short 3:0 WIRE 1 1"));
    EXPECT_THAT(notesOfWires("COLOR 1\nWIRE_MODEL 1\n"), IsEmpty());
    EXPECT_THAT(
        notesOfWires("COLOR 1\nWIRE_MODELS\nCOLOR 1\nWIRE_MODEL x\nCOLOR 1\nWIRE_MODEL 1\n"
                     "WIRE x\n"),
        ElementsAre("package.wire-model 4:0 WIRE_MODEL x", "package.wire-diameter 7:0 WIRE x"));
    EXPECT_THAT(notesOfWires("COLOR 1\nWIRE_MODEL 1\nWIRE 1 1\n\n3DPL 2\n"),
                ElementsAre("package.wire-polyline 4:0 "));
}

TEST(PackageFindings, AreWiresThatOthersTakeThePlaceOf) {
    const std::string head(kWireHead);
    const std::string wire = head + "0 0 0 1 1 1\n";
    EXPECT_THAT(
        notesOfWires(wire + "2 2 2 nan\nCOLOR 1\nWIRE_MODEL 1\nWIRE 1 1\n3DPL 1\n-\n"),
        ElementsAre("package.points-left 6:0 2 2 2 nan", "package.wire-color-used 7:0 COLOR 1"));
    EXPECT_THAT(
        notesOfWires("3DPL 1\n" + wire + "-\n-\nCOLOR 2\n3DPL 1\n" + wire + "-\n-\n3DPL 5\n"),
        ElementsAre("package.polyline-lost 2:0 COLOR 1", "package.polyline-lost 12:0 WIRE_MODEL 1",
                    "package.polyline-lost 19:0 "));
    EXPECT_THAT(notesOfWires(head + "0 0 0\n####\nGEOM\nCOLOR 1\nWIRE_MODEL 1\n1 1 1\n-\n-\n"),
                ElementsAre("package.points-missing 6:0 ####"));
}

TEST(PackageFindings, AreModelsOutOfOrder) {
    package::ChunkedList<std::string> names;
    EXPECT_THAT(notesOf("WIRE_MODELS\nWIRE_MODEL 3\nA 1 1 X\nWIRE_MODEL 2\nB 1 1\nWIRE_MODEL\n"
                        "C 1 1 X\nCOLOR 1\nWIRE_MODEL 2\nWIRE 1 1\nWIRE_MODEL 2\nWIRE 1 1 X\n",
                        [&](auto& file, const auto& listener) {
                            return package::readWireModels(file, listener, names);
                        }),
                ElementsAre("package.model-number 2:0 3", "package.model-incomplete 5:0 B 1 1",
                            "package.model-incomplete 7:0 C 1 1 X",
                            "package.model-of-wire 12:0 WIRE 1 1 X"));
    EXPECT_EQ(names.size(), 2U);
}

TEST(PackageFindings, OfAnImportAreThoseOfItsPassesOnce) {
    Model model;
    const auto import = [&](auto& file, const auto& listener) {
        return package::import3di(file, model, listener);
    };
    EXPECT_THAT(notesOf("3DI\nTABLE OBJECT\n1 SYMBOL\n-1 A\nTABLE LAYER\n1 OUTLINE\nTABLE END\n"
                        "GEOM\nOBJECT 5\nLAYER 5\nNAME\n####\nCOLOR 1\nWIRE_MODEL 1\nWIRE x\n",
                        import),
                ElementsAre("package.unit-unknown 1:0 3DI", "package.table-missing (COLOR) 0:0 ",
                            "package.id-out-of-range 4:1 -1", "package.head-field 11:0 NAME",
                            "package.block-of-no-kind ((unknown)) 8:0 ",
                            "package.wire-diameter 15:0 WIRE x"));
}

// Imports of three reports: the first two as they are given, the third if there is one.
class ReportFindings : public testing::Test {
  protected:
    ReportFindings() {
        for (std::size_t r = 0; r < 3; ++r)
            model_.paths.commandFiles[r] = folder_.file("report" + std::to_string(r));
    }
    std::vector<std::string> notes(const std::string& symbolReport, const std::string& layerReport,
                                   bool imported) {
        folder_.write("report0", symbolReport);
        folder_.write("report1", layerReport);
        text::Findings findings;
        InputFile design("unused");
        EXPECT_EQ(package::importCadence(design, model_, {&findings, nullptr}), imported);
        return describe(findings);
    }

    TempFolder folder_;
    Model model_;
};

const std::string kBodyRows = kSubstrateRow + kDieRow;
const std::string kSoundLayers =
    layer("DIESTACK", "1 MIL") + layer("CONDUCTOR", "1 MIL") + layer("CONDUCTOR", "1 MIL");

TEST_F(ReportFindings, AreTheLineThatEndsOneAndTheUnitThatIsTaken) {
    const std::string lay = layers("a.mcm", kSoundLayers);
    EXPECT_THAT(notes(symbols("a.mcm", kBodyRows), lay, true), IsEmpty());
    EXPECT_THAT(notes(symbols("a.mcm", kBodyRows, "mils"), lay, true),
                ElementsAre("package.report-unit 2:21 mils"));
    EXPECT_THAT(notes(symbols("a.mcm", "\ntext\nQX!1!\nS!\n"), lay, false),
                ElementsAre("package.report-line 4:0 text", "package.report-tag 5:1 QX"));
    EXPECT_THAT(notes(symbols("a.mcm", ""), layers("a.mcm", "S!1!\n"), false),
                ElementsAre("package.report-row 3:0 S!1!"));
}

TEST_F(ReportFindings, StandAtTheCellsOfTheirRows) {
    EXPECT_THAT(notes(symbols("a.mcm", "\nS!DIE2!A!0!0!2!1!LINE!7!7!9!9!\n" + kSubstrateRow +
                                           "note\nS!DIE!Chip!0!x!2!1D0!LINE!7!7!9!9!rest\n"),
                      layers("a.mcm", layer("DIESTACK", "1") + layer("CONDUCTOR", "1 CM") +
                                          layer("CONDUCTOR", "1 MIL") + layer("PLANE", "1 MIL") +
                                          layer("conductor", "")),
                      true),
                ElementsAre("package.report-line 6:0 note", "package.report-rest 7:35 rest",
                            "package.refdes-longer (DIE2) 4:3 DIE2",
                            "package.cell-not-number 7:14 x", "package.cell-not-number 7:18 1D0",
                            "package.thickness 3:20 1", "package.thickness-unit (CM) 4:21 1 CM",
                            "package.layers-left-out 7:5 SUB", "package.die-without-height 1:0 "));
}

TEST_F(ReportFindings, AreOfTheDieStackOnlyWhereItIsRead) {
    const std::string stacked = layers("a.sip", kSoundLayers);
    EXPECT_THAT(notes(symbols("a.brd", ""), stacked, true),
                ElementsAre("package.design-without-bodies 2:3 a.brd"));
    const std::vector<std::string> found = notes(symbols("a.sip", kBodyRows), stacked, false);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_THAT(found[0], testing::StartsWith("file.cannot-open 0:0 "));
    EXPECT_EQ(found[1], "package.header-missing 0:0 ");
}

TEST_F(ReportFindings, SayThatNoPathOfTheToolsFormIsGiven) {
    model_.paths.exe = "tool";
    text::Findings findings;
    InputFile design(L"wide.mcm");
    EXPECT_FALSE(package::importCadence(design, model_, {&findings, nullptr}));
    EXPECT_THAT(describe(findings),
                ElementsAre("file.cannot-open 0:0 no path of a design is given"));
}

}  // namespace
}  // namespace kvocaeio::test
