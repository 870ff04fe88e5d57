/// Names in any case of their letters, folder by folder.
#include "tidy/include_path.h"

#include <algorithm>
#include <exception>
#include <string>
#include <system_error>

#include "text/ascii.h"
#include "text/platform.h"

namespace kvocaeio::tidy {

namespace {

namespace fs = std::filesystem;

bool isThere(const fs::path& path) {
    std::error_code error;
    return fs::exists(fs::status(path, error));
}

bool areEqualInAnyCase(const fs::path& a, const fs::path& b) {
    const auto fold = [](fs::path::value_type c) {
        return c >= 'a' && c <= 'z' ? static_cast<fs::path::value_type>(c - 'a' + 'A') : c;
    };
    return std::ranges::equal(a.native(), b.native(), {}, fold, fold);
}

// The entry of a folder that has this name in any case; an empty path without one. Of several the
// first in the order of their names, so that the choice does not depend on the file system.
fs::path findEntry(const fs::path& folder, const fs::path& name) {
    fs::path found;
    std::error_code error;
    fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const fs::path other = entry->path().filename();
        if (areEqualInAnyCase(other, name) && (found.empty() || other < found.filename()))
            found = folder / other;
    }
    return found;
}

fs::path findInAnyCase(const fs::path& name, const fs::path& folder) {
    fs::path path = name.is_absolute() ? name.root_path() : folder;
    for (const fs::path& part : name.relative_path()) {
        const fs::path exact = path / part;
        path = isThere(exact) ? exact : findEntry(path, part);
        if (path.empty())
            break;
    }
    return path;
}

}  // namespace

IncludePath findInclude(std::string_view name, const fs::path& folder) {
    try {
        std::string slashed(name);
        std::ranges::replace(slashed, '\\', '/');
        const fs::path wanted(slashed);
        const fs::path exact = folder / wanted;
        if (slashed.empty())
            return {};
        if (isThere(exact))
            return {exact, false};
        return {findInAnyCase(wanted, folder), true};
    } catch (const fs::filesystem_error&) {  // no name that the system can have
        return {};
    } catch (const std::system_error&) {
        return {};
    }
}

bool isOutside(const fs::path& path, const fs::path& folder) {
    std::error_code error;
    const fs::path relative = fs::relative(path, folder.empty() ? fs::path(".") : folder, error);
    return error || relative.empty() || *relative.begin() == "..";
}

std::string displayed(const fs::path& path) {
#if defined(_WIN32)
    std::string name;
    text::toUtf8(path.native(), name);
    return name;
#else
    return path.native();
#endif
}

}  // namespace kvocaeio::tidy
