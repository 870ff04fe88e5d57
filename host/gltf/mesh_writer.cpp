/// The faces of a mesh that can be seen, as triangles.
#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <span>

#include "bounding_box.h"
#include "convert/convert.h"
#include "gltf/glb_file.h"
#include "gltf/writers.h"
#include "mesh/mesh.h"
#include "mesh/outer_faces.h"

namespace kvocaeio::host {

namespace {

/// Triangles of a face with so many nodes, as places in its list.
using Triangle = std::array<std::uint8_t, 3>;
constexpr std::array<Triangle, 1> kOfTriangle = {{{0, 1, 2}}};
constexpr std::array<Triangle, 2> kOfQuadrilateral = {{{0, 1, 2}, {0, 2, 3}}};
constexpr std::array<Triangle, 4> kOfCurvedTriangle = {
    {{0, 3, 5}, {3, 1, 4}, {5, 4, 2}, {3, 4, 5}}};
constexpr std::array<Triangle, 6> kOfCurvedQuadrilateral = {
    {{0, 4, 7}, {4, 1, 5}, {5, 2, 6}, {6, 3, 7}, {4, 5, 6}, {4, 6, 7}}};

std::span<const Triangle> trianglesOf(CellKind kind) {
    switch (kind) {
        case CellKind::kTriangle3:
            return kOfTriangle;
        case CellKind::kTriangle6:
            return kOfCurvedTriangle;
        case CellKind::kQuadrilateral8:
            return kOfCurvedQuadrilateral;
        default:
            return kOfQuadrilateral;
    }
}

// Colours that are told apart without colour vision (M. Okabe, K. Ito), red in the lowest byte.
// Those of faces of loads and surfaces are theirs alone.
constexpr std::array<unsigned, 6> kSectionColors = {0xb27200, 0x009fe6, 0x739e00,
                                                    0xa779cc, 0xe9b456, 0x999999};
constexpr unsigned kLoadColor = 0x005ed5;
constexpr unsigned kSurfaceColor = 0x42e4f0;

/// The corners of a face, ascending.
using FaceKey = std::vector<int>;

FaceKey faceKeyOf(const FaceGroup& group, std::size_t face) {
    const CellShape& shape = cellShape(group.kind);
    const auto first = group.nodes.begin() + static_cast<std::ptrdiff_t>(face * shape.nodes);
    FaceKey key(first, first + static_cast<std::ptrdiff_t>(shape.corners));
    std::sort(key.begin(), key.end());
    return key;
}

/// What is one thing to the user, from one section of the source or several.
struct Part {
    const MeshSection* first = nullptr;
    std::size_t elements = 0;
    std::vector<std::uint32_t> triangles;  // rows of the mesh's nodes
    std::vector<std::uint32_t> lines;
};

class MeshScene {
  public:
    MeshScene(Mesh& mesh, double metres) : mesh_(mesh), metres_(metres) {
        std::map<SectionKey, std::size_t> known;
        for (const MeshSection& section : mesh.sections) {
            const auto [part, isNew] = known.emplace(sectionKeyOf(section), parts_.size());
            if (isNew)
                parts_.emplace_back().first = &section;
            parts_[part->second].elements += section.elements();
            partOf_.push_back(part->second);
        }
        takeFaces();
        takeLines();
        BoundingBox box;
        for (const MeshSection& section : mesh.sections)
            for (const int row : section.nodes)
                box.add(mesh.place(row));
        for (std::size_t axis = 0; axis < 3; ++axis)
            center_[axis] = (box.low[axis] + box.high[axis]) / 2;
    }

    void write(const std::string& path, const std::string& name) {
        std::vector<std::size_t> children;
        std::size_t colored = 0;
        for (const Part& part : parts_) {
            const bool isElements = !part.first->isOfFaces();
            const unsigned color = isElements ? kSectionColors[colored++ % kSectionColors.size()]
                                   : part.first->origin == Origin::kLoadFace ? kLoadColor
                                                                             : kSurfaceColor;
            addPart(part, color, children);
        }
        // Points are relative to the middle: they have seven digits.
        const std::array<double, 3> middle = {center_[0] * metres_, center_[2] * metres_,
                                              -center_[1] * metres_};
        file_.write(
            path, file_.addNode({{"name", name}, {"children", children}, {"translation", middle}}));
        takeNotes();
    }

