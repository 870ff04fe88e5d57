/// What `CKVO_PatranIO_Bridge` makes of each packet.
#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "patran/neutral_file.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Corners = std::array<int, 4>;

/// The one element of a file with properties, which names the property `pid`.
ElementData elementWithProperty(int propertyCount, const std::string& properties, int pid) {
    const BridgeMesh mesh(summary(10, 1, propertyCount) + properties + tenNodes() +
                          element(1, 4, pid, {1, 2, 3, 4}) + endOfFile());
    EXPECT_EQ(mesh.nodes.size(), 10U);
    EXPECT_EQ(mesh.elements.size(), 1U);
    return mesh.elements.at(0);
}

ElementData expected(int type, double a, double b, double c) {
    return {{0, 1, 2, 3}, type, a, b, c};
}

TEST(PatranBridge, NodesStandInFileOrderWhateverTheirIds) {
    const BridgeMesh mesh(summary(3, 0) + node(30, 1, 2, 3) + node(10, -4, 5.5, 1e10) +
                          node(20, 7, 8, 9) + endOfFile());
    EXPECT_TRUE(mesh.result);
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{1, 2, 3}, Point{-4, 5.5F, 1e10F}, Point{7, 8, 9}));
    EXPECT_EQ(mesh.printed, "");
}

TEST(PatranBridge, CoordinatesAreSixteenColumnsEachNarrowedToFloat) {
    const float inf = std::numeric_limits<float>::infinity();
    const BridgeMesh mesh(
        summary(8, 0) + header(1, 1, 0, 2) +
        " 1.000000000E+00-2.500000000E+00 3.333333333E-01\nx\n" + header(1, 2, 0, 2) +
        "              .1        16777217            0.1x\nx\n" + header(1, 3, 0, 2) +
        "1111111111111111222222222222222233333333333333334\nx\n" + header(1, 4, 0, 2) +
        "abc                          2,5         1.5D+01\nx\n" + header(1, 5, 0, 2) +
        "             1e9             1e9\nx\n" + header(1, 6, 0, 2) + "\nx\n" +
        header(1, 7, 0, 2) + "           1e300          -1e300          1e-300\nx\n" +
        header(1, 8, 0, 2) + "\t 5 6           \t7              8 9\nx\n" + endOfFile());
    EXPECT_THAT(mesh.nodes,
                ElementsAre(Point{1, -2.5F, 0.3333333333F}, Point{0.1F, 16777216, 0.1F},
                            Point{1111111111111111.0F, 2222222222222222.0F, 3333333333333333.0F},
                            Point{0, 2, 1.5F}, Point{1e9F, 1e9F, 0}, Point{0, 0, 0},
                            Point{inf, -inf, 0}, Point{5, 7, 8}));
}

TEST(PatranBridge, APartlyReachedCoordinateCountsAsItStands) {
    const BridgeMesh mesh(summary(2, 0) + header(1, 1, 0, 2) + "1.25\nx\n" + header(1, 2, 0, 2) +
                          "               1               2      3\nx\n" + endOfFile());
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{1.25F, 0, 0}, Point{1, 2, 3}));
}

TEST(PatranBridge, CornersByShape) {
    const BridgeMesh mesh(
        summary(10, 8) + tenNodes() + element(1, 2, 0, {10, 9}) + element(2, 3, 0, {4, 6, 8}) +
        element(3, 4, 0, {1, 2, 3, 4}) + element(4, 5, 0, {5, 6, 7, 8}) +
        element(5, 6, 0, {1, 3, 5, 7, 9}) + element(6, 7, 0, {6, 5, 4, 3, 2, 1}) +
        element(7, 8, 0, {8, 7, 6, 5, 4, 3, 2, 1}) + element(8, -3, 0, {2, 2, 2, 3}) + endOfFile());
    EXPECT_THAT(mesh.corners(),
                ElementsAre(Corners{9, 8, 8, 8}, Corners{3, 5, 7, 7}, Corners{0, 1, 2, 3},
                            Corners{4, 5, 6, 7}, Corners{0, 2, 4, 6}, Corners{5, 4, 3, 2},
                            Corners{7, 6, 5, 4}, Corners{1, 1, 1, 2}));
    EXPECT_THAT(mesh.types(), ElementsAre(2, 3, 4, 5, 6, 7, 8, -3));
}

