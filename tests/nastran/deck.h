/// A small deck, read by the library, and its rows.
#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "support/files.h"
#include <kvocaeio/nastran.h>

namespace kvocaeio::test {

using NodeRow = std::array<float, 4>;
using ElementRow = std::array<int, 9>;
using SectionRowOfThree = std::array<int, 3>;

/// A deck that is read as it is made.
struct ReadDeck {
    explicit ReadDeck(std::string_view content)
        : result(reader.SetFilePath(folder.write("deck.nas", content).c_str())) {}

    NodeRow node(int oid) { return row<NodeRow>(reader.GetNodeVector(), oid); }
    ElementRow element(int oid) { return row<ElementRow>(reader.GetElemVector(), oid); }
    /// Sections are counted from 1 here.
    SectionRowOfThree section(int number) {
        return row<SectionRowOfThree>(reader.GetSectionVector(), number);
    }

    TempFolder folder;
    KVONASTRAN_Reader reader;
    bool result;

  private:
    template <class Row>
    static Row row(const typename Row::value_type* vector, int number) {
        Row values{};
        const std::size_t first = (static_cast<std::size_t>(number) - 1) * values.size();
        std::copy_n(vector + first, values.size(), values.begin());
        return values;
    }
};

// What a deck needs to be read at all, with the numbers of rows that nothing else uses.
inline const std::string kGrid = "GRID           1       0      0.      0.      0.\n";
inline const std::string kTetra = "CTETRA         1       1       1       1       1       1\n";

constexpr NodeRow kNoNode{0, 0, 0, 0};
constexpr ElementRow kNoElement{0, 0, 0, 0, 0, 0, 0, 0, 0};

}  // namespace kvocaeio::test
