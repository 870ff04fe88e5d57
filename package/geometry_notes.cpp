/// What somebody who listens to the geometry pass is told.
#include "package/geometry_notes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "text/scan.h"

namespace kvocaeio::package {

namespace {

std::string_view wordOf(text::Scan scan) {
    std::string_view word;
    return scan.word(word) ? word : std::string_view();
}

// The word after the last field of a line that is complete.
std::string_view wordAfter(std::string_view line, HeadLine head) {
    text::Scan scan(line);
    std::string_view word;
    int number = 0;
    double real = 0.0;
    scan.word(word);
    if (head == HeadLine::kName)
        scan.word(word);
    if (head == HeadLine::kBall)
        for (int field = 0; field < 6; ++field)
            scan.real(real);
    if (head != HeadLine::kName)
        scan.integer(number);
    if (head == HeadLine::kExtrusion) {
        scan.real(real);
        scan.real(real);
    }
    return wordOf(scan);
}

// A line of a block's head that no keyword stands in. One of a wire marks the block.
void noteOtherLine(text::PassLines& lines, GeometryBlock& block) {
    const std::string_view word = wordOf(text::Scan(lines.line()));
    if (beginsWith(lines.line(), "WIRE") || beginsWith(lines.line(), "3DPL"))
        block.isWire = true;
    else if (!word.empty() && !block.isWire)
        lines.noteNamed(Finding::kLineUnknown, word);
}

// Whether `rest` goes on directly after what was read of the line before it.
bool isTorn(std::string_view line, std::string_view rest) {
    return rest.data() != line.data() && !text::isSpace(rest.data()[-1]);
}

bool isFinite(const ComponentRecord& record) {
    const auto finite = [](double length) { return std::isfinite(length); };
    if (record.type == ComponentType::kBall)  // its height is told at the BARL line
        return finite(record.center[0]) && finite(record.center[1]) && finite(record.size[0]) &&
               !std::isinf(record.center[2]);
    return std::ranges::all_of(record.center, finite) && std::ranges::all_of(record.size, finite);
}

}  // namespace

void noteFirstLine(text::PassLines& lines, GeometryBlock& block) {
    noteWordInLine(lines, "GEOM");
    block.linesRead = 0;
    block.isWire = false;
    block.place = {lines.place().line, 0};
}

void noteHeadLine(text::PassLines& lines, GeometryBlock& block, HeadLine head) {
    if (head == HeadLine::kOther)
        return noteOtherLine(lines, block);
    if (head == HeadLine::kNextBlock)
        return;
    noteWordInLine(lines, kHeadWordTexts[static_cast<std::size_t>(head)]);
    if (head == HeadLine::kSectionTitle)
        return;
    if (head == HeadLine::kBall && std::isnan(block.ballZ))
        lines.note(Finding::kBallHeight);
    if (block.has(head))
        lines.note(Finding::kHeadRepeated);
    block.add(head);
    const std::string_view word = wordAfter(lines.line(), head);
    if (word.empty())
        return;
    if (head == HeadLine::kName)
        lines.note(Finding::kWordsDropped, word);
    else if (isTorn(lines.line(), word))
        lines.note(Finding::kNumberTorn, word);
}

bool isBlockEnd(std::string_view line) {
    return beginsWith(line, "####") || beginsWith(line, "GEOM");
}

void noteRest(text::PassLines& lines, int count, std::size_t most, const char* behind) {
    const std::string_view line = lines.line();
    const auto taken = static_cast<std::size_t>(behind - line.data());
    if (taken == line.size() || line[taken] == '\n')
        return;
    const std::string_view rest = wordOf(text::Scan(line.substr(taken)));
    if (!rest.empty())
        lines.note(
            static_cast<std::size_t>(count) == most ? Finding::kRowTooLong : Finding::kNumberTorn,
            rest);
}

void notePolygonRow(text::PassLines& lines, int count, std::size_t most, const char* behind,
                    bool& isShort) {
    if (isShort || count < 0)
        return;
    isShort = count == 0 && isBlockEnd(lines.line());
    if (isShort)
        lines.note(Finding::kPointsMissing);
    else if (count == 0)
        lines.note(Finding::kPointText);
    else if (count % 2 != 0)
        lines.note(Finding::kPointRow);
    else
        noteRest(lines, count, most, behind);
}

void noteAfterPolygon(text::PassLines& lines) {
    constexpr std::array<std::string_view, 6> kHeads{"NAME", "OBJECT", "LAYER",
                                                     "EXTR", "BARL",   "2DPG"};
    if (!lines.next())
        return;
    const std::string_view line = lines.line();
    std::array<double, 2> numbers;
    const char* behind = nullptr;
    if (std::ranges::any_of(kHeads, [&](auto head) { return beginsWith(line, head); }))
        lines.note(Finding::kHeadAfterPolygon);
    else if (scanNumbers(line, numbers, behind) > 1)
        lines.note(Finding::kPointsLeft);
    lines.giveBack();
}

void noteNoBody(text::PassLines& lines, const GeometryBlock& block, const BlockTables& tables) {
    if (block.isWire)
        return;
    std::string_view name = "(none)";
    if (const std::string* const object = tables.objectNames.find(block.objectId))
        name = *object;
    else if (block.has(HeadLine::kObject))
        name = "(unknown)";
    lines.noteAt(Finding::kBlockOfNoKind, block.place, block.name, name);
}

void noteBody(text::PassLines& lines, const GeometryBlock& block, const ComponentRecord& record) {
    const auto note = [&](Finding finding) { lines.noteAt(finding, block.place, record.name); };
    if (!isFinite(record))
        note(Finding::kNotFinite);
    if (record.type == ComponentType::kBall) {
        if (!block.has(HeadLine::kBall))
            note(Finding::kBallMissing);
        if (!block.has(HeadLine::kObject))
            note(Finding::kBallAssumed);
        return;
    }
    if (record.type == ComponentType::kCap && !block.has(HeadLine::kLayer))
        lines.noteAt(Finding::kCapAssumed, block.place, block.name);
    if (block.x.hasNothing())
        note(Finding::kPolygonMissing);
    else if (block.reachesOrigin && (block.x.max == 0.0 || block.y.max == 0.0))
        note(Finding::kBlockUnclosed);
    if (!block.has(HeadLine::kExtrusion))
        note(Finding::kExtrusionMissing);
    else if (record.type == ComponentType::kSubstrate && block.z.min != 0.0)
        note(Finding::kSubstrateHeight);
    else if (record.size[2] < 0.0)
        note(Finding::kSizeNegative);
}

}  // namespace kvocaeio::package
