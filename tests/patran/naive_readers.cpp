/// Both readers of neutral files once more, as plainly as they can be written.
#include "patran/naive_readers.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace kvocaeio::test {
namespace {

constexpr int kLimit = 225;
constexpr int kSkipLimit = 260;

/// Rows of an array for `count` items and a spare one. No test file has so many items that it could
/// reach a row that is not kept: those all look like the last one kept.
std::size_t rowsKept(int count) {
    return static_cast<std::size_t>(std::clamp(count, -1, 4096) + 1);
}

int shapeCode(int iv) {
    switch (iv) {
        case 2:
        case 3:
        case 4:
        case 5:
        case 7:
        case 8:
            return iv;
        default:
            return 0;
    }
}

}  // namespace

void NaivePatranIO::import(std::string_view bytes) {
    NaiveFile file(bytes);
    NaiveIdMap map(findMaxNodeId(file));
    file.rewind();
    int nodesRead = 0, elementsRead = 0, propertiesRead = 0;
    NaiveHeader card;
    char line[kSkipLimit] = "";
    while (!file.metEnd()) {
        file.gets(line, kLimit);
        if (line[0] == '!')
            continue;
        card.read(line);
        if (card.it == 1) {
            if (nodesRead >= nodeCount_)
                continue;
            map.set(card.id, nodesRead++);
            readNode(file, line);
        } else if (card.it == 2) {
            if (elementsRead >= elementCount_)
                continue;
            ++elementsRead;
            readElement(file, line, card.iv);
        } else if (card.it == 4) {
            if (propertiesRead >= propertyCount_)
                continue;
            ++propertiesRead;
            readProperty(file, line, card);
        } else if (card.it == 25) {
            file.gets(line, kLimit);
        } else if (card.it == 26) {
            nodeCount_ = card.n1;
            elementCount_ = card.n2;
            propertyCount_ = card.n4;
            file.gets(line, kLimit);
        } else if (card.it == 99) {
            break;
        } else {
            skip(file, line, kLimit, card.kc);
        }
    }
    for (std::array<int, 4>& corners : elements_)
        for (int& corner : corners)
            corner = map.at(corner);
}

int NaivePatranIO::findMaxNodeId(NaiveFile& file) {
    int maximum = 0;
    NaiveHeader card;
    char line[kSkipLimit] = "";
    while (!file.metEnd() && card.it != 99) {
        file.gets(line, kLimit);
        if (line[0] == '!')
            continue;
        card.read(line);
        if (card.it == 1 && card.id > maximum)
            maximum = card.id;
        skip(file, line, kSkipLimit, card.kc);
    }
    return maximum;
}

void NaivePatranIO::readNode(NaiveFile& file, char* line) {
    file.gets(line, kLimit);
    nodes_.push_back(coordinates(line));
    file.gets(line, kLimit);
}

void NaivePatranIO::readElement(NaiveFile& file, char* line, int shape) {
    elementShapes_.push_back(shape);
    file.gets(line, kLimit);
    elementPropertyIds_.push_back(propertyIdOf(line));
    file.gets(line, kLimit);
    char fields[4][9] = {};
    std::sscanf(line, "%8c%8c%8c%8c", fields[0], fields[1], fields[2], fields[3]);
    std::array<int, 4> corners{};
    for (std::size_t k = 0; k < 4; ++k)
        std::sscanf(fields[k], "%8d", &corners[k]);
    if (shape == 2)
        corners[2] = corners[3] = corners[1];
    if (shape == 3)
        corners[3] = corners[2];
    elements_.push_back(corners);
}

