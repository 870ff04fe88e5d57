/// Lines and cards of neutral files as the C library reads them.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "text/naive_input.h"

namespace kvocaeio::test {

/// A file's bytes behind the C library's text mode, as the home system has it, read like a stream.
class NaiveFile {
  public:
    explicit NaiveFile(std::string_view bytes) : text_(asText(bytes)) {}

    /// `fgets`: takes at most `limit` - 1 bytes; leaves `line` as it is where nothing is left.
    void gets(char* line, int limit);
    /// `feof`: whether a read has met the end.
    bool metEnd() const { return metEnd_; }
    void rewind();

  private:
    std::string text_;
    std::size_t position_ = 0;
    bool metEnd_ = false;
};

struct NaiveHeader {
    int it = 0, id = 0, iv = 0, kc = 0, n1 = 0, n2 = 0, n3 = 0, n4 = 0, n5 = 0;

    /// The fixed columns; a number whose field holds none keeps its value.
    void read(const char* line);
    /// "%d %d %d %d %d %d %d %d %d "
    void readFree(const char* line);
};

/// Reads `count` lines and drops them.
void skip(NaiveFile& file, char* line, int limit, int count);
/// "%16c%16c%16c", each field through `atof`.
std::array<float, 3> coordinates(const char* line);
/// "%8c%8c%8c", the third field with "%8d"; 0 where it holds no number.
int propertyIdOf(const char* line);

}  // namespace kvocaeio::test
