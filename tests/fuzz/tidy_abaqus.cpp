/// Fuzz target: any bytes as an Abaqus deck to be tidied. What comes of it must be read whole, and
/// stay as it is when it is tidied again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "fuzz/long_numbers.h"
#include "fuzz/silence.h"
#include "support/files.h"
#include <kvocaeio/abaqus.h>
#include <kvocaeio/report.h>
#include <kvocaeio/tidy.h>

namespace {

// Decks may generate far more than they hold.
constexpr std::size_t kDigitsOfSmallNumbers = 5;

void expect(bool isTrue) {
    if (!isTrue)
        std::abort();
}

void expectReadWhole(CKVODeckTidy& tidy, const std::string& path) {
    CKVOAbaqusReader reader;
    expect(reader.ImportInpFile(path.c_str()));
    expect(reader.GetNodeNum() == tidy.GetNodeOriginNum());
    CKVODeckTidy::OriginData origin;
    CKVOAbaqusReader::NodeData node{};
    tidy.GetNodeOriginBegin();
    for (reader.GetNodeBegin(); reader.GetNodeNext(&node);)
        expect(tidy.GetNodeOriginNext(&origin) && origin.id == node.id);
    CKVOAbaqusReader::ElemSecData section{};
    tidy.GetElemOriginBegin();
    for (reader.GetElemSecBegin(); reader.GetElemSecNext(&section);) {
        if (section.geometryType == 0)
            continue;  // of an unknown type, in a deck that needs nothing
        int id = 0;
        int* nodes = nullptr;
        while (reader.GetElemSecElemNext(&section, &id, &nodes))
            expect(tidy.GetElemOriginNext(&origin) && origin.id == id);
    }
    expect(!tidy.GetElemOriginNext(&origin));
    reader.SortData();  // throws nothing
}

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
        expect(report.GetFailure(&failure) && !std::filesystem::exists(out));
        return 0;
    }
    expect(tidy.IsNeeded() || kvocaeio::test::readBytes(out) == bytes);
    const std::string again = folder.file("again.inp");
    CKVODeckTidy second;
    expect(second.Tidy(out.c_str(), again.c_str(), CKVODeckTidy::kAbaqus, &report));
    expect(kvocaeio::test::readBytes(again) == kvocaeio::test::readBytes(out));
    expect(second.GetNodeOriginNum() == tidy.GetNodeOriginNum());
    expect(second.GetElemOriginNum() == tidy.GetElemOriginNum());
    expectReadWhole(tidy, out);
    return 0;
}
