/// The passes over a 3DI file that read its wire models and its wires.
#include "package/wire_sections.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "package/geometry_notes.h"
#include "package/lines.h"
#include "text/ascii.h"
#include "text/scan.h"

namespace kvocaeio::package {

namespace {

constexpr Word kColorWord("COLOR");
constexpr Word kWireModelsWord("WIRE_MODELS");
constexpr Word kWireModelWord("WIRE_MODEL");
constexpr Word kWireWord("WIRE");
constexpr Word kPolylineWord("3DPL");
constexpr int kNumbersPerPoint = 3;

// The numbers of a wire.
struct Wire {
    int colorId = 0;
    int profile = 0;
    double diameter = 0.0;
};

// Seeks a word for who listens, who learns which other words stand before it.
template <const Word& kSought>
struct Seeker {
    bool passesColor = false;
    bool passesPolyline = false;

    const char* operator()(const char* first, const char* last) {
        const char* const place = kSought(first, last);
        passesColor = passesColor || kColorWord(first, place) != place;
        passesPolyline = passesPolyline || kPolylineWord(first, place) != place;
        return place;
    }
};

struct WirePass {
    text::PassLines& lines;
    double unitScale;
    WireTables& wires;
    bool hasRefused = false;  // the wire in hand, so that its polyline was told of
    text::LinePlace
        colorTaken{};  // a line of another block that the wire in hand has its colour of

    void run();

