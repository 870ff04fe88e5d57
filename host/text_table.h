/// A table of text cells, printed with columns of even width.
#pragma once

#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace kvocaeio::host {

class TextTable {
  public:
    /// `columns` holds one letter per column: 'l' for text on the left, 'r' for numbers on the
    /// right.
    explicit TextTable(std::string columns) : columns_(std::move(columns)) {}

    /// Adds a row; missing cells at its end are empty.
    void add(std::vector<std::string> cells);

    /// Prints all rows, each after `indent`, two blanks between columns and none at the end.
    void print(std::ostream& out, const std::string& indent) const;

  private:
    std::string columns_;
    std::vector<std::vector<std::string>> rows_;
};

/// `words` with every control character replaced by '?': what a file says must not steer a
/// terminal.
std::string printable(std::string words);

}  // namespace kvocaeio::host
