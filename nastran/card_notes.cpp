/// What a card loses on its way, by the numbers that were read and where they were read.
#include "nastran/card_notes.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <string>

#include "nastran/tables.h"
#include "nastran/unread_lines.h"
#include "text/scan.h"

namespace kvocaeio::nastran {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool isZero(std::string_view field) {
    return field.find_first_not_of("0.-") == std::string_view::npos;
}

// A digit or point, and a D behind it.
bool hasExponentD(std::string_view field) {
    const std::size_t at = field.find_first_of("Dd");
    return at != std::string_view::npos && at > 0 &&
           (text::isDigit(field[at - 1]) || field[at - 1] == '.');
}

}  // namespace

void CardNotes::hear(const ReadCard& read) noexcept {
    try {
        if (!isBegun_)
            makeRowSets();
        if (lines_.isHidden())
            lines_.note(Finding::kLineHidden);
        isSecondRead_ = true;
        if (lines_.card().isMerged())
            hearSecondLine();
        if (read.rule != nullptr)
            hearCard(read);
        else
            hearOther(nullptr);
    } catch (const std::bad_alloc&) {
        if (!isIncomplete_)
            lines_.noteIncomplete();
        isIncomplete_ = true;
    }
}

CardNotes::Fields CardNotes::fields() const {
    Fields fields{layOut(lines_.firstLine()), {}};
    if (lines_.card().isMerged())
        fields.second = layOut(lines_.secondLine());
    return fields;
}

void CardNotes::makeRowSets() {
    isBegun_ = true;
    if (lines_.firstLine().starts_with(kByteOrderMark))
        lines_.note(Finding::kByteOrderMark);
    const std::size_t elements = text::asSize(tables_.extent.maxElemId);
    tables_.nodeRows = RowSet(text::asSize(tables_.extent.maxNodeId));
    tables_.elementRows = RowSet(elements);
    tables_.shellRows = RowSet(elements);
}

void CardNotes::hearSecondLine() {
    const std::string_view second = lines_.secondLine();
    const bool isComment = second.starts_with('$');
    const bool isCard = !nameOf(second.substr(0, kFieldWidth)).empty();
    const CardRule* const rule = isCard ? ruleIn(second) : nullptr;
    const bool isLoss = rule != nullptr && rule->code != CardCode::kNone;
    if (!lines_.isOwnContinuation() && !isComment && !isCard)
        return;
    const bool isHexa = holds(lines_.firstLine(), "CHEXA") && !lines_.card().isComment();
    const std::string_view taker = isHexa                      ? "CHEXA"
                                   : lines_.card().isComment() ? "a comment"
                                                               : "CQUAD8";
    isSecondRead_ = false;
    if (lines_.isOwnContinuation() || (isCard && !isLoss)) {
        if (isHexa)
            lines_.note(Finding::kContinuationMissing, taker);
    } else if (isCard) {
        lines_.noteSecond(Finding::kCardSwallowed, taker);
    } else if (isHexa) {
        lines_.noteSecond(Finding::kContinuationComment, taker);
    }
}

void CardNotes::hearCard(const ReadCard& read) {
    const CardRule& rule = *read.rule;
    const std::string_view name = read.isNormalised ? nameOf(lines_.firstLine()) : rule.name;
    if (rule.code == CardCode::kNone)
        return name.starts_with(rule.name) ? hearShell(name) : hearOther(&rule);
    if (name != rule.name)
        return hearByOtherName(rule, name);
    if (hasEnded_)
        lines_.note(Finding::kAfterEnd, rule.name);
    parent_ = &rule;
    isParentLarge_ = read.isNormalised && holds(lines_.firstLine().substr(0, kFieldWidth), "*");
    isToldOfMore_ = !isSecondRead_;
    const bool isMisread = (read.isNormalised || rule.hasFiller) && noteMisread(read);
    if (isMisread && hasRow(rule))
        rowsOf(rule).add(row());
    if (isMisread && !rule.hasFiller)
        isToldOfMore_ = true;
    if (rule.nodes >= 4)
        hearMoreNodes(rule);
    if (isMisread)
        return;
    if (rule.floats > 0)
        return hearProperty(rule);
    if (rule.code == CardCode::kGrid)
        hearNode();
    else
        hearElement(rule);
    hearRow(rule);
}

