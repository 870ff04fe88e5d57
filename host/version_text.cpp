/// The library's number in words.
#include "version_text.h"

#include <kvocaeio/version.h>

namespace kvocaeio::host {

namespace {

std::string asText(int version) {
    return std::to_string(version / 1000000) + "." + std::to_string(version / 1000 % 1000) + "." +
           std::to_string(version % 1000);
}

}  // namespace

std::string libraryVersion() {
    return asText(kvocaeio_version());
}

std::string versionText() {
    const std::string built = asText(KVOCAEIO_VERSION);
    std::string text = "kvocaeio " + built + "\nlibrary " + libraryVersion();
    if (kvocaeio_version() != KVOCAEIO_VERSION)
        text += ", not the one that kvocaeio was built with (" + built + ")";
    return text;
}

}  // namespace kvocaeio::host
