/// A second, plain import of Abaqus decks for the tests: fgets, strtok and sscanf, nothing clever.
#pragma once

#include <string>
#include <vector>

namespace kvocaeio::test {

struct NaiveElements {
    std::string elset;
    std::string type;
    int geometryType = 0;
    int nodesPerElem = 0;
    std::vector<int> ids;
    std::vector<int> nodes;
};

struct NaiveShellSection {
    std::string material;
    std::string elset;
    double thickness = 0.0;
};

struct NaiveSurface {
    std::string type;
    std::string name;
    std::vector<std::string> items;
    std::vector<std::string> faces;
};

struct NaiveDload {
    std::vector<int> elemIDs;
    std::vector<std::string> faceIdx;
    std::vector<double> values;
};

struct NaiveElset {
    std::string name;
    std::string parameter;
    std::vector<std::string> members;
    int genStart = 0;
    int genEnd = -1;
    int genStep = 1;
};

/// All that one import leaves behind.
struct NaiveImport {
    bool opened = false;
    std::vector<int> nodeIds;
    std::vector<double> coords;
    std::vector<NaiveElements> elements;
    std::vector<NaiveShellSection> shells;
    std::vector<NaiveSurface> surfaces;
    std::vector<NaiveDload> dloads;
    std::vector<NaiveElset> elsets;
    std::string printed;  ///< standard output
    std::string log;      ///< InputAbaqus.log; empty when the debug folder does not exist
};

/// Imports the deck at `path`; prints and writes nothing.
NaiveImport naiveImport(const std::string& path);

/// Path of the debug folder beside the deck, as it is printed.
std::string naiveDebugFolder(const std::string& deckPath);

/// Text of InputAbaqus.log; what is printed meanwhile is appended to `tables.printed`.
std::string naiveLog(NaiveImport& tables);

/// Appends text formatted as printf does.
void appendFormatted(std::string& out, const char* format, ...);

}  // namespace kvocaeio::test
