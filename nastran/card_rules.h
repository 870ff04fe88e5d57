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

/// One card. Two ints stand behind its name where anything of it is stored: its OID, and the
/// coordinate system, property or material.
struct CardRule {
    std::string_view name;
    CardCode code = CardCode::kNone;
    std::size_t nodes = 0;    ///< ints behind these, of an element that is stored
    std::size_t doubles = 0;  ///< of a node
    std::size_t floats = 0;   ///< of a property
    PropertyValue value = PropertyValue::kAsRead;
    bool isContinued = false;  ///< the next line belongs to the card
    bool hasFiller = false;    ///< zeros and labels between its numbers are to be cleared

    constexpr std::size_t ints() const { return code == CardCode::kNone ? 0 : 2 + nodes; }
    /// Whether the card counts for the largest element OID. Shells do, and nothing else of them is
    /// read.
    constexpr bool isElement() const { return code == CardCode::kNone || nodes > 0; }
};

/// In the order of the tests: the first name found anywhere in a card's text decides. (Two shells
/// have rows beside those of their families, so that a field that holds them alone is known.)
inline constexpr std::array kCardRules{
    CardRule{"GRID", CardCode::kGrid, 0, 3},
    CardRule{"CROD", CardCode::kBar, 2},
    CardRule{"CTUBE", CardCode::kBar, 2},
    CardRule{"CBAR", CardCode::kBar, 2},
    CardRule{"CBEAM", CardCode::kBar, 2},
    CardRule{"CTETRA", CardCode::kTetra, 4},
    CardRule{"CPENTA", CardCode::kPenta, 6},
    CardRule{"CHEXA", CardCode::kHexa, 8, 0, 0, PropertyValue::kAsRead, true, true},
    CardRule{"PROD", CardCode::kBarSection, 0, 0, 2, PropertyValue::kDiameter},
    CardRule{"PTUBE", CardCode::kBarSection, 0, 0, 2, PropertyValue::kTwice},
    CardRule{"PBAR", CardCode::kBarSection, 0, 0, 3, PropertyValue::kDiameter},
    CardRule{"PBEAM", CardCode::kBarSection, 0, 0, 5, PropertyValue::kDiameter},
    CardRule{"PSHELL", CardCode::kShellSection, 0, 0, 1},
    CardRule{"PSHEAR", CardCode::kShellSection, 0, 0, 1},
    CardRule{"PSOLID", CardCode::kSolidSection, 0, 0, 1},
    CardRule{"CQUAD4"},
    CardRule{"CQUAD8", CardCode::kNone, 0, 0, 0, PropertyValue::kAsRead, true},
    CardRule{"CQUAD"},
    CardRule{"CTRIA3"},
    CardRule{"CTRIA"},
    CardRule{"CSHEAR"},
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
