/// What `CKVOCadenceReader` makes of the 3DI file or the reports of a rule.
#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <regex>
#include <stdexcept>

#include "docs/rules.h"
#include "support/files.h"
#include <kvocaeio/package.h>

namespace kvocaeio::test {

namespace {

constexpr std::string_view kCleanMemory = "<CleanMemory>\n";

// "true", "false", or what is thrown.
std::string resultOf(const std::function<bool()>& call) {
    try {
        return call() ? "true" : "false";
    } catch (const std::out_of_range& error) {
        return std::string("throws std::out_of_range: ") + error.what();
    }
}

void showBodies(CKVOCadenceReader& reader, Lines& lines) {
    for (int i = 0; i < reader.GetComponentCount(); ++i) {
        std::array<char, 1024> name{};
        int isBall = 0;
        double c[3] = {};
        double s[5] = {};
        unsigned color = 0;
        reader.GetComponentData(i, name.data(), isBall, c, s, color);
        std::string line = print("%s \"%s\": centre %g %g %g, ", isBall == 1 ? "ball" : "body",
                                 name.data(), c[0], c[1], c[2]);
        line += isBall == 1 ? print("diameter %g", s[0]) : print("size %g %g %g", s[0], s[1], s[2]);
        lines.push_back(line + print(", colour %u", color));
    }
}

void showWires(CKVOCadenceReader& reader, Lines& lines) {
    lines.push_back(print("GetWireLineCount: %d", reader.GetWireLineCount()));
    for (int i = 0; i < reader.GetWireLineCount(); ++i) {
        std::vector<double> points;
        int profile = 0;
        double diameter = 0;
        std::string result =
            resultOf([&] { return reader.GetWirePolyLine(i, points, profile, diameter); });
        if (result == "true") {
            result = print("profile %d, diameter %g, points", profile, diameter);
            for (const double number : points)
                result += print(" %g", number);
        }
        lines.push_back("wire: " + result);
        result = resultOf([&] { return reader.GetWireLine(i, points, profile, diameter); });
        lines.push_back(print("GetWireLine(%d): ", i) +
                        (result == "true" ? print("%zu numbers", points.size()) : result));
    }
    lines.push_back(print("GetWireProfileCount: %d", reader.GetWireProfileCount()));
    for (int n = 1; n < 8; ++n) {
        const char* name = "";
        double diameter = 0;
        unsigned color = 0;
        const std::string result =
            resultOf([&] { return reader.GetWireProfileData(n, name, diameter, color); });
        lines.push_back(print("GetWireProfileData(%d): ", n) +
                        (result == "true"
                             ? print("\"%s\", diameter %g, colour %u", name, diameter, color)
                             : result));
    }
}

// Puts a changed line into a report: "3: text" replaces its third line, "none" removes it all.
void changeReport(std::string& report, bool& exists, const std::string& change) {
    std::smatch match;
    if (change == "none") {
        exists = false;
        return;
    }
    ASSERT_TRUE(std::regex_match(change, match, std::regex("(\\d+): ?(.*)"))) << change;
    Lines reportLines = splitLines(report);
    const std::size_t at = std::stoul(match[1]) - 1;
    if (at >= reportLines.size())
        reportLines.resize(at + 1);
    reportLines[at] = match[2];
    report.clear();
    for (const std::string& line : reportLines)
        report += line + "\n";
}

}  // namespace

Lines show3di(const Rule& rule) {
    const TempFolder folder;
    CKVOCadenceReader reader;
    Lines lines;
    for (std::string file : rule.files) {
        if (file.starts_with(kCleanMemory)) {
            reader.CleanMemory();
            file.erase(0, kCleanMemory.size());
        }
        const std::string path = folder.write("package.3di", file);
        lines.push_back("Import3DIFile: " +
                        resultOf([&] { return reader.Import3DIFile(path.c_str()); }));
    }
    showBodies(reader, lines);
    showWires(reader, lines);
    return lines;
}

Lines showReports(const Rule& rule) {
    const TempFolder folder;
    CKVOCadenceReader reader;
    reader.SetTempFilePath(folder.path().string().c_str());
    Lines lines;
    std::array<std::string, 3> reports;
    std::array<bool, 3> exist = {true, true, true};
    static const std::regex line("(symbol|layer|stack) (.*)");
    for (const std::string& file : rule.files) {
        std::smatch match;
        for (const std::string& change : splitLines(file))
            if (std::regex_match(change, match, line)) {
                const std::size_t report = match[1] == "symbol" ? 0 : match[1] == "layer" ? 1 : 2;
                changeReport(reports[report], exist[report], match[2]);
            }
        for (std::size_t i = 0; i < reports.size(); ++i) {
            const std::string name = "CmdFile" + std::to_string(i + 1) + ".txt";
            if (exist[i])
                folder.write(name, reports[i]);
            else
                std::filesystem::remove(folder.path() / name);
        }
        lines.push_back("ImportCadenceFile: " +
                        resultOf([&] { return reader.ImportCadenceFile("design"); }));
    }
    showBodies(reader, lines);
    return lines;
}

}  // namespace kvocaeio::test
