/// The cards that are read, and what stands on them.
#pragma once

#include <array>
#include <string_view>

namespace kvocaeio {

enum class CardCode : int {
    kNone = 1,  ///< comment, or a line without a known card
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
enum class PropertyValue { kNone, kAsRead, kTwice, kDiameter };

/// One card: the numbers behind its name are ints, then either doubles or floats.
struct CardRule {
    std::string_view name;
    CardCode code = CardCode::kNone;
    int ints = 0;
    int doubles = 0;
    int floats = 0;
    PropertyValue value = PropertyValue::kNone;
};

/// In the order of the tests: the first name found anywhere in a card's text decides.
inline constexpr std::array kCardRules{
    CardRule{"GRID", CardCode::kGrid, 2, 3},
    CardRule{"CROD", CardCode::kBar, 4},
    CardRule{"CTUBE", CardCode::kBar, 4},
    CardRule{"CBAR", CardCode::kBar, 4},
    CardRule{"CBEAM", CardCode::kBar, 4},
    CardRule{"CTETRA", CardCode::kTetra, 6},
    CardRule{"CPENTA", CardCode::kPenta, 8},
    CardRule{"CHEXA", CardCode::kHexa, 10},
    CardRule{"PROD", CardCode::kBarSection, 2, 0, 2, PropertyValue::kDiameter},
    CardRule{"PTUBE", CardCode::kBarSection, 2, 0, 2, PropertyValue::kTwice},
    CardRule{"PBAR", CardCode::kBarSection, 2, 0, 3, PropertyValue::kDiameter},
    CardRule{"PBEAM", CardCode::kBarSection, 2, 0, 5, PropertyValue::kDiameter},
    CardRule{"PSHELL", CardCode::kShellSection, 2, 0, 1, PropertyValue::kAsRead},
    CardRule{"PSHEAR", CardCode::kShellSection, 2, 0, 1, PropertyValue::kAsRead},
    CardRule{"PSOLID", CardCode::kSolidSection, 2, 0, 1, PropertyValue::kAsRead},
};

/// The elements that count for the largest element OID; of shells nothing else is read.
inline constexpr std::array<std::string_view, 10> kElementNames{
    "CROD", "CTUBE", "CBAR", "CBEAM", "CQUAD", "CTRIA", "CSHEAR", "CTETRA", "CPENTA", "CHEXA"};

/// The cards whose next line belongs to them.
inline constexpr std::array<std::string_view, 2> kContinuedNames{"CQUAD8", "CHEXA"};

}  // namespace kvocaeio
