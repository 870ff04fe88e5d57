/// Where the fields of a line stand by the rules of the format, which the reader does not follow:
/// what it has read of a card is held against this.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kvocaeio::nastran {

enum class LineForm {
    kFixed,  ///< fields of eight columns
    kTabs,   ///< the same, with tabs between them
    kLarge,  ///< the first field and four of sixteen columns
    kFree,   ///< commas between the fields
};

/// A line by its fields, without the blanks around them. Those that the line does not have are
/// empty and stand at its end.
struct LineLayout {
    static constexpr std::size_t kFields = 10;

    LineForm form = LineForm::kFixed;
    std::array<std::string_view, kFields> fields;  ///< the first one is the name or marker
};

LineLayout layOut(std::string_view line);

/// The name that a line begins with, behind blanks: letters and digits. Empty where it begins with
/// anything but a letter.
std::string_view nameOf(std::string_view line);

}  // namespace kvocaeio::nastran
