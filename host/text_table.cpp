/// Even columns of text.
#include "text_table.h"

#include <algorithm>
#include <numeric>
#include <ostream>

#include "display_width.h"

namespace kvocaeio::host {

namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kGap = 2;
constexpr std::size_t kLeastName = 12;

/// The longest word of `text`.
std::size_t wordWidth(const std::string& text) {
    std::size_t width = 0;
    for (const std::string& word : wrapped(text, 0))
        width = std::max(width, displayWidth(word));
    return width;
}

}  // namespace

void TextTable::add(std::vector<std::string> cells) {
    cells.resize(columns_.size());
    rows_.push_back(std::move(cells));
}

std::size_t TextTable::leastWidth(std::size_t column) const {
    if (columns_[column] == 'n')
        return kLeastName;
    std::size_t width = 0;
    for (const auto& row : rows_)
        width = std::max(
            width, columns_[column] == 'w' ? wordWidth(row[column]) : displayWidth(row[column]));
    return width;
}

// Takes from the widest of the columns that can give, until the table fits.
std::vector<std::size_t> TextTable::widthsWithin(std::size_t width) const {
    std::vector<std::size_t> widths(columns_.size());
    std::vector<std::size_t> least(columns_.size());
    for (std::size_t c = 0; c < columns_.size(); ++c) {
        for (const auto& row : rows_)
            widths[c] = std::max(widths[c], displayWidth(row[c]));
        least[c] = std::min(leastWidth(c), widths[c]);
    }
    std::size_t total =
        std::accumulate(widths.begin(), widths.end(),
                        kIndent + kGap * (std::max<std::size_t>(columns_.size(), 1) - 1));
    while (total > width) {
        std::size_t widest = columns_.size();
        for (std::size_t c = 0; c < columns_.size(); ++c)
            if (widths[c] > least[c] && (widest == columns_.size() || widths[c] > widths[widest]))
                widest = c;
        if (widest == columns_.size())
            break;
        --widths[widest];
        --total;
    }
    return widths;
}

std::vector<std::string> TextTable::linesOf(const std::string& cell, std::size_t column,
                                            std::size_t width) const {
    if (columns_[column] == 'w')
        return wrapped(cell, width);
    return {columns_[column] == 'n' ? cutInTheMiddle(cell, width) : cell};
}

void TextTable::print(std::ostream& out, std::size_t width) const {
    using Lines = std::vector<std::string>;
    const std::vector<std::size_t> widths = widthsWithin(width);
    std::vector<std::vector<Lines>> rows;
    std::vector<std::size_t> used(columns_.size());  // of the widths: lines may be shorter
    for (const auto& row : rows_) {
        rows.emplace_back();
        for (std::size_t c = 0; c < row.size(); ++c) {
            rows.back().push_back(linesOf(row[c], c, widths[c]));
            for (const std::string& line : rows.back().back())
                used[c] = std::max(used[c], displayWidth(line));
        }
    }
    for (const auto& row : rows) {
        std::size_t height = 0;
        for (const Lines& cell : row)
            height = std::max(height, cell.size());
        for (std::size_t i = 0; i < height; ++i) {
            std::string line(kIndent, ' ');
            for (std::size_t c = 0; c < row.size(); ++c) {
                const std::string cell = i < row[c].size() ? row[c][i] : "";
                const std::string gap(used[c] - displayWidth(cell), ' ');
                line += columns_[c] == 'r' ? gap + cell : cell + gap;
                line.append(kGap, ' ');
            }
            line.erase(line.find_last_not_of(' ') + 1);
            out << line << '\n';
        }
    }
}

}  // namespace kvocaeio::host
