/// Which format a file has.
#pragma once

#include <cstdint>
#include <string_view>

namespace kvocaeio::c_interface {

/// What the first part of a file tells of its format: `KVOCAEIO_FORMAT_UNKNOWN` where nothing does.
std::int32_t recogniseText(std::string_view head);

}  // namespace kvocaeio::c_interface
