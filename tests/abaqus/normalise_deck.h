/// What the normalisation's tests share: a deck imported and sorted, its walks as plain values.
#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "support/captured_output.h"
#include "support/files.h"
#include <kvocaeio/abaqus.h>

namespace kvocaeio::test {

/// One section as a walk hands it out.
struct SortedSection {
    std::string elset;
    int geometryType;
    int nodesPerElem;
    std::vector<std::vector<int>> elements;

    bool operator==(const SortedSection&) const = default;
};
using Sections = std::vector<SortedSection>;

inline std::ostream& operator<<(std::ostream& out, const SortedSection& section) {
    out << "\n\"" << section.elset << "\" geometry " << section.geometryType << " width "
        << section.nodesPerElem;
    for (const std::vector<int>& element : section.elements) {
        out << "\n   ";
        for (const int node : element)
            out << ' ' << node;
    }
    return out;
}

/// One of the two walks over the normalised sections, with what every record of it must hold.
inline Sections sortedWalk(CKVOAbaqusReader& reader, int (CKVOAbaqusReader::*count)(),
                           bool (CKVOAbaqusReader::*begin)(),
                           bool (CKVOAbaqusReader::*next)(CKVOAbaqusReader::ElemSecData*)) {
    Sections sections;
    CKVOAbaqusReader::ElemSecData record;
    int someId = 0;
    const bool begun = (reader.*begin)();
    EXPECT_EQ(begun, (reader.*count)() > 0);
    while (begun && (record.ids = &someId, (reader.*next)(&record))) {
        EXPECT_EQ(record.ids, nullptr);
        SortedSection section{record.elset, record.geometryType, record.nodesPerElem, {}};
        CKVOAbaqusReader::ElemData element;
        EXPECT_EQ(reader.GetElemSecElemBeginR(&record, &element), record.elemNum != 0);
        if (record.elemNum != 0)
            while (reader.GetElemSecElemNextR(&record, &element)) {
                EXPECT_EQ(element.id, 0);
                EXPECT_EQ(element.nodeNum, record.nodesPerElem);
                section.elements.emplace_back(element.nodes, element.nodes + element.nodeNum);
            }
        EXPECT_EQ(section.elements.size(), static_cast<std::size_t>(record.elemNum));
        sections.push_back(section);
    }
    EXPECT_EQ(sections.size(), static_cast<std::size_t>((reader.*count)()));
    return sections;
}

inline Sections solidsOf(CKVOAbaqusReader& reader) {
    return sortedWalk(reader, &CKVOAbaqusReader::GetElemSolidSecNumR,
                      &CKVOAbaqusReader::GetElemSolidSecBeginR,
                      &CKVOAbaqusReader::GetElemSolidSecNextR);
}

inline Sections shellsOf(CKVOAbaqusReader& reader) {
    return sortedWalk(reader, &CKVOAbaqusReader::GetElemShellSecNumR,
                      &CKVOAbaqusReader::GetElemShellSecBeginR,
                      &CKVOAbaqusReader::GetElemShellSecNextR);
}

/// The raw walk, each element with its OID in front of its nodes.
inline Sections rawSectionsOf(CKVOAbaqusReader& reader) {
    Sections sections;
    CKVOAbaqusReader::ElemSecData record;
    if (reader.GetElemSecBegin())
        while (reader.GetElemSecNext(&record)) {
            SortedSection section{record.elset, record.geometryType, record.nodesPerElem, {}};
            int id = 0;
            int* nodes = nullptr;
            while (reader.GetElemSecElemNext(&record, &id, &nodes)) {
                std::vector<int>& element = section.elements.emplace_back(1, id);
                element.insert(element.end(), nodes, nodes + record.nodesPerElem);
            }
            sections.push_back(section);
        }
    return sections;
}

enum class DebugFolder { present, absent };

/// A deck imported; a folder debug stands beside it unless told otherwise.
class Deck {
  public:
    explicit Deck(std::string_view text, DebugFolder debug = DebugFolder::present)
        : own(std::make_unique<TempFolder>()), folder(*own) {
        if (debug == DebugFolder::present)
            folder.makeFolder("debug");
        importDeck(text);
    }
    /// In a folder that serves many decks, one after the other.
    Deck(const TempFolder& shared, std::string_view text) : folder(shared) { importDeck(text); }

    /// Sorts and keeps what that printed, also when it throws.
    void sort() {
        CapturedOutput output;
        try {
            reader.SortData();
        } catch (...) {
            printed = output.text();
            throw;
        }
        printed = output.text();
    }

    Sections solids() { return solidsOf(reader); }
    Sections shells() { return shellsOf(reader); }

    std::filesystem::path logFile() const { return folder.path() / "debug" / "SortData.log"; }
    std::string log() const { return readText(logFile()); }
    /// The log's lines under one of its headings, such as "Elset Data".
    std::string logBlock(std::string_view title) const {
        const std::string text = log();
        const std::string heading = "-------- " + std::string(title) + "--------\n";
        const std::size_t at = text.find(heading);
        if (at == std::string::npos)
            return "no block " + std::string(title) + " in:\n" + text;
        // Headings have eight dashes and a blank in front, the section lines of a block seven.
        const std::size_t begin = at + heading.size();
        const std::size_t end = text.find("\n-------- ", begin - 1);
        return text.substr(begin, end == std::string::npos ? end : end + 1 - begin);
    }
    /// The line that says where the log goes; two separators stand before debug.
    std::string logLine() const {
#if defined(_WIN32)
        return "log file path = " + folder.path().string() + "\\\\debug\\SortData.log\n";
#else
        return "log file path = " + folder.path().string() + "//debug/SortData.log\n";
#endif
    }

    /// None where the folder is shared.
    const std::unique_ptr<TempFolder> own;
    const TempFolder& folder;
    CKVOAbaqusReader reader;
    std::string printed;

  private:
    void importDeck(std::string_view text) {
        const std::string path = folder.write("deck.inp", text);
        const CapturedOutput quiet;
        EXPECT_TRUE(reader.ImportInpFile(path.c_str()));
    }
};

/// Nodes 1 to `count`, so that node n has the new ID n - 1; x is the OID.
inline std::string nodeBlock(int count) {
    std::string text = "*NODE\n";
    for (int oid = 1; oid <= count; ++oid)
        text += std::to_string(oid) + ", " + std::to_string(oid) + ".0, 0.0, 0.0\n";
    return text;
}

/// An element line with `width` nodes, numbered upwards from `firstNode`.
inline std::string elementLine(int oid, int firstNode, int width) {
    std::string line = std::to_string(oid);
    for (int node = firstNode; node < firstNode + width; ++node)
        line += ", " + std::to_string(node);
    return line + "\n";
}

}  // namespace kvocaeio::test
