/// Generated Nastran decks in fixed, free and large fields.
#include <algorithm>

#include "bench/inputs.h"
#include "bench/solid_mesh.h"

namespace kvocaeio::bench {

namespace {

constexpr int kWidth = 8;

void writeNodes(text::Writer& out, const SolidMesh& mesh) {
    // As many decimals as the largest coordinate leaves room for.
    const double largest = *std::max_element(mesh.coords.begin(), mesh.coords.end());
    const int decimals = largest < 99 ? 5 : 4;
    forEachNode(mesh, [&](int id, std::span<const double, 3> coords) {
        out.text("GRID    ").integer(id, kWidth).text("        ");
        for (const double coord : coords)
            out.fixed(coord, decimals, kWidth);
        out.character('\n');
    });
}

void writeSolid(text::Writer& out, int id, int property, std::span<const int> nodes) {
    constexpr std::size_t kNodesOnFirstLine = 6;
    out.text(nodes.size() == 4 ? "CTETRA  " : nodes.size() == 6 ? "CPENTA  " : "CHEXA   ");
    out.integer(id, kWidth).integer(property, kWidth);
    for (std::size_t node = 0; node < nodes.size(); ++node) {
        if (node == kNodesOnFirstLine)
            out.text("+       \n+       ");
        out.integer(nodes[node], kWidth);
    }
    out.character('\n');
}

void writeFreeNodes(text::Writer& out, const SolidMesh& mesh) {
    constexpr int kDecimals = 9;
    forEachNode(mesh, [&](int id, std::span<const double, 3> coords) {
        out.text("GRID,").integer(id).character(',');
        for (const double coord : coords)
            out.character(',').fixed(coord, kDecimals);
        out.character('\n');
    });
}

void writeLargeNodes(text::Writer& out, const SolidMesh& mesh) {
    constexpr int kLargeWidth = 16;
    constexpr int kDecimals = 9;
    forEachNode(mesh, [&](int id, std::span<const double, 3> coords) {
        out.text("GRID*   ").integer(id, kLargeWidth).text("                ");
        out.fixed(coords[0], kDecimals, kLargeWidth).fixed(coords[1], kDecimals, kLargeWidth);
        out.text("\n*       ").fixed(coords[2], kDecimals, kLargeWidth).character('\n');
    });
}

void writeFreeSolid(text::Writer& out, int id, int property, std::span<const int> nodes) {
    constexpr std::size_t kNodesOnFirstLine = 6;
    out.text(nodes.size() == 4 ? "CTETRA," : nodes.size() == 6 ? "CPENTA," : "CHEXA,");
    out.integer(id).character(',').integer(property);
    for (std::size_t node = 0; node < nodes.size(); ++node) {
        if (node == kNodesOnFirstLine)
            out.text(",+\n+");
        out.character(',').integer(nodes[node]);
    }
    out.character('\n');
}

using WriteNodes = void (*)(text::Writer& out, const SolidMesh& mesh);
using WriteSolid = void (*)(text::Writer& out, int id, int property, std::span<const int> nodes);

void writeDeck(text::Writer& out, int solids, WriteNodes nodesWriter, WriteSolid solidWriter) {
    const SolidMesh mesh = makeSolidMesh(solids);
    out.text("$ bench deck, generated\nSOL 101\nCEND\nTITLE = BENCH\nBEGIN BULK\n$ nodes\n");
    nodesWriter(out, mesh);
    out.text("$ elements\n");
    forEachSolid(mesh, [&](int id, int property, std::span<const int> nodes) {
        solidWriter(out, id, property, nodes);
    });
    out.text("$ properties\n");
    for (const SolidBlock& block : mesh.blocks)
        out.text("PSOLID  ").integer(block.property, kWidth).text("       1       0\n");
    out.text("MAT1           1   9500.             .37 1.37-9\nENDDATA\n");
}

}  // namespace

void writeNastranDeck(text::Writer& out, int solids) {
    writeDeck(out, solids, writeNodes, writeSolid);
}

void writeFreeNastranDeck(text::Writer& out, int solids) {
    writeDeck(out, solids, writeFreeNodes, writeFreeSolid);
}

void writeLargeNastranDeck(text::Writer& out, int solids) {
    writeDeck(out, solids, writeLargeNodes, writeSolid);
}

}  // namespace kvocaeio::bench
