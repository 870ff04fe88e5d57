/// A table of text cells, printed with columns of even width that fit the terminal.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace kvocaeio::host {

/// How text is laid out where it goes.
struct PageStyle {
    std::size_t width = 80;   ///< columns
    bool isColoured = false;  ///< warnings stand out by colour
};

class TextTable {
  public:
    /// `columns` holds one letter per column: 'l' for text on the left and 'r' for numbers on the
    /// right, both of which stay whole; 'n' for names, which are cut in the middle where the table
    /// would be too wide; 'w' for words, which continue on further lines there.
    explicit TextTable(std::string columns) : columns_(std::move(columns)) {}

    /// Adds a row; missing cells at its end are empty.
    void add(std::vector<std::string> cells);

    /// Prints all rows, indented by two blanks, two blanks between columns and none at the end, in
    /// at most `width` columns of the terminal as far as that is possible.
    void print(std::ostream& out, std::size_t width) const;

  private:
    std::vector<std::size_t> widthsWithin(std::size_t width) const;
    std::size_t leastWidth(std::size_t column) const;
    std::vector<std::string> linesOf(const std::string& cell, std::size_t column,
                                     std::size_t width) const;

    std::string columns_;
    std::vector<std::vector<std::string>> rows_;
};

}  // namespace kvocaeio::host
