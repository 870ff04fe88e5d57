/// Nastran bulk data decks, for the table of formats.
#pragma once

#include "formats.h"

namespace kvocaeio::host {

extern const Format kNastranFormat;

}  // namespace kvocaeio::host
