/// Lines and header cards, as both readers take them of the same files.
#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "patran/neutral_file.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

using Corners = std::array<int, 4>;
using Slots = std::array<int, 8>;

/// Both readers store the same nodes; the flat one has zeros for the others that the summary
/// counts.
void expectNodes(const std::string& file, std::vector<Point> nodes) {
    const BridgeMesh bridge(file);
    EXPECT_TRUE(bridge.result);
    EXPECT_THAT(bridge.nodes, ElementsAreArray(nodes));
    EXPECT_EQ(bridge.printed, "");
    const FlatMesh flat(file);
    EXPECT_TRUE(flat.result);
    nodes.resize(std::max(nodes.size(), flat.nodes.size()));
    EXPECT_THAT(flat.nodes, ElementsAreArray(nodes));
}

/// Two nodes and a bar between them.
std::string sample() {
    return header(25, 0, 0, 1) + "TITLE\n" + summary(2, 1) + node(5, 1, 2, 3) + node(9, 4, 5, 6) +
           element(1, 2, 0, {9, 5}) + endOfFile();
}

void expectSample(const std::string& file) {
    const BridgeMesh bridge(file);
    EXPECT_THAT(bridge.nodes, ElementsAre(Point{1, 2, 3}, Point{4, 5, 6}));
    EXPECT_THAT(bridge.elements, ElementsAre(ElementData{{1, 0, 0, 0}, 2, 0, 0, 0}));
    const FlatMesh flat(file);
    EXPECT_THAT(flat.nodes, ElementsAre(Point{1, 2, 3}, Point{4, 5, 6}));
    EXPECT_THAT(flat.elements, ElementsAre(FlatElement{2, 0, {1, 0, 0, 0, 0, 0, 0, 0}}));
    EXPECT_EQ(flat.printed, "");
}

TEST(PatranCards, ASoundFile) {
    expectSample(sample());
}

TEST(PatranCards, LineEndsOfEitherKind) {
    expectSample(withCrLf(sample()));
}

TEST(PatranCards, WhatStandsBehindPacket99IsNotRead) {
    expectSample(sample() + summary(3, 3) + node(1, 7, 7, 7));
    std::string withoutLineEnd = sample();
    withoutLineEnd.resize(withoutLineEnd.rfind("99") + 2);
    expectSample(withoutLineEnd);
}

TEST(PatranCards, ACtrlZEndsTheFile) {
    const std::string file = summary(1, 0) + node(5, 1, 2, 3) + "\x1a" + node(9, 4, 5, 6);
    expectNodes(file, {{1, 2, 3}});
    EXPECT_EQ(FlatMesh(file).printed, kMetEndTwice);
}

TEST(PatranCards, CommentsStandWhereAHeaderMay) {
    std::string file = "!\n! first\n" + header(25, 0, 0, 1) + "TITLE\n!26\n" + summary(2, 1) +
                       "!       1       1\n" + node(5, 1, 2, 3) + "!\n!\n" + node(9, 4, 5, 6) +
                       "! elements\n" + element(1, 2, 0, {9, 5}) + "! end\n" + endOfFile();
    expectSample(file);
    expectSample(withCrLf(file));
}

