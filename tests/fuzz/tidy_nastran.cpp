/// Fuzz target: any bytes as a Nastran deck to be tidied. What comes of it must be read whole, and
/// be tidy.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "fuzz/long_numbers.h"
#include "support/files.h"
#include <kvocaeio/nastran.h>
#include <kvocaeio/report.h>
#include <kvocaeio/tidy.h>

namespace {

void expect(bool isTrue) {
    if (!isTrue)
        std::abort();
}

// Whether the reader, whose arrays have a row for each number, may be let at the deck.
bool haveSmallNumbers(CKVODeckTidy& tidy) {
    constexpr int kMost = 1'000'000;
    CKVODeckTidy::OriginData origin;
    int largest = 0;
    for (tidy.GetNodeOriginBegin(); tidy.GetNodeOriginNext(&origin);)
        largest = std::max(largest, origin.id);
    for (tidy.GetElemOriginBegin(); tidy.GetElemOriginNext(&origin);)
        largest = std::max(largest, origin.id);
    return largest < kMost;
}

void expectReadWhole(CKVODeckTidy& tidy, const std::string& path) {
    KVONASTRAN_Reader reader;
    expect(reader.SetFilePath(path.c_str()));
    expect(reader.GetSectionCout() == tidy.GetPropertyOriginNum());
    CKVODeckTidy::OriginData origin;
    for (tidy.GetNodeOriginBegin(); tidy.GetNodeOriginNext(&origin);) {
        expect(origin.id >= 1 && origin.id <= reader.GetNodeCout());
        expect(reader.GetNodeVector()[4 * (origin.id - 1)] == static_cast<float>(origin.id));
    }
    for (tidy.GetElemOriginBegin(); tidy.GetElemOriginNext(&origin);) {
        expect(origin.id >= 1 && origin.id <= reader.GetElemCout());
        const int* const element = reader.GetElemVector() + 9 * (origin.id - 1);
        const bool isShell = element[0] == 0;  // which has a row of zeros
        expect(isShell ||
               (element[0] == origin.id && std::find(element, element + 9, 0) == element + 9));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const kvocaeio::test::TempFolder folder;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    // Numbers of repetitions are left small, too.
    if (kvocaeio::test::hasLongNumber(bytes, 4))
        return -1;
    const std::string in = folder.write("deck", bytes);
    const std::string out = folder.file("tidied");
    const std::string again = folder.file("again");
    CKVODeckTidy tidy;
    CKVOImportReport report;
    if (!tidy.Tidy(in.c_str(), out.c_str(), CKVODeckTidy::kNastran, &report)) {
        CKVOImportReport::FindingData failure;
        expect(report.GetFailure(&failure) && !tidy.IsNeeded() && tidy.GetNodeOriginNum() == 0);
        return 0;
    }
    expect(tidy.IsNeeded() || kvocaeio::test::readBytes(out) == bytes);
    if (haveSmallNumbers(tidy))
        expectReadWhole(tidy, out);
    CKVODeckTidy second;
    expect(second.Tidy(out.c_str(), again.c_str(), CKVODeckTidy::kNastran, nullptr));
    expect(!second.IsNeeded());
    expect(kvocaeio::test::readBytes(again) == kvocaeio::test::readBytes(out));
    expect(second.GetNodeOriginNum() == tidy.GetNodeOriginNum());
    expect(second.GetElemOriginNum() == tidy.GetElemOriginNum());
    return 0;
}
