/// A look at the first field of each line.
#include "nastran/free_fields.h"

#include <array>
#include <cstring>
#include <string_view>
#include <vector>

#include "c_file.h"
#include "file_head.h"

namespace kvocaeio::host {

namespace {

// What the names of the cards begin with that the library reads.
constexpr std::array<std::string_view, 14> kNames = {
    "GRID",   "CROD",   "CTUBE",  "CBAR",  "CBEAM",  "CQUAD",  "CTRIA",
    "CSHEAR", "CTETRA", "CPENTA", "CHEXA", "PSOLID", "PSHELL", "PBAR"};

// A name ends within the first field, of eight columns.
constexpr std::size_t kNameColumns = 9;

void look(std::string_view line, FreeFieldCards& found) {
    line = line.substr(0, kNameColumns);
    const std::size_t end = line.find_first_of(",*");
    if (end == line.npos)
        return;
    const std::string_view name = trimmed(line.substr(0, end));
    for (const std::string_view known : kNames)
        if (name.starts_with(known)) {
            ++found.cards;
            found.grids += name == "GRID" ? 1u : 0u;
            return;
        }
}

}  // namespace

FreeFieldCards countFreeFieldCards(const std::string& path) {
    constexpr std::size_t kBlock = std::size_t{1} << 18;
    FreeFieldCards found;
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
            kept = kNameColumns;
        std::memmove(block.data(), line, kept);
    }
    look({block.data(), kept}, found);
    return found;
}

}  // namespace kvocaeio::host
