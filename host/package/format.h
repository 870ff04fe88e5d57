/// 3DI package files, for the table of formats.
#pragma once

#include "formats.h"

namespace kvocaeio::host {

extern const Format k3diFormat;

}  // namespace kvocaeio::host
