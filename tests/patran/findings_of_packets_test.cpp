/// What is found of lines, headers and the order of packets: lines, columns, subjects, counts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "patran/found.h"
#include "patran/neutral_file.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kTitle = header(25, 0, 0, 1) + "TITLE\n";
const std::string kNodes = node(1, 0, 0, 0) + node(2, 1, 0, 0);
const std::string kBar = element(1, 2, 0, {1, 2});
const std::string kSummary = summary(2, 1);  // lines 1 and 2; the nodes are lines 3 to 8

std::string firstLineOf(const std::string& packet) {
    return packet.substr(0, packet.find('\n'));
}

TEST(PatranFindings, OfACleanFileThereAreNone) {
    EXPECT_THAT(foundIn(kTitle + "! a bar\n" + kSummary + kNodes + kBar + endOfFile()), IsEmpty());
    EXPECT_THAT(foundIn(withCrLf(kSummary + kNodes + kBar + endOfFile())), IsEmpty());
    EXPECT_THAT(foundIn(summary(0, 0) + endOfFile() + "\n ! the end\n"), IsEmpty());
}

TEST(PatranFindings, PacketsOfOtherTypesAreSkipped) {
    EXPECT_THAT(foundIn(kTitle + kSummary + header(6, 1, 0, 2) + "x\ny\n" + kNodes + kBar +
                        header(21, 1, 0, 1) + "x\n" + header(98, 7, 0, 1) + "x\n" + endOfFile()),
                ElementsAre("patran.packet-skipped (6 (distributed loads)) 5:2 6",
                            "patran.packet-skipped (21 (named components)) 17:1 21",
                            "patran.packet-unknown 19:1 98"));
}

TEST(PatranFindings, PacketsThatTheSummaryDoesNotCountAreNotStored) {
    const std::string third = node(3, 9, 0, 0);
    const std::string second = element(2, 2, 0, {2, 1});
    const std::string first = property(1, 2, {2, 1});
    EXPECT_THAT(foundIn(kSummary + kNodes + third + kBar + second + first + endOfFile()),
                ElementsAre("patran.packet-not-counted (nodes) 9:0 " + firstLineOf(third),
                            "patran.packet-not-counted (elements) 15:0 " + firstLineOf(second),
                            "patran.packet-not-counted (properties) 18:0 " + firstLineOf(first)));
}

TEST(PatranFindings, PacketsBeforeTheSummaryAreNotStored) {
    const std::string early = node(9, 0, 0, 0);
    EXPECT_THAT(foundIn(early + kSummary + kNodes + kBar + endOfFile()),
                ElementsAre("patran.packet-before-summary (nodes) 1:0 " + firstLineOf(early)));
    EXPECT_THAT(foundIn(kTitle + endOfFile()), ElementsAre("patran.summary-missing 0:0 "));
}

// The first card of the surplus node ends the file.
TEST(PatranFindings, DataCardsThatActAsHeadersAreTold) {
    const std::string surplus = header(1, 3, 0, 2);
    EXPECT_THAT(
        foundIn(kSummary + kNodes + kBar + surplus + "99.0\n-\n"),
        ElementsAre("patran.packet-not-counted (nodes) 12:0 " + firstLineOf(surplus),
                    "patran.card-as-header (node) 13:0 99.0", "patran.content-after-end 14:0 -"));
    const std::string third = reals({0.5});
    EXPECT_THAT(foundIn(kSummary + kNodes + header(2, 1, 2, 3) + integers({2, 0, 0}) +
                        integers({1, 2}) + third + endOfFile()),
                ElementsAre("patran.card-as-header (element) 12:0 " + firstLineOf(third)));
}

TEST(PatranFindings, ABlankLineRepeatsAHeader) {
    EXPECT_THAT(
        foundIn(summary(3, 1) + kNodes + "\n" + reals({1, 0, 0}) + "-\n" + kBar + endOfFile()),
        ElementsAre("patran.header-repeated 9:0 ", "patran.node-repeated 9:0 "));
}

TEST(PatranFindings, HeaderFieldsThatKeepAnEarlierValue) {
    const auto found = [](const std::string& secondHeader) {
        return foundIn(summary(2, 2) + kNodes + kBar + secondHeader + integers({2, 0, 0}) +
                       integers({2, 1}) + endOfFile());
    };
    EXPECT_THAT(found(" 2       2       x       2\n"),
                ElementsAre("patran.header-field-kept (IV) 12:18 x"));
    EXPECT_THAT(found(" 2       2      2x       2\n"), ElementsAre("patran.number-torn 12:17 2x"));
    EXPECT_THAT(found(" 2       2\n"),
                ElementsAre("patran.header-field-kept (IV) 12:0  2       2"));
    // What no reader needs may be missing.
    EXPECT_THAT(found(" 2               2\n"), IsEmpty());
}

