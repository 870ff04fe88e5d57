/// The readers of statements that generate nodes from others.
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "tidy/abaqus/deck_reader.h"
#include "tidy/abaqus/fields.h"
#include "tidy/abaqus/sets.h"

namespace kvocaeio::tidy::abaqus {

namespace {

constexpr double kDegrees = 57.295779513082320877;

bool pointOf(const Scope& scope, int id, Point& point) {
    const std::uint32_t row = scope.nodes.rows.find(id);
    if (row == IdIndex::kNone)
        return false;
    point = scope.nodes.points[row];
    return true;
}

/// The set that a statement puts nodes into, if it names one.
IdSet* namedSet(DeckReader& reader, std::string_view parameter) {
    if (!reader.statement.has(parameter))
        return nullptr;
    return &reader.scope().nodeSets[reader.statement.name(parameter)];
}

void addTo(IdSet* set, int id) {
    if (set != nullptr)
        set->add(kOwnScope, id);
}

// Bias may make steps of any size, and copies of copies may go anywhere.
void addGenerated(DeckReader& reader, int id, const Point& point) {
    if (isFinite(point))
        addNode(reader, id, point);
    else
        reader.refuse(Finding::kGenerationInvalid);
}

/// A line of nodes between two.
struct NodeLineRequest {
    int first = 0;
    int last = 0;
    int step = 1;
    Point from{};
    Point to{};
    Point third{};   // middle of a parabola, centre of an arc
    Point normal{};  // of an arc's plane
};

bool takeInteger(Fields& fields, int& value) {
    std::string_view field;
    return !fields.next(field) || field.empty() || readInteger(field, value);
}

// The fields after the third: a node, or coordinates, and a normal.
bool readThird(DeckReader& reader, Fields& fields, NodeLineRequest& line) {
    std::string_view field;
    int id = 0;
    const bool isNode = fields.next(field) && !field.empty();
    if (isNode && !readInteger(field, id))
        return false;
    for (Point* const point : {&line.third, &line.normal})
        for (double& coordinate : *point)
            if (fields.next(field) && !field.empty() && !readReal(field, coordinate))
                return false;
    if (isNode)
        return pointOf(reader.scope(), id, line.third);
    const std::string kind = reader.statement.name("SYSTEM");
    if (kind == "C" || kind == "S")
        line.third = rectangular(line.third, static_cast<Coordinates>(kind[0]));
    line.third = reader.system(line.third);
    return true;
}

bool readLine(DeckReader& reader, bool isCurved, NodeLineRequest& line) {
    Fields fields(reader.lines.line());
    const Scope& scope = reader.scope();
    return takeInteger(fields, line.first) && takeInteger(fields, line.last) &&
           takeInteger(fields, line.step) && line.step != 0 &&
           pointOf(scope, line.first, line.from) && pointOf(scope, line.last, line.to) &&
           (!isCurved || readThird(reader, fields, line));
}

/// The points of an arc, by parts of it.
class Arc {
  public:
    explicit Arc(const NodeLineRequest& line) : line_(line) {
        const Point a = line.from - line.third;
        const Point b = line.to - line.third;
        normal_ = lengthOf(line.normal) > 0.0 ? line.normal : cross(a, b);
        const double n = lengthOf(normal_);
        isValid_ = n > 0.0 && lengthOf(a) > 0.0;
        if (!isValid_)
            return;
        growth_ = lengthOf(b) / lengthOf(a) - 1.0;
        angle_ = std::atan2(dot(cross(a, b), normal_) / n, dot(a, b)) * kDegrees;
        if (angle_ <= 0.0)
            angle_ += 360.0;
    }
    bool isValid() const { return isValid_; }
    Point at(double part) const {
        const Point turned = rotation({}, normal_, part * angle_)(line_.from - line_.third);
        return line_.third + (1.0 + part * growth_) * turned;
    }

  private:
    const NodeLineRequest& line_;
    Point normal_{};
    double angle_ = 0.0;
    double growth_ = 0.0;
    bool isValid_ = false;
};

Point parabola(const NodeLineRequest& line, double t) {
    return (1.0 - t) * (1.0 - 2.0 * t) * line.from + 4.0 * t * (1.0 - t) * line.third +
           t * (2.0 * t - 1.0) * line.to;
}

/// How far apart nodes of a line are.
struct Spacing {
    double bias = 1.0;       // of the length of an interval to that of the next one
    bool isTwoStep = false;  // to that after the next one, which has the same length
    int singularEnd = 0;     // 1 or 2: the end at which the first node is at a quarter of two
                             // intervals

