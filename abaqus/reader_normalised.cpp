/// The exported reader: the normalisation, the look-ups by OID, and the walks over the result.
#include <algorithm>
#include <cstddef>
#include <vector>

#include "abaqus/model.h"
#include "abaqus/name_field.h"
#include "abaqus/normalise.h"
#include <kvocaeio/abaqus.h>

using kvocaeio::ElemSection;
using kvocaeio::GeometryType;

namespace {

// Gives the section at the cursor and moves on.
bool nextSection(std::vector<ElemSection>& sections, GeometryType geometry, int& cursor,
                 CKVOAbaqusReader::ElemSecData* out) {
    if (cursor >= static_cast<int>(sections.size()))
        return false;
    ElemSection& section = sections[static_cast<std::size_t>(cursor++)];
    kvocaeio::copyName(section.elset, out->elset);
    out->geometryType = static_cast<int>(geometry);
    out->nodesPerElem = section.nodesPerElem;
    out->elemNum = static_cast<int>(section.ids.size());
    out->nodes = section.nodes.data();
    out->ids = nullptr;
    return true;
}

}  // namespace

void CKVOAbaqusReader::SortData() {
    kvocaeio::SortData(*impl);
}

bool CKVOAbaqusReader::GetNodeDataByOID(int oid, NodeData* out) {
    if (!impl->nodeOidMap.covers(oid))
        return false;
    const auto row = static_cast<std::size_t>(impl->nodeOidMap.find(oid));
    out->id = oid;
    std::copy_n(&impl->nodeBlock.coords[3 * row], 3, out->coord);
    return true;
}

bool CKVOAbaqusReader::GetElemNodesByOID(int oid, ElemData* out) {
    if (!impl->elemOidMap.covers(oid))
        return false;
    const kvocaeio::ElemLocation location = impl->elemOidMap.find(oid);
    const ElemSection& section = impl->elemSections[location.section];
    out->id = oid;
    out->nodeNum = section.nodesPerElem;
    // Nothing to write for an element of unknown type, nor for an unused OID while the first
    // section is empty.
    const std::size_t first = location.row * static_cast<std::size_t>(section.nodesPerElem);
    if (first < section.nodes.size())
        *out->nodes = section.nodes[first];
    return true;
}

int CKVOAbaqusReader::GetElemSolidSecNumR() {
    return static_cast<int>(impl->solidSections.size());
}

int CKVOAbaqusReader::GetElemShellSecNumR() {
    return static_cast<int>(impl->shellElemSections.size());
}

bool CKVOAbaqusReader::GetElemSolidSecBeginR() {
    if (GetElemSolidSecNumR() == 0)
        return false;
    sortedSectionCursor = 0;
    return true;
}

bool CKVOAbaqusReader::GetElemShellSecBeginR() {
    if (GetElemShellSecNumR() == 0)
        return false;
    sortedSectionCursor = 0;
    return true;
}

bool CKVOAbaqusReader::GetElemSolidSecNextR(ElemSecData* out) {
    return nextSection(impl->solidSections, GeometryType::kSolid, sortedSectionCursor, out);
}

bool CKVOAbaqusReader::GetElemShellSecNextR(ElemSecData* out) {
    return nextSection(impl->shellElemSections, GeometryType::kShell, sortedSectionCursor, out);
}

bool CKVOAbaqusReader::GetElemSecElemBeginR(ElemSecData* sec, ElemData*) {
    if (sec->elemNum == 0)
        return false;
    sortedElementCursor = 0;
    return true;
}

bool CKVOAbaqusReader::GetElemSecElemNextR(ElemSecData* sec, ElemData* out) {
    if (sortedElementCursor >= sec->elemNum)
        return false;
    const std::ptrdiff_t row = sortedElementCursor++;
    out->id = 0;
    out->nodeNum = sec->nodesPerElem;
    out->nodes = sec->nodes + sec->nodesPerElem * row;
    return true;
}
