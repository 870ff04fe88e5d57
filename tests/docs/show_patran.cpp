/// What the two Patran readers make of the file of a rule, and the writer of its calls.
#include <array>
#include <functional>
#include <map>

#include "docs/calls.h"
#include "docs/rules.h"
#include "support/captured_output.h"
#include "support/files.h"
#include <kvocaeio/patran.h>

namespace kvocaeio::test {

namespace {

const char* word(bool value) {
    return value ? "true" : "false";
}

void showElement(CKVO_PatranIO_Bridge& reader, int index, const std::string& kind, Lines& lines) {
    std::array<int, 4> n{};
    int type = 0;
    std::array<double, 3> v{};
    reader.GetElementDataBase(index, &n[0], &n[1], &n[2], &n[3], &type, &v[0], &v[1], &v[2]);
    lines.push_back(kind + print(" %d %d %d %d, type %d, values %g %g %g", n[0], n[1], n[2], n[3],
                                 type, v[0], v[1], v[2]));
}

void showBridge(const TempFolder& folder, const Rule& rule, Lines& lines) {
    CKVO_PatranIO_Bridge reader;
    for (const std::string& file : rule.files)
        lines.push_back(print("bridge import: %s", word(reader.ImportFromPatFile(
                                                       folder.write("mesh.pat", file).c_str()))));
    for (int i = 0; i < reader.GetNodeCount(); ++i) {
        float x = 0;
        float y = 0;
        float z = 0;
        reader.GetNodeCoordinate(i, &x, &y, &z);
        lines.push_back(print("bridge node: %g %g %g", static_cast<double>(x),
                              static_cast<double>(y), static_cast<double>(z)));
    }
    for (int i = 0; i < reader.GetElementCount(); ++i)
        showElement(reader, i, "bridge element:", lines);
    showElement(reader, reader.GetElementCount(), "bridge, no such element:", lines);
}

void showFlatReader(const TempFolder& folder, const Rule& rule, Lines& lines) {
    CapturedOutput output;
    CPatranReader reader;
    for (const std::string& file : rule.files)
        lines.push_back(print("reader import: %s", word(reader.ImportFromPatFile(
                                                       folder.write("mesh.pat", file).c_str()))));
    for (const std::string& line : splitLines(output.text()))
        lines.push_back("reader prints: " + line);
    lines.push_back(print("reader counts: nodes %d, elements %d, properties %d",
                          reader.GetNodeCout(), reader.GetElemCount(), reader.GetPropertyCount()));
    float x = 0;
    float y = 0;
    float z = 0;
    for (int i = 0; reader.GetNode(i, x, y, z); ++i)
        lines.push_back(print("reader node: %g %g %g", static_cast<double>(x),
                              static_cast<double>(y), static_cast<double>(z)));
    int type = 0;
    int property = 0;
    std::array<int, 8> nodes{};
    for (int i = 0; reader.GetElement(i, type, property, nodes.data()); ++i) {
        std::string line = "reader element:";
        for (const int node : nodes)
            line += print(" %d", node);
        lines.push_back(line + print(", type %d, property %d", type, property));
    }
}

}  // namespace

Lines showPatran(const Rule& rule) {
    const TempFolder folder;
    Lines lines;
    showBridge(folder, rule, lines);
    showFlatReader(folder, rule, lines);
    return lines;
}

Lines showPatranWriter(const Rule& rule) {
    const TempFolder folder;
    const std::string path = folder.file("mesh.pat");
    Lines lines;
    CKVO_PATWriter_Bridge writer;
    const std::map<std::string, std::function<void(const Call&)>> calls = {
        {"SetFilePath", [&](const Call&) { writer.SetFilePath(path.c_str()); }},
        {"SetNodeCount", [&](const Call& call) { writer.SetNodeCount(call.integer(0)); }},
        {"SetNodeArray", [&](const Call&) { writer.SetNodeArray(); }},
        {"AddNode",
         [&](const Call& call) {
             writer.AddNode(call.integer(0), call.numbers.at(1), call.numbers.at(2),
                            call.numbers.at(3));
         }},
        {"SetElemCount", [&](const Call& call) { writer.SetElemCount(call.integer(0)); }},
        {"SetElemArray",
         [&](const Call&) {
             lines.push_back(print("SetElemArray: %s", word(writer.SetElemArray())));
         }},
        {"AddElement",
         [&](const Call& call) {
             std::vector<int> nodes = call.list(1);
             writer.AddElement(call.integer(0), static_cast<int>(nodes.size()), nodes.data());
         }},
        {"WriteFile",
         [&](const Call&) { lines.push_back(print("WriteFile: %s", word(writer.WriteFile()))); }},
    };
    for (const std::string& line : splitLines(rule.files.front())) {
        const Call call(line);
        calls.at(call.name)(call);
    }
    for (const std::string& line : splitLines(readText(path)))
        lines.push_back("file: " + line);
    return lines;
}

}  // namespace kvocaeio::test
