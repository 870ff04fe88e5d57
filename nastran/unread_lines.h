/// Tells of lines that are no card of the table.
#pragma once

#include "nastran/lines.h"

namespace kvocaeio::nastran {

/// Notes the card that `lines` took last, which begins with a name. `readAs` is a rule whose name
/// stands further on in it, to no effect, or null.
void noteUnreadLine(CardLines& lines, const CardRule* readAs);

}  // namespace kvocaeio::nastran
