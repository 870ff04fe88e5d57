/// A mesh as points, cells and arrays of both.
#include "vtk/mesh_file.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <span>
#include <vector>

#include "vtk/import_fields.h"
#include "vtk/vtk_file.h"

namespace kvocaeio::host {

namespace {

/// How VTK calls a kind of element and orders its nodes; without an order it is that of decks.
struct VtkCell {
    CellKind kind;
    std::uint8_t type;
    std::array<std::uint8_t, 15> order;
};

// In the order of the kinds. The first three corners of VTK's wedges are clockwise as seen from
// inside.
constexpr std::array<VtkCell, 12> kVtkCells = {{
    {CellKind::kLine2, 3, {}},
    {CellKind::kTriangle3, 5, {}},
    {CellKind::kQuadrilateral4, 9, {}},
    {CellKind::kTriangle6, 22, {}},
    {CellKind::kQuadrilateral8, 23, {}},
    {CellKind::kTetrahedron4, 10, {}},
    {CellKind::kPyramid5, 14, {}},
    {CellKind::kWedge6, 13, {0, 2, 1, 3, 5, 4}},
    {CellKind::kHexahedron8, 12, {}},
    {CellKind::kTetrahedron10, 24, {}},
    {CellKind::kWedge15, 26, {0, 2, 1, 3, 5, 4, 8, 7, 6, 11, 10, 9, 12, 14, 13}},
    {CellKind::kHexahedron20, 25, {}},
}};

const VtkCell& vtkCell(CellKind kind) {
    return kVtkCells[static_cast<std::size_t>(kind)];
}

/// As the library numbers them.
std::uint8_t geometryTypeOf(const MeshSection& section) {
    constexpr std::array<std::uint8_t, 4> kTypes = {0, 0, 1, 2};  // by dimension
    return kTypes[static_cast<std::size_t>(cellShape(section.kind).dimension)];
}

class MeshFile {
  public:
    MeshFile(const Mesh& mesh, const std::string& path, bool compress)
        : mesh_(mesh), cells_(mesh.elements()), file_(path, "UnstructuredGrid", compress) {
        std::map<std::string, std::int32_t> sets;
        for (const MeshSection& section : mesh.sections) {
            const auto [set, isNew] =
                sets.emplace(section.name, static_cast<std::int32_t>(sets.size()));
            if (isNew)
                setNames_.push_back(section.name);
            sets_.push_back(set->second);
        }
    }

    void write(const std::string& source) {
        file_.open("Piece", " NumberOfPoints=\"" + std::to_string(mesh_.nodes()) +
                                "\" NumberOfCells=\"" + std::to_string(cells_) + "\"");
        writeCells();
        writePoints();
        writeCellData();
        writePointData();
        file_.close();
        file_.open("FieldData");
        writeImportFields(file_, mesh_.imported, source, mesh_.lengthUnit);
        writeThicknesses();
        file_.byteRows("SetNames", setNames_);
        file_.close();
        file_.finish();
    }

  private:
    void writeThicknesses() {
        std::vector<double> thicknesses(setNames_.size(), 0.0);
        for (std::size_t s = 0; s < sets_.size(); ++s) {
            double& thickness = thicknesses[static_cast<std::size_t>(sets_[s])];
            thickness = std::max(thickness, mesh_.sections[s].thickness);
        }
        if (std::ranges::any_of(thicknesses, [](double thickness) { return thickness != 0.0; }))
            file_.array("SetThicknesses", std::span<const double>(thicknesses));
    }

    void writePointData() {
        file_.open("PointData");
        if (!mesh_.nodeOids.empty())
            file_.array("OID", std::span<const int>(mesh_.nodeOids));
        file_.close();
    }

    void writePoints() {
        file_.open("Points");
        file_.array("Points", std::span<const double>(mesh_.places), 3);
        file_.close();
    }

    /// An array with one number for all elements of a section.
    template <class Number, class NumberOf>
    void writeSectionData(std::string_view name, const NumberOf& numberOf) {
        file_.beginArray<Number>(name, cells_);
        for (std::size_t s = 0; s < mesh_.sections.size(); ++s)
            file_.append(static_cast<Number>(numberOf(s)), mesh_.sections[s].elements());
    }

    void writeCellData() {
        const auto& sections = mesh_.sections;
        file_.open("CellData");
        using std::int32_t;
        writeSectionData<std::uint8_t>("Origin", [&](std::size_t s) { return sections[s].origin; });
        writeSectionData<std::uint8_t>("GeometryType",
                                       [&](std::size_t s) { return geometryTypeOf(sections[s]); });
        if (std::ranges::any_of(sections, [](const auto& each) { return each.property != 0; }))
            writeSectionData<int32_t>("Property",
                                      [&](std::size_t s) { return sections[s].property; });
        writeSectionData<int32_t>("Set", [&](std::size_t s) { return sets_[s]; });
        writeSectionData<int32_t>("Section", [&](std::size_t s) { return sections[s].source; });
        if (std::ranges::any_of(sections, [](const auto& each) { return !each.oids.empty(); })) {
            file_.beginArray<int>("OID", cells_);
            for (const MeshSection& section : sections) {
                file_.append(std::span<const int>(section.oids));
                file_.append(0, section.elements() - section.oids.size());
            }
        }
        file_.close();
    }

    void writeCells() {
        std::size_t connectivity = 0;
        for (const MeshSection& section : mesh_.sections)
            connectivity += section.nodes.size();
        file_.open("Cells");
        writeSectionData<std::uint8_t>(
            "types", [&](std::size_t s) { return vtkCell(mesh_.sections[s].kind).type; });
        if (connectivity <= std::size_t{std::numeric_limits<std::int32_t>::max()})
            writeOffsets<std::int32_t>();
        else
            writeOffsets<std::int64_t>();
        file_.beginArray<int>("connectivity", connectivity);
        for (const MeshSection& section : mesh_.sections)
            writeConnectivity(section);
        file_.close();
    }

    void writeConnectivity(const MeshSection& section) {
        const VtkCell& cell = vtkCell(section.kind);
        if (cell.order[1] == 0) {
            file_.append(std::span<const int>(section.nodes));
            return;
        }
        const std::size_t size = cellShape(section.kind).nodes;
        std::array<int, 15> nodes{};
        for (std::size_t e = 0; e < section.elements(); ++e) {
            const int* const source = section.element(e);
            for (std::size_t i = 0; i < size; ++i)
                nodes[i] = source[cell.order[i]];
            file_.append(std::span<const int>(nodes).first(size));
        }
    }

    template <class Offset>
    void writeOffsets() {
        file_.beginArray<Offset>("offsets", cells_);
        std::vector<Offset> block;
        Offset offset = 0;
        for (const MeshSection& section : mesh_.sections) {
            const auto size = static_cast<Offset>(cellShape(section.kind).nodes);
            for (std::size_t left = section.elements(); left != 0; left -= block.size()) {
                block.resize(std::min(left, std::size_t{16} * 1024));
                for (Offset& end : block)
                    end = offset += size;
                file_.append(std::span<const Offset>(block));
            }
        }
    }

    const Mesh& mesh_;
    std::size_t cells_;
    std::vector<std::string> setNames_;
    std::vector<std::int32_t> sets_;  // per section
    VtkFile file_;
};

}  // namespace

void writeVtkMesh(Mesh& mesh, const std::string& path, const ConvertOptions& options) {
    MeshFile(mesh, path, options.compress).write(options.source);
}

}  // namespace kvocaeio::host
