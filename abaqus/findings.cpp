/// The rows of all findings, put together.
#include "abaqus/findings.h"

#include <algorithm>

#include "abaqus/data_kinds.h"
#include "abaqus/line_kinds.h"
#include "abaqus/mesh_kinds.h"

namespace kvocaeio::abaqus {

namespace {

static_assert(kLineKinds.size() == static_cast<std::size_t>(Finding::kNodeWithoutNumber));
static_assert(kLineKinds.size() + kDataKinds.size() ==
              static_cast<std::size_t>(Finding::kNodeUndefined));
static_assert(kLineKinds.size() + kDataKinds.size() + kMeshKinds.size() == kFindingNum);

constexpr auto allKinds() {
    std::array<text::FindingKind, kFindingNum> kinds{};
    const auto data = std::ranges::copy(kLineKinds, kinds.begin()).out;
    const auto mesh = std::ranges::copy(kDataKinds, data).out;
    std::ranges::copy(kMeshKinds, mesh);
    return kinds;
}

}  // namespace

constinit const std::array<text::FindingKind, kFindingNum> kFindingKinds = allKinds();

}  // namespace kvocaeio::abaqus
