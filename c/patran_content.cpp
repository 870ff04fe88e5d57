/// A Patran file as a model: the arrays of `CPatranReader`, and where they are wanted the values of
/// `CKVO_PatranIO_Bridge`.
#include <algorithm>
#include <optional>

#include "c/content.h"
#include "c/report.h"
#include "patran/audit.h"
#include "patran/element_values.h"
#include "patran/import.h"

namespace kvocaeio::c_interface {

namespace {

using patran::FlatMesh;
using patran::IdMap;
using patran::kNodesPerElement;

struct Shape {
    int code;
    std::int32_t geometry;
    std::size_t nodes;
};

constexpr std::array<Shape, 7> kShapes{{
    {2, KVOCAEIO_GEOMETRY_LINE, 2},
    {3, KVOCAEIO_GEOMETRY_SHELL, 3},
    {4, KVOCAEIO_GEOMETRY_SHELL, 4},
    {5, KVOCAEIO_GEOMETRY_SOLID, 4},
    {7, KVOCAEIO_GEOMETRY_SOLID, 6},
    {8, KVOCAEIO_GEOMETRY_SOLID, 8},
    {0, KVOCAEIO_GEOMETRY_UNKNOWN, 0},
}};

// The elements of the arrays by their shapes.
class FlatSections final : public NodeRows {
  public:
    FlatSections(const FlatMesh& mesh, const IdMap& nodeIds, std::size_t elementCount)
        : mesh_(mesh), nodeIds_(nodeIds) {
        const std::vector<int>& ids = mesh.storedIds.nodes;
        tables.nodes.count = std::min(ids.size(), text::asSize(mesh.nodeCount));
        tables.nodes.oids = ids.data();
        tables.nodes.float_coordinates = mesh.vertices.get();
        tables.nodeRows = this;
        for (const Shape& shape : kShapes)
            take(shape, elementCount);
    }

    void find(std::span<const int> oids, int* rows) const override {
        std::ranges::transform(oids, rows, [this](int oid) {
            const int row = nodeIds_.at(oid);
            return nodeIds_.isDefined(oid) && text::asSize(row) < tables.nodes.count ? row : kNoRow;
        });
    }

    MeshTables tables;

  private:
    struct Elements {
        std::vector<int> oids;
        std::vector<int> properties;
        std::vector<int> nodes;
    };

    void take(const Shape& shape, std::size_t elementCount) {
        const int* const types = mesh_.elementTypes.get();
        const auto count =
            static_cast<std::size_t>(std::count(types, types + elementCount, shape.code));
        if (count == 0)
            return;
        Elements& elements = elements_.emplace_back();
        elements.oids.reserve(count);
        elements.properties.reserve(count);
        elements.nodes.reserve(count * shape.nodes);
        for (std::size_t row = 0; row < elementCount; ++row) {
            if (types[row] != shape.code)
                continue;
            elements.oids.push_back(mesh_.storedIds.elements[row]);
            elements.properties.push_back(mesh_.elementProperties[row]);
            const int* const nodes = &mesh_.elementNodes[row * kNodesPerElement];
            elements.nodes.insert(elements.nodes.end(), nodes, nodes + shape.nodes);
        }
        SectionTable& table = tables.sections[KVOCAEIO_SECTIONS].emplace_back(
            sectionOf(shape.geometry, shape.nodes, elements.oids, elements.nodes.data()));
        table.section.property_ids = elements.properties.data();
    }

    const FlatMesh& mesh_;
    const IdMap& nodeIds_;
    std::vector<Elements> elements_;
};

// The lists with the values of their elements, without the properties.
class ValueTables {
  public:
    explicit ValueTables(patran::ListMesh&& mesh) {
        const std::size_t count = mesh.elements.size();
        types_.reserve(count);
        values_.reserve(count);
        for (std::size_t row = 0; row < count; ++row) {
            const patran::ElementValues element = patran::valuesOf(mesh, row);
            types_.push_back(element.type);
            values_.push_back(element.values);
            if (!element.isCounted)
                mesh.elements[row] = {};
        }
        nodes_ = std::move(mesh.nodes);
        corners_ = std::move(mesh.elements);
        tables.node_count = nodes_.size();
        tables.nodes = nodes_.empty() ? nullptr : nodes_.front().data();
        tables.element_count = count;
        tables.corners = count == 0 ? nullptr : corners_.front().data();
        tables.types = types_.data();
        tables.values = count == 0 ? nullptr : values_.front().data();
    }

    kvocaeio_patran_values tables{};

  private:
    std::vector<std::array<float, 3>> nodes_;
    std::vector<std::array<int, 4>> corners_;
    std::vector<int> types_;
    std::vector<std::array<double, 3>> values_;
};

class PatranContent final : public Content {
  public:
    kvocaeio_status read(const Request& request) override {
        kvocaeio_status status = KVOCAEIO_OK;
        const text::File file = openRequested(request, status);
        if (file == nullptr)
            return status;
        expectPasses(request, request.options.property_values == 0 ? 2 : 4);
        mesh_.storedIds.areWanted = true;
        if (!patran::importFlat(file.get(), request.listener(), nodeIds_, mesh_))
            return failImport(request, KVOCAEIO_OUT_OF_MEMORY, "memory ran out");
        auditFor(request, [&](auto& report) { patran::auditFlat(nodeIds_, mesh_, report); });
        setTables();
        return request.options.property_values == 0 ? KVOCAEIO_OK : readValues(request, file.get());
    }

    MeshTables* mesh() override {
        if (!sections_)
            sections_.emplace(mesh_, nodeIds_, tables_.count);
        return &sections_->tables;
    }
    const kvocaeio_patran_tables* patranTables() override { return &tables_; }
    const kvocaeio_patran_values* patranValues() override {
        return values_ ? &values_->tables : nullptr;
    }

  private:
    kvocaeio_status readValues(const Request& request, std::FILE* file) {
        Request second = request;
        const auto report = std::make_unique<report::ImportReport>();
        if (request.report != nullptr) {
            second.report = report.get();
            report->findings.beginFile(request.report->findings.file(0));
        }
        patran::ListMesh lists;
        if (!text::rewindFile(file) || !patran::importLists(file, second.listener(), lists))
            return failImport(second, KVOCAEIO_OUT_OF_MEMORY, "memory ran out");
        auditFor(second, [&](auto& to) { patran::countLists(lists, to); });
        if (request.report != nullptr)
            addSecondReading(*report, *request.report);
        values_.emplace(std::move(lists));
        return KVOCAEIO_OK;
    }

    void setTables() {
        const patran::StoredIds& ids = mesh_.storedIds;
        tables_.count = std::min(ids.elements.size(), text::asSize(mesh_.elementCount));
        tables_.oids = ids.elements.data();
        tables_.shapes = mesh_.elementTypes.get();
        tables_.property_ids = mesh_.elementProperties.get();
        tables_.nodes = mesh_.elementNodes.get();
        tables_.summary_nodes = mesh_.nodeCount;
        tables_.summary_elements = mesh_.elementCount;
        tables_.summary_properties = mesh_.propertyCount;
    }

    IdMap nodeIds_;
    FlatMesh mesh_;
    kvocaeio_patran_tables tables_{};
    std::optional<FlatSections> sections_;
    std::optional<ValueTables> values_;
};

}  // namespace

std::unique_ptr<Content> makePatranContent() {
    return std::make_unique<PatranContent>();
}

}  // namespace kvocaeio::c_interface
