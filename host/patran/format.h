/// Patran neutral files, for the table of formats.
#pragma once

#include "formats.h"

namespace kvocaeio::host {

extern const Format kPatranFormat;

}  // namespace kvocaeio::host