TEST(PatranBridge, ABarNamedByTwoIds) {
    const BridgeMesh mesh(summary(2, 1) + node(10, 1, 0, 0) + node(20, 2, 0, 0) +
                          element(1, 2, 0, {10, 20}) + endOfFile());
    EXPECT_THAT(mesh.corners(), ElementsAre(Corners{0, 1, 1, 1}));
}

TEST(PatranBridge, ThirdAndFourthNodeOfABarAndFourthOfATriangleAreNotRead) {
    const BridgeMesh mesh(summary(10, 2) + tenNodes() + element(1, 2, 0, {3, 4, 5, 6}) +
                          element(2, 3, 0, {3, 4, 5, 6}) + endOfFile());
    EXPECT_THAT(mesh.corners(), ElementsAre(Corners{2, 3, 3, 3}, Corners{2, 3, 4, 4}));
}

TEST(PatranBridge, ACornerThatTheCardDoesNotHoldIsId0) {
    const BridgeMesh mesh(summary(3, 3) + node(1, 0, 0, 0) + node(0, 0, 0, 0) + node(2, 0, 0, 0) +
                          element(1, 4, 0, {2, 2, 2, 2}) + element(2, 4, 0, {1, 2}) +
                          header(2, 3, 4, 2) + "\n" + "       2       x       2      --\n" +
                          endOfFile());
    EXPECT_THAT(mesh.corners(),
                ElementsAre(Corners{2, 2, 2, 2}, Corners{0, 2, 1, 1}, Corners{2, 1, 2, 1}));
}

TEST(PatranBridge, IdsThatNoNodeHasGiveIndex0) {
    // Unknown within the table, above the highest, negative, and a node of a negative id.
    const BridgeMesh mesh(summary(3, 1) + node(4, 0, 0, 0) + node(2, 1, 0, 0) + node(-5, 2, 0, 0) +
                          element(1, 4, 0, {3, 99999999, -1, 2}) + endOfFile());
    EXPECT_THAT(mesh.corners(), ElementsAre(Corners{0, 0, 0, 1}));
    const BridgeMesh negative(summary(2, 1) + node(4, 0, 0, 0) + node(-5, 1, 0, 0) +
                              element(1, 4, 0, {-5, 4, -5, 4}) + endOfFile());
    EXPECT_THAT(negative.nodes, ElementsAre(Point{0, 0, 0}, Point{1, 0, 0}));
    EXPECT_THAT(negative.corners(), ElementsAre(Corners{0, 0, 0, 0}));
}

TEST(PatranBridge, TheLastNodeOfAnIdCounts) {
    const BridgeMesh mesh(summary(3, 1) + node(1, 0, 0, 0) + node(2, 0, 0, 0) + node(1, 5, 0, 0) +
                          element(1, 2, 0, {1, 2}) + endOfFile());
    EXPECT_EQ(mesh.nodes.size(), 3U);
    EXPECT_THAT(mesh.corners(), ElementsAre(Corners{2, 1, 1, 1}));
}

TEST(PatranBridge, ElementsMayStandBeforeTheirNodes) {
    const BridgeMesh mesh(summary(2, 1) + element(1, 2, 0, {8, 7}) + node(7, 0, 0, 0) +
                          node(8, 0, 0, 0) + endOfFile());
    EXPECT_THAT(mesh.corners(), ElementsAre(Corners{1, 0, 0, 0}));
}

TEST(PatranBridge, NodesAndElementsBeyondTheSummaryAreNotStored) {
    const BridgeMesh mesh(summary(2, 1) + node(1, 1, 0, 0) + node(2, 2, 0, 0) + node(3, 3, 0, 0) +
                          element(1, 2, 0, {2, 1}) + element(2, 2, 0, {1, 2}) + endOfFile());
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{1, 0, 0}, Point{2, 0, 0}));
    EXPECT_THAT(mesh.corners(), ElementsAre(Corners{1, 0, 0, 0}));
}

