/// The library's import beside the plain one.
#include "abaqus/import_comparison.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <set>

#include "abaqus/naive_import.h"
#include "support/captured_output.h"
#include <kvocaeio/abaqus.h>

namespace kvocaeio::test {
namespace {

constexpr int kUntouched = -77;

/// What one import leaves behind, as text.
struct Outcome {
    std::string printed;
    std::string log;
    std::string tables;
};

void putNode(std::string& out, int id, const double* xyz) {
    appendFormatted(out, "node %d: %a %a %a\n", id, xyz[0], xyz[1], xyz[2]);
}

void putSection(std::string& out, const std::string& elset, int geometryType, int nodesPerElem,
                std::size_t elemNum) {
    appendFormatted(out, "section '%s' %d %d %d\n", elset.c_str(), geometryType, nodesPerElem,
                    static_cast<int>(elemNum));
}

void putElement(std::string& out, int id, const int* nodes, int count) {
    appendFormatted(out, "element %d:", id);
    for (int n = 0; n < count; ++n)
        appendFormatted(out, " %d", nodes[n]);
    out += "\n";
}

void putShellSection(std::string& out, const std::string& elset, double thickness) {
    appendFormatted(out, "shell section '%s' %a\n", elset.c_str(), thickness);
}

/// OIDs worth looking up: those of the first rows with their neighbours, and the ends.
std::set<int> oidsToTry(const std::vector<int>& first) {
    std::set<int> out{INT_MIN, -1, 0, 1, INT_MAX};
    for (std::size_t r = 0; r < std::min<std::size_t>(first.size(), 8); ++r)
        for (long long oid = first[r] - 1LL; oid <= first[r] + 1LL; ++oid)
            if (oid >= INT_MIN && oid <= INT_MAX)
                out.insert(static_cast<int>(oid));
    return out;
}

void putElementFound(std::string& out, int oid, int nodeCount, int firstNode) {
    appendFormatted(out, "look-up of element %d: %d, %d\n", oid, nodeCount, firstNode);
}

std::string tablesOf(CKVOAbaqusReader& reader, bool opened) {
    std::string out = opened ? "opened\n" : "not opened\n";
    CKVOAbaqusReader::NodeData node;
    std::vector<int> nodeIds, elementIds;
    for (reader.GetNodeBegin(); reader.GetNodeNext(&node);) {
        putNode(out, node.id, node.coord);
        nodeIds.push_back(node.id);
    }
    CKVOAbaqusReader::ElemSecData section;
    for (reader.GetElemSecBegin(); reader.GetElemSecNext(&section);) {
        putSection(out, section.elset, section.geometryType, section.nodesPerElem,
                   static_cast<std::size_t>(section.elemNum));
        int id = 0;
        int* nodes = nullptr;
        while (reader.GetElemSecElemNext(&section, &id, &nodes)) {
            putElement(out, id, nodes, section.nodesPerElem);
            elementIds.push_back(id);
        }
    }
    CKVOAbaqusReader::ShellSecData shell;
    for (reader.GetShellSecBegin(); reader.GetShellSecNext(&shell);)
        putShellSection(out, shell.elset, shell.thickness);
    for (const int oid : oidsToTry(nodeIds)) {
        double xyz[3] = {};
        CKVOAbaqusReader::NodeData found{kUntouched, xyz};
        if (reader.GetNodeDataByOID(oid, &found))
            putNode(out += "look-up of ", found.id, xyz);
    }
    for (const int oid : oidsToTry(elementIds)) {
        int firstNode = kUntouched;
        CKVOAbaqusReader::ElemData found{kUntouched, kUntouched, &firstNode};
        if (reader.GetElemNodesByOID(oid, &found))
            putElementFound(out, found.id, found.nodeNum, firstNode);
    }
    return out;
}

void lookUpNode(std::string& out, const NaiveImport& tables, int oid) {
    if (oid < 0 || oid > *std::max_element(tables.nodeIds.begin(), tables.nodeIds.end()))
        if (oid != 0)
            return;
    std::size_t row = 0;
    for (std::size_t r = 0; r < tables.nodeIds.size(); ++r)
        if (tables.nodeIds[r] == oid)
            row = r;
    putNode(out += "look-up of ", oid, &tables.coords[3 * row]);
}

void lookUpElement(std::string& out, const NaiveImport& tables, int oid) {
    int largest = 0;
    std::size_t section = 0, row = 0;
    for (std::size_t s = 0; s < tables.elements.size(); ++s)
        for (std::size_t e = 0; e < tables.elements[s].ids.size(); ++e) {
            largest = std::max(largest, tables.elements[s].ids[e]);
            if (tables.elements[s].ids[e] == oid) {
                section = s;
                row = e;
            }
        }
    if (oid < 0 || oid > largest)
        return;
    const NaiveElements& found = tables.elements[section];
    const std::size_t at = row * static_cast<std::size_t>(found.nodesPerElem);
    putElementFound(out, oid, found.nodesPerElem,
                    at < found.nodes.size() ? found.nodes[at] : kUntouched);
}

std::string tablesOf(const NaiveImport& tables) {
    std::string out = tables.opened ? "opened\n" : "not opened\n";
    for (std::size_t r = 0; r < tables.nodeIds.size(); ++r)
        putNode(out, tables.nodeIds[r], &tables.coords[3 * r]);
    std::vector<int> elementIds;
    for (const NaiveElements& section : tables.elements) {
        putSection(out, section.elset.substr(0, 79), section.geometryType, section.nodesPerElem,
                   section.ids.size());
        const std::size_t width = static_cast<std::size_t>(section.nodesPerElem);
        for (std::size_t e = 0; e < section.ids.size(); ++e) {
            putElement(out, section.ids[e], section.nodes.data() + e * width, section.nodesPerElem);
            elementIds.push_back(section.ids[e]);
        }
    }
    for (const NaiveShellSection& section : tables.shells)
        putShellSection(out, section.elset.substr(0, 79), section.thickness);
    if (tables.nodeIds.empty() || tables.elements.empty())
        return out;
    for (const int oid : oidsToTry(tables.nodeIds))
        lookUpNode(out, tables, oid);
    for (const int oid : oidsToTry(elementIds))
        lookUpElement(out, tables, oid);
    return out;
}

std::string escaped(const std::string& text) {
    std::string out;
    for (const char c : text) {
        if (c == '\n')
            out += "\\n\n";
        else if (c < ' ' || c > '~')
            appendFormatted(out, "\\x%02x", static_cast<unsigned>(static_cast<unsigned char>(c)));
        else
            out += c;
    }
    return out;
}

/// Both texts from the first line on in which they differ, and what they are; empty when equal.
std::string difference(const char* what, const std::string& library, const std::string& plain) {
    if (library == plain)
        return "";
    std::size_t line = 0;
    for (std::size_t at = 0; at < library.size() && at < plain.size() && library[at] == plain[at];
         ++at)
        if (library[at] == '\n')
            line = at + 1;
    return std::string(what) + " differs\n--- library:\n" + escaped(library.substr(line, 600)) +
           "\n--- plain import:\n" + escaped(plain.substr(line, 600)) + "\n";
}

/// The pieces of `text` between lines that hold nothing but `mark`.
std::vector<std::string> splitAt(const std::string& text, const std::string& mark) {
    std::vector<std::string> out;
    for (std::size_t at = 0, end = 0; at <= text.size(); at = end + mark.size()) {
        end = std::min(text.find(mark, at), text.size());
        out.push_back(text.substr(at, end - at));
    }
    return out;
}

}  // namespace

std::string ImportComparison::firstDifference(const std::vector<NamedDeck>& decks) {
    const std::string path = folder_.file("deck.inp");
    const std::filesystem::path log = folder_.path() / "debug" / "InputAbaqus.log";
    const std::string mark = "\n@@ next deck @@\n";
    std::vector<Outcome> library, plain;
    CapturedOutput output;
    for (const NamedDeck& deck : decks) {
        // New files: some file systems wait for the disk when an old one is cut and written again.
        std::filesystem::remove(path);
        std::filesystem::remove(log);
        folder_.write("deck.inp", deck.text);
        CKVOAbaqusReader reader;
        const bool opened = reader.ImportInpFile(path.c_str());
        std::fputs(mark.c_str(), stdout);
        std::fflush(stdout);
        library.push_back({"", readText(log), tablesOf(reader, opened)});
        const NaiveImport tables = naiveImport(path);
        plain.push_back({tables.printed, tables.log, tablesOf(tables)});
    }
    const std::vector<std::string> printed = splitAt(output.text(), mark);
    for (std::size_t d = 0; d < decks.size(); ++d) {
        const std::string found = difference("standard output", printed[d], plain[d].printed) +
                                  difference("the log", library[d].log, plain[d].log) +
                                  difference("the walks", library[d].tables, plain[d].tables);
        if (!found.empty())
            return decks[d].name + ": " + found + "--- deck:\n" + escaped(decks[d].text);
    }
    return "";
}

}  // namespace kvocaeio::test
