/// Lines put together to cards.
#include "tidy/nastran/card_reader.h"

#include <algorithm>

#include "text/ascii.h"

namespace kvocaeio::tidy::nastran {

namespace {

bool startsWithWord(std::string_view line, std::string_view word) {
    return line.size() >= word.size() &&
           std::ranges::equal(line.substr(0, word.size()), word, {}, text::toUpper) &&
           (line.size() == word.size() || line[word.size()] < '0');  // a blank, quote or comma
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
    line_ = &splitter_.split(sources_.line());
    return true;
}

bool CardReader::next() {
    if (repeats_ > 0) {
        --repeats_;
        return replicate() || next();
    }
    while (takeLine()) {
        if (line_->isBlank || takeStatement())
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
}

// The name stands in quotes, which may be closed on a later line, or ends with the line.
void CardReader::takeInclude(std::string_view rest) {
    constexpr int kMostLines = 32;
    const LineInFile place = lineInFile();
    if (rest.starts_with('='))
        rest = trimmed(rest.substr(1));
    const char quote = rest.empty() ? '\0' : rest[0];
    if (quote != '\'' && quote != '"') {
        const std::string name(trimmed(rest.substr(0, rest.find('$'))));
        if (!name.empty()) {
            sources_.include(name);
            return;
        }
    } else {
        std::string name;
        rest.remove_prefix(1);
        for (int lines = 0; lines < kMostLines; ++lines) {
            const std::size_t end = rest.find(quote);
            name += trimmed(rest.substr(0, end));
            if (end != std::string_view::npos && !name.empty()) {
                sources_.include(name);
                return;
            }
            if (end != std::string_view::npos || !sources_.next())
                break;
            rest = sources_.line();
        }
    }
    sources_.noteAt(Finding::kIncludeName, place.file, place.line, 1, "INCLUDE");
    isIncomplete_ = true;
}

void CardReader::readCard(Card& card) {
    card.begin(*line_, lineInFile());
    lastMark_ = markText(line_->mark);
    addContinuations(card);
}

// Comments and blank lines between the lines of a card do not end it.
void CardReader::addContinuations(Card& card) {
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
        lastMark_ = markText(line_->mark);
    }
    if (card.isShort() && !lastMark_.empty())
        addStrayLines(card);
}

// Where one of both lines has no mark, the place decides.
bool CardReader::belongsToLast(std::string_view field) const {
    const std::string_view mark = markOf(field);
    if (mark.empty())
        return true;
    if (lastMark_.empty())
        return unmet_.empty() || !unmet_.contains(markText(field));
    return std::ranges::equal(mark, lastMark_, {}, text::toUpper);
}

void CardReader::keepStray() {
    std::string mark = markText(line_->first.text);
    if (!strayLines_.areKnown && !mark.empty())
        strayLines_.byMark.try_emplace(
            std::move(mark), StrayLines::Line{std::string(sources_.line()), lineInFile()});
}

void CardReader::addStrayLines(Card& card) {
    constexpr int kMostLines = 10;  // a chain of marks may be a ring
    for (int lines = 0; lines < kMostLines && card.isShort(); ++lines) {
        unmet_.insert(lastMark_);
        strayLines_.areWanted = true;
        const auto found = strayLines_.byMark.find(lastMark_);
        if (found == strayLines_.byMark.end() || !strayLines_.areKnown)
            return;
        const SplitLine& line = straySplitter_.split(found->second.text);
        const LineInFile place = found->second.place;
        sources_.noteAt(Finding::kContinuationElsewhere, place.file, place.line, 1,
                        found->second.text, card.name());
        card.add(line, place);
        lastMark_ = markText(line.mark);
    }
}

}  // namespace kvocaeio::tidy::nastran
