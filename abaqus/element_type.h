/// What an element type name means: geometry and node count, by whole families of names.
#pragma once

#include <string_view>

#include "abaqus/model.h"

namespace kvocaeio::abaqus {

struct ElementType {
    GeometryType geometry = GeometryType::kUnknown;
    int nodesPerElem = 0;
};

/// Reads the TYPE= value of an `*ELEMENT` line. Every text has a meaning; that of an unknown one is
/// unknown geometry without nodes.
ElementType elementType(std::string_view name);

}  // namespace kvocaeio::abaqus