TEST(PatranBridge, TypesOfPropertiesWithTwoValues) {
    const std::vector<std::pair<double, int>> kTypes = {
        {2, 10},    {2.9, 10}, {3, 11},    {3.999, 11}, {12, 12},    {12.5, 12},
        {1.999, 2}, {4, 2},    {0, 2},     {-2, 2},     {-2.5, 2},   {13, 2},
        {11.99, 2}, {1e30, 2}, {-1e30, 2}, {2.0, 10},   {3.0001, 11}};
    for (const auto& [first, type] : kTypes)
        EXPECT_EQ(elementWithProperty(1, property(1, 2, {first, 0.75}), 1),
                  expected(type, 0, 0.75, 0.75))
            << first;
}

TEST(PatranBridge, TypesOfPropertiesWithThreeOrFourValues) {
    for (const int n1 : {3, 4}) {
        EXPECT_EQ(elementWithProperty(1, property(1, n1, {2, 0.5, 7}), 1), expected(13, 0.5, 0, 0));
        EXPECT_EQ(elementWithProperty(1, property(1, n1, {2, 1e-30}), 1),
                  expected(13, static_cast<double>(1e-30F), 0, 0));
        EXPECT_EQ(elementWithProperty(1, property(1, n1, {2, 0, 7}), 1), expected(3, 0, 0, 0));
        EXPECT_EQ(elementWithProperty(1, property(1, n1, {12, -2}), 1), expected(3, -2, 0, 0));
        EXPECT_EQ(elementWithProperty(1, property(1, n1, {12}), 1), expected(3, 0, 0, 0));
    }
}

TEST(PatranBridge, OtherPropertiesHaveType0AndNoValues) {
    for (const int n1 : {0, 1, 5, 9, -2, 22})
        EXPECT_EQ(elementWithProperty(1, property(1, n1, {2, 0.5}), 1), expected(0, 0, 0, 0)) << n1;
}

TEST(PatranBridge, APropertySetAgainKeepsWhatIsNotSet) {
    EXPECT_EQ(elementWithProperty(2, property(1, 3, {2, 0.5}) + property(1, 7, {12, 9}), 1),
              expected(13, 0.5, 0, 0));
    EXPECT_EQ(elementWithProperty(2, property(1, 3, {2, 0.5}) + property(1, 2, {12, 9}), 1),
              expected(12, 0.5, 9, 9));
    EXPECT_EQ(elementWithProperty(2, property(1, 2, {2, 0.5}) + property(1, 4, {2, -1}), 1),
              expected(3, -1, 0.5, 0.5));
}

TEST(PatranBridge, PropertyValuesAreFloats) {
    EXPECT_EQ(elementWithProperty(1, header(4, 1, 0, 1, 2) + "2 0.1\n", 1),
              expected(10, 0, static_cast<double>(0.1F), static_cast<double>(0.1F)));
    // Near the middle of two floats: with a double in between it would be the lower one.
    EXPECT_EQ(elementWithProperty(1, header(4, 1, 0, 1, 3) + "2 1.61705881357193\n", 1),
              expected(13, 1.6170588731765747, 0, 0));
}

TEST(PatranBridge, PropertyValuesStandFreelyOrInSixteenColumns) {
    const std::string card = header(4, 1, 0, 1, 3);
    for (const char* values : {"2 0.5\n", "\t 2\t0.5\n", "1234567890123456             0.5\n",
                               "12345678901234560.5\n", "2. 5e-1 x\n"})
        EXPECT_EQ(elementWithProperty(1, card + values, 1), expected(13, 0.5, 0, 0)) << values;
    // What cannot be read stays 0, and so does all behind it.
    for (const char* values : {"x 0.5\n", "2 x 0.5\n", "2,0.5\n", "\n"})
        EXPECT_EQ(elementWithProperty(1, card + values, 1), expected(3, 0, 0, 0)) << values;
}

TEST(PatranBridge, WithoutPropertiesInTheSummaryTheShapeIsTheType) {
    EXPECT_EQ(elementWithProperty(0, "", 3), expected(4, 0, 0, 0));
    EXPECT_EQ(elementWithProperty(0, property(3, 2, {2, 1}), 3), expected(4, 0, 0, 0));
}

