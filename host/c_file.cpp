/// Opening, and why it failed.
#include "c_file.h"

#include <cerrno>
#include <system_error>

namespace kvocaeio::host {

CFile openFile(const std::string& path, const char* mode) {
    return {std::fopen(path.c_str(), mode), std::fclose};
}

std::string systemFailure() {
    return std::generic_category().message(errno);
}

}  // namespace kvocaeio::host
