/// A package reader's life: the least file, queries at any time, paths, second imports, copies.
#include <climits>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "package/imported_package.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kLeastModels = "WIRE_MODELS\nWIRE_MODEL 1\nAU25 0.025 1 GOLD\n";
const std::string kLeastGeometries =
    "GEOMETRIES\n"
    "GEOM\nOBJECT 3\nLAYER 2\nCOLOR 2\nWIRE_MODEL 1\nWIRE 0.025 1\n3DPL 3\n"
    "0 0 0.3 1 1 0.5 2 2 0.1\n####\n"
    "GEOM\nNAME DIE1\nOBJECT 1\nLAYER 2\nCOLOR 1\nEXTR 0 0.1 0.3\n2DPG 4\n0 0 2 0 2 2 0 2\n####\n"
    "GEOM\nOBJECT 2\nLAYER 2\nCOLOR 2\nBARL 1 1 0.5 0.5 0 0.3 1\n####\n"
    "GEOM\nOBJECT 9\nLAYER 1\nCOLOR 1\nEXTR 0 0 0.2\n2DPG 4\n0 0 5 0 5 5 0 5\n####\n";
/// A file that yields a body of each common kind, and a wire.
const std::string kLeastFile = kTables + kLeastModels + kLeastGeometries;

void expectLeastModel(CKVOCadenceReader& reader) {
    EXPECT_EQ(reader.GetComponentCount(), 3);
    EXPECT_THAT(bodies(reader),
                ElementsAre("DIE1: centre 1 1 0.2, size 2 2 0.2, colour 255",
                            "TOP: centre 1 1 0.4, diameter 1, colour 16744448",
                            "SUBSTRATE: centre 2.5 2.5 0.1, size 5 5 0.2, colour 255"));
    EXPECT_EQ(reader.GetWireLineCount(), 1);
    EXPECT_THAT(wires(reader), ElementsAre("profile 1, diameter 0.025: 0 0 0.3; 1 1 0.5; 2 2 0.1"));
    EXPECT_EQ(reader.GetWireProfileCount(), 1);
    // The list of one wire has no entry 1 to take the colour from.
    EXPECT_EQ(profileData(reader, 1), "invalid vector<T> subscript: AU25, 0.025, -");
}

void expectLeastModel(CKVOCadenceReader&& reader) {
    expectLeastModel(reader);
}

void expectEmpty(CKVOCadenceReader& reader) {
    EXPECT_EQ(reader.GetComponentCount(), 0);
    EXPECT_EQ(reader.GetWireLineCount(), 0);
    EXPECT_EQ(reader.GetWireProfileCount(), 0);
    EXPECT_EQ(profileData(reader, 1), "false: -, -, -");
    EXPECT_EQ(profileData(reader, 0), "false: -, -, -");
}

std::string withLineEnds(const std::string& content, const std::string& lineEnd) {
    std::string out;
    for (const char c : content)
        out += c == '\n' ? lineEnd : std::string(1, c);
    return out;
}

TEST(LeastFile, GivesItsBodiesAndItsWire) {
    Package loaded(kLeastFile);
    EXPECT_EQ(loaded.result, "true");
    expectLeastModel(loaded.reader);
}

TEST(LeastFile, IsTheSameInLowerCaseAndWithCrLf) {
    std::string lower = kLeastFile;
    for (char& c : lower)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    expectLeastModel(Package(lower).reader);
    expectLeastModel(Package(withLineEnds(kLeastFile, "\r\n")).reader);
    expectLeastModel(Package(withLineEnds(lower, " \t\r\n")).reader);
}

TEST(LeastFile, IsTheSameWithItsSectionsInOtherOrders) {
    const std::string header = "3DI MM\n";
    expectLeastModel(Package(kLeastGeometries + kLeastModels + kNames + kColors + header).reader);
    expectLeastModel(Package(kNames + kLeastGeometries + kColors + header + kLeastModels).reader);
    expectLeastModel(Package(kColors + header + kLeastGeometries + kLeastModels + kNames).reader);
    // The rows of one table are no concern of another's pass.
    expectLeastModel(Package(header + "TABLE LAYER\n1 OUTLINE\n2 TOP\nTABLE END\n" + kColors +
                             "TABLE OBJECT\n1 SYMBOL\n2 BALL\n3 WIREBOND\n" + kLeastModels +
                             kLeastGeometries)
                         .reader);
}

