/// Data lines looked at once more, for the wording and the columns of their findings. What is found
/// follows from what the store has read.
#include <limits>
#include <string_view>

#include "abaqus/deck_store.h"
#include "abaqus/keyword_notes.h"
#include "text/scan.h"

namespace kvocaeio::abaqus {

namespace {

using text::trimSpace;

// Whether nothing but separators is there.
bool isVoid(std::string_view text) {
    std::string_view token;
    return !text::Tokens(trimSpace(text)).next(kDataField, token);
}

// Whether no map covers the OID, or it may have been larger in the deck.
bool isOutOfRange(int oid) {
    return oid <= 0 || oid == std::numeric_limits<int>::max();
}

bool isWholeNumber(std::string_view field) {
    int number = 0;
    text::Scan scan(field);
    return scan.integer(number) && trimSpace(scan.rest()).empty();
}

// The field after `number` commas, or after the last one where there are fewer, without blanks.
std::string_view fieldAt(std::string_view line, std::size_t number) {
    for (; number > 0; --number)
        line.remove_prefix(line.find(',') + 1);  // 0 where there is no further comma
    return trimSpace(line.substr(0, line.find(',')));
}

// Whether an exponent that begins with D stands after a number.
bool isExponentD(std::string_view rest) {
    if (rest.size() < 2 || (rest[0] != 'D' && rest[0] != 'd'))
        return false;
    const bool hasSign = rest[1] == '+' || rest[1] == '-';
    return rest.size() > (hasSign ? 2U : 1U) && text::isDigit(rest[hasSign ? 2 : 1]);
}

}  // namespace

// A keyword that is data here since blanks stand before it.
bool DeckStore::noteKeywordInData(std::string_view line) {
    const std::string_view text = trimSpace(line);
    if (!text.starts_with('*') || text.starts_with("**"))
        return false;
    noteIndentedKeyword(lines_, text);
    return true;
}

// `field` commas were read; `isWhole` if all four fields were.
void DeckStore::noteNode(std::string_view line, std::size_t field, bool isWhole,
                         std::string_view rest) {
    if (lines_.continuesKeyword())
        return;
    std::string_view text = fieldAt(line, field);
    if (!isWhole) {
        double number = 0;
        int oid = 0;
        text::Scan scan(text);
        const bool isNumber = field == 0 ? scan.integer(oid) : scan.real(number);
        if (field == 0 && !isNumber) {
            if (!noteKeywordInData(line))
                lines_.note(Finding::kNodeWithoutNumber);
            return;
        }
        rest = isNumber ? scan.rest() : std::string_view();
        const auto behind = static_cast<std::size_t>(text.data() + text.size() - line.data());
        if (isNumber ? rest.empty() : isVoid(line.substr(behind)) && text.empty())
            lines_.note(Finding::kCoordinateMissing);
        else
            lines_.note(isExponentD(rest) ? Finding::kExponentTorn : Finding::kNodeCutShort, text,
                        text.empty() ? "an empty field" : "");
    } else if (const std::string_view beyond = trimSpace(rest); beyond.starts_with(',')) {
        noteFieldsBeyond(beyond, "*NODE");
    } else if (!beyond.empty()) {
        lines_.note(isExponentD(rest) ? Finding::kExponentTorn : Finding::kNodeCutShort, text);
    }
    if (isOutOfRange(model_.nodeBlock.ids[nodeRow_ - 1]))
        lines_.note(Finding::kOidOutOfRange, fieldAt(line, 0));
}

void DeckStore::noteElementNumber(std::string_view field, bool isNumber, std::string_view rest) {
    if (!lines_.areNoted() || lines_.continuesKeyword())
        return;
    const std::string_view line = lines_.line();
    const std::string_view text = trimSpace(line);
    if (text.starts_with('*')) {  // once for the line
        if (field.data() > text.data())
            return;
        if (!line.starts_with('*') && !oidTaken_ && noteKeywordInData(line))
            return;
        return lines_.note(Finding::kElementRunsOn, text);
    }
    if (!isNumber)
        lines_.note(Finding::kElementFieldStale, field);
    else if (!trimSpace(rest).empty())
        lines_.note(Finding::kFieldTorn, field);
    else if (isOutOfRange(elementNumber_))
        lines_.note(Finding::kOidOutOfRange, field);
}

void DeckStore::noteElementFieldsBeyond(std::string_view rest) {
    const bool isKnown = elements_->geometryType != GeometryType::kUnknown;
    std::string_view field;
    if (isKnown && text::Tokens(trimSpace(rest)).next(kDataField, field) && !lines_.isRepeated() &&
        !trimSpace(lines_.line()).starts_with('*'))
        lines_.note(Finding::kElementNodesIgnored, field, trimSpace(elements_->type));
}

void DeckStore::noteFieldsBeyond(std::string_view rest, std::string_view keyword) {
    if (!isVoid(rest))
        lines_.noteNamed(Finding::kFieldsIgnored, keyword);
}

void DeckStore::noteMembers(std::string_view line) {
    if (lines_.continuesKeyword() || noteKeywordInData(line))
        return;
    text::Tokens tokens(line);
    for (std::string_view token; tokens.next(kDataField, token);) {
        int oid = 0;
        text::Scan scan(token);
        if (!scan.integer(oid))
            lines_.note(Finding::kSetMemberName, token);
        else if (!trimSpace(scan.rest()).empty())
            lines_.note(Finding::kFieldTorn, token);
        else if (isOutOfRange(oid))
            lines_.note(Finding::kOidOutOfRange, token);
    }
}

// `fields` numbers of the line were read.
void DeckStore::noteRange(std::string_view line, std::size_t fields) {
    if (!lines_.areNoted() || lines_.continuesKeyword() || isVoid(line) || noteKeywordInData(line))
        return;
    std::size_t written = 0;
    bool areWhole = true;
    text::Tokens tokens(line);
    for (std::string_view field; written < 3 && tokens.next(kDataField, field); ++written)
        areWhole = areWhole && isWholeNumber(field);
    if (written != fields || !areWhole)
        return lines_.note(Finding::kRangeUnread, trimSpace(line));
    if (hasRange_)
        lines_.note(Finding::kRangeReplaced);
    if (elset_->genStep < 1)
        lines_.note(Finding::kRangeStep, trimSpace(line));
    if (elset_->genEnd < elset_->genStart)
        lines_.note(Finding::kRangeBackwards, trimSpace(line));
}

void DeckStore::noteLoad(std::string_view oid, bool isNumber, std::string_view rest) {
    if (lines_.continuesKeyword())
        return;
    if (!isNumber)
        lines_.note(Finding::kLoadBySet, oid);
    else if (!trimSpace(rest).empty())
        lines_.note(Finding::kFieldTorn, oid);
}

void DeckStore::noteThickness(std::string_view line, bool isNumber, std::string_view rest) {
    if (lines_.continuesKeyword() || noteKeywordInData(line))
        return;
    const std::string_view field = fieldAt(line, 0);
    if (!isNumber)
        return lines_.note(Finding::kThicknessUnread, trimSpace(line));
    if (isExponentD(rest))
        lines_.note(Finding::kExponentTorn, field);
    else if (const std::string_view beyond = trimSpace(rest); beyond.starts_with(','))
        noteFieldsBeyond(beyond, "*SHELL SECTION");
    else if (!beyond.empty())
        lines_.note(Finding::kFieldTorn, field);
    if (hasThickness_)
        lines_.note(Finding::kThicknessReplaced);
}

}  // namespace kvocaeio::abaqus
