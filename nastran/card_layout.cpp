/// Fields in columns, between tabs and between commas.
#include "nastran/card_layout.h"

#include <algorithm>

#include "nastran/card_text.h"
#include "text/ascii.h"
#include "text/scan.h"

namespace kvocaeio::nastran {

namespace {

// A comma up to here makes a line one of free fields; further on it stands in a remark.
constexpr std::size_t kFreeColumns = 10;

constexpr bool isPadding(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// A blank field is left as none, at its first column.
std::string_view trimmed(std::string_view field) {
    std::size_t first = 0;
    while (first < field.size() && isPadding(field[first]))
        ++first;
    if (first == field.size())
        return field.substr(0, 0);
    std::size_t last = field.size();
    while (isPadding(field[last - 1]))
        --last;
    return field.substr(first, last - first);
}

LineForm formOf(std::string_view line) {
    if (line.substr(0, kFreeColumns).find(',') != std::string_view::npos)
        return LineForm::kFree;
    if (line.substr(0, kFieldWidth).find('*') != std::string_view::npos)
        return LineForm::kLarge;
    return line.find('\t') != std::string_view::npos ? LineForm::kTabs : LineForm::kFixed;
}

void splitAtCommas(std::string_view line, LineLayout& layout) {
    line = line.substr(0, line.find('$'));
    for (std::string_view& field : layout.fields) {
        const std::size_t comma = std::min(line.find(','), line.size());
        field = trimmed(line.substr(0, comma));
        line.remove_prefix(std::min(comma + 1, line.size()));
    }
}

// A tab goes on to the next field.
void splitAtTabs(std::string_view line, LineLayout& layout) {
    std::size_t column = 0;
    for (std::size_t field = 0; field < layout.fields.size(); ++field) {
        std::size_t length = 0;
        for (; length < line.size() && column < (field + 1) * kFieldWidth; ++length)
            column = line[length] == '\t' ? (field + 1) * kFieldWidth : column + 1;
        layout.fields[field] = trimmed(line.substr(0, length));
        line.remove_prefix(length);
    }
}

void splitInColumns(std::string_view line, std::size_t width, std::size_t fields,
                    LineLayout& layout) {
    std::size_t begin = 0;
    for (std::size_t i = 0; i < fields && begin < line.size(); ++i) {
        const std::size_t end = std::min(begin + (i == 0 ? kFieldWidth : width), line.size());
        layout.fields[i] = trimmed(line.substr(begin, end - begin));
        begin = end;
    }
}

}  // namespace

LineLayout layOut(std::string_view line) {
    line = line.substr(0, line.find_last_not_of("\r\n") + 1);
    LineLayout layout;
    layout.form = formOf(line);
    layout.fields.fill(line.substr(line.size()));
    switch (layout.form) {
        case LineForm::kFree:
            splitAtCommas(line, layout);
            break;
        case LineForm::kTabs:
            splitAtTabs(line, layout);
            break;
        case LineForm::kLarge:
            splitInColumns(line, 2 * kFieldWidth, 5, layout);
            break;
        case LineForm::kFixed:
            splitInColumns(line, kFieldWidth, 9, layout);
            break;
    }
    return layout;
}

std::string_view nameOf(std::string_view line) {
    const auto isLetter = [](char c) { return text::toUpper(c) >= 'A' && text::toUpper(c) <= 'Z'; };
    while (!line.empty() && isPadding(line[0]))
        line.remove_prefix(1);
    if (line.empty() || !isLetter(line[0]))
        return {};
    const auto end =
        std::ranges::find_if_not(line, [&](char c) { return isLetter(c) || text::isDigit(c); });
    return line.substr(0, static_cast<std::size_t>(end - line.begin()));
}

}  // namespace kvocaeio::nastran