TEST(LeastFile, EndsAtAByte1A) {
    expectLeastModel(Package(kLeastFile + "\x1A" + kLeastGeometries).reader);
}

TEST(PackageReader, AnswersQueriesBeforeAnyImport) {
    CKVOCadenceReader reader;
    expectEmpty(reader);
    std::vector<double> points{5.0};
    int profile = -77;
    double diameter = -77.0;
    for (const int wire : {0, 1, INT_MAX}) {
        EXPECT_FALSE(reader.GetWireLine(wire, points, profile, diameter));
        EXPECT_FALSE(reader.GetWirePolyLine(wire, points, profile, diameter));
    }
    EXPECT_THAT(points, ElementsAre(5));
    EXPECT_EQ(profile, -77);
    EXPECT_EQ(diameter, -77);
    EXPECT_EQ(outcomeOf([&] { return reader.GetWireLine(-1, points, profile, diameter); }),
              kOutOfRange);
    EXPECT_EQ(outcomeOf([&] { return reader.GetWirePolyLine(-1, points, profile, diameter); }),
              kOutOfRange);
}

TEST(PackageReader, EveryQueryMayBeTheFirst) {
    CKVOCadenceReader asked[4];
    EXPECT_EQ(asked[0].GetComponentCount(), 0);
    EXPECT_EQ(asked[1].GetWireLineCount(), 0);
    EXPECT_EQ(asked[2].GetWireProfileCount(), 0);
    EXPECT_EQ(profileData(asked[3], 1), "false: -, -, -");
}

TEST(PackageReader, ABodyThatIsNotThereGivesFalseAndTouchesNothing) {
    CKVOCadenceReader fresh;
    Package loaded(kLeastFile);
    for (CKVOCadenceReader* reader : {&fresh, &loaded.reader})
        for (const int index : {reader->GetComponentCount(), -1, INT_MIN, INT_MAX}) {
            char name[] = "name";
            int isBall = -77;
            double center[3] = {7, 8, 9};
            double size[5] = {1, 2, 3, 4, 5};
            unsigned color = 77;
            EXPECT_FALSE(reader->GetComponentData(index, name, isBall, center, size, color));
            EXPECT_STREQ(name, "name");
            EXPECT_EQ(isBall, -77);
            EXPECT_THAT(center, ElementsAre(7, 8, 9));
            EXPECT_THAT(size, ElementsAre(1, 2, 3, 4, 5));
            EXPECT_EQ(color, 77U);
        }
}

TEST(PackageReader, ABodyIsHandedOutWithFiveSizes) {
    Package loaded(kLeastFile);
    char name[] = "longer than what comes";
    int isBall = -1;
    double center[4] = {0, 0, 0, 99};
    double size[6] = {9, 9, 9, 9, 9, 99};
    unsigned color = 0;
    ASSERT_TRUE(loaded.reader.GetComponentData(2, name, isBall, center, size, color));
    EXPECT_STREQ(name, "SUBSTRATE");
    EXPECT_EQ(isBall, 0);
    EXPECT_EQ(center[3], 99);
    EXPECT_THAT(size, ElementsAre(5, 5, 0.2, 0, 0, 99));
    ASSERT_TRUE(loaded.reader.GetComponentData(1, name, isBall, center, size, color));
    EXPECT_EQ(isBall, 1);
}

TEST(PackageReader, CleanMemoryMakesItAsNew) {
    CKVOCadenceReader reader;
    reader.CleanMemory();
    reader.CleanMemory();
    ASSERT_EQ(importText(reader, kLeastFile), "true");
    reader.CleanMemory();
    reader.CleanMemory();
    expectEmpty(reader);
    // Neither unit nor counts of the file before are left.
    ASSERT_EQ(importText(reader, "3DI INCH\n" + kColors + kNames + kLeastModels + kLeastGeometries),
              "true");
    reader.CleanMemory();
    ASSERT_EQ(importText(reader, kColors + kNames + kLeastModels + kLeastGeometries), "true");
    expectLeastModel(reader);
}

