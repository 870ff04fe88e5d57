/// Compression of bytes by zlib, which the build may lack.
#pragma once

#include <string>
#include <string_view>

namespace kvocaeio::host {

/// Whether the build had zlib.
bool canDeflate();

/// `bytes` as a zlib stream; they are at most 1 GiB. Only where `canDeflate`.
std::string deflated(std::string_view bytes);

}  // namespace kvocaeio::host
