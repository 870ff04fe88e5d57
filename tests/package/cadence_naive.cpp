/// The plain import, stage by stage.
#include "package/cadence_naive.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace kvocaeio::test {
namespace {

constexpr std::size_t kLineBound = 1024;

std::string upper(std::string content) {
    for (char& c : content)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return content;
}

bool holds(const std::string& content, const char* part) {
    return content.find(part) != std::string::npos;
}

/// The file as text mode gives it. False when it cannot be opened.
bool readText(const std::filesystem::path& path, std::string& content) {
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return false;
    content.assign(std::istreambuf_iterator<char>(in), {});
    for (std::size_t at = 0; (at = content.find("\r\n", at)) != std::string::npos; ++at)
        content.erase(at, 1);
    if (const std::size_t end = content.find('\x1A'); end != std::string::npos)
        content.erase(end);
    return true;
}

/// What fgets reads at `at`, which moves behind it, up to the first NUL in it.
std::string takeLine(const std::string& content, std::size_t& at) {
    std::string line;
    while (at < content.size() && line.size() < kLineBound - 1) {
        line += content[at++];
        if (line.back() == '\n')
            break;
    }
    return line.c_str();
}

/// atof in the C locale. Not every runtime's gives 0 for a text like "--1".
double realOf(const std::string& content) {
    char* end = nullptr;
    const double value = std::strtod(content.c_str(), &end);
    return end == content.c_str() ? 0.0 : value;
}

/// Adds what a thickness cell says. False where it says nothing.
bool addThickness(const std::string& cell, double& height) {
    const std::string content = upper(cell);
    char value[kLineBound], unit[kLineBound];
    if (std::sscanf(content.c_str(), "%1023s %1023s", value, unit) != 2)
        return false;
    height += realOf(value);
    return true;
}

}  // namespace

bool NaiveCadence::import(const std::filesystem::path& folder) {
    for (NaiveReport& report : reports_)
        report = {};
    if (!readReport(folder / "CmdFile1.txt", reports_[0]) ||
        !readReport(folder / "CmdFile2.txt", reports_[1]))
        return false;
    readReport(folder / "CmdFile3.txt", reports_[2]);
    return readUnits() && readReports();
}

bool NaiveCadence::readReport(const std::filesystem::path& path, NaiveReport& report) {
    std::string content;
    if (!readText(path, content))
        return false;
    for (std::size_t at = 0; at < content.size();) {
        std::vector<std::string>* list = nullptr;
        std::string current;
        std::size_t count = 0;
        for (const char c : takeLine(content, at)) {
            if (c != '!') {
                current += c;
                continue;
            }
            if (list == nullptr) {
                if (current == "A")
                    list = &report.header;
                else if (current == "J")
                    list = &report.job;
                else if (current == "S")
                    list = &report.data;
                else
                    return false;
            }
            list->push_back(current);
            ++count;
            current.clear();
        }
        if (list == &report.data && count != report.header.size())
            return false;
    }
    return true;
}

bool NaiveCadence::readUnits() {
    if (reports_[0].job.size() != 13)
        return false;
    const std::string unit = upper(reports_[0].job[8]);
    if (holds(unit, "MM") || holds(unit, "MILLIMETERS"))
        unitScale_ = 1.0;
    else if (holds(unit, "UM") || holds(unit, "MICRONS"))
        unitScale_ = 0.001;
    else if (holds(unit, "NM") || holds(unit, "NANOMETERS"))
        unitScale_ = 0.000001;
    else if (holds(unit, "INCH") || holds(unit, "INCHS"))
        unitScale_ = 25.4;
    else
        unitScale_ = 0.001;
    return true;
}

int NaiveCadence::findColumn(const NaiveReport& report, const std::string& name) const {
    for (std::size_t c = 0; c < report.header.size(); ++c)
        if (upper(report.header[c]) == upper(name))
            return static_cast<int>(c);
    return -1;
}

bool NaiveCadence::findColumns(const NaiveReport& report, const std::vector<std::string>& names) {
    columns_.clear();
    for (const std::string& name : names) {
        const int column = findColumn(report, name);
        if (column == -1)
            return false;
        columns_.push_back(static_cast<std::size_t>(column));
    }
    return true;
}

const std::string& NaiveCadence::cell(const NaiveReport& report, std::size_t row,
                                      std::size_t name) const {
    return report.data.at(row * report.header.size() + columns_.at(name));
}

double NaiveCadence::number(const NaiveReport& report, std::size_t row, std::size_t name) const {
    return realOf(cell(report, row, name));
}

bool NaiveCadence::readReports() {
    components.emplace();
    const std::string design = reports_[0].job[1];
    if (design.empty())
        return false;
    if (holds(design, ".mcm"))
        return readSymbols() && readLayers();
    if (holds(design, ".sip"))
        return readSymbols() && readDieStack() && readLayers();
    return holds(design, ".brd");
}

