/// The surface of a mesh by elements.
#include "view/shown_mesh.h"

#include <algorithm>

#include "mesh/outer_faces.h"

namespace kvocaeio::host {

namespace {

/// Which faces of the elements of one section are seen.
struct Masks {
    std::vector<std::uint8_t> outer;
    std::vector<std::uint8_t> between;
};

/// The bit of the face of `element` that has `nodes` and is not taken yet.
std::uint8_t bitOf(const CellShape& shape, const int* element, const int* nodes, CellKind kind,
                   std::uint8_t taken) {
    for (std::size_t face = 0; face < shape.faces.size(); ++face) {
        const auto bit = static_cast<std::uint8_t>(1u << face);
        const auto& places = shape.faces[face].places;
        const auto* const end = places.begin() + cellShape(kind).corners;
        if ((taken & bit) == 0 && shape.faces[face].kind == kind &&
            std::equal(places.begin(), end, nodes,
                       [&](std::uint8_t place, int node) { return element[place] == node; }))
            return bit;
    }
    return shape.faces.empty() ? 1 : 0;
}

void enter(const FaceGroup& faces, const MeshSection& section, Masks& masks) {
    const CellShape& shape = cellShape(section.kind);
    const std::size_t width = cellShape(faces.kind).nodes;
    std::vector<std::uint8_t>& mask = faces.isBetweenSections ? masks.between : masks.outer;
    for (std::size_t face = 0; face < faces.faces(); ++face) {
        const std::size_t row = faces.elements[face];
        const auto taken = static_cast<std::uint8_t>(masks.outer[row] | masks.between[row]);
        mask[row] |= bitOf(shape, section.element(row), faces.nodes.data() + face * width,
                           faces.kind, taken);
    }
}

/// The elements of a section that have a bit in one of the masks; of lines all.
ShownGroup shownOf(std::size_t index, const MeshSection& section, const Masks& masks) {
    ShownGroup group{index, {}, {}, {}};
    const bool isLine = cellShape(section.kind).dimension == 1;
    for (std::size_t row = 0; row < section.elements(); ++row)
        if (isLine || (masks.outer[row] | masks.between[row]) != 0) {
            group.rows.push_back(static_cast<std::uint32_t>(row));
            group.outer.push_back(masks.outer[row]);
            group.between.push_back(masks.between[row]);
        }
    return group;
}

}  // namespace

std::vector<ShownGroup> groupsAtSurface(const Mesh& mesh) {
    const std::vector<FaceGroup> faces = outerFaces(mesh);
    std::vector<ShownGroup> groups;
    auto face = faces.begin();
    for (std::size_t index = 0; index < mesh.sections.size(); ++index) {
        const MeshSection& section = mesh.sections[index];
        Masks masks{std::vector<std::uint8_t>(section.elements()),
                    std::vector<std::uint8_t>(section.elements())};
        for (; face != faces.end() && face->section == index; ++face)
            enter(*face, section, masks);
        ShownGroup group = shownOf(index, section, masks);
        if (!group.rows.empty())
            groups.push_back(std::move(group));
    }
    return groups;
}

std::vector<int> nodesOf(const Mesh& mesh, const std::vector<ShownGroup>& groups,
                         const std::vector<ShownMarks>& marks) {
    std::vector<bool> isShown(mesh.nodes());
    const auto enterGroups = [&](const std::vector<ShownGroup>& list) {
        for (const ShownGroup& group : list)
            for (const int node : connectivityOf(mesh, group))
                isShown[static_cast<std::size_t>(node)] = true;
    };
    enterGroups(groups);
    for (const ShownMarks& mark : marks) {
        enterGroups(mark.groups);
        for (const int node : mark.points)
            isShown[static_cast<std::size_t>(node)] = true;
    }
    std::vector<int> nodes;
    for (std::size_t node = 0; node < isShown.size(); ++node)
        if (isShown[node])
            nodes.push_back(static_cast<int>(node));
    return nodes;
}

std::vector<int> connectivityOf(const Mesh& mesh, const ShownGroup& group) {
    const MeshSection& section = mesh.sections[group.section];
    const std::size_t width = cellShape(section.kind).nodes;
    std::vector<int> nodes;
    nodes.reserve(group.rows.size() * width);
    for (const std::uint32_t row : group.rows)
        nodes.insert(nodes.end(), section.element(row), section.element(row) + width);
    return nodes;
}

}  // namespace kvocaeio::host