void NaivePatranIO::readProperty(NaiveFile& file, char* line, NaiveHeader& card) {
    card.readFree(line);
    file.gets(line, kLimit);
    if (card.id < 0 || card.id >= 16777216)
        return;
    const auto id = static_cast<std::size_t>(card.id);
    if (id >= propertyTypes_.size()) {
        propertyTypes_.resize(id + 1);
        propertyValueA_.resize(id + 1);
        propertyValueB_.resize(id + 1);
        propertyValueC_.resize(id + 1);
    }
    float r[9] = {};
    std::sscanf(line, "%16f %16f %16f %16f %16f %16f %16f %16f %16f ", &r[0], &r[1], &r[2], &r[3],
                &r[4], &r[5], &r[6], &r[7], &r[8]);
    if (card.n1 == 2) {
        const float first = std::trunc(r[0]);
        propertyTypes_[id] = first == 2.0F ? 10 : first == 3.0F ? 11 : first == 12.0F ? 12 : 2;
        propertyValueB_[id] = static_cast<double>(r[1]);
        propertyValueC_[id] = static_cast<double>(r[1]);
    } else if (card.n1 == 3 || card.n1 == 4) {
        propertyTypes_[id] = r[1] > 0.0F ? 13 : 3;
        propertyValueA_[id] = static_cast<double>(r[1]);
    }
}

void NaivePatranIO::GetNodeCoordinate(int index, float* x, float* y, float* z) const {
    *x = *y = *z = 0.0F;
    if (index < 0 || index >= GetNodeCount())
        return;
    const std::array<float, 3>& node = nodes_[static_cast<std::size_t>(index)];
    *x = node[0];
    *y = node[1];
    *z = node[2];
}

void NaivePatranIO::GetElementDataBase(int index, int* node1, int* node2, int* node3, int* node4,
                                       int* type, double* valueA, double* valueB,
                                       double* valueC) const {
    *node1 = *node2 = *node3 = *node4 = 0;
    *type = 13;
    *valueA = *valueB = *valueC = 0.0;
    // What the summary counts but the file does not hold is answered like any index too high.
    if (index < 0 || index >= elementCount_ || index >= GetElementCount())
        return;
    const auto i = static_cast<std::size_t>(index);
    *node1 = elements_[i][0];
    *node2 = elements_[i][1];
    *node3 = elements_[i][2];
    *node4 = elements_[i][3];
    *type = elementShapes_[i];
    if (propertyCount_ == 0)
        return;
    *type = 14;
    const int property = elementPropertyIds_[i];
    if (property < 0 || property >= static_cast<int>(propertyTypes_.size()))
        return;
    const auto p = static_cast<std::size_t>(property);
    *type = propertyTypes_[p];
    *valueA = propertyValueA_[p];
    *valueB = propertyValueB_[p];
    *valueC = propertyValueC_[p];
}

void NaivePatranReader::import(std::string_view bytes) {
    nodeCount_ = elemCount_ = propertyCount_ = 0;
    arraysMade_ = false;
    const NaiveFile file(bytes);
    NaiveIdMap map(nodeDimension(file));
    readPackets(file, map);
    if (!arraysMade_ || elemCount_ <= 0)
        return;
    for (std::array<int, 8>& slots : elemNodes_)
        for (int& slot : slots)
            slot = map.at(slot);
}

int NaivePatranReader::nodeDimension(NaiveFile file) {
    int maximum = 0, nodesSeen = 0, limit = 0;
    NaiveHeader card;
    char line[kLimit] = "";
    while (!file.metEnd()) {
        file.gets(line, kLimit);
        if (line[0] == '!')
            continue;
        card.read(line);
        if (card.it == 1) {
            if (nodesSeen >= limit)
                continue;
            maximum = std::max(maximum, card.id);
            skip(file, line, kLimit, 2);
            ++nodesSeen;
        } else if (card.it == 25) {
            file.gets(line, kLimit);
        } else if (card.it == 26) {
            limit = card.n1;
            file.gets(line, kLimit);
        } else if (card.it == 99) {
            return maximum;
        } else {
            skip(file, line, kLimit, card.kc);
        }
    }
    printed_ += "We have reached end-of-file\n";
    return maximum;
}

