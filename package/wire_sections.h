/// The passes over a 3DI file that read its wire models and its wires.
#pragma once

#include <string>

#include "package/input_file.h"
#include "package/model.h"
#include "text/findings.h"

namespace kvocaeio::package {

/// Appends the names of the wire models. The section has no end, so that the pass sees the
/// "WIRE_MODEL" lines of the wires, too; the lines after those have too few fields for a model.
bool readWireModels(InputFile& file, const text::Listener& listener,
                    ChunkedList<std::string>& names);

/// Appends the wires, in millimetres.
bool readWires(InputFile& file, const text::Listener& listener, double unitScale,
               WireTables& wires);

}  // namespace kvocaeio::package
