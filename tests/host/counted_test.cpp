/// Singulars and plurals.
#include "counted.h"

#include <gtest/gtest.h>

namespace kvocaeio::test {
namespace {

using host::counted;

TEST(Counted, ManyAndNone) {
    EXPECT_EQ(counted(2, "nodes"), "2 nodes");
    EXPECT_EQ(counted(0, "nodes"), "0 nodes");
}

TEST(Counted, One) {
    EXPECT_EQ(counted(1, "nodes"), "1 node");
    EXPECT_EQ(counted(1, "quadratic hexahedra"), "1 quadratic hexahedron");
    EXPECT_EQ(counted(1, "bodies"), "1 body");
    EXPECT_EQ(counted(1, "dies"), "1 die");
    EXPECT_EQ(counted(1, "of unknown type"), "1 of unknown type");
    EXPECT_EQ(counted(1, "rows of nodes"), "1 row of nodes");
}

}  // namespace
}  // namespace kvocaeio::test
