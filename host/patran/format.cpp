/// Patran neutral files: how they are told from other files, and how they are read.
#include "patran/format.h"

#include <algorithm>
#include <array>
#include <map>

#include "patran/arrays.h"
#include "patran/report.h"
#include "patran/solids.h"
#include "timed.h"
#include <kvocaeio/patran.h>

namespace kvocaeio::host {

namespace {

constexpr std::array<std::string_view, 4> kExtensions = {".pat", ".neu", ".ntl", ".out"};

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

PatranView viewOf(CPatranReader& reader) {
    PatranView view;
    view.nodes = reader.GetNodeCout();
    view.elements = reader.GetElemCount();
    for (int i = 0; i < view.nodes; ++i)
        view.box.add(nodeAt(reader, i).data());
    std::map<int, std::size_t> shapes;
    for (int i = 0; i < view.elements; ++i)
        ++shapes[elementAt(reader, i).shape];
    for (const auto& [shape, elements] : shapes)
        count(view.kinds, shapeOf(shape).name, elements);
    return view;
}

std::unique_ptr<FileReport> read(const std::string& path, PrintTarget progress) {
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

const Format kPatranFormat = {"Patran neutral file", kExtensions, recognises, read,
                              takePatranSolids};

}  // namespace kvocaeio::host
