/// The names that tell what a line would have meant.
#include "nastran/unread_lines.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "nastran/card_layout.h"
#include "text/ascii.h"

namespace kvocaeio::nastran {

namespace {

// What stands around the bulk data in every deck.
constexpr std::array<std::string_view, 13> kControlStatements{
    "APP",  "ASSIGN",  "BEGIN",  "CEND", "DIAG",    "ENDDATA", "ID",
    "INIT", "NASTRAN", "OUTPUT", "SOL",  "SUBCASE", "TIME"};

// Names of elements begin with one of these.
constexpr std::array<std::string_view, 32> kElements{
    "CAERO",  "CBEND",  "CBUSH",  "CCONE",  "CDAMP", "CDUM",    "CELAS",   "CFAST",
    "CFLUID", "CGAP",   "CHACAB", "CHACBR", "CHBDY", "CIHEX",   "CMASS",   "CONM",
    "CONROD", "CPLST",  "CPYRA",  "CRAC",   "CSEAM", "CTORDRG", "CTRAX",   "CTWIST",
    "CVISC",  "CWEDGE", "CWELD",  "RBAR",   "RBE",   "RROD",    "RSPLINE", "RTRPLT"};

// Names of properties begin with one of these.
constexpr std::array<std::string_view, 20> kProperties{
    "PAERO", "PBEND", "PBUSH", "PCOMP",  "PCONEAX", "PDAMP",   "PELAS",
    "PFAST", "PGAP",  "PHBDY", "PIHEX",  "PLPLANE", "PLSOLID", "PMASS",
    "PQUAD", "PRAC",  "PTRIA", "PTWIST", "PVISC",   "PWELD"};

template <std::size_t kCount>
bool beginsWithOneOf(const std::array<std::string_view, kCount>& names, std::string_view name) {
    return std::ranges::any_of(
        names, [&](std::string_view one) { return one[0] == name[0] && name.starts_with(one); });
}

// A field that names no coordinate system, or the basic one.
bool isBasic(std::string_view field) {
    return field.find_first_not_of('0') == std::string_view::npos;
}

Finding kindOf(std::string_view name) {
    if (beginsWithOneOf(kElements, name))
        return Finding::kElementUnknown;
    return beginsWithOneOf(kProperties, name) ? Finding::kPropertyUnknown : Finding::kCardUnknown;
}

}  // namespace

void noteUnreadLine(CardLines& lines, const CardRule* readAs) {
    const std::string_view line = lines.firstLine();
    const std::string_view name = nameOf(line);
    std::string upper;
    text::foldToUpper(name, upper);
    if (upper == "INCLUDE")
        return lines.note(Finding::kInclude);
    // Case control gives values by this sign; no field of a card has it.
    if (line.find('=') != std::string_view::npos ||
        std::ranges::find(kControlStatements, std::string_view(upper)) != kControlStatements.end())
        return;
    const bool mayHoldName = upper != name || !lines.card().glance.isNameless;
    if (readAs == nullptr && mayHoldName && ruleIn(upper) != nullptr)
        return lines.note(ruleIn(name) != nullptr ? Finding::kNameTorn : Finding::kNameLowerCase,
                          name);
    if (upper == "GRDSET") {
        const std::string_view system = layOut(line).fields[2];
        if (!isBasic(system))
            return lines.note(Finding::kGridDefaults, system, {});
    }
    lines.note(kindOf(upper), upper);
}

}  // namespace kvocaeio::nastran
