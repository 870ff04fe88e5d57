/// The exported reader: its life, and the walks over the raw and the normalised tables.
#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "abaqus/audit.h"
#include "abaqus/import.h"
#include "abaqus/model.h"
#include "abaqus/normalise.h"
#include "report/import_report.h"
#include <kvocaeio/abaqus.h>

using namespace kvocaeio::abaqus;
using kvocaeio::report::runReported;
using kvocaeio::report::runReportedOn;

namespace {

template <class Entry>
int entryCount(const std::vector<Entry>& table) {
    return static_cast<int>(table.size());
}

// Sets the cursor of a walk to the table's first entry, if there is one.
template <class Entry>
bool startWalk(const std::vector<Entry>& table, int& cursor) {
    if (table.empty())
        return false;
    cursor = 0;
    return true;
}

// The entry at the cursor, which moves on; null at the end.
template <class Entry>
Entry* takeNext(std::vector<Entry>& table, int& cursor) {
    return cursor < entryCount(table) ? &table[static_cast<std::size_t>(cursor++)] : nullptr;
}

// Copies a name into a record's field, cut to what fits with its terminating NUL.
template <std::size_t size>
void copyName(std::string_view name, char (&field)[size]) {
    field[name.copy(field, size - 1)] = '\0';
}

bool nextSection(std::vector<ElemSection>& sections, bool areSorted, int& cursor,
                 CKVOAbaqusReader::ElemSecData* out) {
    ElemSection* const section = takeNext(sections, cursor);
    if (section == nullptr)
        return false;
    copyName(section->elset, out->elset);
    out->geometryType = static_cast<int>(section->geometryType);
    out->nodesPerElem = section->nodesPerElem;
    out->elemNum = entryCount(section->ids);
    out->nodes = section->nodes.data();
    out->ids = areSorted ? nullptr : section->ids.data();
    return true;
}

}  // namespace

CKVOAbaqusReader::CKVOAbaqusReader()
    : impl(new AbaqusModel),
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
    return importDeck(*impl, path);
}

bool CKVOAbaqusReader::ImportInpFile(const char* path, CKVOImportReport* report) {
    return runReported(
        report, [&](const auto& listener) { return importDeck(*impl, path, listener); },
        [&](auto& filled) { auditImport(*impl, filled); });
}

void CKVOAbaqusReader::SortData() {
    kvocaeio::abaqus::SortData(*impl);
}

void CKVOAbaqusReader::SortData(CKVOImportReport* report) {
    runReportedOn(
        report, [&](const auto& listener) { kvocaeio::abaqus::SortData(*impl, listener); },
        [&](auto& filled) { auditNormalised(*impl, filled); });
}

int CKVOAbaqusReader::GetNodeNum() {
    return entryCount(impl->nodeBlock.ids);
}

bool CKVOAbaqusReader::GetNodeBegin() {
    return startWalk(impl->nodeBlock.ids, nodeCursor);
}

bool CKVOAbaqusReader::GetNodeNext(NodeData* out) {
    const auto row = static_cast<std::size_t>(nodeCursor);
    const int* const id = takeNext(impl->nodeBlock.ids, nodeCursor);
    if (id == nullptr)
        return false;
    out->id = *id;
    out->coord = &impl->nodeBlock.coords[3 * row];
    return true;
}

bool CKVOAbaqusReader::GetNodeDataByOID(int oid, NodeData* out) {
    if (!impl->nodeOidMap.covers(oid))
        return false;
    const auto row = static_cast<std::size_t>(impl->nodeOidMap.find(oid));
    out->id = oid;
    std::copy_n(&impl->nodeBlock.coords[3 * row], 3, out->coord);
    return true;
}

int CKVOAbaqusReader::GetElemSecNum() {
    return entryCount(impl->elemSections);
}

bool CKVOAbaqusReader::GetElemSecBegin() {
    return startWalk(impl->elemSections, sectionCursor);
}

bool CKVOAbaqusReader::GetElemSecNext(ElemSecData* out) {
    if (!nextSection(impl->elemSections, false, sectionCursor, out))
        return false;
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

bool CKVOAbaqusReader::GetElemNodesByOID(int oid, ElemData* out) {
    if (!impl->elemOidMap.covers(oid))
        return false;
    const ElemLocation location = impl->elemOidMap.find(oid);
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

int CKVOAbaqusReader::GetShellSecNum() {
    return entryCount(impl->shellSections);
}

bool CKVOAbaqusReader::GetShellSecBegin() {
    return startWalk(impl->shellSections, shellSectionCursor);
}

bool CKVOAbaqusReader::GetShellSecNext(ShellSecData* out) {
    const ShellSection* const section = takeNext(impl->shellSections, shellSectionCursor);
    if (section == nullptr)
        return false;
    copyName(section->elset, out->elset);
    out->thickness = section->thickness;
    return true;
}

int CKVOAbaqusReader::GetElemSolidSecNumR() {
    return entryCount(impl->solidSections);
}

int CKVOAbaqusReader::GetElemShellSecNumR() {
    return entryCount(impl->shellElemSections);
}

bool CKVOAbaqusReader::GetElemSolidSecBeginR() {
    return startWalk(impl->solidSections, sortedSectionCursor);
}

bool CKVOAbaqusReader::GetElemShellSecBeginR() {
    return startWalk(impl->shellElemSections, sortedSectionCursor);
}

bool CKVOAbaqusReader::GetElemSolidSecNextR(ElemSecData* out) {
    return nextSection(impl->solidSections, true, sortedSectionCursor, out);
}

bool CKVOAbaqusReader::GetElemShellSecNextR(ElemSecData* out) {
    return nextSection(impl->shellElemSections, true, sortedSectionCursor, out);
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
