/// Facts of the map from OIDs: gaps, repeated and negative OIDs, thinly scattered ones.
#include "abaqus/oid_map.h"

#include <climits>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <utility>
#include <vector>

namespace kvocaeio::abaqus {
namespace {

using Entries = std::vector<std::pair<int, int>>;

OidMap<int> mapOf(const Entries& entries) {
    OidMap<int> map;
    map.assign([&](const auto& visit) {
        for (const auto& [oid, value] : entries)
            visit(oid, value);
    });
    return map;
}

TEST(OidMap, IsEmptyBeforeItIsFilled) {
    const OidMap<int> map;
    EXPECT_EQ(map.size(), 0u);
    EXPECT_FALSE(map.covers(0));
}

TEST(OidMap, GivesZeroForGapsAndCoversUpToTheLargest) {
    const auto map = mapOf({{5, 10}, {7, 11}, {9, 12}});
    ASSERT_EQ(map.size(), 10u);
    EXPECT_EQ(map[0], 0);
    EXPECT_EQ(map[5], 10);
    EXPECT_EQ(map[6], 0);
    EXPECT_EQ(map[7], 11);
    EXPECT_EQ(map[9], 12);
    EXPECT_TRUE(map.covers(9));
    EXPECT_FALSE(map.covers(10));
    EXPECT_FALSE(map.covers(-1));
    EXPECT_FALSE(map.covers(INT_MIN));
}

TEST(OidMap, KeepsTheLastOfRepeatedOids) {
    EXPECT_EQ(mapOf({{3, 1}, {4, 2}, {3, 7}})[3], 7);
}

TEST(OidMap, LeavesNegativeOidsOut) {
    const auto map = mapOf({{-5, 1}, {2, 3}, {INT_MIN, 4}});
    EXPECT_EQ(map.size(), 3u);
    EXPECT_EQ(map[2], 3);
    EXPECT_EQ(map[0], 0);
    EXPECT_EQ(mapOf({{-5, 1}}).size(), 1u);
}

TEST(OidMap, ReachesTheLargestInt) {
    const auto map = mapOf({{INT_MAX, 7}, {1, 3}});
    EXPECT_EQ(map.size(), 2147483648u);
    EXPECT_EQ(map[2147483647u], 7);
    EXPECT_EQ(map[1], 3);
    EXPECT_EQ(map[2147483646u], 0);
}

TEST(OidMap, KeepsTheLastOfRepeatedScatteredOids) {
    Entries entries;
    for (int i = 0; i < 500; ++i)
        entries.emplace_back(1'000'000 * i, i);
    entries.emplace_back(3'000'000, 77);
    const auto map = mapOf(entries);
    EXPECT_EQ(map[3'000'000u], 77);
    EXPECT_EQ(map[4'000'000u], 4);
    EXPECT_EQ(map[4'000'001u], 0);
    EXPECT_EQ(map[0], 0);
    EXPECT_EQ(map[499'000'000u], 499);
}

// From close together to thinly scattered, so that both ways of keeping the values are taken.
TEST(OidMap, EqualsAnOrderedMapForRandomOids) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const int range = 1 << (1 + seed % 30);
        std::map<int, int> expected;
        Entries entries;
        for (int i = 0; i < 300; ++i) {
            const int oid = static_cast<int>(random() % static_cast<unsigned>(range)) - range / 16;
            entries.emplace_back(oid, i);
            expected[oid] = i;
        }
        const auto map = mapOf(entries);
        ASSERT_EQ(map.size(), static_cast<std::size_t>(std::max(0, expected.rbegin()->first)) + 1);
        for (const auto& [oid, value] : expected)
            for (const int near : {oid - 1, oid, oid + 1})
                if (map.covers(near)) {
                    const auto found = expected.find(near);
                    ASSERT_EQ(map[static_cast<std::size_t>(near)],
                              found == expected.end() ? 0 : found->second)
                        << near;
                }
    }
}

}  // namespace
}  // namespace kvocaeio::abaqus
