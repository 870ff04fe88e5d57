/// Signs of a format in the lines of a deck.
#include "tidy/format.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <string>

#include "text/ascii.h"
#include "text/file.h"
#include "text/scan.h"

namespace kvocaeio::tidy {

namespace {

constexpr std::size_t kBeginning = std::size_t{1} << 20;

// Words that begin a line of a Nastran deck and mean nothing elsewhere: statements of the executive
// and case control, and cards.
constexpr std::array<std::string_view, 48> kNastranWords{
    "SOL",    "CEND",   "NASTRAN", "ASSIGN", "BEGIN",  "ENDDATA", "INCLUDE", "SUBCASE",
    "ID",     "DIAG",   "TITLE",   "ECHO",   "PARAM",  "GRID",    "GRDSET",  "CORD1R",
    "CORD1C", "CORD1S", "CORD2R",  "CORD2C", "CORD2S", "CROD",    "CTUBE",   "CBAR",
    "CBEAM",  "CTETRA", "CPENTA",  "CHEXA",  "CPYRAM", "CQUAD4",  "CQUAD8",  "CQUADR",
    "CTRIA3", "CTRIA6", "CTRIAR",  "CSHEAR", "PROD",   "PTUBE",   "PBAR",    "PBEAM",
    "PSHELL", "PSHEAR", "PSOLID",  "MAT1",   "SPC",    "SPC1",    "FORCE",   "SUPORT"};

bool isLetter(char c) {
    const char letter = text::toUpper(c);
    return letter >= 'A' && letter <= 'Z';
}

bool isNastranWord(std::string_view line) {
    std::string word;
    for (const char c : line.substr(0, 8)) {
        if (!isLetter(c) && !text::isDigit(c))
            break;
        word += text::toUpper(c);
    }
    return std::ranges::find(kNastranWords, word) != kNastranWords.end();
}

DeckFormat formatOf(std::string_view line) {
    while (!line.empty() && text::isSpace(line.front()))
        line.remove_prefix(1);
    if (line.starts_with('$'))
        return DeckFormat::kNastran;
    if (line.starts_with('*') && line.size() > 1)
        return line[1] == '*' || isLetter(line[1]) ? DeckFormat::kAbaqus : DeckFormat::kUnknown;
    return isNastranWord(line) ? DeckFormat::kNastran : DeckFormat::kUnknown;
}

}  // namespace

DeckFormat recogniseText(std::string_view beginning) {
    if (beginning.starts_with("\xEF\xBB\xBF"))
        beginning.remove_prefix(3);
    while (!beginning.empty()) {
        const std::size_t end = beginning.find_first_of("\r\n");
        const DeckFormat format = formatOf(beginning.substr(0, end));
        if (format != DeckFormat::kUnknown || end == std::string_view::npos)
            return format;
        beginning.remove_prefix(end + 1);
    }
    return DeckFormat::kUnknown;
}

DeckFormat recogniseDeck(const Deck& deck) {
    const text::File file = text::openFile(deck.path.c_str(), "rb");
    if (file == nullptr)
        return DeckFormat::kUnknown;
    std::string beginning(std::size_t{1} << 12, '\0');
    DeckFormat format = DeckFormat::kUnknown;
    for (std::size_t size = 0; format == DeckFormat::kUnknown && size < kBeginning;) {
        const std::size_t count =
            std::fread(beginning.data() + size, 1, beginning.size() - size, file.get());
        if (count == 0)
            break;
        size += count;
        format = recogniseText(std::string_view(beginning).substr(0, size));
        beginning.resize(std::max(beginning.size(), 8 * size));
    }
    return format;
}

}  // namespace kvocaeio::tidy
