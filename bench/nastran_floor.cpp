/// The least that any reader or writer of Nastran decks must do.
#include <algorithm>

#include "bench/floor_writing.h"
#include "bench/floors.h"

namespace kvocaeio::bench {

namespace {

constexpr std::size_t kFieldWidth = 8;
constexpr std::size_t kCardColumns = 72;

class NastranFloor {
  public:
    explicit NastranFloor(std::size_t fileSize) : numbers_(fileSize) {}

    void read(const char* position, const char* end) {
        while (position != end) {
            const char* const next = behindLine(position, end);
            ++lines_;
            card(position, static_cast<std::size_t>(next - position) - 1);
            position = next;
        }
    }

    FloorCounts counts() const { return numbers_.counts(lines_); }

  private:
    void card(const char* line, std::size_t size) {
        switch (*line) {
            case 'G':
                if (size < 6 * kFieldWidth)
                    break;
                integers(line + kFieldWidth, line + 2 * kFieldWidth);
                numbers_.realFields<kFieldWidth>(line + 3 * kFieldWidth, line + 6 * kFieldWidth);
                break;
            case 'C':
            case 'P':
            case '+':
                if (size > kFieldWidth)
                    integers(line + kFieldWidth, line + std::min(size, kCardColumns));
                break;
            default:
                break;
        }
    }
    void integers(const char* first, const char* last) {
        numbers_.integerFields<kFieldWidth>(first, last);
    }

    NumberArrays numbers_;
    std::size_t lines_ = 0;
};

void writeSolid(FloorWriter& out, int id, int property, std::span<const int> nodes) {
    constexpr std::size_t kNodesOnFirstLine = 6;
    constexpr int kWidth = 7;
    const auto name = nodes.size() == 4   ? std::string_view("CTETRA ,")
                      : nodes.size() == 6 ? std::string_view("CPENTA ,")
                                          : std::string_view("CHEXA  ,");
    out.text(name);
    out.integer(id, kWidth);
    out.text(",");
    out.integer(property, kWidth);
    for (std::size_t node = 0; node < nodes.size(); ++node) {
        if (node == kNodesOnFirstLine)
            out.text("\n       ");
        out.text(",");
        out.integer(nodes[node], kWidth);
    }
    out.text("\n");
}

}  // namespace

FloorCounts nastranReadFloor(std::FILE* file, std::size_t fileSize) {
    return readBlocks<NastranFloor>(file, fileSize);
}

FloorCounts nastranWriteFloor(std::FILE* file, const SolidMesh& mesh) {
    FloorWriter out(file);
    out.text("BEGIN BULK\n");
    forEachNode(mesh, [&](int id, std::span<const double, 3> coords) {
        out.startCard();
        out.text("GRID   ,");
        out.integer(id, 8);
        out.text(",       0");
        for (const double coord : coords) {
            out.text(",");
            out.fixed(coord, 3, 8);
        }
        out.text(",       0\n");
    });
    forEachSolid(mesh, [&](int id, int property, std::span<const int> nodes) {
        out.startCard();
        writeSolid(out, id, property, nodes);
    });
    out.text("ENDDATA\n");
    return out.counts();
}

}  // namespace kvocaeio::bench
