/// Copying, corner reduction, renumbering and merging of element sections.
#include "abaqus/section_tables.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <map>
#include <string>
#include <utility>

namespace kvocaeio {

namespace {

/// Quadratic solids and the corner nodes that stand first in them.
struct Reduction {
    int nodes;
    int corners;
};
constexpr Reduction kReductions[] = {{10, 4}, {15, 6}, {20, 8}};

/// What the sections of one name become, and the widths that can be filled up to it.
struct MergedForm {
    GeometryType geometry;
    const char* type;
    int nodesPerElem;
    std::array<int, 4> sourceWidths;
};
constexpr MergedForm kMergedForms[] = {{GeometryType::kShell, "S4", 4, {3, 4}},
                                       {GeometryType::kSolid, "C3D8", 8, {4, 5, 6, 8}}};

// Appends `rows` rows of `width` numbers, each written by `writeRow(row, out)`. They pass through a
// block that stays in the cache, since a large table would otherwise be written twice: once with
// zeros, once with its values.
template <class WriteRow>
void appendRows(std::vector<int>& table, std::size_t rows, std::size_t width,
                const WriteRow& writeRow) {
    std::array<int, 4096> block;
    const std::size_t rowsPerBlock = block.size() / width;
    table.reserve(table.size() + rows * width);
    for (std::size_t row = 0; row < rows;) {
        int* out = block.data();
        for (const std::size_t end = std::min(row + rowsPerBlock, rows); row < end; ++row)
            out = writeRow(row, out);
        table.insert(table.end(), block.data(), out);
    }
}

// An empty block of quadratic solids keeps its width.
int cornersOf(const ElemSection& raw) {
    for (const Reduction& reduction : kReductions)
        if (reduction.nodes == raw.nodesPerElem && !raw.ids.empty())
            return reduction.corners;
    return raw.nodesPerElem;
}

ElemSection sortedCopy(const ElemSection& raw, const OidMap<int>& nodeOidMap) {
    ElemSection sorted;
    sorted.elset = raw.elset;
    sorted.type = raw.type;  // stays as the deck wrote it, whatever is left of the nodes
    sorted.geometryType = raw.geometryType;
    sorted.nodesPerElem = cornersOf(raw);
    sorted.ids = raw.ids;
    const auto rawWidth = static_cast<std::size_t>(raw.nodesPerElem);
    const auto width = static_cast<std::size_t>(sorted.nodesPerElem);
    appendRows(sorted.nodes, raw.ids.size(), width, [&](std::size_t row, int* out) {
        const int* const oids = raw.nodes.data() + row * rawWidth;
        return std::transform(oids, oids + width, out,
                              [&](int oid) { return nodeOidMap.find(oid); });
    });
    return sorted;
}

// Writes all elements of `source`, filled up by repeating their last node, behind those of `merged`.
void appendFilled(ElemSection& merged, const ElemSection& source, const MergedForm& form) {
    const auto& widths = form.sourceWidths;
    if (std::find(widths.begin(), widths.end(), source.nodesPerElem) == widths.end())
        return;  // a block of quadratic solids without an element
    merged.ids.insert(merged.ids.end(), source.ids.begin(), source.ids.end());
    if (source.nodesPerElem == form.nodesPerElem) {
        merged.nodes.insert(merged.nodes.end(), source.nodes.begin(), source.nodes.end());
        return;
    }
    const auto width = static_cast<std::size_t>(source.nodesPerElem);
    const auto missing = static_cast<std::size_t>(form.nodesPerElem) - width;
    appendRows(merged.nodes, source.ids.size(), width + missing, [&](std::size_t row, int* out) {
        const int* const nodes = source.nodes.data() + row * width;
        out = std::copy_n(nodes, width, out);
        return std::fill_n(out, missing, nodes[width - 1]);
    });
}

// Releases each source once it has been taken over.
ElemSection mergeGroup(const std::string& name, const std::vector<std::size_t>& positions,
                       std::vector<ElemSection>& sections) {
    ElemSection merged;
    merged.elset = name;
    merged.geometryType = sections[positions.front()].geometryType;
    const MergedForm& form = kMergedForms[merged.geometryType == GeometryType::kSolid ? 1 : 0];
    merged.type = form.type;
    merged.nodesPerElem = form.nodesPerElem;
    std::size_t total = 0;
    for (const std::size_t position : positions)
        total += sections[position].ids.size();
    const std::size_t nodeTotal = total * static_cast<std::size_t>(form.nodesPerElem);
    std::printf("Elset name = %s , num = %d\n", name.c_str(), static_cast<int>(positions.size()));
    std::printf("Total Element num = %d , Total node num = %d\n", static_cast<int>(total),
                static_cast<int>(nodeTotal));
    merged.ids.reserve(total);
    merged.nodes.reserve(nodeTotal);
    for (const std::size_t position : positions) {
        appendFilled(merged, sections[position], form);
        sections[position] = {};
    }
    return merged;
}

}  // namespace

void copySections(const RawModel& raw, std::vector<ElemSection>& solidSections,
                  std::vector<ElemSection>& shellElemSections) {
    const auto makeRoom = [&raw](std::vector<ElemSection>& sorted, GeometryType geometry) {
        sorted.clear();
        sorted.resize(static_cast<std::size_t>(std::count_if(
            raw.elemSections.begin(), raw.elemSections.end(),
            [geometry](const ElemSection& s) { return s.geometryType == geometry; })));
        return sorted.begin();
    };
    auto solid = makeRoom(solidSections, GeometryType::kSolid);
    auto shell = makeRoom(shellElemSections, GeometryType::kShell);
    std::printf("elem sec num = %d\n", static_cast<int>(raw.elemSections.size()));
    int number = 0;
    for (const ElemSection& section : raw.elemSections) {
        std::printf("sec %d , geom type = %d\n", number++, static_cast<int>(section.geometryType));
        if (section.geometryType == GeometryType::kShell) {
            *shell++ = sortedCopy(section, raw.nodeOidMap);
        } else if (section.geometryType == GeometryType::kSolid) {
            std::printf("element node num = %d\n", section.nodesPerElem);
            *solid++ = sortedCopy(section, raw.nodeOidMap);
        }
    }
}

void MergeSectionsByElset(std::vector<ElemSection>& sections) {
    std::map<std::string, std::vector<std::size_t>> positionsByName;
    for (std::size_t position = 0; position < sections.size(); ++position)
        positionsByName[sections[position].elset].push_back(position);
    if (positionsByName.size() == sections.size())
        return;  // no name stands twice
    std::vector<ElemSection> merged;
    merged.reserve(positionsByName.size());
    for (const auto& [name, positions] : positionsByName)
        merged.push_back(positions.size() == 1 ? std::move(sections[positions.front()])
                                               : mergeGroup(name, positions, sections));
    sections = std::move(merged);
}

}  // namespace kvocaeio
