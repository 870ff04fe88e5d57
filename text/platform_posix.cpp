/// What the library asks of a POSIX system.
#include <exception>
#include <string>
#include <unistd.h>

#include "text/file.h"
#include "text/platform.h"

namespace kvocaeio::text {

namespace {

// Appends the UTF-8 form of `code`; false for what is no Unicode character.
bool appendUtf8(std::string& text, char32_t code) {
    if (code >= 0x110000 || (code >= 0xD800 && code < 0xE000))
        return false;
    auto add = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    auto tail = [&add, code](int shift) { add(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x80) {
        add(code);
    } else if (code < 0x800) {
        add(0xC0 | code >> 6);
        tail(0);
    } else if (code < 0x10000) {
        add(0xE0 | code >> 12);
        tail(6);
        tail(0);
    } else {
        add(0xF0 | code >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
    return true;
}

}  // namespace

const char kPathSeparator = '/';
const std::string_view kPathSeparators = "/";

std::size_t driveLength(std::string_view) noexcept {
    return 0;
}

bool isReadableAndWritable(const char* path) noexcept {
    return access(path, R_OK | W_OK) == 0;
}

File openFile(const wchar_t* path, const char* mode) noexcept {
    if (path == nullptr)
        return nullptr;
    try {
        std::string narrow;
        for (; *path != L'\0'; ++path)
            if (!appendUtf8(narrow, static_cast<char32_t>(*path)))
                return nullptr;
        return openFile(narrow.c_str(), mode);
    } catch (const std::exception&) {
        return nullptr;
    }
}

}  // namespace kvocaeio::text
