/// Abaqus input decks, for the table of formats.
#pragma once

#include "formats.h"

namespace kvocaeio::host {

extern const Format kAbaqusFormat;

}  // namespace kvocaeio::host