TEST(PatranBridge, PropertyIdsAreHolesOrUnknown) {
    const std::string properties = property(1, 2, {2, 0.5}) + property(7, 3, {1, 4});
    EXPECT_EQ(elementWithProperty(2, properties, 1), expected(10, 0, 0.5, 0.5));
    EXPECT_EQ(elementWithProperty(2, properties, 7), expected(13, 4, 0, 0));
    EXPECT_EQ(elementWithProperty(2, properties, 3), expected(0, 0, 0, 0));
    EXPECT_EQ(elementWithProperty(2, properties, 0), expected(0, 0, 0, 0));
    EXPECT_EQ(elementWithProperty(2, properties, 8), expected(14, 0, 0, 0));
    EXPECT_EQ(elementWithProperty(2, properties, -1), expected(14, 0, 0, 0));
    EXPECT_EQ(elementWithProperty(1, "", 0), expected(14, 0, 0, 0));
    EXPECT_EQ(elementWithProperty(-1, "", 0), expected(14, 0, 0, 0));
}

TEST(PatranBridge, PropertyId0IsValid) {
    EXPECT_EQ(elementWithProperty(1, property(0, 2, {3, 0.5}), 0), expected(11, 0, 0.5, 0.5));
}

TEST(PatranBridge, APropertyIdThatTheElementDoesNotNameIs0) {
    const BridgeMesh mesh(summary(1, 2, 2) + property(0, 2, {3, 1}) + property(5, 2, {2, 1}) +
                          node(1, 0, 0, 0) + header(2, 1, 2, 2) + integers({2, 0, 5}) +
                          integers({1, 1}) + header(2, 2, 2, 2) + integers({2, 0}) +
                          integers({1, 1}) + endOfFile());
    EXPECT_THAT(mesh.types(), ElementsAre(10, 11));
}

TEST(PatranBridge, PropertiesBeyondTheSummaryAreNotStored) {
    const std::string properties = property(1, 2, {2, 1}) + property(2, 2, {3, 1});
    EXPECT_EQ(elementWithProperty(1, properties, 1).type, 10);
    EXPECT_EQ(elementWithProperty(1, properties, 2).type, 14);
    EXPECT_EQ(elementWithProperty(2, properties, 2).type, 11);
}

TEST(PatranBridge, APropertyOfAnotherKindCountsAsRead) {
    EXPECT_EQ(elementWithProperty(1, property(1, 9, {2}) + property(2, 2, {3}), 2).type, 14);
}

TEST(PatranBridge, PropertyIdsFarOutArePassedOver) {
    for (const char* id : {"16777216", "99999999", "-1", "2147483647", "-2147483648"}) {
        const std::string far = std::string("4 ") + id + " 0 1 2 0 0 0 0\n2 1\n";
        EXPECT_EQ(elementWithProperty(1, far, 0).type, 14) << id;
        EXPECT_EQ(elementWithProperty(2, far + property(1, 2, {3, 1}), 1).type, 11) << id;
    }
    const std::string last = "4 16777215 0 1 2 0 0 0 0\n2 1\n";
    EXPECT_EQ(elementWithProperty(1, last, 16777215), expected(10, 0, 1, 1));
    EXPECT_EQ(elementWithProperty(1, last, 16777214), expected(0, 0, 0, 0));
    EXPECT_EQ(elementWithProperty(1, last, 16777216), expected(14, 0, 0, 0));
}

TEST(PatranBridge, APropertyHeaderIsReadFreelyToo) {
    for (const char* card : {"4 6 0 1 2\n", " 4  6\t0 1 2 0 0 0 0\n", "4\t6 1 1 2 9 9 9 9 9\n"})
        EXPECT_EQ(elementWithProperty(1, std::string(card) + "3 0.5\n", 6),
                  expected(11, 0, 0.5, 0.5))
            << card;
    // Fewer numbers: the others stay as the fixed columns gave them, N1 as the summary had it.
    EXPECT_EQ(elementWithProperty(1, "4 6 x\n3 0.5\n", 6), expected(0, 0, 0, 0));
    EXPECT_EQ(elementWithProperty(1, header(9, 0, 0, 0, 3) + "4 6 x\n3 0.5\n", 6),
              expected(13, 0.5, 0, 0));
}