// Told only where the line changes something: the words of a title are no numbers, and what they
// keep of an earlier card is stored once more.
void CardNotes::hearByOtherName(const CardRule& rule, std::string_view name) {
    if (changesRow(rule)) {
        const std::string_view line = name.empty() ? "a continuation" : name;
        lines_.note(Finding::kNameInside, std::string(line) + " as " + std::string(rule.name));
        if (hasRow(rule))
            rowsOf(rule).add(row());
        parent_ = nullptr;
    } else {
        hearOther(&rule);
    }
}

void CardNotes::hearShell(std::string_view name) {
    parent_ = nullptr;
    lines_.note(Finding::kShellEmpty, name);
    int oid = 0;
    int property = 0;
    if (!readFixedOids(lines_.firstLine(), oid, property)) {
        normalised_.normalise(lines_.firstLine(), LineFeeds::kKeep);
        if (!scanOids(normalised_.view(), oid, property))
            return;
    }
    tables_.shellRows.add(text::asSize(oid) - 1);
}

void CardNotes::hearNode() {
    if (reader_.numbers().ints[1] != 0)
        lines_.note(Finding::kCoordinateSystem, fields()[1], {});
}

void CardNotes::hearElement(const CardRule& rule) {
    const auto& ints = reader_.numbers().ints;
    const std::size_t known =
        isSecondRead_ ? rule.ints() : std::min(rule.ints(), kFirstLineNumbers);
    const auto* const missing = std::find(ints.begin() + 2, ints.begin() + known, 0);
    const auto number = static_cast<std::size_t>(missing - ints.begin());
    if (number < known)
        lines_.note(Finding::kNodeMissing, fields()[number], rule.name);
}

// Mid-side nodes stand behind the corners, on the same line or on those that follow.
void CardNotes::hearMoreNodes(const CardRule& rule) {
    const std::size_t corners = rule.ints();
    const std::size_t columns = (1 + corners % kFirstLineNumbers) * kFieldWidth;
    const std::string_view line = rule.hasFiller ? lines_.secondLine() : lines_.firstLine();
    if (isToldOfMore_ || corners == kFirstLineNumbers || line.size() <= columns + 1)
        return;
    const Fields all = fields();
    for (std::size_t number = corners; number % kFirstLineNumbers != 0; ++number)
        if (!all[number].empty()) {
            isToldOfMore_ = true;
            return lines_.note(Finding::kMidsideNodes, all[number], rule.name);
        }
}

void CardNotes::hearProperty(const CardRule& rule) {
    const float value = reader_.numbers().floats[0];
    const bool fits = std::abs(value) < -static_cast<float>(std::numeric_limits<int>::min());
    if (!fits || std::trunc(value) != value)
        lines_.note(fits ? Finding::kPropertyFraction : Finding::kPropertyNoNumber, fields()[2],
                    rule.name);
}

void CardNotes::hearRow(const CardRule& rule) {
    if (!hasRow(rule))
        lines_.note(Finding::kOidDropped, fields()[0], rule.name);
    else if (rowsOf(rule).contains(row()) && !isInRow(rule, reader_.numbers(), tables_))
        lines_.note(Finding::kOidTwice, fields()[0], rule.name);
    else
        rowsOf(rule).add(row());
}

void CardNotes::hearOther(const CardRule* readAs) {
    const std::string_view line = lines_.firstLine();
    const std::size_t first = line.find_first_not_of(" \t\r\n");
    if (lines_.card().isComment() || first == std::string_view::npos)
        return;
    if (line[first] == '=')
        return lines_.note(Finding::kReplication);
    if (!nameOf(line.substr(0, kFieldWidth)).empty()) {
        parent_ = nullptr;
        hasEnded_ = hasEnded_ || nameOf(line) == "ENDDATA";
        return noteUnreadLine(lines_, readAs);
    }
    if (parent_ == nullptr || isToldOfMore_)
        return;
    isToldOfMore_ = true;
    if (isParentLarge_)
        return hearLargeContinuation();
    lines_.note(parent_->nodes >= 4 ? Finding::kMidsideNodes : Finding::kContinuationPassed,
                parent_->name);
}

