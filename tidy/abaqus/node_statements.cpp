/// The readers of nodes, and of the coordinate systems that they are given in.
#include <array>
#include <string>

#include "text/ascii.h"
#include "text/scan.h"
#include "tidy/abaqus/deck_reader.h"
#include "tidy/abaqus/fields.h"

namespace kvocaeio::tidy::abaqus {

namespace {

struct NodeLine {
    int id = 0;
    Point point{};
};

// Passes over one comma with blanks around it. False where there is none.
bool passComma(const char*& at, const char* end) {
    while (at != end && *at == ' ')
        ++at;
    if (at == end || *at != ',')
        return false;
    do
        ++at;
    while (at != end && *at == ' ');
    return true;
}

// Whether a decimal number begins here: no other that the scan would take, such as "0x1F".
bool beginsDecimal(const char* at, const char* end) {
    if (at != end && (*at == '-' || *at == '+'))
        ++at;
    if (end - at > 1 && *at == '0' && text::toUpper(at[1]) == 'X')
        return false;
    if (at != end && *at == '.')
        ++at;
    return at != end && text::isDigit(*at);
}

// Reads a number and three more, as nearly all nodes are written. False, with nothing said, for any
// other form.
bool readPlainNode(std::string_view line, NodeLine& node) {
    const char* at = line.data();
    const char* const end = at + line.size();
    while (at != end && *at == ' ')
        ++at;
    if (!takeDigits(at, end, node.id))
        return false;
    for (double& coordinate : node.point) {
        if (!passComma(at, end) || !beginsDecimal(at, end))
            return false;
        text::Scan scan({at, end});
        scan.real(coordinate);
        at = scan.position();
    }
    while (at != end && *at == ' ')
        ++at;
    return at == end || *at == ',';
}

// Reads a node in any form.
bool readNode(DeckReader& reader, NodeLine& node) {
    node = {};
    Fields fields(reader.lines.line());
    std::string_view field;
    const bool isId = fields.next(field) && readInteger(field, node.id);
    if (!isId) {
        reader.refuse(Finding::kNumberInvalid, field);
        return false;
    }
    bool isPlain = field.find_first_not_of("+-0123456789") == std::string_view::npos;
    for (double& coordinate : node.point) {
        isPlain = isPlain && !field.empty();
        if (!fields.next(field))
            break;
        if (!field.empty() && !readReal(field, coordinate)) {
            reader.refuse(Finding::kNumberInvalid, field);
            return false;
        }
        isPlain = isPlain && field.find_first_of("dD") == std::string_view::npos;
    }
    if (!reader.lines.tellTabs() && !isPlain)
        reader.lines.change(Finding::kNumberForm, reader.lines.line());
    return true;
}

Coordinates coordinatesOf(const Statement& statement) {
    const std::string system = statement.name("SYSTEM");
    if (system.starts_with('C'))
        return Coordinates::kCylindrical;
    return system.starts_with('S') ? Coordinates::kSpherical : Coordinates::kRectangular;
}

}  // namespace

void addNode(DeckReader& reader, int id, const Point& point) {
    Scope& scope = reader.scope();
    NodeTable& nodes = scope.nodes;
    if (!nodes.rows.add(id)) {
        nodes.points[nodes.rows.find(id)] = point;
        return reader.lines.change(Finding::kNodeRepeated, reader.lines.line());
    }
    nodes.files.add(nodes.ids.size(), reader.lines.file());
    nodes.ids.push_back(id);
    nodes.points.push_back(point);
}

void readNodes(DeckReader& reader) {
    DeckLines& lines = reader.lines;
    lines.expectPlain(reader.statement);
    const Coordinates coordinates = coordinatesOf(reader.statement);
    const bool isGlobal = reader.system.isIdentity && coordinates == Coordinates::kRectangular;
    if (!isGlobal)
        lines.changeStatement(Finding::kSystem, {});
    IdSet* const set = reader.statement.has("NSET")
                           ? &reader.scope().nodeSets[reader.statement.name("NSET")]
                           : nullptr;
    lines.includeInput(reader.statement);
    NodeLine node;
    while (lines.nextData()) {
        const bool isPlain = readPlainNode(lines.line(), node) && isFinite(node.point);
        if (!isPlain && !readNode(reader, node))
            continue;
        if (!isGlobal)
            node.point = reader.system(rectangular(node.point, coordinates));
        addNode(reader, node.id, node.point);
        if (set != nullptr)
            set->add(kOwnScope, node.id);
    }
}

void readSystem(DeckReader& reader) {
    std::array<double, 9> points{};
    std::size_t taken = 0;
    std::size_t more = 0;
    reader.system = {};
    if (!reader.lines.nextData())
        return;
    bool isRead = readReals(reader.lines.line(), points.data(), 6, &taken);
    if (reader.lines.nextData())
        isRead = isRead && readReals(reader.lines.line(), points.data() + 6, 3, &more);
    const Point a{points[0], points[1], points[2]};
    const Point b{points[3], points[4], points[5]};
    const Point c{points[6], points[7], points[8]};
    if (isRead && taken <= 3)
        reader.system = translation(a);
    else if (isRead && more == 0)  // z stays the axis
        isRead = localSystem(a, b, a + cross({0, 0, 1}, b - a), reader.system);
    else
        isRead = isRead && localSystem(a, b, c, reader.system);
    if (!isRead)
        reader.refuseStatement(Finding::kGenerationInvalid);
}

}  // namespace kvocaeio::tidy::abaqus
