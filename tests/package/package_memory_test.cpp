/// Memory of 3DI imports: none to be had at every single allocation, and how much is taken at most.
#include <cstddef>
#include <fstream>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "package/imported_package.h"
#include "support/failing_memory.h"
#include "support/files.h"

namespace kvocaeio::test {
namespace {

constexpr double kMebibyte = 1024.0 * 1024.0;
/// What an import may take beside its model.
constexpr double kBeside = 16.0;
/// A body as the model describes it: kind, name, eight lengths, colour.
constexpr std::size_t kBodyBytes = 112;
/// A wire: first point, profile, diameter, colour id.
constexpr std::size_t kWireBytes = 20;
constexpr std::size_t kPointBytes = 24;

/// Imports with so many allocations granted: "true", "false" or the text of the error.
std::string_view importWith(CKVOCadenceReader& reader, const std::string& path, long allocations) {
    try {
        return withAllocations(allocations, [&] { return reader.Import3DIFile(path.c_str()); })
                   ? "true"
                   : "false";
    } catch (const std::out_of_range& error) {
        return std::string_view(error.what()) == kOutOfRange ? kOutOfRange : "another text";
    }
}

/// All answers, so that a list that is out of step shows; the sanitizers see the rest.
void ask(CKVOCadenceReader& reader) {
    bodies(reader);
    wires(reader);
    for (int profile = 0; profile < 4; ++profile)
        profileData(reader, profile);
}

const std::string kGeometries =
    "GEOM\nNAME A_NAME_THAT_IS_LONG_ENOUGH_TO_BE_ALLOCATED\nOBJECT 1\nLAYER 2\nCOLOR 1\n"
    "EXTR 0 0 1\n2DPG 2\n0 0 1 1\nGEOM\nOBJECT 2\nLAYER 2\nCOLOR 2\n####\nGEOM\nLAYER 1\nCOLOR 1\n"
    "####\n";
const std::string kWires =
    "WIRE_MODELS\nWIRE_MODEL 1\nA_MODEL_NAME_THAT_IS_LONG_ENOUGH 1 1 X\nCOLOR 1\nWIRE_MODEL 1\n"
    "WIRE 1 1\n3DPL 3\n1 1 1 2 2 2 3 3 3\n-\n-\nCOLOR 2\nWIRE_MODEL 1\nWIRE 1 1\n3DPL 22\n" +
    std::string("1 1 1 2 2 2 3 3 3 4 4 4 5 5 5 6 6 6 7 7 7 8 8 8 9 9 9 0 0 0\n") +
    "1 1 1 2 2 2 3 3 3 4 4 4 5 5 5 6 6 6 7 7 7 8 8 8 9 9 9 0 0 0\n1 1 1 2 2 2\n-\n-\n";

class PackageMemoryFailure : public testing::Test {
  protected:
    const TempFolder folder;
    const std::string sound =
        folder.write("sound.3di", kTables +
                                      "TABLE LAYER\n9 A_LAYER_NAME_THAT_IS_LONG_ENOUGH\n"
                                      "TABLE END\n" +
                                      kTables + kWires + kGeometries);
    const std::string other = folder.write("other.3di", kTables + kGeometries + kGeometries);
    const std::string failing = folder.write("failing.3di", kColors + kGeometries);
    const std::string throwing =
        folder.write("throwing.3di", kTables + kGeometries + "GEOM\nOBJECT 1\n####\n" + kWires);
};

TEST_F(PackageMemoryFailure, OfAnImportGivesFalseAndLeaksNothing) {
    for (const auto& [path, last] : {std::pair{sound, "true"}, std::pair{throwing, kOutOfRange}}) {
        std::string_view result = "false";
        long allocations = 0;
        for (; result == "false"; ++allocations) {
            const long before = outstanding;
            {
                CKVOCadenceReader reader;
                result = importWith(reader, path, allocations);
                ask(reader);
            }
            ASSERT_LE(allocations, 10000);
            ASSERT_EQ(outstanding, before) << path << " after " << allocations << " allocations";
        }
        EXPECT_EQ(result, last) << path;
        EXPECT_GT(allocations, 10) << path;
    }
}

TEST_F(PackageMemoryFailure, OfAFailingImportLeaksNothing) {
    for (long allocations = 0; allocations < 100; ++allocations) {
        const long before = outstanding;
        {
            CKVOCadenceReader reader;
            EXPECT_EQ(importWith(reader, failing, allocations), "false");
            ask(reader);
        }
        ASSERT_EQ(outstanding, before) << "after " << allocations << " allocations";
    }
}

TEST_F(PackageMemoryFailure, OfASecondImportLeavesListsThatCanBeAskedFor) {
    for (const auto& [first, second] : {std::pair{sound, other}, std::pair{other, sound}}) {
        std::string_view result;
        for (long allocations = 0; result != "true"; ++allocations) {
            CKVOCadenceReader reader;
            ASSERT_EQ(importWith(reader, first, -1), "true");
            result = importWith(reader, second, allocations);
            ask(reader);
            reader.CleanMemory();
            ASSERT_EQ(importWith(reader, first, -1), "true");
            ASSERT_LE(allocations, 10000);
        }
    }
}

TEST_F(PackageMemoryFailure, OfAFirstQueryIsFalseOrZero) {
    CKVOCadenceReader reader;
    withAllocations(0, [&] {
        EXPECT_EQ(reader.GetComponentCount(), 0);
        EXPECT_EQ(reader.GetWireLineCount(), 0);
        EXPECT_EQ(reader.GetWireProfileCount(), 0);
        std::vector<double> points;
        int profile = 0;
        double diameter = 0.0;
        EXPECT_FALSE(reader.GetWireLine(0, points, profile, diameter));
        EXPECT_FALSE(reader.GetWirePolyLine(0, points, profile, diameter));
        const char* name = nullptr;
        unsigned color = 0;
        EXPECT_FALSE(reader.GetWireProfileData(1, name, diameter, color));
        EXPECT_FALSE(reader.GetComponentData(0, nullptr, profile, nullptr, nullptr, color));
        EXPECT_FALSE(reader.Import3DIFile(static_cast<const char*>(nullptr)));
        reader.CleanMemory();
    });
}

TEST_F(PackageMemoryFailure, OfAQueryIsBadAlloc) {
    CKVOCadenceReader reader;
    ASSERT_EQ(importWith(reader, sound, -1), "true");
    std::vector<double> points;
    int profile = 0;
    double diameter = 0.0;
    const char* name = nullptr;
    unsigned color = 0;
    EXPECT_THROW(withAllocations(0, [&] { reader.GetWireLine(0, points, profile, diameter); }),
                 std::bad_alloc);
    EXPECT_THROW(withAllocations(0, [&] { reader.GetWirePolyLine(0, points, profile, diameter); }),
                 std::bad_alloc);
    EXPECT_THROW(withAllocations(0, [&] { reader.GetWireProfileData(1, name, diameter, color); }),
                 std::bad_alloc);
    ask(reader);
}

/// Most memory that the import of a file takes, in MiB; the file is written piece by piece.
class PackagePeak : public testing::Test {
  protected:
    void put(const std::string& content, int count = 1) {
        for (; count > 0; --count)
            out_ << content;
    }
    double importPeak(std::string_view expected = "true") {
        out_.close();
        const std::size_t before = bytesInUse;
        mostBytesInUse = bytesInUse;
        EXPECT_EQ(importWith(reader, path_, -1), expected);
        const double peak = static_cast<double>(mostBytesInUse - before) / kMebibyte;
        RecordProperty("peak", std::to_string(peak));
        return peak;
    }
    static double mebibytes(std::size_t bytes) { return static_cast<double>(bytes) / kMebibyte; }

