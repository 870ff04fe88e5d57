/// The passes over a 3DI file that read its tables: colours, objects, layers.
#pragma once

#include <string>
#include <string_view>

#include "package/id_table.h"
#include "package/input_file.h"
#include "text/findings.h"

namespace kvocaeio::package {

/// Each reads the table whose second word stands for its name. A later table of that name replaces
/// the rows of an earlier one, but not the largest id, which still counts for the size.
bool readColorTable(InputFile& file, const text::Listener& listener, IdTable<unsigned>& colors);
bool readNameTable(InputFile& file, const text::Listener& listener, std::string_view name,
                   IdTable<std::string>& entries);

/// Id of the first entry equal to `key`, in any case; -1 without one.
int findEntry(const IdTable<std::string>& entries, std::string_view key);

}  // namespace kvocaeio::package
