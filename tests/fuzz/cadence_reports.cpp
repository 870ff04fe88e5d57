/// Fuzz target: any bytes as the three reports of a Cadence design, imported and asked for all that
/// came of them. A line "####" stands between the reports.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

#include "fuzz/reported.h"
#include "support/files.h"
#include <kvocaeio/package.h>

namespace {

// Every value handed out goes in here, so that none is left unread.
volatile double seen = 0.0;

void askForBodies(CKVOCadenceReader& reader) {
    std::array<char, 1024> name{};
    int isBall = 0;
    std::array<double, 3> center{};
    std::array<double, 5> size{};
    unsigned color = 0;
    const int count = reader.GetComponentCount();
    for (int i = 0; i < count; ++i) {
        if (!reader.GetComponentData(i, name.data(), isBall, center.data(), size.data(), color) ||
            isBall != 0 || color != 0)
            std::abort();
        seen = static_cast<double>(std::strlen(name.data()));
        for (const double length : center)
            seen = length;
        for (const double length : size)
            seen = length;
    }
}

bool import(CKVOCadenceReader& reader, CKVOImportReport* report) {
    try {
        return reader.ImportCadenceFile("design.sip", report);
    } catch (const std::out_of_range& error) {
        if (std::string_view(error.what()) != "invalid vector<T> subscript")
            std::abort();
        return false;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const kvocaeio::test::TempFolder folder;
    constexpr std::string_view kBetween = "####\n";
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    for (const char* name : {"CmdFile1.txt", "CmdFile2.txt", "CmdFile3.txt"}) {
        const std::string_view report = rest.substr(0, rest.find(kBetween));
        folder.write(name, report);
        rest.remove_prefix(std::min(rest.size(), report.size() + kBetween.size()));
    }
    CKVOCadenceReader reader;
    reader.SetTempFilePath(folder.path().string().c_str());
    // Twice, since the second import replaces what the first has left.
    for (int i = 0; i < 2; ++i) {
        CKVOImportReport report;
        const bool imported = import(reader, i == 0 ? &report : nullptr);
        kvocaeio::test::walkReport(report, imported || i > 0);
        askForBodies(reader);
    }
    return 0;
}
