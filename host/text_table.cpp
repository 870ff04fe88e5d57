/// Even columns of text.
#include "text_table.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace kvocaeio::host {

void TextTable::add(std::vector<std::string> cells) {
    cells.resize(columns_.size());
    rows_.push_back(std::move(cells));
}

void TextTable::print(std::ostream& out, const std::string& indent) const {
    std::vector<std::size_t> widths(columns_.size());
    for (const auto& row : rows_)
        for (std::size_t c = 0; c < row.size(); ++c)
            widths[c] = std::max(widths[c], row[c].size());
    for (const auto& row : rows_) {
        std::string line = indent;
        for (std::size_t c = 0; c < row.size(); ++c) {
            const std::string gap(widths[c] - row[c].size(), ' ');
            line += columns_[c] == 'r' ? gap + row[c] : row[c] + gap;
            line += "  ";
        }
        line.erase(line.find_last_not_of(' ') + 1);
        out << line << '\n';
    }
}

std::string printable(std::string words) {
    std::replace_if(
        words.begin(), words.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; }, '?');
    return words;
}

}  // namespace kvocaeio::host
