/// Files that the Patran writer writes, to the last byte.
#include <array>
#include <climits>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "patran/neutral_file.h"
#include "patran/written_file.h"

namespace kvocaeio::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;

/// The platform's form of a text.
std::string nativeText(const std::string& text) {
#if defined(_WIN32)
    return withCrLf(text);
#else
    return text;
#endif
}

TEST_F(PatranWriter, WritesATetrahedronAndAWedge) {
    begin(6, 2);
    writer.AddNode(0, 0, 0, 0);
    writer.AddNode(1, 1, -0.5, 1234567.8);
    writer.AddNode(2, 1e-5, 2.0 / 3.0, -1e100);
    writer.AddNode(5, 6, 7, 8);
    addElement(0, {1, 2, 3, 4});
    addElement(1, {6, 5, 4, 3, 2, 1});
    EXPECT_TRUE(writer.WriteFile());
    EXPECT_EQ(
        readBytes(path),
        nativeText("25       0       0       1       0       0       0       0       0\n"
                   "**                 Created By : Vorlan9Q-Mesh R13\n"
                   "26       0       0       1       6       2       0       1       1\n"
                   "\n"
                   " 1       1       0       2       6       2       0       181\n"
                   "    0.000000E+00    0.000000E+00    0.000000E+00\n"
                   "       0       0       0       0       0       0       0       0       0\n"
                   " 1       2       0       2       0       0       0       080\n"
                   "    1.000000E+00   -5.000000E-01    1.234568E+06\n"
                   "       0       0       0       0       0       0       0       0       0\n"
                   " 1       3       0       2       0       0       0       080\n"
                   "    1.000000E-05    6.666667E-01  -1.000000E+100\n"
                   "       0       0       0       0       0       0       0       0       0\n"
                   " 1       4       0       2       0       0       0       080\n"
                   "    0.000000E+00    0.000000E+00    0.000000E+00\n"
                   "       0       0       0       0       0       0       0       0       0\n"
                   " 1       5       0       2       0       0       0       080\n"
                   "    0.000000E+00    0.000000E+00    0.000000E+00\n"
                   "       0       0       0       0       0       0       0       0       0\n"
                   " 1       6       0       2       0       0       0       080\n"
                   "    6.000000E+00    7.000000E+00    8.000000E+00\n"
                   "       0       0       0       0       0       0       0       0       0\n"
                   " 2       1       5       2       0       0       0       080\n"
                   "       5       2       0\n"
                   "       1       2       3       4       0       0       0       0\n"
                   " 2       2       7       2       0       0       0       080\n"
                   "       7       2       0\n"
                   "       6       5       4       3       2       1       0       0\n"
                   "99       0       0       1       0       0       0       080\n"
                   "\n"));
}

TEST_F(PatranWriter, WritesAHexahedron) {
    begin(1, 1);
    addElement(0, {1, 22, 333, 4444, 55555, 666666, 7777777, 88888888});
    EXPECT_EQ(written(),
              oneNode(" 2       1       8       2       0       0       0       080\n"
                      "       8       2       0\n"
                      "       1      22     333    4444   55555  666666 777777788888888\n"));
}

TEST_F(PatranWriter, NodeIdsGoToTheFileAsTheyAre) {
    begin(1, 1);
    addElement(0, {0, -1, INT_MAX, INT_MIN});
    EXPECT_EQ(written(),
              oneNode(" 2       1       5       2       0       0       0       080\n"
                      "       5       2       0\n"
                      "       0      -12147483647-2147483648       0       0       0       0\n"));
}

TEST_F(PatranWriter, AnElementThatWasNeverAdded) {
    begin(1, 1);
    EXPECT_EQ(written(), oneNode(" 2       1       0       2       0       0       0       080\n"
                                 "       0       2       0\n" +
                                 kNoNodes));
}

TEST_F(PatranWriter, OtherNodeCountsLeaveTheShape) {
    for (const int count : {1, 2, 3, 5, 7}) {
        begin(1, 1);
        const std::vector<int> nodes(static_cast<std::size_t>(count), 3);
        addElement(0, nodes);
        std::string ids;
        for (int k = 0; k < 8; ++k)
            ids += k < count ? "       3" : "       0";
        EXPECT_EQ(written(),
                  oneNode(" 2       1       0       2       0       0       0       080\n"
                          "       0       2       0\n" +
                          ids + "\n"))
            << count;
    }
}

TEST_F(PatranWriter, AddedAgainAnElementKeepsWhatIsNotGiven) {
    begin(1, 1);
    addElement(0, {1, 2, 3, 4, 5, 6, 7, 8});
    addElement(0, {9, 9, 9, 9});
    addElement(0, {6, 6});
    writer.AddElement(0, 0, nullptr);
    writer.AddElement(0, -4, nullptr);
    EXPECT_EQ(written(),
              oneNode(" 2       1       5       2       0       0       0       080\n"
                      "       5       2       0\n"
                      "       6       6       9       9       5       6       7       8\n"));
}

