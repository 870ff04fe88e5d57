/// The reader's walks, from the raw and the normalised side.
#include "abaqus/tables.h"

namespace kvocaeio::host {

namespace {

Section toSection(const CKVOAbaqusReader::ElemSecData& record) {
    return {record.elset,        static_cast<Geometry>(record.geometryType),
            record.nodesPerElem, static_cast<std::size_t>(record.elemNum),
            record.nodes,        record.ids};
}

void takeNodes(CKVOAbaqusReader& reader, DeckTables& tables) {
    const auto nodes = static_cast<std::size_t>(reader.GetNodeNum());
    tables.nodeIds.reserve(nodes);
    tables.places.reserve(nodes);
    CKVOAbaqusReader::NodeData node{};
    reader.GetNodeBegin();
    while (reader.GetNodeNext(&node)) {
        tables.nodeIds.push_back(node.id);
        tables.places.push_back(node.coord);
        tables.box.add(node.coord);
    }
}

}  // namespace

int cornersOf(const Section& section, const int* row) {
    int corners = section.nodesPerElement;
    while (corners > 1 && row[corners - 2] == row[corners - 1])
        --corners;
    return corners;
}

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
