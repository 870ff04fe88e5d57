/// 3DI files that nobody would wish for: true, false or the one error, and nothing worse.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "package/imported_package.h"
#include "support/hostile_texts.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A file imported within a limit of time.
struct TimedPackage {
    explicit TimedPackage(std::string_view content) {
        const TimeLimit limit;
        result = importText(reader, content);
    }
    TimedPackage(const TimedPackage&) = delete;
    TimedPackage& operator=(const TimedPackage&) = delete;

    CKVOCadenceReader reader;
    std::string result;
};

const std::string kHead = "GEOM\nNAME D\nOBJECT 1\nLAYER 2\nCOLOR 1\nEXTR 0 0 1\n";
const std::string kWireHead = "COLOR 1\nWIRE_MODEL 1\nWIRE 0.5 1\n";

TEST(HostilePackage, AMillionEmptyBlocks) {
    TimedPackage loaded(kTables + repeated("GEOM\n####\n", 1000000));
    EXPECT_EQ(loaded.result, "true");
    EXPECT_EQ(loaded.reader.GetComponentCount(), 0);
}

TEST(HostilePackage, AMillionGeomLines) {
    TimedPackage loaded(kTables + repeated("GEOM\n", 1000000) + kHead + "2DPG 1\n5 5\n");
    EXPECT_EQ(loaded.result, "true");
    EXPECT_EQ(loaded.reader.GetComponentCount(), 1);
}

TEST(HostilePackage, ManyTinyBallsAndWires) {
    TimedPackage loaded(kTables + repeated("GEOM\nOBJECT 2\nLAYER 2\nCOLOR 1\n####\n" + kWireHead +
                                               "3DPL 0\n-\n-\n",
                                           100000));
    EXPECT_EQ(loaded.result, "true");
    EXPECT_EQ(loaded.reader.GetComponentCount(), 100000);
    EXPECT_EQ(loaded.reader.GetWireLineCount(), 100000);
}

TEST(HostilePackage, ManyTables) {
    for (const std::string tables :
         {"TABLE COLOR\n1 9 0 0 0\nTABLE END\n", "TABLE OBJECT\n1 SYMBOL\nTABLE END\n",
          "TABLE LAYER\n16777215 A\n1 OUTLINE\nTABLE END\n", "TABLE COLOR\n", "TABLE\n"})
        EXPECT_EQ(TimedPackage(kTables + repeated(tables, 200000) + "TABLE END\n").result, "true");
}

TEST(HostilePackage, ManyModels) {
    TimedPackage loaded(kTables + "WIRE_MODELS\n" + repeated("WIRE_MODEL 1\nA 1 1 X\n", 300000));
    EXPECT_EQ(loaded.result, "true");
    EXPECT_EQ(profileData(loaded.reader, 300000), "false: A, -, -");
    EXPECT_EQ(profileData(loaded.reader, 300001), "invalid vector<T> subscript: -, -, -");
}

TEST(HostilePackage, APolygonThatNeverEnds) {
    TimedPackage loaded(kTables + kHead + "2DPG 2147483647\n" + repeated("1 2 3 4\n", 300000) +
                        repeated("GEOM\n####\n2DPG 1\n", 100000));
    EXPECT_EQ(loaded.result, "true");
    EXPECT_THAT(bodies(loaded.reader), IsEmpty());
}

TEST(HostilePackage, AWireThatNeverEnds) {
    const std::string rows = repeated("1 2 3 4 5 6\n", 300000);
    TimedPackage missing(kTables + kWireHead + "3DPL 2147483647\n" + rows);
    EXPECT_EQ(missing.result, "true");
    EXPECT_EQ(missing.reader.GetWireLineCount(), 0);
    TimedPackage whole(kTables + kWireHead + "3DPL 600000\n" + rows + "-\n-\n");
    std::vector<double> points;
    int profile = 0;
    double diameter = 0.0;
    ASSERT_TRUE(whole.reader.GetWireLine(0, points, profile, diameter));
    EXPECT_EQ(points.size(), 6U * 599999U);
    EXPECT_EQ(points.back(), 6.0);
}

