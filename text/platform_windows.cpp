/// What the library asks of Windows.
#include <exception>
#include <io.h>
#include <string>
#include <wchar.h>

#include "text/file.h"
#include "text/platform.h"

namespace kvocaeio::text {

const char kPathSeparator = '\\';
const std::string_view kPathSeparators = "\\/";

std::size_t driveLength(std::string_view path) noexcept {
    return path.size() >= 2 && path[1] == ':' ? 2 : 0;
}

bool isReadableAndWritable(const char* path) noexcept {
    return _access(path, 6) == 0;
}

File openFile(const wchar_t* path, const char* mode) noexcept {
    if (path == nullptr)
        return nullptr;
    try {
        const std::wstring wideMode(mode, mode + std::char_traits<char>::length(mode));
        return File(_wfopen(path, wideMode.c_str()));
    } catch (const std::exception&) {
        return nullptr;
    }
}

}  // namespace kvocaeio::text