TEST(PackageReader, PathsThatCannotBeOpenedLeaveTheModelAlone) {
    const TempFolder folder;
    const std::string missing = folder.file("missing.3di");
    const std::wstring missingWide = std::filesystem::path(missing).wstring();
    CKVOCadenceReader fresh;
    Package loaded(kLeastFile);
    for (CKVOCadenceReader* reader : {&fresh, &loaded.reader}) {
        EXPECT_FALSE(reader->Import3DIFile(static_cast<const char*>(nullptr)));
        EXPECT_FALSE(reader->Import3DIFile(static_cast<const wchar_t*>(nullptr)));
        EXPECT_FALSE(reader->Import3DIFile(""));
        EXPECT_FALSE(reader->Import3DIFile(L""));
        EXPECT_FALSE(reader->Import3DIFile(missing.c_str()));
        EXPECT_FALSE(reader->Import3DIFile(missingWide.c_str()));
        EXPECT_FALSE(reader->Import3DIFile(std::string(5000, 'x').c_str()));
    }
    expectEmpty(fresh);
    expectLeastModel(loaded.reader);
}

TEST(PackageReader, AFolderIsNoFile) {
    const TempFolder folder;
    CKVOCadenceReader reader;
    EXPECT_FALSE(reader.Import3DIFile(folder.path().string().c_str()));
    EXPECT_EQ(reader.GetComponentCount(), 0);
}

TEST(PackageReader, ImportsByWidePath) {
    const TempFolder folder;
    const std::filesystem::path path = folder.path() / u8"package \u00e4\u4e2d.3di";
    const std::wstring widePath = folder.path().wstring() + L"/package \u00e4\u4e2d.3di";
    std::ofstream(path, std::ios::binary) << kLeastFile;
    CKVOCadenceReader reader;
    EXPECT_TRUE(reader.Import3DIFile(widePath.c_str()));
    expectLeastModel(reader);
    std::ofstream(path, std::ios::binary) << kTables << "GEOM\nOBJECT 1\n####\n";
    EXPECT_EQ(outcomeOf([&] { return reader.Import3DIFile(widePath.c_str()); }), kOutOfRange);
}

TEST(PackageReader, ClosesTheFileAndDoesNotChangeIt) {
    const TempFolder folder;
    const std::string failing = kTables + "GEOM\nOBJECT 1\n####\n";
    for (const std::string& content : {kLeastFile, failing, std::string("3DI MM\r\n")}) {
        const std::string path = folder.write("package.3di", content);
        CKVOCadenceReader reader;
        outcomeOf([&] { return reader.Import3DIFile(path.c_str()); });
        EXPECT_EQ(readBytes(path), content);
        // On Windows an open file cannot be removed.
        EXPECT_TRUE(std::filesystem::remove(path));
    }
}

TEST(PackageReader, ImportsAnEmptyFileAsOneWithoutTables) {
    Package loaded("");
    EXPECT_EQ(loaded.result, "false");
    EXPECT_EQ(loaded.reader.GetComponentCount(), 0);
    EXPECT_EQ(loaded.reader.GetWireLineCount(), 0);
    // The list of model names is there and has no entry.
    EXPECT_EQ(profileData(loaded.reader, 1), "invalid vector<T> subscript: -, -, -");
}

