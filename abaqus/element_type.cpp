/// The rules behind element type names.
#include "abaqus/element_type.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "text/scan.h"

namespace kvocaeio::abaqus {

namespace {

constexpr std::string_view kSolidFamily = "C3D";

// No element has more nodes; a larger number behind "C3D" is no node count.
constexpr int kMaxNodesPerElem = 10'000;

constexpr int kSolidNodeCounts[] = {4, 5, 6, 8, 10, 15, 20};

// In the order of the tests: the first mark that the name holds decides. The fourth node of an R3D4
// is deliberately not read, since the family name alone gives the count.
constexpr std::pair<std::string_view, int> kShellFamilies[] = {{"S3", 3}, {"R3", 3}, {"S4", 4}};

ElementType solidType(std::string_view behindFamily) {
    int count = 0;
    text::Scan(behindFamily).integer(count);
    if (count < 0 || count > kMaxNodesPerElem)
        count = 0;
    const bool known = std::ranges::find(kSolidNodeCounts, count) != std::end(kSolidNodeCounts);
    return {known ? GeometryType::kSolid : GeometryType::kUnknown, count};
}

}  // namespace

ElementType elementType(std::string_view name) {
    if (const auto at = name.find(kSolidFamily); at != std::string_view::npos)
        return solidType(name.substr(at + kSolidFamily.size()));
    for (const auto& [mark, nodes] : kShellFamilies)
        if (name.find(mark) != std::string_view::npos)
            return {GeometryType::kShell, nodes};
    return {};
}

}  // namespace kvocaeio::abaqus
