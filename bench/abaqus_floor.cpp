/// The least that any reader of Abaqus decks, and any normalisation of one, must do.
#include <algorithm>
#include <memory>
#include <string_view>

#include "bench/floors.h"

namespace kvocaeio::bench {

namespace {

enum class DataKind { kNone, kNode, kIntegers, kLoad };

struct DataSection {
    std::string_view keyword;
    DataKind kind;
};

constexpr DataSection kDataSections[] = {
    {"*NODE", DataKind::kNode},      {"*ELEMENT", DataKind::kIntegers},
    {"*ELSET", DataKind::kIntegers}, {"*SURFACE", DataKind::kIntegers},
    {"*DLOAD", DataKind::kLoad},
};

DataKind dataBehind(std::string_view keywordLine) {
    const std::string_view keyword = keywordLine.substr(0, keywordLine.find_first_of(",\r\n"));
    for (const DataSection& section : kDataSections)
        if (section.keyword == keyword)
            return section.kind;
    return DataKind::kNone;
}

// Gives the end of what it writes. (The section is a copy, since a reference might lead to what is
// written, as far as the compiler can tell.)
int* copySection(const CKVOAbaqusReader::ElemSecData section, const int* rows, int* out) {
    const int corners = section.nodesPerElem == 10 ? 4 : section.nodesPerElem;
    const int width = section.geometryType == 2 ? 8 : 4;
    const int* nodes = section.nodes;
    for (int elem = 0; elem < section.elemNum; ++elem, nodes += section.nodesPerElem) {
        int last = 0;
        for (int corner = 0; corner < corners; ++corner)
            *out++ = last = rows[nodes[corner]];
        for (int corner = corners; corner < width; ++corner)
            *out++ = last;
    }
    return out;
}

class AbaqusFloor {
  public:
    explicit AbaqusFloor(std::size_t fileSize) : numbers_(fileSize) {}

    void read(const char* position, const char* end) {
        while (position != end) {
            ++lines_;
            if (*position == '*') {
                const char* const next = behindLine(position, end);
                if (position[1] != '*')
                    kind_ = dataBehind({position, static_cast<std::size_t>(next - position)});
                position = next;
            } else {
                position = dataLine(position, end);
            }
        }
    }

    FloorCounts counts() const { return numbers_.counts(lines_); }

  private:
    const char* dataLine(const char* position, const char* end) {
        switch (kind_) {
            case DataKind::kNode:
                position = numbers_.integer(position, end);
                for (int axis = 0; axis < 3; ++axis)
                    position = numbers_.real(position + 1, end);
                break;
            case DataKind::kIntegers:
                return integers(position, end);
            case DataKind::kLoad:
                position = numbers_.integer(position, end) + 1;
                while (*position != ',' && *position != '\n')
                    ++position;
                if (*position == ',')
                    position = numbers_.real(position + 1, end);
                break;
            case DataKind::kNone:
                break;
        }
        return behindLine(position, end);
    }

    // All fields that start with a digit; the others are names and face labels.
    const char* integers(const char* position, const char* end) {
        for (;;) {
            while (*position == ' ' || *position == ',')
                ++position;
            if (*position == '\n')
                return position + 1;
            if (*position >= '0' && *position <= '9')
                position = numbers_.integer(position, end);
            else
                while (*position != ',' && *position != '\n')
                    ++position;
        }
    }

    NumberArrays numbers_;
    std::size_t lines_ = 0;
    DataKind kind_ = DataKind::kNone;
};

}  // namespace

FloorCounts abaqusReadFloor(std::FILE* file, std::size_t fileSize) {
    return readBlocks<AbaqusFloor>(file, fileSize);
}

FloorCounts abaqusSortFloor(const RawTables& tables) {
    FloorCounts counts;
    counts.lines = tables.nodeOids.size();
    const int largest = *std::max_element(tables.nodeOids.begin(), tables.nodeOids.end());
    std::vector<int> rows(static_cast<std::size_t>(largest) + 1);
    for (std::size_t row = 0; row < tables.nodeOids.size(); ++row)
        rows[static_cast<std::size_t>(tables.nodeOids[row])] = static_cast<int>(row);
    for (const auto& section : tables.sections)
        counts.integers +=
            static_cast<std::size_t>(section.elemNum) * (section.geometryType == 2 ? 8 : 4);
    const auto sorted = std::make_unique_for_overwrite<int[]>(counts.integers);
    int* out = sorted.get();
    for (const auto& section : tables.sections)
        out = copySection(section, rows.data(), out);
    return counts;
}

}  // namespace kvocaeio::bench
