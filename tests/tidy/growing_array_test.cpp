/// Lists that grow where they stand.
#include "tidy/growing_array.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <new>
#include <utility>
#include <vector>

namespace kvocaeio::tidy {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<int> valuesOf(const GrowingArray<int>& array) {
    return {array.begin(), array.end()};
}

TEST(GrowingArray, KeepsItsValuesWhileItGrows) {
    GrowingArray<int> array;
    EXPECT_TRUE(array.empty());
    for (int i = 0; i < 100'000; ++i)
        array.push_back(3 * i);
    ASSERT_EQ(array.size(), 100'000u);
    int next = 0;
    for (const int value : array) {
        ASSERT_EQ(value, next);
        next += 3;
    }
}

TEST(GrowingArray, TakesSeveralValuesAtOnce) {
    const int values[] = {7, 8, 9};
    GrowingArray<int> array;
    array.append(values, 3);
    array.append(values, 0);
    array.append(values + 1, 2);
    array[1] = 5;
    EXPECT_THAT(valuesOf(array), ElementsAre(7, 5, 9, 8, 9));
}

TEST(GrowingArray, CopiesShareNothing) {
    GrowingArray<int> array;
    array.push_back(1);
    GrowingArray<int> copy = array;
    copy.push_back(2);
    EXPECT_THAT(valuesOf(array), ElementsAre(1));
    EXPECT_THAT(valuesOf(copy), ElementsAre(1, 2));
    array = copy;
    copy[0] = 4;
    EXPECT_THAT(valuesOf(array), ElementsAre(1, 2));
    array = std::move(copy);
    EXPECT_THAT(valuesOf(array), ElementsAre(4, 2));
    EXPECT_THAT(valuesOf(GrowingArray<int>(GrowingArray<int>())), IsEmpty());
}

TEST(GrowingArray, ThrowsWhereMemoryRunsOut) {
    const int value = 1;
    GrowingArray<int> array;
    array.push_back(value);
    EXPECT_THROW(array.append(&value, std::numeric_limits<std::size_t>::max()), std::bad_alloc);
    EXPECT_THROW(array.append(&value, std::numeric_limits<std::size_t>::max() / 16),
                 std::bad_alloc);
    EXPECT_THAT(valuesOf(array), ElementsAre(1));
}

}  // namespace
}  // namespace kvocaeio::tidy
