/// The faces of every kind of element: outwards, closed, with the nodes of their edges.
#include "mesh/cell_kind.h"

#include <gtest/gtest.h>

#include "cells.h"

namespace kvocaeio::test {
namespace {

using host::CellKind;
using host::CellShape;

double dot(const Place& a, const Place& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Place cross(const Place& a, const Place& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Place middle(const Place& a, const Place& b) {
    return {(a[0] + b[0]) / 2, (a[1] + b[1]) / 2, (a[2] + b[2]) / 2};
}

/// The volume that the faces enclose; negative where they look inwards.
double enclosed(const CellShape& shape, const std::vector<Place>& nodes) {
    double volume = 0.0;
    for (const host::CellFace& face : shape.faces) {
        const std::size_t corners = host::cellShape(face.kind).corners;
        for (std::size_t i = 2; i < corners; ++i)
            volume += dot(nodes[face.places[0]],
                          cross(nodes[face.places[i - 1]], nodes[face.places[i]])) /
                      6.0;
    }
    return volume;
}

TEST(CellKinds, FacesEncloseTheVolumeFromOutside) {
    for (const SolidCell& cell : kSolidCells)
        for (const CellKind kind : {cell.linear, cell.quadratic}) {
            const CellShape& shape = host::cellShape(kind);
            EXPECT_EQ(shape.kind, kind);
            EXPECT_EQ(shape.dimension, 3);
            EXPECT_EQ(shape.corners, cell.corners.size()) << shape.code;
            EXPECT_DOUBLE_EQ(enclosed(shape, cell.corners), cell.volume) << shape.code;
        }
}

TEST(CellKinds, NodesOfAFaceLieOnItsEdges) {
    for (const SolidCell& cell : kSolidCells) {
        std::vector<Place> nodes = cell.corners;
        for (const auto& [from, to] : cell.edges)
            nodes.push_back(middle(nodes[from], nodes[to]));
        const CellShape& shape = host::cellShape(cell.quadratic);
        EXPECT_EQ(shape.nodes, nodes.size());
        for (const host::CellFace& face : shape.faces) {
            const CellShape& side = host::cellShape(face.kind);
            for (std::size_t i = side.corners; i < side.nodes; ++i) {
                const std::size_t edge = i - side.corners;
                EXPECT_EQ(
                    nodes[face.places[i]],
                    middle(nodes[face.places[edge]], nodes[face.places[(edge + 1) % side.corners]]))
                    << shape.code;
            }
        }
    }
}

TEST(CellKinds, AreFoundByTheirNodes) {
    EXPECT_EQ(host::findCellShape(2, 4)->kind, CellKind::kQuadrilateral4);
    EXPECT_EQ(host::findCellShape(3, 4)->kind, CellKind::kTetrahedron4);
    EXPECT_EQ(host::findCellShape(3, 15)->kind, CellKind::kWedge15);
    EXPECT_EQ(host::findCellShape(1, 2)->kind, CellKind::kLine2);
    EXPECT_EQ(host::findCellShape(3, 7), nullptr);
}

}  // namespace
}  // namespace kvocaeio::test
