/// Random small 3DI files, mostly sound, that look for trouble.
#include "package/package_generator.h"

#include <algorithm>
#include <utility>

#include "text/naive_input.h"

namespace kvocaeio::test {

std::string PackageGenerator::file() {
    lines();
    std::string content = joined();
    damageBytes(content);
    return content;
}

std::string PackageGenerator::largeFile() {
    lines();
    // Not inside the tables, which the first line that is no row would end.
    std::vector<std::string> spread;
    for (const std::string& line : lines_) {
        const bool inTable = !line.empty() && line[0] >= '0' && line[0] <= '9';
        for (int count = inTable || chance(50) ? 0 : between(1, 20); count > 0; --count)
            spread.push_back(filler());
        spread.push_back(line);
    }
    lines_ = spread;
    std::string content = joined();
    damageBytes(content);
    return content;
}

void PackageGenerator::lines() {
    lines_.clear();
    letters_ = chance(50) ? 0 : chance(40) ? 1 : 2;
    lineEnds_ = chance(65) ? 0 : chance(60) ? 1 : 2;
    firstId_ = chance(85) ? 1 : between(0, 5);
    colors_ = between(2, 6);
    using Section = void (PackageGenerator::*)();
    std::vector<Section> sections{&PackageGenerator::header,      &PackageGenerator::colorTable,
                                  &PackageGenerator::objectTable, &PackageGenerator::layerTable,
                                  &PackageGenerator::wireModels,  &PackageGenerator::geometries};
    if (chance(15))
        shuffle(sections);
    if (chance(10))
        sections.push_back(sections[below(sections.size())]);
    for (const Section section : sections)
        (this->*section)();
    damageLines();
}

std::string PackageGenerator::real() {
    if (chance(70))
        return std::to_string(between(-5, 30));
    if (chance(85))
        return std::to_string(between(-9, 9)) +
               (kHardReals ? "." + std::to_string(between(0, 99999))
                           : pick({".5", ".25", ".750", ".125", ".0625"}));
    if (perMille(30))
        return pick({"1d2", "1..2", "x", "1,5", "--1"});
    if (kHardReals && chance(10))
        return pick({"1e", "1e+", "0x10", "0x1.8p1", "nan", "inf", "-infinity", "infi", "-nan",
                     "5e-324", "1.7976931348623157e308", "9007199254740993", "0.1"});
    return pick({"0", "1e3", ".5", "1.", "-0.", "0.0", "-0", "1E-2", "+3", "1e400", "2e+05", "7e-1",
                 "0000000001.50", "123456"});
}

std::string PackageGenerator::id(int usual) {
    if (perMille(990))
        return std::to_string(usual);
    return pick({"-1", "0", "1", "2", "7", "5000", "16777216", "2147483647", "-2147483648",
                 "99999999999", "x", "1.5", "+1", "007"});
}

std::string PackageGenerator::numbers(int count) {
    std::string out;
    for (int i = 0; i < count; ++i)
        out += (i == 0 ? "" : chance(95) ? " " : pick({"\t", "  ", "\r", "\v"})) + real();
    return out;
}

void PackageGenerator::line(const std::string& content) {
    lines_.push_back(content);
    if (perMille(6)) {
        const std::size_t length =
            static_cast<std::size_t>(between(1018, 1028)) + (chance(25) ? 1023U : 0U);
        std::string& longer = lines_.back();
        const std::size_t at = chance(50) ? longer.size() : below(longer.size() + 1);
        longer.insert(at, length - std::min(length, longer.size()),
                      chance(70)   ? ' '
                      : chance(50) ? '\t'
                                   : '0');
    }
    if (perMille(6))
        noise();
}

void PackageGenerator::head(const std::string& content) {
    if (perMille(6))
        return;
    if (perMille(8))
        line(content.substr(0, content.find(' ')) + pick({"", " ", " X", " 1", "X 1"}));
    else if (perMille(12))
        line(pick({"X", "X ", " ", "\t", "#"}) + content);
    else
        line(content + (perMille(30) ? pick({" X", " 1", " # note", "x"}) : ""));
}

void PackageGenerator::noise() {
    lines_.push_back(pick({"",          " ",           "# comment",      "text",    "COLOR 1",
                           "WIRE 1 1",  "WIRE_MODEL",  "WIRE_MODELS",    "3DPL 2",  "1 2 3",
                           "1 2",       "GEOM",        "GEOMETRIES",     "####",    "TABLE",
                           "TABLE END", "TABLE COLOR", "NAME OBJECT 1",  "2DPG 2",  "3DI UM",
                           "GEOM ####", "COLOR 1 1 1", "XCOLOR 1 LAYER", "BARL 1 2"}));
}

void PackageGenerator::header() {
    if (chance(10))
        line(pick({"3DI", "# 3D MM", "MM", "3DI FILE", "D3 MM"}));
    if (chance(92))
        line(pick({"3DI MM", "3di file units: inch", "3DI UM", "3DI COMMENT MICRONS", "3DI MICRONS",
                   "3DI ALUMINUM", "3DI NM", "3DI MILLIMETERS", "3DI INCHS", "3DI NANOMETERS",
                   "MM 3DI", "3DI INCH", "X3DIUMX"}));
}

void PackageGenerator::colorTable() {
    line(chance(97) ? "TABLE COLOR"
                    : pick({"TABLE C", "TABLE COLORS", "COLOR TABLE", "PRETABLEX COLOR",
                            "X COLOR TABLE", "TABLE COLOR 1", "TABLE"}));
    for (int row = chance(80) ? 1 : 0; row <= colors_; ++row) {
        std::string content = id(row);
        const int fields = perMille(993) ? 4 : between(2, 6);
        for (int field = 0; field < fields; ++field)
            content += " " + (chance(96) ? std::to_string(between(0, 255))
                                         : std::string(pick({"256", "-1", "70000", "2147483647"})));
        line(content);
    }
    if (chance(60))
        line("TABLE END");
}

void PackageGenerator::nameTable(const char* opening, std::vector<std::string> rows) {
    if (chance(20))
        shuffle(rows);
    line(perMille(985) ? opening : pick({"TABLE O", "TABLE L", "TABLE OBJECTS", "TABLE"}));
    for (const std::string& row : rows)
        line(row + (perMille(15) ? pick({" X", " A B C D E", ""}) : ""));
}

void PackageGenerator::objectTable() {
    std::vector<std::string> rows;
    const auto add = [&](int offset, const std::string& name) {
        rows.push_back(id(firstId_ + offset) + " " + name);
    };
    if (perMille(990))
        add(0, "SYMBOL");
    if (chance(92))
        add(1, "BALL");
    add(2, chance(96) ? "WIREBOND" : pick({"GEOMETRY", "GEOMETRIES", "TABLETOP", "SYMBOL"}));
    if (chance(20))
        add(between(1, 4), pick({"VIA PAD", "A B C D E F G", "SYMBOL", "BALL"}));
    nameTable("TABLE OBJECT", rows);
    if (chance(50))
        line("TABLE END");
}

void PackageGenerator::layerTable() {
    std::vector<std::string> rows;
    const auto add = [&](int offset, const std::string& name) {
        rows.push_back(id(firstId_ + offset) + " " + name);
    };
    if (perMille(990))
        add(0, "OUTLINE");
    add(1, pick({"TOP", "TOP COND", "SPACER LAYER", "INTERPOSER 1 2 3 4 5"}));
    if (chance(90))
        add(2, pick({"PACKAGE CAP", "PACKAGE CAP", "PACKAGE  CAP", "package\tcap"}));
    if (chance(30))
        add(between(3, 5), pick({"BOTTOM", "OUTLINE", "PACKAGE CAP", "PACKAGE", "GEOMETRY"}));
    nameTable("TABLE LAYER", rows);
    if (chance(90))
        line("TABLE END");
}

void PackageGenerator::wireModels() {
    if (chance(95))
        line(chance(95) ? "WIRE_MODELS" : "MY WIRE_MODELS 1");
    for (int model = 1, count = between(0, 4); model <= count; ++model) {
        head("WIRE_MODEL " + id(model));
        line(chance(95)
                 ? std::string(pick({"AU25", "CU20", "Wire_A", "WIRE"})) + " " + real() + " 1 GOLD"
                 : pick({"AU25 0.025 1", "AU25 X 1 GOLD", "", "WIRE_MODEL 3", "A 1 1 X Y"}));
    }
}

void PackageGenerator::geometries() {
    if (chance(90))
        line("GEOMETRIES");
    for (int count = chance(90) ? between(2, 9) : between(10, 25); count > 0; --count)
        block();
}

void PackageGenerator::block() {
    line(perMille(985) ? "GEOM" : pick({"GEOM 12", "XGEOMX", "GEOMETRY", "GEOMETRIES", "GEO"}));
    const std::string symbol = id(firstId_), outline = id(firstId_), top = id(firstId_ + 1);
    switch (between(0, 13)) {
        case 0:
        case 1:
        case 2:
        case 3:
            box(symbol, top);
            break;
        case 4:
        case 5:
            ball();
            break;
        case 6:
            box(chance(50) ? symbol : "77", outline);
            break;
        case 7:
            box(chance(50) ? symbol : "77", id(firstId_ + 2));
            break;
        case 8:
            box(id(firstId_ + 2), top);
            break;
        default:
            wire();
    }
    if (chance(85))
        line(perMille(980) ? "####" : pick({"###", "#####", "#### GEOM", ""}));
}

void PackageGenerator::box(const std::string& object, const std::string& layer) {
    std::vector<std::string> heads{"OBJECT " + object, "LAYER " + layer,
                                   "COLOR " + id(between(1, colors_)),
                                   "EXTR 0 " + real() + " " + real()};
    if (chance(75))
        heads.push_back(std::string("NAME ") +
                        pick({"DIE1", "die_2", "SPACER_1", "INTERPOSER_SPACER", "a b", "CAP"}));
    if (chance(30))
        shuffle(heads);
    for (const std::string& content : heads)
        head(content);
    if (chance(97))
        polygon();
}

void PackageGenerator::polygon() {
    const int points = chance(97) ? between(1, 14) : between(15, 40);
    const std::string count = chance(93) ? std::to_string(points)
                              : chance(50)
                                  ? std::to_string(points + between(-2, 2))
                                  : pick({"0", "0", "-1", "2147483647", "99999999999", "21"});
    head("2DPG " + count);
    rows(points, 2);
}

void PackageGenerator::rows(int points, int width) {
    while (points > 0) {
        const int inRow = std::min(points, chance(97) ? between(1, 10) : between(11, 13));
        points -= inRow;
        const int more = perMille(985) ? 0 : between(-1, 1);
        line(numbers(inRow * width + more) + (perMille(985) ? "" : pick({" x", " 1 2 3", " "})));
    }
}

void PackageGenerator::ball() {
    std::vector<std::string> heads{"OBJECT " + id(firstId_ + 1), "LAYER " + id(firstId_ + 1),
                                   "COLOR " + id(between(1, colors_))};
    if (chance(90))
        heads.push_back("BARL " + numbers(6) + " " + id(1));
    if (chance(20))
        heads.push_back("NAME B1");
    if (chance(30))
        shuffle(heads);
    for (const std::string& content : heads)
        head(content);
    if (chance(5))
        polygon();
}

void PackageGenerator::wire() {
    if (chance(90)) {
        head("OBJECT " + id(firstId_ + 2));
        head("LAYER " + id(firstId_ + 1));
    }
    head("COLOR " + id(between(1, colors_)));
    head("WIRE_MODEL " + id(chance(80) ? between(1, 3) : between(0, 9)));
    head("WIRE " + real() + " " + id(1));
    const int points = chance(80) ? between(1, 6) : chance(60) ? between(18, 22) : between(0, 45);
    const std::string count = chance(94) ? std::to_string(points)
                              : chance(50)
                                  ? std::to_string(points + between(-2, 2))
                                  : pick({"0", "-1", "2147483647", "99999999999", "20", "21"});
    head("3DPL " + count);
    rows(points, 3);
}

void PackageGenerator::damageLines() {
    if (!chance(12))
        return;
    for (int count = between(1, 3); count > 0 && !lines_.empty(); --count) {
        const auto at = static_cast<std::ptrdiff_t>(below(lines_.size()));
        const auto to = below(lines_.size());
        switch (between(0, 3)) {
            case 0:
                lines_.erase(lines_.begin() + at);
                break;
            case 1:
                lines_.insert(lines_.begin() + at, lines_[to]);
                break;
            case 2:
                std::swap(lines_[static_cast<std::size_t>(at)], lines_[to]);
                break;
            default:
                noise();
                std::swap(lines_.back(), lines_[static_cast<std::size_t>(at)]);
        }
    }
}

std::string PackageGenerator::filler() {
    const char* const part = pick({"GEO ", "TABL ", "3D ", "WIR ", "COLO ", "x", "0 ", "#"});
    const std::size_t length = chance(30) ? below(3000) : below(80);
    std::string out;
    while (out.size() < length)
        out += part;
    if (chance(3))
        out.insert(below(out.size() + 1), pick({"GEOM", "WIRE", "COLOR", "####", "TABLE"}));
    if (chance(2))
        out.insert(below(out.size() + 1), 1, chance(50) ? '\0' : '\r');
    return out;
}

std::string PackageGenerator::joined() {
    std::string content;
    for (std::string line : lines_) {
        for (char& c : line)
            if (c >= 'A' && c <= 'Z' && (letters_ == 1 || (letters_ == 2 && chance(50))))
                c = static_cast<char>(c - 'A' + 'a');
        content += line + (lineEnds_ == 0 ? "\n"
                           : lineEnds_ == 1
                               ? "\r\n"
                               : pick({"\n", "\n", "\r\n", "\r\n", " \n", "\r\r\n", "\t\n", "\n",
                                       chance(5) ? "\r" : "\n", chance(10) ? "\n\n" : "\n"}));
    }
    return content;
}

void PackageGenerator::damageBytes(std::string& content) {
    if (chance(6))
        content.resize(below(content.size() + 1));
    if (chance(10))
        while (!content.empty() && (content.back() == '\n' || content.back() == '\r'))
            content.pop_back();
    if (!chance(10))
        return;
    static constexpr char kBytes[] = {'\0', '\r', '\n', '#', ' ', '\t', '\x1a', '\xff', '9', 'A'};
    for (int count = between(1, 4); count > 0 && !content.empty(); --count) {
        const std::size_t at = below(content.size());
        if (chance(20))
            content.erase(at, 1 + below(5));
        else
            content[at] = kBytes[below(sizeof kBytes)];
    }
}

}  // namespace kvocaeio::test
