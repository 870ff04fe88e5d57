/// The pass over a 3DI file that reads its geometry blocks.
#include "package/geometry_section.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "package/geometry_block.h"
#include "package/geometry_notes.h"
#include "package/lines.h"
#include "package/table_section.h"
#include "text/ascii.h"
#include "text/scan.h"

namespace kvocaeio::package {

namespace {

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
    bool openPolygon(text::Scan scan);
    void readPolygon(int pointsExpected);
    void open(double startOfMaxima) {
        block.reset(startOfMaxima);
        if (lines.areNoted()) [[unlikely]]
            noteFirstLine(lines, block);
    }
    void finish() {
        if (finishBlock(block, kinds, tables, unitScale, record, lines))
            components.append(record);
    }
    // Takes the next line of the block, which the file should not end in if a body can come of it.
    bool nextInside() {
        const bool found = lines.next();
        if (!found && isWanted(block, kinds))
            lines.note(Finding::kCutShort);
        return found;
    }
};

// A block opened here starts with these maxima; one opened by the line that finishes the block
// before starts with 0, so that it always reaches to the origin.
void GeometryPass::run() {
    constexpr double kStartOfMaxima = -1e10;
    while (lines.nextWith(Word("GEOM")))
        if (!kSectionTitle.isHeldBy(lines.line())) {
            open(kStartOfMaxima);
            readBlock();
        }
}

// Reads until no block is open: its polygon finishes a block, or abandons one that is not wanted.
void GeometryPass::readBlock() {
    while (nextInside()) {
        text::Scan scan(lines.line());
        std::string_view word;
        scan.word(word);  // any word: that of `HeadLine` may stand behind it
        bool complete = true;
        const HeadLine head{kHeadWords.firstHeldBy(lines.line())};
        switch (head) {
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
                complete = openPolygon(scan);
                if (complete)
                    return;
                break;
            case HeadLine::kEnd:
                return finish();
            case HeadLine::kNextBlock:
                finish();
                open(0.0);
                break;
            case HeadLine::kSectionTitle:
            case HeadLine::kOther:
                break;
        }
        if (!complete)
            lines.note(Finding::kHeadField);
        else if (lines.areNoted()) [[unlikely]]
            noteHeadLine(lines, block, head);
    }
}

// Reads a polygon's line and its rows. False where the line is not complete, so that the block is
// still open.
bool GeometryPass::openPolygon(text::Scan scan) {
    int points = 0;
    if (!scan.integer(points))
        return false;
    if (lines.areNoted()) [[unlikely]]
        noteWordInLine(lines, "2DPG");
    if (isWanted(block, kinds))
        readPolygon(points);
    else if (lines.areNoted()) [[unlikely]]
        noteNoBody(lines, block, tables);
    return true;
}

void GeometryPass::readPolygon(int pointsExpected) {
    std::array<double, 20> numbers;
    long long pointsRead = 0;
    bool isShort = false;
    while (nextInside()) {
        if (kSectionTitle.isHeldBy(lines.line()))
            continue;
        const char* behind = nullptr;
        const int count = scanNumbers(lines.line(), numbers, behind);
        if (count % 2 == 0 && pointsRead < pointsExpected) {
            for (std::size_t i = 0; i < static_cast<std::size_t>(count); i += 2) {
                block.x.widen(numbers[i]);
                block.y.widen(numbers[i + 1]);
            }
            pointsRead += count / 2;
        } else if (pointsRead > pointsExpected) {
            return lines.noteAt(Finding::kPolygonDropped, block.place, block.name);
        }
        if (lines.areNoted()) [[unlikely]]
            notePolygonRow(lines, count, numbers.size(), behind, isShort);
        if (pointsRead == pointsExpected) {
            finish();
            if (lines.areNoted()) [[unlikely]]
                noteAfterPolygon(lines);
            return;
        }
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
        if (kinds.symbol == -1)
            listener.note(Finding::kSymbolMissing, {});
        if (kinds.outline == -1)
            listener.note(Finding::kOutlineMissing, {});
        complete = kinds.symbol != -1 && kinds.outline != -1;
        if (complete)
            GeometryPass{lines, kinds, tables, unitScale, *components}.run();
    });
    return passed && complete;
}

}  // namespace kvocaeio::package
