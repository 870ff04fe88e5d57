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
        for (const std::string& file : tested.files) {
            const std::string path = folder_.write("mesh.pat", file);
            imported = bridge.ImportFromPatFile(path.c_str()) && imported;
            imported = flat.ImportFromPatFile(path.c_str()) && imported;
            // Writing over a file takes far longer than writing a new one.
            std::filesystem::remove(path);
            naiveBridge.import(file);
            naiveFlat.import(file);
        }
        expected += naiveFlat.printed();
        std::string differs = imported ? "" : "an import failed\n";
        differs += comparedViews("the bridge", viewOfBridge(bridge), viewOfBridge(naiveBridge));
        differs += comparedViews("the flat reader", viewOfFlat(flat), viewOfFlat(naiveFlat));
        if (!differs.empty() && difference.empty())
            difference = withFiles(differs, tested);
    }
    return expected;
}

}  // namespace kvocaeio::test
