/// Fuzz target: any bytes as a Nastran deck, read twice, asked for all that came of it, and held
/// against imports by other roads.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "fuzz/long_numbers.h"
#include "fuzz/reported.h"
#include "nastran/twin_imports.h"
#include "support/files.h"
#include <kvocaeio/nastran.h>

namespace {

using kvocaeio::test::hasLongNumber;

// Every value handed out goes in here, so that none is left unread.
volatile double seen = 0.0;

// Arrays have a row for each number up to the largest one: six digits make them large enough.
constexpr std::size_t kDigitsOfSmallNumbers = 6;

// The rows that most decks use, and the last one.
template <class Number>
void lookAt(const Number* vector, int rows, std::size_t width) {
    constexpr std::size_t kRows = 2000;
    const std::size_t count = static_cast<std::size_t>(rows) * width;
    for (std::size_t i = 0; i < std::min(count, kRows * width); ++i)
        seen = static_cast<double>(vector[i]);
    if (count > 0)
        seen = static_cast<double>(vector[count - 1]);
}

void lookAtAll(KVONASTRAN_Reader& reader) {
    lookAt(reader.GetNodeVector(), reader.GetNodeCout(), 4);
    lookAt(reader.GetElemVector(), reader.GetElemCout(), 9);
    const int sections = std::max(reader.GetSectionCout(), 0);
    lookAt(reader.GetSectionVector(), sections, 3);
    const int materials = reader.GetPropertiesCout();
    if (materials < 0 || materials > sections || materials != reader.GetPropertiesCout())
        std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const kvocaeio::test::TempFolder folder;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (hasLongNumber(bytes, kDigitsOfSmallNumbers))
        return -1;
    const std::string path = folder.write("deck.nas", bytes);
    KVONASTRAN_Reader reader;
    CKVOImportReport report;
    const bool read = reader.SetFilePath(path.c_str(), &report);
    kvocaeio::test::walkReport(report, read);
    if (read != (reader.GetNodeCout() > 0 && reader.GetElemCout() > 0))
        std::abort();
    if (!kvocaeio::test::differenceToTwins(reader, read, path.c_str()).empty())
        std::abort();
    if (!read)
        return 0;
    lookAtAll(reader);
    const float* const nodes = reader.GetNodeVector();
    const int count = reader.GetNodeCout();
    if (!reader.SetFilePath(path.c_str()))
        std::abort();
    // Some file systems are slow to write over a file, and quick to make a new one.
    std::filesystem::remove(path);
    lookAtAll(reader);
    // What the first reading handed out is still there.
    lookAt(nodes, count, 4);
    return 0;
}
