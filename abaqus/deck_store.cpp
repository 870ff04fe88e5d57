/// Storing the values of the data lines.
#include "abaqus/deck_store.h"

#include <algorithm>

#include "text/ascii.h"
#include "text/scan.h"

namespace kvocaeio::abaqus {

void DeckStore::addNode(std::string_view line) {
    NodeBlock& block = model_.nodeBlock;
    if (nodeRow_ == block.ids.size())
        return;
    double* const coord = &block.coords[3 * nodeRow_];
    std::size_t field = 0;
    text::Scan scan(line);
    const auto nextField = [&] { return scan.separator(',') && ++field > 0; };
    const bool isWhole = scan.integer(block.ids[nodeRow_++]) && nextField() &&
                         scan.real(coord[0]) && nextField() && scan.real(coord[1]) && nextField() &&
                         scan.real(coord[2]);
    if (areNoted_) [[unlikely]]
        noteNode(line, field, isWhole, scan.rest());
}

void DeckStore::beginElements(std::string_view typeName, std::string_view elset, ElementType type) {
    elements_.takeFrom(model_.elemSections);
    elementRow_ = 0;
    elementNumber_ = 0;
    elements_->type = typeName;
    elements_->elset = elset;
    elements_->geometryType = type.geometry;
}

std::size_t DeckStore::addElementTokens(std::string_view line, std::size_t wanted) {
    const char* at = line.data();
    const char* const end = at + line.size();
    std::size_t taken = 0;
    for (; taken < wanted; ++taken) {
        while (at != end && kDataField.contains(*at))
            ++at;
        if (at == end)
            break;
        constexpr int kDigitsThatFit = 9;
        const char* const token = at;
        unsigned number = 0;
        for (unsigned digit; at != end && (digit = static_cast<unsigned>(*at) - '0') < 10; ++at)
            number = 10 * number + digit;
        const auto digits = at - token;
        if (digits > 0 && digits <= kDigitsThatFit && (at == end || kDataField.contains(*at)))
            [[likely]]
            elementNumber_ = static_cast<int>(number);
        else
            at = readOddNumber(token, end);
        storeElementNumber();
    }
    if (taken == wanted && areNoted_) [[unlikely]]
        noteElementFieldsBeyond({at, end});
    return taken;
}

// Reads what is not made of a few digits alone, as "%d" reads it. Returns the token's end.
const char* DeckStore::readOddNumber(const char* token, const char* end) {
    const char* const tokenEnd =
        std::find_if(token, end, [](char c) { return kDataField.contains(c); });
    text::Scan scan(std::string_view(token, tokenEnd));
    const bool isNumber = scan.integer(elementNumber_);
    noteElementNumber({token, tokenEnd}, isNumber, scan.rest());
    return tokenEnd;
}

void DeckStore::storeElementNumber() {
    if (oidTaken_) {
        if (nextNode_ != behindNodes_)
            *nextNode_++ = elementNumber_;
        return;
    }
    oidTaken_ = true;
    nextNode_ = behindNodes_ = nullptr;
    if (elementRow_ == elements_->ids.size())
        return;
    const auto width = static_cast<std::size_t>(elements_->nodesPerElem);
    elements_->ids[elementRow_] = elementNumber_;
    nextNode_ = elements_->nodes.data() + elementRow_ * width;
    behindNodes_ = nextNode_ + width;
    ++elementRow_;
}

void DeckStore::repeatLastNumber(std::size_t count) {
    for (; count > 0; --count)
        storeElementNumber();
}

void DeckStore::endElement() {
    oidTaken_ = false;
}

void DeckStore::beginElset(std::string_view name, bool generated) {
    elset_.takeFrom(model_.elsets);
    elset_->name = name;
    if (generated)
        elset_->parameter = "GENERATE";
    hasRange_ = false;
}

void DeckStore::addMembers(std::string_view line) {
    text::foldToUpper(line, folded_);
    text::Tokens tokens(folded_);
    for (std::string_view token; tokens.next(kDataField, token);)
        elset_->members.emplace_back(token);
    if (areNoted_) [[unlikely]]
        noteMembers(line);
}

// The last line counts that holds a number at all. A missing end is the start, a missing step 1.
void DeckStore::setRange(std::string_view line) {
    int start = 0;
    text::Scan scan(line);
    if (!scan.integer(start))
        return noteRange(line, 0);
    int end = start;
    int step = 1;
    std::size_t fields = 1;
    const auto nextField = [&](int& number) {
        return scan.literal(',') && scan.integer(number) && ++fields > 0;
    };
    nextField(end) && nextField(step);
    elset_->genStart = start;
    elset_->genEnd = end;
    elset_->genStep = step;
    noteRange(line, fields);
    hasRange_ = true;
}

void DeckStore::beginSurface(std::string_view type, std::string_view name) {
    surface_.takeFrom(model_.surfaces);
    surface_->type = type;
    surface_->name = name;
}

void DeckStore::addSurfaceItem(std::string_view line) {
    text::foldToUpper(line, folded_);
    text::Tokens tokens(folded_);
    std::string_view item;
    if (!tokens.next(kDataField, item))
        return;
    std::string_view face;
    tokens.next(kDataField, face);
    surface_->faces.emplace_back(face);
    surface_->items.emplace_back(item);
    if (areNoted_ && !noteKeywordInData(line)) [[unlikely]]
        noteFieldsBeyond(tokens.rest(), "*SURFACE");
}

void DeckStore::beginDload() {
    dload_.takeFrom(model_.dloads);
    loadElement_ = 0;
    loadValue_ = 0.0;
}

void DeckStore::addLoad(std::string_view line) {
    text::Tokens tokens(line);
    std::string_view oid, label, value;
    if (!tokens.next(kDataField, oid))
        return;
    tokens.next(kDataField, label);
    tokens.next(kDataField, value);
    text::Scan scan(oid);
    const bool isNumber = scan.integer(loadElement_);
    text::Scan(value).real(loadValue_);
    dload_->values.push_back(loadValue_);
    dload_->faceIdx.emplace_back(label);
    dload_->elemIDs.push_back(loadElement_);
    if (areNoted_ && !noteKeywordInData(line)) [[unlikely]] {
        noteLoad(oid, isNumber, scan.rest());
        noteFieldsBeyond(tokens.rest(), "*DLOAD");
    }
}

void DeckStore::beginShellSection(std::string_view material, std::string_view elset) {
    shellSection_.takeFrom(model_.shellSections);
    thickness_ = 0.0;
    hasThickness_ = false;
    shellSection_->material = material;
    shellSection_->elset = elset;
}

void DeckStore::setThickness(std::string_view line) {
    text::Scan scan(line);
    const bool isNumber = scan.real(thickness_);
    shellSection_->thickness = thickness_;
    if (areNoted_) [[unlikely]]
        noteThickness(line, isNumber, scan.rest());
    hasThickness_ = hasThickness_ || isNumber;
}

}  // namespace kvocaeio::abaqus
