/// The least that any reader of 3DI files must do.
#include "bench/floors.h"

namespace kvocaeio::bench {

namespace {

class PackageFloor {
  public:
    explicit PackageFloor(std::size_t fileSize) : numbers_(fileSize) {}

    void read(const char* position, const char* end) {
        for (; position != end; ++position) {
            if (*position == '\n')
                ++lines_;
            else if (*position != ' ')
                position = word(position, end);
        }
    }

    FloorCounts counts() const { return numbers_.counts(lines_); }

  private:
    // Gives the word's last character.
    const char* word(const char* position, const char* end) {
        if ((*position >= '0' && *position <= '9') || *position == '-')
            position = numbers_.real(position, end);
        while (*position != ' ' && *position != '\n')
            ++position;
        return position - 1;
    }

    NumberArrays numbers_;
    std::size_t lines_ = 0;
};

}  // namespace

FloorCounts packageReadFloor(std::FILE* file, std::size_t fileSize) {
    return readBlocks<PackageFloor>(file, fileSize);
}

}  // namespace kvocaeio::bench