bool NaiveCadence::readSymbols() {
    const NaiveReport& report = reports_[0];
    const bool isSip = holds(report.job[1], ".sip");
    if (!findColumns(report, {"REFDES", "SYM_NAME", "SYM_BOX_X1", "SYM_BOX_Y1", "SYM_BOX_X2",
                              "SYM_BOX_Y2", "GRAPHIC_DATA_NAME", "GRAPHIC_DATA_1", "GRAPHIC_DATA_2",
                              "GRAPHIC_DATA_3", "GRAPHIC_DATA_4"}))
        return false;
    const std::size_t rows = report.data.size() / report.header.size();
    for (std::size_t r = 0; r < rows; ++r) {
        const std::string refdes = upper(cell(report, r, 0));
        NaiveComponent body;
        if (refdes == "DIE")
            body.type = 2;
        else if (refdes == "PBGA" || refdes == "BGA")
            body.type = 1;
        else
            continue;
        if (isSip && body.type != 1)
            continue;
        if (body.type == 1 && upper(cell(report, r, 6)) != "RECTANGLE")
            continue;
        bool isThere = false;
        for (const NaiveComponent& other : *components)
            isThere = isThere || other.type == body.type;
        if (isThere)
            continue;
        body.name = body.type == 1 ? "SUBSTRATE" : cell(report, r, 1);
        const std::size_t first = body.type == 1 ? 7 : 2;
        const double x1 = number(report, r, first), y1 = number(report, r, first + 1);
        const double x2 = number(report, r, first + 2), y2 = number(report, r, first + 3);
        const double half = unitScale_ * 0.5;
        body.center[0] = (x2 + x1) * half;
        body.center[1] = (y2 + y1) * half;
        body.size[0] = (x2 - x1) * unitScale_;
        body.size[1] = (y2 - y1) * unitScale_;
        components->push_back(body);
    }
    return true;
}

bool NaiveCadence::readDieStack() {
    const NaiveReport& report = reports_[2];
    if (!findColumns(report, {"DSA_MEMBER_TYPE", "DSA_MEMBER_NAME", "DSA_EXTENTS_X1",
                              "DSA_EXTENTS_Y1", "DSA_EXTENTS_X2", "DSA_EXTENTS_Y2",
                              "DSA_STACK_HEIGHT_MIN", "DSA_STACK_HEIGHT_MAX"}))
        return false;
    const std::size_t rows = report.data.size() / report.header.size();
    for (std::size_t r = 0; r < rows; ++r) {
        const std::string type = upper(cell(report, r, 0));
        NaiveComponent body;
        body.type = type == "DIE" ? 2 : type == "INTERPOSER" ? 3 : type == "SPACER" ? 4 : 0;
        if (body.type == 0)
            continue;
        body.name = cell(report, r, 1);
        const double x1 = number(report, r, 2), y1 = number(report, r, 3);
        const double x2 = number(report, r, 4), y2 = number(report, r, 5);
        const double z1 = number(report, r, 6), z2 = number(report, r, 7);
        const double half = unitScale_ * 0.5;
        body.center[0] = (x2 + x1) * half;
        body.center[1] = (y2 + y1) * half;
        body.center[2] = (z2 + z1) * half;
        body.size[0] = (x2 - x1) * unitScale_;
        body.size[1] = (y2 - y1) * unitScale_;
        body.size[2] = (z2 - z1) * unitScale_;
        components->push_back(body);
    }
    return true;
}

bool NaiveCadence::readLayers() {
    const NaiveReport& report = reports_[1];
    if (report.job.size() < 2)
        throw std::out_of_range("invalid vector<T> subscript");
    const bool isMcm = holds(report.job[1], ".mcm");
    if (!findColumns(report, {"LAYER_SORT", "LAYER_SUBCLASS", "LAYER_TYPE", "LAYER_MATERIAL",
                              "LAYER_THICKNESS"}))
        return false;
    double substrateHeight = 0.0, dieHeight = 0.0;
    bool conductorSeen = false, lastConductor = false;
    const std::size_t rows = report.data.size() / report.header.size();
    for (std::size_t r = 0; r < rows; ++r) {
        const std::string type = upper(cell(report, r, 2));
        if (conductorSeen) {
            if (type == "CONDUCTOR")
                lastConductor = true;
        } else if (type == "CONDUCTOR") {
            conductorSeen = true;
            if (r > 0 && cell(report, r - 1, 3) == "AIR")
                addThickness(cell(report, r - 1, 4), substrateHeight);
        } else if (isMcm && type == "DIESTACK") {
            addThickness(cell(report, r, 4), dieHeight);
        }
        if (conductorSeen && addThickness(cell(report, r, 4), substrateHeight) && lastConductor)
            break;
    }
    substrateHeight *= 0.0254;
    dieHeight *= 0.0254;
    for (NaiveComponent& body : *components) {
        if (body.type == 1) {
            body.center[2] = substrateHeight * 0.5;
            body.size[2] = substrateHeight;
        } else if (body.type == 2 && isMcm) {
            body.center[2] = dieHeight * 0.5 + substrateHeight;
            body.size[2] = dieHeight;
        } else {
            body.center[2] = body.center[2] + substrateHeight;
        }
    }
    return true;
}

}  // namespace kvocaeio::test
