/// Nodes and elements that a deck defines twice.
#include "abaqus/repeats.h"

#include <array>
#include <gmock/gmock.h>

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(RepeatedOids, NodesAtOnePlaceAndAtTwo) {
    constexpr std::array<double, 3> kHere{0, 1, 2};
    constexpr std::array<double, 3> kThere{0, 1, 3};
    host::DeckTables tables;
    tables.nodeIds = {4, 6, 4, 6};
    tables.places = {kHere.data(), kHere.data(), kHere.data(), kThere.data()};
    const host::OidRepeats repeats = host::findRepeatedNodes(tables);
    EXPECT_THAT(repeats.alike, ElementsAre(2u));
    EXPECT_THAT(repeats.conflicts, ElementsAre(6));
}

TEST(RepeatedOids, ElementsOfAllSectionsThatHaveNodes) {
    constexpr std::array<int, 2> kIds{1, 2};
    constexpr std::array<int, 8> kTetrahedra{1, 2, 3, 4, 2, 3, 4, 5};
    constexpr std::array<int, 6> kTriangles{1, 2, 3, 1, 2, 4};
    host::DeckTables tables;
    using host::Geometry;
    tables.raw.push_back({"A", Geometry::kSolid, 4, 2, kTetrahedra.data(), kIds.data()});
    tables.raw.push_back({"X", Geometry::kUnknown, 0, 2, nullptr, kIds.data()});
    tables.raw.push_back({"B", Geometry::kSolid, 4, 2, kTetrahedra.data(), kIds.data()});
    EXPECT_THAT(host::findRepeatedElements(tables).alike, ElementsAre(2u, 3u));
    EXPECT_THAT(host::findRepeatedElements(tables).conflicts, IsEmpty());
    tables.raw.push_back({"C", Geometry::kShell, 3, 2, kTriangles.data(), kIds.data()});
    EXPECT_THAT(host::findRepeatedElements(tables).conflicts, ElementsAre(1, 2));
}

}  // namespace
}  // namespace kvocaeio::test
