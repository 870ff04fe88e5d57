/// Extraction reports that ask for far too much: their results, in time, and memory within eight
/// times the file. A program of its own, as the peak of a process never falls again.
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "package/cadence_design.h"
#include "support/files.h"
#include "support/hostile_texts.h"
#include "support/peak_memory.h"

namespace kvocaeio::test {
namespace {

#if defined(_WIN32)
constexpr std::size_t kFileSize = 10'000'000;
#else
constexpr std::size_t kFileSize = kMemoryCounts ? 100'000'000 : 4'000'000;
#endif

class HostileReports : public testing::Test {
  protected:
    HostileReports() { reader.SetTempFilePath(folder.path().string().c_str()); }
    ~HostileReports() override {
        // Eight times the file, and what a test program needs without one.
        EXPECT_LT(peakMemory(), 8.0 * static_cast<double>(kFileSize) / 1048576.0 + 20.0);
    }

    /// Writes `begin`, as many `rows` as fit in the file size, and `end`. Gives how many those are.
    int write(const std::string& name, std::string_view begin, std::string_view row,
              std::string_view end = "", std::size_t fileSize = kFileSize) {
        const std::size_t rowsPerChunk = 1 + 100'000 / row.size();
        const std::string chunk = repeated(row, static_cast<int>(rowsPerChunk));
        std::ofstream out(folder.path() / name, std::ios::binary);
        out << begin;
        const std::size_t count = fileSize / row.size();
        for (std::size_t left = count; left > 0;) {
            const std::size_t rows = std::min(left, rowsPerChunk);
            out.write(chunk.data(), static_cast<std::streamsize>(rows * row.size()));
            left -= rows;
        }
        out << end;
        return static_cast<int>(count);
    }
    void writeSymbols(const std::string& content) { folder.write("CmdFile1.txt", content); }
    void writeLayers(const std::string& content) { folder.write("CmdFile2.txt", content); }

    bool import() { return reader.ImportCadenceFile(""); }

