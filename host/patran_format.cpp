/// Patran neutral files: how they are told from other files, and how they are read.
#include <algorithm>
#include <array>
#include <map>

#include "file_head.h"
#include "format.h"
#include "patran_views.h"
#include "solid_mesh.h"
#include "timed.h"
#include <kvocaeio/patran.h>

namespace kvocaeio::host {

namespace {

constexpr std::array<std::string_view, 4> kExtensions = {".pat", ".neu", ".ntl", ".out"};

// Shape codes of the format, with the corners that `CPatranReader` gives of them.
struct Shape {
    int code;
    int corners;
    bool solid;
    std::string_view name;
};
constexpr std::array<Shape, 6> kShapes = {{
    {2, 2, false, "bars"},
    {3, 3, false, "triangles"},
    {4, 4, false, "quadrilaterals"},
    {5, 4, true, "tetrahedra"},
    {7, 6, true, "wedges"},
    {8, 8, true, "hexahedra"},
}};
constexpr Shape kOtherShape = {0, 0, false, "of another shape"};

const Shape& shapeOf(int code) {
    const auto* shape = std::find_if(kShapes.begin(), kShapes.end(),
                                     [&](const Shape& known) { return known.code == code; });
    return shape != kShapes.end() ? *shape : kOtherShape;
}

/// A file begins with the header card of its title or summary: "25" or "26" and numbers in columns
/// of eight.
bool recognises(std::string_view head) {
    while (head.starts_with('!'))
        head.remove_prefix(std::min(head.find('\n'), head.size() - 1) + 1);
    const std::string_view card = head.substr(0, head.find('\n'));
    const bool titleOrSummary = card.starts_with("25") || card.starts_with("26");
    return titleOrSummary && card.size() >= 26 &&
           card.find_first_not_of(" -0123456789\r", 2) == std::string_view::npos;
}

PatranView viewOf(CKVO_PatranIO_Bridge& reader) {
    PatranView view;
    view.nodes = reader.GetNodeCount();
    view.elements = reader.GetElementCount();
    for (int i = 0; i < view.nodes; ++i) {
        std::array<float, 3> place{};
        reader.GetNodeCoordinate(i, &place[0], &place[1], &place[2]);
        view.box.add(place.data());
    }
    std::map<int, std::size_t> types;
    for (int i = 0; i < view.elements; ++i) {
        std::array<int, 4> nodes{};
        std::array<double, 3> values{};
        int type = 0;
        reader.GetElementDataBase(i, &nodes[0], &nodes[1], &nodes[2], &nodes[3], &type, &values[0],
                                  &values[1], &values[2]);
        ++types[type];
    }
    // With properties these are property types, without them shapes: the reader does not say.
    for (const auto& [type, elements] : types)
        count(view.kinds, "of type " + std::to_string(type), elements);
    return view;
}

struct ArrayElement {
    int shape = 0;
    int property = 0;
    std::array<int, 8> nodes{};
};

PatranView viewOf(CPatranReader& reader) {
    PatranView view;
    view.nodes = reader.GetNodeCout();
    view.elements = reader.GetElemCount();
    for (int i = 0; i < view.nodes; ++i) {
        std::array<float, 3> place{};
        reader.GetNode(i, place[0], place[1], place[2]);
        view.box.add(place.data());
    }
    ArrayElement element;
    std::map<int, std::size_t> shapes;
    for (int i = 0; i < view.elements; ++i) {
        reader.GetElement(i, element.shape, element.property, element.nodes.data());
        ++shapes[element.shape];
    }
    for (const auto& [shape, elements] : shapes)
        count(view.kinds, shapeOf(shape).name, elements);
    return view;
}

void import(CPatranReader& reader, const std::string& path) {
    if (!reader.ImportFromPatFile(path.c_str()))
        throw FileError("cannot be imported: there is not enough memory for what it announces");
}

std::unique_ptr<Report> read(const std::string& path, PrintTarget progress) {
    auto report = std::make_unique<PatranReport>();
    {
        CKVO_PatranIO_Bridge reader;
        bool imported = false;
        report->bridgeSeconds =
            timed(progress, [&] { imported = reader.ImportFromPatFile(path.c_str()); });
        if (!imported)
            throw FileError("cannot be imported: there is not enough memory");
        report->bridge = viewOf(reader);
    }
    CPatranReader reader;
    report->arraysSeconds = timed(progress, [&] { import(reader, path); });
    report->arrays = viewOf(reader);
    report->properties = reader.GetPropertyCount();
    return report;
}

}  // namespace

SolidMesh takePatranSolids(const std::string& path, PrintTarget progress) {
    CPatranReader reader;
    timed(progress, [&] { import(reader, path); });
    SolidMesh mesh;
    mesh.nodes.resize(static_cast<std::size_t>(std::max(0, reader.GetNodeCout())));
    int row = 0;
    for (std::array<double, 3>& node : mesh.nodes) {
        std::array<float, 3> place{};
        reader.GetNode(row++, place[0], place[1], place[2]);
        std::copy(place.begin(), place.end(), node.begin());
    }
    std::map<int, std::size_t> sections;  // by property id
    KindCounts others;
    for (int i = 0; i < reader.GetElemCount(); ++i) {
        ArrayElement element;
        reader.GetElement(i, element.shape, element.property, element.nodes.data());
        const Shape& shape = shapeOf(element.shape);
        if (!shape.solid) {
            count(others, shape.name);
            continue;
        }
        const auto [section, isNew] = sections.emplace(element.property, sections.size());
        if (isNew)
            mesh.sections.push_back("property " + std::to_string(element.property));
        mesh.elements.push_back({section->second, shape.corners, element.nodes});
    }
    for (const auto& [name, number] : others)
        note(mesh.losses, number, name);
    return mesh;
}

const Format kPatranFormat = {"Patran neutral file", kExtensions, recognises, read,
                              takePatranSolids};

}  // namespace kvocaeio::host
