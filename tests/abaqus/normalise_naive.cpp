/// The plain second implementation of the normalisation.
#include "abaqus/normalise_naive.h"

#include <algorithm>
#include <cstdlib>
#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace kvocaeio::test {
namespace {

std::string text(int value) {
    return std::to_string(value);
}
std::string text(std::size_t value) {
    return std::to_string(value);
}

/// Positions of the nodes of a face in an element of `width` nodes; empty where there is no such
/// face.
std::vector<int> facePositions(int width, int number) {
    std::vector<std::vector<int>> faces;
    if (width == 4 || width == 10)
        faces = {{0, 2, 1, 1}, {0, 1, 3, 3}, {1, 2, 3, 3}, {0, 3, 2, 2}};
    if (width == 6 || width == 15)
        faces = {{0, 2, 1, 1}, {3, 4, 5, 5}, {0, 1, 4, 3}, {1, 2, 5, 4}, {2, 0, 3, 5}};
    if (width == 8 || width == 20)
        faces = {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4},
                 {1, 2, 6, 5}, {2, 3, 7, 6}, {0, 4, 7, 3}};
    if (number < 1 || number > static_cast<int>(faces.size()))
        return {};
    return faces[static_cast<std::size_t>(number - 1)];
}

}  // namespace

NaiveNormalisation::NaiveNormalisation(const RawModel& rawModel) : raw(rawModel) {
    if (raw.nodes.empty() || raw.blocks.empty())
        return;
    maxNode = 0;
    maxElement = 0;
    for (std::size_t row = 0; row < raw.nodes.size(); ++row) {
        const int oid = raw.nodes[row].oid;
        if (oid < 0)
            continue;
        maxNode = std::max(maxNode, oid);
        rowOfNode[oid] = static_cast<int>(row);
    }
    for (std::size_t block = 0; block < raw.blocks.size(); ++block)
        for (std::size_t row = 0; row < raw.blocks[block].elements.size(); ++row) {
            const int oid = raw.blocks[block].elements[row].oid;
            if (oid < 0)
                continue;
            maxElement = std::max(maxElement, oid);
            placeOfElement[oid] = {static_cast<int>(block), static_cast<int>(row)};
        }
}

std::optional<int> NaiveNormalisation::nodeRow(int oid) const {
    if (oid < 0 || oid > maxNode)
        return {};
    return rowOfNode.count(oid) != 0 ? rowOfNode.at(oid) : 0;
}

std::optional<std::pair<int, int>> NaiveNormalisation::elementPlace(int oid) const {
    if (oid < 0 || oid > maxElement)
        return {};
    return placeOfElement.count(oid) != 0 ? placeOfElement.at(oid) : std::pair<int, int>{0, 0};
}

int NaiveNormalisation::newId(int oid) const {
    return nodeRow(oid).value_or(0);
}

std::optional<NaiveNormalisation::Face> NaiveNormalisation::face(int elementOid, int number) const {
    const auto place = elementPlace(elementOid);
    if (!place)
        return {};
    const Section& block = raw.blocks[static_cast<std::size_t>(place->first)];
    const std::vector<int> positions = facePositions(block.width, number);
    if (positions.empty() || static_cast<std::size_t>(place->second) >= block.elements.size())
        return {};
    const std::vector<int>& nodes = block.elements[static_cast<std::size_t>(place->second)].nodes;
    Face found{};
    for (std::size_t i = 0; i < 4; ++i)
        found[i] = nodes[static_cast<std::size_t>(positions[i])];
    return found;
}

void NaiveNormalisation::sort() {
    printed.clear();
    if (raw.nodes.empty() || raw.blocks.empty())
        return;
    expandSets();
    copySections();
    merge(solids);
    merge(shells);
    split();
    addLoadFaces();
    addSurfaceFaces();
}

