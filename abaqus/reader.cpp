/// The exported reader: its life, the import, and the walks over the raw tables.
#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "abaqus/deck_import.h"
#include "abaqus/model.h"
#include "abaqus/name_field.h"
#include <kvocaeio/abaqus.h>

using kvocaeio::copyName;
using kvocaeio::ElemSection;
using kvocaeio::NodeBlock;
using kvocaeio::ShellSection;

CKVOAbaqusReader::CKVOAbaqusReader()
    : impl(new kvocaeio::AbaqusModel),
      nodeCursor(0),
      sectionCursor(0),
      sectionElementCursor(0),
      shellSectionCursor(0),
      sortedSectionCursor(0),
      sortedElementCursor(0) {}

CKVOAbaqusReader::~CKVOAbaqusReader() {
    delete std::exchange(impl, nullptr);
}

CKVOAbaqusReader& CKVOAbaqusReader::operator=(const CKVOAbaqusReader&) = default;

bool CKVOAbaqusReader::ImportInpFile(const char* path) {
    return kvocaeio::importDeck(*impl, path);
}

int CKVOAbaqusReader::GetNodeNum() {
    return static_cast<int>(impl->nodeBlock.ids.size());
}

bool CKVOAbaqusReader::GetNodeBegin() {
    if (GetNodeNum() == 0)
        return false;
    nodeCursor = 0;
    return true;
}

bool CKVOAbaqusReader::GetNodeNext(NodeData* out) {
    if (nodeCursor >= GetNodeNum())
        return false;
    NodeBlock& block = impl->nodeBlock;
    const auto row = static_cast<std::size_t>(nodeCursor++);
    out->id = block.ids[row];
    out->coord = &block.coords[3 * row];
    return true;
}

int CKVOAbaqusReader::GetElemSecNum() {
    return static_cast<int>(impl->elemSections.size());
}

bool CKVOAbaqusReader::GetElemSecBegin() {
    if (GetElemSecNum() == 0)
        return false;
    sectionCursor = 0;
    return true;
}

bool CKVOAbaqusReader::GetElemSecNext(ElemSecData* out) {
    if (sectionCursor >= GetElemSecNum())
        return false;
    ElemSection& section = impl->elemSections[static_cast<std::size_t>(sectionCursor++)];
    copyName(section.elset, out->elset);
    out->geometryType = static_cast<int>(section.geometryType);
    out->nodesPerElem = section.nodesPerElem;
    out->elemNum = static_cast<int>(section.ids.size());
    out->nodes = section.nodes.data();
    out->ids = section.ids.data();
    sectionElementCursor = 0;
    return true;
}

bool CKVOAbaqusReader::GetElemSecElemBegin() {
    sectionElementCursor = 0;
    return true;
}

bool CKVOAbaqusReader::GetElemSecElemNext(ElemSecData* sec, int* id, int** nodes) {
    if (sectionElementCursor >= sec->elemNum)
        return false;
    const std::ptrdiff_t row = sectionElementCursor++;
    *id = sec->ids[row];
    *nodes = sec->nodes + sec->nodesPerElem * row;
    return true;
}

int CKVOAbaqusReader::GetShellSecNum() {
    return static_cast<int>(impl->shellSections.size());
}

bool CKVOAbaqusReader::GetShellSecBegin() {
    if (GetShellSecNum() < 1)
        return false;
    shellSectionCursor = 0;
    return true;
}

bool CKVOAbaqusReader::GetShellSecNext(ShellSecData* out) {
    if (shellSectionCursor >= GetShellSecNum())
        return false;
    const ShellSection& section =
        impl->shellSections[static_cast<std::size_t>(shellSectionCursor++)];
    copyName(section.elset, out->elset);
    out->thickness = section.thickness;
    return true;
}