TEST(PatranCards, ACommentAmongDataCardsIsACard) {
    expectNodes(summary(2, 0) + header(1, 1, 0, 2) + "! coordinates\n" + reals({1, 2, 3}) +
                    node(2, 4, 5, 6) + endOfFile(),
                {{0, 0, 0}, {4, 5, 6}});
    // What was to be the second card is a header now, of packet 1 again and id 0.
    const std::string file = summary(3, 1) + header(1, 7, 0, 2) + reals({1, 2, 3}) +
                             "! a comment\n" + "       0       0\n" + reals({4, 5, 6}) + "x\n" +
                             node(9, 7, 8, 9) + element(1, 3, 0, {9, 0, 7}) + endOfFile();
    expectNodes(file, {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
    EXPECT_THAT(BridgeMesh(file).corners(), ElementsAre(Corners{2, 1, 0, 0}));
    // Among the cards of a title, a summary and an unknown packet.
    expectSample(header(25, 0, 0, 1) + "! title\n" + header(26, 0, 0, 1, 2, 1) + "! date\n" +
                 header(6, 0, 0, 2) + "! load\n!\n" + sample().substr(sample().find(" 1       5")));
}

TEST(PatranCards, ACommentMarkBehindTheFirstColumnIsNone) {
    // " !" holds no packet type: packet 1 again, of the same id.
    expectNodes(
        summary(2, 0) + node(1, 1, 2, 3) + " ! x\n" + reals({4, 5, 6}) + "x\n" + endOfFile(),
        {{1, 2, 3}, {4, 5, 6}});
}

TEST(PatranCards, ABlankLineRepeatsTheNodeBefore) {
    const std::string file = summary(2, 1) + node(5, 1, 2, 3) + "\n" + reals({4, 5, 6}) + "x\n" +
                             element(1, 2, 0, {5, 1}) + endOfFile();
    expectNodes(file, {{1, 2, 3}, {4, 5, 6}});
    EXPECT_THAT(BridgeMesh(file).corners(), ElementsAre(Corners{1, 0, 0, 0}));
    EXPECT_THAT(FlatMesh(file).slots(), ElementsAre(Slots{1, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(PatranCards, ABlankLineRepeatsTheElementBefore) {
    const std::string file = summary(2, 2) + node(1, 0, 0, 0) + node(2, 0, 0, 0) +
                             element(1, 3, 4, {1, 2, 1}) + "   \n" + integers({3, 0, 6}) +
                             integers({2, 1, 2}) + endOfFile();
    EXPECT_THAT(BridgeMesh(file).corners(), ElementsAre(Corners{0, 1, 0, 0}, Corners{1, 0, 1, 1}));
    EXPECT_THAT(FlatMesh(file).elements, ElementsAre(FlatElement{3, 4, {0, 1, 0, 0, 0, 0, 0, 0}},
                                                     FlatElement{3, 6, {1, 0, 1, 0, 0, 0, 0, 0}}));
}

TEST(PatranCards, ABlankLineRepeatsTheSkippingBefore) {
    expectNodes(summary(1, 0) + header(6, 0, 0, 3) + "a\nb\nc\n" + "\n" + node(7, 7, 7, 7) +
                    node(1, 1, 2, 3) + endOfFile(),
                {{1, 2, 3}});
}

TEST(PatranCards, ABlankLineBehindTheSummaryReadsOneMoreCard) {
    const std::string file = summary(1, 0) + "\n" + "a card\n" + node(1, 1, 2, 3) + endOfFile();
    EXPECT_THAT(BridgeMesh(file).nodes, ElementsAre(Point{1, 2, 3}));
    EXPECT_EQ(FlatMesh(file).nodeCount, 0);  // its second summary counts nothing
}

TEST(PatranCards, AShortHeaderKeepsTheNumbersBefore) {
    // The second node takes the id of the unknown packet, the third one has its own.
    const std::string file = summary(3, 1) + node(1, 1, 0, 0) + header(6, 4, 0, 0) + " 1\n" +
                             reals({2, 0, 0}) + "x\n" + " 1       5" + "\n" + reals({3, 0, 0}) +
                             "x\n" + node(8, 4, 0, 0) + header(9, 0, 3, 0) + " 2       1\n" +
                             integers({3, 0, 0}) + integers({5, 4, 1}) + endOfFile();
    // The first pass of the bridge believes that no cards stand behind the packets of KC 0.
    const BridgeMesh bridge(file);
    EXPECT_THAT(bridge.nodes, ElementsAre(Point{1, 0, 0}, Point{2, 0, 0}, Point{3, 0, 0}));
    EXPECT_THAT(bridge.elements, ElementsAre(ElementData{{2, 1, 0, 0}, 3, 0, 0, 0}));
    const FlatMesh flat(file);
    EXPECT_THAT(flat.nodes, ElementsAre(Point{1, 0, 0}, Point{2, 0, 0}, Point{3, 0, 0}));
    EXPECT_THAT(flat.elements, ElementsAre(FlatElement{3, 0, {2, 1, 0, 0, 0, 0, 0, 0}}));
}

TEST(PatranCards, APartlyReachedFieldCountsAsItStands) {
    // Three of the eight columns of an id.
    const std::string id = summary(2, 1) + node(1, 1, 2, 3) + " 1123\n" + reals({4, 5, 6}) + "x\n" +
                           element(1, 2, 0, {123, 1}) + endOfFile();
    expectNodes(id, {{1, 2, 3}, {4, 5, 6}});
    EXPECT_THAT(BridgeMesh(id).corners(), ElementsAre(Corners{1, 0, 0, 0}));
    EXPECT_THAT(FlatMesh(id).slots(), ElementsAre(Slots{1, 0, 0, 0, 0, 0, 0, 0}));
    // The corner card too ends within a field.
    const std::string corner = summary(2, 1) + node(1, 0, 0, 0) + node(12, 0, 0, 0) +
                               header(2, 1, 2, 2) + integers({2, 0, 0}) + "       1 12\n" +
                               endOfFile();
    EXPECT_THAT(BridgeMesh(corner).corners(), ElementsAre(Corners{0, 1, 1, 1}));
    EXPECT_THAT(FlatMesh(corner).slots(), ElementsAre(Slots{0, 1, 0, 0, 0, 0, 0, 0}));
}

TEST(PatranCards, FieldsAreColumnsNotWords) {
    // Ids that fill their eight columns, and numbers with anything behind them.
    const std::string file = summary(3, 1) + " 100001234 junk   2.5    0\n" + reals({1, 0, 0}) +
                             "x\n" + "1 +7      4x      2       0\n" + reals({2, 0, 0}) + "x\n" +
                             "01\t  8  8\t\n" + reals({3, 0, 0}) + "x\n" +
                             element(1, 3, 0, {1234, 7, 8}) + endOfFile();
    expectNodes(file, {{1, 0, 0}, {2, 0, 0}, {3, 0, 0}});
    EXPECT_THAT(BridgeMesh(file).corners(), ElementsAre(Corners{0, 1, 2, 2}));
    EXPECT_THAT(FlatMesh(file).slots(), ElementsAre(Slots{0, 1, 2, 0, 0, 0, 0, 0}));
}

TEST(PatranCards, UnknownPacketsAreSkippedByTheirCount) {
    for (const int it : {0, 3, 5, 6, 24, 27, 98, -1, -9}) {
        expectNodes(summary(1, 0) + header(it, 1, 1, 2) + header(99, 0, 0, 1) + "26\n" +
                        node(1, 1, 2, 3) + endOfFile(),
                    {{1, 2, 3}});
        for (const int none : {0, -1, -9999999})
            expectNodes(summary(1, 0) + header(it, 1, 1, none) + node(1, 1, 2, 3) + endOfFile(),
                        {{1, 2, 3}});
    }
}

TEST(PatranCards, ThePropertyHeaderReadFreelyStandsForTheNextOne) {
    // KC is 6 then, and two nodes are skipped by the short header of packet 9.
    const std::string skipping = summary(1, 0, 1) + "4 1 0 6 2\n" + reals({2, 1}) + " 9\n" +
                                 node(7, 7, 7, 7) + node(8, 8, 8, 8) + node(1, 1, 2, 3) +
                                 endOfFile();
    expectNodes(skipping, {{1, 2, 3}});
    // A packet type that no two columns can hold skips its three cards, too.
    expectNodes(summary(1, 0, 1) + " 4100 1 0 3 2\n" + reals({2, 1}) + "\n" + node(7, 7, 7, 7) +
                    node(1, 1, 2, 3) + endOfFile(),
                {{1, 2, 3}});
}

TEST(PatranCards, SurplusCardsOfAnElementAreReadAsHeaders) {
    // The third card of the hexahedron repeats packet 2, with the shape 10 and cards that are the
    // header and the first card of the next element.
    std::string file = summary(10, 2);
    for (int id = 1; id <= 10; ++id)
        file += node(id, id, 0, 0);
    file += header(2, 1, 8, 3) + integers({10, 0, 0}) + integers({1, 2, 3, 4, 5, 6, 7, 8}) +
            integers({9, 10}) + header(2, 2, 4, 2) + integers({4, 0, 7}) + integers({4, 3, 2, 1}) +
            endOfFile();
    EXPECT_THAT(BridgeMesh(file).elements, ElementsAre(ElementData{{0, 1, 2, 3}, 8, 0, 0, 0},
                                                       ElementData{{3, 0, 6, 0}, 10, 0, 0, 0}));
    EXPECT_THAT(FlatMesh(file).elements, ElementsAre(FlatElement{8, 0, {0, 1, 2, 3, 4, 5, 6, 7}},
                                                     FlatElement{0, 4, {3, 0, 6, 0, 0, 0, 0, 0}}));
}

TEST(PatranCards, ALineOf224CharactersLeavesItsLineEnd) {
    for (const bool crLf : {false, true})
        for (const std::size_t length : {100U, 222U, 223U, 224U, 225U, 226U, 300U}) {
            std::string file = summary(1, 0) + header(25, 0, 0, 1) + lengthened("TITLE", length) +
                               node(5, 1, 2, 3) + endOfFile();
            if (crLf)
                file = withCrLf(file);
            // The rest of the title is a blank header: one more title, whose card is the node's
            // header. What follows is read as titles, too.
            if (length <= 223)
                expectNodes(file, {{1, 2, 3}});
            else
                expectNodes(file, {});
        }
}

TEST(PatranCards, AHeaderLongerThanTheBoundRepeats) {
    for (const std::size_t length : {223U, 224U}) {
        const std::string file = summary(2, 0) + lengthened(header(1, 5, 0, 2), length) +
                                 reals({1, 2, 3}) + "x\n" + node(6, 4, 5, 6) + endOfFile();
        // From 224 on the blank rest stands for the coordinates, and these for the second card; "x"
        // is a header, which repeats packet 1 with the cards of the next node.
        if (length == 223)
            expectNodes(file, {{1, 2, 3}, {4, 5, 6}});
        else
            expectNodes(file, {{0, 0, 0}, {1, 0, 0}});
    }
}

TEST(PatranCards, SkippedLinesOfTheBridgesFirstPassAreLonger) {
    for (const std::size_t length : {222U, 223U, 224U, 225U, 226U, 257U, 258U, 259U, 260U, 261U}) {
        const std::string file = summary(2, 1) + node(1, 0, 0, 0) + header(6, 0, 0, 1) +
                                 lengthened("", length) + header(6, 0, 0, 1) + node(9, 1, 0, 0) +
                                 element(1, 2, 0, {9, 1}) + endOfFile();
        SCOPED_TRACE(length);
        const BridgeMesh bridge(file);
        const FlatMesh flat(file);
        // In one piece, the card leaves the second packet 6 in place, which skips the node's
        // header; in two, the second piece repeats packet 6 and skips that of the second.
        if (length <= 223) {
            EXPECT_EQ(bridge.nodes.size(), 1U);
            EXPECT_THAT(bridge.corners(), ElementsAre(Corners{0, 0, 0, 0}));
            EXPECT_THAT(flat.slots(), ElementsAre(Slots{0, 0, 0, 0, 0, 0, 0, 0}));
        } else {
            EXPECT_EQ(bridge.nodes.size(), 2U);
            // Up to 258 the first pass does not see the node, whose id so is in no map.
            const int index = length <= 258 ? 0 : 1;
            EXPECT_THAT(bridge.corners(), ElementsAre(Corners{index, 0, 0, 0}));
            EXPECT_THAT(flat.slots(), ElementsAre(Slots{1, 0, 0, 0, 0, 0, 0, 0}));
        }
    }
}

TEST(PatranCards, AtTheEndTheLastLineIsAHeaderOnceMore) {
    // "1G       6 ..." is a node of id 6, and its own data cards as well.
    const std::string file = summary(2, 1) + element(1, 2, 0, {6, 5}) + node(5, 1, 2, 3);
    expectNodes(file, {{1, 2, 3}, {1, 0, 0}});
    EXPECT_THAT(BridgeMesh(file).corners(), ElementsAre(Corners{1, 0, 0, 0}));
    EXPECT_EQ(FlatMesh(file).printed, kMetEndTwice);
    // Without a line feed the end is known before.
    const std::string cut = file.substr(0, file.size() - 1);
    EXPECT_THAT(BridgeMesh(cut).nodes, ElementsAre(Point{1, 2, 3}));
    EXPECT_THAT(FlatMesh(cut).nodes, ElementsAre(Point{1, 2, 3}, Point{0, 0, 0}));
    EXPECT_EQ(FlatMesh(cut).printed, kMetEndTwice);
}

TEST(PatranCards, AtTheEndTheLastLineIsEveryCardThatIsMissing) {
    // The header stands for the coordinates: 1, then 0 of "       0       2", then 0.
    const std::string file = summary(1, 0) + header(1, 5, 0, 2);
    expectNodes(file, {{1, 0, 0}});
    expectNodes(file.substr(0, file.size() - 1), {{1, 0, 0}});
    // The element's first card is its second one as well.
    const std::string bar = summary(2, 1) + node(2, 0, 0, 0) + node(4, 1, 0, 0) +
                            header(2, 1, 4, 2) + integers({4, 2, 7, 4});
    EXPECT_THAT(BridgeMesh(bar).corners(), ElementsAre(Corners{1, 0, 0, 1}));
    EXPECT_THAT(FlatMesh(bar).elements, ElementsAre(FlatElement{4, 7, {1, 0, 0, 1, 0, 0, 0, 0}}));
}

TEST(PatranCards, AtTheEndSkippingStops) {
    for (const char* cards : {"", "x\n", "x\ny", "! 1\n"}) {
        const std::string file =
            summary(1, 0) + node(1, 1, 2, 3) + header(6, 0, 0, 99999999) + cards;
        expectNodes(file, {{1, 2, 3}});
        EXPECT_EQ(FlatMesh(file).printed, kMetEndTwice);
    }
}

TEST(PatranCards, ANulEndsItsLine) {
    const std::string nul(1, '\0');
    const std::string file = summary(2, 1) + " 1       5" + nul + "      99\n" + "     1.5" + nul +
                             "              7              7\n" + "x\n" + nul + "!\n" +
                             reals({4, 5, 6}) + nul + "\n" + element(1, 2, 0, {5, 0}) + endOfFile();
    // The line that begins with a NUL is blank and repeats the node.
    expectNodes(file, {{1.5F, 0, 0}, {4, 5, 6}});
    EXPECT_THAT(BridgeMesh(file).corners(), ElementsAre(Corners{1, 0, 0, 0}));
}

TEST(PatranCards, FilesWithoutPackets) {
    for (const char* file : {"", "\n", "\n\n\n", "!", "! only\n", "no packets\nhere\n", "\x1a"}) {
        expectNodes(file, {});
        EXPECT_THAT(BridgeMesh(file).elements, IsEmpty());
        EXPECT_EQ(FlatMesh(file).printed, kMetEndTwice);
    }
}

}  // namespace
}  // namespace kvocaeio::test
