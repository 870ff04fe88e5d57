/// The passes over a 3DI file that read its tables: colours, objects, layers.
#include "package/table_section.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "package/lines.h"
#include "text/ascii.h"
#include "text/scan.h"

namespace kvocaeio::package {

namespace {

constexpr Word kTable("TABLE");
constexpr std::string_view kColorTable = "COLOR";

// A row's id and its packed colour: "%d %d %d %d %d", the last one dropped. The values are neither
// masked nor tested, so that one above 255 runs into the next byte.
bool scanRow(text::PassLines& lines, int& id, unsigned& color) {
    text::Scan scan(lines.line());
    int first = 0, second = 0, third = 0, dropped = 0;
    if (!(scan.integer(id) && scan.integer(first) && scan.integer(second) && scan.integer(third) &&
          scan.integer(dropped)))
        return false;
    if (((first | second | third) & ~0xFF) != 0)
        lines.note(Finding::kColorValue);
    color = static_cast<unsigned>(third) << 16 | static_cast<unsigned>(second) << 8 |
            static_cast<unsigned>(first);
    return true;
}

// A row's id and its one to five words, joined with a blank each and in upper case.
bool scanRow(text::PassLines& lines, int& id, std::string& entry) {
    constexpr int kMaxWords = 5;
    text::Scan scan(lines.line());
    std::string_view word;
    if (!scan.integer(id) || !scan.word(word))
        return false;
    entry = word;
    for (int words = 1; words < kMaxWords && scan.word(word); ++words)
        (entry += ' ') += word;
    if (scan.word(word))
        lines.note(Finding::kWordsDropped, word);
    text::foldToUpper(entry, entry);
    return true;
}

std::string_view firstWord(std::string_view line) {
    text::Scan scan(line);
    std::string_view word;
    return scan.word(word) ? word : std::string_view();
}

// The second word of a line, for which the first one may be anything.
std::string_view secondWord(std::string_view line) {
    text::Scan scan(line);
    std::string_view word;
    return scan.word(word) && scan.word(word) ? word : std::string_view();
}

// Every pass over a table meets tables of unknown kinds: that of the colours tells.
void noteUnknownTable(text::PassLines& lines, std::string_view passName) {
    const std::string_view name = secondWord(lines.line());
    if (passName != kColorTable || name.empty() || !beginsWith(lines.line(), "TABLE"))
        return;
    for (const std::string_view known : {kColorTable, std::string_view("OBJECT"),
                                         std::string_view("LAYER"), std::string_view("END")})
        if (Word(known).isMatchedBy(name))
            return;
    lines.noteNamed(Finding::kTableUnknown, name);
}

// A line that ends the table since it holds the word.
void noteTableEnd(text::PassLines& lines, std::string_view name) {
    if (!beginsWith(lines.line(), "TABLE"))
        lines.note(Finding::kTableEnded);
    else if (Word(name).isMatchedBy(secondWord(lines.line())) && !secondWord(lines.line()).empty())
        lines.note(Finding::kTableNotOpened);
    else
        noteUnknownTable(lines, name);
}

void noteSkippedRow(text::PassLines& lines) {
    if (beginsWithInteger(lines.line()))
        lines.note(Finding::kRowIncomplete);
    else if (!firstWord(lines.line()).empty())
        lines.note(Finding::kRowSkipped);
}

// A line that ends the reading for good does harm only where it is a row itself, or where rows or
// a further table follow: the pass goes on to see that, though it stores nothing more.
void noteTableLeft(text::PassLines& lines, std::string_view name) {
    const text::LinePlace place = lines.place();
    const std::string line(lines.line());
    bool isHarm = beginsWithInteger(line);
    bool isNear = true;
    while (!isHarm && isNear && lines.next()) {
        isHarm = beginsWithInteger(lines.line());
        isNear = firstWord(lines.line()).empty();
    }
    lines.giveBack();
    while (!isHarm && lines.nextWith(kTable))
        isHarm = beginsWith(lines.line(), "TABLE") && !secondWord(lines.line()).empty() &&
                 Word(name).isMatchedBy(secondWord(lines.line()));
    if (isHarm)
        lines.noteAt(Finding::kTableLeft, {place.line, 0}, line);
}

// False where no table of the name was there.
template <class Entry>
bool readTable(text::PassLines& lines, std::string_view name, IdTable<Entry>& table) {
    bool inside = false;
    bool wasFound = false;
    int maxId = 0;
    std::size_t rows = 0;
    while (inside ? lines.next() : lines.nextWith(kTable)) {
        int id = 0;
        Entry entry{};
        if (!inside) {
            const std::string_view word = secondWord(lines.line());
            inside = !word.empty() && Word(name).isMatchedBy(word);
            if (inside) {
                noteWordInLine(lines, "TABLE");
                if (!table.rows().empty() && wasFound)
                    lines.note(Finding::kTableReplaced);
                wasFound = true;
                table.clear();
                rows = 0;
            } else if (lines.areNoted()) {
                noteUnknownTable(lines, name);
            }
        } else if (kTable.isHeldBy(lines.line())) {
            inside = false;  // never opens another table at once
            if (lines.areNoted())
                noteTableEnd(lines, name);
        } else if (!scanRow(lines, id, entry)) {
            if (maxId != 0) {
                if (lines.areNoted())
                    noteTableLeft(lines, name);
                break;
            }
            if (lines.areNoted())
                noteSkippedRow(lines);
        } else if (id < 0 || id >= kTableCapacity) {
            lines.note(Finding::kIdOutOfRange, firstWord(lines.line()));
        } else {
            if (!table.set(id, std::move(entry)))
                lines.note(Finding::kIdRepeated, firstWord(lines.line()));
            maxId = std::max(maxId, id);
            ++rows;
        }
    }
    table.resize(std::max(static_cast<std::size_t>(maxId), rows) + 1);
    return wasFound;
}

template <class Entry>
bool readNamedTable(InputFile& file, const text::Listener& listener, std::string_view name,
                    IdTable<Entry>& table) {
    return passOver(file, listener, [&](text::PassLines& lines) {
        if (!readTable(lines, name, table))
            listener.note(Finding::kTableMissing, {}, name);
    });
}

}  // namespace

bool readColorTable(InputFile& file, const text::Listener& listener, IdTable<unsigned>& colors) {
    return readNamedTable(file, listener, kColorTable, colors);
}

bool readNameTable(InputFile& file, const text::Listener& listener, std::string_view name,
                   IdTable<std::string>& entries) {
    return readNamedTable(file, listener, name, entries);
}

int findEntry(const IdTable<std::string>& entries, std::string_view key) {
    for (const auto& [id, entry] : entries.rows())
        if (std::ranges::equal(entry, key, {}, text::toUpper, text::toUpper))
            return id;
    return -1;
}

}  // namespace kvocaeio::package
