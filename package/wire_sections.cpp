/// The passes over a 3DI file that read its wire models and its wires.
#include "package/wire_sections.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <new>
#include <string_view>
#include <utility>

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

// Appends the points of a polyline's rows up to the line after them. False where they are not as
// many as was said.
bool readPoints(text::PassLines& lines, int pointsExpected, double unitScale,
                ChunkedList<double>& points) {
    std::array<double, 30> numbers;
    long long pointsRead = 0;
    while (nextInside(lines)) {
        const int count = scanNumbers(lines.line(), numbers);
        if (count % kNumbersPerPoint != 0 || pointsRead >= pointsExpected) {
            if (pointsRead != pointsExpected)
                lines.note(Finding::kPointCount);
            return pointsRead == pointsExpected;
        }
        if (count == 0)
            lines.note(Finding::kPointRow);
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            points.append(numbers[i] * unitScale);
        pointsRead += count / kNumbersPerPoint;
    }
    return false;
}

// Reads a wire from its colour's line on, to the second line after its points. False where none
// comes of it.
bool readWire(text::PassLines& lines, double unitScale, Wire& wire, ChunkedList<double>& points) {
    const auto refuse = [&](Finding why) {
        lines.note(why);
        return false;
    };
    if (!scanKeywordLine(lines.line(), kColorWord, wire.colorId) || !lines.nextWith(kWireModelWord))
        return false;
    if (!scanKeywordLine(lines.line(), kWireModelWord, wire.profile))
        return refuse(Finding::kWireModel);
    if (!lines.nextWith(kWireWord))
        return false;
    text::Scan scan(lines.line());
    std::string_view word;
    int number = 0;
    if (!scan.word(word) || !kWireWord.isMatchedBy(word) || !scan.real(wire.diameter) ||
        !scan.integer(number))
        return refuse(Finding::kWireDiameter);
    wire.diameter *= unitScale;
    if (!nextInside(lines))
        return false;
    if (!kPolylineWord.isHeldBy(lines.line()) ||
        !scanKeywordLine(lines.line(), kPolylineWord, number))
        return refuse(Finding::kWirePolyline);
    return readPoints(lines, number, unitScale, points) && nextInside(lines);
}

void store(const Wire& wire, std::size_t firstNumber, WireTables& wires) {
    wires.wireFirstPoint.append(static_cast<int>(firstNumber / kNumbersPerPoint));
    wires.wireProfile.append(wire.profile);
    wires.wireDiameter.append(wire.diameter);
    wires.wireColorId.append(wire.colorId);
    ++wires.wireCount;
    wires.wireProfileMax = std::max(wires.wireProfileMax, wire.profile);
}

// The points go straight into the tables, where they are dropped again if no wire comes of them:
// the count of a polyline sizes nothing, and the longest wire costs its memory once.
void readAllWires(text::PassLines& lines, double unitScale, WireTables& wires) {
    std::size_t stored = 0;  // of the numbers; after them those of the wire in hand
    try {
        while (lines.nextWith(kColorWord)) {
            Wire wire;
            if (readWire(lines, unitScale, wire, wires.wirePoints)) {
                store(wire, stored, wires);
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
            if (!scanKeywordLine(lines.line(), kWireModelWord, number) || !lines.next())
                continue;
            text::Scan scan(lines.line());
            std::string_view name, word;
            double real = 0.0;
            if (scan.word(name) && scan.real(real) && scan.integer(number) && scan.word(word)) {
                std::string folded;
                text::foldToUpper(name, folded);
                names.append(std::move(folded));
            }
        }
    });
}

bool readWires(InputFile& file, const text::Listener& listener, double unitScale,
               WireTables& wires) {
    return passOver(file, listener,
                    [&](text::PassLines& lines) { readAllWires(lines, unitScale, wires); });
}

}  // namespace kvocaeio::package