void NaiveNormalisation::expandSets() {
    for (std::size_t position = 0; position < raw.sets.size(); ++position) {
        const RawModel::Set& set = raw.sets[position];
        std::vector<int> list;
        if (set.generated)
            for (long long id = set.start; id <= set.end; id += set.step)
                list.push_back(static_cast<int>(id));
        else
            for (const std::string& member : set.members)
                list.push_back(std::atoi(member.c_str()));
        if (setIndex.count(set.name) == 0) {
            setIndex[set.name] = position;
            setElements.push_back(list);
        } else if (setIndex[set.name] < setElements.size()) {
            std::vector<int>& known = setElements[setIndex[set.name]];
            known.insert(known.end(), list.begin(), list.end());
            ++reached["set continued"];
        } else {
            ++reached["set members dropped"];
        }
    }
}

void NaiveNormalisation::copySections() {
    solids.clear();
    shells.clear();
    printed += "elem sec num = " + text(raw.blocks.size()) + "\n";
    for (std::size_t s = 0; s < raw.blocks.size(); ++s) {
        Section section = raw.blocks[s];
        printed += "sec " + text(s) + " , geom type = " + text(section.geometry) + "\n";
        if (section.geometry == 2) {
            printed += "element node num = " + text(section.width) + "\n";
            const std::map<int, int> corners{{10, 4}, {15, 6}, {20, 8}};
            if (corners.count(section.width) != 0 && !section.elements.empty()) {
                section.width = corners.at(section.width);
                ++reached["reduced"];
            }
        }
        for (RawModel::Element& element : section.elements) {
            element.nodes.resize(static_cast<std::size_t>(section.width));
            for (int& node : element.nodes)
                node = newId(node);
        }
        if (section.geometry == 2)
            solids.push_back(section);
        if (section.geometry == 1)
            shells.push_back(section);
    }
}

void NaiveNormalisation::merge(std::vector<Section>& sections) {
    std::map<std::string, std::vector<Section>> groups;
    for (const Section& section : sections)
        groups[section.elset].push_back(section);
    if (groups.size() == sections.size())
        return;
    ++reached["merged"];
    sections.clear();
    for (const auto& [name, group] : groups) {
        if (group.size() == 1) {
            sections.push_back(group[0]);
            continue;
        }
        const bool solid = group[0].geometry == 2;
        const std::size_t width = solid ? 8 : 4;
        Section merged{name, solid ? "C3D8" : "S4", group[0].geometry, static_cast<int>(width), {}};
        for (const Section& section : group)
            for (RawModel::Element element : section.elements) {
                while (element.nodes.size() < width)
                    element.nodes.push_back(element.nodes.back());
                merged.elements.push_back(element);
            }
        printed += "Elset name = " + name + " , num = " + text(group.size()) + "\n";
        printed += "Total Element num = " + text(merged.elements.size()) +
                   " , Total node num = " + text(merged.elements.size() * width) + "\n";
        sections.push_back(merged);
    }
}

void NaiveNormalisation::split() {
    if (solids.size() != 1 && shells.size() != 1)
        return;
    std::vector<RawModel::Set> generated;
    for (const RawModel::Set& set : raw.sets)
        if (set.generated)
            generated.push_back(set);
    if (generated.empty())
        return;
    std::vector<Section>& list = solids.size() == 1 ? solids : shells;
    ++reached[solids.size() == 1 ? "solids split" : "shells split"];
    const Section source = list[0];
    std::map<int, std::size_t> rowOf;
    for (std::size_t row = 0; row < source.elements.size(); ++row)
        if (source.elements[row].oid >= 0)
            rowOf[source.elements[row].oid] = row;
    for (const RawModel::Set& set : generated)
        printed += "generate found\n  start ID = " + text(set.start) +
                   " , End ID = " + text(set.end) + "\n";
    std::vector<Section> made;
    for (std::size_t k = 0; k < generated.size(); ++k) {
        const RawModel::Set& set = generated[k];
        const int count = set.end - set.start + 1;
        if (count < 0) {
            ++reached["negative count"];
            throw std::length_error("vector<T> too long");
        }
        const RawModel::Element blank{0, std::vector<int>(static_cast<std::size_t>(source.width))};
        Section section{raw.sets[k].name, "", source.geometry, source.width, {}};
        section.elements.assign(static_cast<std::size_t>(count), blank);
        std::size_t m = 0;
        for (int id = set.start; id <= set.end && !source.elements.empty(); id += set.step)
            section.elements[m++] = source.elements[rowOf.count(id) != 0 ? rowOf[id] : 0];
        made.push_back(section);
    }
    list = made;
}