    TempFolder folder;
    TimeLimit limit;
    CKVOCadenceReader reader;
};

/// A report up to its first row.
std::string headOf(const std::string& report) {
    return report.substr(0, report.find("\nS!") + 1);
}

TEST_F(HostileReports, MillionsOfEmptyCells) {
    const std::string moreColumns = "A!" + std::string(899, '!') + "\n";
    const std::string row = "S!PBGA!!!!!!RECTANGLE!0!0!2!4!" + std::string(900, '!') + "\n";
    write("CmdFile1.txt", headOf(symbolReport("a.mcm")) + moreColumns, row);
    writeLayers(layerReport("a.mcm"));
    EXPECT_TRUE(import());
    EXPECT_EQ(bodiesOf(reader), "SUBSTRATE at 1 2 0.127, 2 x 4 x 0.254\n");
}

TEST_F(HostileReports, MillionsOfCellsOfOneCharacter) {
    writeSymbols(symbolReport("a.mcm"));
    write("CmdFile2.txt",
          "A!LAYER_SORT!LAYER_SUBCLASS!LAYER_TYPE!LAYER_MATERIAL!LAYER_THICKNESS!\n"
          "J!a.mcm!\nS!!!conductor!!2 MIL!\n",
          "S!1!2!3!4!5!\n", "S!!!!!4 MIL!\n");
    EXPECT_TRUE(import());
    EXPECT_EQ(bodiesOf(reader),
              "SUBSTRATE at 0 0 0.0762, 4 x 2 x 0.1524\n"
              "Flip Chip at 0 0 0.1524, 2 x 1 x 0\n");
}

TEST_F(HostileReports, MillionsOfBodies) {
    writeSymbols(symbolReport("a.sip"));
    writeLayers(layerReport("a.sip"));
    const int count = write("CmdFile3.txt", headOf(dieStackReport()), "S!DIE!!!!!!!!\n",
                            "S!die!Last!2!4!6!8!1!3!\n");
    EXPECT_TRUE(import());
    EXPECT_EQ(reader.GetComponentCount(), count + 2);
    char name[1024] = {};
    int isBall = 1;
    double center[3] = {};
    double size[5] = {};
    unsigned color = 1;
    ASSERT_TRUE(reader.GetComponentData(count, name, isBall, center, size, color));
    EXPECT_STREQ(name, "");
    EXPECT_EQ(center[2], 0.254);
    ASSERT_TRUE(reader.GetComponentData(count + 1, name, isBall, center, size, color));
    EXPECT_STREQ(name, "Last");
    EXPECT_EQ(center[2], 2.254);
    EXPECT_EQ(size[2], 2.0);
}

TEST_F(HostileReports, LinesWithoutEnd) {
    writeSymbols(symbolReport("a.brd"));
    write("CmdFile2.txt", "", "x");
    EXPECT_TRUE(import());
    write("CmdFile2.txt", "", "!");
    EXPECT_FALSE(import());
    write("CmdFile2.txt", "A!X!\n", "S!1!");
    EXPECT_FALSE(import());
    write("CmdFile1.txt", symbolReport("a.brd") + "J", "!");  // a job line of many cells
    EXPECT_FALSE(import());
}

TEST_F(HostileReports, NulBytes) {
    writeSymbols(symbolReport("a.brd"));
    write("CmdFile2.txt", "", std::string_view("\0", 1));
    EXPECT_TRUE(import());
    write("CmdFile2.txt", "", std::string_view("\n\0", 2));
    EXPECT_TRUE(import());
    write("CmdFile3.txt", "", std::string_view("S!\0!!\n", 6));
    EXPECT_TRUE(import());
}

TEST_F(HostileReports, AHeaderOf100000Columns) {
    const std::string columns = repeated("A!X!Y!Z!U!V!W!R!S!T!\n", 10'000);
    writeSymbols(columns + headOf(symbolReport("a.mcm")));
    writeLayers(columns + headOf(layerReport("a.mcm")));
    EXPECT_TRUE(import());
    EXPECT_EQ(reader.GetComponentCount(), 0);
    writeSymbols(columns + symbolReport("a.mcm"));  // no row has as many cells
    EXPECT_FALSE(import());
}

TEST_F(HostileReports, RowsCutByAHeaderThatGrewBehindThem) {
    // 30,000 rows of 12 cells are 3 rows of 100,012, the first of which starts as before.
    writeSymbols(headOf(symbolReport("a.mcm")) +
                 repeated("S!BGA!N!1!1!1!1!RECTANGLE!-2!-1!2!1!\n", 30'000) +
                 repeated("A!X!Y!Z!U!V!W!R!S!T!\n", 10'000));
    writeLayers(layerReport("a.mcm"));
    EXPECT_TRUE(import());
    EXPECT_EQ(bodiesOf(reader), "SUBSTRATE at 0 0 0.127, 4 x 2 x 0.254\n");
}

TEST_F(HostileReports, AHeaderOfMillionsOfColumnsFromOneLine) {
    // The line arrives in pieces of 1023 characters, each a header line.
    write("CmdFile1.txt", "", "A!" + std::string(1021, '!'), "\n" + symbolReport("a.mcm"),
          4'000'000);
    writeLayers(layerReport("a.mcm"));
    EXPECT_FALSE(import());
    write("CmdFile1.txt", "", "A!" + std::string(1021, '!'), "\n" + headOf(symbolReport("a.mcm")),
          4'000'000);
    EXPECT_TRUE(import());
    EXPECT_EQ(reader.GetComponentCount(), 0);
}

TEST_F(HostileReports, JobLinesOfWrongLength) {
    writeLayers(layerReport("a.brd"));
    write("CmdFile1.txt", "", "J!\n");
    EXPECT_FALSE(import());
    for (const char* job :
         {"J!a.brd!2!3!4!5!6!7!mm!9!10!11!\n", "J!a.brd!2!3!4!5!6!7!mm!9!10!11!12!13!\n",
          "J!a.brd!2!3!4!5!6!7!mm!9!10!11!12!\nJ!\n"}) {
        writeSymbols(job);
        EXPECT_FALSE(import()) << job;
    }
    writeSymbols("J!a.brd!2!3!4!5!6!7!mm!9!10!11!\nJ!\n");  // 13 cells of two lines
    EXPECT_TRUE(import());
}

TEST_F(HostileReports, EmptyLines) {
    writeSymbols(symbolReport("a.brd"));
    write("CmdFile2.txt", "", "\n");
    write("CmdFile3.txt", "", "\r\n");
    EXPECT_TRUE(import());
}

TEST_F(HostileReports, AReportAfterAReport) {
    writeLayers(layerReport("a.brd"));
    for (int i = 0; i < 4; ++i) {  // one import's tables at a time
        write("CmdFile1.txt", symbolReport("a.brd") + "A!" + std::string(899, '!') + "\n",
              "S!" + std::string(911, '!') + "\n");
        EXPECT_TRUE(import());
    }
}

}  // namespace
}  // namespace kvocaeio::test
