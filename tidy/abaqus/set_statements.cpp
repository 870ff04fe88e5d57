/// The readers of sets, surfaces, loads and shell sections.
#include <algorithm>
#include <array>
#include <string>

#include "text/ascii.h"
#include "text/scan.h"
#include "tidy/abaqus/deck_reader.h"
#include "tidy/abaqus/fields.h"
#include "tidy/abaqus/sets.h"

namespace kvocaeio::tidy::abaqus {

namespace {

// The instance that a statement of the assembly names, or the own scope.
int namedInstance(DeckReader& reader) {
    if (!reader.statement.has("INSTANCE"))
        return kOwnScope;
    const std::string name = reader.statement.name("INSTANCE");
    const auto found = reader.model.instanceRows.find(name);
    if (found != reader.model.instanceRows.end())
        return found->second;
    reader.lines.noteStatement(Finding::kPartMissing, name);
    return kOwnScope;
}

void addRange(DeckReader& reader, IdSet& set, int instance) {
    std::array<int, 3> range{0, 0, 1};
    Fields fields(reader.lines.line());
    std::string_view field;
    std::size_t taken = 0;
    // A blank before a comma would end the range for the reader.
    if (reader.lines.line().find(" ,") != std::string_view::npos)
        reader.lines.setNeeded();
    while (taken < range.size() && fields.next(field)) {
        if (!field.empty() && !readInteger(field, range[taken]))
            return reader.refuse(Finding::kNumberInvalid, field);
        ++taken;
    }
    if (taken == 1)
        range[1] = range[0];
    if (range[0] == range[1])
        range[2] = 1;  // whatever the step
    if (range[1] < range[0] || range[2] < 1)
        return reader.refuse(Finding::kNumberInvalid);
    set.runs.push_back({instance, range[0], range[1], range[2]});
}

// Numbers between commas, as most lines are. Adds them up to the first field that is anything else,
// from which the rest of the line is returned.
std::string_view addNumbers(std::string_view line, IdSet& set, int instance) {
    const char* const end = line.data() + line.size();
    const char* field = line.data();
    for (;;) {
        const char* at = std::find_if(field, end, [](char c) { return c != ' '; });
        int id = 0;
        if (!takeDigits(at, end, id))
            return {field, end};
        at = std::find_if(at, end, [](char c) { return c != ' '; });
        if (at != end && *at != ',')
            return {field, end};
        set.add(instance, id);
        if (at == end)
            return {};
        field = at + 1;
    }
}

void addMembers(DeckReader& reader, IdSet& set, int instance) {
    Fields fields(addNumbers(reader.lines.line(), set, instance));
    std::string_view field;
    while (fields.next(field)) {
        if (field.empty())
            continue;
        const Target target = targetOf(reader.model, field, instance);
        if (target.name.empty())
            set.add(target.instance, target.id);
        else
            set.names.push_back({target.instance, target.name});
    }
}

// The number of lines.
std::size_t readMembers(DeckReader& reader, IdSet& set, bool isRead) {
    const bool isGenerated = reader.statement.isGenerated();
    const int instance = namedInstance(reader);
    set.isUnsorted = reader.statement.has("UNSORTED");
    reader.lines.includeInput(reader.statement);
    std::size_t rows = 0;
    while (reader.lines.nextData()) {
        if (isRead)
            reader.lines.tellTabs();
        isGenerated ? addRange(reader, set, instance) : addMembers(reader, set, instance);
        ++rows;
    }
    return rows;
}

// The number in a label such as S3 or P3; 0 where it is no such label.
int faceOf(std::string_view label, char letter) {
    const bool isFace = label.size() == 2 && text::toUpper(label[0]) == letter && label[1] >= '1' &&
                        label[1] <= '6';
    return isFace ? label[1] - '0' : 0;
}

void addSurfaceItem(DeckReader& reader, Surface& surface) {
    Fields fields(reader.lines.line());
    std::string_view item;
    std::string_view label;
    reader.lines.tellTabs();
    fields.next(item);
    fields.next(label);
    const int face = faceOf(label, 'S');
    if (face == 0 && !label.empty())
        return reader.lines.note(Finding::kFaceUnread, label, nameOf(label));
    surface.items.push_back(
        {targetOf(reader.model, item, kOwnScope), face, reader.lines.place(item)});
}

void addOperands(DeckReader& reader, Surface& surface) {
    Fields fields(reader.lines.line());
    std::string_view field;
    while (fields.next(field))
        if (!field.empty())
            surface.operands.push_back({kOwnScope, nameOf(field)});
}

Combination combinationOf(const std::string& name) {
    if (name == "UNION")
        return Combination::kUnion;
    if (name == "INTERSECTION")
        return Combination::kIntersection;
    return name == "DIFFERENCE" ? Combination::kDifference : Combination::kNone;
}

// Labels in small letters, and values in other forms, would be lost in the reader.
void addLoad(DeckReader& reader) {
    Fields fields(reader.lines.line());
    std::string_view target;
    std::string_view label;
    std::string_view value;
    reader.lines.tellTabs();
    fields.next(target);
    Load load;
    load.place = reader.lines.place(target);
    fields.next(label);
    load.face = faceOf(label, 'P');
    if (load.face == 0 || target.empty())
        return reader.lines.note(Finding::kLoadUnread, label, nameOf(label));
    if (fields.next(value) && !value.empty() && !readReal(value, load.value))
        return reader.refuse(Finding::kNumberInvalid, value);
    load.target = targetOf(reader.model, target, kOwnScope);
    if (label[0] == 'p' || value.find_first_of("dD") != std::string_view::npos)
        reader.lines.change(Finding::kNumberForm, label);
    reader.model.loads.push_back(load);
}

void addSurfaceLoad(DeckReader& reader) {
    Fields fields(reader.lines.line());
    std::string_view surface;
    std::string_view label;
    std::string_view value;
    fields.next(surface);
    fields.next(label);
    Load load;
    load.target.name = nameOf(surface);
    load.place = reader.lines.place(surface);
    if (nameOf(label) != "P")
        return reader.lines.note(Finding::kLoadUnread, label, nameOf(label));
    if (fields.next(value) && !value.empty() && !readReal(value, load.value))
        return reader.refuse(Finding::kNumberInvalid, value);
    reader.model.loads.push_back(std::move(load));
}

// The first number of a line of a section; false without one.
bool readThickness(std::string_view line, double& thickness) {
    Fields fields(line);
    std::string_view field;
    return fields.next(field) && readReal(field, thickness);
}

}  // namespace

void readNodeSet(DeckReader& reader) {
    IdSet& set = reader.scope().nodeSets[reader.statement.name("NSET")];
    set.isListed = true;
    if (reader.statement.has("ELSET")) {
        const FoundSet found = findSet(reader.model, reader.scope(), kOwnScope,
                                       reader.statement.name("ELSET"), SetKind::kElements);
        if (found.scope != &reader.scope())
            return;
        for (const Member& member : membersOf(reader.model, found, SetKind::kElements).list) {
            const auto [at, row] = found.scope->elementAt(found.scope->elements.find(member.id));
            const Block& block = found.scope->blocks[at];
            const std::size_t width = block.type.written;
            for (std::size_t i = 0; i < width; ++i)
                set.add(kOwnScope, block.nodes[row * width + i]);
        }
        return;
    }
    readMembers(reader, set, false);
}

void readElementSet(DeckReader& reader) {
    const std::string name = reader.statement.name("ELSET");
    IdSet& set = reader.scope().elementSets[name];
    reader.lines.expectPlain(reader.statement);
    set.isRepeated = set.isListed;
    set.isListed = true;
    set.isInternal = set.isInternal || reader.statement.has("INTERNAL");
    set.place = reader.lines.statementPlace();
    // On this line alone a blank ends the value for the reader.
    if (name.find(' ') != std::string::npos)
        reader.lines.changeStatement(Finding::kKeywordForm, "ELSET");
    const bool isGenerated = reader.statement.isGenerated();
    if (isGenerated && !reader.statement.has("GENERATE"))
        reader.lines.changeStatement(Finding::kKeywordForm, "ELSET");
    set.isGenerated = set.isGenerated || isGenerated;
    const std::size_t rows = readMembers(reader, set, true);
    if (isGenerated && rows != 1)  // the reader would keep one of them
        reader.lines.changeAt(Finding::kSetGenerated, set.place, name, name);
}

void readSurface(DeckReader& reader) {
    DeckLines& lines = reader.lines;
    Surface surface;
    surface.name = reader.statement.name("NAME");
    surface.place = lines.statementPlace();
    if (reader.statement.has("COMBINE")) {
        surface.combination = combinationOf(reader.statement.name("COMBINE"));
        lines.changeStatement(Finding::kSurfaceCombined, surface.name);
        if (surface.combination == Combination::kNone)
            return reader.refuseStatement(Finding::kStatementUnread);
        while (lines.nextData())
            addOperands(reader, surface);
    } else {
        const std::string type = reader.statement.name("TYPE");
        if (!type.empty() && type != "ELEMENT")
            return lines.changeStatement(Finding::kSurfaceUnread, surface.name);
        if (type.empty())
            lines.changeStatement(Finding::kKeywordForm, "SURFACE");
        lines.expectPlain(reader.statement);
        lines.includeInput(reader.statement);
        while (lines.nextData())
            addSurfaceItem(reader, surface);
    }
    reader.scope().surfaces.push_back(std::move(surface));
}

void readLoads(DeckReader& reader) {
    reader.lines.expectPlain(reader.statement);
    reader.lines.includeInput(reader.statement);
    while (reader.lines.nextData())
        addLoad(reader);
}

void readSurfaceLoads(DeckReader& reader) {
    reader.lines.includeInput(reader.statement);
    while (reader.lines.nextData())
        addSurfaceLoad(reader);
}

void readShellSection(DeckReader& reader) {
    DeckLines& lines = reader.lines;
    const bool isLayered = reader.statement.has("COMPOSITE");
    ShellSection section{reader.statement.name("ELSET"), reader.statement.name("MATERIAL"), 0.0,
                         lines.statementPlace()};
    lines.expectPlain(reader.statement, "ELSET");
    if (isLayered || !reader.statement.has("MATERIAL"))
        lines.changeStatement(Finding::kShellSection, section.elset);
    bool isRead = false;
    for (std::size_t row = 0; lines.nextData(); ++row) {
        double thickness = 0.0;
        lines.tellTabs();
        if (row > 0 && !isLayered) {
            lines.change(Finding::kShellSection, lines.line(), section.elset);
            continue;
        }
        isRead = readThickness(lines.line(), thickness) || isRead;
        section.thickness += thickness;
    }
    if (!isRead)
        lines.noteStatement(Finding::kThicknessUnread, section.elset);
    reader.scope().shellSections.push_back(std::move(section));
}

void readShellGeneralSection(DeckReader& reader) {
    // Without a material the lines hold a stiffness.
    if (!reader.statement.has("MATERIAL") && !reader.statement.has("COMPOSITE"))
        return reader.lines.noteStatement(Finding::kThicknessUnread,
                                          reader.statement.name("ELSET"));
    reader.lines.changeStatement(Finding::kShellSection, reader.statement.name("ELSET"));
    readShellSection(reader);
}

}  // namespace kvocaeio::tidy::abaqus
