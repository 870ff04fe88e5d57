/// The elements and nodes that findings are about: found in the mesh where it shows them, else by
/// the numbers in the finding's places.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <span>

#include "view/shown_mesh.h"

namespace kvocaeio::host {

namespace {

/// More would hide each other, and make a large page.
constexpr std::size_t kMostMarks = 5000;

using Point = std::array<double, 3>;

Point cornerOf(const Mesh& mesh, const int* element, std::size_t corner) {
    const double* const place = mesh.place(element[corner]);
    return {place[0], place[1], place[2]};
}

double determinant(const Point& a, const Point& b, const Point& c) {
    return a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
           a[2] * (b[0] * c[1] - b[1] * c[0]);
}

/// Whether the corners of a solid enclose a volume, on the right side of its faces: cones from the
/// first corner to the triangles of all faces make it up. Rounding of coordinates does not count.
bool hasVolume(const Mesh& mesh, const CellShape& shape, const int* element) {
    constexpr double kLeast = 1e-9;  // of a solid with edges of length 1
    const Point origin = cornerOf(mesh, element, 0);
    double size = 0.0;
    const auto from = [&](std::size_t corner) {
        Point point = cornerOf(mesh, element, corner);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            point[axis] -= origin[axis];
            size = std::max(size, std::abs(point[axis]));
        }
        return point;
    };
    double sixVolumes = 0.0;
    for (const CellFace& face : shape.faces)
        for (std::size_t i = 2; i < cellShape(face.kind).corners; ++i)
            sixVolumes +=
                determinant(from(face.places[0]), from(face.places[i - 1]), from(face.places[i]));
    return sixVolumes > kLeast * size * size * size;
}

bool namesNodeTwice(const CellShape& shape, const int* element) {
    std::vector<int> nodes(element, element + shape.nodes);
    std::ranges::sort(nodes);
    return std::ranges::adjacent_find(nodes) != nodes.end();
}

/// The number after `word`, as in "node 3 of element 17".
std::optional<int> numberAfter(std::string_view word, std::string_view text) {
    const std::size_t at = text.find(word);
    int number = 0;
    if (at == text.npos)
        return std::nullopt;
    const char* const first = text.data() + at + word.size();
    if (std::from_chars(first, text.data() + text.size(), number).ec != std::errc())
        return std::nullopt;
    return number;
}

/// Numbers that the places of a finding name, ascending.
std::vector<int> numbersIn(const ImportFinding& finding, std::string_view word) {
    std::vector<int> numbers;
    for (const ImportFinding::Place& place : finding.places)
        if (const std::optional<int> number = numberAfter(word, place.text))
            numbers.push_back(*number);
    std::ranges::sort(numbers);
    return numbers;
}

/// Marks the elements that `isMeant(shape, nodes, oid)`.
template <class IsMeant>
void markElements(const Mesh& mesh, const IsMeant& isMeant, ShownMarks& marks) {
    std::size_t number = 0;
    for (std::size_t index = 0; index < mesh.sections.size(); ++index) {
        const MeshSection& section = mesh.sections[index];
        const CellShape& shape = cellShape(section.kind);
        const auto all =
            static_cast<std::uint8_t>((1u << std::max<std::size_t>(1, shape.faces.size())) - 1);
        ShownGroup group{index, {}, {}, {}};
        for (std::size_t row = 0; row < section.elements() && number < kMostMarks; ++row)
            if (isMeant(shape, section.element(row),
                        section.oids.empty() ? 0 : section.oids[row])) {
                group.rows.push_back(static_cast<std::uint32_t>(row));
                ++number;
            }
        group.outer.assign(group.rows.size(), all);
        group.between.assign(group.rows.size(), 0);
        if (!group.rows.empty())
            marks.groups.push_back(std::move(group));
    }
}

std::vector<int> unusedNodes(const Mesh& mesh) {
    std::vector<bool> isUsed(mesh.nodes());
    for (const MeshSection& section : mesh.sections)
        for (const int node : section.nodes)
            isUsed[static_cast<std::size_t>(node)] = true;
    std::vector<int> nodes;
    for (std::size_t node = 0; node < isUsed.size() && nodes.size() < kMostMarks; ++node)
        if (!isUsed[node])
            nodes.push_back(static_cast<int>(node));
    return nodes;
}

/// Nodes with these OIDs.
std::vector<int> nodesWith(const std::vector<int>& oids, const Mesh& mesh) {
    std::vector<int> nodes;
    if (oids.empty())
        return nodes;
    for (std::size_t node = 0; node < mesh.nodeOids.size() && nodes.size() < kMostMarks; ++node)
        if (std::ranges::binary_search(oids, mesh.nodeOids[node]))
            nodes.push_back(static_cast<int>(node));
    return nodes;
}

ShownMarks marksOf(const ImportFinding& finding, const Mesh& mesh) {
    ShownMarks marks;
    if (finding.code == "mesh.volume-not-positive") {
        markElements(
            mesh,
            [&](const CellShape& shape, const int* element, int) {
                return shape.dimension == 3 && !namesNodeTwice(shape, element) &&
                       !hasVolume(mesh, shape, element);
            },
            marks);
    } else if (finding.code == "mesh.node-repeated") {
        markElements(
            mesh,
            [](const CellShape& shape, const int* element, int) {
                return namesNodeTwice(shape, element);
            },
            marks);
    } else if (finding.code == "mesh.node-unused") {
        marks.points = unusedNodes(mesh);
    } else if (finding.code == "abaqus.node-without-number") {
        marks.points = mesh.phantoms;
    } else {
        const std::vector<int> elements = numbersIn(finding, "element ");
        if (!elements.empty())
            markElements(
                mesh,
                [&](const CellShape&, const int*, int oid) {
                    return std::ranges::binary_search(elements, oid);
                },
                marks);
        marks.points = nodesWith(numbersIn(finding, "node "), mesh);
    }
    return marks;
}

}  // namespace

std::vector<ShownMarks> marksOf(const Mesh& mesh) {
    std::vector<ShownMarks> marks;
    for (const ImportFinding& finding : mesh.imported.findings)
        marks.push_back(marksOf(finding, mesh));
    return marks;
}

}  // namespace kvocaeio::host
