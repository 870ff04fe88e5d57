/// Queries for wires and wire profiles after imports of 3DI files.
#include <climits>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "package/imported_package.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A wire of these points with the two lines behind it.
std::string wire(int color, int profile, const std::string& diameter, int count,
                 const std::string& points) {
    return "COLOR " + std::to_string(color) + "\nWIRE_MODEL " + std::to_string(profile) +
           "\nWIRE " + diameter + " 1\n3DPL " + std::to_string(count) + "\n" + points +
           "\n####\nGEOM\n";
}

/// Tables with the colours 1 to 4, and models A and B.
const std::string kStart = "3DI MM\nTABLE COLOR\n1 1 0 0 0\n2 2 0 0 0\n3 3 0 0 0\n4 4 0 0 0\n" +
                           kNames + "WIRE_MODELS\nWIRE_MODEL 1\nA 1 1 X\nWIRE_MODEL 2\nB 1 1 X\n";

/// What a query for one wire gives; `points`, `profile` and `diameter` were 5, -77 and -77 before.
struct WireAnswer {
    using Query = bool (CKVOCadenceReader::*)(int, std::vector<double>&, int&, double&);

    WireAnswer(CKVOCadenceReader& reader, Query query, int wire) {
        outcome = outcomeOf([&] { return (reader.*query)(wire, points, profile, diameter); });
    }

    std::vector<double> points{5.0};
    int profile = -77;
    double diameter = -77.0;
    std::string outcome;
};

WireAnswer line(CKVOCadenceReader& reader, int wire) {
    return {reader, &CKVOCadenceReader::GetWireLine, wire};
}
WireAnswer polyLine(CKVOCadenceReader& reader, int wire) {
    return {reader, &CKVOCadenceReader::GetWirePolyLine, wire};
}

TEST(WireQueries, GiveSegmentsOrEachPointOnce) {
    CKVOCadenceReader reader;
    ASSERT_EQ(
        importText(reader, kStart + wire(1, 1, "0.5", 3, "1 2 3 4 5 6 7 8 9") +
                               wire(1, 2, "0.25", 2, "1 1 1 2 2 2") + wire(1, 1, "1", 1, "3 3 3") +
                               wire(1, 1, "1", 0, "") + wire(1, 1, "1", 2, "8 8 8 9 9 9")),
        "true");
    ASSERT_EQ(reader.GetWireLineCount(), 5);
    const WireAnswer three = line(reader, 0);
    EXPECT_EQ(three.outcome, "true");
    EXPECT_THAT(three.points, ElementsAre(1, 2, 3, 4, 5, 6, 4, 5, 6, 7, 8, 9));
    EXPECT_EQ(three.profile, 1);
    EXPECT_EQ(three.diameter, 0.5);
    EXPECT_THAT(polyLine(reader, 0).points, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9));
    EXPECT_THAT(line(reader, 1).points, ElementsAre(1, 1, 1, 2, 2, 2));
    const WireAnswer two = polyLine(reader, 1);
    EXPECT_THAT(two.points, ElementsAre(1, 1, 1, 2, 2, 2));
    EXPECT_EQ(two.profile, 2);
    EXPECT_EQ(two.diameter, 0.25);
    EXPECT_THAT(line(reader, 2).points, IsEmpty());
    EXPECT_THAT(polyLine(reader, 2).points, ElementsAre(3, 3, 3));
    EXPECT_EQ(line(reader, 3).outcome, "true");
    EXPECT_THAT(line(reader, 3).points, IsEmpty());
    EXPECT_THAT(polyLine(reader, 3).points, IsEmpty());
    EXPECT_THAT(line(reader, 4).points, ElementsAre(8, 8, 8, 9, 9, 9));
    EXPECT_THAT(polyLine(reader, 4).points, ElementsAre(8, 8, 8, 9, 9, 9));
}

TEST(WireQueries, AWireThatIsNotThereGivesFalseAndTouchesNothing) {
    CKVOCadenceReader reader;
    importText(reader, kStart + wire(1, 1, "0.5", 1, "1 2 3"));
    for (const int index : {1, 2, INT_MAX})
        for (const WireAnswer& answer : {line(reader, index), polyLine(reader, index)}) {
            EXPECT_EQ(answer.outcome, "false");
            EXPECT_THAT(answer.points, ElementsAre(5));
            EXPECT_EQ(answer.profile, -77);
            EXPECT_EQ(answer.diameter, -77);
        }
}

