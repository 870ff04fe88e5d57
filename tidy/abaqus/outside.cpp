/// Faces sorted by their corners: those that stand alone are on the outside.
#include "tidy/abaqus/outside.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <span>
#include <string_view>

namespace kvocaeio::tidy::abaqus {

namespace {

struct CornerFace {
    std::array<int, 4> corners;  // ascending; a triangle's last one is none
    ElementFace face;
    // NOLINTNEXTLINE(modernize-use-nullptr): what the compiler makes of it is not ours
    auto operator<=>(const CornerFace&) const = default;
};

void appendFaces(const Block& block, std::vector<CornerFace>& faces) {
    const std::span<const std::string_view> places = facesOf(block.type.shape);
    for (std::size_t row = 0; row < block.ids.size(); ++row) {
        const int* const nodes = block.nodes.data() + row * block.type.written;
        for (std::size_t i = 0; i < places.size(); ++i) {
            CornerFace& face = faces.emplace_back();
            face.corners.fill(std::numeric_limits<int>::max());
            for (std::size_t k = 0; k < places[i].size(); ++k)
                face.corners[k] = nodes[places[i][k] - '0'];
            std::ranges::sort(face.corners);
            face.face = {block.ids[row], static_cast<int>(i) + 1};
        }
    }
}

}  // namespace

const std::vector<ElementFace>& OutsideFaces::of(const Scope& scope) {
    const auto [entry, isNew] = faces_.try_emplace(&scope);
    std::vector<ElementFace>& outside = entry->second;
    if (!isNew)
        return outside;
    std::vector<CornerFace> faces;
    for (const Block& block : scope.blocks)
        appendFaces(block, faces);
    std::ranges::sort(faces);
    for (std::size_t i = 0; i < faces.size(); ++i) {
        const bool isShared = (i > 0 && faces[i - 1].corners == faces[i].corners) ||
                              (i + 1 < faces.size() && faces[i + 1].corners == faces[i].corners);
        if (!isShared)
            outside.push_back(faces[i].face);
    }
    std::ranges::sort(outside);
    return outside;
}

}  // namespace kvocaeio::tidy::abaqus
