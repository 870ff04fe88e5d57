/// The faces of every element family, shared by the tests of loads and surfaces.
#pragma once

#include <string>
#include <vector>

#include "abaqus/normalise_deck.h"

namespace kvocaeio::test {

/// Face `face` of an element on the nodes 1 to `width`: its new node IDs, none where it has no
/// face.
struct FaceCase {
    const char* type;
    int width;
    int face;
    std::vector<int> nodes;
};

inline const std::vector<FaceCase> kFaceCases = {
    // Tetrahedra, corners only also where mid-side nodes are given.
    {"C3D4", 4, 1, {0, 2, 1, 1}},
    {"C3D4", 4, 2, {0, 1, 3, 3}},
    {"C3D4", 4, 3, {1, 2, 3, 3}},
    {"C3D4", 4, 4, {0, 3, 2, 2}},
    {"C3D4", 4, 5, {}},
    {"C3D4", 4, 6, {}},
    {"C3D10", 10, 1, {0, 2, 1, 1}},
    {"C3D10", 10, 2, {0, 1, 3, 3}},
    {"C3D10", 10, 3, {1, 2, 3, 3}},
    {"C3D10", 10, 4, {0, 3, 2, 2}},
    {"C3D10", 10, 5, {}},
    {"C3D10", 10, 6, {}},
    // Wedges.
    {"C3D6", 6, 1, {0, 2, 1, 1}},
    {"C3D6", 6, 2, {3, 4, 5, 5}},
    {"C3D6", 6, 3, {0, 1, 4, 3}},
    {"C3D6", 6, 4, {1, 2, 5, 4}},
    {"C3D6", 6, 5, {2, 0, 3, 5}},
    {"C3D6", 6, 6, {}},
    {"C3D15", 15, 1, {0, 2, 1, 1}},
    {"C3D15", 15, 2, {3, 4, 5, 5}},
    {"C3D15", 15, 3, {0, 1, 4, 3}},
    {"C3D15", 15, 4, {1, 2, 5, 4}},
    {"C3D15", 15, 5, {2, 0, 3, 5}},
    {"C3D15", 15, 6, {}},
    // Hexahedra.
    {"C3D8", 8, 1, {0, 3, 2, 1}},
    {"C3D8", 8, 2, {4, 5, 6, 7}},
    {"C3D8", 8, 3, {0, 1, 5, 4}},
    {"C3D8", 8, 4, {1, 2, 6, 5}},
    {"C3D8", 8, 5, {2, 3, 7, 6}},
    {"C3D8", 8, 6, {0, 4, 7, 3}},
    {"C3D20", 20, 1, {0, 3, 2, 1}},
    {"C3D20", 20, 2, {4, 5, 6, 7}},
    {"C3D20", 20, 3, {0, 1, 5, 4}},
    {"C3D20", 20, 4, {1, 2, 6, 5}},
    {"C3D20", 20, 5, {2, 3, 7, 6}},
    {"C3D20", 20, 6, {0, 4, 7, 3}},
    // Shells of four nodes have the faces of a tetrahedron: only the width decides.
    {"S4", 4, 1, {0, 2, 1, 1}},
    {"S4", 4, 2, {0, 1, 3, 3}},
    {"S4", 4, 3, {1, 2, 3, 3}},
    {"S4", 4, 4, {0, 3, 2, 2}},
    {"S4", 4, 5, {}},
    // Pyramids, triangles and what is of unknown type have none.
    {"C3D5", 5, 1, {}},
    {"C3D5", 5, 2, {}},
    {"C3D5", 5, 5, {}},
    {"S3", 3, 1, {}},
    {"S3", 3, 3, {}},
    {"R3D4", 4, 1, {}},
    {"B31", 2, 1, {}},
    {"C3D27", 27, 1, {}},
};

inline std::string oneElement(const FaceCase& c) {
    return nodeBlock(c.width) + "*ELEMENT, TYPE=" + c.type + ", ELSET=A\n" +
           elementLine(1, 1, c.width);
}

}  // namespace kvocaeio::test
