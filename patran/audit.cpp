/// What is wrong with the finished tables of the two readers of neutral files.
#include "patran/audit.h"

#include <algorithm>
#include <array>
#include <exception>
#include <vector>

#include "patran/findings.h"
#include "report/mesh_audit.h"
#include "text/place_text.h"

namespace kvocaeio::patran {

namespace {

using MeshAudit = report::MeshAudit<float>;

constexpr int kQuadrilateral = 4;

// How many nodes a shape needs; 0 for one that is not known.
constexpr std::array<std::size_t, 9> kNodesNeeded{0, 0, 2, 3, 4, 4, 0, 6, 8};

std::size_t nodesNeeded(int shape) {
    return shape >= 0 && text::asSize(shape) < kNodesNeeded.size()
               ? kNodesNeeded[text::asSize(shape)]
               : 0;
}

// Goes over elements whose nodes are ids.
class ElementAudit {
  public:
    ElementAudit(const IdMap& nodeIds, MeshAudit& mesh, text::Findings& findings)
        : nodeIds_(nodeIds), mesh_(mesh), findings_(findings) {}

    // An element of the reader's `shape`. It has as many nodes as its shape needs, and those that
    // are named behind.
    void element(int id, int shape, std::span<const int> nodes) {
        const std::size_t needed = std::min(nodesNeeded(shape), nodes.size());
        std::size_t count = nodes.size();
        while (count > needed && nodes[count - 1] == 0)
            --count;
        for (std::size_t i = 0; i < count; ++i) {
            rows_[i] = MeshAudit::kNoRow;
            if (nodeIds_.isDefined(nodes[i]))
                rows_[i] = static_cast<std::uint32_t>(nodeIds_.at(nodes[i]));
            else
                noteUndefined(id, nodes[i]);
        }
        const bool isSolid = shape > kQuadrilateral && needed == nodesNeeded(shape);
        mesh_.element(id, std::span(rows_).first(count), isSolid ? needed : 0);
    }

    // Nodes that are used by what the reader drops are not known to be unused.
    void nodes(std::span<const int> ids) {
        if (findings_.countOf(rowOf(Finding::kNodesDropped)) > 0)
            mesh_.useAll();
        // What no element can find has a finding of its own.
        mesh_.nodes([&](std::size_t row) {
            return text::asSize(nodeIds_.at(ids[row])) == row ? ids[row] : 0;
        });
    }

  private:
    void noteUndefined(int element, int node) {
        if (node == kUnknownNode)
            noteText(&findings_, Finding::kNodeUndefined, "element ", element);
        else
            noteText(&findings_, Finding::kNodeUndefined, "element ", element, ", node ", node);
    }

    const IdMap& nodeIds_;
    MeshAudit& mesh_;
    text::Findings& findings_;
    std::array<std::uint32_t, kNodesPerElement> rows_;
};

// The elements of one import whose property is not in the file.
void auditProperties(const ListMesh& mesh, std::size_t firstElement, text::Findings& findings) {
    if (mesh.propertyCount == 0)
        return;
    std::vector<bool> isDefined(mesh.propertyTypes.size());
    for (const int id : mesh.storedIds.properties)
        if (id >= 0 && text::asSize(id) < isDefined.size())
            isDefined[text::asSize(id)] = true;
    for (std::size_t row = firstElement; row < mesh.elements.size(); ++row) {
        const int id = mesh.elementPropertyIds[row];
        if (id >= 0 && text::asSize(id) < isDefined.size() && isDefined[text::asSize(id)])
            continue;
        noteText(&findings, Finding::kPropertyMissing, "element ",
                 mesh.storedIds.elements[row - firstElement], ", property ", id);
    }
}

void auditListsOrThrow(const IdMap& nodeIds, const ListMesh& mesh, const RowsBefore& before,
                       text::Findings& findings) {
    const std::array<float, 3>* const first = mesh.nodes.data() + before.nodes;
    MeshAudit audit(findings, {first == nullptr ? nullptr : first->data(), 3,
                               mesh.nodes.size() - before.nodes});
    ElementAudit elements(nodeIds, audit, findings);
    for (std::size_t row = before.elements; row < mesh.elements.size(); ++row) {
        const int shape = mesh.elementShapes[row];
        // The corners of bars and triangles fill up their row.
        const std::size_t corners = shape == 2 || shape == 3 ? text::asSize(shape) : 4;
        elements.element(mesh.storedIds.elements[row - before.elements], shape,
                         std::span(mesh.elements[row]).first(corners));
    }
    elements.nodes(mesh.storedIds.nodes);
    auditProperties(mesh, before.elements, findings);
}

}  // namespace

void auditLists(const IdMap& nodeIds, const ListMesh& mesh, const RowsBefore& before,
                text::Findings& findings) noexcept {
    try {
        auditListsOrThrow(nodeIds, mesh, before, findings);
    } catch (const std::exception&) {
        findings.note(rowOf(text::FileFinding::kReportIncomplete), 0, 0, {});
    }
}

void countLists(const ListMesh& mesh, report::ImportReport& report) {
    report.addCount("nodes", static_cast<long long>(mesh.nodes.size()));
    report.addCount("elements", static_cast<long long>(mesh.elements.size()));
}

void auditFlat(const IdMap& nodeIds, const FlatMesh& mesh, report::ImportReport& report) {
    report.addCount("nodes", mesh.nodeCount);
    report.addCount("elements", mesh.elementCount);
    report.addCount("properties", mesh.propertyCount);
    // Rows that the file does not fill are left alone, however many there are.
    const StoredIds& ids = mesh.storedIds;
    const std::size_t nodes = std::min(text::asSize(mesh.nodeCount), ids.nodes.size());
    const std::size_t rows = std::min(text::asSize(mesh.elementCount), ids.elements.size());
    MeshAudit audit(report.findings, {mesh.vertices.get(), 3, nodes});
    ElementAudit elements(nodeIds, audit, report.findings);
    for (std::size_t row = 0; row < rows; ++row)
        elements.element(ids.elements[row], mesh.elementTypes[row],
                         std::span(&mesh.elementNodes[row * kNodesPerElement], kNodesPerElement));
    elements.nodes(ids.nodes);
}

}  // namespace kvocaeio::patran
