/// Cells, lines and their damage.
#include "package/cadence_generator.h"

#include <algorithm>
#include <cstdio>

namespace kvocaeio::test {
namespace {

const std::vector<std::string> kSymbolColumns = {
    "REFDES",         "SYM_NAME",       "SYM_BOX_X1",        "SYM_BOX_Y1",
    "SYM_BOX_X2",     "SYM_BOX_Y2",     "GRAPHIC_DATA_NAME", "GRAPHIC_DATA_1",
    "GRAPHIC_DATA_2", "GRAPHIC_DATA_3", "GRAPHIC_DATA_4"};
const std::vector<std::string> kLayerColumns = {"LAYER_SORT", "LAYER_SUBCLASS", "LAYER_TYPE",
                                                "LAYER_MATERIAL", "LAYER_THICKNESS"};
const std::vector<std::string> kStackColumns = {
    "DSA_MEMBER_TYPE", "DSA_MEMBER_NAME", "DSA_EXTENTS_X1",       "DSA_EXTENTS_Y1",
    "DSA_EXTENTS_X2",  "DSA_EXTENTS_Y2",  "DSA_STACK_HEIGHT_MIN", "DSA_STACK_HEIGHT_MAX"};

}  // namespace

ReportTriple ReportGenerator::triple() {
    lineEnd_ = random_.oneIn(4) ? "\r\n" : "\n";
    const std::string name = design();
    const std::string second = random_.oneIn(8) ? design() : name;
    std::vector<std::string> secondJob = jobOf(second);
    if (random_.oneIn(20))
        secondJob.resize(random_.below(2));  // none, or the tag alone
    else if (random_.oneIn(2))
        secondJob.resize(2 + random_.below(15));
    ReportTriple triple;
    triple[0] = report(kSymbolColumns, jobOf(name), random_.below(7));
    triple[1] = report(kLayerColumns, secondJob, random_.below(8));
    triple[2] = report(kStackColumns, {}, random_.below(6));
    if (random_.oneIn(60))
        triple[0].reset();
    if (random_.oneIn(60))
        triple[1].reset();
    if (random_.oneIn(name.find(".sip") == std::string::npos ? 2 : 20))
        triple[2].reset();
    return triple;
}

std::string ReportGenerator::report(const std::vector<std::string>& names,
                                    const std::vector<std::string>& jobs, std::size_t rowCount) {
    text_.clear();
    lineStart_ = 0;
    Columns columns = arranged(names);
    const bool jobFirst = random_.oneIn(5);
    if (jobFirst)
        putJob(jobs);
    if (random_.oneIn(100))
        putRow(columns);
    if (columns.names.size() > 2 && random_.oneIn(25)) {  // a header in two lines
        const auto middle = columns.names.begin() + 1 +
                            static_cast<std::ptrdiff_t>(random_.below(columns.names.size() - 1));
        putHeader({columns.names.begin(), middle});
        putHeader({middle, columns.names.end()});
        columns.names.insert(middle, "A");
    } else {
        putHeader(columns.names);
    }
    if (!jobFirst)
        putJob(jobs);
    for (std::size_t r = 0; r < rowCount; ++r) {
        putNoise();
        if (random_.oneIn(80)) {
            const std::vector<std::string> more(1 + random_.below(3), word());
            putHeader(more);
            columns.extra += random_.oneIn(4) ? 0 : more.size() + 1;
        }
        putRow(columns);
    }
    if (random_.oneIn(60))
        putHeader(random_.oneIn(2) ? columns.names
                                   : std::vector<std::string>(random_.below(20), "X"));
    if (random_.oneIn(4) && text_.ends_with('\n'))
        text_.pop_back();
    damage(text_);
    return text_;
}

ReportGenerator::Columns ReportGenerator::arranged(std::vector<std::string> names) {
    if (random_.oneIn(3))
        for (std::size_t n = names.size(); n > 1; --n)
            std::swap(names[n - 1], names[random_.below(n)]);
    const std::vector<std::string> known = names;
    for (std::size_t extra = random_.oneIn(4) ? 1 + random_.below(3) : 0; extra > 0; --extra) {
        const std::string name = random_.oneIn(2) ? known[random_.below(known.size())] : word();
        const auto place = static_cast<std::ptrdiff_t>(random_.below(names.size() + 1));
        names.insert(names.begin() + place, name);
    }
    if (random_.oneIn(80))
        names.erase(names.begin() + static_cast<std::ptrdiff_t>(random_.below(names.size())));
    if (random_.oneIn(100))
        names[random_.below(names.size())] += ' ';
    for (std::string& name : names)
        name = inAnyCase(name);
    return {names, 0};
}

void ReportGenerator::putHeader(const std::vector<std::string>& names) {
    std::string line = "A!";
    for (const std::string& name : names)
        line += name + "!";
    putLine(line);
}

void ReportGenerator::putJob(const std::vector<std::string>& cells) {
    if (cells.empty())
        return;
    std::string line;
    for (std::size_t c = 0; c < cells.size(); ++c)
        line += cells[c] + "!";
    if (cells.size() > 7 && random_.oneIn(15)) {  // the sixth cell becomes another line's tag
        std::size_t at = 0;
        for (int delimiter = 0; delimiter < 5; ++delimiter)
            at = line.find('!', at) + 1;
        putLine(line.substr(0, at));
        line = "J" + line.substr(line.find('!', at));
    }
    putLine(line);
}

void ReportGenerator::putRow(const Columns& columns) {
    std::string line = random_.oneIn(400) ? "s!" : "S!";
    std::size_t surplus = columns.extra;
    std::size_t count = columns.names.size();
    if (random_.oneIn(150))
        surplus += 1 + random_.below(25);
    else if (random_.oneIn(200))
        count = random_.below(count + 1);
    for (std::size_t c = 0; c < count; ++c)
        line += cell(columns.names[c]) + "!";
    for (; surplus > 0; --surplus)
        line += cell(columns.names[surplus % columns.names.size()]) + "!";
    if (random_.oneIn(300))
        line.pop_back();
    putLine(line);
}

/// Ends the line, or lets the next one follow behind text that the reader's bound may cut off.
void ReportGenerator::putLine(std::string line) {
    text_ += line;
    const std::size_t length = text_.size() - lineStart_;
    if (random_.oneIn(20))
        text_ += word();
    else if (length < 1023 && random_.oneIn(15)) {
        const std::size_t bound = 1023 * (1 + random_.below(2));
        const bool joined = random_.oneIn(2);
        text_.append(bound - length, ' ');
        if (joined && !random_.oneIn(10)) {
            lineStart_ = text_.size();
            return;
        }
        text_.append(random_.below(3), '-');
        if (joined)
            return;
        text_.erase(text_.size() - random_.below(4));
    }
    text_ += lineEnd_;
    lineStart_ = text_.size();
}

void ReportGenerator::putNoise() {
    if (random_.oneIn(8))
        putLine(oneOf({"", "", "# note", "S", "GEOMETRY", "--- 1 2 3", " "}));
    if (random_.oneIn(300))
        putLine(oneOf({"X!a!", "AB!a!", "!", "!a!", "a!b!", "j!", " S!", "A !"}));
    if (random_.oneIn(300))
        putLine(oneOf({"J!", "J!a.sip!", "J!1!2!3!", "A!"}));
}

void ReportGenerator::damage(std::string& content) {
    if (content.empty() || !random_.oneIn(20))
        return;
    const std::size_t at = random_.below(content.size());
    switch (random_.below(6)) {
        case 0:
            content.insert(at, 1, '\0');
            break;
        case 1:
            content.insert(at, 1, '\x1A');
            break;
        case 2:
            content.insert(at, 1, '\r');
            break;
        case 3:
            content[at] = "! \nAS\tx\0"[random_.below(8)];
            break;
        case 4:
            content.resize(at);
            break;
        default:
            content.insert(at, 1010 + random_.below(30), 'w');
    }
}

std::vector<std::string> ReportGenerator::jobOf(const std::string& design) {
    std::vector<std::string> cells = {"J", design};
    while (cells.size() < 13)
        cells.push_back(cells.size() == 8 ? unit() : word());
    if (random_.oneIn(40))
        cells.resize(random_.below(16), "more");
    return cells;
}

std::string ReportGenerator::cell(std::string_view column) {
    std::string name(column);
    for (char& c : name)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    if (name == "REFDES")
        return refdes();
    if (name == "GRAPHIC_DATA_NAME")
        return random_.oneIn(4) ? oneOf({"LINE", "TEXT", "", "RECTANGLES", " RECTANGLE"})
                                : inAnyCase("RECTANGLE");
    if (name == "LAYER_TYPE")
        return inAnyCase(oneOf({"CONDUCTOR", "CONDUCTOR", "CONDUCTOR", "DIELECTRIC", "DIELECTRIC",
                                "DIESTACK", "DIESTACK", "SURFACE", "PLANE", "", "CONDUCTOR "}));
    if (name == "LAYER_MATERIAL")
        return oneOf({"AIR", "AIR", "air", "COPPER", "FR-4", "", "AIR "});
    if (name == "LAYER_THICKNESS")
        return thickness();
    if (name == "DSA_MEMBER_TYPE")
        return inAnyCase(oneOf(
            {"DIE", "DIE", "INTERPOSER", "SPACER", "SPACER", "BUMP", "DIE ATTACH", "SPACER1", ""}));
    if (name == "SYM_NAME" || name == "DSA_MEMBER_NAME")
        return random_.oneIn(100) ? std::string(300 + random_.below(700), 'n') : word();
    if (name.find("_DATA_") != std::string::npos || name.find("DSA_") == 0 ||
        name.find("SYM_BOX_") == 0)
        return number();
    return word();
}

std::string ReportGenerator::refdes() {
    return random_.oneIn(3)
               ? oneOf({"DIE1", "BGA2", "U1", "C12", "", " BGA", "DIE ", "FBGA", "INTERPOSER"})
               : inAnyCase(oneOf({"BGA", "PBGA", "DIE", "DIE"}));
}

std::string ReportGenerator::word() {
    if (random_.oneIn(6))
        return oneOf({"", " ", "  two words ", "1.5", "A", "S", "\"q\"", "a.mcm", "tab\there",
                      "\xC3\xA4\xFF\x80", "%s%n", "x,y;z", "AIR", "MM"});
    std::string out;
    for (std::size_t length = 1 + random_.below(8); length > 0; --length)
        out += "abcXYZ_0189 -."[random_.below(14)];
    return out;
}

std::string ReportGenerator::number() {
    if (random_.oneIn(6))
        return oneOf({"",
                      "x",
                      "-",
                      " 2",
                      "\t-3.5",
                      "1e",
                      "1e+",
                      "2.5e-3",
                      "-1E2mm",
                      "+7",
                      ".5",
                      "5.",
                      "-.25e1",
                      "1,5",
                      "0x1F",
                      "nan",
                      "inf",
                      "-INFINITY",
                      "1e308",
                      "-1e308",
                      "1e400",
                      "1e-320",
                      "1.7.3",
                      "0",
                      "-0",
                      "--1",
                      "00012",
                      "1 2",
                      "0.1000000000000000055511151231257827",
                      "9007199254740993",
                      "nan(1)z"});
    char content[40];
    const int digits = static_cast<int>(random_.below(random_.oneIn(10) ? 17 : 6));
    const double value = static_cast<double>(random_.below(4000001)) / 1000.0 - 2000.0;
    std::snprintf(content, sizeof content, "%.*f", digits, value);
    return content;
}

std::string ReportGenerator::thickness() {
    const std::string value = random_.oneIn(3) ? number() : std::to_string(random_.below(30));
    const std::string blank = random_.oneIn(4) ? oneOf({"  ", "\t", "", "\v", " \f ", "\r"}) : " ";
    const std::string unit = oneOf({"MIL", "MIL", "mil", "MM", "MILS of it", "", "x", " ", "5"});
    return (random_.oneIn(10) ? " " : "") + value + blank + unit;
}

std::string ReportGenerator::unit() {
    return random_.oneIn(5) ? oneOf({"", "MILS", "UMM", "NM UM", "INCH NM", "1 inch", "mil", "M",
                                     "INCH MM", "UM NM", "Millimeters NM", "microns inch"})
                            : inAnyCase(oneOf({"MM", "MILLIMETERS", "UM", "MICRONS", "NM",
                                               "NANOMETERS", "INCH", "INCHS", "INCHES"}));
}

std::string ReportGenerator::design() {
    if (random_.oneIn(10))
        return oneOf({"", "board", "a.MCM", ".mcm", "mcm", "a.sip.mcm", "a.mcm.sip", "a.brd.sip",
                      "x.brd.mcm", "a.si", ".sip.old", "C:/x.mcm/a", "a.Brd"});
    return word() + oneOf({".mcm", ".mcm", ".mcm", ".mcm", ".sip", ".sip", ".sip", ".brd"});
}

std::string ReportGenerator::inAnyCase(std::string content) {
    const std::size_t kind = random_.below(6);
    for (char& c : content)
        if (c >= 'A' && c <= 'Z' && (kind == 0 || (kind == 1 && random_.oneIn(2))))
            c = static_cast<char>(c - 'A' + 'a');
    return content;
}

}  // namespace kvocaeio::test
