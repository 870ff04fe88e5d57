/// Fuzz target: any bytes as a neutral file, imported by both readers and handed out whole.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/long_numbers.h"
#include "fuzz/reported.h"
#include "fuzz/silence.h"
#include "support/files.h"
#include <kvocaeio/patran.h>

namespace {

using kvocaeio::test::hasLongNumber;

// Every value handed out goes in here, so that none is left unread.
volatile double seen = 0.0;

// A summary may promise any number of rows; these are looked at.
constexpr int kMaxRows = 2000;

void walkLists(CKVO_PatranIO_Bridge& reader) {
    for (int i = -1; i <= std::min(reader.GetNodeCount(), kMaxRows); ++i) {
        float x = 0.0F;
        float y = 0.0F;
        float z = 0.0F;
        reader.GetNodeCoordinate(i, &x, &y, &z);
        seen = x + y + z;
    }
    for (int i = -1; i <= std::min(reader.GetElementCount(), kMaxRows); ++i) {
        std::array<int, 4> corners{};
        int type = 0;
        std::array<double, 3> values{};
        reader.GetElementDataBase(i, &corners[0], &corners[1], &corners[2], &corners[3], &type,
                                  &values[0], &values[1], &values[2]);
        for (const int corner : corners)
            if (corner != 0 && (corner < 0 || corner >= reader.GetNodeCount()))
                std::abort();
        seen = type + values[0] + values[1] + values[2];
    }
}

void walkArrays(CPatranReader& reader) {
    for (int i = -1; i <= std::min(reader.GetNodeCout(), kMaxRows); ++i) {
        float x = 0.0F;
        float y = 0.0F;
        float z = 0.0F;
        if (reader.GetNode(i, x, y, z) != (i >= 0 && i < reader.GetNodeCout()))
            std::abort();
        seen = x + y + z;
    }
    for (int i = -1; i <= std::min(reader.GetElemCount(), kMaxRows); ++i) {
        int type = 0;
        int property = 0;
        std::array<int, 8> nodes{};
        const bool found = reader.GetElement(i, type, property, nodes.data());
        if (found != (i >= 0 && i < reader.GetElemCount()))
            std::abort();
        // (After a second summary the first one's nodes keep their indices, wherever they point.)
        for (const int node : nodes)
            if (node < 0)
                std::abort();
        seen = type + property;
    }
}

void copyArrays(CPatranReader& reader) {
    constexpr auto kRows = static_cast<std::size_t>(kMaxRows);
    static std::array<float[3], kRows> coordinates;
    static std::array<int, kRows> types;
    static std::array<int[8], kRows> nodes;
    for (const int count : {-1, kMaxRows}) {
        reader.GetVertex(coordinates.data(), count);
        reader.GetElemType(types.data(), count);
        reader.GetElemNode(nodes.data(), count);
    }
}

// Of ids and counts whose arrays may be as large as a fuzzer lets them be.
constexpr std::size_t kDigitsOfSmallNumbers = 5;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool silent = kvocaeio::test::silence();
    static const kvocaeio::test::TempFolder folder;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (!silent)
        std::abort();
    if (hasLongNumber(bytes, kDigitsOfSmallNumbers))
        return 0;
    const std::string path = folder.write("part.pat", bytes);
    CKVO_PatranIO_Bridge lists;
    CPatranReader arrays;
    // Twice, since the second import builds on what the first has left.
    for (int import = 0; import < 2; ++import) {
        CKVOImportReport report;
        CKVOImportReport* const wanted = import == 0 ? &report : nullptr;
        if (!lists.ImportFromPatFile(path.c_str(), wanted))
            std::abort();
        kvocaeio::test::walkReport(report, true);
        if (!arrays.ImportFromPatFile(path.c_str(), wanted))
            std::abort();
        kvocaeio::test::walkReport(report, true);
        walkLists(lists);
        walkArrays(arrays);
        copyArrays(arrays);
    }
    return 0;
}
