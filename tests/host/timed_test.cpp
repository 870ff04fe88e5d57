/// Times as people write them.
#include "timed.h"

#include <gtest/gtest.h>

namespace kvocaeio::test {
namespace {

using host::secondsText;

TEST(SecondsText, IsAsPeopleWriteIt) {
    EXPECT_EQ(secondsText(0.0), "less than 1 ms");
    EXPECT_EQ(secondsText(0.0000141), "less than 1 ms");
    EXPECT_EQ(secondsText(0.00095), "1 ms");
    EXPECT_EQ(secondsText(0.0123), "12 ms");
    EXPECT_EQ(secondsText(0.9994), "999 ms");
    EXPECT_EQ(secondsText(0.9996), "1.0 s");
    EXPECT_EQ(secondsText(59.94), "59.9 s");
    EXPECT_EQ(secondsText(59.96), "1 min 0 s");
    EXPECT_EQ(secondsText(125.4), "2 min 5 s");
}

}  // namespace
}  // namespace kvocaeio::test