    CKVOCadenceReader reader;

  private:
    const TempFolder folder_;
    const std::string path_ = folder_.file("package.3di");
    std::ofstream out_{path_, std::ios::binary};
};

TEST_F(PackagePeak, OfManyBodiesIsTheBodies) {
    constexpr int kCount = 300000;
    put(kTables);
    put("GEOM\nOBJECT 2\nLAYER 2\nCOLOR 1\nBARL 1 1 1 1 0 0 0\n####\n", kCount);
    EXPECT_LT(importPeak(), mebibytes(kCount * kBodyBytes) + kBeside);
    EXPECT_EQ(reader.GetComponentCount(), kCount);
}

TEST_F(PackagePeak, OfManyWiresIsTheWires) {
    constexpr int kCount = 200000;
    put(kTables);
    put("COLOR 1\nWIRE_MODEL 1\nWIRE 1 1\n3DPL 4\n1 1 1 2 2 2 3 3 3 4 4 4\n-\n-\n", kCount);
    EXPECT_LT(importPeak(), mebibytes(kCount * (kWireBytes + 4 * kPointBytes)) + kBeside);
    EXPECT_EQ(reader.GetWireLineCount(), kCount);
}

TEST_F(PackagePeak, OfOneLongWireIsItsPointsTwice) {
    // Once as they are gathered, once in the model.
    constexpr int kRows = 100000;
    put(kTables + "COLOR 1\nWIRE_MODEL 1\nWIRE 1 1\n3DPL 400000\n");
    put("1 1 1 2 2 2 3 3 3 4 4 4\n", kRows);
    put("-\n-\n");
    EXPECT_LT(importPeak(), 2 * mebibytes(4 * kRows * kPointBytes) + kBeside);
    EXPECT_EQ(reader.GetWireLineCount(), 1);
}

TEST_F(PackagePeak, OfACountWithoutPointsIsNothing) {
    put(kTables);
    put("COLOR 1\nWIRE_MODEL 1\nWIRE 1 1\n3DPL 2147483647\n1 1 1\n\n", 100);
    put("GEOM\nOBJECT 1\nLAYER 2\nCOLOR 1\n2DPG 2147483647\n1 1\n");
    EXPECT_LT(importPeak(), kBeside);
}

TEST_F(PackagePeak, OfEmptyBlocksIsNothing) {
    put(kTables);
    put("GEOM\n####\n", 1000000);
    EXPECT_LT(importPeak(), kBeside);
}

TEST_F(PackagePeak, OfALineWithoutEndIsNothing) {
    put(kTables + "GEOM\nNAME ");
    put(std::string(1000000, 'N'), 50);
    EXPECT_LT(importPeak(), kBeside);
}

TEST_F(PackagePeak, OfIdsThatNoTableHoldsIsNothing) {
    put("TABLE COLOR\n2147483647 1 1 1 1\n16777216 1 1 1 1\n-1 1 1 1 1\n" + kTables);
    put("TABLE LAYER\n2147483647 A\n16777216 A\n-1 A\nTABLE END\n");
    EXPECT_LT(importPeak("false"), kBeside);
}

TEST_F(PackagePeak, OfTheLargestIdsIsTheTablesAtMost) {
    put("TABLE COLOR\n16777215 1 1 1 1\nTABLE OBJECT\n1 SYMBOL\n16777215 A\nTABLE LAYER\n"
        "1 OUTLINE\n16777215 A\nTABLE END\n");
    constexpr std::size_t kEntries = 16777216;
    EXPECT_LT(importPeak(),
              mebibytes(kEntries * (sizeof(unsigned) + 2 * sizeof(std::string))) + kBeside);
}

TEST_F(PackagePeak, OfRowsThatReplaceEachOtherIsTheirCount) {
    constexpr int kRows = 500000;
    put("TABLE COLOR\n");
    put("1 1 1 1 1\n", kRows);
    put(kNames);
    // The rows as they are gathered, and the table, which is as long as they are many.
    EXPECT_LT(importPeak(), mebibytes(kRows * 3 * sizeof(unsigned)) + kBeside);
}

}  // namespace
}  // namespace kvocaeio::test
