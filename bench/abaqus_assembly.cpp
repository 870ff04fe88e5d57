/// Generated Abaqus decks of many instances.
#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "bench/inputs.h"
#include "bench/lattice.h"

namespace kvocaeio::bench {

namespace {

constexpr int kMostInstances = 1000;

// Writes one part of `solids` elements, which every cube of a lattice is cut into.
template <std::size_t kCorners>
void writePart(text::Writer& out, int part, const char* type, int solids,
               std::span<const std::array<Step, kCorners>> cut) {
    const int perCube = static_cast<int>(cut.size());
    const Lattice lattice(roundedUp(solids, perCube), 1);
    out.text("*Part, name=Part-").integer(part).text("\n*Node\n");
    int id = 0;
    for (int z = 0; z < lattice.nodeLayers(); ++z)
        for (int y = 0; y < lattice.sideNodes(); ++y)
            for (int x = 0; x < lattice.sideNodes(); ++x) {
                out.integer(++id, 7);
                out.text(", ").fixed(lattice.coordinate(x, 0), 8, 13);
                out.text(", ").fixed(lattice.coordinate(y, 1), 8, 13);
                out.text(", ").fixed(lattice.coordinate(z, 2), 8, 13).character('\n');
            }
    out.text("*Element, type=").text(type).character('\n');
    for (int solid = 0; solid < solids; ++solid) {
        out.integer(solid + 1);
        const int first = lattice.firstNode(solid / perCube);
        for (const Step& step : cut[static_cast<std::size_t>(solid % perCube)])
            out.text(", ").integer(first + lattice.distance(step));
        out.character('\n');
    }
    out.text("*Elset, elset=All, generate\n 1, ").integer(solids).text(", 1\n");
    out.text("*Solid Section, elset=All, material=PA66\n,\n*End Part\n");
}

// Instances of both parts in turn, each moved and turned.
void writeInstances(text::Writer& out, int instances) {
    for (int i = 1; i <= instances; ++i) {
        const double place = 1.25 * i;
        out.text("*Instance, name=Body-").integer(i);
        out.text(", part=Part-").integer(1 + i % 2).character('\n');
        out.fixed(place, 2).text(", 0.5, 0.\n");
        out.fixed(place, 2).text(", 0.5, 0., ").fixed(place, 2).text(", 0.5, 1., ");
        out.integer(i % 90).text("\n*End Instance\n");
    }
}

// Each instance has an internal set, a surface of it, and loads on a few elements.
void writeFaces(text::Writer& out, int instances, int solids) {
    for (int i = 1; i <= instances; ++i) {
        out.text("*Elset, elset=_Top-").integer(i).text("_S2, internal, instance=Body-");
        out.integer(i).text(", generate\n 1, ").integer(solids).text(", 7\n");
        out.text("*Surface, type=ELEMENT, name=Top-").integer(i).text("\n_Top-").integer(i);
        out.text("_S2, S2\n*Elset, elset=Loaded-").integer(i).text(", instance=Body-").integer(i);
        out.text("\n 1, ").integer(std::max(1, solids / 2)).character('\n');
    }
    out.text(
        "*End Assembly\n*Material, name=PA66\n*Elastic\n 9500., 0.37\n*Step\n*Static\n*Dload\n");
    for (int i = 1; i <= instances; ++i)
        out.text("Loaded-").integer(i).text(", P1, 0.5\n");
    out.text("*End Step\n");
}

}  // namespace

void writeAssemblyDeck(text::Writer& out, int solids) {
    const int instances = std::min(kMostInstances, solids);
    const int perInstance = solids / instances;
    out.text("*Heading\nbench deck, generated\n");
    writePart<4>(out, 1, "C3D4", perInstance, kTetCut);
    writePart<8>(out, 2, "C3D8", perInstance, kHexCut);
    out.text("*Assembly, name=Assembly\n");
    writeInstances(out, instances);
    writeFaces(out, instances, perInstance);
}

}  // namespace kvocaeio::bench
