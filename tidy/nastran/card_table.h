/// The cards that are known, and what becomes of them.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kvocaeio::tidy::nastran {

enum class CardKind {
    kGrid,
    kGridDefault,
    kFrameByPoints,  ///< a coordinate system by the coordinates of three points in another one
    kFrameByGrids,   ///< by the OIDs of three grid points; two systems may stand on one card
    kElement,        ///< stored by the reader, or written as one that is
    kShell,          ///< known to the reader, which stores nothing of it
    kProperty,
    kBeamLibrary,  ///< a property by the dimensions of a cross section
    kUnread,       ///< an element or property that the reader does not know
};

struct CardRule {
    std::string_view name;
    CardKind kind;
    std::string_view written = {};  ///< name in the tidy deck
    std::size_t corners = 0;        ///< of an element
    std::size_t most = 0;           ///< nodes of an element: further ones are no corners
    char frame = ' ';               ///< 'R', 'C' or 'S' of a coordinate system

    /// Data fields that are looked at; a card may have more.
    constexpr std::size_t fields() const {
        switch (kind) {
            case CardKind::kGrid:
                return 5;
            case CardKind::kGridDefault:
                return 2;
            case CardKind::kFrameByPoints:
                return 11;
            case CardKind::kFrameByGrids:
                return 8;
            case CardKind::kElement:
            case CardKind::kShell:
                return 2 + corners;
            case CardKind::kProperty:
                return 3;
            case CardKind::kBeamLibrary:
                return 14;
            case CardKind::kUnread:
                break;
        }
        return 1;
    }
};

