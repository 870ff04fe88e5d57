/// Generated inputs of all formats; the same size gives the same bytes.
#pragma once

#include <string_view>

#include "text/format.h"

namespace kvocaeio::bench {

/// Solids in several element blocks, a skin of shells, sets, surfaces and loads: `solids`
/// hexahedra C3D8 with a skin of S4, an element to a line.
void writeHexDeck(text::Writer& out, int solids);

/// `solids` tetrahedra C3D10 with a skin of S3, an element to two lines.
void writeTetDeck(text::Writer& out, int solids);

/// `solids` elements, rounded down to a multiple, in up to 1000 instances of two parts, moved and
/// turned, with sets, surfaces and loads of each.
void writeAssemblyDeck(text::Writer& out, int solids);

/// A chip package: a substrate, a cap and `blocks` other geometry blocks, of which 70 % are bond
/// wires of six points, 25 % balls and 5 % dies and spacers.
void writePackageFile(text::Writer& out, int blocks);

/// The mesh of `makeSolidMesh` in fixed fields of eight columns, with properties and materials.
void writeNastranDeck(text::Writer& out, int solids);

/// The same deck in free fields, with all digits of the coordinates.
void writeFreeNastranDeck(text::Writer& out, int solids);

/// The same with the nodes in large fields of sixteen columns.
void writeLargeNastranDeck(text::Writer& out, int solids);

/// The same mesh in packets, with the properties' packets.
void writePatranFile(text::Writer& out, int solids);

struct InputKind {
    std::string_view name;
    void (*write)(text::Writer& out, int size);
};

inline constexpr InputKind kInputKinds[] = {
    {"abaqus-hex", writeHexDeck},           {"abaqus-tet", writeTetDeck},
    {"abaqus-assembly", writeAssemblyDeck}, {"3di", writePackageFile},
    {"nastran", writeNastranDeck},          {"patran", writePatranFile},
    {"nastran-free", writeFreeNastranDeck}, {"nastran-large", writeLargeNastranDeck},
};

}  // namespace kvocaeio::bench
