/// The pass over a 3DI file that reads its geometry blocks.
#pragma once

#include <optional>

#include "package/input_file.h"
#include "package/model.h"
#include "text/findings.h"

namespace kvocaeio::package {

/// Replaces the bodies by those of all blocks, in millimetres. False, too, where a table entry is
/// missing that it needs. Throws the error of `throwBadSubscript` for a body without a colour or
/// name.
bool readGeometries(InputFile& file, const text::Listener& listener, const BlockTables& tables,
                    double unitScale, std::optional<ComponentList>& components);

}  // namespace kvocaeio::package
