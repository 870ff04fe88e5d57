/// What the property of an element says of it.
#pragma once

#include <array>
#include <cstddef>

#include "patran/model.h"

namespace kvocaeio::patran {

/// The types of elements that are not there, and of those whose property is not.
inline constexpr int kNoSuchElement = 13;
inline constexpr int kNoSuchProperty = 14;

/// See `CKVO_PatranIO_Bridge::GetElementDataBase`.
struct ElementValues {
    bool isCounted = false;  ///< whether the file's last summary counts the element
    int type = kNoSuchElement;
    std::array<double, 3> values{};
};

/// Of the element in row `row` of the lists.
inline ElementValues valuesOf(const ListMesh& mesh, std::size_t row) {
    ElementValues found;
    if (row >= text::asSize(mesh.elementCount))
        return found;
    found.isCounted = true;
    const int property = mesh.elementPropertyIds[row];
    if (mesh.propertyCount == 0) {
        found.type = mesh.elementShapes[row];
    } else if (property < 0 || text::asSize(property) >= mesh.propertyTypes.size()) {
        found.type = kNoSuchProperty;
    } else {
        found.type = mesh.propertyTypes.at(property);
        found.values = {mesh.propertyValueA.at(property), mesh.propertyValueB.at(property),
                        mesh.propertyValueC.at(property)};
    }
    return found;
}

}  // namespace kvocaeio::patran
