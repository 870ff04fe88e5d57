/// What `CKVOAbaqusReader` makes of the deck of a rule.
#include <stdexcept>

#include "docs/rules.h"
#include "support/captured_output.h"
#include "support/files.h"
#include <kvocaeio/abaqus.h>

namespace kvocaeio::test {

namespace {

constexpr const char* kGeometries[] = {"unknown", "shell", "solid"};
constexpr int kLookUps = 32;  // the OIDs from -1 on that are looked up

std::string numbers(const int* first, int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += print(" %d", first[i]);
    return text;
}

void showRawTables(CKVOAbaqusReader& deck, Lines& lines) {
    CKVOAbaqusReader::NodeData node;
    for (bool more = deck.GetNodeBegin(); more && (more = deck.GetNodeNext(&node));)
        lines.push_back(
            print("node %d: %g %g %g", node.id, node.coord[0], node.coord[1], node.coord[2]));
    CKVOAbaqusReader::ElemSecData section;
    for (bool more = deck.GetElemSecBegin(); more && (more = deck.GetElemSecNext(&section));) {
        lines.push_back(print("block \"%s\": %s, %d x %d nodes", section.elset,
                              kGeometries[section.geometryType], section.elemNum,
                              section.nodesPerElem));
        int id = 0;
        int* nodes = nullptr;
        while (deck.GetElemSecElemNext(&section, &id, &nodes))
            lines.push_back(print("element %d:", id) + numbers(nodes, section.nodesPerElem));
    }
    CKVOAbaqusReader::ShellSecData shellSection;
    for (bool more = deck.GetShellSecBegin(); more && (more = deck.GetShellSecNext(&shellSection));)
        lines.push_back(print("thickness \"%s\": %g", shellSection.elset, shellSection.thickness));
}

void showSection(CKVOAbaqusReader& deck, CKVOAbaqusReader::ElemSecData& section, const char* kind,
                 Lines& lines) {
    lines.push_back(print("%s section \"%s\": %d x %d nodes", kind, section.elset, section.elemNum,
                          section.nodesPerElem));
    CKVOAbaqusReader::ElemData element;
    if (deck.GetElemSecElemBeginR(&section, &element))
        while (deck.GetElemSecElemNextR(&section, &element))
            lines.push_back(print("%s \"%s\":", kind, section.elset) +
                            numbers(element.nodes, element.nodeNum));
}

void showMesh(CKVOAbaqusReader& deck, Lines& lines) {
    CKVOAbaqusReader::ElemSecData section;
    if (deck.GetElemSolidSecBeginR())
        while (deck.GetElemSolidSecNextR(&section))
            showSection(deck, section, "solid", lines);
    if (deck.GetElemShellSecBeginR())
        while (deck.GetElemShellSecNextR(&section))
            showSection(deck, section, "shell", lines);
}

void showLookUps(CKVOAbaqusReader& deck, Lines& lines) {
    for (int oid = -1; oid < kLookUps; ++oid) {
        double coord[3];
        CKVOAbaqusReader::NodeData node = {0, coord};
        lines.push_back(print("GetNodeDataByOID(%d): ", oid) +
                        (deck.GetNodeDataByOID(oid, &node)
                             ? print("%g %g %g", coord[0], coord[1], coord[2])
                             : "false"));
        int first = 0;
        CKVOAbaqusReader::ElemData element = {0, 0, &first};
        lines.push_back(print("GetElemNodesByOID(%d): ", oid) +
                        (deck.GetElemNodesByOID(oid, &element)
                             ? print("%d nodes, the first %d", element.nodeNum, first)
                             : "false"));
    }
}

}  // namespace

Lines showAbaqus(const Rule& rule) {
    const TempFolder folder;
    const CapturedOutput output;
    CKVOAbaqusReader deck;
    Lines lines;
    bool sortTwice = false;
    for (std::string file : rule.files) {
        const std::size_t twice = file.find("<SortData again>\n");
        sortTwice = twice != std::string::npos;
        lines.push_back(print(
            "ImportInpFile: %s",
            deck.ImportInpFile(folder.write("deck.inp", file.substr(0, twice)).c_str()) ? "true"
                                                                                        : "false"));
    }
    showRawTables(deck, lines);
    showLookUps(deck, lines);
    try {
        deck.SortData();
        if (sortTwice)
            deck.SortData();
    } catch (const std::length_error& error) {
        lines.push_back(print("SortData throws std::length_error: %s", error.what()));
    }
    showMesh(deck, lines);
    return lines;
}

}  // namespace kvocaeio::test
