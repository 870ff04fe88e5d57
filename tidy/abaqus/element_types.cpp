/// Tables of element types, their faces, and their order after a reflection.
#include "tidy/abaqus/element_types.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "text/scan.h"

namespace kvocaeio::tidy::abaqus {

namespace {

using enum Shape;

/// Solids, by the number after "C3D".
struct SolidRow {
    int number;
    ElementType type;
};
constexpr SolidRow kSolids[] = {
    {4, {kTetrahedron, 4, 4, "", false}},
    {5, {kPyramid, 5, 5, "", false}},
    {6, {kWedge, 6, 6, "", false}},
    {8, {kHexahedron, 8, 8, "", false}},
    {10, {kTetrahedron, 10, 10, "", false}},
    {13, {kPyramid, 13, 5, "C3D5", false}},
    {15, {kWedge, 15, 15, "", false}},
    {20, {kHexahedron, 20, 20, "", false}},
    {27, {kHexahedron, 20, 20, "C3D20", true}},
};

/// Shells, by how their names begin. The reader knows no type of shells with mid-side nodes, and
/// leaves out the fourth node of an R3D4.
struct ShellRow {
    std::string_view beginning;
    ElementType type;
};
constexpr ShellRow kShells[] = {
    {"S3", {kTriangle, 3, 3, "", false}},
    {"S4", {kQuadrilateral, 4, 4, "", false}},
    {"DS3", {kTriangle, 3, 3, "", false}},
    {"DS4", {kQuadrilateral, 4, 4, "", false}},
    {"US3", {kTriangle, 3, 3, "", false}},
    {"US4", {kQuadrilateral, 4, 4, "", false}},
    {"CPS3", {kTriangle, 3, 3, "", false}},
    {"CPS4", {kQuadrilateral, 4, 4, "", false}},
    {"R3D3", {kTriangle, 3, 3, "", false}},
    {"R3D4", {kQuadrilateral, 4, 4, "S4", false}},
    {"STRI3", {kTriangle, 3, 3, "S3", false}},
    {"STRI65", {kTriangle, 6, 3, "S3", false}},
    {"S6", {kTriangle, 6, 3, "S3", false}},
    {"S8", {kQuadrilateral, 8, 4, "S4", false}},
    {"DS6", {kTriangle, 6, 3, "S3", false}},
    {"DS8", {kQuadrilateral, 8, 4, "S4", false}},
    {"S9R5", {kQuadrilateral, 9, 4, "S4", false}},
    {"CPS6", {kTriangle, 6, 3, "CPS3", false}},
    {"CPS8", {kQuadrilateral, 8, 4, "CPS4", false}},
};

std::optional<ElementType> solidOf(std::string_view afterFamily) {
    int number = 0;
    const char* const end = afterFamily.data() + afterFamily.size();
    const char* const last = std::from_chars(afterFamily.data(), end, number).ptr;
    for (const SolidRow& row : kSolids)
        if (row.number == number) {
            ElementType type = row.type;
            type.hasMoreNodes = type.hasMoreNodes || std::string_view(last, end).starts_with('V');
            return type;
        }
    return std::nullopt;
}

constexpr std::string_view kTetrahedronFaces[] = {"012", "031", "132", "230"};
constexpr std::string_view kPyramidFaces[] = {"0123", "014", "124", "234", "304"};
constexpr std::string_view kWedgeFaces[] = {"012", "354", "0143", "1254", "2035"};
constexpr std::string_view kHexahedronFaces[] = {"0123", "4765", "0154", "1265", "2376", "3047"};

constexpr unsigned char kTriangleOrder[] = {0, 2, 1};
constexpr unsigned char kQuadrilateralOrder[] = {0, 3, 2, 1};
constexpr unsigned char kTetrahedronOrder[] = {0, 2, 1, 3, 6, 5, 4, 7, 9, 8};
constexpr unsigned char kPyramidOrder[] = {0, 3, 2, 1, 4};
constexpr unsigned char kWedgeOrder[] = {0, 2, 1, 3, 5, 4, 8, 7, 6, 11, 10, 9, 12, 14, 13};
constexpr unsigned char kHexahedronOrder[] = {0, 3, 2,  1,  4,  7,  6,  5,  11, 10,
                                              9, 8, 15, 14, 13, 12, 16, 19, 18, 17};

std::span<const unsigned char> fullOrder(Shape shape) {
    switch (shape) {
        case kTriangle:
            return kTriangleOrder;
        case kQuadrilateral:
            return kQuadrilateralOrder;
        case kTetrahedron:
            return kTetrahedronOrder;
        case kPyramid:
            return kPyramidOrder;
        case kWedge:
            return kWedgeOrder;
        case kHexahedron:
            return kHexahedronOrder;
    }
    return {};
}

}  // namespace

std::optional<ElementType> elementTypeOf(std::string_view name) {
    constexpr std::string_view kSolidFamily = "C3D";
    if (const auto at = name.find(kSolidFamily); at != std::string_view::npos)
        return solidOf(name.substr(at + kSolidFamily.size()));
    std::optional<ElementType> type;
    std::size_t length = 0;
    for (const ShellRow& row : kShells)
        if (name.starts_with(row.beginning) && row.beginning.size() > length) {
            type = row.type;
            length = row.beginning.size();
        }
    return type;
}

std::string writtenType(std::string_view name, const ElementType& type) {
    constexpr std::size_t kMostTypeName = 16;
    if (!type.newName.empty())
        return std::string(type.newName);
    const bool isWord = std::ranges::all_of(
        name, [](char c) { return text::isDigit(c) || (c >= 'A' && c <= 'Z'); });
    if (isWord && name.size() <= kMostTypeName)
        return std::string(name);
    return (facesOf(type.shape).empty() ? "S" : "C3D") + std::to_string(type.written);
}

std::span<const std::string_view> facesOf(Shape shape) {
    switch (shape) {
        case kTetrahedron:
            return kTetrahedronFaces;
        case kPyramid:
            return kPyramidFaces;
        case kWedge:
            return kWedgeFaces;
        case kHexahedron:
            return kHexahedronFaces;
        case kTriangle:
        case kQuadrilateral:
            break;
    }
    return {};
}

std::size_t readFaceCount(Shape shape) {
    return shape == kPyramid ? 0 : facesOf(shape).size();
}

std::span<const unsigned char> reflectedOrder(const ElementType& type) {
    const std::span<const unsigned char> order = fullOrder(type.shape);
    return type.written <= order.size() ? order.first(type.written)
                                        : std::span<const unsigned char>();
}

}  // namespace kvocaeio::tidy::abaqus
