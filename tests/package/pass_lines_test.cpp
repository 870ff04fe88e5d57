/// What an observer of the passes over a 3DI file is told, and that a pass which skips in blocks
/// takes the same lines as one that is watched.
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "package/geometry_pass.h"
#include "package/table_pass.h"
#include "package/units_pass.h"
#include "package/wire_passes.h"
#include "support/files.h"
#include "text/file.h"
#include "text/recorder.h"

namespace kvocaeio {
namespace {

using test::Note;
using test::Recorder;
using text::Finding;

// Notes of one pass over a file of these bytes.
template <class Pass>
std::vector<Note> notesOf(std::string_view bytes, const Pass& pass) {
    const test::TempFolder folder;
    const text::File file = text::openFile(folder.write("package.3di", bytes).c_str(), "rb");
    Recorder recorder;
    PassLines lines(file.get(), recorder);
    pass(lines);
    return recorder.notes;
}

std::vector<Note> notesOfUnits(std::string_view bytes) {
    return notesOf(bytes, [](auto& lines) {
        double unitScale = 1.0;
        readUnits(lines, unitScale);
    });
}

std::vector<Note> notesOfLayers(std::string_view bytes) {
    return notesOf(bytes, [](auto& lines) {
        IdTable<std::string> table;
        readTable(lines, Word("LAYER"), table);
    });
}

// Object 1 is the symbol, layer 1 the outline; colours run from 0 to 3.
std::vector<Note> notesOfGeometries(std::string_view bytes) {
    return notesOf(bytes, [](auto& lines) {
        CKVOCadenceReaderImp model;
        model.layerNames = std::make_unique<IdTable<std::string>>();
        model.colorTable = std::make_unique<IdTable<unsigned>>();
        model.colorTable->resize(4);
        ComponentList components;
        GeometryPass(lines, BodyKinds{1, 2, 1, -1}, model, components).run();
    });
}

std::vector<Note> notesOfWires(std::string_view bytes) {
    return notesOf(bytes, [](auto& lines) {
        CKVOCadenceReaderImp model;
        model.wirePoints = std::make_unique<ChunkedList<double>>();
        model.wireFirstPoint = std::make_unique<ChunkedList<int>>();
        model.wireProfile = std::make_unique<ChunkedList<int>>();
        model.wireDiameter = std::make_unique<ChunkedList<double>>();
        model.wireColorId = std::make_unique<ChunkedList<int>>();
        WirePass(lines, model).run();
    });
}

constexpr std::string_view kWireHead = "COLOR 1\nWIRE_MODEL 1\nWIRE 1 1\n3DPL 2\n";

TEST(PackageObserver, HearsOfHeadersWithoutUnitAndOfLongLines) {
    const std::string piece(1023, '-');
    EXPECT_EQ(notesOfUnits(piece + "\n3DI parsec\n3di mm\n"),
              (std::vector<Note>{
                  {Finding::kCut, 1, piece, "the line is too long"},
                  {Finding::kPassedOver, 2, "3DI parsec\n", "the header names no length unit"},
              }));
}

TEST(PackageObserver, HearsOfRowsThatNoTableHasAndOfTheEndOfAPass) {
    EXPECT_EQ(notesOfLayers("TABLE LAYER\nnote\n-1 A\n1 TOP\n16777216 B\n# end\n2 C\n"),
              (std::vector<Note>{
                  {Finding::kPassedOver, 3, "-1 A\n", "no table has a row of this id"},
                  {Finding::kPassedOver, 5, "16777216 B\n", "no table has a row of this id"},
                  {Finding::kEndedEarly, 6, "# end\n", "a line is no row of its table"},
              }));
}

TEST(PackageObserver, HearsOfFieldsAndRowsOfABlock) {
    EXPECT_EQ(notesOfGeometries("GEOM\nNAME\nLAYER 1\nCOLOR red\nCOLOR 1\nEXTR 0 1\n2DPG 2\n"
                                "text\n1 1 2\n0 0 1 1\n####\n"),
              (std::vector<Note>{
                  {Finding::kStale, 2, "NAME\n", "not all fields of the line can be read"},
                  {Finding::kStale, 4, "COLOR red\n", "not all fields of the line can be read"},
                  {Finding::kStale, 6, "EXTR 0 1\n", "not all fields of the line can be read"},
                  {Finding::kPassedOver, 8, "text\n", "the line is no row of a polygon"},
                  {Finding::kPassedOver, 9, "1 1 2\n", "the line is no row of a polygon"},
              }));
}

TEST(PackageObserver, HearsOfBlocksThatAreLost) {
    EXPECT_EQ(notesOfGeometries("GEOM\nLAYER 1\n2DPG 2\n0 0 1 1 2 2\n3 3\nGEOM\nLAYER 1\n"),
              (std::vector<Note>{
                  {Finding::kPassedOver, 5, "3 3\n", "the polygon has more points than it says"},
                  {Finding::kEndedEarly, 7, "LAYER 1\n", "the file ends inside a block"},
              }));
}

TEST(PackageObserver, HearsOfWiresThatAreLost) {
    const std::string head(kWireHead);
    EXPECT_EQ(
        notesOfWires(head + "note\n0 0 0\n\n" + head + "0 0 0 1 1 1\n"),
        (std::vector<Note>{
            {Finding::kPassedOver, 5, "note\n", "the line is no row of a polyline"},
            {Finding::kPassedOver, 7, "\n", "the polyline's points are not as many as it says"},
            {Finding::kEndedEarly, 12, "0 0 0 1 1 1\n", "the file ends inside a wire"},
        }));
    EXPECT_EQ(notesOfWires("COLOR 1\nWIRE_MODELS\nCOLOR 1\nWIRE_MODEL 1\nWIRE x\n"),
              (std::vector<Note>{
                  {Finding::kPassedOver, 2, "WIRE_MODELS\n", "the line names no wire model"},
                  {Finding::kPassedOver, 5, "WIRE x\n", "the line gives no wire's diameter"},
              }));
    EXPECT_EQ(notesOfWires("COLOR 1\nWIRE_MODEL 1\nWIRE 1 1\n\n3DPL 2\n"),
              (std::vector<Note>{
                  {Finding::kPassedOver, 4, "\n", "no polyline follows the wire's line"},
              }));
}

// The lines that hold the word, as a pass with this observer takes them; every third of them is
// followed by one that is taken whatever it holds.
template <class Observer>
std::vector<std::string> linesTaken(const std::string& path, const Word& word) {
    const text::File file = text::openFile(path.c_str(), "rb");
    Observer observer;
    PassLines lines(file.get(), observer);
    std::vector<std::string> taken;
    while (lines.nextHolding(word)) {
        taken.emplace_back(lines.line());
        if (taken.size() % 3 == 0 && lines.next())
            taken.emplace_back(lines.line());
    }
    return taken;
}

// Pieces of the word, line ends of both kinds, NULs and runs whose lengths lie around those of a
// line's bound, a block of the reader and a stride of the search.
std::string randomLines(std::mt19937& random) {
    const auto below = [&random](unsigned end) { return random() % end; };
    std::string bytes;
    while (bytes.size() < 600'000) {
        switch (below(8)) {
            case 0:
                bytes += "Wire";
                break;
            case 1:
                bytes += "wi";
                break;
            case 2:
                bytes += "RE";
                break;
            case 3:
                bytes += below(2) == 0 ? "\n" : "\r\n";
                break;
            case 4:
                bytes.append(1018 + below(10), ' ');
                break;
            case 5:
                bytes.append(below(80), 'w');
                break;
            case 6:
                bytes.append(below(8) == 0 ? 1 : 0, '\0');
                break;
            default:
                bytes.append(below(2000) == 0 ? 262'140 + below(9) : below(90), '.');
                break;
        }
    }
    return bytes;
}

TEST(PackageLines, SkippedInBlocksAreThoseWithoutTheWord) {
    const test::TempFolder folder;
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const std::string path = folder.write("package.3di", randomLines(random));
        const auto taken = linesTaken<text::NoObserver>(path, Word("WIRE"));
        ASSERT_GT(taken.size(), 100u);
        ASSERT_EQ(taken, linesTaken<Recorder>(path, Word("WIRE")));
    }
}

TEST(PackageWords, AreFoundAnywhereAndInAnyCase) {
    EXPECT_EQ(kHeadWords.firstHeldBy("xnAmEx OBJECT"), 1u);
    EXPECT_EQ(kHeadWords.firstHeldBy("GEOM GEOMETRIES"), 0u);
    EXPECT_EQ(kHeadWords.firstHeldBy("12dpg 4\n"), 7u);
    EXPECT_EQ(kHeadWords.firstHeldBy(std::string(32, '1') + "2dpg"), 7u);
    EXPECT_EQ(kHeadWords.firstHeldBy(std::string(64, '1') + "2dpg"), 7u);
    EXPECT_EQ(kHeadWords.firstHeldBy("GEO METRIES ### NAM"), 10u);
    EXPECT_EQ(kHeadWords.firstHeldBy(""), 10u);
}

}  // namespace
}  // namespace kvocaeio
