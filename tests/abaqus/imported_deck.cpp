/// Imports of small decks, and what the public walks give after them.
#include "abaqus/imported_deck.h"

#include <algorithm>

namespace kvocaeio::test {
namespace {

template <class T>
void putList(std::ostream& out, const std::vector<T>& list) {
    out << "{";
    for (const T& item : list)
        out << item << " ";
    out << "}";
}

/// The text between `from` and the first `to` behind it; up to the end where `to` is missing.
std::string between(const std::string& text, std::string_view from, std::string_view to) {
    const std::size_t found = text.find(from);
    if (found == std::string::npos)
        return "no " + std::string(from);
    const std::size_t begin = found + from.size();
    return text.substr(begin, text.find(to, begin) - begin);
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const Node& node) {
    return out << node.id << ": " << node.x << " " << node.y << " " << node.z;
}

std::ostream& operator<<(std::ostream& out, const Section& section) {
    out << "'" << section.elset << "' " << section.geometryType << " " << section.nodesPerElem
        << " ";
    putList(out, section.ids);
    putList(out, section.nodes);
    return out;
}

std::ostream& operator<<(std::ostream& out, const ShellThickness& section) {
    return out << "'" << section.elset << "' " << section.thickness;
}

std::vector<Node> walkNodes(CKVOAbaqusReader& reader) {
    std::vector<Node> out;
    CKVOAbaqusReader::NodeData node;
    if (reader.GetNodeBegin())
        while (reader.GetNodeNext(&node))
            out.push_back({node.id, node.coord[0], node.coord[1], node.coord[2]});
    return out;
}

std::vector<Section> walkSections(CKVOAbaqusReader& reader) {
    std::vector<Section> out;
    CKVOAbaqusReader::ElemSecData record;
    if (!reader.GetElemSecBegin())
        return out;
    while (reader.GetElemSecNext(&record)) {
        Section section{record.elset, record.geometryType, record.nodesPerElem, {}, {}};
        int id = 0;
        int* nodes = nullptr;
        while (reader.GetElemSecElemNext(&record, &id, &nodes)) {
            section.ids.push_back(id);
            section.nodes.insert(section.nodes.end(), nodes, nodes + record.nodesPerElem);
        }
        out.push_back(section);
    }
    return out;
}

std::vector<ShellThickness> walkShellSections(CKVOAbaqusReader& reader) {
    std::vector<ShellThickness> out;
    CKVOAbaqusReader::ShellSecData section;
    if (reader.GetShellSecBegin())
        while (reader.GetShellSecNext(&section))
            out.push_back({section.elset, section.thickness});
    return out;
}

std::string logPart(const std::string& log, LogPart part) {
    const std::string rule = "=======================================\n";
    std::vector<std::string> pieces;
    for (std::size_t at = 0, end = 0; at <= log.size(); at = end + rule.size()) {
        end = std::min(log.find(rule, at), log.size());
        pieces.push_back(log.substr(at, end - at));
    }
    // Before the first rule stands nothing; each part but the first has a rule behind its count
    // too.
    if (pieces.size() != 12)
        return "a log without its six parts:\n" + log;
    const std::size_t first = 2 * static_cast<std::size_t>(part);
    return part == LogPart::kNodes ? pieces[1] : pieces[first] + pieces[first + 1];
}

std::string printedPass(const std::string& printed, int pass) {
    if (pass == 1)
        return between(printed, "============= Loop 1 ==============\n",
                       "------- Summary ------\n");
    return between(printed, "============= Loop 2 ==============\n", "log file path");
}

std::string printedSummary(const std::string& printed) {
    return between(printed, "------- Summary ------\n", "============= Loop 2");
}

bool DeckFolder::import(CKVOAbaqusReader& reader, std::string_view deck) {
    const std::string path = folder.write("deck.inp", deck);
    CapturedOutput output;
    const bool result = reader.ImportInpFile(path.c_str());
    printed = output.text();
    const std::filesystem::path logFile = folder.path() / "debug" / "InputAbaqus.log";
    log = std::filesystem::is_regular_file(logFile) ? readText(logFile) : "";
    return result;
}

std::string DeckFolder::printedLogPath() const {
#if defined(_WIN32)
    return folder.path().string() + "\\\\debug\\InputAbaqus.log";
#else
    return folder.path().string() + "//debug/InputAbaqus.log";
#endif
}

}  // namespace kvocaeio::test
