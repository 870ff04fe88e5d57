/// Storing the values of the data lines.
#include "abaqus/deck_store.h"

#include "text/ascii.h"
#include "text/scan.h"

namespace kvocaeio::abaqus {

namespace {

// Reads the token at `at`, which is not at a delimiter, into `value`, as "%d" reads it. Returns
// the token's end.
const char* readInteger(const char* at, const char* end, int& value) {
    constexpr int kDigitsThatFit = 9;
    const char* const token = at;
    unsigned number = 0;
    for (unsigned digit; at != end && (digit = static_cast<unsigned>(*at) - '0') < 10; ++at)
        number = 10 * number + digit;
    const auto digits = at - token;
    while (at != end && !kDataField.contains(*at))
        ++at;
    if (digits > 0 && digits <= kDigitsThatFit)
        value = static_cast<int>(number);
    else
        text::Scan(std::string_view(token, static_cast<std::size_t>(at - token))).integer(value);
    return at;
}

}  // namespace

// Notes the field after `field` commas, or after the last one where there are fewer.
void DeckStore::noteUnread(std::string_view line, std::size_t field) {
    if (!lines_.areNoted())
        return;
    for (; field > 0; --field)
        line.remove_prefix(line.find(',') + 1);  // 0 where there is no further comma
    std::string_view unread;
    text::Tokens(line.substr(0, line.find(','))).next(kKeywordField, unread);
    lines_.noteField(Finding::kFieldUnread, text::trimBlanks(unread));
}

void DeckStore::addNode(std::string_view line) {
    NodeBlock& block = model_.nodeBlock;
    if (nodeRow_ == block.ids.size())
        return;
    double* const coord = &block.coords[3 * nodeRow_];
    std::size_t field = 0;
    text::Scan scan(line);
    const auto nextField = [&] { return scan.separator(',') && ++field > 0; };
    if (!(scan.integer(block.ids[nodeRow_++]) && nextField() && scan.real(coord[0]) &&
          nextField() && scan.real(coord[1]) && nextField() && scan.real(coord[2])))
        noteUnread(line, field);
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
        at = readInteger(at, end, elementNumber_);
        storeElementNumber();
    }
    return taken;
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
}

void DeckStore::addMembers(std::string_view line) {
    text::foldToUpper(line, folded_);
    text::Tokens tokens(folded_);
    for (std::string_view token; tokens.next(kDataField, token);)
        elset_->members.emplace_back(token);
}

// The last line counts that holds a number at all. A missing end is the start, a missing step 1.
void DeckStore::setRange(std::string_view line) {
    int start = 0;
    text::Scan scan(line);
    if (!scan.integer(start))
        return noteUnread(line, 0);
    int end = start;
    int step = 1;
    std::size_t field = 0;
    const auto nextField = [&] { return scan.literal(',') && ++field > 0; };
    if (!(nextField() && scan.integer(end) && nextField() && scan.integer(step)))
        noteUnread(line, field);
    elset_->genStart = start;
    elset_->genEnd = end;
    elset_->genStep = step;
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
        return lines_.note(Finding::kLineWithoutEntry);
    std::string_view face;
    tokens.next(kDataField, face);
    surface_->faces.emplace_back(face);
    surface_->items.emplace_back(item);
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
        return lines_.note(Finding::kLineWithoutEntry);
    tokens.next(kDataField, label);
    tokens.next(kDataField, value);
    if (!text::Scan(oid).integer(loadElement_))
        lines_.noteField(Finding::kFieldUnread, oid);
    if (!text::Scan(value).real(loadValue_))
        lines_.noteField(Finding::kFieldUnread, value);
    dload_->values.push_back(loadValue_);
    dload_->faceIdx.emplace_back(label);
    dload_->elemIDs.push_back(loadElement_);
}

void DeckStore::beginShellSection(std::string_view material, std::string_view elset) {
    shellSection_.takeFrom(model_.shellSections);
    thickness_ = 0.0;
    shellSection_->material = material;
    shellSection_->elset = elset;
}

void DeckStore::setThickness(std::string_view line) {
    if (!text::Scan(line).real(thickness_))
        noteUnread(line, 0);
    shellSection_->thickness = thickness_;
}

}  // namespace kvocaeio::abaqus
