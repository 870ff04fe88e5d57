/// The pass over a 3DI file that reads its geometry blocks.
#include "package/geometry_section.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "package/geometry_block.h"
#include "package/lines.h"
#include "package/table_section.h"
#include "text/ascii.h"
#include "text/scan.h"

namespace kvocaeio::package {

namespace {

// What a line in the head of a block is.
enum class HeadLine : std::size_t {
    kSectionTitle,
    kName,
    kObject,
    kLayer,
    kColor,
    kExtrusion,
    kBall,
    kPolygon,
    kEnd,
    kNextBlock,
    kOther,
};

// In the order of the tests and of `HeadLine`: the first word that the line holds decides.
constexpr auto kHeadWordTexts = std::to_array<std::string_view>(
    {"GEOMETRIES", "NAME", "OBJECT", "LAYER", "COLOR", "EXTR", "BARL", "2DPG", "####", "GEOM"});
constexpr WordList kHeadWords(kHeadWordTexts);

constexpr Word kSectionTitle("GEOMETRIES");

struct GeometryPass {
    text::PassLines& lines;
    const BodyKinds& kinds;
    const BlockTables& tables;
    double unitScale;
    ComponentList& components;
    GeometryBlock block{};
    ComponentRecord record{};  // one for all blocks: a ball keeps the body's y and z size before it

    void run();
    void readBlock();
    void readPolygon(int pointsExpected);
    void finish() {
        if (finishBlock(block, kinds, tables, unitScale, record))
            components.append(record);
    }
};

// A block opened here starts with these maxima; one opened by the line that finishes the block
// before starts with 0, so that it always reaches to the origin.
void GeometryPass::run() {
    constexpr double kStartOfMaxima = -1e10;
    while (lines.nextWith(Word("GEOM")))
        if (!kSectionTitle.isHeldBy(lines.line())) {
            block.reset(kStartOfMaxima);
            readBlock();
        }
}

// Reads until no block is open: its polygon finishes a block, or abandons one that is not wanted.
void GeometryPass::readBlock() {
    while (nextInside(lines)) {
        text::Scan scan(lines.line());
        std::string_view word;
        scan.word(word);  // any word: that of `HeadLine` may stand behind it
        int points = 0;
        bool complete = true;
        switch (HeadLine{kHeadWords.firstHeldBy(lines.line())}) {
            case HeadLine::kName:
                complete = scan.word(word);
                if (complete)
                    text::foldToUpper(word, block.name);
                break;
            case HeadLine::kObject:
                complete = scan.integer(block.objectId);
                break;
            case HeadLine::kLayer:
                complete = scan.integer(block.layerId);
                break;
            case HeadLine::kColor:
                complete = scan.integer(block.colorId);
                break;
            case HeadLine::kExtrusion:
                complete = block.scanExtrusion(scan);
                break;
            case HeadLine::kBall:
                complete = block.scanBall(scan);
                break;
            case HeadLine::kPolygon:
                complete = scan.integer(points);
                if (complete && isWanted(block, kinds))
                    readPolygon(points);
                if (complete)
                    return;
                break;
            case HeadLine::kEnd:
                return finish();
            case HeadLine::kNextBlock:
                finish();
                block.reset(0.0);
                break;
            case HeadLine::kSectionTitle:
            case HeadLine::kOther:
                break;
        }
        if (!complete)
            lines.note(Finding::kHeadField);
    }
}

void GeometryPass::readPolygon(int pointsExpected) {
    std::array<double, 20> numbers;
    long long pointsRead = 0;
    while (nextInside(lines)) {
        if (kSectionTitle.isHeldBy(lines.line()))
            continue;
        const int count = scanNumbers(lines.line(), numbers);
        if (count <= 0 || count % 2 != 0)
            lines.note(Finding::kPointRow);
        if (count % 2 == 0 && pointsRead < pointsExpected) {
            for (std::size_t i = 0; i < static_cast<std::size_t>(count); i += 2) {
                block.x.widen(numbers[i]);
                block.y.widen(numbers[i + 1]);
            }
            pointsRead += count / 2;
        } else if (pointsRead > pointsExpected) {
            return lines.note(Finding::kPointCount);
        }
        if (pointsRead == pointsExpected)
            return finish();
    }
}

}  // namespace

bool readGeometries(InputFile& file, const text::Listener& listener, const BlockTables& tables,
                    double unitScale, std::optional<ComponentList>& components) {
    bool complete = false;
    const bool passed = passOver(file, listener, [&](text::PassLines& lines) {
        components.emplace();
        const BodyKinds kinds{
            findEntry(tables.objectNames, "SYMBOL"),
            findEntry(tables.objectNames, "BALL"),
            findEntry(tables.layerNames, "OUTLINE"),
            findEntry(tables.layerNames, "PACKAGE CAP"),
        };
        complete = kinds.symbol != -1 && kinds.outline != -1;
        if (complete)
            GeometryPass{lines, kinds, tables, unitScale, *components}.run();
    });
    return passed && complete;
}

}  // namespace kvocaeio::package