// What the first line of large fields has no room for reads as zero.
void CardNotes::hearLargeContinuation() {
    constexpr std::size_t kLargeNumbers = 4;
    const LineLayout layout = layOut(lines_.firstLine());
    for (std::size_t number = kLargeNumbers; number < numbersOf(*parent_); ++number) {
        const std::string_view field = layout.fields[1 + number % kLargeNumbers];
        if (!isZero(field))
            return lines_.note(Finding::kLargeField, field, parent_->name);
    }
}

// Notes the first number that was not read from its own field.
bool CardNotes::noteMisread(const ReadCard& read) {
    const CardRule& rule = *read.rule;
    // What is read at a glance has a zero for the seventh node, and the others are sound.
    if (!read.isNormalised && !isSecondRead_)
        return false;
    if (!read.isNormalised) {
        const std::string_view seventh = layOut(lines_.secondLine()).fields[1];
        if (!isZero(seventh)) {
            lines_.note(Finding::kHexaNodeLost, seventh, rule.name);
            return true;
        }
    }
    const Fields all = fields();
    CardReader::Origins origins = reader_.origins(lines_.card(), read);
    const std::size_t numbers = numbersOf(rule);
    for (std::size_t number = 0; number < numbers; ++number) {
        NumberOrigin origin;
        const bool isRead = origins.next(origin);
        const double value = valueOf(rule, number);
        const std::string_view field = all[number];
        if (isRead ? isField(field, origin, value) : field.empty() && value == 0)
            continue;
        const bool isFiller = isRead && origin.end == 0 && number >= kFirstLineNumbers;
        lines_.note(isFiller ? Finding::kHexaNodeLost : misreadKind(all, number, isRead), field,
                    rule.name);
        return true;
    }
    return false;
}

Finding CardNotes::misreadKind(const Fields& fields, std::size_t number, bool isRead) const {
    if (number >= kFirstLineNumbers)
        return Finding::kContinuationMisread;
    const std::string_view field = fields[number];
    switch (fields.first.form) {
        case LineForm::kFree:
            return Finding::kFreeField;
        case LineForm::kLarge:
            return Finding::kLargeField;
        case LineForm::kTabs:
            return Finding::kTab;
        case LineForm::kFixed:
            break;
    }
    if (field.find('+') != std::string_view::npos)
        return field[0] == '+' ? Finding::kSignTorn : Finding::kExponentTorn;
    if (hasExponentD(field))
        return Finding::kExponentD;
    return isRead ? Finding::kFieldMisread : Finding::kFieldStale;
}

// Zeros may come from anywhere, and zeros before a number may be cleared.
bool CardNotes::isField(std::string_view field, const NumberOrigin& origin, double value) const {
    if (value == 0 && isZero(field))
        return true;
    if (origin.end == 0 || field.empty())
        return false;
    const std::string_view part = lines_.part(origin.begin, origin.end);
    if (part.data() + part.size() != field.data() + field.size() || part.size() > field.size())
        return false;
    return field.find_first_not_of('0') >= field.size() - part.size();
}

double CardNotes::valueOf(const CardRule& rule, std::size_t number) const {
    const CardNumbers& numbers = reader_.numbers();
    if (number < rule.ints())
        return numbers.ints[number];
    return rule.doubles > 0 ? numbers.doubles[number - rule.ints()]
                            : static_cast<double>(numbers.floats[number - rule.ints()]);
}

// Of the numbers that are read, those that are stored.
std::size_t CardNotes::numbersOf(const CardRule& rule) const {
    const std::size_t numbers = rule.ints() + rule.doubles + std::min<std::size_t>(rule.floats, 1);
    return isSecondRead_ ? numbers : std::min(numbers, kFirstLineNumbers);
}

bool CardNotes::hasRow(const CardRule& rule) const {
    const DeckExtent& extent = tables_.extent;
    const int rows = rule.code == CardCode::kGrid ? extent.maxNodeId
                     : rule.nodes > 0             ? extent.maxElemId
                                                  : 0;
    return row() < text::asSize(rows);
}

bool CardNotes::changesRow(const CardRule& rule) {
    if (rule.floats > 0)
        return true;
    return hasRow(rule) &&
           !(rowsOf(rule).contains(row()) && isInRow(rule, reader_.numbers(), tables_));
}

void CardNotes::finish(std::span<const SectionRow> sections) {
    for (const SectionRow& section : sections.subspan(tables_.sectionRows))
        lines_.noteNowhere(Finding::kPropertyDropped, "property " + std::to_string(section[0]));
}

}  // namespace kvocaeio::nastran