TEST(HostilePackage, ALongWireThatIsDroppedLeavesTheOthersWhole) {
    const auto wireOf = [](int points, int announced) {
        std::string content = kWireHead + "3DPL " + std::to_string(announced) + "\n";
        for (int i = 0; i < points; ++i)
            content += std::to_string(i) + " 1 -" + std::to_string(i) + "\n";
        return content + "\n\n";
    };
    TimedPackage loaded(kTables + wireOf(9000, 9000) + wireOf(30000, 30001) + wireOf(20000, 20000) +
                        wireOf(2, 3) + wireOf(1, 1));
    ASSERT_EQ(loaded.reader.GetWireLineCount(), 3);
    const int counts[] = {9000, 20000, 1};
    for (int wire = 0; wire < 3; ++wire) {
        std::vector<double> points;
        int profile = 0;
        double diameter = 0.0;
        ASSERT_TRUE(loaded.reader.GetWirePolyLine(wire, points, profile, diameter));
        ASSERT_EQ(points.size(), 3U * static_cast<std::size_t>(counts[wire]));
        for (int i = 0; i < counts[wire]; ++i) {
            const auto at = 3 * static_cast<std::size_t>(i);
            ASSERT_EQ(points[at], i);
            ASSERT_EQ(points[at + 1], 1);
            ASSERT_EQ(points[at + 2], -i);
        }
    }
}

TEST(HostilePackage, EachOfManyBodiesIsHandedOut) {
    std::string content = kTables;
    for (int i = 0; i < 5000; ++i)
        content += "GEOM\nNAME N" + std::to_string(i) + "\nOBJECT 2\nCOLOR 1\nBARL " +
                   std::to_string(i) + " 1 1 1 0 0 0\n";
    TimedPackage loaded(content + "####\n");
    const std::vector<std::string> made = bodies(loaded.reader);
    ASSERT_EQ(made.size(), 5000U);
    for (std::size_t i = 0; i < made.size(); ++i) {
        const std::string number = std::to_string(i);
        ASSERT_EQ(made[i], "N" + number + ": centre " + number + " 1 1, diameter 2, colour 255");
    }
}

TEST(HostilePackage, CountsAndIdsAtTheEndsOfInt) {
    TimedPackage loaded(kTables + kHead + "2DPG -2147483648\n1 1\n" + kHead +
                        "2DPG -99999999999\n1 1\n" + kHead + "2DPG 99999999999\n1 1\n");
    EXPECT_EQ(loaded.result, "true");
    EXPECT_THAT(bodies(loaded.reader), IsEmpty());
    TimedPackage wire(kTables +
                      "COLOR 99999999999\nWIRE_MODEL -99999999999\nWIRE 1e999 9999999999\n"
                      "3DPL 1\n-1e999 1e-999 0\n-\n-\n");
    std::vector<double> points;
    int profile = 0;
    double diameter = 0.0;
    ASSERT_TRUE(wire.reader.GetWireLine(0, points, profile, diameter));
    EXPECT_EQ(profile, -2147483647 - 1);
    EXPECT_EQ(wire.reader.GetWireProfileCount(), 0);
    EXPECT_EQ(TimedPackage(kTables + "GEOM\nNAME D\nOBJECT 1\nCOLOR 99999999999\n####\n").result,
              kOutOfRange);
    EXPECT_EQ(TimedPackage(kTables + "GEOM\nOBJECT 1\nLAYER -99999999999\n####\n").result,
              kOutOfRange);
    EXPECT_EQ(TimedPackage(kTables + "GEOM\nOBJECT 99999999999\nLAYER 99999999999\n####\n").result,
              "true");
}

TEST(HostilePackage, LinesWithoutAnEnd) {
    const std::string parts[] = {"x",
                                 " ",
                                 "1 ",
                                 "####",
                                 "GEOM",
                                 "COLOR ",
                                 "WIRE_MODEL ",
                                 "TABLE COLOR ",
                                 std::string(1, '\0'),
                                 "\r"};
    const std::string starts[] = {"",
                                  kHead + "2DPG 9\n",
                                  kWireHead + "3DPL 9\n",
                                  "TABLE COLOR\n",
                                  "WIRE_MODELS\nWIRE_MODEL 1\n",
                                  "GEOM\nNAME "};
    for (const std::string& part : parts)
        for (const std::string& start : starts) {
            TimedPackage loaded(kTables + start +
                                repeated(part, static_cast<int>(1000000 / part.size())));
            EXPECT_EQ(loaded.result, "true") << start << part;
            bodies(loaded.reader);
            wires(loaded.reader);
        }
}

