/// Facts of the look-up of nodes by OID, in tables and in lists.
#include "node_rows.h"

#include <climits>
#include <gtest/gtest.h>
#include <vector>

namespace kvocaeio::host {
namespace {

TEST(NodeRows, FindsNothingWithoutNodes) {
    const NodeRows rows{{}};
    EXPECT_EQ(rows.find(0), -1);
    EXPECT_EQ(rows.find(INT_MIN), -1);
    EXPECT_EQ(rows.find(INT_MAX), -1);
}

TEST(NodeRows, FindsOidsThatStandCloseTogether) {
    const NodeRows rows{std::vector<int>{-2, 5, 3, 1500}};
    EXPECT_EQ(rows.find(-2), 0);
    EXPECT_EQ(rows.find(5), 1);
    EXPECT_EQ(rows.find(3), 2);
    EXPECT_EQ(rows.find(1500), 3);
    EXPECT_EQ(rows.find(-3), -1);
    EXPECT_EQ(rows.find(4), -1);
    EXPECT_EQ(rows.find(1501), -1);
    EXPECT_EQ(rows.find(INT_MIN), -1);
    EXPECT_EQ(rows.find(INT_MAX), -1);
}

TEST(NodeRows, FindsOidsThatLieFarApart) {
    const NodeRows rows{std::vector<int>{INT_MAX, 0, INT_MIN, 70000}};
    EXPECT_EQ(rows.find(INT_MAX), 0);
    EXPECT_EQ(rows.find(0), 1);
    EXPECT_EQ(rows.find(INT_MIN), 2);
    EXPECT_EQ(rows.find(70000), 3);
    EXPECT_EQ(rows.find(1), -1);
    EXPECT_EQ(rows.find(INT_MAX - 1), -1);
}

TEST(NodeRows, FindsTheLastOfRepeatedOids) {
    EXPECT_EQ((NodeRows{std::vector<int>{7, 8, 7}}.find(7)), 2);
    EXPECT_EQ((NodeRows{std::vector<int>{7, 2000000000, 7}}.find(7)), 2);
}

// Two groups of nodes, then so many groups that a table of them would be larger than a list.
TEST(NodeRows, FindsTheSameInGroups) {
    for (const int distance : {1, 10, 50, 5000}) {
        std::vector<int> oids;
        for (int i = 0; i < 3000; ++i)
            oids.push_back(i * distance);
        for (int i = 0; i < 3000; ++i)
            oids.push_back(20000000 + i);
        const NodeRows rows{oids};
        int found = 0;
        for (std::size_t row = 0; row < oids.size(); ++row)
            found += rows.find(oids[row]) == static_cast<int>(row);
        EXPECT_EQ(found, 6000) << distance;
        EXPECT_EQ(rows.find(19999999), -1) << distance;
        EXPECT_EQ(rows.find(20003000), -1) << distance;
    }
}

}  // namespace
}  // namespace kvocaeio::host
