/// One geometry block of a 3DI file, and the body that comes of it.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "package/model.h"
#include "text/pass_lines.h"
#include "text/scan.h"

namespace kvocaeio::package {

/// Indexes of the table entries that tell which blocks are bodies.
struct BodyKinds {
    int symbol;
    int ball;  ///< -1 without such an entry: then a block without an "OBJECT" line is a ball
    int outline;
    int cap;  ///< -1 without such an entry: then a block without a "LAYER" line is the cap
};

/// What a line in the head of a block is.
enum class HeadLine : std::size_t {
    kSectionTitle,
    kName,
    kObject,
    kLayer,
    kColor,
    kExtrusion,
    kBall,
    kPolygon,
    kEnd,
    kNextBlock,
    kOther,
};

/// In the order of the tests and of `HeadLine`: the first word that the line holds decides.
inline constexpr auto kHeadWordTexts = std::to_array<std::string_view>(
    {"GEOMETRIES", "NAME", "OBJECT", "LAYER", "COLOR", "EXTR", "BARL", "2DPG", "####", "GEOM"});

struct AxisRange {
    static constexpr double kStartOfMinima = 1e10;

    double min;
    double max;

    /// Whether no value has been taken.
    bool hasNothing() const { return min == kStartOfMinima; }

    /// A value that is no number becomes both ends, until the next value takes their place.
    void widen(double value) {
        if (!(value > min))
            min = value;
        if (!(value < max))
            max = value;
    }
    double middle() const { return (min + max) * 0.5; }
    double extent() const { return max - min; }
};

/// What is known of the block in hand, in the file's units.
struct GeometryBlock {
    std::string name;
    int objectId = -1;
    int layerId = -1;
    int colorId = -1;
    AxisRange x{};
    AxisRange y{};
    AxisRange z{};

    // What the notes go by, while somebody listens.
    unsigned linesRead = 0;      ///< those of its head, by bits
    bool isWire = false;         ///< one of them is that of a wire
    bool reachesOrigin = false;  ///< the maxima began with 0
    text::LinePlace place{};     ///< of its first line

    bool has(HeadLine line) const { return (linesRead >> static_cast<unsigned>(line) & 1U) != 0; }
    void add(HeadLine line) { linesRead |= 1U << static_cast<unsigned>(line); }

    /// Starts anew. The ball is kept from block to block.
    void reset(double startOfMaxima);

    /// Takes the z range of an "EXTR" line: "%d %lf %lf" after its first word. False where the line
    /// lacks a field; nothing is taken then, here as below.
    bool scanExtrusion(text::Scan scan);

    /// Takes the ball of a "BARL" line: "%lf %lf %lf %lf %lf %lf %d", with centre, radius, a
    /// number that is dropped and h. Its z is lowered by the height of the spherical cap whose base
    /// has the radius h, and becomes not a number where h is above the ball's radius.
    bool scanBall(text::Scan scan);

    double ballX = 0.0;
    double ballY = 0.0;
    double ballZ = 0.0;
    double ballRadius = 0.0;
};

/// Whether a body can come of a block with this object and layer.
bool isWanted(const GeometryBlock& block, const BodyKinds& kinds);

/// Turns a block into a body in millimetres. False where none comes of it: `record` keeps its
/// numbers then. What no rule sets in `record` keeps what the body before has left there. Throws
/// the error of `throwBadSubscript` where a table has no entry for the block's colour or name.
/// `lines` are those of the pass, for what is noted.
bool finishBlock(const GeometryBlock& block, const BodyKinds& kinds, const BlockTables& tables,
                 double unitScale, ComponentRecord& record, text::PassLines& lines);

}  // namespace kvocaeio::package
