/// What a listener learns of an import's files.
#include "text/listened_file.h"

#include <cerrno>
#include <exception>
#include <string>
#include <string_view>
#include <system_error>

#include "text/platform.h"

namespace kvocaeio::text {

namespace {

template <class Character>
File openNoted(const Character* path, std::string_view name, const char* mode,
               const Listener& listener) noexcept {
    if (listener.findings == nullptr)
        return openFile(path, mode);
    listener.findings->beginFile(name);
    errno = 0;
    File file = openFile(path, mode);
    if (file == nullptr)
        noteFailure(*listener.findings, FileFinding::kCannotOpen, errno, 0,
                    path == nullptr ? "no path is given" : "it is not a regular file");
    return file;
}

}  // namespace

File openFile(const char* path, const char* mode, const Listener& listener) noexcept {
    return openNoted(path, path == nullptr ? "" : path, mode, listener);
}

File openFile(const wchar_t* path, const char* mode, const Listener& listener) noexcept {
    std::string name;
    try {
        if (path != nullptr && listener.findings != nullptr)
            toUtf8(path, name);
    } catch (const std::exception&) {
        name.clear();
    }
    return openNoted(path, name, mode, listener);
}

void noteFailure(Findings& findings, FileFinding finding, int error, std::size_t line,
                 std::string_view otherwise) noexcept {
    try {
        const std::string reason =
            error == 0 ? std::string(otherwise) : std::generic_category().message(error);
        findings.note(rowOf(finding), line, 0, reason);
    } catch (const std::exception&) {
        findings.note(rowOf(finding), line, 0, "memory ran out");
    }
}

bool rewindFile(std::FILE* file, const Listener& listener) noexcept {
    errno = 0;
    if (rewindFile(file))
        return true;
    if (listener.findings != nullptr)
        noteFailure(*listener.findings, FileFinding::kChanged, errno);
    return false;
}

}  // namespace kvocaeio::text
