/// Counts of the tables, and what is wrong with the OIDs and the mesh in them.
#include "abaqus/audit.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "abaqus/findings.h"
#include "report/mesh_audit.h"
#include "text/place_text.h"

namespace kvocaeio::abaqus {

namespace {

using MeshAudit = report::MeshAudit<double>;

/// Shapes of elements as a user counts them, by geometry and number of nodes.
struct ShapeRow {
    std::string_view name;
    GeometryType geometry;
    int nodes;
    int quadraticNodes;
};
constexpr ShapeRow kShapes[] = {
    {"tetrahedra", GeometryType::kSolid, 4, 10}, {"pyramids", GeometryType::kSolid, 5, 5},
    {"wedges", GeometryType::kSolid, 6, 15},     {"hexahedra", GeometryType::kSolid, 8, 20},
    {"triangles", GeometryType::kShell, 3, 3},   {"quadrilaterals", GeometryType::kShell, 4, 4},
};
constexpr std::string_view kUnknownShape = "elements of unknown type";

const ShapeRow* shapeOf(const ElemSection& section) {
    const auto* const row = std::ranges::find_if(kShapes, [&](const ShapeRow& shape) {
        return shape.geometry == section.geometryType &&
               (shape.nodes == section.nodesPerElem ||
                shape.quadraticNodes == section.nodesPerElem);
    });
    return row == std::end(kShapes) ? nullptr : row;
}

void addCount(report::ImportReport& report, std::string_view name, std::size_t count) {
    report.addCount(name, static_cast<long long>(count));
}

std::size_t elementsIn(const std::vector<ElemSection>& sections) {
    std::size_t count = 0;
    for (const ElemSection& section : sections)
        count += section.ids.size();
    return count;
}

void countElements(const std::vector<ElemSection>& sections, report::ImportReport& report) {
    std::array<std::size_t, std::size(kShapes) + 1> counts{};
    for (const ElemSection& section : sections) {
        const ShapeRow* const shape = shapeOf(section);
        const auto row =
            shape == nullptr ? std::size(kShapes) : static_cast<std::size_t>(shape - kShapes);
        counts[row] += section.ids.size();
    }
    for (std::size_t row = 0; row < counts.size(); ++row)
        if (counts[row] > 0)
            addCount(report, row < std::size(kShapes) ? kShapes[row].name : kUnknownShape,
                     counts[row]);
}

/// Goes over the raw tables: nodes by their rows, elements by their places.
class TableAudit {
  public:
    TableAudit(const RawModel& model, const OidMap<int>& rowOfOid, text::Findings& findings)
        : model_(model),
          rowOfOid_(rowOfOid),
          findings_(findings),
          mesh_(findings, {model.nodeBlock.coords.data(), 3, model.nodeBlock.ids.size()}) {}

    void auditNodes() {
        const std::vector<int>& ids = model_.nodeBlock.ids;
        for (std::size_t row = 0; row < ids.size(); ++row)
            if (const std::size_t last = lastRowOf(row); last != row) [[unlikely]]
                noteRepeatedNode(row, last);
    }

    void auditElements() {
        ElemLocation location;
        for (const ElemSection& section : model_.elemSections) {
            const ShapeRow* const shape = shapeOf(section);
            const bool isSolid = section.geometryType == GeometryType::kSolid;
            const auto corners = static_cast<std::size_t>(isSolid && shape ? shape->nodes : 0);
            rows_.resize(static_cast<std::size_t>(section.nodesPerElem));
            rowOfOid_.lookUpMany([&](const auto& rowOf) {
                for (std::size_t row = 0; row < section.ids.size(); ++row) {
                    location.row = static_cast<unsigned>(row);
                    auditElement(section, location, corners, rowOf);
                }
            });
            ++location.section;
        }
    }

    // After the elements. A row that a later one of its OID takes the place of is no node here.
    void finish() {
        mesh_.nodes([&](std::size_t row) {
            const int oid = model_.nodeBlock.ids[row];
            return lastRowOf(row) == row ? std::max(oid, 0) : 0;
        });
    }

