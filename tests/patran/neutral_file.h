/// Cards of neutral files, and what either reader gives of a file, as plain data.
#pragma once

#include <array>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <kvocaeio/patran.h>

namespace kvocaeio::test {

/// A header card with its line end: "%2d%8d%8d%8d%8d%8d%8d%8d%8d".
std::string header(int it, int id, int iv, int kc, int n1 = 0, int n2 = 0, int n3 = 0, int n4 = 0,
                   int n5 = 0);
/// Packet 26 with its data card.
std::string summary(int nodes, int elements, int properties = 0);
/// A data card of eight columns per number.
std::string integers(const std::vector<int>& values);
/// A data card of sixteen columns per number.
std::string reals(const std::vector<double>& values);
/// Packet 1 with its two data cards.
std::string node(int id, double x, double y, double z);
/// Nodes of the ids 1 ... 10, at (id, 0, 0).
std::string tenNodes();
/// Packet 2 with its two data cards.
std::string element(int id, int shape, int property, const std::vector<int>& nodes);
/// Packet 4 with its data card.
std::string property(int id, int n1, const std::vector<double>& values);
/// Packet 99.
std::string endOfFile();

/// `card` filled with blanks behind its text, so that it has `length` bytes and a line feed then.
std::string lengthened(const std::string& card, std::size_t length);
/// `text` with CR LF for every LF.
std::string withCrLf(const std::string& text);

struct Point {
    float x, y, z;
    /// Bit for bit, except that all NaNs of one sign are the same.
    bool operator==(const Point& other) const;
};
std::ostream& operator<<(std::ostream& out, const Point& point);

/// What `GetElementDataBase` gives.
struct ElementData {
    std::array<int, 4> nodes;
    int type;
    double valueA, valueB, valueC;
    bool operator==(const ElementData& other) const;
};
std::ostream& operator<<(std::ostream& out, const ElementData& element);

/// What `CPatranReader::GetElement` gives.
struct FlatElement {
    int type;
    int property;
    std::array<int, 8> nodes;
    bool operator==(const FlatElement&) const = default;
};
std::ostream& operator<<(std::ostream& out, const FlatElement& element);

// The functions below take the library's classes and the plain ones of the same member names.

template <class Reader>
Point nodeOf(Reader& reader, int index) {
    Point point{-7, -7, -7};
    reader.GetNodeCoordinate(index, &point.x, &point.y, &point.z);
    return point;
}

template <class Reader>
ElementData elementOf(Reader& reader, int index) {
    ElementData e{{-7, -7, -7, -7}, -7, -7, -7, -7};
    reader.GetElementDataBase(index, &e.nodes[0], &e.nodes[1], &e.nodes[2], &e.nodes[3], &e.type,
                              &e.valueA, &e.valueB, &e.valueC);
    return e;
}

template <class Reader>
std::vector<Point> nodesOf(Reader& reader) {
    std::vector<Point> nodes;
    for (int i = 0; i < reader.GetNodeCount(); ++i)
        nodes.push_back(nodeOf(reader, i));
    return nodes;
}

template <class Reader>
std::vector<ElementData> elementsOf(Reader& reader) {
    std::vector<ElementData> elements;
    for (int i = 0; i < reader.GetElementCount(); ++i)
        elements.push_back(elementOf(reader, i));
    return elements;
}

/// Nodes by index up to the first index that is refused.
template <class Reader>
std::vector<Point> flatNodesOf(Reader& reader) {
    std::vector<Point> nodes;
    for (Point p{}; reader.GetNode(static_cast<int>(nodes.size()), p.x, p.y, p.z);)
        nodes.push_back(p);
    return nodes;
}

/// Elements by index up to the first index that is refused.
template <class Reader>
std::vector<FlatElement> flatElementsOf(Reader& reader) {
    std::vector<FlatElement> elements;
    for (FlatElement e{};
         reader.GetElement(static_cast<int>(elements.size()), e.type, e.property, e.nodes.data());)
        elements.push_back(e);
    return elements;
}

/// A file read by `CKVO_PatranIO_Bridge`.
struct BridgeMesh {
    explicit BridgeMesh(std::string_view file);

    bool result;
    std::vector<Point> nodes;
    std::vector<ElementData> elements;
    ElementData behindLast;  ///< what the index behind the last element gives
    std::string printed;

    std::vector<std::array<int, 4>> corners() const;
    std::vector<int> types() const;
};

/// A file read by `CPatranReader`.
struct FlatMesh {
    explicit FlatMesh(std::string_view file);

    bool result;
    int nodeCount, elemCount, propertyCount;
    std::vector<Point> nodes;
    std::vector<FlatElement> elements;
    std::string printed;

    std::vector<std::array<int, 8>> slots() const;
    std::vector<int> types() const;
    std::vector<int> properties() const;
};

/// What the flat reader prints where one or both of its passes meet the end of the file.
constexpr const char* kMetEnd = "We have reached end-of-file\n";
constexpr const char* kMetEndTwice = "We have reached end-of-file\nWe have reached end-of-file\n";

}  // namespace kvocaeio::test