TEST(PackageReader, ASecondImportReplacesTheListsOnly) {
    CKVOCadenceReader reader;
    const std::string secondWire = "COLOR 2\nWIRE_MODEL 5\nWIRE 1 1\n3DPL 1\n1 1 1\n-\n-\n";
    ASSERT_EQ(importText(reader, "3DI UM\n" + kColors + kNames + kLeastModels + kLeastGeometries +
                                     "WIRE_MODELS\n" + secondWire),
              "true");
    EXPECT_EQ(reader.GetWireLineCount(), 2);
    EXPECT_EQ(reader.GetWireProfileCount(), 5);
    // A file without a unit keeps that of the first, and the counts go on.
    ASSERT_EQ(importText(reader, kColors + kNames +
                                     "WIRE_MODELS\nWIRE_MODEL 1\nB 1 1 X\nCOLOR 1\nWIRE_MODEL 1\n"
                                     "WIRE 500 1\n3DPL 1\n1000 0 0\n-\n-\n"
                                     "GEOM\nNAME D\nOBJECT 1\nCOLOR 1\nEXTR 0 0 1000\n2DPG 2\n"
                                     "0 0 2000 2000\n"),
              "true");
    EXPECT_THAT(bodies(reader), ElementsAre("D: centre 1 1 0.5, size 2 2 1, colour 255"));
    EXPECT_EQ(reader.GetWireLineCount(), 3);
    EXPECT_EQ(reader.GetWireProfileCount(), 5);
    EXPECT_THAT(wires(reader), ElementsAre(kOutOfRange, kOutOfRange, kOutOfRange));
    EXPECT_EQ(profileData(reader, 1), "invalid vector<T> subscript: B, 0.5, -");
    EXPECT_EQ(profileData(reader, 2), "invalid vector<T> subscript: -, -, -");
}

TEST(PackageReader, AFailedImportLeavesWhatWasReadAndNoBodies) {
    CKVOCadenceReader reader;
    ASSERT_EQ(importText(reader, kLeastFile), "true");
    ASSERT_EQ(importText(reader, "3DI UM\n" + kColors + "TABLE OBJECT\n1 SYMBOL\n" + kLeastModels +
                                     kLeastGeometries),
              "false");
    EXPECT_THAT(bodies(reader), IsEmpty());
    EXPECT_EQ(reader.GetWireLineCount(), 1);
    EXPECT_EQ(reader.GetWireProfileCount(), 1);
    EXPECT_THAT(wires(reader), ElementsAre(kOutOfRange));
    EXPECT_EQ(profileData(reader, 1), "invalid vector<T> subscript: -, -, -");
    // Its unit was read and stays.
    ASSERT_EQ(
        importText(reader, kColors + kNames +
                               "GEOM\nOBJECT 2\nLAYER 2\nCOLOR 1\nBARL 1 2 3 4 0 0 0\n####\n"),
        "true");
    EXPECT_THAT(bodies(reader), ElementsAre("TOP: centre 0.001 0.002 0.003, diameter 0.008, "
                                            "colour 255"));
}

TEST(PackageReader, ReadersDoNotShareAModel) {
    Package first(kLeastFile);
    Package second(kTables);
    EXPECT_EQ(second.reader.GetComponentCount(), 0);
    expectLeastModel(first.reader);
}

TEST(PackageReader, ACopySharesTheModel) {
    CKVOCadenceReader reader;
    ASSERT_EQ(importText(reader, kLeastFile), "true");
    CKVOCadenceReader copy(reader);
    expectLeastModel(copy);
    ASSERT_EQ(importText(reader, kTables), "true");
    EXPECT_EQ(copy.GetComponentCount(), 0);
    EXPECT_EQ(copy.GetWireLineCount(), 1);
    // Giving `reader` another pointer, which is none, leaves the copy the only owner.
    const CKVOCadenceReader fresh;
    EXPECT_EQ(&(reader = fresh), &reader);
    EXPECT_EQ(reader.GetWireLineCount(), 0);
    EXPECT_EQ(copy.GetWireLineCount(), 1);
}

TEST(PackageReader, ACopyOfAReaderWithoutAModelSharesNone) {
    CKVOCadenceReader reader;
    CKVOCadenceReader copy(reader);
    ASSERT_EQ(importText(reader, kLeastFile), "true");
    EXPECT_EQ(copy.GetComponentCount(), 0);
    EXPECT_EQ(reader.GetComponentCount(), 3);
}

}  // namespace
}  // namespace kvocaeio::test
