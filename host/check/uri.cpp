#include "check/uri.h"

#include <algorithm>
#include <cctype>

namespace kvocaeio::host {

std::string uriOf(std::string_view path, bool isWindows) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    constexpr std::string_view kPlain = "-._~/";
    std::string way(path);
    if (isWindows)
        std::ranges::replace(way, '\\', '/');
    std::string uri;
    std::size_t drive = 0;  // characters of "C:"
    if (isWindows && way.size() >= 3 && way[1] == ':' && way[2] == '/') {
        drive = 2;
        uri = "file:///" + way.substr(0, drive);
    } else if (isWindows && way.starts_with("//")) {
        uri = "file:";  // a share: its host stands there already
    } else if (way.starts_with('/')) {
        uri = "file://";
    }
    for (const char c : way.substr(drive)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80 && (std::isalnum(byte) != 0 || kPlain.find(c) != kPlain.npos))
            uri += c;
        else
            uri.append({'%', kDigits[byte >> 4], kDigits[byte & 15]});
    }
    return uri;
}

}  // namespace kvocaeio::host
