/// The library's import beside the plain one.
#include "package/package_comparison.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cmath>
#include <filesystem>

#include "package/imported_package.h"
#include "text/naive_input.h"

namespace kvocaeio::test {
namespace {

void put(std::string& out, int value) {
    out += " " + std::to_string(value);
}

/// To the last bit; any two that are no numbers are the same.
void put(std::string& out, double value) {
    std::array<char, 40> content{};  // the terminator stays
    if (!std::isnan(value))
        std::to_chars(content.data(), content.data() + 39, value, std::chars_format::hex);
    out += std::string(" ") + (std::isnan(value) ? "nan" : content.data());
}

template <class Reader>
void putBody(std::string& out, Reader& reader, int index) {
    char name[1100] = "untouched";
    int isBall = -77;
    double center[3] = {-77, -77, -77};
    double size[5] = {-77, -77, -77, -77, -77};
    unsigned color = 77;
    const bool found = reader.GetComponentData(index, name, isBall, center, size, color);
    out += "body " + std::to_string(index) + (found ? " true '" : " false '") + name + "'";
    put(out, isBall);
    for (const double length : center)
        put(out, length);
    for (const double length : size)
        put(out, length);
    out += " " + std::to_string(color) + "\n";
}

template <class Reader>
void putWire(std::string& out, Reader& reader, int index) {
    for (const auto query : {&Reader::GetWireLine, &Reader::GetWirePolyLine}) {
        std::vector<double> points{-77};
        int profile = -77;
        double diameter = -77;
        out += "wire " + std::to_string(index) + " " +
               outcomeOf([&] { return (reader.*query)(index, points, profile, diameter); });
        put(out, profile);
        put(out, diameter);
        for (const double length : points)
            put(out, length);
        out += "\n";
    }
}

template <class Reader>
void putProfile(std::string& out, Reader& reader, int profile) {
    const char* name = "untouched";
    double diameter = -77;
    unsigned color = 77;
    out += "profile " + std::to_string(profile) + " " +
           outcomeOf([&] { return reader.GetWireProfileData(profile, name, diameter, color); });
    out += std::string(" '") + name + "'";
    put(out, diameter);
    out += " " + std::to_string(color) + "\n";
}

/// All that the queries give, as text.
template <class Reader>
std::string answers(Reader& reader) {
    const int bodyCount = reader.GetComponentCount();
    const int wireCount = reader.GetWireLineCount();
    const int profileCount = reader.GetWireProfileCount();
    std::string out = std::to_string(bodyCount) + " bodies, " + std::to_string(wireCount) +
                      " wires, " + std::to_string(profileCount) + " profiles\n";
    for (int index = -1; index <= bodyCount; ++index)
        putBody(out, reader, index);
    putBody(out, reader, INT_MIN);
    putBody(out, reader, INT_MAX);
    for (int index = -1; index <= wireCount; ++index)
        putWire(out, reader, index);
    putWire(out, reader, INT_MIN);
    putWire(out, reader, INT_MAX);
    for (const int profile : {INT_MIN, -1, 0, 1, 2, 3, 4, 5, 6, profileCount, INT_MAX})
        putProfile(out, reader, profile);
    return out;
}

/// The first lines that differ, or nothing.
std::string difference(const std::string& plain, const std::string& library) {
    if (plain == library)
        return "";
    const auto split = std::mismatch(plain.begin(), plain.end(), library.begin(), library.end());
    const auto lineAt = [](const std::string& content, std::string::const_iterator at) {
        const std::size_t place = static_cast<std::size_t>(at - content.begin());
        const std::size_t start = place == 0 ? 0 : content.rfind('\n', place - 1) + 1;
        return content.substr(start, content.find('\n', place) - start);
    };
    return "plain:   " + lineAt(plain, split.first) + "\nlibrary: " + lineAt(library, split.second);
}

}  // namespace

std::string PackageComparison::firstDifference(const std::vector<ImportStep>& steps) {
    NaivePackage plain;
    CKVOCadenceReader library;
    for (std::size_t step = 0; step < steps.size(); ++step) {
        const std::string path = folder_.write("package.3di", steps[step].content);
        const std::string content = asText(steps[step].content);
        const std::string textPath =
            content == steps[step].content ? path : folder_.write("plain.3di", content);
        if (steps[step].cleanBefore) {
            plain.CleanMemory();
            library.CleanMemory();
        }
        std::string expected = outcomeOf([&] { return plain.Import3DIFile(textPath.c_str()); });
        std::string given = outcomeOf([&] { return library.Import3DIFile(path.c_str()); });
        // A new file is written far faster than one that is there is replaced.
        std::filesystem::remove(path);
        std::filesystem::remove(textPath);
        expected += "\n" + answers(plain);
        given += "\n" + answers(library);
        const std::string differs = difference(expected, given);
        if (!differs.empty())
            return "import " + std::to_string(step) + "\n" + differs + "\n--- file\n" +
                   steps[step].content;
    }
    return "";
}

}  // namespace kvocaeio::test
