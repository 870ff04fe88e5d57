/// What `KVONASTRAN_Reader` makes of the deck of a rule, and `KVONASTRAN_Writer` of its calls.
#include <algorithm>
#include <functional>
#include <map>
#include <type_traits>

#include "docs/calls.h"
#include "docs/rules.h"
#include "support/files.h"
#include <kvocaeio/nastran.h>

namespace kvocaeio::test {

namespace {

// The rows in which a number is not zero.
template <class Number>
void showRows(const char* kind, const Number* values, int rows, int width, Lines& lines) {
    for (int row = 0; row < rows; ++row, values += width) {
        if (std::all_of(values, values + width, [](Number value) { return value == 0; }))
            continue;
        std::string line = kind;
        for (int i = 0; i < width; ++i)
            line += std::is_integral_v<Number> ? " " + std::to_string(values[i])
                                               : print(" %g", static_cast<double>(values[i]));
        lines.push_back(line);
    }
}

// What the host wrote into a deck, the units in its header, and its last line.
void showCards(const std::string& path, Lines& lines) {
    bool inBulk = false;
    for (const std::string& line : splitLines(readText(path))) {
        if (line == "ENDDATA")
            lines.push_back("footer: " + line);
        else if (line.starts_with("$ Elastic") || line.starts_with("$ Density"))
            lines.push_back("header: " + line);
        else if (inBulk && !line.starts_with("$"))
            lines.push_back("card: " + line);
        inBulk = inBulk || line.starts_with("+VORLAN1");
    }
}

}  // namespace

Lines showNastran(const Rule& rule) {
    const TempFolder folder;
    KVONASTRAN_Reader deck;
    Lines lines;
    bool read = false;
    for (const std::string& file : rule.files) {
        read = deck.SetFilePath(folder.write("deck.bdf", file).c_str());
        lines.push_back(print("SetFilePath: %s", read ? "true" : "false"));
    }
    lines.push_back(print("GetNodeCout: %d", deck.GetNodeCout()));
    lines.push_back(print("GetElemCout: %d", deck.GetElemCout()));
    lines.push_back(print("GetSectionCout: %d", deck.GetSectionCout()));
    lines.push_back(print("GetPropertiesCout: %d", deck.GetPropertiesCout()));
    if (read) {
        showRows("node:", deck.GetNodeVector(), deck.GetNodeCout(), 4, lines);
        showRows("element:", deck.GetElemVector(), deck.GetElemCout(), 9, lines);
    }
    showRows("section:", deck.GetSectionVector(), deck.GetSectionCout(), 3, lines);
    return lines;
}

Lines showNastranWriter(const Rule& rule) {
    const TempFolder folder;
    const std::string path = folder.file("deck.nas");
    Lines lines;
    {
        KVONASTRAN_Writer writer;
        const std::map<std::string, std::function<bool(const Call&)>> calls = {
            {"SetFilePath",
             [&](const Call& call) { return writer.SetFilePath(path.c_str(), call.text.c_str()); }},
            {"AddNode",
             [&](const Call& call) {
                 return writer.AddNode(call.integer(0), call.numbers.at(1), call.numbers.at(2),
                                       call.numbers.at(3));
             }},
            {"AddSection",
             [&](const Call& call) { return writer.AddSection(call.integer(0), call.integer(1)); }},
            {"AddElement",
             [&](const Call& call) {
                 std::vector<int> nodes = call.list(2);
                 return writer.AddElement(call.integer(0), call.integer(1),
                                          static_cast<int>(nodes.size()), nodes.data());
             }},
            {"WriteStringEntry",
             [&](const Call& call) {
                 std::string text = call.text;
                 return writer.WriteStringEntry(text.data());
             }},
            {"EndWriting", [&](const Call&) { return writer.EndWriting(); }},
        };
        for (const std::string& line : splitLines(rule.files.front())) {
            const Call call(line);
            lines.push_back(line + ": " + (calls.at(call.name)(call) ? "true" : "false"));
        }
    }
    showCards(path, lines);
    return lines;
}

}  // namespace kvocaeio::test
