/// Single cards, looked at as the lines of a pass are.
#pragma once

#include <string_view>

#include "nastran/card.h"
#include "nastran/fixed_fields.h"

namespace kvocaeio::test {

/// A card whose first line has that many characters; all of them where only one line is there.
inline nastran::Card cardOf(std::string_view raw, std::size_t firstLine = std::string_view::npos) {
    const std::string_view rest = raw.substr(std::min(firstLine, raw.size()));
    const nastran::Glance glance = nastran::glanceAt(raw.substr(0, firstLine));
    return {raw, nastran::canHoldName(rest) ? nastran::Glance() : glance};
}

inline int codeOf(const nastran::ReadCard& card) {
    return static_cast<int>(card.rule == nullptr ? nastran::CardCode::kNone : card.rule->code);
}

}  // namespace kvocaeio::test