  private:
    // Of the rows with the OID of `row` the last one, which the elements get.
    std::size_t lastRowOf(std::size_t row) const {
        const int oid = model_.nodeBlock.ids[row];
        return oid < 0 ? row : static_cast<std::size_t>(rowOfOid_.find(oid));
    }

    void noteRepeatedNode(std::size_t row, std::size_t last) {
        const int oid = model_.nodeBlock.ids[row];
        if (oid == 0)  // of lines without a number, which are noted
            return;
        const double* const coords = model_.nodeBlock.coords.data();
        const bool isSame = std::equal(coords + 3 * row, coords + 3 * row + 3, coords + 3 * last);
        noteText(&findings_, isSame ? Finding::kNodeRepeated : Finding::kNodeConflict, "node ",
                 oid);
    }

    template <class RowOf>
    void auditElement(const ElemSection& section, ElemLocation location, std::size_t corners,
                      const RowOf& rowOf) {
        const int* const nodes = section.nodes.data() + location.row * rows_.size();
        const int oid = section.ids[location.row];
        for (std::size_t i = 0; i < rows_.size(); ++i) {
            const int row = rowOf(nodes[i]);
            const bool isDefined = model_.nodeBlock.ids[static_cast<std::size_t>(row)] == nodes[i];
            rows_[i] = isDefined ? static_cast<std::uint32_t>(row) : MeshAudit::kNoRow;
            if (!isDefined) [[unlikely]]
                noteText(&findings_, Finding::kNodeUndefined, "node ", nodes[i], " of element ",
                         oid);
        }
        mesh_.element(oid, rows_, corners);
        const ElemLocation last = oid < 0 ? location : model_.elemOidMap.find(oid);
        if (last.section != location.section || last.row != location.row) [[unlikely]]
            noteRepeatedElement(oid, {nodes, rows_.size()}, last);
    }

    void noteRepeatedElement(int oid, std::span<const int> nodes, ElemLocation last) {
        const ElemSection& section = model_.elemSections[last.section];
        const auto width = static_cast<std::size_t>(section.nodesPerElem);
        const std::span<const int> others(section.nodes.data() + last.row * width, width);
        const bool isSame = std::ranges::equal(nodes, others);
        noteText(&findings_, isSame ? Finding::kElementRepeated : Finding::kElementConflict,
                 "element ", oid);
    }

    const RawModel& model_;
    const OidMap<int>& rowOfOid_;
    text::Findings& findings_;
    MeshAudit mesh_;
    std::vector<std::uint32_t> rows_;  // of the element in hand
};

}  // namespace

void auditImport(const AbaqusModel& model, report::ImportReport& report) {
    addCount(report, "nodes", model.nodeBlock.ids.size());
    addCount(report, "element sections", model.elemSections.size());
    addCount(report, "elements", elementsIn(model.elemSections));
    countElements(model.elemSections, report);
    addCount(report, "shell sections", model.shellSections.size());

    if (model.nodeBlock.ids.empty())
        return;
    // Without elements the import makes no maps.
    OidMap<int> ownMap;
    if (model.nodeOidMap.size() == 0)
        assignRows(ownMap, model.nodeBlock.ids);
    TableAudit audit(model, model.nodeOidMap.size() == 0 ? ownMap : model.nodeOidMap,
                     report.findings);
    audit.auditNodes();
    if (model.elemSections.empty())
        return;
    audit.auditElements();
    audit.finish();
}

void auditNormalised(const AbaqusModel& model, report::ImportReport& report) {
    addCount(report, "normalised sections of solids", model.solidSections.size());
    addCount(report, "normalised solids", elementsIn(model.solidSections));
    addCount(report, "normalised sections of shells", model.shellElemSections.size());
    addCount(report, "normalised shells", elementsIn(model.shellElemSections));
}

}  // namespace kvocaeio::abaqus
