/// The table of formats, and the look at a file that chooses among them.
#include "format.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <system_error>

namespace kvocaeio::host {

namespace {

const std::array<const Format*, 5> kFormats = {&kAbaqusFormat, &kPatranFormat, &kNastranFormat,
                                               &k3diFormat, &kCadenceFormat};

// Enough for the opening comments of any deck; a file that says later what it is has its extension.
constexpr std::size_t kHeadSize = std::size_t{64} * 1024;

std::string readHead(const std::string& path) {
    if (isFolder(path.c_str()))
        throw FileError("is a folder, not a file");
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                               std::fclose);
    if (!file)
        throw FileError("cannot be read: " + std::generic_category().message(errno));
    std::string head(kHeadSize, '\0');
    head.resize(std::fread(head.data(), 1, head.size(), file.get()));
    if (std::ferror(file.get()) != 0)
        throw FileError("cannot be read: " + std::generic_category().message(errno));
    if (head.empty())
        throw FileError("is empty");
    return head;
}

std::string namesOfFormats() {
    std::string names;
    for (const Format* format : kFormats)
        names += (names.empty() ? "" : ", ") + std::string(format->name);
    return names;
}

}  // namespace

std::string extensionOf(const std::string& path) {
    const std::size_t point = path.find_last_of("./\\");
    if (point == std::string::npos || path[point] != '.')
        return {};
    std::string extension = path.substr(point);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

const Format& findFormat(const std::string& path) {
    const std::string head = readHead(path);
    for (const Format* format : kFormats)
        if (format->recognises(head))
            return *format;
    const std::string extension = extensionOf(path);
    for (const Format* format : kFormats)
        if (std::count(format->extensions.begin(), format->extensions.end(), extension) != 0)
            return *format;
    throw FileError("holds nothing that is known here (known formats: " + namesOfFormats() + ")");
}

}  // namespace kvocaeio::host
