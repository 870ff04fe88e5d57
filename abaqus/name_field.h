/// The fixed name fields of the exported records.
#pragma once

#include <cstddef>
#include <string_view>

namespace kvocaeio {

/// Copies `name` into a record's field, cut to what fits with its terminating NUL.
template <std::size_t size>
void copyName(std::string_view name, char (&field)[size]) {
    field[name.copy(field, size - 1)] = '\0';
}

}  // namespace kvocaeio
