/// The walk through a folder.
#include "file_list.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "file_head.h"
#include "file_system.h"
#include "formats.h"
#include "package/design.h"

namespace kvocaeio::host {

namespace {

// Other programs use them too: such a file counts only where its content is known.
constexpr std::array<std::string_view, 2> kCommonExtensions = {".dat", ".out"};

bool isWanted(const std::string& path, bool designs) {
    const std::string extension = extensionOf(path);
    if (designs || contains(kCadenceFormat.extensions, extension))
        return designs && contains(kCadenceFormat.extensions, extension);
    const bool isSure = hasKnownExtension(path) && !contains(kCommonExtensions, extension);
    return isSure || hasKnownContent(path);
}

}  // namespace

FileList filesOf(const std::string& path, bool designs) {
    if (!isFolder(path.c_str()))
        return {{path}, 0};
    namespace fs = std::filesystem;
    FileList list;
    std::error_code error;
    fs::recursive_directory_iterator at(standardPath(path),
                                        fs::directory_options::skip_permission_denied, error);
    for (; !error && at != fs::recursive_directory_iterator(); at.increment(error)) {
        std::error_code ignored;
        if (!at->is_regular_file(ignored))
            continue;
        if (std::string file = narrowPath(at->path()); isWanted(file, designs))
            list.files.push_back(std::move(file));
        else
            ++list.passedOver;
    }
    if (error)
        throw FileError("the folder cannot be read: " + error.message());
    if (list.files.empty())
        throw FileError("is a folder without a file of a known format", "nothing-read");
    std::ranges::sort(list.files);
    return list;
}

}  // namespace kvocaeio::host
