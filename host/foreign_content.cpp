/// Signatures of files, and what text looks like in other encodings.
#include "foreign_content.h"

#include <algorithm>
#include <array>
#include <string>

#include "file_head.h"
#include "file_report.h"

namespace kvocaeio::host {

namespace {

using namespace std::string_view_literals;

struct Signature {
    std::string_view bytes;
    std::string_view code;
    std::string_view words;
};

constexpr auto kSignatures = std::to_array<Signature>({
    {"\x1f\x8b"sv, "compressed", "is compressed by gzip: unpack it first"},
    {"\x1f\x9d"sv, "compressed", "is compressed by compress: unpack it first"},
    {"BZh"sv, "compressed", "is compressed by bzip2: unpack it first"},
    {"\xfd"
     "7zXZ\0"sv,
     "compressed", "is compressed by xz: unpack it first"},
    {"\x28\xb5\x2f\xfd"sv, "compressed", "is compressed by zstd: unpack it first"},
    {"PK\3\4"sv, "compressed", "is a zip archive: unpack it first"},
    {"7z\xbc\xaf"sv, "compressed", "is a 7z archive: unpack it first"},
    {"Rar!"sv, "compressed", "is a rar archive: unpack it first"},
    {"\xff\xfe\0\0"sv, "utf-32", "is text in UTF-32: save it as UTF-8"},
    {"\0\0\xfe\xff"sv, "utf-32", "is text in UTF-32: save it as UTF-8"},
    {"\xff\xfe"sv, "utf-16", "is text in UTF-16: save it as UTF-8"},
    {"\xfe\xff"sv, "utf-16", "is text in UTF-16: save it as UTF-8"},
    {"%PDF-"sv, "other-document", "is a PDF document"},
    {"\x7f"
     "ELF"sv,
     "other-document", "is a program"},
    {"MZ\x90"sv, "other-document", "is a program"},
    {"\x89HDF"sv, "other-document", "is an HDF5 file"},
    {"\x89PNG"sv, "other-document", "is a picture"},
    {"\xff\xd8\xff"sv, "other-document", "is a picture"},
});

/// Latin text whose every second byte is zero.
bool isWideText(std::string_view head) {
    constexpr std::size_t kLook = 64;
    head = head.substr(0, std::min(head.size() & ~std::size_t{1}, kLook));
    if (head.size() < 4)
        return false;
    std::array<std::size_t, 2> zeros{};
    for (std::size_t i = 0; i < head.size(); ++i)
        zeros[i % 2] += head[i] == 0 ? 1u : 0u;
    const std::size_t half = head.size() / 2;
    return (zeros[0] == 0 && zeros[1] == half) || (zeros[1] == 0 && zeros[0] == half);
}

bool isHtml(std::string_view head) {
    const std::size_t start = std::min(head.find_first_not_of(" \t\r\n"), head.size());
    const std::string front = upperCase(head.substr(start, 9));
    return front.starts_with("<!DOCTYPE") || front.starts_with("<HTML") ||
           front.starts_with("<?XML");
}

}  // namespace

void refuseForeignContent(std::string_view head) {
    for (const Signature& signature : kSignatures)
        if (head.starts_with(signature.bytes))
            throw FileError(std::string(signature.words), signature.code);
    if (isWideText(head))
        throw FileError("is text in UTF-16: save it as UTF-8", "utf-16");
    if (isHtml(head))
        throw FileError("is an HTML or XML document", "other-document");
    if (head.find('\r') != head.npos && head.find('\n') == head.npos)
        throw FileError(
            "has lines that end with a carriage return alone: save it with line feeds, or with "
            "both",
            "cr-line-ends");
}

void refuseBinary(std::string_view head) {
    const auto isControl = [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 && std::string_view("\t\n\v\f\r\x1a").find(c) == std::string_view::npos;
    };
    if (std::ranges::any_of(head, isControl))
        throw FileError("is a binary file, not a text", "binary");
}

std::string_view withoutMark(std::string_view head) {
    constexpr std::string_view kMark = "\xef\xbb\xbf";
    return head.substr(head.starts_with(kMark) ? kMark.size() : 0);
}

void refuseHiddenLine(std::string_view head) {
    const std::string_view content = withoutMark(head);
    if (content.size() == head.size())
        return;
    const std::string_view line = trimmed(content.substr(0, content.find('\n')));
    constexpr std::array<std::string_view, 4> kHarmless = {"**", "$", "!", "*HEADING"};
    const bool isHarmless = std::ranges::any_of(
        kHarmless, [&](std::string_view front) { return upperCase(line).starts_with(front); });
    if (!line.empty() && !isHarmless)
        throw FileError(
            "begins with a byte order mark, which hides its first line from the readers: save it "
            "as UTF-8 without the mark",
            "byte-order-mark");
}

}  // namespace kvocaeio::host