void NaivePatranReader::readPackets(NaiveFile file, NaiveIdMap& map) {
    int nodesRead = 0, elementsRead = 0, propertiesRead = 0;
    NaiveHeader card;
    char line[kLimit] = "";
    for (;;) {
        if (file.metEnd()) {
            printed_ += "We have reached end-of-file\n";
            return;
        }
        file.gets(line, kLimit);
        if (line[0] == '!')
            continue;
        card.read(line);
        if (card.it < 1 || card.it > 99) {
            skip(file, line, kLimit, card.kc);
        } else if (card.it == 1) {
            if (nodesRead >= nodeCount_)
                continue;
            map.set(card.id, nodesRead);
            file.gets(line, kLimit);
            vertices_[static_cast<std::size_t>(nodesRead++)] = coordinates(line);
            file.gets(line, kLimit);
        } else if (card.it == 2) {
            if (elementsRead >= elemCount_)
                continue;
            const auto e = static_cast<std::size_t>(elementsRead++);
            file.gets(line, kLimit);
            elemTypes_[e] = shapeCode(card.iv);
            elemProperties_[e] = propertyIdOf(line);
            file.gets(line, kLimit);
            char fields[8][9] = {};
            std::sscanf(line, "%8c%8c%8c%8c%8c%8c%8c%8c", fields[0], fields[1], fields[2],
                        fields[3], fields[4], fields[5], fields[6], fields[7]);
            for (std::size_t k = 0; k < 8; ++k)
                std::sscanf(fields[k], "%8d", &elemNodes_[e][k]);
        } else if (card.it == 4) {
            if (propertiesRead >= propertyCount_)
                continue;
            card.readFree(line);
            file.gets(line, kLimit);
            ++propertiesRead;
        } else if (card.it == 25) {
            file.gets(line, kLimit);
        } else if (card.it == 26) {
            card = NaiveHeader();
            card.read(line);
            nodeCount_ = card.n1;
            elemCount_ = card.n2;
            propertyCount_ = card.n4;
            makeArrays();
            file.gets(line, kLimit);
        } else if (card.it == 99) {
            return;
        } else {
            skip(file, line, kLimit, card.kc);
        }
    }
}

void NaivePatranReader::makeArrays() {
    vertices_.assign(rowsKept(nodeCount_), {});
    elemNodes_.assign(rowsKept(elemCount_), {});
    elemTypes_.assign(rowsKept(elemCount_), 0);
    elemProperties_.assign(rowsKept(elemCount_), 0);
    arraysMade_ = true;
}

bool NaivePatranReader::GetNode(int index, float& x, float& y, float& z) const {
    if (index < 0 || index >= nodeCount_)
        return false;
    const std::array<float, 3>& vertex = vertices_[std::min(rowsKept(index), vertices_.size()) - 1];
    x = vertex[0];
    y = vertex[1];
    z = vertex[2];
    return true;
}

bool NaivePatranReader::GetElement(int index, int& type, int& property, int* nodes) const {
    if (index < 0 || index >= elemCount_)
        return false;
    const std::size_t e = std::min(rowsKept(index), elemTypes_.size()) - 1;
    type = elemTypes_[e];
    property = elemProperties_[e];
    std::copy(elemNodes_[e].begin(), elemNodes_[e].end(), nodes);
    return true;
}

void NaivePatranReader::GetVertex(float (*vertices)[3], int count) const {
    for (int i = 0; i < count; ++i)
        if (!GetNode(i, vertices[i][0], vertices[i][1], vertices[i][2]) && isSpare(i, nodeCount_))
            std::fill_n(vertices[i], 3, 0.0F);
}

void NaivePatranReader::GetElemType(int* types, int count) const {
    int property = 0, nodes[8];
    for (int i = 0; i < count; ++i)
        if (!GetElement(i, types[i], property, nodes) && isSpare(i, elemCount_))
            types[i] = 0;
}

void NaivePatranReader::GetElemNode(int (*nodes)[8], int count) const {
    int type = 0, property = 0;
    for (int i = 0; i < count; ++i)
        if (!GetElement(i, type, property, nodes[i]) && isSpare(i, elemCount_))
            std::fill_n(nodes[i], 8, 0);
}

}  // namespace kvocaeio::test
