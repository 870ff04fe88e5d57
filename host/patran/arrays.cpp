/// What `CPatranReader` returns, taken over.
#include "patran/arrays.h"

#include <algorithm>

#include "file_report.h"
#include <kvocaeio/patran.h>
#include <kvocaeio/report.h>

namespace kvocaeio::host {

namespace {

constexpr std::array<Shape, 6> kShapes = {{
    {2, 2, false, "bars"},
    {3, 3, false, "triangles"},
    {4, 4, false, "quadrilaterals"},
    {5, 4, true, "tetrahedra"},
    {7, 6, true, "wedges"},
    {8, 8, true, "hexahedra"},
}};
constexpr Shape kOtherShape = {0, 0, false, "of another shape"};

}  // namespace

const Shape& shapeOf(int code) {
    const auto* shape = std::find_if(kShapes.begin(), kShapes.end(),
                                     [&](const Shape& known) { return known.code == code; });
    return shape != kShapes.end() ? *shape : kOtherShape;
}

void import(CPatranReader& reader, const std::string& path, ImportFindings& imported) {
    CKVOImportReport report;
    const bool isImported = reader.ImportFromPatFile(path.c_str(), &report);
    imported.take(report, isImported);
    if (!isImported)
        throw FileError("cannot be imported: there is not enough memory for what it announces",
                        "out-of-memory");
}

ArrayElement elementAt(CPatranReader& reader, int index) {
    ArrayElement element;
    reader.GetElement(index, element.shape, element.property, element.nodes.data());
    return element;
}

std::array<float, 3> nodeAt(CPatranReader& reader, int index) {
    std::array<float, 3> place{};
    reader.GetNode(index, place[0], place[1], place[2]);
    return place;
}

}  // namespace kvocaeio::host