TEST(PatranFindings, NumbersOfCardsThatAreTooLow) {
    // The first pass of the lists takes the second card for a header, and skips a node.
    const Found found(kSummary + header(1, 1, 0, 1) + reals({0, 0, 0}) + "-\n" + node(2, 1, 0, 0) +
                      kBar + endOfFile());
    EXPECT_THAT(found.arrays, ElementsAre("patran.card-count-low (node) 3:26 1"));
    EXPECT_THAT(found.lists,
                ElementsAre("patran.card-count-low (node) 3:26 1", "patran.node-outside-map 6:10 2",
                            "patran.node-undefined 0:0 element 1, node 2"));
}

TEST(PatranFindings, NumbersThatCannotBeRead) {
    EXPECT_THAT(
        foundIn(summary(2, 1) + node(1, 0, 0, 0) + header(1, 2, 0, 2) +
                "             1,5       1.50D+02               x\n-\n" + header(2, 1, 2, 2) +
                "       2       0      y1\n" + "       1      2x\n" + endOfFile()),
        ElementsAre("patran.number-torn 7:14 1,5", "patran.number-torn 11:15 2x",
                    "patran.exponent-torn 7:24 1.50D+02", "patran.number-unreadable 7:47 x",
                    "patran.number-unreadable 10:23 y1"));
    EXPECT_THAT(
        foundIn(kSummary + header(1, 1, 0, 2) + "\n-\n" + header(1, 2, 0, 2) +
                "             1.0\n-\n" + kBar + endOfFile()),
        ElementsAre("patran.coordinate-missing (x) 4:0 ", "patran.coordinate-missing (y) 4:0 ",
                    "patran.coordinate-missing (y) 7:0              1.0",
                    "patran.coordinate-missing (z) 4:0 ",
                    "patran.coordinate-missing (z) 7:0              1.0"));
}

TEST(PatranFindings, CommentsBetweenDataCards) {
    EXPECT_THAT(foundIn(kSummary + node(1, 0, 0, 0) + header(1, 2, 0, 2) + reals({1, 0, 0}) +
                        "! c\n" + kBar + endOfFile()),
                ElementsAre("patran.comment-as-card 8:0 ! c"));
    EXPECT_THAT(foundIn(header(25, 0, 0, 1) + "! a title\n" + kSummary + header(6, 1, 0, 1) +
                        "! c\n" + kNodes + kBar + endOfFile()),
                ElementsAre("patran.packet-skipped (6 (distributed loads)) 5:2 6",
                            "patran.comment-as-card 6:0 ! c"));
}

TEST(PatranFindings, LinesThatAreCut) {
    EXPECT_THAT(
        foundIn(kSummary + header(6, 0, 0, 2) + lengthened("y", 300) + kNodes + kBar + endOfFile()),
        ElementsAre("patran.packet-skipped (6 (distributed loads)) 3:2 6",
                    "patran.line-cut 4:0 y" + std::string(79, ' ')));
}

TEST(PatranFindings, AByteOrderMark) {
    EXPECT_THAT(foundIn("\xEF\xBB\xBF! a bar\n" + kSummary + kNodes + kBar + endOfFile()),
                ElementsAre("patran.byte-order-mark 1:0 \xEF\xBB\xBF! a bar"));
}

TEST(PatranFindings, Summaries) {
    EXPECT_THAT(foundIn(summary(1, 1) + kSummary + kNodes + kBar + endOfFile()),
                ElementsAre("patran.summary-repeated 3:0 " + firstLineOf(kSummary)));
    EXPECT_THAT(foundIn(summary(-3, -1, -7) + endOfFile()),
                ElementsAre("patran.count-negative (nodes) 1:33 -3",
                            "patran.count-negative (elements) 1:41 -1",
                            "patran.count-negative (properties) 1:57 -7"));
    const Found found(summary(3, 5, 2) + kNodes + kBar + endOfFile());
    EXPECT_THAT(found.arrays,
                ElementsAre("patran.fewer-than-counted (nodes) 1:1 3 counted, 2 read",
                            "patran.fewer-than-counted (elements) 1:1 5 counted, 1 read",
                            "patran.fewer-properties 1:1 2 counted, 0 read"));
    EXPECT_EQ(found.lists.back(), "patran.property-missing 0:0 element 1, property 0");
}

TEST(PatranFindings, EndsOfTheFile) {
    const std::string whole = kSummary + kNodes + kBar;
    EXPECT_THAT(foundIn(whole), ElementsAre("patran.end-missing 11:0        1       2"));
    EXPECT_THAT(foundIn(summary(2, 2) + kNodes + kBar),
                ElementsAre("patran.last-line-repeated 11:0        1       2"));
    const std::string last = header(4, 1, 0, 1, 2);
    EXPECT_THAT(foundIn(summary(2, 1, 1) + kNodes + element(1, 2, 1, {1, 2}) + last),
                ElementsAre("patran.card-missing 12:0 " + firstLineOf(last)));
    EXPECT_THAT(foundIn(whole + endOfFile() + "\n! c\n" + kBar + endOfFile()),
                ElementsAre("patran.content-after-end 16:0 " + firstLineOf(kBar)));
}

}  // namespace
}  // namespace kvocaeio::test
