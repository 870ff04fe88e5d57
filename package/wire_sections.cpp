/// The passes over a 3DI file that read its wire models and its wires.
#include "package/wire_sections.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <new>
#include <string_view>
#include <utility>

#include "package/lines.h"
#include "package/wire_notes.h"
#include "text/ascii.h"
#include "text/scan.h"

namespace kvocaeio::package {

namespace {

constexpr Word kWireModelsWord("WIRE_MODELS");
constexpr Word kWireModelWord("WIRE_MODEL");
constexpr int kNumbersPerPoint = 3;

// The numbers of a wire.
struct Wire {
    int colorId = 0;
    int profile = 0;
    double diameter = 0.0;
};

struct WirePass {
    text::PassLines& lines;
    double unitScale;
    WireTables& wires;
    WireNotes notes{lines};

    void run();

  private:
    bool seek(const Word& word) {
        if (lines.areNoted()) [[unlikely]]
            return notes.seek(word);
        return lines.nextWith(word);
    }
    bool refuse(Finding why) {
        if (lines.areNoted()) [[unlikely]]
            notes.refuse(why);
        return false;
    }
    bool readWire(Wire& wire);
    bool readPoints(int pointsExpected);
    bool takeLineAfter(bool found);
    void store(const Wire& wire, std::size_t firstNumber);
};

// Appends the points of a polyline's rows up to the line after them. False where they are not as
// many as was said.
bool WirePass::readPoints(int pointsExpected) {
    std::array<double, 30> numbers;
    long long pointsRead = 0;
    bool isShort = false;
    while (lines.next()) {
        const char* behind = nullptr;
        const int count = scanNumbers(lines.line(), numbers, behind);
        if (count % kNumbersPerPoint != 0 || pointsRead >= pointsExpected) {
            if (pointsRead != pointsExpected)
                return refuse(Finding::kWirePoints);
            if (count > 0)
                lines.note(Finding::kPointsLeft);
            return takeLineAfter(true);
        }
        if (lines.areNoted()) [[unlikely]]
            notes.pointRow(count, numbers.size(), behind, isShort);
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            wires.wirePoints.append(numbers[i] * unitScale);
        pointsRead += count / kNumbersPerPoint;
    }
    return pointsRead == pointsExpected ? takeLineAfter(false) : refuse(Finding::kCutShort);
}

// `found` is false where the file ends before one of the two lines after the points.
bool WirePass::takeLineAfter(bool found) {
    if (!found)
        return refuse(Finding::kWireUnfinished);
    if (lines.areNoted()) [[unlikely]]
        notes.lineAfter();
    return true;
}

// Reads a wire from its colour's line on, to the second line after its points. False where none
// comes of it.
bool WirePass::readWire(Wire& wire) {
    if (!scanKeywordLine(lines.line(), kColorWord, wire.colorId))
        return false;
    if (lines.areNoted()) [[unlikely]]
        notes.beginWire();
    if (!seek(kWireModelWord))
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
    return readPoints(number) && takeLineAfter(lines.next());
}

void WirePass::store(const Wire& wire, std::size_t firstNumber) {
    if (lines.areNoted()) [[unlikely]]
        notes.stored(wires, wire.colorId);
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
    try {
        while (seek(kColorWord)) {
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
                if (lines.areNoted()) [[unlikely]]
                    noteModelLine(lines);
            } else if (!lines.next()) {
                continue;
            } else if (scanModel(lines.line(), name)) {
                std::string folded;
                text::foldToUpper(name, folded);
                names.append(std::move(folded));
                if (lines.areNoted()) [[unlikely]]
                    noteModel(lines, place, number, name, names.size());
            } else if (lines.areNoted()) [[unlikely]] {
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
