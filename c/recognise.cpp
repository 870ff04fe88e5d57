/// What lines tell which format.
#include "c/recognise.h"

#include <algorithm>
#include <array>
#include <string>

#include "c/content.h"
#include "c/host_path.h"
#include "text/ascii.h"
#include "text/tokens.h"
#include "tidy/format.h"

namespace kvocaeio::c_interface {

namespace {

constexpr std::size_t kHeadSize = std::size_t{64} * 1024;

constexpr std::array<std::string_view, 5> k3diWords{"3DI", "GEOMETRIES", "GEOM", "3DPL",
                                                    "WIRE_MODELS"};
constexpr std::array<std::string_view, 6> kMeshKeywords{"*NODE",    "*ELEMENT", "*ELSET",
                                                        "*SURFACE", "*DLOAD",   "*SHELL SECTION"};
constexpr std::array<std::string_view, 3> k3diTables{"COLOR", "OBJECT", "LAYER"};

// Takes the first word off `line`, in upper case.
std::string takeWord(std::string_view& line) {
    constexpr std::string_view kBlanks = " \t\r";
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    const std::size_t length = std::min(line.find_first_of(kBlanks), line.size());
    std::string word;
    text::foldToUpper(line.substr(0, length), word);
    line.remove_prefix(length);
    return word;
}

bool is3diLine(std::string_view line) {
    const std::string word = takeWord(line);
    return word == "TABLE" ? std::ranges::find(k3diTables, takeWord(line)) != k3diTables.end()
                           : std::ranges::find(k3diWords, word) != k3diWords.end();
}

// Whether a line is one of the keywords that a deck with a mesh has.
bool isMeshKeyword(std::string_view line) {
    std::string keyword;
    text::foldToUpper(text::trimBlanks(line.substr(0, line.find(','))), keyword);
    return std::ranges::find(kMeshKeywords, keyword) != kMeshKeywords.end();
}

// An asterisk begins lines of other texts, too, but seldom their first one.
std::int32_t formatOfLine(std::string_view line, bool isFirst) {
    if (is3diLine(line))
        return KVOCAEIO_FORMAT_3DI;
    switch (tidy::recogniseText(line)) {
        case tidy::DeckFormat::kAbaqus:
            return isFirst || isMeshKeyword(line) ? KVOCAEIO_FORMAT_ABAQUS
                                                  : KVOCAEIO_FORMAT_UNKNOWN;
        case tidy::DeckFormat::kNastran:
            return KVOCAEIO_FORMAT_NASTRAN;
        case tidy::DeckFormat::kUnknown:
            break;
    }
    return KVOCAEIO_FORMAT_UNKNOWN;
}

// A Patran file begins, after comments, with the header card of its title or summary: "25" or "26"
// and numbers in columns of eight.
bool isPatranHead(std::string_view head) {
    while (head.starts_with('!'))
        head.remove_prefix(std::min(head.find('\n'), head.size() - 1) + 1);
    const std::string_view card = head.substr(0, head.find('\n'));
    return (card.starts_with("25") || card.starts_with("26")) && card.size() >= 26 &&
           card.find_first_not_of(" -0123456789\r", 2) == std::string_view::npos;
}

}  // namespace

std::int32_t recogniseText(std::string_view head) {
    if (isPatranHead(head))
        return KVOCAEIO_FORMAT_PATRAN;
    bool isFirst = true;
    while (!head.empty()) {
        const std::size_t end = std::min(head.find_first_of("\r\n"), head.size());
        const std::string_view line = head.substr(0, end);
        const std::int32_t format = formatOfLine(line, isFirst);
        isFirst = isFirst && line.find_first_not_of(" \t") == std::string_view::npos;
        if (format != KVOCAEIO_FORMAT_UNKNOWN)
            return format;
        head.remove_prefix(std::min(end + 1, head.size()));
    }
    return KVOCAEIO_FORMAT_UNKNOWN;
}

kvocaeio_status recogniseFile(Request& request) {
    kvocaeio_status status = KVOCAEIO_OK;
    const text::File file = openRequested(request, status);
    if (file == nullptr)
        return status;
    std::string head(kHeadSize, '\0');
    head.resize(std::fread(head.data(), 1, head.size(), file.get()));
    request.options.format = recogniseText(head);
    if (request.options.format != KVOCAEIO_FORMAT_UNKNOWN)
        return KVOCAEIO_OK;
    return fail(KVOCAEIO_UNKNOWN_FORMAT,
                head.empty() ? "the file is empty" : "nothing in the file tells its format",
                request.name);
}

}  // namespace kvocaeio::c_interface

using namespace kvocaeio::c_interface;

kvocaeio_status kvocaeio_recognise(const char* path, std::int32_t* format) {
    if (format == nullptr)
        return fail(KVOCAEIO_BAD_ARGUMENT, "no place for the format is given");
    return guarded([&] {
        Request request;
        kvocaeio_status status = takePath(path, request);
        if (status == KVOCAEIO_OK)
            status = recogniseFile(request);
        if (status == KVOCAEIO_OK)
            *format = request.options.format;
        return status;
    });
}

const char* kvocaeio_format_name(std::int32_t format) {
    constexpr std::array<const char*, 6> kNames{
        "unknown",     "Abaqus input deck", "Nastran bulk data deck", "Patran neutral file",
        "3DI package", "Cadence design"};
    const auto row = static_cast<std::size_t>(format);
    return row < kNames.size() ? kNames[row] : nullptr;
}