  private:
    void takeFaces() {
        const std::vector<FaceGroup> groups = outerFaces(mesh_);
        std::set<FaceKey> marked;  // faces of loads and surfaces hide those of solids there
        for (const FaceGroup& group : groups)
            if (mesh_.sections[group.section].isOfFaces())
                for (std::size_t face = 0; face < group.faces(); ++face)
                    marked.insert(faceKeyOf(group, face));
        std::map<std::size_t, std::set<std::uint32_t>> seen;
        for (const FaceGroup& group : groups) {
            const MeshSection& section = mesh_.sections[group.section];
            Part& part = parts_[partOf_[group.section]];
            const std::size_t nodes = cellShape(group.kind).nodes;
            for (std::size_t face = 0; face < group.faces(); ++face) {
                seen[group.section].insert(group.elements[face]);
                if (!section.isOfFaces() && !marked.empty() &&
                    marked.contains(faceKeyOf(group, face)))
                    continue;
                for (const Triangle& triangle : trianglesOf(group.kind))
                    for (const std::uint8_t place : triangle)
                        part.triangles.push_back(
                            static_cast<std::uint32_t>(group.nodes[face * nodes + place]));
            }
        }
        for (std::size_t s = 0; s < mesh_.sections.size(); ++s)
            if (mesh_.sections[s].origin == Origin::kSolid)
                inside_ += mesh_.sections[s].elements() - seen[s].size();
    }

    void takeLines() {
        for (std::size_t s = 0; s < mesh_.sections.size(); ++s)
            if (mesh_.sections[s].origin == Origin::kLine)
                for (const int row : mesh_.sections[s].nodes)
                    parts_[partOf_[s]].lines.push_back(static_cast<std::uint32_t>(row));
    }

    void addPart(const Part& part, unsigned color, std::vector<std::size_t>& children) {
        Json node = {
            {"name",
             part.first->name.empty() ? std::string(nameOf(part.first->origin)) : part.first->name},
            {"extras", {{"origin", nameOf(part.first->origin)}, {"elements", part.elements}}}};
        if (part.first->property != 0)
            node["extras"]["property"] = part.first->property;
        const std::vector<std::uint32_t>& rows = part.lines.empty() ? part.triangles : part.lines;
        if (!rows.empty()) {
            const std::size_t material =
                file_.addMaterial(color, 1.0, part.first->origin != Origin::kSolid);
            const auto [points, indices] = addRows(rows);
            node["mesh"] = file_.addMesh(
                Json::array({part.lines.empty() ? trianglePrimitive(points, indices, material)
                                                : linePrimitive(points, indices, material)}));
        }
        children.push_back(file_.addNode(std::move(node)));
    }

    /// Adds those of the mesh's nodes that `rows` name, and the rows in them.
    std::pair<std::size_t, std::size_t> addRows(std::vector<std::uint32_t> rows) {
        std::vector<std::uint32_t> used = rows;
        std::sort(used.begin(), used.end());
        used.erase(std::unique(used.begin(), used.end()), used.end());
        std::vector<GltfPoint> points;
        for (const std::uint32_t node : used) {
            const double* const place = mesh_.place(static_cast<int>(node));
            points.push_back(turned(
                std::array{place[0] - center_[0], place[1] - center_[1], place[2] - center_[2]},
                metres_));
        }
        for (std::uint32_t& row : rows)
            row = static_cast<std::uint32_t>(std::ranges::lower_bound(used, row) - used.begin());
        return {file_.addPoints(points), file_.addIndices(rows)};
    }

    void takeNotes() {
        leaveOut(mesh_.losses, "inner-elements", inside_, "elements",
                 " of which no face can be seen");
        std::size_t oids = mesh_.nodeOids.size();
        for (const MeshSection& section : mesh_.sections)
            oids += section.oids.size();
        leaveOut(mesh_.losses, "oids", oids, "OIDs", " of nodes and elements");
    }

    Mesh& mesh_;
    double metres_;
    std::vector<Part> parts_;
    std::vector<std::size_t> partOf_;  // per section
    std::size_t inside_ = 0;
    std::array<double, 3> center_{};
    GlbFile file_;
};

}  // namespace

void writeGltfMesh(Mesh& mesh, const std::string& path, const ConvertOptions& options) {
    remarkUnit(mesh.lengthUnit, mesh.remarks);
    MeshScene(mesh, metresIn(options.lengthUnit())).write(path, nameIn(options.source));
}

}  // namespace kvocaeio::host
