/// Cards of neutral files, and what either reader gives of a file, as plain data.
#include "patran/neutral_file.h"

#include <cmath>
#include <cstdio>
#include <cstring>

#include "support/captured_output.h"
#include "support/files.h"

namespace kvocaeio::test {
namespace {

template <class Real>
bool same(Real a, Real b) {
    if (std::isnan(a) && std::isnan(b))
        return std::signbit(a) == std::signbit(b);
    return std::memcmp(&a, &b, sizeof a) == 0;
}

template <class Array>
std::ostream& writeNodes(std::ostream& out, const Array& nodes) {
    out << " [";
    for (const int n : nodes)
        out << ' ' << n;
    return out << " ]";
}

}  // namespace

std::string header(int it, int id, int iv, int kc, int n1, int n2, int n3, int n4, int n5) {
    char card[128];
    std::snprintf(card, sizeof card, "%2d%8d%8d%8d%8d%8d%8d%8d%8d\n", it, id, iv, kc, n1, n2, n3,
                  n4, n5);
    return card;
}

std::string summary(int nodes, int elements, int properties) {
    return header(26, 0, 0, 1, nodes, elements, 1, properties, 1) + "date and time\n";
}

std::string integers(const std::vector<int>& values) {
    std::string card;
    for (const int value : values) {
        char field[16];
        std::snprintf(field, sizeof field, "%8d", value);
        card += field;
    }
    return card + "\n";
}

std::string reals(const std::vector<double>& values) {
    std::string card;
    for (const double value : values) {
        char field[32];
        std::snprintf(field, sizeof field, "%16.8g", value);
        card += field;
    }
    return card + "\n";
}

std::string node(int id, double x, double y, double z) {
    return header(1, id, 0, 2) + reals({x, y, z}) + "1G       6       0       0  000000\n";
}

std::string tenNodes() {
    std::string file;
    for (int id = 1; id <= 10; ++id)
        file += node(id, id, 0, 0);
    return file;
}

std::string element(int id, int shape, int property, const std::vector<int>& nodes) {
    return header(2, id, shape, 2) + integers({static_cast<int>(nodes.size()), 0, property}) +
           integers(nodes);
}

std::string property(int id, int n1, const std::vector<double>& values) {
    return header(4, id, 0, 1, n1) + reals(values);
}

std::string endOfFile() {
    return header(99, 0, 0, 1) + "\n";
}

std::string lengthened(const std::string& card, std::size_t length) {
    std::string text = card.substr(0, card.find('\n'));
    text.resize(length, ' ');
    return text + "\n";
}

std::string withCrLf(const std::string& text) {
    std::string out;
    for (const char c : text) {
        if (c == '\n')
            out += '\r';
        out += c;
    }
    return out;
}

bool Point::operator==(const Point& other) const {
    return same(x, other.x) && same(y, other.y) && same(z, other.z);
}

std::ostream& operator<<(std::ostream& out, const Point& point) {
    return out << '(' << point.x << ' ' << point.y << ' ' << point.z << ')';
}

bool ElementData::operator==(const ElementData& other) const {
    return nodes == other.nodes && type == other.type && same(valueA, other.valueA) &&
           same(valueB, other.valueB) && same(valueC, other.valueC);
}

std::ostream& operator<<(std::ostream& out, const ElementData& element) {
    out << "type " << element.type << " values " << element.valueA << ' ' << element.valueB << ' '
        << element.valueC;
    return writeNodes(out, element.nodes);
}

std::ostream& operator<<(std::ostream& out, const FlatElement& element) {
    return writeNodes(out << "type " << element.type << " property " << element.property,
                      element.nodes);
}

BridgeMesh::BridgeMesh(std::string_view file) {
    TempFolder folder;
    const std::string path = folder.write("mesh.pat", file);
    CKVO_PatranIO_Bridge reader;
    CapturedOutput output;
    result = reader.ImportFromPatFile(path.c_str());
    printed = output.text();
    nodes = nodesOf(reader);
    elements = elementsOf(reader);
    behindLast = elementOf(reader, reader.GetElementCount());
}

std::vector<std::array<int, 4>> BridgeMesh::corners() const {
    std::vector<std::array<int, 4>> all;
    for (const ElementData& element : elements)
        all.push_back(element.nodes);
    return all;
}

std::vector<int> BridgeMesh::types() const {
    std::vector<int> all;
    for (const ElementData& element : elements)
        all.push_back(element.type);
    return all;
}

FlatMesh::FlatMesh(std::string_view file) {
    TempFolder folder;
    const std::string path = folder.write("mesh.pat", file);
    CPatranReader reader;
    CapturedOutput output;
    result = reader.ImportFromPatFile(path.c_str());
    printed = output.text();
    nodeCount = reader.GetNodeCout();
    elemCount = reader.GetElemCount();
    propertyCount = reader.GetPropertyCount();
    nodes = flatNodesOf(reader);
    elements = flatElementsOf(reader);
}

std::vector<std::array<int, 8>> FlatMesh::slots() const {
    std::vector<std::array<int, 8>> all;
    for (const FlatElement& element : elements)
        all.push_back(element.nodes);
    return all;
}

std::vector<int> FlatMesh::types() const {
    std::vector<int> all;
    for (const FlatElement& element : elements)
        all.push_back(element.type);
    return all;
}

std::vector<int> FlatMesh::properties() const {
    std::vector<int> all;
    for (const FlatElement& element : elements)
        all.push_back(element.property);
    return all;
}

}  // namespace kvocaeio::test
