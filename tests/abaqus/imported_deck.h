/// Imports of small decks, and what the public walks give after them.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "support/captured_output.h"
#include "support/files.h"
#include <kvocaeio/abaqus.h>

namespace kvocaeio::test {

/// One record of the node walk.
struct Node {
    int id;
    double x, y, z;
    bool operator==(const Node&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Node& node);

/// One record of the section walk with what its element walk gives.
struct Section {
    std::string elset;
    int geometryType;
    int nodesPerElem;
    std::vector<int> ids;
    std::vector<int> nodes;
    bool operator==(const Section&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Section& section);

/// One record of the shell section walk.
struct ShellThickness {
    std::string elset;
    double thickness;
    bool operator==(const ShellThickness&) const = default;
};
std::ostream& operator<<(std::ostream& out, const ShellThickness& section);

std::vector<Node> walkNodes(CKVOAbaqusReader& reader);
std::vector<Section> walkSections(CKVOAbaqusReader& reader);
std::vector<ShellThickness> walkShellSections(CKVOAbaqusReader& reader);

/// The log as its parts, the rules between them left out: part 0 holds the nodes, the others begin
/// with their "... Section count = ..." line.
enum class LogPart { kNodes, kElements, kShells, kSurfaces, kDloads, kElsets };
std::string logPart(const std::string& log, LogPart part);

/// The printed lines of one pass, its heading left out; of pass 1 without the summary.
std::string printedPass(const std::string& printed, int pass);
/// The printed summary from its first count on.
std::string printedSummary(const std::string& printed);

/// A deck in a folder of its own, with a debug folder beside it.
class DeckFolder {
  public:
    DeckFolder() { folder.makeFolder("debug"); }

    /// Writes the deck and imports it with `reader`.
    bool import(CKVOAbaqusReader& reader, std::string_view deck);
    /// The path of InputAbaqus.log as the import prints it.
    std::string printedLogPath() const;

    TempFolder folder;
    std::string printed;  ///< standard output of the last import
    std::string log;      ///< its InputAbaqus.log
};

/// One deck imported by a new reader.
struct ImportedDeck : DeckFolder {
    explicit ImportedDeck(std::string_view deck) { result = import(reader, deck); }

    std::vector<Node> nodes() { return walkNodes(reader); }
    std::vector<Section> sections() { return walkSections(reader); }
    std::vector<ShellThickness> shellSections() { return walkShellSections(reader); }
    std::string logOf(LogPart part) const { return logPart(log, part); }

    CKVOAbaqusReader reader;
    bool result = false;
};

}  // namespace kvocaeio::test
