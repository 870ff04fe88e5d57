/// The readers of elements, and of statements that generate elements from others.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tidy/abaqus/deck_reader.h"
#include "tidy/abaqus/fields.h"
#include "tidy/abaqus/sets.h"

namespace kvocaeio::tidy::abaqus {

namespace {

// Numbers of a data line, between commas or blanks. Adds them to `numbers`, at most up to `most`.
// False where anything else stands there.
bool appendNumbers(std::string_view line, std::size_t most, std::vector<int>& numbers) {
    const char* at = line.data();
    const char* const end = at + line.size();
    while (numbers.size() < most) {
        while (at != end && (*at == ' ' || *at == ','))
            ++at;
        if (at == end)
            return true;
        int number = 0;
        if (!takeDigits(at, end, number) || (at != end && *at != ',' && *at != ' '))
            return false;
        numbers.push_back(number);
    }
    return true;
}

// The same for numbers in other forms, such as "+7", "7." or between tabs.
bool appendOtherNumbers(DeckReader& reader, std::size_t most, std::vector<int>& numbers) {
    Fields fields(reader.lines.line());
    std::string_view field;
    bool isPlain = true;
    bool isNegative = false;
    while (numbers.size() < most && fields.next(field)) {
        int number = 0;
        if (!readInteger(field, number)) {
            reader.refuse(Finding::kNumberInvalid, field);
            return false;
        }
        numbers.push_back(number);
        isNegative = isNegative || number < 0;
        isPlain = isPlain && field == std::to_string(number);
    }
    if (!reader.lines.tellTabs() && !(isPlain && isNegative))
        reader.lines.change(Finding::kNumberForm, reader.lines.line());
    return true;
}

// An empty field would shift those after it.
bool hasEmptyField(std::string_view line) {
    const auto comma = line.find(',');
    if (comma == std::string_view::npos)
        return false;
    bool isEmpty = trimmed(line.substr(0, comma)).empty();
    for (const char c : line.substr(comma + 1)) {
        if (c == ',' && isEmpty)
            return true;
        isEmpty = c == ',' || (isEmpty && c == ' ');
    }
    return false;
}

bool appendLine(DeckReader& reader, std::size_t most, std::vector<int>& numbers) {
    const std::size_t before = numbers.size();
    if (appendNumbers(reader.lines.line(), most, numbers))
        return true;
    numbers.resize(before);
    return appendOtherNumbers(reader, most, numbers);
}

// Whether an element that has all nodes of its type goes on in the next line. Types with more nodes
// than the reader holds do after any comma; others, of which some programs write more nodes than
// the type has, where the line is full and `taken` numbers of it were needed.
bool goesOn(const ElementType& type, std::string_view line, std::size_t taken) {
    constexpr std::size_t kFullLine = 16;
    if (!trimmed(line).ends_with(','))
        return false;
    const auto numbers = static_cast<std::size_t>(std::ranges::count(line, ','));
    return type.hasMoreNodes || (numbers >= kFullLine && numbers > taken);
}

// Takes the lines of one element. False where it is not complete.
bool takeElement(DeckReader& reader, const ElementType& type, std::vector<int>& numbers) {
    DeckLines& lines = reader.lines;
    const std::size_t most = type.nodes + 1;
    numbers.clear();
    if (!appendLine(reader, most, numbers))
        return false;
    std::size_t taken = numbers.size();
    bool isOpen = taken < most;
    if (isOpen && hasEmptyField(lines.line())) {
        reader.refuse(Finding::kNumberInvalid);
        return false;
    }
    const Place place = isOpen ? lines.place(trimmed(lines.line())) : Place();
    lines.setInside(true);
    while (isOpen || goesOn(type, lines.line(), taken)) {
        if (!isOpen && !type.hasMoreNodes)
            lines.change(Finding::kElementLong, lines.line(), reader.statement.name("TYPE"));
        taken = numbers.size();
        if (!lines.nextData()) {
            if (isOpen)
                lines.noteAt(Finding::kElementIncomplete, place, {}, reader.statement.title);
            break;
        }
        if (isOpen && !appendLine(reader, most, numbers))
            break;
        taken = numbers.size() - taken;
        isOpen = numbers.size() < most;
    }
    lines.setInside(false);
    return !isOpen;
}

// The block that elements of a kind are added to: the last one where it is of that kind and may
// go on, a new one otherwise.
Block& blockFor(Scope& scope, const Block& kind, bool mayGoOn) {
    if (mayGoOn && !scope.blocks.empty()) {
        Block& last = scope.blocks.back();
        if (last.typeName == kind.typeName && last.elset == kind.elset &&
            last.type.written == kind.type.written)
            return last;
    }
    return scope.blocks.emplace_back(
        Block{kind.type, kind.typeName, kind.elset, scope.elements.count(), {}, {}});
}

// What is defined again counts as it is defined last. Then it must be of the same type.
void replaceElement(DeckReader& reader, Scope& scope, const Block& kind, int id, const int* nodes) {
    const auto [at, row] = scope.elementAt(scope.elements.find(id));
    Block& block = scope.blocks[at];
    if (block.typeName != kind.typeName)
        return reader.refuse(Finding::kElementTwice);
    reader.lines.change(Finding::kElementRepeated, reader.lines.line());
    std::copy_n(nodes, block.type.written, block.nodes.data() + row * block.type.written);
}

void addElement(DeckReader& reader, Scope& scope, Block& block, int id, const int* nodes) {
    if (!scope.elements.add(id))
        return replaceElement(reader, scope, block, id, nodes);
    scope.elementFiles.add(scope.elements.count() - 1, reader.lines.file());
    block.ids.push_back(id);
    block.nodes.append(nodes, block.type.written);
}

IdSet* blockSet(DeckReader& reader, const std::string& name) {
    if (name.empty())
        return nullptr;
    const auto [entry, isNew] = reader.scope().elementSets.try_emplace(name);
    if (isNew)
        entry->second.place = reader.lines.statementPlace();
    return &entry->second;
}

// Elements of which the reader holds nothing are told one by one, so that they are counted.
void passOverElements(DeckReader& reader, const std::string& typeName) {
    bool isContinued = false;
    while (reader.lines.nextData()) {
        if (!isContinued)
            reader.lines.note(Finding::kTypeUnread, reader.lines.line(), typeName);
        else
            reader.lines.setNeeded();  // the reader would take the line for another element
        isContinued = trimmed(reader.lines.line()).ends_with(',');
    }
}

struct Direction {
    int count = 1;
    int nodeStep = 1;
    int elementStep = 1;
};

bool isValid(const std::array<Direction, 3>& directions) {
    return std::ranges::all_of(directions, [](const Direction& d) { return d.count >= 1; });
}

/// An element as it is copied.
struct Master {
    Block kind;  // without elements
    int id = 0;
    std::vector<int> nodes;
};

bool findMaster(const Scope& scope, int id, Master& master) {
    const std::uint32_t place = scope.elements.find(id);
    if (place == IdIndex::kNone)
        return false;
    const auto [at, row] = scope.elementAt(place);
    const Block& block = scope.blocks[at];
    master.kind = {block.type, block.typeName, block.elset, 0, {}, {}};
    master.id = id;
    const int* const nodes = block.nodes.data() + row * block.type.written;
    master.nodes.assign(nodes, nodes + block.type.written);
    return true;
}

// Adds an element whose numbers are those of the master and more.
bool addShifted(DeckReader& reader, Block& block, const Master& master, std::int64_t idShift,
                std::int64_t nodeShift, IdSet* set) {
    std::array<int, 27> nodes{};
    const std::int64_t id = master.id + idShift;
    if (!std::in_range<int>(id))
        return false;
    for (std::size_t i = 0; i < master.nodes.size(); ++i) {
        const std::int64_t node = master.nodes[i] + nodeShift;
        if (!std::in_range<int>(node))
            return false;
        nodes[i] = static_cast<int>(node);
    }
    addElement(reader, reader.scope(), block, static_cast<int>(id), nodes.data());
    if (set != nullptr)
        set->add(kOwnScope, static_cast<int>(id), true);
    return true;
}

void generateRows(DeckReader& reader, Master& master, const std::array<Direction, 3>& directions,
                  IdSet* set) {
    std::size_t count = 1;
    for (const Direction& direction : directions)
        if (!reader.generate(count *= static_cast<std::size_t>(direction.count)))
            return;
    master.kind.elset = reader.statement.name("ELSET");
    Block& block = blockFor(reader.scope(), master.kind, true);
    if (set != nullptr)
        set->add(kOwnScope, master.id, true);
    const auto& [row, rows, layers] = directions;
    for (std::int64_t k = 0; k < layers.count; ++k)
        for (std::int64_t j = 0; j < rows.count; ++j)
            for (std::int64_t i = 0; i < row.count; ++i) {
                const std::int64_t id =
                    i * row.elementStep + j * rows.elementStep + k * layers.elementStep;
                const std::int64_t node =
                    i * row.nodeStep + j * rows.nodeStep + k * layers.nodeStep;
                if ((i != 0 || j != 0 || k != 0) &&
                    !addShifted(reader, block, master, id, node, set))
                    return reader.refuse(Finding::kGenerationInvalid);
            }
}

bool readDirections(std::string_view line, int& master, std::array<Direction, 3>& directions) {
    Fields fields(line);
    std::string_view field;
    std::vector<int*> values{&master};
    for (Direction& direction : directions)
        values.insert(values.end(),
                      {&direction.count, &direction.nodeStep, &direction.elementStep});
    for (int* const value : values)
        if (fields.next(field) && !field.empty() && !readInteger(field, *value))
            return false;
    return isValid(directions);
}

}  // namespace

void readElements(DeckReader& reader) {
    DeckLines& lines = reader.lines;
    const std::string typeName = reader.statement.name("TYPE");
    const std::optional<ElementType> type = elementTypeOf(typeName);
    lines.expectPlain(reader.statement, "ELSET");
    Scope& scope = reader.scope();
    const std::string elset = reader.statement.name("ELSET");
    if (!type) {
        blockSet(reader, elset);
        lines.includeInput(reader.statement);
        return passOverElements(reader, typeName);
    }
    if (!type->newName.empty())
        lines.changeStatement(Finding::kTypeChanged, typeName);
    const std::string written = writtenType(typeName, *type);
    lines.includeInput(reader.statement);
    Block& block = blockFor(scope, {*type, written, elset, 0, {}, {}}, false);
    IdSet* const set = blockSet(reader, elset);
    std::vector<int> numbers;
    while (lines.nextData()) {
        if (!takeElement(reader, *type, numbers))
            continue;
        addElement(reader, scope, block, numbers[0], numbers.data() + 1);
        if (set != nullptr)
            set->add(kOwnScope, numbers[0], true);
    }
}

void readElementRows(DeckReader& reader) {
    reader.lines.changeStatement(Finding::kElementsGenerated, "ELGEN");
    IdSet* const set = blockSet(reader, reader.statement.name("ELSET"));
    while (reader.lines.nextData()) {
        Master master;
        std::array<Direction, 3> directions;
        int id = 0;
        if (readDirections(reader.lines.line(), id, directions) &&
            findMaster(reader.scope(), id, master))
            generateRows(reader, master, directions, set);
        else
            reader.refuse(Finding::kGenerationInvalid);
    }
}

void readElementCopy(DeckReader& reader) {
    const Statement& statement = reader.statement;
    reader.lines.changeStatement(Finding::kElementsGenerated, "ELCOPY");
    int idShift = 0;
    int nodeShift = 0;
    Scope& scope = reader.scope();
    const FoundSet found =
        findSet(reader.model, scope, kOwnScope, statement.name("OLDSET"), SetKind::kElements);
    if (!readInteger(statement.value("ELEMENTSHIFT"), idShift) ||
        !readInteger(statement.value("SHIFTNODES"), nodeShift) || found.scope != &scope)
        return reader.refuseStatement(Finding::kGenerationInvalid);
    const std::vector<Member> members = membersOf(reader.model, found, SetKind::kElements).list;
    if (!reader.generate(members.size()))
        return;
    const std::string elset = statement.name("NEWSET");
    IdSet* const set = blockSet(reader, elset);
    bool isFirst = true;
    for (const Member& member : members) {
        Master master;
        findMaster(scope, member.id, master);
        master.kind.elset = elset;
        if (statement.has("REFLECT")) {
            const std::vector<int> nodes = master.nodes;
            const auto order = reflectedOrder(master.kind.type);
            for (std::size_t i = 0; i < order.size(); ++i)
                master.nodes[i] = nodes[order[i]];
        }
        Block& block = blockFor(scope, master.kind, !std::exchange(isFirst, false));
        if (!addShifted(reader, block, master, idShift, nodeShift, set))
            return reader.refuseStatement(Finding::kGenerationInvalid);
    }
}

}  // namespace kvocaeio::tidy::abaqus