void NaiveNormalisation::addFaces(std::vector<Face>& faces, const std::string& name) {
    if (faces.empty())
        return;
    Section section{name, "S4", 1, 4, {}};
    for (Face& tuple : faces) {
        for (int& node : tuple)
            node = newId(node);
        const int id = static_cast<int>(section.elements.size());
        section.elements.push_back({id, {tuple.begin(), tuple.end()}});
    }
    shells.push_back(section);
    ++reached[name];
}

void NaiveNormalisation::addLoadFaces() {
    for (const RawModel::LoadLine& line : raw.loadLines) {
        const std::string& label = line.label;
        if (label.size() != 2 || label[0] != 'P' || label[1] < '1' || label[1] > '6')
            continue;
        if (const auto found = face(line.oid, label[1] - '0'))
            loadFaces.push_back(*found);
    }
    addFaces(loadFaces, "Dload_Shell");
}

void NaiveNormalisation::addSurfaceFaces() {
    for (const RawModel::SurfaceLine& line : raw.surfaceLines) {
        if (setIndex.count(line.item) == 0 || setIndex[line.item] >= setElements.size())
            continue;
        const char digit = line.label.size() > 1 ? line.label[1] : '0';
        const int number = digit >= '0' && digit <= '9' ? digit - '0' : 0;
        for (const int oid : setElements[setIndex[line.item]])
            if (const auto found = face(oid, number))
                surfaceFaces.push_back(*found);
    }
    addFaces(surfaceFaces, "Surface_Shell");
}

std::string NaiveNormalisation::log() const {
    std::ostringstream out;
    logRawTables(out);
    logSections(out, "Solid", solids);
    logSections(out, "Shell", shells);
    out << "-------- Elset Data--------\n";
    int counter = 0;
    for (const auto& [name, index] : setIndex) {
        out << "------- Elset Section " << counter++ << " --------\n"
            << "Elset name = " << name << ", len = " << name.size() << "\n";
        if (index < setElements.size())
            for (const int oid : setElements[index])
                out << "  Elem id = " << oid << "\n";
    }
    out << "-------- Dload Data--------\nFace Elem Num = " << loadFaces.size() << "\n";
    for (const Face& f : loadFaces)
        out << "Added face : (" << f[0] << ", " << f[1] << ", " << f[2] << ", " << f[3] << ")\n";
    return out.str();
}

void NaiveNormalisation::logRawTables(std::ostream& out) const {
    out << "--------------- Node ID Map-----------------\n";
    for (const RawModel::Node& node : raw.nodes)
        out << "Old ID = " << node.oid << " , New ID = " << newId(node.oid) << "\n";
    out << "--------------- Element ID Map-----------------\n";
    for (const Section& block : raw.blocks)
        for (const RawModel::Element& element : block.elements) {
            const auto place = elementPlace(element.oid).value_or(std::pair<int, int>{0, 0});
            out << "Old ID = " << element.oid << " , MapData = (" << place.first << ", "
                << place.second << ")\n";
        }
    out << "-------- Node Data--------\n" << std::fixed << std::setprecision(6);
    for (std::size_t row = 0; row < raw.nodes.size(); ++row) {
        const std::array<double, 3>& coord = raw.nodes[row].coord;
        out << "New ID = " << row << " , Old ID = " << raw.nodes[row].oid << " , (" << coord[0]
            << ", " << coord[1] << ", " << coord[2] << ")\n";
    }
}

void NaiveNormalisation::logSections(std::ostream& out, const std::string& word,
                                     const std::vector<Section>& sections) {
    out << "-------- " << word << " Element Data--------\n";
    for (std::size_t s = 0; s < sections.size(); ++s) {
        const Section& section = sections[s];
        out << "------- " << word << " Element Section " << s << " --------\n"
            << "Type = " << section.type << ", Elset = " << section.elset
            << ", Element Node Num = " << section.width << "\n";
        for (std::size_t row = 0; row < section.elements.size(); ++row) {
            out << "New ID = " << row << " , Old ID = " << section.elements[row].oid << " ,";
            for (const int node : section.elements[row].nodes)
                out << " " << node;
            out << "\n";
        }
    }
}

}  // namespace kvocaeio::test
