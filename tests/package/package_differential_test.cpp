/// Random 3DI files: the library and the plain import must give the same answers.
#include <cstdint>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "package/imported_package.h"
#include "package/naive_package.h"
#include "package/package_comparison.h"
#include "package/package_generator.h"
#include "support/files.h"
#include "text/naive_input.h"

namespace kvocaeio::test {
namespace {

// File work is several times as slow under Wine, and so is everything under a sanitizer.
#if defined(_WIN32) || !defined(NDEBUG)
constexpr std::uint64_t kReaders = 400;
constexpr std::uint64_t kLargeFiles = 20;
constexpr std::size_t kStep = 7;
#else
constexpr std::uint64_t kReaders = 10000;
constexpr std::uint64_t kLargeFiles = 150;
constexpr std::size_t kStep = 1;
#endif
constexpr std::uint64_t kFirstSeed = 20240613;

TEST(PackageDifferential, TwoRandomFilesInOneReaderAreReadAlike) {
    PackageComparison comparison;
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + kReaders; ++seed) {
        PackageGenerator generator(seed);
        std::vector<ImportStep> steps{{generator.file(), false}, {generator.file(), seed % 2 == 0}};
        ASSERT_EQ(comparison.firstDifference(steps), "") << "seed " << seed;
    }
}

TEST(PackageDifferential, LinesFarApartAreReadAlike) {
    PackageComparison comparison;
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + kLargeFiles; ++seed)
        ASSERT_EQ(comparison.firstDifference({{PackageGenerator(seed).largeFile(), false}})
                      .substr(0, 1000),
                  "")
            << "seed " << seed;
}

TEST(PackageDifferential, TheGeneratorReachesEverything) {
    const TempFolder folder;
    int imported = 0, failed = 0, thrown = 0, files = 0;
    int withBodies = 0, withWires = 0, withProfiles = 0;
    int balls = 0, boxes = 0, substrates = 0, caps = 0, profilesThrown = 0, longWires = 0;
    for (std::uint64_t seed = kFirstSeed; files < 1000; ++seed, ++files) {
        const std::string path = folder.write("file", asText(PackageGenerator(seed).file()));
        NaivePackage loaded;
        const std::string outcome = outcomeOf([&] { return loaded.Import3DIFile(path.c_str()); });
        std::filesystem::remove(path);
        imported += outcome == "true";
        failed += outcome == "false";
        thrown += outcome == kOutOfRange;
        withBodies += loaded.GetComponentCount() > 0;
        withWires += loaded.GetWireLineCount() > 0;
        for (int i = 0; i < loaded.GetComponentCount(); ++i) {
            char name[1100];
            int isBall = 0;
            double center[3], size[5];
            unsigned color = 0;
            loaded.GetComponentData(i, name, isBall, center, size, color);
            balls += isBall;
            boxes += 1 - isBall;
            substrates += std::string(name) == "SUBSTRATE";
            caps += std::string(name) == "PACKAGECAP";
        }
        const char* name = "";
        double diameter = 0.0;
        unsigned color = 0;
        const std::string profile =
            outcomeOf([&] { return loaded.GetWireProfileData(1, name, diameter, color); });
        withProfiles += profile == "true";
        profilesThrown += profile == kOutOfRange;
        for (int i = 0; i < loaded.GetWireLineCount(); ++i) {
            std::vector<double> points;
            int number = 0;
            loaded.GetWirePolyLine(i, points, number, diameter);
            longWires += points.size() > 60;
        }
    }
    EXPECT_GT(imported, 600);
    EXPECT_GT(failed, 50);
    EXPECT_GT(thrown, 100);
    EXPECT_GT(withBodies, 600);
    EXPECT_GT(withWires, 400);
    EXPECT_GT(withProfiles, 80);
    EXPECT_GT(profilesThrown, 100);
    EXPECT_GT(balls, 300);
    EXPECT_GT(boxes, 1500);
    EXPECT_GT(substrates, 150);
    EXPECT_GT(caps, 150);
    EXPECT_GT(longWires, 30);
}

