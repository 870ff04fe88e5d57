/// The cards that are known, and what stands on them.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kvocaeio::nastran {

enum class CardCode : int {
    kNone = 1,  ///< nothing of the card is stored
    kGrid = 101,
    kBar = 1001,
    kTetra = 1301,
    kPenta = 1321,
    kHexa = 1331,
    kBarSection = 2001,
    kShellSection = 2005,
    kSolidSection = 2301,
};

/// What becomes of the first float of a property card.
enum class PropertyValue { kAsRead, kTwice, kDiameter };

/// One card: the numbers behind its name are ints, then either doubles or floats.
struct CardRule {
    std::string_view name;
    CardCode code = CardCode::kNone;
    std::size_t ints = 0;
    std::size_t doubles = 0;
    std::size_t floats = 0;
    PropertyValue value = PropertyValue::kAsRead;
    std::size_t nodes = 0;     ///< in an element's row
    bool isElement = false;    ///< counts for the largest element OID
    bool isContinued = false;  ///< the next line belongs to the card
    bool hasFiller = false;    ///< zeros and labels between its numbers are to be cleared
};

/// A bar, or a solid that ends on its first line.
constexpr CardRule elementRule(std::string_view name, CardCode code, std::size_t nodes) {
    return {.name = name, .code = code, .ints = 2 + nodes, .nodes = nodes, .isElement = true};
}

/// A shell: it counts, but nothing of it is stored.
constexpr CardRule shellRule(std::string_view name, bool isContinued = false) {
    return {.name = name, .isElement = true, .isContinued = isContinued};
}

constexpr CardRule sectionRule(std::string_view name, CardCode code, std::size_t floats,
                               PropertyValue value) {
    return {.name = name, .code = code, .ints = 2, .floats = floats, .value = value};
}

/// In the order of the tests: the first name found anywhere in a card's text decides. (Two shells
/// have rows beside those of their families, so that a field that holds them alone is known.)
inline constexpr std::array kCardRules{
    CardRule{.name = "GRID", .code = CardCode::kGrid, .ints = 2, .doubles = 3},
    elementRule("CROD", CardCode::kBar, 2),
    elementRule("CTUBE", CardCode::kBar, 2),
    elementRule("CBAR", CardCode::kBar, 2),
    elementRule("CBEAM", CardCode::kBar, 2),
    elementRule("CTETRA", CardCode::kTetra, 4),
    elementRule("CPENTA", CardCode::kPenta, 6),
    CardRule{.name = "CHEXA",
             .code = CardCode::kHexa,
             .ints = 10,
             .nodes = 8,
             .isElement = true,
             .isContinued = true,
             .hasFiller = true},
    sectionRule("PROD", CardCode::kBarSection, 2, PropertyValue::kDiameter),
    sectionRule("PTUBE", CardCode::kBarSection, 2, PropertyValue::kTwice),
    sectionRule("PBAR", CardCode::kBarSection, 3, PropertyValue::kDiameter),
    sectionRule("PBEAM", CardCode::kBarSection, 5, PropertyValue::kDiameter),
    sectionRule("PSHELL", CardCode::kShellSection, 1, PropertyValue::kAsRead),
    sectionRule("PSHEAR", CardCode::kShellSection, 1, PropertyValue::kAsRead),
    sectionRule("PSOLID", CardCode::kSolidSection, 1, PropertyValue::kAsRead),
    shellRule("CQUAD4"),
    shellRule("CQUAD8", true),
    shellRule("CQUAD"),
    shellRule("CTRIA3"),
    shellRule("CTRIA"),
    shellRule("CSHEAR"),
};

constexpr bool holds(std::string_view characters, std::string_view name) {
    return characters.find(name) != std::string_view::npos;
}

/// The rule of a card by its text, or null.
constexpr const CardRule* ruleIn(std::string_view characters) {
    for (const CardRule& rule : kCardRules)
        if (holds(characters, rule.name))
            return &rule;
    return nullptr;
}

/// The numbers of the latest cards. They are never cleared: a field that cannot be read keeps what
/// the card before it left in its place, whatever card that was.
struct CardNumbers {
    std::array<int, 10> ints{};
    std::array<float, 5> floats{};
    std::array<double, 3> doubles{};
};

}  // namespace kvocaeio::nastran
