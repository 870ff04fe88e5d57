/// The places of folded findings in words.
#include "check/more.h"

#include <gtest/gtest.h>

namespace kvocaeio::host {
namespace {

using Places = std::vector<ImportFinding::Place>;

std::string more(long long count, const Places& places) {
    ImportFinding finding;
    finding.count = count;
    finding.places = places;
    return moreOf(finding);
}

TEST(MoreOfAFinding, NothingWhereItWasFoundOnce) {
    EXPECT_EQ(more(1, {{7, 3, "x"}}), "");
}

TEST(MoreOfAFinding, NamesTheLines) {
    EXPECT_EQ(more(2, {{7, 3, "x"}, {9, 3, "x"}}), " (and 1 more, at line 9)");
    EXPECT_EQ(more(3, {{7, 3, "x"}, {9, 3, "x"}, {12, 1, "x"}}), " (and 2 more, at lines 9, 12)");
}

TEST(MoreOfAFinding, NamesTheNextLinesOfMany) {
    EXPECT_EQ(more(5, {{7, 0, ""}, {8, 0, ""}, {9, 0, ""}, {12, 0, ""}, {40, 0, ""}}),
              " (and 4 more, next at lines 8, 9, 12)");
    EXPECT_EQ(more(900, {{7, 0, ""}, {8, 0, ""}}), " (and 899 more, next at line 8)");
}

TEST(MoreOfAFinding, NamesALineOnce) {
    EXPECT_EQ(more(4, {{7, 1, ""}, {7, 9, ""}, {8, 1, ""}, {8, 9, ""}}),
              " (and 3 more, at line 8)");
    EXPECT_EQ(more(2, {{7, 1, ""}, {7, 9, ""}}), " (and 1 more in this line)");
}

TEST(MoreOfAFinding, NamesWhatHasNoLine) {
    EXPECT_EQ(more(3, {{0, 0, "11"}, {0, 0, "12"}, {0, 0, "15"}}), " (and 2 more: 12, 15)");
    EXPECT_EQ(more(900, {{0, 0, "11"}, {0, 0, "12"}}), " (and 899 more: 12, ...)");
    EXPECT_EQ(more(2, {{0, 0, ""}}), " (and 1 more)");
}

}  // namespace
}  // namespace kvocaeio::host
