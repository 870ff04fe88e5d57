/// Opening files by narrow path, the same on every platform.
#include "text/file.h"

namespace kvocaeio::text {

File openFile(const char* path, const char* mode) noexcept {
    return File(path == nullptr ? nullptr : std::fopen(path, mode));
}

}  // namespace kvocaeio::text
