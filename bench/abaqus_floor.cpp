/// The least that any reader of Abaqus decks, and any normalisation of one, must do.
#include "bench/abaqus_floor.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <memory>
#include <string_view>

namespace kvocaeio::bench {

namespace {

// Reads a file in blocks that end with a line.
class LineBlocks {
  public:
    explicit LineBlocks(std::FILE* file) : file_(file), buffer_(kBlockSize + 1) {
        std::setvbuf(file, nullptr, _IONBF, 0);
    }

    // Takes the next block; every line in it has its LF, also a file's last one. False at the end.
    bool next(const char*& first, const char*& last) {
        std::memmove(buffer_.data(), buffer_.data() + taken_, size_ - taken_);
        size_ -= taken_;
        for (;;) {
            const std::size_t count =
                std::fread(buffer_.data() + size_, 1, buffer_.size() - 1 - size_, file_);
            const bool atEnd = count == 0;
            size_ += count;
            if (atEnd && size_ > 0 && buffer_[size_ - 1] != '\n')
                buffer_[size_++] = '\n';
            const std::size_t lineFeed = std::string_view(buffer_.data(), size_).rfind('\n');
            taken_ = lineFeed + 1;
            if (lineFeed != std::string_view::npos)
                break;
            if (atEnd)
                return false;
            buffer_.resize(2 * buffer_.size());
        }
        first = buffer_.data();
        last = first + taken_;
        return true;
    }

  private:
    static constexpr std::size_t kBlockSize = std::size_t{1} << 22;
    std::FILE* file_;
    std::vector<char> buffer_;
    std::size_t size_ = 0;
    std::size_t taken_ = 0;
};

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

template <class Number>
const char* convert(const char* position, const char* end, Number*& out) {
    while (*position == ' ')
        ++position;
    return std::from_chars(position, end, *out++).ptr;
}

const char* behindLine(const char* position, const char* end) {
    const auto size = static_cast<std::size_t>(end - position);
    return static_cast<const char*>(std::memchr(position, '\n', size)) + 1;
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
    // A number takes two bytes of the file at least; pages of the arrays come as they are filled.
    explicit AbaqusFloor(std::size_t fileSize)
        : integers_(std::make_unique_for_overwrite<int[]>(fileSize / 2 + 1)),
          reals_(std::make_unique_for_overwrite<double[]>(fileSize / 2 + 1)),
          integer_(integers_.get()),
          real_(reals_.get()) {}

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

    FloorCounts counts() const {
        return {lines_, static_cast<std::size_t>(integer_ - integers_.get()),
                static_cast<std::size_t>(real_ - reals_.get())};
    }

  private:
    const char* dataLine(const char* position, const char* end) {
        switch (kind_) {
            case DataKind::kNode:
                position = convert(position, end, integer_);
                for (int axis = 0; axis < 3; ++axis)
                    position = convert(position + 1, end, real_);
                break;
            case DataKind::kIntegers:
                return integers(position, end);
            case DataKind::kLoad:
                position = convert(position, end, integer_) + 1;
                while (*position != ',' && *position != '\n')
                    ++position;
                if (*position == ',')
                    position = convert(position + 1, end, real_);
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
                position = std::from_chars(position, end, *integer_++).ptr;
            else
                while (*position != ',' && *position != '\n')
                    ++position;
        }
    }

    std::unique_ptr<int[]> integers_;
    std::unique_ptr<double[]> reals_;
    int* integer_;
    double* real_;
    std::size_t lines_ = 0;
    DataKind kind_ = DataKind::kNone;
};

}  // namespace

FloorCounts readAbaqusDeck(std::FILE* file, std::size_t fileSize) {
    AbaqusFloor floor(fileSize);
    LineBlocks blocks(file);
    for (const char *first, *last; blocks.next(first, last);)
        floor.read(first, last);
    return floor.counts();
}

FloorCounts sortAbaqusTables(const RawTables& tables) {
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
