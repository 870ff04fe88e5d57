/// Imports of small 3DI files, and what the public queries give after them, as short texts.
#include "package/imported_package.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>

namespace kvocaeio::test {
namespace {

constexpr double kUntouchedDiameter = -77.0;
constexpr unsigned kUntouchedColor = 77;
constexpr const char* kUntouchedName = "-";

std::string joined(const double* values, std::size_t count) {
    std::string out;
    for (std::size_t i = 0; i < count; ++i)
        out += (i == 0 ? "" : " ") + numberText(values[i]);
    return out;
}

}  // namespace

std::string importText(CKVOCadenceReader& reader, std::string_view content) {
    // One folder serves all: a folder takes far longer to remove than a file.
    static const TempFolder folder;
    const std::string path = folder.write("package.3di", content);
    const std::string result = outcomeOf([&] { return reader.Import3DIFile(path.c_str()); });
    std::filesystem::remove(path);
    return result;
}

std::string numberText(double value) {
    if (std::isnan(value))
        return "nan";
    char content[32];
    std::snprintf(content, sizeof content, "%.12g", value);
    return content;
}

std::vector<std::string> bodies(CKVOCadenceReader& reader) {
    std::vector<std::string> out;
    for (int i = 0; i < reader.GetComponentCount(); ++i) {
        std::array<char, 1024> name{};
        int isBall = -1;
        std::array<double, 3> center{};
        std::array<double, 5> size{};
        unsigned color = 0;
        if (!reader.GetComponentData(i, name.data(), isBall, center.data(), size.data(), color))
            return {"a body is missing"};
        out.push_back(std::string(name.data()) + ": centre " + joined(center.data(), 3) +
                      (isBall == 1 ? ", diameter " : ", size ") +
                      joined(size.data(), isBall == 1 ? 1 : 3) + ", colour " +
                      std::to_string(color));
    }
    return out;
}

std::vector<std::string> wires(CKVOCadenceReader& reader) {
    std::vector<std::string> out;
    for (int i = 0; i < reader.GetWireLineCount(); ++i) {
        std::vector<double> points;
        int profile = 0;
        double diameter = 0.0;
        const std::string result =
            outcomeOf([&] { return reader.GetWirePolyLine(i, points, profile, diameter); });
        if (result != "true") {
            out.push_back(result);
            continue;
        }
        std::string wire =
            "profile " + std::to_string(profile) + ", diameter " + numberText(diameter) + ":";
        for (std::size_t at = 0; at + 3 <= points.size(); at += 3)
            wire += (at == 0 ? " " : "; ") + joined(&points[at], 3);
        out.push_back(wire);
    }
    return out;
}

std::string profileData(CKVOCadenceReader& reader, int profile) {
    const char* name = kUntouchedName;
    double diameter = kUntouchedDiameter;
    unsigned color = kUntouchedColor;
    const std::string result =
        outcomeOf([&] { return reader.GetWireProfileData(profile, name, diameter, color); });
    return result + ": " + name + ", " +
           (diameter == kUntouchedDiameter ? "-" : numberText(diameter)) + ", " +
           (color == kUntouchedColor ? "-" : std::to_string(color));
}

std::vector<std::string> bodiesOf(const std::string& geometries, const std::string& tables) {
    Package loaded(tables + geometries);
    if (loaded.result != "true")
        return {loaded.result};
    return bodies(loaded.reader);
}

}  // namespace kvocaeio::test
