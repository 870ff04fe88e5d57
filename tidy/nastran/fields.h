/// The fields of one line of bulk data, in each of the forms that a line can have.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "text/scan.h"

namespace kvocaeio::tidy::nastran {

enum class LineForm {
    kSmall,      ///< ten fields of eight columns
    kLarge,      ///< a star behind the name: four data fields of sixteen columns
    kFree,       ///< fields parted by commas
    kLargeFree,  ///< likewise, with a star behind the name
};

constexpr bool isLarge(LineForm form) {
    return form == LineForm::kLarge || form == LineForm::kLargeFree;
}
constexpr bool isFree(LineForm form) {
    return form == LineForm::kFree || form == LineForm::kLargeFree;
}
/// Data fields on a line: fields 2 to 9, or 2 to 5.
constexpr std::size_t dataFields(LineForm form) {
    return isLarge(form) ? 4 : 8;
}

/// The text of a field without blanks around it.
struct Field {
    std::string_view text;
    std::uint32_t column = 0;  ///< in the line as it stands in the file, from 1
};

/// One line. All texts point into it, or into the splitter.
struct SplitLine {
    LineForm form = LineForm::kSmall;
    bool hasTabs = false;
    bool isBlank = true;      ///< nothing but blanks, or a comment
    std::size_t indent = 0;   ///< white space before the first character
    Field first;              ///< a name, a continuation's mark, or nothing; without the star
    std::string_view mark;    ///< field 10, where the continuation is named
    std::vector<Field> data;  ///< at least `dataFields(form)`, unless the line is blank
    /// Most lines are of small fields without tabs. Of these the columns of all data fields stand
    /// here, as far as the line reaches, and `data` is empty.
    std::string_view columns;

    bool isInColumns() const { return form == LineForm::kSmall && !hasTabs; }

    /// Whether the line goes on with a card.
    bool isContinuation() const {
        return first.text.empty() || first.text[0] == '+' || first.text[0] == '*';
    }
};

/// Splits one line at a time; its memory is used again for the next one.
class LineSplitter {
  public:
    /// `line` has no line end. The result is valid as long as the line, and until the next call.
    const SplitLine& split(std::string_view line);

  private:
    void expandTabs(std::string_view line);
    void splitFree(std::string_view line);
    void splitFixed(std::string_view line);
    void takeLongLine();
    void takeFirst(Field field, bool isFree);
    Field fieldAt(std::string_view line, std::size_t begin, std::size_t end) const;

    SplitLine out_;
    std::string expanded_;
    std::vector<std::uint32_t> columns_;  // of the characters of `expanded_` in the line
    std::vector<Field> cells_;
};

/// A mark as two lines have it in common: without the plus sign or star before it.
std::string_view markOf(std::string_view field);

/// `text` without white space around it.
constexpr std::string_view trimmed(std::string_view text) {
    while (!text.empty() && text::isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && text::isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

}  // namespace kvocaeio::tidy::nastran
