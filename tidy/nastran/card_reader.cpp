/// Lines put together to cards.
#include "tidy/nastran/card_reader.h"

#include <algorithm>

#include "text/ascii.h"

namespace kvocaeio::tidy::nastran {

namespace {

bool startsWithWord(std::string_view line, std::string_view word) {
    return line.size() >= word.size() &&
           std::ranges::equal(line.substr(0, word.size()), word, {}, text::toUpper) &&
           (line.size() == word.size() || line[word.size()] < '0' || line[word.size()] == '=');
}

std::string markText(std::string_view field) {
    std::string mark;
    text::foldToUpper(markOf(field), mark);
    return mark;
}

}  // namespace

void CardReader::note(Finding finding, std::size_t field, std::string_view subject) {
    const LineInFile place = card().placeOf(field);
    sources_.noteAt(finding, place.file, place.line, card().columnOf(field), card().field(field),
                    subject);
}

void CardReader::note(Finding finding, std::string_view subject) {
    const LineInFile place = card().place();
    sources_.noteAt(finding, place.file, place.line, 1, card().name(), subject);
}

void CardReader::fail(Finding finding, std::size_t field, std::string_view subject) {
    note(finding, field, subject);
    isIncomplete_ = true;
}

bool CardReader::takeLine() {
    if (isHeld_) {
        isHeld_ = false;
        return true;
    }
    if (!sources_.next())
        return false;
    if (sources_.hasByteOrderMark())
        sources_.note(Finding::kByteOrderMark);
    line_ = &splitter_.split(sources_.line());
    return true;
}

bool CardReader::next() {
    if (repeats_ > 0)
        return replicate() || next();
    while (takeLine()) {
        if (line_->isBlank || takeStatement())
            continue;
        if (skipsControl_ && !hasLeftControl_)
            continue;
        if (line_->isContinuation()) {
            keepStray();
            continue;
        }
        if (line_->first.text[0] == '=') {
            if (readReplication())
                return true;
            continue;
        }
        current_ = 1 - current_;
        readCard(cards_[current_]);
        hasCard_ = true;
        hasTemplate_ = false;
        isInBulk_ = isInBulk_ || card().rule() != nullptr;
        return true;
    }
    return false;
}

bool CardReader::takeStatement() {
    const std::string_view line = sources_.line().substr(line_->indent);
    switch (text::toUpper(line[0])) {
        case 'I':
            if (!startsWithWord(line, "INCLUDE"))
                return false;
            takeInclude(trimmed(line.substr(7)));
            return true;
        case 'B':
            if (!startsWithWord(line, "BEGIN"))
                return false;
            takeBegin(line);
            return true;
        case 'C':
            hasControl_ = hasControl_ || startsWithWord(line, "CEND");
            return false;
        case 'E':
            if (!startsWithWord(line, "ENDDATA"))
                return false;
            sources_.endDeck();
            return true;
        default:
            return false;
    }
}

void CardReader::takeBegin(std::string_view line) {
    const std::string_view rest = trimmed(line.substr(5));
    const bool isBulk = startsWithWord(rest, "BULK");
    const std::string_view model = isBulk ? trimmed(rest.substr(4)) : rest;
    if (!model.empty() && model[0] != '$')
        sources_.note(Finding::kOtherModel, model, model);
    isInBulk_ = true;
    hasLeftControl_ = hasControl_;
}

// The name stands in quotes, which may be closed on a later line, or ends with the line, unless
// that ends with a folder.
void CardReader::takeInclude(std::string_view rest) {
    constexpr int kMostLines = 32;
    const LineInFile place = lineInFile();
    if (rest.starts_with('='))
        rest = trimmed(rest.substr(1));
    const bool isOnNextLine = rest.empty() || rest[0] == '$';
    if (isOnNextLine && sources_.next())
        rest = trimmed(sources_.line());
    const bool isQuoted = rest.starts_with('\'') || rest.starts_with('"');
    const char end = isQuoted ? rest[0] : '$';
    if (isQuoted)
        rest.remove_prefix(1);
    std::string name;
    for (int lines = 0; lines < kMostLines; ++lines) {
        const std::size_t at = rest.find(end);
        const std::string_view piece = trimmed(rest.substr(0, at));
        name += piece;
        const bool goesOn =
            isQuoted ? at == std::string_view::npos : piece.ends_with('/') || piece.ends_with('\\');
        if (!goesOn && !name.empty()) {
            sources_.include(name);
            return;
        }
        if (!goesOn || !sources_.next())
            break;
        rest = sources_.line();
    }
    sources_.noteAt(Finding::kIncludeName, place.file, place.line, 1, "INCLUDE");
    isIncomplete_ = true;
}

void CardReader::readCard(Card& card) {
    card.begin(*line_, lineInFile());
    keepMark(*line_);
    addContinuations(card);
}

void CardReader::keepMark(const SplitLine& line) {
    lastMark_ = markText(line.mark);
    isMarkSigned_ = line.mark.starts_with('+') || line.mark.starts_with('*');
}

// Comments and blank lines between the lines of a card do not end it.
void CardReader::addContinuations(Card& card) {
    const bool mayBeData = isFree(line_->form) && !isMarkSigned_;
    bool isContinued = false;
    while (takeLine()) {
        if (line_->isBlank)
            continue;
        if (!line_->isContinuation()) {
            isHeld_ = true;
            break;
        }
        if (!belongsToLast(line_->first.text)) {
            keepStray();
            continue;
        }
        // A card that needs no more may stand before that of another one.
        if (lastMark_.empty() && card.rule() != nullptr && !card.isShort())
            keepStray();
        card.add(*line_, lineInFile());
        keepMark(*line_);
        isContinued = true;
    }
    if (!card.isShort() || lastMark_.empty())
        return;
    isContinued = addStrayLines(card) || isContinued;
    // One field more than a line has, where no other line has its text for a mark.
    if (mayBeData && !isContinued)
        card.addText(lastMark_);
}

// Where one of both lines has no mark, the place decides. The first column of a mark need not be a
// plus sign: the others are compared.
bool CardReader::belongsToLast(std::string_view field) const {
    const std::string mark = markText(field);
    if (mark.empty())
        return true;
    if (lastMark_.empty())
        return unmet_.empty() || !unmet_.contains(mark);
    return mark == lastMark_ || (!isMarkSigned_ && mark == lastMark_.substr(1));
}

void CardReader::keepStray() {
    std::string mark = markText(line_->first.text);
    if (!strayLines_.areKnown && !mark.empty())
        strayLines_.byMark.try_emplace(
            std::move(mark), StrayLines::Line{std::string(sources_.line()), lineInFile()});
}

bool CardReader::addStrayLines(Card& card) {
    constexpr int kMostLines = 10;  // a chain of marks may be a ring
    for (int lines = 0; lines < kMostLines && card.isShort(); ++lines) {
        unmet_.insert(lastMark_);
        strayLines_.areWanted = true;
        auto found = strayLines_.byMark.find(lastMark_);
        if (found == strayLines_.byMark.end() && !isMarkSigned_ && !lastMark_.empty())
            found = strayLines_.byMark.find(lastMark_.substr(1));
        if (found == strayLines_.byMark.end() || !strayLines_.areKnown)
            return lines > 0;
        const SplitLine& line = straySplitter_.split(found->second.text);
        const LineInFile place{sources_.fileRowOf(strayLines_.files[found->second.place.file]),
                               found->second.place.line};
        sources_.noteAt(Finding::kContinuationElsewhere, place.file, place.line, 1,
                        found->second.text, card.name());
        card.add(line, place);
        keepMark(line);
    }
    return true;
}

}  // namespace kvocaeio::tidy::nastran
