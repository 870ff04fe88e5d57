/// Fuzz target: any bytes as an Abaqus deck, tidied; a tidy deck needs nothing and can be imported.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "fuzz/long_numbers.h"
#include "fuzz/silence.h"
#include "support/files.h"
#include <kvocaeio/report.h>
#include <kvocaeio/tidy.h>

namespace {

// Decks may generate far more than they hold.
constexpr std::size_t kDigitsOfSmallNumbers = 5;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool silent = kvocaeio::test::silence();
    static const kvocaeio::test::TempFolder folder;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (!silent || kvocaeio::test::hasLongNumber(bytes, kDigitsOfSmallNumbers))
        return 0;
    const std::string path = folder.write("deck.inp", bytes);
    const std::string out = folder.file("tidy.inp");
    std::filesystem::remove(out);
    CKVODeckTidy tidy;
    CKVOImportReport report;
    CKVOImportReport::FindingData failure;
    if (!tidy.Tidy(path.c_str(), out.c_str(), CKVODeckTidy::kAbaqus, &report)) {
        if (!report.GetFailure(&failure) || std::filesystem::exists(out))
            std::abort();
        return 0;
    }
    CKVODeckTidy again;
    if (!again.Tidy(out.c_str(), nullptr, CKVODeckTidy::kAbaqus, &report) || again.IsNeeded() ||
        again.GetNodeOriginNum() != tidy.GetNodeOriginNum() ||
        again.GetElemOriginNum() != tidy.GetElemOriginNum())
        std::abort();
    return 0;
}
