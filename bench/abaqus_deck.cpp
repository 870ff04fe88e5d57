/// Generated Abaqus decks, section by section.
#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "bench/inputs.h"
#include "bench/lattice.h"

namespace kvocaeio::bench {

namespace {

using Steps = std::vector<Step>;

// The elements that every cube of the lattice is cut into.
struct Cut {
    std::string_view solidType;
    std::string_view skinType;
    int fineness;
    std::vector<Steps> solids;
    std::vector<Steps> skin;
    int loadedEvery;  // of the solids of the top and bottom layer
};

Cut hexCut() {
    const Steps square = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    const Steps cube(kHexCut[0].begin(), kHexCut[0].end());
    return {"C3D8", "S4", 1, {cube}, {square}, 1};
}

Cut tetCut() {
    constexpr std::array<std::array<std::size_t, 2>, 6> kEdges = {
        {{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 3}, {2, 3}}};
    Cut cut = {"C3D10", "S3", 2, {}, {}, 3};
    for (const auto& corners : kTetCut) {
        Steps nodes;
        for (const Step& corner : corners)
            nodes.push_back({2 * corner.x, 2 * corner.y, 2 * corner.z});
        for (const auto& [from, to] : kEdges) {
            const Step& a = corners[from];
            const Step& b = corners[to];
            nodes.push_back({a.x + b.x, a.y + b.y, a.z + b.z});
        }
        cut.solids.push_back(nodes);
    }
    cut.skin = {{{0, 0, 0}, {2, 0, 0}, {2, 2, 0}}, {{0, 0, 0}, {2, 2, 0}, {0, 2, 0}}};
    return cut;
}

// A repeated name lets the normalisation merge.
constexpr std::array<std::string_view, 6> kSolidSets = {"PART_A", "PART_B", "PART_C",
                                                        "PART_D", "PART_D", "PART_E"};
constexpr std::string_view kSkinSet = "SKIN";

// OIDs `first`, `first` + `step` and so on, up to `last`.
struct Range {
    int first, last, step;
};

class DeckWriter {
  public:
    DeckWriter(text::Writer& out, Cut cut, int solids)
        : out_(out),
          cut_(std::move(cut)),
          solids_(solids),
          blockSize_(roundedUp(solids, static_cast<int>(kSolidSets.size()))),
          perCube_(static_cast<int>(cut_.solids.size())),
          cubes_(roundedUp(solids, perCube_)),
          lattice_(cubes_, cut_.fineness) {}

    void write() {
        nodes();
        solidBlocks();
        skin();
        elementSets();
        surfaces();
        properties();
        loads();
    }

  private:
    int layerCubes() const { return std::min(cubes_, lattice_.layerCubes()); }
    Range bottom() const {
        return {1, std::min(solids_, perCube_ * layerCubes()), cut_.loadedEvery};
    }
    Range top() const {
        return {std::max(1, solids_ - perCube_ * layerCubes() + 1), solids_, cut_.loadedEvery};
    }

    void nodes() {
        out_.text("*HEADING\nbench deck, generated\n** nodes\n*NODE, NSET=NALL\n");
        int id = 0;
        for (int z = 0; z < lattice_.nodeLayers(); ++z)
            for (int y = 0; y < lattice_.sideNodes(); ++y)
                for (int x = 0; x < lattice_.sideNodes(); ++x) {
                    out_.integer(++id, 8);
                    coordinate(x, 0);
                    coordinate(y, 1);
                    coordinate(z, 2);
                    out_.character('\n');
                }
    }
    void coordinate(int position, double axisPhase) {
        out_.text(", ").fixed(lattice_.coordinate(position, axisPhase), 8, 13);
    }

