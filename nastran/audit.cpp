/// Counts of a deck's tables, rows without a card, nodes that are missing, and the mesh as such.
#include "nastran/audit.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "nastran/findings.h"
#include "report/mesh_audit.h"
#include "text/place_text.h"

namespace kvocaeio::nastran {

namespace {

class DeckAudit {
  public:
    DeckAudit(const DeckTables& deck, text::Findings& findings)
        : deck_(deck),
          findings_(findings),
          mesh_(findings, {deck.nodes.get() + 1, kNodeWidth, text::asSize(deck.extent.maxNodeId)}) {
    }

    void elements() {
        deck_.elementRows.forEach([this](std::size_t row) {
            element(ElementRow(&deck_.elements[row * kElemWidth], kElemWidth));
        });
    }
    void nodes() {
        mesh_.nodes([this](std::size_t row) {
            return deck_.nodeRows.contains(row) ? static_cast<long long>(row) + 1 : 0;
        });
    }
    void emptyRows() {
        RowSet elements = deck_.elementRows;
        deck_.shellRows.forEach([&](std::size_t row) { elements.add(row); });
        emptyRows("nodes", deck_.nodeRows, deck_.extent.maxNodeId);
        emptyRows("elements", elements, deck_.extent.maxElemId);
        const std::size_t sections = text::asSize(deck_.sectionCount);
        if (deck_.sectionRows < sections)
            noteEmpty("sections", sections - deck_.sectionRows, sections,
                      "row " + std::to_string(deck_.sectionRows + 1));
    }
    void materials() {
        for (std::size_t row = 0; row < deck_.sectionRows; ++row) {
            const int* const section = &deck_.sections[row * kSectionWidth];
            if (section[1] < 1 || section[1] > deck_.sectionCount)
                noteText(&findings_, Finding::kMaterialUncounted, "material ", section[1],
                         " of property ", section[0]);
        }
    }

  private:
    // A node of OID 0 was told where it was read.
    void element(ElementRow element) {
        std::array<std::uint32_t, kElemWidth - 1> rows;
        const std::size_t count = nodesOf(element);
        int missing = 0;
        for (std::size_t i = count; i-- > 0;) {
            const int oid = element[1 + i];
            const std::size_t row = text::asSize(oid) - 1;
            const bool isThere = deck_.nodeRows.contains(row);
            rows[i] = isThere ? static_cast<std::uint32_t>(row) : report::MeshAudit<float>::kNoRow;
            missing = isThere || oid == 0 ? missing : oid;
        }
        if (missing != 0)
            noteUndefined(element[0], missing);
        mesh_.element(element[0], std::span(rows).first(count), count > 2 ? count : 0);
    }

    void noteUndefined(int element, int node) {
        noteText(&findings_, Finding::kNodeUndefined, "node ", node, " of element ", element);
    }

    void emptyRows(std::string_view table, const RowSet& filled, int rows) {
        const std::size_t count = filled.count();
        if (count < text::asSize(rows))
            noteEmpty(table, text::asSize(rows) - count, text::asSize(rows),
                      "OID " + std::to_string(filled.firstGap() + 1));
    }

    void noteEmpty(std::string_view table, std::size_t empty, std::size_t rows,
                   std::string_view first) {
        const std::string subject = std::to_string(empty) + " of " + std::to_string(rows) +
                                    " rows of " + std::string(table);
        findings_.note(rowOf(Finding::kRowsEmpty), 0, 0, first, subject);
    }

    const DeckTables& deck_;
    text::Findings& findings_;
    report::MeshAudit<float> mesh_;
};

}  // namespace

void auditDeck(DeckTables& deck, report::ImportReport& report) {
    const auto add = [&](std::string_view name, std::size_t count) {
        report.addCount(name, static_cast<long long>(count));
    };
    add("nodes", deck.nodeRows.count());
    add("rows of nodes", text::asSize(deck.extent.maxNodeId));
    add("elements", deck.elementRows.count());
    add("rows of elements", text::asSize(deck.extent.maxElemId));
    add("properties", deck.sectionRows);
    report.addCount("rows of sections", deck.sectionCount);
    DeckAudit audit(deck, report.findings);
    audit.elements();
    audit.nodes();
    audit.emptyRows();
    audit.materials();
    deck.nodeRows = deck.elementRows = deck.shellRows = RowSet();
}

}  // namespace kvocaeio::nastran
