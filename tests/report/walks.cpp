/// The walks of all readers, written down and counted.
#include "report/walks.h"

#include <algorithm>
#include <array>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "report/walked.h"
#include "support/captured_output.h"
#include <kvocaeio/abaqus.h>
#include <kvocaeio/nastran.h>
#include <kvocaeio/package.h>
#include <kvocaeio/patran.h>
#include <kvocaeio/report.h>

namespace kvocaeio::test {

namespace {

namespace fs = std::filesystem;

void count(Walked& walked, const std::string& name, long long number = 1) {
    walked.counts[name] += number;
}

void putSection(Writer& out, const CKVOAbaqusReader::ElemSecData& section) {
    out.line(section.elset, section.geometryType, section.nodesPerElem, section.elemNum);
    out.row(section.nodes, section.elemNum * section.nodesPerElem);
}

void walkRawTables(CKVOAbaqusReader& deck, Writer& out, Walked& walked) {
    for (const char* name : {"nodes", "element sections", "elements", "shell sections"})
        count(walked, name, 0);
    CKVOAbaqusReader::NodeData node{};
    if (deck.GetNodeBegin())
        for (; deck.GetNodeNext(&node); count(walked, "nodes"))
            out.line(node.id, node.coord[0], node.coord[1], node.coord[2]);
    CKVOAbaqusReader::ElemSecData section{};
    if (deck.GetElemSecBegin())
        for (; deck.GetElemSecNext(&section); count(walked, "element sections")) {
            putSection(out, section);
            out.row(section.ids, section.elemNum);
            count(walked, "elements", section.elemNum);
        }
    CKVOAbaqusReader::ShellSecData shell{};
    if (deck.GetShellSecBegin())
        for (; deck.GetShellSecNext(&shell); count(walked, "shell sections"))
            out.line(shell.elset, shell.thickness);
}

void walkNormalisedMesh(CKVOAbaqusReader& deck, Writer& out, Walked& walked) {
    for (const char* name : {"normalised sections of solids", "normalised solids",
                             "normalised sections of shells", "normalised shells"})
        count(walked, name, 0);
    CKVOAbaqusReader::ElemSecData section{};
    if (deck.GetElemSolidSecBeginR())
        for (; deck.GetElemSolidSecNextR(&section);
             count(walked, "normalised sections of solids")) {
            putSection(out, section);
            count(walked, "normalised solids", section.elemNum);
        }
    if (deck.GetElemShellSecBeginR())
        for (; deck.GetElemShellSecNextR(&section);
             count(walked, "normalised sections of shells")) {
            putSection(out, section);
            count(walked, "normalised shells", section.elemNum);
        }
}

void walkDeck(const std::string& path, CKVOImportReport* report, Writer& out, Walked& walked) {
    CKVOAbaqusReader deck;
    walked.imported = report != nullptr ? deck.ImportInpFile(path.c_str(), report)
                                        : deck.ImportInpFile(path.c_str());
    out.line(walked.imported);
    walkRawTables(deck, out, walked);
    try {
        report != nullptr ? deck.SortData(report) : deck.SortData();
        walkNormalisedMesh(deck, out, walked);
    } catch (const std::length_error& error) {
        out.line(error.what());
    }
}

void walkBulkData(const std::string& path, CKVOImportReport* report, Writer& out, Walked& walked) {
    KVONASTRAN_Reader deck;
    walked.imported =
        report != nullptr ? deck.SetFilePath(path.c_str(), report) : deck.SetFilePath(path.c_str());
    out.line(walked.imported, deck.GetPropertiesCout());
    if (!walked.imported)
        return;
    const std::array<int, 3> rows = {deck.GetNodeCout(), deck.GetElemCout(), deck.GetSectionCout()};
    count(walked, "rows of nodes", rows[0]);
    count(walked, "rows of elements", rows[1]);
    count(walked, "rows of sections", rows[2]);
    const float* node = deck.GetNodeVector();
    for (int row = 0; row < std::min(rows[0], kRowsSeen); ++row, node += 4)
        if (node[0] != 0.0F)
            out.row(node, 4);
    const int* element = deck.GetElemVector();
    for (int row = 0; row < std::min(rows[1], kRowsSeen); ++row, element += 9)
        if (element[0] != 0)
            out.row(element, 9);
    const int* section = deck.GetSectionVector();
    for (int row = 0; row < std::min(rows[2], kRowsSeen); ++row, section += 3)
        if (section[0] != 0 || section[1] != 0)
            out.row(section, 3);
}

void walkLists(const std::string& path, CKVOImportReport* report, Writer& out, Walked& walked) {
    CKVO_PatranIO_Bridge file;
    walked.imported = report != nullptr ? file.ImportFromPatFile(path.c_str(), report)
                                        : file.ImportFromPatFile(path.c_str());
    out.line(walked.imported);
    count(walked, "nodes", file.GetNodeCount());
    count(walked, "elements", file.GetElementCount());
    for (int i = 0; i < std::min(file.GetNodeCount(), kRowsSeen); ++i) {
        std::array<float, 3> place{};
        file.GetNodeCoordinate(i, &place[0], &place[1], &place[2]);
        out.row(place.data(), 3);
    }
    for (int i = 0; i < std::min(file.GetElementCount(), kRowsSeen); ++i) {
        std::array<int, 5> numbers{};
        std::array<double, 3> values{};
        file.GetElementDataBase(i, &numbers[0], &numbers[1], &numbers[2], &numbers[3], &numbers[4],
                                &values[0], &values[1], &values[2]);
        out.row(numbers.data(), 5);
        out.row(values.data(), 3);
    }
}

void walkArrays(const std::string& path, CKVOImportReport* report, Writer& out, Walked& walked) {
    CPatranReader file;
    walked.imported = report != nullptr ? file.ImportFromPatFile(path.c_str(), report)
                                        : file.ImportFromPatFile(path.c_str());
    out.line(walked.imported);
    count(walked, "nodes", file.GetNodeCout());
    count(walked, "elements", file.GetElemCount());
    count(walked, "properties", file.GetPropertyCount());
    std::array<float, 3> place{};
    for (int i = 0; i < kRowsSeen && file.GetNode(i, place[0], place[1], place[2]); ++i)
        out.row(place.data(), 3);
    int type = 0;
    int property = 0;
    std::array<int, 8> nodes{};
    for (int i = 0; i < kRowsSeen && file.GetElement(i, type, property, nodes.data()); ++i) {
        out.line(type, property);
        out.row(nodes.data(), 8);
    }
}

// Does `step`, or writes down the one error that an import and a query throw.
template <class Step>
void take(Writer& out, const Step& step) {
    try {
        step();
    } catch (const std::out_of_range& error) {
        out.line(error.what());
    }
}

void walkBodies(CKVOCadenceReader& package, Writer& out, Walked& walked) {
    count(walked, "bodies", package.GetComponentCount());
    count(walked, "solder balls", 0);
    for (int i = 0; i < package.GetComponentCount(); ++i) {
        std::array<char, 4096> name{};
        int isBall = 0;
        std::array<double, 8> places{};  // the centre, then five sizes
        unsigned int color = 0;
        package.GetComponentData(i, name.data(), isBall, &places[0], &places[3], color);
        out.line(name.data(), isBall, color);
        out.row(places.data(), 8);
        count(walked, "solder balls", isBall != 0 ? 1 : 0);
    }
}

void walkWires(CKVOCadenceReader& package, Writer& out, Walked& walked) {
    count(walked, "wires", package.GetWireLineCount());
    count(walked, "wire profiles", package.GetWireProfileCount());
    std::vector<double> points;
    int profile = 0;
    double diameter = 0;
    const auto put = [&](bool found) {
        out.line(found, profile, diameter);
        out.row(points.data(), static_cast<int>(points.size()));
    };
    for (int wire = 0; wire < package.GetWireLineCount(); ++wire)
        take(out, [&] {
            put(package.GetWireLine(wire, points, profile, diameter));
            put(package.GetWirePolyLine(wire, points, profile, diameter));
        });
    // A wire may name any profile; those that there are not throw.
    Writer profiles;
    for (int model = 1; model <= std::min(package.GetWireProfileCount(), 200); ++model)
        take(profiles, [&] {
            const char* name = "";
            unsigned int color = 0;
            const bool found = package.GetWireProfileData(model, name, diameter, color);
            profiles.line(found, name, diameter, color);
        });
    walked.rest = profiles.text();
}

void walkPackage(const std::string& path, CKVOImportReport* report, Writer& out, Walked& walked) {
    CKVOCadenceReader package;
    take(out, [&] {
        walked.imported = report != nullptr ? package.Import3DIFile(path.c_str(), report)
                                            : package.Import3DIFile(path.c_str());
        out.line(walked.imported);
    });
    take(out, [&] { walkBodies(package, out, walked); });
    walkWires(package, out, walked);
}

void walkDesign(const std::string& path, CKVOImportReport* report, Writer& out, Walked& walked) {
    CKVOCadenceReader package;
    package.SetTempFilePath(path.c_str());  // without a tool: the reports lie there
    take(out, [&] {
        walked.imported = report != nullptr ? package.ImportCadenceFile("design", report)
                                            : package.ImportCadenceFile("design");
        out.line(walked.imported);
    });
    take(out, [&] { walkBodies(package, out, walked); });
}

using Walk = void (*)(const std::string&, CKVOImportReport*, Writer&, Walked&);

std::vector<Walk> walksOf(const fs::path& path) {
    const std::string extension = path.extension().string();
    if (fs::is_directory(path))
        return {walkDesign};
    if (extension == ".inp")
        return {walkDeck};
    if (extension == ".nas" || extension == ".bdf")
        return {walkBulkData};
    if (extension == ".pat")
        return {walkLists, walkArrays};
    if (extension == ".3di")
        return {walkPackage};
    return {};
}

// Those counts of the report that a host can take from the walks.
std::map<std::string, long long> countsOf(CKVOImportReport& report, const Walked& walked) {
    std::map<std::string, long long> counts;
    CKVOImportReport::CountData count{};
    for (report.GetCountBegin(); report.GetCountNext(&count);)
        if (walked.counts.contains(count.name))
            counts[count.name] = count.count;
    return counts;
}

// Whether a neutral file has several summaries: each forgets what stands before it.
bool hasSummaries(const fs::path& path) {
    const std::string text = readBytes(path);
    const std::size_t first = text.find("26   ");
    return first != std::string::npos && text.find("26   ", first + 1) != std::string::npos;
}

Walked walked(Walk walk, const fs::path& path, CKVOImportReport* report) {
    CapturedOutput printed;
    Writer out;
    Walked walked;
    walk(path.string(), report, out, walked);
    walked.tables = out.text();
    walked.printed = printed.text();
    return walked;
}

}  // namespace

void ReportedWalks::expectTheSame(const fs::path& path) {
    const std::vector<Walk> walks = walksOf(path);
    EXPECT_FALSE(walks.empty()) << path << " is of no format";
    for (const Walk walk : walks) {
        CKVOImportReport report;
        const Walked plain = walked(walk, path, nullptr);
        const Walked reported = walked(walk, path, &report);
        EXPECT_EQ(reported.tables + reported.rest + reported.printed,
                  plain.tables + plain.rest + plain.printed)
            << path;
        const Walked byC = walkedByC(path, walk == walkLists, files / 2 % 2 == 0);
        EXPECT_EQ(byC.imported, plain.imported) << path;
        EXPECT_EQ(byC.printed, "") << path;
        // What a failed import leaves is handed out by the classes alone, and so is what a second
        // summary has discarded.
        if (plain.imported && !(walk == walkArrays && hasSummaries(path))) {
            EXPECT_EQ(byC.tables, plain.tables) << path;
        }
        CKVOImportReport::FindingData failure{};
        if (!report.GetFailure(&failure)) {
            EXPECT_EQ(countsOf(report, plain), plain.counts) << path;
        }
    }
    ++files;
}

}  // namespace kvocaeio::test
