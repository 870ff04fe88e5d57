/// A Nastran deck as a model: the tables of the reader, and the mesh that is in them, which is made
/// when it is asked for.
#include <algorithm>
#include <optional>

#include "c/content.h"
#include "nastran/audit.h"
#include "nastran/import.h"
#include "nastran/model.h"
#include "nastran/tables.h"

namespace kvocaeio::c_interface {

namespace {

using nastran::DeckTables;
using nastran::kElemWidth;
using nastran::kNodeWidth;

// A kind of element that a row can hold.
struct RowKind {
    std::size_t nodes;
    std::int32_t geometry;
};
constexpr std::array<RowKind, 4> kRowKinds{{
    {2, KVOCAEIO_GEOMETRY_LINE},
    {4, KVOCAEIO_GEOMETRY_SOLID},
    {6, KVOCAEIO_GEOMETRY_SOLID},
    {8, KVOCAEIO_GEOMETRY_SOLID},
}};

// The used rows of a deck, without those of OIDs that it does not use.
class NastranMesh final : public NodeRows {
  public:
    explicit NastranMesh(const DeckTables& deck) {
        takeNodes(deck);
        for (const RowKind& kind : kRowKinds)
            takeElements(deck, kind);
        tables.nodeRows = this;
    }

    void find(std::span<const int> oids, int* rows) const override {
        std::ranges::transform(oids, rows, [this](int oid) {
            const std::size_t place = text::asSize(oid);
            return place < rowCount_ ? rowsAfter_[place] - 1 : kNoRow;
        });
    }

    MeshTables tables;

  private:
    struct Elements {
        std::vector<int> oids;
        std::vector<int> nodes;
    };

    void takeNodes(const DeckTables& deck) {
        const std::size_t rows = text::asSize(deck.extent.maxNodeId);
        rowCount_ = rows + 1;
        rowsAfter_ = text::makeZeroed<int>(rowCount_);
        std::size_t count = 0;
        for (std::size_t row = 0; row < rows; ++row)
            count += deck.nodes[row * kNodeWidth] != 0.0F ? 1U : 0U;
        oids_.reserve(count);
        coordinates_.reserve(3 * count);
        for (std::size_t row = 0; row < rows; ++row) {
            const float* const node = &deck.nodes[row * kNodeWidth];
            if (node[0] == 0.0F)
                continue;
            oids_.push_back(static_cast<int>(row) + 1);  // a float does not hold every OID
            coordinates_.insert(coordinates_.end(), node + 1, node + kNodeWidth);
            rowsAfter_[row + 1] = static_cast<int>(oids_.size());
        }
        tables.nodes.count = count;
        tables.nodes.oids = oids_.data();
        tables.nodes.float_coordinates = coordinates_.data();
    }

    template <class Take>
    static void forEachOf(const DeckTables& deck, const RowKind& kind, const Take& take) {
        const std::size_t rows = text::asSize(deck.extent.maxElemId);
        for (std::size_t row = 0; row < rows; ++row) {
            const nastran::ElementRow element(&deck.elements[row * kElemWidth], kElemWidth);
            if (element[0] != 0 && nastran::nodesOf(element) == kind.nodes)
                take(element);
        }
    }

    void takeElements(const DeckTables& deck, const RowKind& kind) {
        std::size_t count = 0;
        forEachOf(deck, kind, [&](nastran::ElementRow) { ++count; });
        if (count == 0)
            return;
        Elements& elements = elements_.emplace_back();
        elements.oids.reserve(count);
        elements.nodes.reserve(count * kind.nodes);
        forEachOf(deck, kind, [&](nastran::ElementRow element) {
            elements.oids.push_back(element[0]);
            const auto nodes = element.subspan(1, kind.nodes);
            elements.nodes.insert(elements.nodes.end(), nodes.begin(), nodes.end());
        });
        tables.sections[KVOCAEIO_SECTIONS].push_back(
            sectionOf(kind.geometry, kind.nodes, elements.oids, elements.nodes.data()));
    }

    std::vector<int> oids_;
    std::vector<float> coordinates_;
    std::size_t rowCount_ = 0;
    text::ZeroedArray<int> rowsAfter_;  // by OID, the row after the node's, 0 without a node
    std::vector<Elements> elements_;
};

class NastranContent final : public Content {
  public:
    kvocaeio_status read(const Request& request) override {
        kvocaeio_status status = KVOCAEIO_OK;
        const text::File deck = openRequested(request, status);
        if (deck == nullptr)
            return status;
        expectPasses(request, 2);
        if (!nastran::importOpenDeck(deck.get(), info_, request.listener()))
            return isScanned() ? failImport(request, KVOCAEIO_NOT_READ,
                                            "the deck has no nodes or no elements")
                               : failImport(request, KVOCAEIO_OUT_OF_MEMORY, "memory ran out");
        auditFor(request, [&](auto& report) { nastran::auditDeck(info_.decks.back(), report); });
        setTables(info_.decks.back());
        return KVOCAEIO_OK;
    }

    MeshTables* mesh() override {
        if (!mesh_)
            mesh_.emplace(info_.decks.back());
        return &mesh_->tables;
    }
    const kvocaeio_nastran_tables* nastranTables() override { return &tables_; }

  private:
    // Where memory runs out, the extent is 0; a deck without properties has property 1.
    bool isScanned() const { return info_.extent.maxPropId != 0; }

    void setTables(const DeckTables& deck) {
        tables_.node_rows = text::asSize(deck.extent.maxNodeId);
        tables_.nodes = deck.nodes.get();
        tables_.element_rows = text::asSize(deck.extent.maxElemId);
        tables_.elements = deck.elements.get();
        tables_.section_rows = text::asSize(deck.sectionCount);
        tables_.sections = deck.sections.get();
        tables_.material_count = text::asSize(nastran::countMaterials(deck));
    }

    nastran::NastranFileInfo info_;
    kvocaeio_nastran_tables tables_{};
    std::optional<NastranMesh> mesh_;
};

}  // namespace

std::unique_ptr<Content> makeNastranContent() {
    return std::make_unique<NastranContent>();
}

}  // namespace kvocaeio::c_interface
