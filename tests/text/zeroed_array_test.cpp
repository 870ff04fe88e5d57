/// Facts of zeroed arrays.
#include "text/zeroed_array.h"

#include <climits>
#include <gtest/gtest.h>

namespace kvocaeio::text {
namespace {

TEST(ZeroedArray, HoldsZeros) {
    const ZeroedArray<int> array = makeZeroed<int>(2, 3);
    ASSERT_NE(array, nullptr);
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_EQ(array[i], 0);
}

TEST(ZeroedArray, OfNoRowsIsNull) {
    EXPECT_EQ(makeZeroed<int>(0), nullptr);
    EXPECT_EQ(makeZeroed<double>(0, 8), nullptr);
}

TEST(ZeroedArray, OfANegativeCountHasNoRows) {
    EXPECT_EQ(asSize(INT_MAX), 2147483647U);
    EXPECT_EQ(asSize(1), 1U);
    EXPECT_EQ(asSize(0), 0U);
    EXPECT_EQ(asSize(-1), 0U);
    EXPECT_EQ(asSize(INT_MIN), 0U);
}

}  // namespace
}  // namespace kvocaeio::text
