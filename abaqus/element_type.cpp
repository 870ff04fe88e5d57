/// The rules behind element type names.
#include "abaqus/element_type.h"

#include <algorithm>
#include <array>

#include "text/scan.h"

namespace kvocaeio {

namespace {

constexpr std::string_view kSolidFamily = "C3D";

// No element has more nodes; a larger number behind "C3D" is no node count.
constexpr int kMaxNodesPerElem = 10'000;

constexpr std::array kSolidNodeCounts{4, 5, 6, 8, 10, 15, 20};

struct ShellFamily {
    std::string_view mark;
    int nodesPerElem;
};

// In the order of the tests: the first mark that the name holds decides. The fourth node of an R3D4
// is deliberately not read, since the family name alone gives the count.
constexpr std::array kShellFamilies{ShellFamily{"S3", 3}, ShellFamily{"R3", 3},
                                    ShellFamily{"S4", 4}};

ElementType solidType(std::string_view behindFamily) {
    int count = 0;
    text::Scan(behindFamily).integer(count);
    if (count < 0 || count > kMaxNodesPerElem)
        count = 0;
    const bool known = std::ranges::find(kSolidNodeCounts, count) != kSolidNodeCounts.end();
    return {known ? GeometryType::kSolid : GeometryType::kUnknown, count};
}

}  // namespace

ElementType elementType(std::string_view name) {
    if (const auto at = name.find(kSolidFamily); at != std::string_view::npos)
        return solidType(name.substr(at + kSolidFamily.size()));
    for (const ShellFamily& family : kShellFamilies)
        if (name.find(family.mark) != std::string_view::npos)
            return {GeometryType::kShell, family.nodesPerElem};
    return {};
}

}  // namespace kvocaeio
