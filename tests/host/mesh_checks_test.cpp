/// What must not pass as a mesh.
#include "mesh_checks.h"

#include <array>
#include <gmock/gmock.h>
#include <limits>

#include "file_report.h"

namespace kvocaeio::test {
namespace {

using host::findRepeats;
using host::OidRepeats;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(MeshChecks, NothingReadIsAFailure) {
    EXPECT_NO_THROW(host::requireMesh(1, 0, "a letter"));
    EXPECT_NO_THROW(host::requireMesh(0, 1, "a letter"));
    try {
        host::requireMesh(0, 0, "a letter");
        FAIL();
    } catch (const host::FileError& error) {
        EXPECT_STREQ(error.what(), "holds no nodes and no elements of a letter");
    }
}

TEST(MeshChecks, PlacesThatAreNoNumbers) {
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    constexpr float kEndless = std::numeric_limits<float>::infinity();
    const std::array<double, 3> good{1, 2, 3};
    const std::array<double, 3> none{1, 2, kNone};
    const std::array<float, 3> endless{-kEndless, 2, 3};
    EXPECT_TRUE(host::isFinitePlace(good.data()));
    EXPECT_FALSE(host::isFinitePlace(none.data()));
    EXPECT_FALSE(host::isFinitePlace(endless.data()));
}

/// Repeats among rows of one OID and one letter each.
OidRepeats repeatsOf(const std::vector<int>& oids, std::string_view letters) {
    return findRepeats(oids, [&](std::size_t first, std::size_t later) {
        return letters[first] == letters[later];
    });
}

TEST(MeshChecks, OidsThatStandOnce) {
    for (const std::vector<int>& oids :
         std::vector<std::vector<int>>{{}, {7}, {1, 2, 9}, {9, 2, 1}}) {
        const OidRepeats repeats = repeatsOf(oids, "aaa");
        EXPECT_THAT(repeats.alike, IsEmpty());
        EXPECT_THAT(repeats.conflicts, IsEmpty());
    }
}

TEST(MeshChecks, OidsThatStandSeveralTimes) {
    const OidRepeats repeats = repeatsOf({5, 3, 5, 3, -1, 5, 5, 8, 8}, "abaccxyzz");
    EXPECT_THAT(repeats.alike, ElementsAre(2u, 8u));
    EXPECT_THAT(repeats.conflicts, ElementsAre(3, 5));
}

}  // namespace
}  // namespace kvocaeio::test
