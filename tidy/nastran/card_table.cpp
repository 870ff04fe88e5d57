/// Rules by name.
#include "tidy/nastran/card_table.h"

#include <algorithm>
#include <cstdint>

namespace kvocaeio::tidy::nastran {

namespace {

constexpr std::size_t kLongestName = 8;

// A name as a number, in the order of its letters; 0 for one that is too long.
constexpr std::uint64_t packed(std::string_view name) {
    if (name.size() > kLongestName)
        return 0;
    std::uint64_t value = 0;
    for (const char c : name)
        value = value << 8 | static_cast<unsigned char>(c);
    return value;
}

struct NamedRow {
    std::uint64_t name = 0;
    std::size_t row = 0;
};

constexpr auto kRowsByName = [] {
    std::array<NamedRow, kCardRules.size()> rows;
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] = {packed(kCardRules[i].name), i};
    std::ranges::sort(rows, {}, &NamedRow::name);
    return rows;
}();

}  // namespace

const CardRule* findCardRule(std::string_view name) {
    const std::uint64_t wanted = packed(name);
    const auto found = std::ranges::lower_bound(kRowsByName, wanted, {}, &NamedRow::name);
    return found != kRowsByName.end() && found->name == wanted ? &kCardRules[found->row] : nullptr;
}

}  // namespace kvocaeio::tidy::nastran
