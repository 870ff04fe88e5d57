/// The findings of both kinds of import in one table.
#include "package/findings.h"

#include <algorithm>
#include <iterator>

#include "package/finding_rows_3di.h"
#include "package/finding_rows_reports.h"

namespace kvocaeio::package {

static_assert(std::size(k3diFindingKinds) == static_cast<std::size_t>(Finding::kReportTag));

namespace {

constexpr auto joinFindingKinds() {
    std::array<text::FindingKind, static_cast<std::size_t>(Finding::kCount)> all{};
    static_assert(std::size(k3diFindingKinds) + std::size(kReportFindingKinds) == all.size());
    std::ranges::copy(kReportFindingKinds, std::ranges::copy(k3diFindingKinds, all.begin()).out);
    return all;
}

}  // namespace

constinit const decltype(joinFindingKinds()) kFindingKinds = joinFindingKinds();

}  // namespace kvocaeio::package
