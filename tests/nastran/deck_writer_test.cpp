/// Solid cards with mid-side nodes, which the public calls do not reach.
#include "nastran/deck_writer.h"

#include <array>
#include <gtest/gtest.h>
#include <numeric>
#include <span>
#include <string>

#include "support/files.h"
#include "text/file.h"
#include "text/format.h"

namespace kvocaeio::test {
namespace {

// The card of element 77 in section 5, whose nodes are 101, 102, ...
std::string elementOf(std::size_t nodeCount) {
    std::array<int, 27> nodes;
    std::iota(nodes.begin(), nodes.end(), 101);
    const TempFolder folder;
    {
        const text::File file = text::openFile(folder.file("card").c_str(), "w");
        text::Writer deck(file.get());
        nastran::writeElement(deck, 77, 5, std::span(nodes).first(nodeCount));
        EXPECT_TRUE(deck.flush());
    }
    return readText(folder.path() / "card");
}

TEST(SecondOrderElements, OfTenNodes) {
    EXPECT_EQ(elementOf(10),
              "CTETRA ,     77,      5,    101,    102,    103,    104,    105,    106\n"
              "       ,    107,    108,    109,    110\n");
}

TEST(SecondOrderElements, OfFifteenNodes) {
    EXPECT_EQ(elementOf(15),
              "CPENTA ,     77,      5,    101,    102,    103,    104,    105,    106\n"
              "       ,    107,    108,    109,    113,    114,    115,    110,    111\n"
              "       ,    112\n");
}

TEST(SecondOrderElements, OfTwentyNodes) {
    EXPECT_EQ(elementOf(20),
              "CHEXA  ,     77,      5,    101,    102,    103,    104,    105,    106\n"
              "       ,    107,    108,    109,    110,    111,    112,    117,    118\n"
              "       ,    119,    120,    113,    114,    115,    116\n");
}

TEST(SecondOrderElements, OfOtherCountsAreNone) {
    for (const std::size_t count : {0U, 1U, 3U, 5U, 7U, 9U, 11U, 13U, 14U, 16U, 19U, 21U, 27U})
        EXPECT_EQ(elementOf(count), "") << count;
}

}  // namespace
}  // namespace kvocaeio::test
