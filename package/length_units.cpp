/// The length units of package files, and the pass over a 3DI file that seeks them.
#include "package/length_units.h"

#include <algorithm>
#include <array>
#include <string>

#include "package/lines.h"
#include "text/ascii.h"

namespace kvocaeio::package {

namespace {

// In the order of the tests: the first word that a line holds anywhere decides, so that a "COMMENT"
// makes it millimetres.
constexpr std::array kLengthUnits{
    LengthUnit{"MM", 1.0},      LengthUnit{"MILLIMETERS", 1.0},
    LengthUnit{"UM", 0.001},    LengthUnit{"MICRONS", 0.001},
    LengthUnit{"NM", 0.000001}, LengthUnit{"NANOMETERS", 0.000001},
    LengthUnit{"INCH", 25.4},   LengthUnit{"INCHS", 25.4},
};

bool isLetter(char c) {
    return text::toUpper(c) >= 'A' && text::toUpper(c) <= 'Z';
}

// Whether `word` is `unit` with an "S" or "ES" after it.
bool isPlural(std::string_view word, std::string_view unit) {
    const std::string_view ending = word.substr(unit.size());
    return equalsInAnyCase(ending, "S") || equalsInAnyCase(ending, "ES");
}

}  // namespace

const LengthUnit* findLengthUnit(std::string_view line) {
    const auto unit = std::ranges::find_if(
        kLengthUnits, [&](const LengthUnit& each) { return Word(each.word).isHeldBy(line); });
    return unit == kLengthUnits.end() ? nullptr : &*unit;
}

bool standsAlone(std::string_view line, const LengthUnit& unit, std::string_view& place) {
    const Word sought(unit.word);
    const char* const end = line.data() + line.size();
    place = {};
    for (const char* at = line.data(); (at = sought(at, end)) != end; ++at) {
        const char* first = at;
        const char* last = at + unit.word.size();
        while (first != line.data() && isLetter(first[-1]))
            --first;
        while (last != end && isLetter(*last))
            ++last;
        const std::string_view around(first, static_cast<std::size_t>(last - first));
        if (first == at && (around.size() == unit.word.size() || isPlural(around, unit.word)))
            return true;
        if (place.empty())
            place = around;
    }
    return false;
}

bool readUnits(InputFile& file, const text::Listener& listener, double& unitScale) {
    return passOver(file, listener, [&](text::PassLines& lines) {
        text::LinePlace header;
        std::string headerText;
        while (lines.nextWith(Word("3DI"))) {
            if (const LengthUnit* unit = findLengthUnit(lines.line())) {
                unitScale = unit->millimetres;
                std::string_view place;
                if (lines.areNoted() && !standsAlone(lines.line(), *unit, place)) [[unlikely]]
                    lines.note(Finding::kUnitInWord, place);
                return;
            }
            if (lines.areNoted() && header.line == 0) [[unlikely]] {
                header = lines.place();
                headerText = lines.line();
            }
        }
        if (header.line != 0)
            lines.noteAt(Finding::kUnitUnknown, {header.line, 0}, headerText);
        else
            listener.note(Finding::kUnitMissing, {});
    });
}

}  // namespace kvocaeio::package