  private:
    template <const Word& kSought>
    bool seek(bool& passesColor);
    bool refuse(Finding why) {
        hasRefused = true;
        lines.note(why);
        return false;
    }
    bool readWire(Wire& wire);
    bool readPoints(int pointsExpected);
    bool takeLineAfter(bool found);
    void noteLineAfter();
    void notePointRow(int count, std::size_t most, std::string_view rest, bool& isShort);
    void store(const Wire& wire, std::size_t firstNumber);
};

template <const Word& kSought>
bool WirePass::seek(bool& passesColor) {
    passesColor = false;
    if (!lines.areNoted())
        return lines.nextWith(kSought);
    Seeker<kSought> seeker;
    const bool found = lines.nextWith(
        [&seeker](const char* first, const char* last) { return seeker(first, last); });
    if (seeker.passesPolyline && !hasRefused)
        lines.note(Finding::kPolylineLost);
    hasRefused = false;
    passesColor = seeker.passesColor;
    return found;
}

// A row of points, while some are missing. A blank line, and a count that cannot be divided by
// three, end the wire.
void WirePass::notePointRow(int count, std::size_t most, std::string_view rest, bool& isShort) {
    if (!lines.areNoted() || isShort)
        return;
    isShort = count == 0 && isBlockEnd(lines.line());
    if (isShort)
        lines.note(Finding::kPointsMissing);
    else if (count == 0)
        lines.note(Finding::kPointText);
    else
        noteRest(lines, static_cast<std::size_t>(count), most, rest);
}

// Appends the points of a polyline's rows up to the line after them. False where they are not as
// many as was said.
bool WirePass::readPoints(int pointsExpected) {
    std::array<double, 30> numbers;
    long long pointsRead = 0;
    bool isShort = false;
    while (lines.next()) {
        std::string_view rest;
        const int count = scanNumbers(lines.line(), numbers, rest);
        if (count % kNumbersPerPoint != 0 || pointsRead >= pointsExpected) {
            if (pointsRead != pointsExpected)
                return refuse(Finding::kWirePoints);
            if (count > 0)
                lines.note(Finding::kPointsLeft);
            return takeLineAfter(true);
        }
        if (count == 0 || !rest.empty())
            notePointRow(count, numbers.size(), rest, isShort);
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            wires.wirePoints.append(numbers[i] * unitScale);
        pointsRead += count / kNumbersPerPoint;
    }
    return pointsRead == pointsExpected ? takeLineAfter(false) : refuse(Finding::kCutShort);
}

// One of the two lines after the points, whatever it holds: a wire that begins there is lost.
void WirePass::noteLineAfter() {
    int number = 0;
    if (scanKeywordLine(lines.line(), kColorWord, number) && kColorWord.isHeldBy(lines.line()))
        refuse(Finding::kWireColorUsed);
}

// `found` is false where the file ends before one of the two lines after the points.
bool WirePass::takeLineAfter(bool found) {
    if (!found)
        return refuse(Finding::kWireUnfinished);
    if (lines.areNoted()) [[unlikely]]
        noteLineAfter();
    return true;
}

// Reads a wire from its colour's line on, to the second line after its points. False where none
// comes of it.
bool WirePass::readWire(Wire& wire) {
    if (!scanKeywordLine(lines.line(), kColorWord, wire.colorId))
        return false;
    const text::LinePlace place = lines.place();
    bool passesColor = false;
    if (!seek<kWireModelWord>(passesColor))
        return false;
    if (!scanKeywordLine(lines.line(), kWireModelWord, wire.profile))
        // The title of the models after a body's colour: there was no wire.
        return !kWireModelsWord.isHeldBy(lines.line()) && refuse(Finding::kWireModel);
    if (!lines.nextWith(kWireWord))
        return false;
    text::Scan scan(lines.line());
    std::string_view word;
    int number = 0;
    if (!scan.word(word) || !kWireWord.isMatchedBy(word) || !scan.real(wire.diameter) ||
        !scan.integer(number))
        return refuse(Finding::kWireDiameter);
    wire.diameter *= unitScale;
    if (!lines.next())
        return refuse(Finding::kCutShort);
    if (!kPolylineWord.isHeldBy(lines.line()) ||
        !scanKeywordLine(lines.line(), kPolylineWord, number))
        return refuse(Finding::kWirePolyline);
    colorTaken = passesColor ? place : text::LinePlace();
    return readPoints(number) && takeLineAfter(lines.next());
}

void WirePass::store(const Wire& wire, std::size_t firstNumber) {
    const std::size_t index = wires.wireDiameter.size();
    // The colours of other wires are never handed out.
    if (colorTaken.line != 0 && index > 0 && wires.wireProfileNames &&
        index <= wires.wireProfileNames->size())
        lines.noteAt(Finding::kWireColorTaken, {colorTaken.line, 0},
                     "COLOR " + std::to_string(wire.colorId));
    wires.wireFirstPoint.append(static_cast<int>(firstNumber / kNumbersPerPoint));
    wires.wireProfile.append(wire.profile);
    wires.wireDiameter.append(wire.diameter);
    wires.wireColorId.append(wire.colorId);
    ++wires.wireCount;
    wires.wireProfileMax = std::max(wires.wireProfileMax, wire.profile);
}

// The points go straight into the tables, where they are dropped again if no wire comes of them:
// the count of a polyline sizes nothing, and the longest wire costs its memory once.
void WirePass::run() {
    std::size_t stored = 0;  // of the numbers; after them those of the wire in hand
    bool passesColor = false;
    try {
        while (seek<kColorWord>(passesColor)) {
            Wire wire;
            if (readWire(wire)) {
                store(wire, stored);
                stored = wires.wirePoints.size();
            }
            wires.wirePoints.shrink(stored);
        }
    } catch (const std::bad_alloc&) {
        wires.wirePoints.shrink(stored);
        throw;
    }
}

// Whether a line describes a wire model, and its name.
bool scanModel(std::string_view line, std::string_view& name) {
    text::Scan scan(line);
    std::string_view word;
    double real = 0.0;
    int number = 0;
    return scan.word(name) && scan.real(real) && scan.integer(number) && scan.word(word);
}

// A line after "WIRE_MODEL" that is no model: that of a wire, mostly.
void noteNoModel(text::PassLines& lines) {
    text::Scan scan(lines.line());
    std::string_view name;
    double real = 0.0;
    if (scan.word(name) && scan.real(real) && !kWireWord.isMatchedBy(name))
        lines.note(Finding::kModelIncomplete);
}

// The model that was stored at `index`, counted from 1, after its first line.
void noteModel(text::PassLines& lines, const text::LinePlace& place, int number,
               std::string_view name, std::size_t index) {
    if (kWireWord.isMatchedBy(name))
        lines.note(Finding::kModelOfWire);
    else if (number < 0 || static_cast<std::size_t>(number) != index)
        lines.noteAt(Finding::kModelNumber, {place.line, 0}, std::to_string(number));
}

// A "WIRE_MODEL" line without its number: a wire's, or that of a model which is lost. Takes no
// line.
void noteModelLine(text::PassLines& lines) {
    std::string_view name;
    if (!lines.areNoted() || !lines.next())
        return;
    if (scanModel(lines.line(), name) && !kWireWord.isMatchedBy(name))
        lines.note(Finding::kModelIncomplete);
    lines.giveBack();
}

}  // namespace

bool readWireModels(InputFile& file, const text::Listener& listener,
                    ChunkedList<std::string>& names) {
    return passOver(file, listener, [&](text::PassLines& lines) {
        if (!lines.nextWith(kWireModelsWord))
            return;
        while (lines.nextWith(kWireModelWord)) {
            int number = 0;
            std::string_view name;
            const text::LinePlace place = lines.place();
            if (!scanKeywordLine(lines.line(), kWireModelWord, number)) {
                noteModelLine(lines);
            } else if (!lines.next()) {
                continue;
            } else if (scanModel(lines.line(), name)) {
                std::string folded;
                text::foldToUpper(name, folded);
                names.append(std::move(folded));
                if (lines.areNoted())
                    noteModel(lines, place, number, name, names.size());
            } else if (lines.areNoted()) {
                noteNoModel(lines);
            }
        }
    });
}

bool readWires(InputFile& file, const text::Listener& listener, double unitScale,
               WireTables& wires) {
    return passOver(file, listener, [&](text::PassLines& lines) {
        WirePass{lines, unitScale, wires}.run();
    });
}

}  // namespace kvocaeio::package
