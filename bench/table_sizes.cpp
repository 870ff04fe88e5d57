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

// Texts too long to lie inside their string objects have memory of their own.
std::size_t bytes(const std::vector<std::string>& table) {
    static const std::size_t inside = std::string().capacity();
    std::size_t sum = table.size() * sizeof(std::string);
    for (const std::string& text : table)
        if (text.size() > inside)
            sum += text.size() + 1;
    return sum;
}

template <class Value>
std::size_t bytes(const OidMap<Value>& map) {
    return map.size() * sizeof(Value);
}

std::size_t bytes(const ElemSection& section) {
    return bytes(section.ids) + bytes(section.nodes);
}

}  // namespace

std::size_t rawTableBytes(const AbaqusModel& model) {
    std::size_t sum = bytes(model.nodeOidMap) + bytes(model.elemOidMap) +
                      bytes(model.nodeBlock.ids) + bytes(model.nodeBlock.coords);
    for (const ElemSection& section : model.elemSections)
        sum += bytes(section);
    for (const SurfaceSection& surface : model.surfaces)
        sum += bytes(surface.items) + bytes(surface.faces);
    for (const DloadSection& load : model.dloads)
        sum += bytes(load.elemIDs) + bytes(load.faceIdx) + bytes(load.values);
    for (const ElsetSection& set : model.elsets)
        sum += bytes(set.members);
    return sum;
}

std::size_t sortedTableBytes(const AbaqusModel& model) {
    std::size_t sum = bytes(model.dloadFaces) + bytes(model.surfaceFaces);
    std::size_t largest = 0;
    for (const auto* sections : {&model.solidSections, &model.shellElemSections})
        for (const ElemSection& section : *sections) {
            sum += bytes(section);
            largest = std::max(largest, bytes(section));
        }
    for (const ElemList& elements : model.elsetElems)
        sum += bytes(elements);
    return sum + largest;
}

}  // namespace kvocaeio::bench
