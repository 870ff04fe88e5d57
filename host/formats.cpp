/// The table of formats, and the look at a file that chooses among them.
#include "formats.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "abaqus/format.h"
#include "c_file.h"
#include "file_head.h"
#include "foreign_content.h"
#include "input_file.h"
#include "nastran/format.h"
#include "package/design.h"
#include "package/format.h"
#include "patran/format.h"

namespace kvocaeio::host {

namespace {

const std::array<const Format*, 5> kFormats = {&kAbaqusFormat, &kPatranFormat, &kNastranFormat,
                                               &k3diFormat, &kCadenceFormat};

// Enough for the opening comments of any deck; a file that says later what it is has its extension.
constexpr std::size_t kHeadSize = std::size_t{64} * 1024;

std::string readHead(const std::string& path) {
    refuseSpecialFile(path);
    const CFile file = openFile(path, "rb");
    if (!file)
        throw FileError("cannot be read: " + systemFailure());
    std::string head(kHeadSize, '\0');
    head.resize(std::fread(head.data(), 1, head.size(), file.get()));
    if (std::ferror(file.get()) != 0)
        throw FileError("cannot be read: " + systemFailure());
    if (head.empty())
        throw FileError("is empty", "empty");
    return head;
}

/// The format of which the text `head` can only be; null for none.
const Format* formatOf(std::string_view head) {
    const auto* const format = std::ranges::find_if(
        kFormats, [&](const Format* known) { return known->recognises(head); });
    return format != kFormats.end() ? *format : nullptr;
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

const Format& findFormat(const std::string& path, MarkRule rule) {
    const std::string head = readHead(path);
    const std::string extension = extensionOf(path);
    if (contains(kCadenceFormat.extensions, extension))
        return kCadenceFormat;  // a database, whose bytes may look like anything
    refuseForeignContent(head);
    const std::string_view content = withoutMark(head);
    if (rule == MarkRule::kRefuse)
        refuseHiddenLine(head);
    if (const Format* format = formatOf(content))
        return *format;
    refuseBinary(head);
    for (const Format* format : kFormats)
        if (contains(format->extensions, extension))
            return *format;
    throw FileError("holds nothing that is known here (known formats: " + namesOfFormats() + ")",
                    "unknown-format");
}

bool hasKnownContent(const std::string& path) {
    try {
        const std::string head = readHead(path);
        refuseForeignContent(head);
        return formatOf(withoutMark(head)) != nullptr;
    } catch (const FileError&) {
        return false;
    }
}

bool hasKnownExtension(const std::string& path) {
    const std::string extension = extensionOf(path);
    return std::ranges::any_of(
        kFormats, [&](const Format* format) { return contains(format->extensions, extension); });
}

}  // namespace kvocaeio::host
