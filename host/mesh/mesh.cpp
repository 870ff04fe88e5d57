/// Counts and names of a mesh's sections.
#include "mesh/mesh.h"

#include <algorithm>
#include <array>

namespace kvocaeio::host {

namespace {

constexpr std::array<std::string_view, 5> kOriginNames = {"solid", "shell", "load", "surface",
                                                          "line"};

}  // namespace

std::string_view nameOf(Origin origin) {
    return kOriginNames[static_cast<std::size_t>(origin)];
}

SectionKey sectionKeyOf(const MeshSection& section) {
    return {section.origin, section.property, section.name,
            section.name.empty() ? section.source : 0};
}

std::size_t Mesh::elements() const {
    std::size_t number = 0;
    for (const MeshSection& section : sections)
        number += section.elements();
    return number;
}

std::size_t Mesh::dropFaces() {
    const std::size_t all = elements();
    std::erase_if(sections, [](const MeshSection& section) { return section.isOfFaces(); });
    return all - elements();
}

MeshSection& Mesh::sectionOf(CellKind kind, std::size_t first, const MeshSection& model) {
    const auto known =
        std::find_if(sections.begin() + static_cast<std::ptrdiff_t>(first), sections.end(),
                     [&](const MeshSection& section) { return section.kind == kind; });
    if (known != sections.end())
        return *known;
    sections.push_back(model);
    sections.back().kind = kind;
    return sections.back();
}

}  // namespace kvocaeio::host
