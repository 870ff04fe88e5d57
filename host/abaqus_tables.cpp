/// The reader's walks, from the raw and the normalised side.
#include "abaqus_tables.h"

#include <limits>

namespace kvocaeio::host {

namespace {

Section toSection(const CKVOAbaqusReader::ElemSecData& record) {
    return {record.elset, static_cast<Geometry>(record.geometryType), record.nodesPerElem,
            static_cast<std::size_t>(record.elemNum), record.nodes};
}

void takeNodes(CKVOAbaqusReader& reader, DeckTables& tables) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    BoundingBox box;
    box.low.fill(kInfinity);
    box.high.fill(-kInfinity);
    tables.nodeIds.reserve(static_cast<std::size_t>(reader.GetNodeNum()));
    CKVOAbaqusReader::NodeData node{};
    reader.GetNodeBegin();
    while (reader.GetNodeNext(&node)) {
        tables.nodeIds.push_back(node.id);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            // Written so that "nan" in a deck changes nothing.
            if (node.coord[axis] < box.low[axis])
                box.low[axis] = node.coord[axis];
            if (node.coord[axis] > box.high[axis])
                box.high[axis] = node.coord[axis];
        }
    }
    if (box.low[0] <= box.high[0] && box.low[1] <= box.high[1] && box.low[2] <= box.high[2])
        tables.box = box;
}

}  // namespace

DeckTables takeRawTables(CKVOAbaqusReader& reader) {
    DeckTables tables;
    takeNodes(reader, tables);
    CKVOAbaqusReader::ElemSecData section{};
    reader.GetElemSecBegin();
    while (reader.GetElemSecNext(&section))
        tables.raw.push_back(toSection(section));
    CKVOAbaqusReader::ShellSecData shell{};
    reader.GetShellSecBegin();
    while (reader.GetShellSecNext(&shell))
        tables.thicknesses.push_back({shell.elset, shell.thickness});
    return tables;
}

void takeNormalisedTables(CKVOAbaqusReader& reader, DeckTables& tables) {
    CKVOAbaqusReader::ElemSecData section{};
    if (reader.GetElemSolidSecBeginR())
        while (reader.GetElemSolidSecNextR(&section))
            tables.normalised.push_back(toSection(section));
    tables.solids = tables.normalised.size();
    if (reader.GetElemShellSecBeginR())
        while (reader.GetElemShellSecNextR(&section))
            tables.normalised.push_back(toSection(section));
}

}  // namespace kvocaeio::host