TEST(WireQueries, ANegativeWireThrowsWithPointsEmptied) {
    CKVOCadenceReader reader;
    importText(reader, kStart + wire(1, 1, "0.5", 1, "1 2 3"));
    for (const int index : {-1, -2, INT_MIN})
        for (const WireAnswer& answer : {line(reader, index), polyLine(reader, index)}) {
            EXPECT_EQ(answer.outcome, kOutOfRange);
            EXPECT_THAT(answer.points, IsEmpty());
            EXPECT_EQ(answer.profile, -77);
            EXPECT_EQ(answer.diameter, -77);
        }
}

TEST(WireQueries, ThePointsKeepTheirMemory) {
    CKVOCadenceReader reader;
    importText(reader, kStart + wire(1, 1, "0.5", 2, "1 2 3 4 5 6"));
    std::vector<double> points;
    points.reserve(100);
    const double* const memory = points.data();
    int profile = 0;
    double diameter = 0.0;
    EXPECT_TRUE(reader.GetWireLine(0, points, profile, diameter));
    EXPECT_TRUE(reader.GetWirePolyLine(0, points, profile, diameter));
    EXPECT_THAT(points, ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_EQ(points.data(), memory);
    EXPECT_EQ(points.capacity(), 100U);
}

TEST(WireProfile, GivesNameFirstDiameterAndTheColourOfTheWireAtItsNumber) {
    CKVOCadenceReader reader;
    importText(reader, kStart + wire(1, 2, "0.5", 1, "0 0 0") + wire(2, 1, "0.25", 1, "0 0 0") +
                           wire(3, 1, "4", 1, "0 0 0") + wire(4, 2, "8", 1, "0 0 0"));
    EXPECT_EQ(reader.GetWireProfileCount(), 2);
    EXPECT_EQ(profileData(reader, 1), "true: A, 0.25, 2");
    EXPECT_EQ(profileData(reader, 2), "true: B, 0.5, 3");
}

TEST(WireProfile, WithoutAWireAtItsNumberThrowsBehindTheDiameter) {
    CKVOCadenceReader reader;
    importText(reader, kStart + "WIRE_MODEL 3\nC 1 1 X\n" + wire(1, 1, "0.5", 1, "0 0 0") +
                           wire(2, 2, "0.25", 1, "0 0 0") + wire(3, 3, "4", 1, "0 0 0"));
    EXPECT_EQ(profileData(reader, 1), "true: A, 0.5, 2");
    EXPECT_EQ(profileData(reader, 2), "true: B, 0.25, 3");
    EXPECT_EQ(profileData(reader, 3), "invalid vector<T> subscript: C, 4, -");
}

TEST(WireProfile, WithoutAModelThrowsAndTouchesNothing) {
    CKVOCadenceReader reader;
    importText(reader, kStart + wire(1, 2, "0.5", 1, "0 0 0") + wire(2, 7, "0.25", 1, "0 0 0"));
    EXPECT_EQ(reader.GetWireProfileCount(), 7);
    for (const int profile : {3, 7, 0, -1, INT_MIN, INT_MAX})
        EXPECT_EQ(profileData(reader, profile), "invalid vector<T> subscript: -, -, -") << profile;
}

TEST(WireProfile, ThatNoWireUsesGivesFalseWithItsName) {
    CKVOCadenceReader reader;
    importText(reader, kStart + wire(1, 2, "0.5", 1, "0 0 0"));
    EXPECT_EQ(profileData(reader, 1), "false: A, -, -");
    EXPECT_EQ(profileData(reader, 2), "invalid vector<T> subscript: B, 0.5, -");
}

TEST(WireProfile, WithoutWiresGivesFalseWithItsName) {
    CKVOCadenceReader reader;
    importText(reader, kStart);
    EXPECT_EQ(reader.GetWireProfileCount(), 0);
    EXPECT_EQ(profileData(reader, 2), "false: B, -, -");
    EXPECT_EQ(profileData(reader, 3), "invalid vector<T> subscript: -, -, -");
}

TEST(WireProfile, AColourThatIsNotInTheTableThrows) {
    for (const int color : {-1, 5, INT_MAX}) {
        CKVOCadenceReader reader;
        importText(reader,
                   kStart + wire(1, 1, "0.5", 1, "0 0 0") + wire(color, 1, "2", 1, "0 0 0"));
        EXPECT_EQ(profileData(reader, 1), "invalid vector<T> subscript: A, 0.5, -") << color;
    }
}

TEST(WireProfile, ItsNameStaysUntilTheNextCall) {
    CKVOCadenceReader reader;
    importText(reader, kStart + wire(1, 1, "0.5", 1, "0 0 0"));
    const char* name = nullptr;
    double diameter = 0.0;
    unsigned color = 0;
    EXPECT_FALSE(reader.GetWireProfileData(2, name, diameter, color));
    EXPECT_STREQ(name, "B");
    EXPECT_EQ(reader.GetWireLineCount(), 1);
    EXPECT_EQ(reader.GetWireProfileCount(), 1);
    std::vector<double> points;
    int profile = 0;
    EXPECT_TRUE(reader.GetWireLine(0, points, profile, diameter));
    EXPECT_STREQ(name, "B");
}

/// The colour that the second wire of a file gets, by way of profile 1.
std::string colourOfSecondWire(const std::string& between) {
    Package loaded(kStart + wire(1, 1, "0.5", 1, "0 0 0") + between);
    EXPECT_EQ(loaded.reader.GetWireLineCount(), 2);
    return profileData(loaded.reader, 1);
}

TEST(WireColour, IsTheFirstSinceTheLastWire) {
    EXPECT_EQ(colourOfSecondWire(wire(2, 1, "1", 1, "0 0 0")), "true: A, 0.5, 2");
    EXPECT_EQ(colourOfSecondWire("COLOR 3\nCOLOR 4\n" + wire(2, 1, "1", 1, "0 0 0")),
              "true: A, 0.5, 3");
    // That of a die ahead of the wire.
    EXPECT_EQ(colourOfSecondWire("NAME D\nOBJECT 1\nLAYER 2\nCOLOR 4\nEXTR 0 0 1\n2DPG 2\n"
                                 "0 0 1 1\n####\nGEOM\n" +
                                 wire(2, 1, "1", 1, "0 0 0")),
              "true: A, 0.5, 4");
    // With a new start, the first one behind it.
    EXPECT_EQ(colourOfSecondWire("COLOR 3\nWIRE_MODEL\n" + wire(2, 1, "1", 1, "0 0 0")),
              "true: A, 0.5, 2");
    EXPECT_EQ(colourOfSecondWire("COLOR 3\nWIRE_MODELS\n" + wire(2, 1, "1", 1, "0 0 0")),
              "true: A, 0.5, 2");
}

TEST(WireQueries, AfterASecondImportTheSurplusThrows) {
    CKVOCadenceReader reader;
    const std::string three = wire(1, 1, "0.5", 1, "1 1 1") + wire(1, 1, "0.5", 1, "2 2 2") +
                              wire(1, 1, "0.5", 1, "3 3 3");
    ASSERT_EQ(importText(reader, kStart + three), "true");
    ASSERT_EQ(
        importText(reader, kStart + wire(3, 1, "2", 1, "4 4 4") + wire(4, 1, "2", 1, "5 5 5")),
        "true");
    EXPECT_EQ(reader.GetWireLineCount(), 5);
    EXPECT_THAT(polyLine(reader, 0).points, ElementsAre(4, 4, 4));
    // The last wire's end is looked for in an entry that is not there, and so are further wires.
    for (const int index : {1, 2, 3, 4}) {
        EXPECT_EQ(polyLine(reader, index).outcome, kOutOfRange) << index;
        EXPECT_THAT(line(reader, index).points, IsEmpty()) << index;
    }
    EXPECT_EQ(polyLine(reader, 5).outcome, "false");
    EXPECT_EQ(profileData(reader, 1), "true: A, 2, 4");
}

TEST(WireQueries, AfterASecondImportWithoutWiresTheCountsStay) {
    CKVOCadenceReader reader;
    ASSERT_EQ(importText(reader, kStart + wire(1, 2, "0.5", 1, "1 1 1")), "true");
    ASSERT_EQ(importText(reader, kTables), "true");
    EXPECT_EQ(reader.GetWireLineCount(), 1);
    EXPECT_EQ(reader.GetWireProfileCount(), 2);
    EXPECT_EQ(line(reader, 0).outcome, kOutOfRange);
    EXPECT_EQ(profileData(reader, 1), "invalid vector<T> subscript: -, -, -");
    ASSERT_EQ(importText(reader, kStart), "true");
    EXPECT_EQ(profileData(reader, 1), "false: A, -, -");
}

}  // namespace
}  // namespace kvocaeio::test