TEST_F(PatranWriter, OfMoreThanEightNodesTheFirstEightAreKept) {
    begin(1, 2);
    addElement(0, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    addElement(1, {1, 1, 1, 1});
    addElement(1, std::vector<int>(1000, 2));
    EXPECT_THAT(
        written(),
        testing::EndsWith(" 2       1       0       2       0       0       0       080\n"
                          "       0       2       0\n"
                          "       1       2       3       4       5       6       7       8\n"
                          " 2       2       5       2       0       0       0       080\n"
                          "       5       2       0\n"
                          "       2       2       2       2       2       2       2       2\n" +
                          kEnd));
}

TEST_F(PatranWriter, CoordinatesAtTheEndsOfTheirRange) {
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<std::pair<double, std::string>> kNumbers = {
        {0.0, "    0.000000E+00"},
        {-0.0, "   -0.000000E+00"},
        {1.0, "    1.000000E+00"},
        {-1.0, "   -1.000000E+00"},
        {1e99, "    1.000000E+99"},
        {1e-99, "    1.000000E-99"},
        {1e-100, "   1.000000E-100"},
        {9.99999951e99, "   1.000000E+100"},
        {5e-324, "   4.940656E-324"},
        {-5e-324, "  -4.940656E-324"},
        {1.7976931348623157e308, "   1.797693E+308"},
        {-1.7976931348623157e308, "  -1.797693E+308"},
        {2.2250738585072014e-308, "   2.225074E-308"},
        {123456.7, "    1.234567E+05"},
        {1234567.5, "    1.234568E+06"},
        {1234566.5, "    1.234566E+06"},
        {9999999.4, "    9.999999E+06"},
        {9999999.5, "    1.000000E+07"},
        {-9999999.5, "   -1.000000E+07"},
        {9999999.6, "    1.000000E+07"},
        {inf, "             INF"},
        {-inf, "            -INF"},
        {std::copysign(nan, 1.0), "             NAN"},
        {std::copysign(nan, -1.0), "            -NAN"}};
    for (const auto& [value, text] : kNumbers) {
        begin(1, 1);
        writer.AddNode(0, value, -1, value);
        EXPECT_THAT(written(), HasSubstr("\n" + text + "   -1.000000E+00" + text + "\n"));
    }
}

TEST_F(PatranWriter, IdsAreCountedFromOne) {
    begin(10, 12);
    const std::string file = written();
    EXPECT_THAT(file,
                HasSubstr("\n 1      10       0       2       0       0       0       080\n"));
    EXPECT_THAT(file,
                HasSubstr("\n 2      12       0       2       0       0       0       080\n"));
    EXPECT_THAT(file, testing::Not(HasSubstr("\n 1      11 ")));
    EXPECT_THAT(file,
                HasSubstr("\n 1       1       0       2      10      12       0       181\n"));
}

TEST_F(PatranWriter, WrittenTwiceTheFileIsTheSame) {
    begin(2, 1);
    writer.AddNode(1, 3, 4, 5);
    addElement(0, {1, 2, 1, 2});
    const std::string first = written();
    folder.write("mesh.pat", first + first);  // longer: the second writing replaces all of it
    EXPECT_EQ(written(), first);
    writer.AddNode(0, 6, 6, 6);
    EXPECT_NE(written(), first);
}

TEST_F(PatranWriter, BothReadersReadItBack) {
    begin(9, 4);
    for (int i = 0; i < 9; ++i)
        writer.AddNode(i, 0.5 * i, -1.25e-3 * i, 1e6 + i);
    addElement(0, {1, 2, 3, 9});
    addElement(1, {4, 5, 6, 7, 8, 9});
    addElement(2, {8, 7, 6, 5, 4, 3, 2, 1});
    const std::string file = written();
    const BridgeMesh bridge(file);
    const FlatMesh flat(file);
    ASSERT_EQ(bridge.nodes.size(), 9U);
    EXPECT_EQ(bridge.nodes[0], (Point{0, -0.0F, 1e6F}));
    EXPECT_EQ(bridge.nodes[8], (Point{4, -0.01F, 1000008}));
    EXPECT_EQ(flat.nodes, bridge.nodes);
    // The summary says one property, and there is none: type 14.
    EXPECT_THAT(bridge.types(), Each(14));
    EXPECT_THAT(bridge.corners(), ElementsAre(std::array{0, 1, 2, 8}, std::array{3, 4, 5, 6},
                                              std::array{7, 6, 5, 4}, std::array{0, 0, 0, 0}));
    EXPECT_EQ(flat.propertyCount, 1);
    EXPECT_THAT(flat.elements, ElementsAre(FlatElement{5, 0, {0, 1, 2, 8, 0, 0, 0, 0}},
                                           FlatElement{7, 0, {3, 4, 5, 6, 7, 8, 0, 0}},
                                           FlatElement{8, 0, {7, 6, 5, 4, 3, 2, 1, 0}},
                                           FlatElement{0, 0, {0, 0, 0, 0, 0, 0, 0, 0}}));
    EXPECT_EQ(flat.printed, "");
}

}  // namespace
}  // namespace kvocaeio::test
