/// Patran neutral files: how they are told from other files, and how they are read.
#include "patran/format.h"

#include <algorithm>
#include <array>
#include <map>
#include <new>
#include <vector>

#include "mesh_checks.h"
#include "patran/arrays.h"
#include "patran/mesh.h"
#include "patran/report.h"
#include "patran/solids.h"
#include "timed.h"
#include <kvocaeio/patran.h>
#include <kvocaeio/report.h>

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

std::size_t rows(int number) {
    return static_cast<std::size_t>(std::max(0, number));
}

PatranView viewOf(CKVO_PatranIO_Bridge& reader, double seconds) {
    PatranView view;
    view.seconds = seconds;
    view.nodes = rows(reader.GetNodeCount());
    view.elements = rows(reader.GetElementCount());
    for (int i = 0; i < reader.GetNodeCount(); ++i) {
        std::array<float, 3> place{};
        reader.GetNodeCoordinate(i, &place[0], &place[1], &place[2]);
        view.box.add(place.data());
    }
    return view;
}

std::vector<int> typesOf(CKVO_PatranIO_Bridge& reader) {
    std::vector<int> types(rows(reader.GetElementCount()));
    int index = 0;
    for (int& type : types) {
        std::array<int, 4> nodes{};
        std::array<double, 3> values{};
        reader.GetElementDataBase(index++, &nodes[0], &nodes[1], &nodes[2], &nodes[3], &type,
                                  &values[0], &values[1], &values[2]);
    }
    return types;
}

PatranView viewOf(CPatranReader& reader, double seconds) {
    PatranView view;
    view.seconds = seconds;
    view.nodes = rows(reader.GetNodeCout());
    view.elements = rows(reader.GetElemCount());
    for (int i = 0; i < reader.GetNodeCout(); ++i)
        view.box.add(nodeAt(reader, i).data());
    return view;
}

/// Counts the shapes, of all elements and by those types of theirs that are known.
void countKinds(CPatranReader& reader, const std::vector<int>& types, PatranReport& report) {
    using Pair = std::pair<int, int>;  // shape, type
    std::map<Pair, std::size_t> pairs;
    std::map<int, std::size_t> shapes;
    for (int i = 0; i < reader.GetElemCount(); ++i) {
        const int shape = elementAt(reader, i).shape;
        ++shapes[shape];
        if (rows(i) < types.size())
            ++pairs[{shape, types[rows(i)]}];
    }
    for (const auto& [shape, elements] : shapes)
        count(report.kinds, shapeOf(shape).name, elements);
    for (const auto& [pair, elements] : pairs)
        count(report.types[pair.second], shapeOf(pair.first).name, elements);
}

std::unique_ptr<FileReport> read(const std::string& path, PrintTarget progress) {
    auto report = std::make_unique<PatranReport>();
    std::vector<int> types;
    {
        CKVO_PatranIO_Bridge reader;
        CKVOImportReport findings;
        bool imported = false;
        const double seconds =
            timed(progress, [&] { imported = reader.ImportFromPatFile(path.c_str(), &findings); });
        report->imported.take(findings, imported);
        if (!imported)
            throw std::bad_alloc();
        report->bridge = viewOf(reader, seconds);
        types = typesOf(reader);
    }
    CPatranReader reader;
    const double seconds = timed(progress, [&] { import(reader, path, report->imported); });
    report->arrays = viewOf(reader, seconds);
    requireMesh(std::max(report->bridge.nodes, report->arrays.nodes), 0, "a Patran neutral file");
    countKinds(reader, types, *report);
    report->properties = reader.GetPropertyCount();
    report->warnOfNonFinite(report->arrays.box.nonFinite, "nodes");
    const ImportFindings& found = report->imported;
    const bool hasNoEnd = found.countOf("patran.end-missing") +
                              found.countOf("patran.last-line-repeated") +
                              found.countOf("patran.card-missing") !=
                          0;
    report->warn("no-end", hasNoEnd ? 1 : 0,
                 "no packet 99 at the end: the file may have been cut off");
    return report;
}

ImportFindings check(const std::string& path, PrintTarget progress, CKVOImportReport& report) {
    ImportFindings findings;
    const auto checkWith = [&](auto&& reader) {
        bool isImported = false;
        timed(progress, [&] { isImported = reader.ImportFromPatFile(path.c_str(), &report); });
        findings.take(report, isImported);
    };
    checkWith(CKVO_PatranIO_Bridge());
    checkWith(CPatranReader());
    return findings;
}

}  // namespace

const Format kPatranFormat = {
    .name = "Patran neutral file",
    .code = "patran",
    .extensions = kExtensions,
    .recognises = recognises,
    .read = read,
    .check = check,
    .takeSolids = takePatranSolids,
    .takeMesh = takePatranMesh,
};

}  // namespace kvocaeio::host