inline constexpr std::array kCardRules{
    CardRule{"GRID", CardKind::kGrid, "GRID"},
    CardRule{"GRDSET", CardKind::kGridDefault},
    CardRule{"CORD1R", CardKind::kFrameByGrids, {}, 0, 0, 'R'},
    CardRule{"CORD1C", CardKind::kFrameByGrids, {}, 0, 0, 'C'},
    CardRule{"CORD1S", CardKind::kFrameByGrids, {}, 0, 0, 'S'},
    CardRule{"CORD2R", CardKind::kFrameByPoints, {}, 0, 0, 'R'},
    CardRule{"CORD2C", CardKind::kFrameByPoints, {}, 0, 0, 'C'},
    CardRule{"CORD2S", CardKind::kFrameByPoints, {}, 0, 0, 'S'},
    CardRule{"CROD", CardKind::kElement, "CROD", 2, 2},
    CardRule{"CTUBE", CardKind::kElement, "CTUBE", 2, 2},
    CardRule{"CBAR", CardKind::kElement, "CBAR", 2, 2},
    CardRule{"CBEAM", CardKind::kElement, "CBEAM", 2, 2},
    CardRule{"CBEAM3", CardKind::kElement, "CBEAM", 2, 3},
    CardRule{"CTETRA", CardKind::kElement, "CTETRA", 4, 10},
    CardRule{"CPENTA", CardKind::kElement, "CPENTA", 6, 15},
    CardRule{"CPYRAM", CardKind::kElement, "CHEXA", 5, 13},
    CardRule{"CPYRA", CardKind::kElement, "CHEXA", 5, 13},
    CardRule{"CHEXA", CardKind::kElement, "CHEXA", 8, 20},
    CardRule{"CQUAD4", CardKind::kShell, "CQUAD4", 4, 4},
    CardRule{"CQUAD8", CardKind::kShell, "CQUAD4", 4, 8},
    CardRule{"CQUADR", CardKind::kShell, "CQUAD4", 4, 4},
    CardRule{"CQUAD", CardKind::kShell, "CQUAD4", 4, 9},
    CardRule{"CTRIA3", CardKind::kShell, "CTRIA3", 3, 3},
    CardRule{"CTRIA6", CardKind::kShell, "CTRIA3", 3, 6},
    CardRule{"CTRIAR", CardKind::kShell, "CTRIA3", 3, 3},
    CardRule{"CSHEAR", CardKind::kShell, "CSHEAR", 4, 4},
    CardRule{"PROD", CardKind::kProperty, "PROD"},
    CardRule{"PTUBE", CardKind::kProperty, "PTUBE"},
    CardRule{"PBAR", CardKind::kProperty, "PBAR"},
    CardRule{"PBEAM", CardKind::kProperty, "PBEAM"},
    CardRule{"PBEAM3", CardKind::kProperty, "PBEAM"},
    CardRule{"PBCOMP", CardKind::kProperty, "PBEAM"},
    CardRule{"PBARL", CardKind::kBeamLibrary, "PBAR"},
    CardRule{"PBEAML", CardKind::kBeamLibrary, "PBEAM"},
    CardRule{"PSHELL", CardKind::kProperty, "PSHELL"},
    CardRule{"PSHEAR", CardKind::kProperty, "PSHEAR"},
    CardRule{"PSOLID", CardKind::kProperty, "PSOLID"},
    CardRule{"PLSOLID", CardKind::kProperty, "PSOLID"},
    CardRule{"CAABSF", CardKind::kUnread},
    CardRule{"CACINF3", CardKind::kUnread},
    CardRule{"CACINF4", CardKind::kUnread},
    CardRule{"CBEND", CardKind::kUnread},
    CardRule{"CBUSH", CardKind::kUnread},
    CardRule{"CBUSH1D", CardKind::kUnread},
    CardRule{"CCONEAX", CardKind::kUnread},
    CardRule{"CDAMP1", CardKind::kUnread},
    CardRule{"CDAMP2", CardKind::kUnread},
    CardRule{"CDAMP3", CardKind::kUnread},
    CardRule{"CDAMP4", CardKind::kUnread},
    CardRule{"CDAMP5", CardKind::kUnread},
    CardRule{"CDUM", CardKind::kUnread},
    CardRule{"CELAS1", CardKind::kUnread},
    CardRule{"CELAS2", CardKind::kUnread},
    CardRule{"CELAS3", CardKind::kUnread},
    CardRule{"CELAS4", CardKind::kUnread},
    CardRule{"CFAST", CardKind::kUnread},
    CardRule{"CGAP", CardKind::kUnread},
    CardRule{"CHEXA1", CardKind::kUnread},
    CardRule{"CHEXA2", CardKind::kUnread},
    CardRule{"CIFHEX", CardKind::kUnread},
    CardRule{"CIFPENT", CardKind::kUnread},
    CardRule{"CIFQDX", CardKind::kUnread},
    CardRule{"CIHEX1", CardKind::kUnread},
    CardRule{"CIHEX2", CardKind::kUnread},
    CardRule{"CIHEX3", CardKind::kUnread},
    CardRule{"CINTC", CardKind::kUnread},
    CardRule{"CMASS1", CardKind::kUnread},
    CardRule{"CMASS2", CardKind::kUnread},
    CardRule{"CMASS3", CardKind::kUnread},
    CardRule{"CMASS4", CardKind::kUnread},
    CardRule{"CONM1", CardKind::kUnread},
    CardRule{"CONM2", CardKind::kUnread},
    CardRule{"CONROD", CardKind::kUnread},
    CardRule{"CORD3G", CardKind::kUnread},
    CardRule{"CPLSTN3", CardKind::kUnread},
    CardRule{"CPLSTN4", CardKind::kUnread},
    CardRule{"CPLSTN6", CardKind::kUnread},
    CardRule{"CPLSTN8", CardKind::kUnread},
    CardRule{"CPLSTS3", CardKind::kUnread},
    CardRule{"CPLSTS4", CardKind::kUnread},
    CardRule{"CPLSTS6", CardKind::kUnread},
    CardRule{"CPLSTS8", CardKind::kUnread},
    CardRule{"CQDMEM", CardKind::kUnread},
    CardRule{"CQDMEM1", CardKind::kUnread},
    CardRule{"CQDMEM2", CardKind::kUnread},
    CardRule{"CQDPLT", CardKind::kUnread},
    CardRule{"CQUAD1", CardKind::kUnread},
    CardRule{"CQUAD2", CardKind::kUnread},
    CardRule{"CQUADX", CardKind::kUnread},
    CardRule{"CQUADX4", CardKind::kUnread},
    CardRule{"CQUADX8", CardKind::kUnread},
    CardRule{"CSEAM", CardKind::kUnread},
    CardRule{"CSLOT3", CardKind::kUnread},
    CardRule{"CSLOT4", CardKind::kUnread},
    CardRule{"CTRAX3", CardKind::kUnread},
    CardRule{"CTRAX6", CardKind::kUnread},
    CardRule{"CTRBSC", CardKind::kUnread},
    CardRule{"CTRIA1", CardKind::kUnread},
    CardRule{"CTRIA2", CardKind::kUnread},
    CardRule{"CTRIAX", CardKind::kUnread},
    CardRule{"CTRIAX6", CardKind::kUnread},
    CardRule{"CTRIM6", CardKind::kUnread},
    CardRule{"CTRMEM", CardKind::kUnread},
    CardRule{"CTRPLT", CardKind::kUnread},
    CardRule{"CTWIST", CardKind::kUnread},
    CardRule{"CVISC", CardKind::kUnread},
    CardRule{"CWEDGE", CardKind::kUnread},
    CardRule{"CWELD", CardKind::kUnread},
    CardRule{"PBMSECT", CardKind::kUnread},
    CardRule{"PBRSECT", CardKind::kUnread},
    CardRule{"PCOMP", CardKind::kUnread},
    CardRule{"PCOMPG", CardKind::kUnread},
    CardRule{"PCOMPLS", CardKind::kUnread},
    CardRule{"PCOMPS", CardKind::kUnread},
    CardRule{"RBAR", CardKind::kUnread},
    CardRule{"RBE1", CardKind::kUnread},
    CardRule{"RBE2", CardKind::kUnread},
    CardRule{"RBE3", CardKind::kUnread},
    CardRule{"RJOINT", CardKind::kUnread},
    CardRule{"RROD", CardKind::kUnread},
    CardRule{"RSPLINE", CardKind::kUnread},
    CardRule{"RSSCON", CardKind::kUnread},
    CardRule{"RTRPLT", CardKind::kUnread},
};

/// The rule of a name in upper case; null for a card that is not known.
const CardRule* findCardRule(std::string_view name);

}  // namespace kvocaeio::tidy::nastran