TEST(HostilePackage, NothingButNuls) {
    TimedPackage loaded(std::string(1000000, '\0'));
    EXPECT_EQ(loaded.result, "false");
    TimedPackage behind(kTables + kHead + "2DPG 2\n" + std::string(1000000, '\0') +
                        "1 1\n1 1 2 3\n");
    EXPECT_EQ(behind.result, "true");
    // The NULs hide what is on their line.
    EXPECT_THAT(bodies(behind.reader), ElementsAre("D: centre 1.5 2 0.5, size 1 2 1, colour 255"));
}

TEST(HostilePackage, EveryFrontPartOfEverything) {
    const std::string content = kTables + "WIRE_MODELS\nWIRE_MODEL 1\nA 1 1 X\n" + kWireHead +
                                "3DPL 2\n1 2 3 4 5 6\n-\n-\n" + kHead +
                                "2DPG 4\n1 2 3 4\n5 6 7 8\n";
    for (std::size_t length = 0; length < content.size(); ++length) {
        Package loaded(content.substr(0, length));
        bodies(loaded.reader);
        wires(loaded.reader);
        profileData(loaded.reader, 1);
    }
}

TEST(HostilePackage, RepeatedScalingOverflowsWithoutHarm) {
    // The sizes that a ball does not set are scaled with every body.
    TimedPackage loaded(
        "3DI INCH\n" + kColors + kNames + kHead + "2DPG 2\n0 0 1 1\n" +
        repeated("GEOM\nOBJECT 2\nLAYER 2\nCOLOR 1\nBARL 1 1 1 1 0 0 0\n####\n", 1000));
    EXPECT_EQ(loaded.result, "true");
    EXPECT_EQ(bodies(loaded.reader).back(),
              "TOP: centre 25.4 25.4 25.4, diameter 50.8, colour 255");
}

TEST(HostilePackage, PathsOfAllKinds) {
    const TempFolder folder;
    for (const std::string& path :
         {folder.path().string(), folder.file("missing/package.3di"), std::string(70000, 'x'),
          std::string("\x01\xff*?<>|"), std::string("  "), std::string(".")}) {
        CKVOCadenceReader reader;
        EXPECT_FALSE(reader.Import3DIFile(path.c_str()));
        EXPECT_FALSE(reader.Import3DIFile(std::wstring(path.begin(), path.end()).c_str()));
    }
}

#if defined(__linux__)
TEST(HostilePackage, ADeviceIsAnEmptyFile) {
    CKVOCadenceReader reader;
    EXPECT_FALSE(reader.Import3DIFile("/dev/null"));
    EXPECT_EQ(reader.GetComponentCount(), 0);
}

TEST(HostilePackage, AnotherProcessWritesItMeanwhile) {
    // What one pass has seen, the next one may not.
    const RestlessFile file({kTables + repeated(kHead + "2DPG 2\n0 0 1 1\n", 5000),
                             "3DI MM\nTABLE COLOR\n9 1 1 1 1\n" + kNames +
                                 repeated(kWireHead + "3DPL 1\n1 1 1\n-\n-\n", 5000),
                             repeated("TABLE LAYER\n5 OUTLINE\nTABLE OBJECT\n7 SYMBOL\n", 5000),
                             "WIRE_MODELS\n" + repeated("WIRE_MODEL 1\nA 1 1 X\n", 9000)});
    for (int round = 0; round < 50; ++round) {
        CKVOCadenceReader reader;
        outcomeOf([&] { return reader.Import3DIFile(file.path().c_str()); });
        bodies(reader);
        wires(reader);
        profileData(reader, 1);
    }
}
#endif

}  // namespace
}  // namespace kvocaeio::test
