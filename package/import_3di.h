/// The import of a 3DI file.
#pragma once

#include "package/input_file.h"
#include "package/model.h"
#include "text/findings.h"

namespace kvocaeio::package {

/// Reads the file in seven passes. Each of them opens it anew and is false where that fails; the
/// first that is false ends the import, as a listener does that stops it. Throws as
/// `readGeometries` does.
bool import3di(InputFile& file, Model& model, const text::Listener& listener = {});

}  // namespace kvocaeio::package