TEST(PatranBridge, PropertyCardsBehindTheFirstAreReadAsHeaders) {
    // "1 ..." in the first columns makes a node of the surplus card and the two lines behind it.
    const BridgeMesh mesh(summary(2, 0, 1) + header(4, 1, 0, 2, 2) + "2 1\n" + " 1       7\n" +
                          reals({1, 2, 3}) + "x\n" + node(8, 4, 5, 6) + endOfFile());
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{1, 2, 3}, Point{4, 5, 6}));
}

TEST(PatranBridge, AnIndexNotBelowTheSummaryGivesType13) {
    const ElementData none = {{0, 0, 0, 0}, 13, 0, 0, 0};
    const BridgeMesh all(summary(2, 1) + node(1, 0, 0, 0) + node(2, 0, 0, 0) +
                         element(1, 2, 0, {2, 2}) + endOfFile());
    EXPECT_EQ(all.elements.at(0).type, 2);
    EXPECT_EQ(all.behindLast, none);
    // The summary counts more than there are, or fewer once it comes again.
    const BridgeMesh fewer(summary(2, 3) + node(1, 0, 0, 0) + node(2, 0, 0, 0) +
                           element(1, 2, 0, {2, 2}) + endOfFile());
    EXPECT_EQ(fewer.elements.size(), 1U);
    EXPECT_EQ(fewer.behindLast, none);
    const BridgeMesh again(summary(1, 2) + node(1, 0, 0, 0) + element(1, 2, 0, {1, 1}) +
                           element(2, 2, 0, {1, 1}) + summary(1, 1) + endOfFile());
    EXPECT_THAT(again.types(), ElementsAre(2, 13));
}

TEST(PatranBridge, ASecondSummaryReplacesTheCountsAndKeepsTheMesh) {
    const BridgeMesh mesh(summary(1, 1, 1) + property(0, 2, {2, 1}) + node(1, 1, 0, 0) +
                          element(1, 2, 0, {1, 1}) + summary(2, 2, 0) + node(2, 2, 0, 0) +
                          element(2, 2, 0, {2, 1}) + endOfFile());
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{1, 0, 0}, Point{2, 0, 0}));
    EXPECT_THAT(mesh.corners(), ElementsAre(Corners{0, 0, 0, 0}, Corners{1, 0, 0, 0}));
    EXPECT_THAT(mesh.types(), ElementsAre(2, 2));  // no properties any more
}

TEST(PatranBridge, NothingBeforeTheSummaryIsStored) {
    const BridgeMesh mesh(node(1, 1, 0, 0) + element(1, 2, 0, {1, 1}) + property(0, 2, {2, 1}) +
                          summary(2, 1, 1) + node(2, 2, 0, 0) + node(3, 3, 0, 0) +
                          element(2, 2, 0, {3, 2}) + endOfFile());
    EXPECT_THAT(mesh.nodes, ElementsAre(Point{2, 0, 0}, Point{3, 0, 0}));
    EXPECT_THAT(mesh.corners(), ElementsAre(Corners{1, 0, 0, 0}));
    EXPECT_THAT(mesh.types(), ElementsAre(14));
    const BridgeMesh without(node(1, 1, 0, 0) + element(1, 2, 0, {1, 1}) + endOfFile());
    EXPECT_TRUE(without.result);
    EXPECT_THAT(without.nodes, IsEmpty());
    EXPECT_THAT(without.elements, IsEmpty());
}

TEST(PatranBridge, AShortSummaryTakesTheCountsOfTheHeaderBefore) {
    const BridgeMesh mesh(header(9, 0, 0, 0, 2, 1) + "26\ndate\n" + node(1, 1, 0, 0) +
                          node(2, 2, 0, 0) + element(1, 2, 0, {2, 1}) + endOfFile());
    EXPECT_EQ(mesh.nodes.size(), 2U);
    EXPECT_THAT(mesh.corners(), ElementsAre(Corners{1, 0, 0, 0}));
}

}  // namespace
}  // namespace kvocaeio::test