    /// Where the `k`th of `count` intervals ends, as a part of the whole.
    double partAt(std::int64_t k, std::int64_t count) const {
        if (singularEnd == 1 && k == 1)
            return 0.25 * partAt(2, count);
        if (singularEnd == 2 && k == count - 1)
            return 1.0 - 0.25 * (1.0 - partAt(count - 2, count));
        return lengthUpTo(k) / lengthUpTo(count);
    }

  private:
    double lengthUpTo(std::int64_t k) const {
        if (bias == 1.0)
            return static_cast<double>(k);
        const int steps = isTwoStep ? 2 : 1;
        const std::int64_t turns = k / steps;
        const double growth = std::pow(1.0 / bias, static_cast<double>(turns));
        return steps * (growth - 1.0) / (1.0 / bias - 1.0) +
               static_cast<double>(k % steps) * growth;
    }
};

bool readSpacing(const Statement& statement, Spacing& spacing) {
    spacing.isTwoStep = statement.has("TWOSTEP");
    if (statement.has("BIAS") &&
        !(readReal(statement.value("BIAS"), spacing.bias) && spacing.bias > 0.0))
        return false;
    return !statement.has("SINGULAR") ||
           (readInteger(statement.value("SINGULAR"), spacing.singularEnd) &&
            (spacing.singularEnd == 1 || spacing.singularEnd == 2));
}

void generateNodes(DeckReader& reader, const NodeLineRequest& line, std::string_view kind,
                   const Spacing& spacing, IdSet* set) {
    const std::int64_t span = std::int64_t{line.last} - line.first;
    const std::int64_t step =
        span < 0 ? -std::abs(std::int64_t{line.step}) : std::abs(std::int64_t{line.step});
    const Arc arc(line);
    if (span % step != 0 || (kind == "C" && !arc.isValid()))
        return reader.refuse(Finding::kGenerationInvalid);
    const std::int64_t count = span / step;
    if (!reader.generate(static_cast<std::size_t>(count)))
        return;
    addTo(set, line.first);
    for (std::int64_t k = 1; k < count; ++k) {
        const double part = spacing.partAt(k, count);
        const Point straight = (1.0 - part) * line.from + part * line.to;
        const int id = static_cast<int>(line.first + k * step);
        addGenerated(reader, id,
                     kind == "C"   ? arc.at(part)
                     : kind == "P" ? parabola(line, part)
                                   : straight);
        addTo(set, id);
    }
    addTo(set, line.last);
}

// The nodes of a set, or a single one.
bool readBounds(DeckReader& reader, Fields& fields, std::vector<Member>& nodes) {
    std::string_view field;
    if (!fields.next(field))
        return false;
    const Scope& scope = reader.scope();
    const Target target = targetOf(reader.model, field, kOwnScope);
    if (target.name.empty()) {
        nodes = {{kOwnScope, target.id}};
        return scope.nodes.rows.find(target.id) != IdIndex::kNone;
    }
    const FoundSet found = findSet(reader.model, scope, kOwnScope, target.name, SetKind::kNodes);
    if (found.scope != &scope)
        return false;
    nodes = membersOf(reader.model, found, SetKind::kNodes).list;
    return !nodes.empty();
}

struct FillRequest {
    int intervals = 1;
    int step = 1;
    Spacing spacing;
};

void fillBetween(DeckReader& reader, const std::vector<Member>& from, const std::vector<Member>& to,
                 const FillRequest& fill, IdSet* set) {
    for (std::size_t i = 0; i < from.size(); ++i) {
        Point a{};
        Point b{};
        pointOf(reader.scope(), from[i].id, a);
        pointOf(reader.scope(), to[i].id, b);
        addTo(set, from[i].id);
        for (int k = 1; k < fill.intervals; ++k) {
            const std::int64_t id = from[i].id + std::int64_t{k} * fill.step;
            if (!std::in_range<int>(id))
                return reader.refuse(Finding::kGenerationInvalid);
            const double part = fill.spacing.partAt(k, fill.intervals);
            addGenerated(reader, static_cast<int>(id), (1.0 - part) * a + part * b);
            addTo(set, static_cast<int>(id));
        }
        addTo(set, to[i].id);
    }
}

/// What `*NCOPY` does with nodes.
struct CopyRequest {
    std::vector<Member> nodes;
    int shift = 0;  // of numbers
    int times = 1;
    Placement placement;
};

// A node or a point, from which each node is moved away to twice its distance.
bool readPole(DeckReader& reader, Placement& placement) {
    if (!reader.lines.nextData())
        return false;
    Fields fields(reader.lines.line());
    std::string_view field;
    Point pole{};
    int id = 0;
    if (fields.next(field) && !field.empty()) {
        if (!readInteger(field, id) || !pointOf(reader.scope(), id, pole))
            return false;
    } else {
        for (double& coordinate : pole)
            if (fields.next(field) && !field.empty() && !readReal(field, coordinate))
                return false;
    }
    placement = Placement{{{{2, 0, 0}, {0, 2, 0}, {0, 0, 2}}}, -1.0 * pole, false};
    return true;
}

// The data lines of a copy.
bool readCopyPlacement(DeckReader& reader, Placement& placement) {
    if (reader.statement.has("POLE"))
        return readPole(reader, placement);
    std::array<double, 7> a{};
    std::array<double, 7> b{};
    if (reader.lines.nextData() && !readReals(reader.lines.line(), a.data(), a.size()))
        return false;
    if (reader.lines.nextData() && !readReals(reader.lines.line(), b.data(), b.size()))
        return false;
    const Point p{a[0], a[1], a[2]};
    const Point q{a[3], a[4], a[5]};
    const Point r{b[0], b[1], b[2]};
    if (reader.statement.has("SHIFT")) {
        placement = chained(translation(p), rotation(r, {b[3], b[4], b[5]}, b[6]));
        return true;
    }
    const std::string reflection = reader.statement.name("REFLECT");
    if (reflection == "POINT") {
        placement = Placement{{{{-1, 0, 0}, {0, -1, 0}, {0, 0, -1}}}, 2.0 * p, false};
        return true;
    }
    return reflection == "LINE" ? lineMirror(p, q, placement)
                                : reflection == "MIRROR" && mirror(p, q, r, placement);
}

bool readCopy(DeckReader& reader, CopyRequest& copy) {
    const Statement& statement = reader.statement;
    Fields oldSet(statement.value("OLDSET"));
    if (!readBounds(reader, oldSet, copy.nodes) ||
        !readInteger(statement.value("CHANGENUMBER"), copy.shift))
        return false;
    if (statement.has("MULTIPLE") && !readInteger(statement.value("MULTIPLE"), copy.times))
        return false;
    return readCopyPlacement(reader, copy.placement);
}

}  // namespace

void readNodeLines(DeckReader& reader) {
    const std::string kind = reader.statement.name("LINE");
    reader.lines.changeStatement(Finding::kNodesGenerated, "NGEN");
    Spacing spacing;
    const bool isKnown = kind.empty() || kind == "C" || kind == "P";
    if (!isKnown || !readSpacing(reader.statement, spacing))
        return reader.refuseStatement(Finding::kStatementUnread);
    IdSet* const set = namedSet(reader, "NSET");
    while (reader.lines.nextData()) {
        NodeLineRequest line;
        if (readLine(reader, !kind.empty(), line))
            generateNodes(reader, line, kind, spacing, set);
        else
            reader.refuse(Finding::kGenerationInvalid);
    }
}

void readNodeFill(DeckReader& reader) {
    reader.lines.changeStatement(Finding::kNodesGenerated, "NFILL");
    Spacing spacing;
    if (!readSpacing(reader.statement, spacing))
        return reader.refuseStatement(Finding::kStatementUnread);
    IdSet* const set = namedSet(reader, "NSET");
    while (reader.lines.nextData()) {
        FillRequest fill{1, 1, spacing};
        Fields fields(reader.lines.line());
        std::vector<Member> from;
        std::vector<Member> to;
        if (!readBounds(reader, fields, from) || !readBounds(reader, fields, to) ||
            !takeInteger(fields, fill.intervals) || !takeInteger(fields, fill.step) ||
            fill.intervals < 1 || from.size() != to.size())
            reader.refuse(Finding::kGenerationInvalid);
        else if (reader.generate(from.size() * static_cast<std::size_t>(fill.intervals)))
            fillBetween(reader, from, to, fill, set);
    }
}

void readNodeCopy(DeckReader& reader) {
    reader.lines.changeStatement(Finding::kNodesGenerated, "NCOPY");
    CopyRequest copy;
    if (!readCopy(reader, copy) || copy.times < 1)
        return reader.refuseStatement(Finding::kGenerationInvalid);
    if (!reader.generate(copy.nodes.size() * static_cast<std::size_t>(copy.times)))
        return;
    IdSet* const set = namedSet(reader, "NEWSET");
    Placement placement = copy.placement;
    for (int k = 1; k <= copy.times; ++k) {
        for (const Member& member : copy.nodes) {
            const std::int64_t id = member.id + std::int64_t{k} * copy.shift;
            Point point{};
            if (!std::in_range<int>(id) || !pointOf(reader.scope(), member.id, point))
                return reader.refuseStatement(Finding::kGenerationInvalid);
            addGenerated(reader, static_cast<int>(id), placement(point));
            addTo(set, static_cast<int>(id));
        }
        placement = chained(placement, copy.placement);
    }
}

}  // namespace kvocaeio::tidy::abaqus
