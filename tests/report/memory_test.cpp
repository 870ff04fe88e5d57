/// What a report holds, whatever the file, and what it says when memory runs out.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "support/captured_output.h"
#include "support/failing_memory.h"
#include "support/files.h"
#include "support/findings.h"
#include "text/findings.h"
#include <kvocaeio/abaqus.h>
#include <kvocaeio/nastran.h>
#include <kvocaeio/package.h>
#include <kvocaeio/patran.h>
#include <kvocaeio/report.h>

namespace kvocaeio::test {
namespace {

// File work is several times as slow under Wine, and so is everything under a sanitizer.
#if defined(_WIN32) || !defined(NDEBUG)
constexpr int kLines = 1'000'000;
#else
constexpr int kLines = 10'000'000;
#endif
constexpr std::size_t kMebibyte = std::size_t{1} << 20;

// The least that a Nastran deck must hold to be read to its end.
constexpr const char* kNastranHead =
    "GRID           1              0.      0.      0.\n"
    "CBAR           1       1       1       1\n"
    "PBAR           1       1      1.\n";

// Lines that all differ, each wrong in its way.
std::string rubbish(std::string text = {}) {
    text.reserve(static_cast<std::size_t>(kLines) * 12);
    for (int line = 0; line < kLines; ++line) {
        text += "*!x1,$ "[line % 7];
        text += std::to_string(line);
        text += line % 3 == 0 ? "=,\n" : "\n";
    }
    return text;
}

// What a report holds after `import(path, report)`; bytes.
template <class Run>
void expectSmall(const char* name, const Run& run) {
    if (!kMallocFails)
        return;
    const std::size_t before = bytesInUse;
    CKVOImportReport report;
    {
        const CapturedOutput quiet;
        run(&report);
    }
    EXPECT_LT(bytesInUse - before, kMebibyte) << name;
    EXPECT_GT(report.GetSeverityCount(CKVOImportReport::kNote) +
                  report.GetSeverityCount(CKVOImportReport::kWarning) +
                  report.GetSeverityCount(CKVOImportReport::kError),
              kLines / 20)
        << name;
}

TEST(ReportMemory, OfMillionsOfLinesOfRubbishStaysSmall) {
    const TempFolder folder;
    const std::string path = folder.write("rubbish.txt", rubbish());
    const std::string bulk = folder.write("rubbish.nas", rubbish(kNastranHead));
    expectSmall("Abaqus", [&](CKVOImportReport* report) {
        CKVOAbaqusReader reader;
        reader.ImportInpFile(path.c_str(), report);
        reader.SortData(report);
    });
    expectSmall("Nastran", [&](CKVOImportReport* report) {
        KVONASTRAN_Reader reader;
        reader.SetFilePath(bulk.c_str(), report);
    });
    expectSmall("Patran lists", [&](CKVOImportReport* report) {
        CKVO_PatranIO_Bridge reader;
        reader.ImportFromPatFile(path.c_str(), report);
    });
    expectSmall("Patran arrays", [&](CKVOImportReport* report) {
        CPatranReader reader;
        reader.ImportFromPatFile(path.c_str(), report);
    });
}

// Every allocation of an import fails in turn: the report always knows why.
TEST(ReportMemory, AnImportThatRunsOutOfItSaysSo) {
    const TempFolder folder;
    const std::string path = folder.write(
        "a.pat",
        "26       0       0       1       1       0       0       0\ndate\n"
        " 1       1       0       2\n             0.0             0.0             0.0\n-\n"
        " 6       1       0       0\n98\n");
    CKVOImportReport report;
    bool imported = false;
    int failures = 0;
    for (long allocations = 0; !imported; ++allocations) {
        CKVO_PatranIO_Bridge reader;
        withAllocations(allocations,
                        [&] { imported = reader.ImportFromPatFile(path.c_str(), &report); });
        CKVOImportReport::FindingData finding{};
        ASSERT_EQ(report.GetFailure(&finding), !imported) << allocations;
        if (imported)
            break;
        ++failures;
        EXPECT_EQ(finding.severity, CKVOImportReport::kError);
        EXPECT_TRUE(std::string(finding.code) == "file.out-of-memory" ||
                    std::string(finding.code) == "file.cannot-open")
            << finding.code;
    }
    EXPECT_GT(failures, 2);
}

// A note of which nothing can be kept leaves an error.
TEST(ReportMemory, AReportThatRunsOutOfItSaysSo) {
    if (!kMallocFails)
        return;
    constexpr static text::FindingKind kKind{"test.kind", text::Severity::kWarning, "", "", ""};
    text::Findings findings;
    for (int round = 0; round < 2; ++round) {
        withAllocations(0, [&] {
            findings.note(kKind, 1, 0, "a");
            findings.note(kKind, 2, 0, "b");
            return true;
        });
        EXPECT_EQ(findings.lostCount(), 2U);
        EXPECT_THAT(describe(findings),
                    testing::ElementsAre("report.incomplete 0:0 ", "report.incomplete 0:0 "));
        findings.clear();
        EXPECT_EQ(findings.entryCount(), 0U);
    }
}

}  // namespace
}  // namespace kvocaeio::test
