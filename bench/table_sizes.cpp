/// How much memory the tables of a model need by themselves.
#include "bench/table_sizes.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kvocaeio::bench {

namespace {

template <class Entry>
std::size_t bytes(const std::vector<Entry>& table) {
    return table.size() * sizeof(Entry);
}

// A text too long to lie inside its string object has memory of its own.
std::size_t bytesOutside(const std::string& text) {
    static const std::size_t inside = std::string().capacity();
    return text.size() > inside ? text.size() + 1 : 0;
}

std::size_t bytes(const std::vector<std::string>& table) {
    std::size_t sum = table.size() * sizeof(std::string);
    for (const std::string& text : table)
        sum += bytesOutside(text);
    return sum;
}

template <class Entry>
std::size_t bytes(const package::ChunkedList<Entry>& list) {
    return list.size() * sizeof(Entry);
}

template <class Value>
std::size_t bytes(const abaqus::OidMap<Value>& map) {
    return map.size() * sizeof(Value);
}

std::size_t bytes(const abaqus::ElemSection& section) {
    return bytes(section.ids) + bytes(section.nodes);
}

}  // namespace

std::size_t rawTableBytes(const abaqus::AbaqusModel& model) {
    std::size_t sum = bytes(model.nodeOidMap) + bytes(model.elemOidMap) +
                      bytes(model.nodeBlock.ids) + bytes(model.nodeBlock.coords);
    for (const abaqus::ElemSection& section : model.elemSections)
        sum += bytes(section);
    for (const abaqus::SurfaceSection& surface : model.surfaces)
        sum += bytes(surface.items) + bytes(surface.faces);
    for (const abaqus::DloadSection& load : model.dloads)
        sum += bytes(load.elemIDs) + bytes(load.faceIdx) + bytes(load.values);
    for (const abaqus::ElsetSection& set : model.elsets)
        sum += bytes(set.members);
    return sum;
}

std::size_t sortedTableBytes(const abaqus::AbaqusModel& model) {
    std::size_t sum = bytes(model.dloadFaces) + bytes(model.surfaceFaces);
    std::size_t largest = 0;
    for (const auto* sections : {&model.solidSections, &model.shellElemSections})
        for (const abaqus::ElemSection& section : *sections) {
            sum += bytes(section);
            largest = std::max(largest, bytes(section));
        }
    for (const abaqus::ElemList& elements : model.elsetElems)
        sum += bytes(elements);
    return sum + largest;
}

std::size_t packageBytes(const package::Model& model) {
    std::size_t sum = bytes(model.wirePoints) + bytes(model.wireFirstPoint) +
                      bytes(model.wireProfile) + bytes(model.wireDiameter) +
                      bytes(model.wireColorId) + bytes(*model.wireProfileNames);
    for (std::size_t i = 0; i < model.components->size(); ++i)
        sum += sizeof(package::ComponentShape) + model.components->name(i).size() + 1;
    return sum;
}

}  // namespace kvocaeio::bench
