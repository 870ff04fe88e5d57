/// The element types of Abaqus decks of which the reader can hold something.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kvocaeio::tidy::abaqus {

/// Corner nodes and faces decide.
enum class Shape : unsigned char {
    kTriangle,
    kQuadrilateral,
    kTetrahedron,
    kPyramid,
    kWedge,
    kHexahedron
};

struct ElementType {
    Shape shape = Shape::kTriangle;
    std::size_t nodes = 0;    ///< of an element in the deck
    std::size_t written = 0;  ///< how many of these the reader can hold
    std::string_view
        newName;  ///< the type that the reader takes so; empty where it is as in the deck
    bool hasMoreNodes = false;  ///< an element may have more nodes, on a line that continues it
};

/// What a type is, by its name in upper case. Nothing for kinds of which the reader holds nothing.
std::optional<ElementType> elementTypeOf(std::string_view name);

/// The name of a type in the new deck: that of the deck wherever the reader finds it whole.
std::string writtenType(std::string_view name, const ElementType& type);

/// The places of each face's corners among an element's nodes, as digits. Numbered as in surfaces
/// and loads of the deck.
std::span<const std::string_view> facesOf(Shape shape);

/// How many of these the reader can hold: none of pyramids and shells.
std::size_t readFaceCount(Shape shape);

/// The order of an element's nodes after a reflection, as places from 0; empty where the type is
/// not known that far.
std::span<const unsigned char> reflectedOrder(const ElementType& type);

}  // namespace kvocaeio::tidy::abaqus
