/// Storing the values of the data lines.
#include "abaqus/deck_store.h"

#include <vector>

#include "abaqus/deck_lines.h"
#include "text/ascii.h"
#include "text/scan.h"

namespace kvocaeio {

namespace {

// The entry at `index`, which moves on; null behind the end of the table.
template <class Section>
Section* takeEntry(std::vector<Section>& table, std::size_t& index) {
    return index < table.size() ? &table[index++] : nullptr;
}

// Reads the token at `at`, which is not at a delimiter, into `value`, as "%d" reads it. Gives the
// token's end.
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

bool DeckStore::addNode(std::string_view line) {
    NodeBlock& block = model_.nodeBlock;
    if (nodeRow_ == block.ids.size())
        return true;
    double* const coord = &block.coords[3 * nodeRow_];
    text::Scan scan(line);
    return scan.integer(block.ids[nodeRow_++]) && scan.separator(',') && scan.real(coord[0]) &&
           scan.separator(',') && scan.real(coord[1]) && scan.separator(',') && scan.real(coord[2]);
}

void DeckStore::beginElements(std::string_view typeName, std::string_view elset, ElementType type) {
    elements_ = takeEntry(model_.elemSections, elementSections_);
    elementRow_ = 0;
    elementNumber_ = 0;
    if (elements_ == nullptr)
        return;
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
    if (elements_ == nullptr || elementRow_ == elements_->ids.size())
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
    elset_ = takeEntry(model_.elsets, elsets_);
    if (elset_ == nullptr)
        return;
    elset_->name = name;
    if (generated)
        elset_->parameter = "GENERATE";
}

bool DeckStore::addMembers(std::string_view line) {
    text::foldToUpper(line, folded_);
    text::Tokens tokens(folded_);
    for (std::string_view token; elset_ != nullptr && tokens.next(kDataField, token);)
        elset_->members.emplace_back(token);
    return true;
}

// The last line counts that holds a number at all. A missing end is the start, a missing step 1.
bool DeckStore::setRange(std::string_view line) {
    int start = 0;
    text::Scan scan(line);
    if (!scan.integer(start))
        return false;
    int end = start;
    int step = 1;
    const bool complete =
        scan.literal(',') && scan.integer(end) && scan.literal(',') && scan.integer(step);
    if (elset_ != nullptr) {
        elset_->genStart = start;
        elset_->genEnd = end;
        elset_->genStep = step > 0 ? step : 1;
    }
    return complete;
}

void DeckStore::beginSurface(std::string_view type, std::string_view name) {
    surface_ = takeEntry(model_.surfaces, surfaces_);
    if (surface_ == nullptr)
        return;
    surface_->type = type;
    surface_->name = name;
}

bool DeckStore::addSurfaceItem(std::string_view line) {
    text::foldToUpper(line, folded_);
    text::Tokens tokens(folded_);
    std::string_view item;
    if (!tokens.next(kDataField, item))
        return false;
    std::string_view face;
    tokens.next(kDataField, face);
    if (surface_ != nullptr) {
        surface_->faces.emplace_back(face);
        surface_->items.emplace_back(item);
    }
    return true;
}

void DeckStore::beginDload() {
    dload_ = takeEntry(model_.dloads, dloads_);
    loadElement_ = 0;
    loadValue_ = 0.0;
}

bool DeckStore::addLoad(std::string_view line) {
    text::Tokens tokens(line);
    std::string_view oid, label, value;
    if (!tokens.next(kDataField, oid))
        return false;
    tokens.next(kDataField, label);
    tokens.next(kDataField, value);
    const bool oidRead = text::Scan(oid).integer(loadElement_);
    const bool valueRead = text::Scan(value).real(loadValue_);
    if (dload_ != nullptr) {
        dload_->values.push_back(loadValue_);
        dload_->faceIdx.emplace_back(label);
        dload_->elemIDs.push_back(loadElement_);
    }
    return oidRead && !label.empty() && valueRead;
}

void DeckStore::beginShellSection(std::string_view material, std::string_view elset) {
    shellSection_ = takeEntry(model_.shellSections, shellSections_);
    thickness_ = 0.0;
    if (shellSection_ == nullptr)
        return;
    shellSection_->material = material;
    shellSection_->elset = elset;
}

bool DeckStore::setThickness(std::string_view line) {
    const bool read = text::Scan(line).real(thickness_);
    if (shellSection_ != nullptr)
        shellSection_->thickness = thickness_;
    return read;
}

}  // namespace kvocaeio
