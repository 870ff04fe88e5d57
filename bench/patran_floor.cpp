/// The least that any reader or writer of Patran neutral files must do.
#include "bench/floor_writing.h"
#include "bench/floors.h"

namespace kvocaeio::bench {

namespace {

constexpr std::size_t kIntegerWidth = 8;
constexpr std::size_t kRealWidth = 16;

class PatranFloor {
  public:
    explicit PatranFloor(std::size_t fileSize) : numbers_(fileSize) {}

    void read(const char* position, const char* end) {
        while (position != end) {
            const char* const next = behindLine(position, end);
            ++lines_;
            if (card_ == cards_)
                header(position, next - 1);
            else
                dataCard(position, next - 1);
            position = next;
        }
    }

    FloorCounts counts() const { return numbers_.counts(lines_); }

  private:
    void header(const char* line, const char* end) {
        constexpr std::size_t kTypeWidth = 2;
        if (static_cast<std::size_t>(end - line) < kTypeWidth + 3 * kIntegerWidth)
            return;
        type_ = (line[0] == ' ' ? 0 : 10 * (line[0] - '0')) + line[1] - '0';
        line += kTypeWidth;
        integers(line, line + 3 * kIntegerWidth);
        cards_ = numbers_.lastInteger();
        card_ = 0;
    }

    void dataCard(const char* line, const char* end) {
        const bool isFirst = card_++ == 0;
        switch (type_) {
            case 1:
                if (isFirst)
                    reals(line, end);
                break;
            case 2:
                if (isFirst)
                    integers(line + 2 * kIntegerWidth, line + 3 * kIntegerWidth);
                else
                    integers(line, end);
                break;
            case 4:
                reals(line, end);
                break;
            default:
                break;
        }
    }

    void integers(const char* first, const char* last) {
        numbers_.integerFields<kIntegerWidth>(first, last);
    }
    void reals(const char* first, const char* last) {
        numbers_.realFields<kRealWidth>(first, last);
    }

    NumberArrays numbers_;
    std::size_t lines_ = 0;
    int type_ = 0;
    int cards_ = 0;  // data cards of the packet
    int card_ = 0;   // those of them that were read
};

void writeSolid(FloorWriter& out, int id, std::span<const int> nodes) {
    constexpr std::size_t kNodesOnCard = 8;
    const int shape = shapeCode(nodes.size());
    out.text(" 2");
    out.integer(id, 8);
    out.integer(shape, 8);
    out.text("       2       0       0       0       080\n");
    out.integer(shape, 8);
    out.text("       2       0\n");
    for (std::size_t node = 0; node < kNodesOnCard; ++node)
        out.integer(node < nodes.size() ? nodes[node] : 0, 8);
    out.text("\n");
}

}  // namespace

FloorCounts patranReadFloor(std::FILE* file, std::size_t fileSize) {
    return readBlocks<PatranFloor>(file, fileSize);
}

FloorCounts patranWriteFloor(std::FILE* file, const SolidMesh& mesh) {
    FloorWriter out(file);
    forEachNode(mesh, [&](int id, std::span<const double, 3> coords) {
        out.startCard();
        out.text(" 1");
        out.integer(id, 8);
        out.text("       0       2       0       0       0       080\n");
        for (const double coord : coords)
            out.scientific(coord, 6, 16);
        out.text("\n       0       0       0       0       0       0       0       0       0\n");
    });
    forEachSolid(mesh, [&](int id, int, std::span<const int> nodes) {
        out.startCard();
        writeSolid(out, id, nodes);
    });
    out.text("99       0       0       1       0       0       0       080\n\n");
    return out.counts();
}

}  // namespace kvocaeio::bench