/// A small file with one of each thing, in which every byte matters to somebody.
const std::string kSample =
    "3DI um\r\nTABLE COLOR\n1 255 0 0 0\n2 0 8 9 0\nTABLE OBJECT\n1 SYMBOL\n2 BALL\nTABLE LAYER\n"
    "1 OUTLINE\n2 TOP\n3 PACKAGE CAP\nTABLE END\nWIRE_MODELS\nWIRE_MODEL 1\nAU 1 1 G\nGEOM\n"
    "COLOR 2\nWIRE_MODEL 1\nWIRE .5 1\n3DPL 2\n0 0 3 1 1 5\n####\nGEOM\nNAME DIE SPACER\n"
    "OBJECT 1\nCOLOR 1\nEXTR 0 1 3\n2DPG 3\n-5 -5 -2 -4\n-3 -6\nGEOM\nLAYER 2\nOBJECT 2\nCOLOR 2\n"
    "BARL 1 1 5 5 0 3 1\nGEOM\nLAYER 3\nCOLOR 1\nEXTR 0 0 2\n2DPG 2\n-9 -8 -7 -6\n";

TEST(PackageDifferential, AFileCutAtEveryByteIsReadAlike) {
    PackageComparison comparison;
    for (std::size_t length = 0; length <= kSample.size(); length += kStep)
        ASSERT_EQ(comparison.firstDifference({{kSample.substr(0, length), false}}), "");
}

TEST(PackageDifferential, AFileWithEachByteReplacedIsReadAlike) {
    PackageComparison comparison;
    for (std::size_t at = 0; at < kSample.size(); at += kStep)
        for (const char byte : {'\0', '\n', '\r', ' ', '9', 'X', '\x1A'}) {
            std::string content = kSample;
            content[at] = byte;
            ASSERT_EQ(comparison.firstDifference({{content, false}}), "") << "byte " << at;
        }
}

TEST(PackageDifferential, AFileWithEachLineMissingOrTwiceIsReadAlike) {
    PackageComparison comparison;
    for (std::size_t start = 0, end = 0; start < kSample.size(); start = end) {
        end = kSample.find('\n', start) + 1;
        const std::string before = kSample.substr(0, start);
        const std::string line = kSample.substr(start, end - start);
        const std::string behind = kSample.substr(end);
        ASSERT_EQ(comparison.firstDifference({{before + behind, false}}), "") << line;
        ASSERT_EQ(comparison.firstDifference({{before + line + line + behind, false}}), "") << line;
    }
}

TEST(PackageDifferential, LinesAboutTheBoundAreReadAlike) {
    PackageComparison comparison;
    for (std::size_t start = 0, end = 0; start < kSample.size(); start = end) {
        end = kSample.find('\n', start) + 1;
        const std::string before = kSample.substr(0, start);
        const std::string line = kSample.substr(start, end - 1 - start);
        const std::string behind = kSample.substr(end);
        for (std::size_t length = kStep == 1 ? 1020 : 1023; length <= 1026; length += kStep) {
            const std::string blanks(length - line.size(), ' ');
            for (const std::string& longer : {line + blanks, blanks + line}) {
                ASSERT_EQ(comparison.firstDifference({{before + longer + "\n" + behind, false}}),
                          "")
                    << line << " " << length;
                ASSERT_EQ(comparison.firstDifference({{before + longer + "\r\n" + behind, false}}),
                          "")
                    << line << " " << length;
            }
        }
    }
}

TEST(PackageDifferential, JunkIsReadAlike) {
    PackageComparison comparison;
    Random random(kFirstSeed);
    const std::vector<std::string> parts{"GEOM",  "####",   "COLOR ", "OBJECT ", "WIRE",  "_MODEL",
                                         "S",     "TABLE ", "LAYER ", "3DPL ",   "2DPG ", "\n",
                                         "\n",    "\n",     " ",      "1",       "2 ",    "0 0 0",
                                         "NAME ", "BARL ",  "EXTR ",  "3DI",     "MM",    "SYMBOL"};
    for (int file = 0; file < 1000; ++file) {
        std::string content = file % 2 == 0 ? kTables : "";
        for (std::size_t count = random.below(400); count > 0; --count)
            content += file % 10 == 9 ? std::string(1, static_cast<char>(random.below(256)))
                                      : parts[random.below(parts.size())];
        ASSERT_EQ(comparison.firstDifference({{content, false}}), "") << "file " << file;
    }
}

}  // namespace
}  // namespace kvocaeio::test
