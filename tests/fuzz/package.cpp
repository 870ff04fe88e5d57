/// Fuzz target: any bytes as a 3DI file, imported and asked for all that came of it.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "fuzz/reported.h"
#include "support/files.h"
#include <kvocaeio/package.h>

namespace {

// Every value handed out goes in here, so that none is left unread.
volatile double seen = 0.0;

// The one error that an index may lead to.
template <class Query>
void ask(const Query& query) {
    try {
        query();
    } catch (const std::out_of_range& error) {
        if (std::string_view(error.what()) != "invalid vector<T> subscript")
            std::abort();
    }
}

void askForBodies(CKVOCadenceReader& reader) {
    std::array<char, 1024> name{};
    int isBall = 0;
    std::array<double, 3> center{};
    std::array<double, 5> size{};
    unsigned color = 0;
    const int count = reader.GetComponentCount();
    for (int i = -1; i <= count; ++i) {
        const bool found =
            reader.GetComponentData(i, name.data(), isBall, center.data(), size.data(), color);
        if (found != (i >= 0 && i < count))
            std::abort();
        seen = isBall + static_cast<double>(color) + static_cast<double>(std::strlen(name.data()));
        for (const double length : center)
            seen = length;
        for (const double length : size)
            seen = length;
    }
}

void askForWires(CKVOCadenceReader& reader) {
    std::vector<double> points;
    int profile = 0;
    double diameter = 0.0;
    const auto read = [&] {
        for (const double number : points)
            seen = number;
        seen = profile + diameter;
    };
    for (int i = -1; i <= reader.GetWireLineCount(); ++i) {
        ask([&] {
            reader.GetWirePolyLine(i, points, profile, diameter);
            read();
        });
        ask([&] {
            reader.GetWireLine(i, points, profile, diameter);
            read();
        });
    }
    // A file may name any profile, so that not all up to the highest can be asked for.
    for (int profileAsked = -1; profileAsked <= 16; ++profileAsked)
        ask([&] {
            const char* name = "";
            unsigned color = 0;
            reader.GetWireProfileData(profileAsked, name, diameter, color);
            seen = static_cast<double>(std::strlen(name)) + diameter + color;
        });
    seen = reader.GetWireProfileCount();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const kvocaeio::test::TempFolder folder;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string path = folder.write("package.3di", bytes);
    CKVOCadenceReader reader;
    // Twice, since the second import counts on from the first.
    for (int import = 0; import < 2; ++import) {
        CKVOImportReport report;
        bool imported = false;
        ask([&] {
            imported = reader.Import3DIFile(path.c_str(), import == 0 ? &report : nullptr);
        });
        kvocaeio::test::walkReport(report, imported || import > 0);
        askForBodies(reader);
        askForWires(reader);
    }
    reader.CleanMemory();
    askForBodies(reader);
    askForWires(reader);
    return 0;
}
