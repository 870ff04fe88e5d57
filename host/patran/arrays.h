/// A Patran neutral file as `CPatranReader` returns it, for the report and for the solids.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "import_findings.h"

class CPatranReader;

namespace kvocaeio::host {

/// A shape code of the format, with the corners that the reader returns of it.
struct Shape {
    int code;
    int corners;
    bool solid;
    std::string_view name;
};

const Shape& shapeOf(int code);

struct ArrayElement {
    int shape = 0;
    int property = 0;
    std::array<int, 8> nodes{};
};

/// Adds to `imported` what the library reports. Throws `FileError` where there is not enough
/// memory.
void import(CPatranReader& reader, const std::string& path, ImportFindings& imported);

ArrayElement elementAt(CPatranReader& reader, int index);
std::array<float, 3> nodeAt(CPatranReader& reader, int index);

}  // namespace kvocaeio::host
