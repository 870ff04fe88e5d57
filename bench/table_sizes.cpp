/// How much memory the tables of a model need by themselves.
#include "bench/table_sizes.h"

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

}  // namespace

std::size_t rawTableBytes(const AbaqusModel& model) {
    std::size_t sum = bytes(model.nodeOidMap) + bytes(model.elemOidMap) +
                      bytes(model.nodeBlock.ids) + bytes(model.nodeBlock.coords);
    for (const ElemSection& section : model.elemSections)
        sum += bytes(section.ids) + bytes(section.nodes);
    for (const SurfaceSection& surface : model.surfaces)
        sum += bytes(surface.items) + bytes(surface.faces);
    for (const DloadSection& load : model.dloads)
        sum += bytes(load.elemIDs) + bytes(load.faceIdx) + bytes(load.values);
    for (const ElsetSection& set : model.elsets)
        sum += bytes(set.members);
    return sum;
}

}  // namespace kvocaeio::bench
