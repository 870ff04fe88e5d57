/// The library's readers beside the plain ones.
#include "patran/import_comparison.h"

#include <algorithm>
#include <climits>
#include <filesystem>
#include <sstream>

#include "patran/naive_readers.h"
#include "patran/neutral_file.h"
#include "support/captured_output.h"

namespace kvocaeio::test {
namespace {

// Counts may be huge, files are small.
constexpr int kIndexesSeen = 200;

std::vector<int> indexesAround(int count) {
    std::vector<int> indexes = {INT_MIN, -1, INT_MAX};
    for (int i = 0; i < std::min(count, kIndexesSeen); ++i)
        indexes.push_back(i);
    for (const int i : {count - 1, count, count + 1, count + 2})
        indexes.push_back(i);
    return indexes;
}

struct BridgeView {
    int nodeCount, elementCount;
    std::vector<Point> nodes;
    std::vector<ElementData> elements;
    bool operator==(const BridgeView&) const = default;
};

struct FlatView {
    int nodeCount, elemCount, propertyCount;
    std::vector<bool> found;
    std::vector<Point> nodes, vertices;
    std::vector<FlatElement> elements;
    std::vector<int> types;
    std::vector<std::array<int, 8>> slots;
    bool operator==(const FlatView&) const = default;
};

template <class Reader>
BridgeView viewOfBridge(Reader& reader) {
    BridgeView view{reader.GetNodeCount(), reader.GetElementCount(), {}, {}};
    for (const int i : indexesAround(view.nodeCount))
        view.nodes.push_back(nodeOf(reader, i));
    for (const int i : indexesAround(view.elementCount))
        view.elements.push_back(elementOf(reader, i));
    return view;
}

template <class Reader>
FlatView viewOfFlat(Reader& reader) {
    FlatView view{reader.GetNodeCout(),
                  reader.GetElemCount(),
                  reader.GetPropertyCount(),
                  {},
                  {},
                  {},
                  {},
                  {},
                  {}};
    for (const int i : indexesAround(view.nodeCount)) {
        Point p{-7, -7, -7};
        view.found.push_back(reader.GetNode(i, p.x, p.y, p.z));
        view.nodes.push_back(p);
    }
    for (const int i : indexesAround(view.elemCount)) {
        FlatElement e{-7, -7, {-7, -7, -7, -7, -7, -7, -7, -7}};
        view.found.push_back(reader.GetElement(i, e.type, e.property, e.nodes.data()));
        view.elements.push_back(e);
    }
    // More rows than there are.
    const int vertices = std::clamp(view.nodeCount, -1, kIndexesSeen) + 3;
    view.vertices.assign(static_cast<std::size_t>(vertices), {-7, -7, -7});
    reader.GetVertex(reinterpret_cast<float(*)[3]>(view.vertices.data()), vertices);
    const int elements = std::clamp(view.elemCount, -1, kIndexesSeen) + 3;
    view.types.assign(static_cast<std::size_t>(elements), -7);
    reader.GetElemType(view.types.data(), elements);
    view.slots.assign(static_cast<std::size_t>(elements), {-7, -7, -7, -7, -7, -7, -7, -7});
    reader.GetElemNode(reinterpret_cast<int(*)[8]>(view.slots.data()), elements);
    return view;
}

template <class Items>
void list(std::ostream& out, const char* name, const Items& items) {
    out << name << '\n';
    for (const auto& item : items)
        out << "  " << item << '\n';
}

std::ostream& operator<<(std::ostream& out, const BridgeView& view) {
    out << view.nodeCount << " nodes, " << view.elementCount << " elements\n";
    list(out, "nodes", view.nodes);
    list(out, "elements", view.elements);
    return out;
}

std::ostream& operator<<(std::ostream& out, const FlatView& view) {
    out << view.nodeCount << " nodes, " << view.elemCount << " elements, " << view.propertyCount
        << " properties\n";
    list(out, "found", view.found);
    list(out, "nodes", view.nodes);
    list(out, "vertices", view.vertices);
    list(out, "elements", view.elements);
    list(out, "types", view.types);
    return out;
}

template <class View>
std::string comparedViews(const char* reader, const View& library, const View& naive) {
    if (library == naive)
        return "";
    std::ostringstream out;
    out << reader << " gives\n" << library << "where the plain one gives\n" << naive;
    return out.str();
}

/// How many findings there are but those of what the readers are known to use in different ways.
long long lossesIn(CKVOImportReport& report) {
    long long losses = report.GetSeverityCount(CKVOImportReport::kWarning) +
                       report.GetSeverityCount(CKVOImportReport::kError);
    for (const char* code :
         {"mesh.coordinate-not-finite", "mesh.node-repeated", "mesh.volume-not-positive",
          "patran.fewer-properties", "patran.nodes-dropped", "patran.node-id-zero",
          "patran.property-header-differs", "patran.property-id-outside", "patran.property-missing",
          "patran.property-repeated", "patran.value-unreadable", "patran.coordinate-missing",
          "patran.number-torn", "patran.number-unreadable", "patran.end-missing"})
        losses -= report.GetCodeCount(code);
    return losses;
}

/// Whether both readers hand out the same nodes and corners.
bool isSameMesh(CKVO_PatranIO_Bridge& bridge, CPatranReader& flat) {
    if (nodesOf(bridge) != flatNodesOf(flat))
        return false;
    const std::vector<ElementData> lists = elementsOf(bridge);
    const std::vector<FlatElement> arrays = flatElementsOf(flat);
    return std::ranges::equal(lists, arrays, [](const ElementData& a, const FlatElement& b) {
        const std::ptrdiff_t corners = b.type == 2 || b.type == 3 ? b.type : 4;
        return std::equal(a.nodes.begin(), a.nodes.begin() + corners, b.nodes.begin());
    });
}

std::string withFiles(const std::string& difference, const NamedCase& tested) {
    std::string text = tested.name + ": " + difference;
    for (const std::string& file : tested.files)
        text += "\n--- file\n" + file + "\n---";
    return text;
}

}  // namespace

std::string ImportComparison::firstDifference(const std::vector<NamedCase>& cases) {
    std::string difference;
    CapturedOutput output;
    const std::string expected = printedBy(cases, difference);
    const std::string printed = output.text();
    if (!difference.empty() || printed == expected)
        return difference;
    if (cases.size() == 1)
        return withFiles("printed is\n" + printed + "instead of\n" + expected, cases[0]);
    for (const NamedCase& tested : cases)
        if (std::string alone = firstDifference({tested}); !alone.empty())
            return alone;
    return "printed differs in the cases together only";
}

std::string ImportComparison::printedBy(const std::vector<NamedCase>& cases,
                                        std::string& difference) {
    std::string expected;
    for (const NamedCase& tested : cases) {
        CKVO_PatranIO_Bridge bridge;
        NaivePatranIO naiveBridge;
        CPatranReader flat;
        NaivePatranReader naiveFlat;
        bool imported = true;
        CKVOImportReport* const report = ++caseNumber_ % 2 == 0 ? &report_ : nullptr;
        long long losses = report == nullptr || tested.files.size() > 1 ? 1 : 0;
        for (const std::string& file : tested.files) {
            const std::string path = folder_.write("mesh.pat", file);
            imported = bridge.ImportFromPatFile(path.c_str(), report) && imported;
            losses += lossesIn(report_);
            imported = flat.ImportFromPatFile(path.c_str(), report) && imported;
            losses += lossesIn(report_);
            // Writing over a file takes far longer than writing a new one.
            std::filesystem::remove(path);
            naiveBridge.import(file);
            naiveFlat.import(file);
        }
        expected += naiveFlat.printed();
        std::string differs = imported ? "" : "an import failed\n";
        differs += comparedViews("the bridge", viewOfBridge(bridge), viewOfBridge(naiveBridge));
        differs += comparedViews("the flat reader", viewOfFlat(flat), viewOfFlat(naiveFlat));
        if (losses == 0) {
            ++withoutLoss_;
            differs += isSameMesh(bridge, flat) ? "" : "no report tells where the readers differ\n";
        }
        if (!differs.empty() && difference.empty())
            difference = withFiles(differs, tested);
    }
    return expected;
}

}  // namespace kvocaeio::test
