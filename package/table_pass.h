/// The passes over a 3DI file that read its tables: colours, objects, layers.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "package/id_table.h"
#include "package/pass_lines.h"
#include "text/ascii.h"

namespace kvocaeio {

/// A row's id and its packed colour: "%d %d %d %d %d", the last one dropped. The values are neither
/// masked nor tested, so that one above 255 runs into the next byte.
inline bool scanTableRow(std::string_view line, int& id, unsigned& color) {
    text::Scan scan(line);
    int first = 0, second = 0, third = 0, dropped = 0;
    if (!(scan.integer(id) && scan.integer(first) && scan.integer(second) && scan.integer(third) &&
          scan.integer(dropped)))
        return false;
    color = static_cast<unsigned>(third) << 16 | static_cast<unsigned>(second) << 8 |
            static_cast<unsigned>(first);
    return true;
}

/// A row's id and its one to five words, joined with a blank each and in upper case.
inline bool scanTableRow(std::string_view line, int& id, std::string& entry) {
    constexpr int kMaxWords = 5;
    text::Scan scan(line);
    std::string_view word;
    if (!scan.integer(id) || !scan.word(word))
        return false;
    entry = word;
    for (int words = 1; words < kMaxWords && scan.word(word); ++words)
        (entry += ' ') += word;
    text::foldToUpper(entry, entry);
    return true;
}

enum class TableState {
    kOutside,  // seeking the table
    kInside,   // reading its rows
};

/// Reads the table whose second word stands for `name`. A later table of that name replaces the
/// rows of an earlier one, but not the largest id, which still counts for the size.
template <class Entry, class Observer>
void readTable(PassLines<Observer>& lines, const Word& name, IdTable<Entry>& table) {
    static constexpr Word kTable("TABLE");
    TableState state = TableState::kOutside;
    int maxId = 0;
    std::size_t rows = 0;
    bool goesOn = true;
    while (goesOn && (state == TableState::kOutside ? lines.nextHolding(kTable) : lines.next())) {
        switch (state) {
            case TableState::kOutside: {
                text::Scan scan(lines.line());
                std::string_view word;
                if (scan.word(word) && scan.word(word) && name.isMatchedBy(word)) {
                    table.clear();
                    rows = 0;
                    state = TableState::kInside;
                }
                break;
            }
            case TableState::kInside: {
                int id = 0;
                Entry entry{};
                if (kTable.isHeldBy(lines.line())) {  // never opens another table at once
                    state = TableState::kOutside;
                } else if (!scanTableRow(lines.line(), id, entry)) {
                    goesOn = maxId == 0;
                    if (!goesOn)
                        lines.note(text::Finding::kEndedEarly, "a line is no row of its table");
                } else if (id < 0 || id >= kTableCapacity) {
                    lines.note(text::Finding::kPassedOver, "no table has a row of this id");
                } else {
                    table.set(id, std::move(entry));
                    maxId = std::max(maxId, id);
                    ++rows;
                }
                break;
            }
        }
    }
    table.resize(std::max(static_cast<std::size_t>(maxId), rows) + 1);
}

}  // namespace kvocaeio
