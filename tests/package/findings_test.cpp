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
#include "package/table_section.h"
#include "package/wire_sections.h"
#include "support/files.h"

namespace kvocaeio::test {
namespace {

using package::InputFile;
using package::Model;
using testing::ElementsAre;
using testing::IsEmpty;

// Each finding as "code line:column text", kind by kind.
std::vector<std::string> textsOf(const text::Findings& findings) {
    std::vector<std::string> out;
    for (std::size_t kind = 0; kind < findings.kinds().size(); ++kind)
        for (const text::FindingPlace& place : findings.places(kind))
            out.push_back(std::string(findings.kinds()[kind].code) + " " +
                          std::to_string(place.line) + ":" + std::to_string(place.column) + " " +
                          std::string(place.text()));
    return out;
}

// What `pass` notes of a file of these bytes.
template <class Pass>
std::vector<std::string> notesOf(std::string_view bytes, const Pass& pass) {
    const TempFolder folder;
    const std::string path = folder.write("package.3di", bytes);
    text::Findings findings(package::kFindingKinds);
    InputFile file(path.c_str());
    EXPECT_TRUE(pass(file, text::Listener{&findings, nullptr}));
    EXPECT_EQ(file.stream, nullptr);
    return textsOf(findings);
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

// Object 1 is the symbol, layer 1 the outline; colours run from 0 to 3.
std::vector<std::string> notesOfGeometries(std::string_view bytes) {
    Model model;
    model.colorTable.resize(4);
    model.objectNames.resize(2);
    model.objectNames.set(1, "SYMBOL");
    model.layerNames.resize(2);
    model.layerNames.set(1, "OUTLINE");
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

TEST(PackageFindings, AreHeadersWithoutUnitAndLongLines) {
    const std::string piece = "3DI" + std::string(1020, '-');
    EXPECT_THAT(notesOfUnits("\n" + piece + "\n3DI parsec\n3di mm\n3DI\n"),
                ElementsAre("package.line-cut 2:0 3DI" + std::string(77, '-'),
                            "package.unit-missing 2:0 3DI" + std::string(77, '-'),
                            "package.unit-missing 3:0 3DI parsec"));
}

TEST(PackageFindings, AreRowsThatNoTableHasAndTheLineThatATableIsLeftAt) {
    EXPECT_THAT(
        notesOfLayers("TABLE LAYER\nnote\n-1 A\n1 TOP\n  16777216 B\n# end\n2 C\n"),
        ElementsAre("package.table-left 6:0 # end",  //
                    "package.id-out-of-range 3:1 -1", "package.id-out-of-range 5:3 16777216"));
}

TEST(PackageFindings, AreFieldsAndRowsOfABlock) {
    EXPECT_THAT(notesOfGeometries("GEOM\nNAME\nLAYER 1\nCOLOR red\nCOLOR 1\nEXTR 0 1\nBARL 1\n"
                                  "2DPG\n2DPG 2\ntext\n1 1 2\n0 0 1 1\n####\n"),
                ElementsAre("package.head-field 2:0 NAME", "package.head-field 4:0 COLOR red",
                            "package.head-field 6:0 EXTR 0 1", "package.head-field 7:0 BARL 1",
                            "package.head-field 8:0 2DPG", "package.point-row 10:0 text",
                            "package.point-row 11:0 1 1 2"));
}

TEST(PackageFindings, AreBlocksThatAreLost) {
    EXPECT_THAT(notesOfGeometries("GEOM\nLAYER 1\n2DPG 2\n0 0 1 1 2 2\n3 3\nGEOM\nLAYER 1\n"),
                ElementsAre("package.point-count 5:0 3 3", "package.cut-short 7:0 LAYER 1"));
    EXPECT_THAT(notesOfGeometries("GEOM\nLAYER 1\nCOLOR 1\n2DPG 2\n0 0\n"),
                ElementsAre("package.cut-short 5:0 0 0"));
    EXPECT_THAT(notesOfGeometries("GEOM\nOBJECT 5\nLAYER 5\n2DPG 2\n0 0\n"), IsEmpty())
        << "it is not wanted";
}

TEST(PackageFindings, AreWiresThatAreLost) {
    const std::string head(kWireHead);
    EXPECT_THAT(notesOfWires(head + "note\n0 0 0\n\n" + head + "0 0 0 1 1 1\n"),
                ElementsAre("package.point-row 5:0 note", "package.point-count 7:0 ",
                            "package.cut-short 12:0 0 0 0 1 1 1"));
    EXPECT_THAT(notesOfWires(head + "0 0 0 1 1 1\n-\n"), ElementsAre("package.cut-short 6:0 -"));
    EXPECT_THAT(notesOfWires(head), ElementsAre("package.cut-short 4:0 3DPL 2"));
    EXPECT_THAT(notesOfWires("COLOR 1\nWIRE_MODEL 1\nWIRE 1 1\n"),
                ElementsAre("package.cut-short 3:0 WIRE 1 1"));
    EXPECT_THAT(notesOfWires("COLOR 1\nWIRE_MODEL 1\n"), IsEmpty());
    EXPECT_THAT(
        notesOfWires("COLOR 1\nWIRE_MODELS\nCOLOR 1\nWIRE_MODEL 1\nWIRE x\n"),
        ElementsAre("package.wire-model 2:0 WIRE_MODELS", "package.wire-diameter 5:0 WIRE x"));
    EXPECT_THAT(notesOfWires("COLOR 1\nWIRE_MODEL 1\nWIRE 1 1\n\n3DPL 2\n"),
                ElementsAre("package.wire-polyline 4:0 "));
}

TEST(PackageFindings, OfAnImportAreThoseOfItsPassesOnce) {
    Model model;
    const auto import = [&](auto& file, const auto& listener) {
        return package::import3di(file, model, listener);
    };
    EXPECT_THAT(notesOf("3DI\nTABLE OBJECT\n1 SYMBOL\n-1 A\nTABLE LAYER\n1 OUTLINE\nTABLE END\n"
                        "GEOM\nOBJECT 5\nLAYER 5\nNAME\n####\nCOLOR 1\nWIRE_MODEL 1\nWIRE x\n",
                        import),
                ElementsAre("package.unit-missing 1:0 3DI", "package.id-out-of-range 4:1 -1",
                            "package.head-field 11:0 NAME", "package.wire-diameter 15:0 WIRE x"));
}

TEST(PackageFindings, OfReportsAreTheLineThatEndsOneAndTheUnitThatIsTaken) {
    const TempFolder folder;
    Model model;
    for (std::size_t r = 0; r < 3; ++r)
        model.paths.commandFiles[r] = folder.file("report" + std::to_string(r));
    const auto notes = [&](const std::string& symbolRows, const std::string& layerRows,
                           const std::string& unit, bool imported) {
        folder.write("report0", symbols("a.mcm", symbolRows, unit));
        folder.write("report1", layers("a.mcm", layerRows));
        text::Findings findings(package::kFindingKinds);
        InputFile design("unused");
        EXPECT_EQ(package::importCadence(design, model, {&findings, nullptr}), imported);
        return textsOf(findings);
    };
    EXPECT_THAT(notes(kSubstrateRow, "", "MM", true), IsEmpty());
    EXPECT_THAT(notes(kSubstrateRow, "", "mils", true),
                ElementsAre("package.report-unit 0:0 mils"));
    EXPECT_THAT(notes("\nQX!1!\nS!\n", "", "MM", false), ElementsAre("package.report-tag 4:1 QX"));
    EXPECT_THAT(notes("", "S!1!\n", "MM", false), ElementsAre("package.report-row 3:0 S!1!"));
}

}  // namespace
}  // namespace kvocaeio::test
