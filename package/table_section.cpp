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

// A row's id and its packed colour: "%d %d %d %d %d", the last one dropped. The values are neither
// masked nor tested, so that one above 255 runs into the next byte.
bool scanRow(text::Scan scan, int& id, unsigned& color) {
    int first = 0, second = 0, third = 0, dropped = 0;
    if (!(scan.integer(id) && scan.integer(first) && scan.integer(second) && scan.integer(third) &&
          scan.integer(dropped)))
        return false;
    color = static_cast<unsigned>(third) << 16 | static_cast<unsigned>(second) << 8 |
            static_cast<unsigned>(first);
    return true;
}

// A row's id and its one to five words, joined with a blank each and in upper case.
bool scanRow(text::Scan scan, int& id, std::string& entry) {
    constexpr int kMaxWords = 5;
    std::string_view word;
    if (!scan.integer(id) || !scan.word(word))
        return false;
    entry = word;
    for (int words = 1; words < kMaxWords && scan.word(word); ++words)
        (entry += ' ') += word;
    text::foldToUpper(entry, entry);
    return true;
}

template <class Entry>
void readTable(text::PassLines& lines, const Word& name, IdTable<Entry>& table) {
    static constexpr Word kTable("TABLE");
    bool inside = false;
    int maxId = 0;
    std::size_t rows = 0;
    while (inside ? lines.next() : lines.nextWith(kTable)) {
        text::Scan scan(lines.line());
        std::string_view word;
        int id = 0;
        Entry entry{};
        if (!inside) {
            inside = scan.word(word) && scan.word(word) && name.isMatchedBy(word);
            if (inside) {
                table.clear();
                rows = 0;
            }
        } else if (kTable.isHeldBy(lines.line())) {
            inside = false;  // never opens another table at once
        } else if (!scanRow(scan, id, entry)) {
            if (maxId == 0)
                continue;
            lines.note(Finding::kTableLeft);
            break;
        } else if (id < 0 || id >= kTableCapacity) {
            scan.word(word);
            lines.note(Finding::kIdOutOfRange, word);
        } else {
            table.set(id, std::move(entry));
            maxId = std::max(maxId, id);
            ++rows;
        }
    }
    table.resize(std::max(static_cast<std::size_t>(maxId), rows) + 1);
}

}  // namespace

bool readColorTable(InputFile& file, const text::Listener& listener, IdTable<unsigned>& colors) {
    return passOver(file, listener,
                    [&](text::PassLines& lines) { readTable(lines, Word("COLOR"), colors); });
}

bool readNameTable(InputFile& file, const text::Listener& listener, std::string_view name,
                   IdTable<std::string>& entries) {
    return passOver(file, listener,
                    [&](text::PassLines& lines) { readTable(lines, Word(name), entries); });
}

int findEntry(const IdTable<std::string>& entries, std::string_view key) {
    for (const auto& [id, entry] : entries.rows())
        if (std::ranges::equal(entry, key, {}, text::toUpper, text::toUpper))
            return id;
    return -1;
}

}  // namespace kvocaeio::package
