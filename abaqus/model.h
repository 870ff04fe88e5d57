/// The tables of one imported Abaqus deck.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "abaqus/oid_map.h"

namespace kvocaeio::abaqus {

/// What an element is to the host, from its type name.
enum class GeometryType : int { kUnknown = 0, kShell = 1, kSolid = 2 };

/// All nodes of all `*NODE` blocks, in deck order.
struct NodeBlock {
    std::string nsetName;        ///< never filled; the import log prints it
    std::vector<int> ids;        ///< node OIDs, one per node
    std::vector<double> coords;  ///< x, y, z per node, in the order of `ids`
};

/// One `*ELEMENT` block.
struct ElemSection {
    std::string elset;  ///< ELSET= value in upper case; empty where the line has none
    std::string type;   ///< TYPE= value in upper case
    GeometryType geometryType = GeometryType::kUnknown;
    int nodesPerElem = 0;
    std::vector<int> ids;    ///< element OIDs, deck order
    std::vector<int> nodes;  ///< `nodesPerElem` node OIDs per element, element after element
};

/// One `*SHELL SECTION` block.
struct ShellSection {
    std::string material;
    std::string elset;
    double thickness = 0.0;
};

/// One `*SURFACE, TYPE=ELEMENT` block. `items` and `faces` run in step.
struct SurfaceSection {
    std::string type;
    std::string name;
    std::vector<std::string> items;  ///< element set names or element labels
    std::vector<std::string> faces;  ///< face labels; empty where the line has none
};

/// One `*DLOAD` block. The three lists run in step.
struct DloadSection {
    std::vector<int> elemIDs;
    std::vector<std::string> faceIdx;  ///< load labels as written
    std::vector<double> values;
};

/// One `*ELSET` block that is not INTERNAL.
struct ElsetSection {
    std::string name;
    std::string parameter;             ///< "GENERATE" for a generated set, else empty
    std::vector<std::string> members;  ///< data tokens in upper case; empty for a generated set
    // Without a data line a generated set is empty: it ends before it starts.
    int genStart = 0;
    int genEnd = -1;
    int genStep = 1;
};

/// Where an element stands in the raw tables.
struct ElemLocation {
    unsigned section = 0;  ///< index into the element sections
    unsigned row = 0;      ///< position inside that section
};

/// What the import leaves: the deck's tables, in deck order and with the deck's numbers.
struct RawModel {
    OidMap<int> nodeOidMap;           ///< node OID to row; 0 for an OID that the deck does not use
    OidMap<ElemLocation> elemOidMap;  ///< element OID to place; (0, 0) likewise
    NodeBlock nodeBlock;
    std::vector<ElemSection> elemSections;
    std::vector<ShellSection> shellSections;
    std::vector<SurfaceSection> surfaces;
    std::vector<DloadSection> dloads;
    std::vector<ElsetSection> elsets;
    int maxElemOid = 0;
    int maxNodeOid = 0;
};

/// The ids from `first` to `last`, by `step`; `last` is one of them.
struct IdRun {
    int first = 0;
    int last = 0;
    int step = 1;
};

/// The element OIDs of one set name in the order of the deck. They stay runs: one line of a
/// generated set may name two thousand million of them.
using ElemList = std::vector<IdRun>;

/// The raw tables, and beside them what the normalisation makes of them. In a sorted section
/// `nodes` holds new node IDs (rows of the node table).
struct AbaqusModel : RawModel {
    std::vector<ElemSection> solidSections;
    std::vector<ElemSection> shellElemSections;
    /// Set name to a place in `elsetElems`. Once a name has been repeated the values run ahead of
    /// the places, and they may lie beyond the end.
    std::map<std::string, int> elsetIndexMap;
    std::vector<ElemList> elsetElems;
    std::vector<int> dloadFaces;    ///< four new node IDs per face, from distributed loads
    std::vector<int> surfaceFaces;  ///< likewise, from surfaces
};

}  // namespace kvocaeio::abaqus
