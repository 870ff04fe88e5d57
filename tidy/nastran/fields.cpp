/// Columns, commas, tabs and comments.
#include "tidy/nastran/fields.h"

#include <algorithm>
#include <cstring>

#include "text/eight_columns.h"
#include "text/scan.h"

namespace kvocaeio::tidy::nastran {

namespace {

constexpr std::size_t kSmallWidth = 8;
constexpr std::size_t kLargeWidth = 16;
constexpr std::size_t kMarkColumn = 72;
constexpr std::size_t kLastColumn = 80;

// A comment begins with a dollar sign that stands in no quotes.
std::string_view withoutComment(std::string_view line) {
    if (line.find('$') == std::string_view::npos)
        return line;
    bool isQuoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '\'')
            isQuoted = !isQuoted;
        else if (line[i] == '$' && !isQuoted)
            return line.substr(0, i);
    }
    // A quote that is never closed is none.
    return isQuoted ? line.substr(0, line.find('$')) : line;
}

struct SpecialCharacters {
    bool hasComma = false;
    bool hasTab = false;
    bool hasDollar = false;
};

// Eight characters at a time.
SpecialCharacters lookFor(std::string_view line) {
    // The highest bit of each byte that is `c`; those of further bytes may be set only then.
    const auto find = [](std::uint64_t word, char c) {
        word ^= text::inEachByte(static_cast<unsigned char>(c));
        return (word - text::inEachByte(1)) & ~word & text::inEachByte(0x80);
    };
    std::uint64_t commas = 0;
    std::uint64_t tabs = 0;
    std::uint64_t dollars = 0;
    const auto take = [&](const char* at, std::size_t size) {
        std::uint64_t word = 0;
        std::memcpy(&word, at, size);
        commas |= find(word, ',');
        tabs |= find(word, '\t');
        dollars |= find(word, '$');
    };
    constexpr std::size_t kWord = sizeof(std::uint64_t);
    if (line.size() < kWord) {
        take(line.data(), line.size());
    } else {
        for (std::size_t at = 0; at + kWord < line.size(); at += kWord)
            take(line.data() + at, kWord);
        take(line.data() + line.size() - kWord, kWord);
    }
    return {commas != 0, tabs != 0, dollars != 0};
}

bool isMark(std::string_view text) {
    return !text.empty() && (text[0] == '+' || text[0] == '*');
}

}  // namespace

std::string_view markOf(std::string_view field) {
    if (isMark(field))
        field.remove_prefix(1);
    return trimmed(field);
}

const SplitLine& LineSplitter::split(std::string_view line) {
    const SpecialCharacters found = lookFor(line);
    if (found.hasDollar)
        line = withoutComment(line);
    out_.data.clear();
    out_.columns = {};
    out_.first = {};
    out_.mark = {};
    out_.form = LineForm::kSmall;
    out_.hasTabs = found.hasTab && line.find('\t') != std::string_view::npos;
    out_.indent = 0;
    while (out_.indent < line.size() && text::isSpace(line[out_.indent]))
        ++out_.indent;
    out_.isBlank = out_.indent == line.size();
    columns_.clear();
    if (out_.isBlank)
        return out_;
    if (found.hasComma && line.find(',') != std::string_view::npos) {
        splitFree(line);
        return out_;
    }
    if (out_.hasTabs) {
        expandTabs(line);
        line = expanded_;
    }
    splitFixed(line);
    return out_;
}

void LineSplitter::expandTabs(std::string_view line) {
    expanded_.clear();
    for (std::size_t i = 0; i < line.size() && expanded_.size() < kLastColumn; ++i) {
        const std::size_t count =
            line[i] == '\t' ? kSmallWidth - expanded_.size() % kSmallWidth : 1;
        expanded_.append(count, line[i] == '\t' ? ' ' : line[i]);
        columns_.resize(expanded_.size(), static_cast<std::uint32_t>(i));
    }
}

Field LineSplitter::fieldAt(std::string_view line, std::size_t begin, std::size_t end) const {
    begin = std::min(begin, line.size());
    const std::string_view text = trimmed(line.substr(begin, end - begin));
    if (text.empty())
        return {{}, 0};
    const auto at = static_cast<std::size_t>(text.data() - line.data());
    return {text, (columns_.empty() ? static_cast<std::uint32_t>(at) : columns_[at]) + 1};
}

// Tells the form by the star behind a name or before a mark.
void LineSplitter::takeFirst(Field field, bool isFree) {
    bool isLarge = !field.text.empty() && field.text[0] == '*';
    if (!isLarge && field.text.ends_with('*')) {
        isLarge = true;
        field.text.remove_suffix(1);
        field.text = trimmed(field.text);
    }
    out_.first = field;
    if (isFree)
        out_.form = isLarge ? LineForm::kLargeFree : LineForm::kFree;
    else
        out_.form = isLarge ? LineForm::kLarge : LineForm::kSmall;
}

void LineSplitter::splitFixed(std::string_view line) {
    takeFirst(fieldAt(line, 0, kSmallWidth), false);
    const std::size_t width = isLarge(out_.form) ? kLargeWidth : kSmallWidth;
    if (out_.isInColumns())
        out_.columns = line.substr(std::min(kSmallWidth, line.size()), kMarkColumn - kSmallWidth);
    else
        for (std::size_t at = kSmallWidth; at < kMarkColumn; at += width)
            out_.data.push_back(fieldAt(line, at, at + width));
    if (line.size() > kMarkColumn)
        out_.mark = fieldAt(line, kMarkColumn, kLastColumn).text;
}

void LineSplitter::splitFree(std::string_view line) {
    cells_.clear();
    std::size_t begin = 0;
    while (begin <= line.size()) {
        const std::size_t end = std::min(line.find(',', begin), line.size());
        cells_.push_back(fieldAt(line, begin, end));
        begin = end + 1;
    }
    takeFirst(cells_[0], true);
    const std::size_t width = dataFields(out_.form);
    if (cells_.size() > width + 2) {
        takeLongLine();
    } else {
        if (cells_.size() == width + 2)
            out_.mark = cells_.back().text;
        out_.data.assign(cells_.begin() + 1, cells_.begin() + static_cast<std::ptrdiff_t>(std::min(
                                                                  cells_.size(), width + 1)));
    }
    const std::size_t lines = (out_.data.size() + width - 1) / width;
    out_.data.resize(std::max<std::size_t>(lines, 1) * width);
}

// More fields than a line has: the card goes on. The marks of both lines may stand between.
void LineSplitter::takeLongLine() {
    const std::size_t width = dataFields(out_.form);
    std::size_t at = 1;
    while (at < cells_.size()) {
        const std::size_t end = std::min(at + width, cells_.size());
        for (; at < end; ++at)
            out_.data.push_back(cells_[at]);
        if (at < cells_.size() && isMark(cells_[at].text)) {
            const bool isLast = at + 1 == cells_.size();
            if (isLast)
                out_.mark = cells_[at].text;
            ++at;
            if (at < cells_.size() && isMark(cells_[at].text))
                ++at;
        }
    }
}

}  // namespace kvocaeio::tidy::nastran
