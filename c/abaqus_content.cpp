/// An Abaqus deck as a model.
#include <algorithm>
#include <stdexcept>

#include "abaqus/audit.h"
#include "abaqus/import.h"
#include "abaqus/model.h"
#include "abaqus/normalise.h"
#include "c/content.h"

namespace kvocaeio::c_interface {

namespace {

using abaqus::AbaqusModel;
using abaqus::ElemSection;

SectionTable tableOf(const ElemSection& section, bool isNormalised) {
    SectionTable table;
    kvocaeio_section& to = table.section;
    to.name = section.elset.c_str();
    to.type = isNormalised ? "" : section.type.c_str();
    to.geometry = static_cast<std::int32_t>(section.geometryType);
    to.nodes_per_element = text::asSize(section.nodesPerElem);
    to.kind = kindOf(to.geometry, to.nodes_per_element);
    to.count = section.ids.size();
    to.oids = isNormalised ? nullptr : section.ids.data();
    (isNormalised ? table.rows : table.oids) = section.nodes.data();
    return table;
}

std::vector<SectionTable> tablesOf(const std::vector<ElemSection>& sections, bool isNormalised) {
    std::vector<SectionTable> tables;
    tables.reserve(sections.size());
    for (const ElemSection& section : sections)
        tables.push_back(tableOf(section, isNormalised));
    return tables;
}

class AbaqusContent final : public Content, public NodeRows {
  public:
    kvocaeio_status read(const Request& request) override {
        kvocaeio_status status = KVOCAEIO_OK;
        text::File deck = openRequested(request, status);
        if (deck == nullptr)
            return status;
        expectPasses(request, 2);
        if (!abaqus::importQuietly(model_, std::move(deck), request.listener()))
            return failImport(request, KVOCAEIO_OUT_OF_MEMORY, "memory ran out");
        auditFor(request, [&](auto& report) { abaqus::auditImport(model_, report); });
        makeTables();
        return KVOCAEIO_OK;
    }

    MeshTables* mesh() override { return &mesh_; }
    const kvocaeio_shell_sections* shellSections() override { return &shells_; }
    bool isNormalised() const override { return isNormalised_; }

    // The walks of the classes hand out what a failure leaves; a model has all of it or nothing.
    kvocaeio_status normalise(report::ImportReport* report) override {
        if (isNormalised_)
            return KVOCAEIO_OK;
        const auto forget = [this](kvocaeio_status status) {
            model_.solidSections.clear();
            model_.shellElemSections.clear();
            return status;
        };
        try {
            model_.elsetIndexMap.clear();
            model_.elsetElems.clear();
            model_.dloadFaces.clear();
            model_.surfaceFaces.clear();
            abaqus::SortData(model_,
                             {report == nullptr ? nullptr : &report->findings, nullptr, true});
            auto solids = tablesOf(model_.solidSections, true);
            auto shells = tablesOf(model_.shellElemSections, true);
            mesh_.sections[KVOCAEIO_NORMALISED_SOLIDS] = std::move(solids);
            mesh_.sections[KVOCAEIO_NORMALISED_SHELLS] = std::move(shells);
        } catch (const std::length_error&) {
            return forget(fail(KVOCAEIO_NOT_NORMALISED,
                               "the sets or surfaces of the deck ask for more elements than can be "
                               "counted"));
        } catch (const std::bad_alloc&) {
            return forget(failOfMemory());
        }
        isNormalised_ = true;
        if (report != nullptr)
            report::runAudit(*report, [&](auto& to) { abaqus::auditNormalised(model_, to); });
        return KVOCAEIO_OK;
    }

    void find(std::span<const int> oids, int* rows) const override {
        const std::vector<int>& ids = model_.nodeBlock.ids;
        model_.nodeOidMap.lookUpMany([&](const auto& lookUp) {
            std::ranges::transform(oids, rows, [&](int oid) {
                const int row = lookUp(oid);  // 0, too, for an OID that no node has
                return row != 0 || (oid >= 0 && !ids.empty() && ids.front() == oid) ? row : kNoRow;
            });
        });
    }

  private:
    void makeTables() {
        const abaqus::NodeBlock& block = model_.nodeBlock;
        mesh_.nodes.count = block.ids.size();
        mesh_.nodes.oids = block.ids.data();
        mesh_.nodes.coordinates = block.coords.data();
        mesh_.sections[KVOCAEIO_SECTIONS] = tablesOf(model_.elemSections, false);
        mesh_.nodeRows = this;
        for (const abaqus::ShellSection& section : model_.shellSections) {
            shellNames_.push_back(section.elset.c_str());
            shellMaterials_.push_back(section.material.c_str());
            shellThicknesses_.push_back(section.thickness);
        }
        shells_.count = shellNames_.size();
        shells_.names = shellNames_.data();
        shells_.materials = shellMaterials_.data();
        shells_.thicknesses = shellThicknesses_.data();
    }

    AbaqusModel model_;
    MeshTables mesh_;
    bool isNormalised_ = false;
    std::vector<const char*> shellNames_;
    std::vector<const char*> shellMaterials_;
    std::vector<double> shellThicknesses_;
    kvocaeio_shell_sections shells_{};
};

}  // namespace

std::unique_ptr<Content> makeAbaqusContent() {
    return std::make_unique<AbaqusContent>();
}

}  // namespace kvocaeio::c_interface
