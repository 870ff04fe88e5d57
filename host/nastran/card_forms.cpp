/// A look at the first two fields of each line.
#include "nastran/card_forms.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <string_view>
#include <system_error>
#include <vector>

#include "c_file.h"
#include "file_head.h"

namespace kvocaeio::host {

namespace {

// What the names of the cards begin with that the library reads: elements, GRID, properties.
constexpr std::array<std::string_view, 10> kElements = {
    "CROD", "CTUBE", "CBAR", "CBEAM", "CQUAD", "CTRIA", "CSHEAR", "CTETRA", "CPENTA", "CHEXA"};
constexpr std::array<std::string_view, 7> kOthers = {"GRID", "PSOLID", "PSHELL", "PSHEAR",
                                                     "PROD", "PTUBE",  "PB"};

template <std::size_t kSize>
bool beginsWithAny(std::string_view name, const std::array<std::string_view, kSize>& fronts) {
    return std::ranges::any_of(fronts,
                               [&](std::string_view front) { return name.starts_with(front); });
}

constexpr std::size_t kFieldColumns = 8;
constexpr std::size_t kColumns = 2 * kFieldColumns;  // of a line that are looked at

bool isAboveZero(std::string_view field) {
    field = trimmed(field);
    int number = 0;
    return std::from_chars(field.data(), field.data() + field.size(), number).ec == std::errc() &&
           number > 0;
}

void look(std::string_view line, CardForms& forms) {
    line = line.substr(0, kColumns);
    const std::string_view first = line.substr(0, kFieldColumns + 1);
    const std::size_t end = first.find_first_of(",*");
    const bool isFree = end != first.npos;
    const std::string_view name = trimmed(first.substr(0, isFree ? end : kFieldColumns));
    const bool isElement = beginsWithAny(name, kElements);
    const bool isGrid = name == "GRID";
    if (!isElement && !beginsWithAny(name, kOthers))
        return;
    if (isFree) {
        ++forms.freeCards;
        forms.freeGrids += isGrid ? 1u : 0u;
    } else if (line.size() > kFieldColumns && isAboveZero(line.substr(kFieldColumns))) {
        forms.fixedGrids += isGrid ? 1u : 0u;
        forms.fixedElements += isElement ? 1u : 0u;
    }
}

}  // namespace

CardForms countCardForms(const std::string& path) {
    constexpr std::size_t kBlock = std::size_t{1} << 18;
    CardForms found;
    const CFile file = openFile(path, "rb");
    if (!file)
        return found;
    std::vector<char> block(kBlock);
    std::size_t kept = 0;  // the front of a line whose end is in the next block
    while (const std::size_t got =
               std::fread(block.data() + kept, 1, block.size() - kept, file.get())) {
        const char* line = block.data();
        const char* const end = line + kept + got;
        while (const auto* feed = static_cast<const char*>(
                   std::memchr(line, '\n', static_cast<std::size_t>(end - line)))) {
            look({line, feed}, found);
            line = feed + 1;
        }
        // No card is as long as a block: of a longer line only the front counts.
        kept = static_cast<std::size_t>(end - line);
        if (kept > kBlock / 2)
            kept = kColumns;
        std::memmove(block.data(), line, kept);
    }
    look({block.data(), kept}, found);
    return found;
}

}  // namespace kvocaeio::host
