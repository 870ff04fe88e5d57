/// Properties: number, material, and the value that the reader hands out.
#include <algorithm>
#include <string>

#include "text/ascii.h"
#include "tidy/nastran/deck_writer.h"
#include "tidy/nastran/numbers.h"
#include "tidy/nastran/section_areas.h"

namespace kvocaeio::tidy::nastran {

void DeckWriter::writeProperty() {
    tellForm();
    const Card& read = card();
    int number = 0;
    if (!readNumber(read.field(0), number))
        return cards_.fail(Finding::kIdUnreadable, 0, read.name());
    const int id = ++propertyRows_;
    if (id > Numbering::kMost)
        return cards_.fail(Finding::kNoNumberLeft, 0);
    if (content_.properties.numberOf(number) != id)
        cards_.note(Finding::kPropertyTwice, 0, read.field(0));
    if (id != number)
        cards_.note(Finding::kPropertyNumber, 0);
    line_.begin(read.rule()->written);
    line_.add(id);
    putMaterial();
    if (read.rule()->kind == CardKind::kBeamLibrary)
        putArea();
    else
        putValue();
    out_.text(line_.finish());
    outcome_.origins.properties.add({id, number, source()});
}

void DeckWriter::putMaterial() {
    const std::string_view field = card().field(1);
    long long material = 0;
    if (!field.empty() && !readInteger(field, material))
        cards_.note(Finding::kValueUnreadable, 1, card().name());
    if (material > Numbering::kMost) {
        cards_.note(Finding::kMaterialLarge, 1, field);
        material = 0;
    }
    line_.add(static_cast<int>(std::max(material, 0LL)));
}

void DeckWriter::putValue() {
    const std::string_view field = card().field(2);
    double value = 0.0;
    if (field.empty() || card().rule()->name == "PLSOLID")
        return;
    if (isPlainReal(field))
        line_.add(field);
    else if (readReal(field, value))
        line_.add(shortenReal(value).text());
    else
        cards_.note(Finding::kValueUnreadable, 2, card().name());
}

void DeckWriter::putArea() {
    constexpr std::size_t kType = 3;
    constexpr std::size_t kFirstDimension = 8;
    std::string type;
    text::foldToUpper(card().field(kType), type);
    const SectionShape* const shape = findSectionShape(type);
    Dimensions dimensions{};
    bool isKnown = shape != nullptr;
    for (std::size_t i = 0; isKnown && i < shape->dimensions; ++i)
        isKnown = readReal(card().field(kFirstDimension + i), dimensions[i]);
    if (!isKnown)
        return cards_.note(Finding::kAreaUnknown, kType, type);
    cards_.note(Finding::kSectionArea, kType, type);
    line_.add(shortenReal(shape->area(dimensions)).text());
}

}  // namespace kvocaeio::tidy::nastran