    void solidBlocks() {
        const std::vector<std::vector<int>> shapes = distances(cut_.solids);
        for (int solid = 0; solid < solids_;) {
            startBlock(cut_.solidType, kSolidSets[static_cast<std::size_t>(solid / blockSize_)]);
            const int behind = std::min(solids_, solid + blockSize_);
            for (; solid < behind; ++solid)
                element(solid + 1, lattice_.firstNode(solid / perCube_),
                        shapes[static_cast<std::size_t>(solid % perCube_)]);
        }
    }
    void skin() {
        startBlock(cut_.skinType, kSkinSet);
        const std::vector<std::vector<int>> shapes = distances(cut_.skin);
        int id = solids_;
        for (int cube = 0; cube < layerCubes(); ++cube)
            for (const std::vector<int>& shape : shapes)
                element(++id, lattice_.firstNode(cube), shape);
    }
    void startBlock(std::string_view type, std::string_view set) {
        out_.text("*ELEMENT, TYPE=").text(type).text(", ELSET=").text(set).character('\n');
    }
    std::vector<std::vector<int>> distances(const std::vector<Steps>& shapes) const {
        std::vector<std::vector<int>> result;
        for (const Steps& shape : shapes) {
            std::vector<int>& row = result.emplace_back();
            for (const Step& step : shape)
                row.push_back(lattice_.distance(step));
        }
        return result;
    }
    void element(int id, int firstNode, const std::vector<int>& shape) {
        constexpr int kNumbersPerLine = 9;
        out_.integer(id, 8);
        int onLine = 1;
        for (const int distance : shape) {
            out_.character(',');
            if (onLine++ == kNumbersPerLine)
                out_.character('\n');
            out_.integer(firstNode + distance, 8);
        }
        out_.character('\n');
    }

    void elementSets() {
        out_.text("*ELSET, ELSET=ODD, GENERATE\n1, ").integer(solids_).text(", 2\n");
        out_.text("*ELSET, ELSET=EVERY7\n");
        members({7, solids_, 7});
        out_.text("*ELSET, ELSET=ALLSOLID\n");
        const std::vector<std::string_view> names = solidSetNames();
        for (std::size_t i = 0; i < names.size(); ++i)
            out_.text(i == 0 ? "" : ", ").text(names[i]);
        out_.text("\n*ELSET, ELSET=TOPLAYER\n");
        members(top());
    }
    void members(Range range) {
        constexpr int kMembersPerLine = 16;
        int onLine = 0;
        for (int id = range.first; id <= range.last; id += range.step) {
            out_.text(onLine == 0 ? "" : ", ").integer(id);
            if (++onLine == kMembersPerLine || id + range.step > range.last) {
                out_.text(",\n");
                onLine = 0;
            }
        }
    }
    // The names of the blocks that the deck has, each once.
    std::vector<std::string_view> solidSetNames() const {
        const int blocks = roundedUp(solids_, blockSize_);
        std::vector<std::string_view> names(kSolidSets.begin(), kSolidSets.begin() + blocks);
        names.erase(std::unique(names.begin(), names.end()), names.end());
        return names;
    }

    void surfaces() {
        out_.text("*SURFACE, TYPE=ELEMENT, NAME=TOPSURF\nTOPLAYER, S2\n");
        out_.text("*SURFACE, TYPE=ELEMENT, NAME=BOTTOM\n");
        const Range range = bottom();
        for (int id = range.first; id <= range.last; id += range.step)
            out_.integer(id).text(", S1\n");
    }

    void properties() {
        out_.text(
            "** properties\n*MATERIAL, NAME=PA66_GF30\n*ELASTIC\n 9500., 0.37\n"
            "*DENSITY\n 1.37e-9,\n");
        for (const std::string_view set : solidSetNames())
            out_.text("*SOLID SECTION, ELSET=").text(set).text(", MATERIAL=PA66_GF30\n");
        out_.text("*SHELL SECTION, ELSET=").text(kSkinSet).text(", MATERIAL=PA66_GF30\n 0.25,\n");
    }

    void loads() {
        out_.text("*STEP\n*STATIC\n*DLOAD\n");
        const Range range = top();
        for (int id = range.first; id <= range.last; id += range.step)
            out_.integer(id).text(", P2, 0.5\n");
        out_.text("*END STEP\n");
    }

    text::Writer& out_;
    Cut cut_;
    int solids_;
    int blockSize_;
    int perCube_;
    int cubes_;
    Lattice lattice_;
};

}  // namespace

void writeHexDeck(text::Writer& out, int solids) {
    DeckWriter(out, hexCut(), solids).write();
}

void writeTetDeck(text::Writer& out, int solids) {
    DeckWriter(out, tetCut(), solids).write();
}

}  // namespace kvocaeio::bench
