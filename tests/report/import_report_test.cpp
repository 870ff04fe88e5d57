/// The report as a host walks it.
#include "report/import_report.h"

#include <gtest/gtest.h>
#include <string>

#include "support/files.h"
#include <kvocaeio/nastran.h>
#include <kvocaeio/report.h>

namespace kvocaeio::report {
namespace {

using text::FindingKind;
using text::Severity;

constexpr FindingKind kTorn{"test.torn", Severity::kWarning, "the number {} is torn", "why",
                            "write it whole"};
constexpr FindingKind kCut{"test.cut", Severity::kError, "the rest of {} is not read", "why", ""};
constexpr FindingKind kSeen{"test.seen", Severity::kNote, "something was seen", "why", ""};

// A report of an import that finds these.
class ImportReportTest : public testing::Test {
  protected:
    ImportReportTest() {
        runReported(
            &report_,
            [](const text::Listener& listener) {
                text::Findings& findings = *listener.findings;
                findings.beginFile("part.inp");
                for (std::size_t line = 7; line < 27; ++line)
                    findings.note(kTorn, line, 3,
                                  "1.0\x1B"
                                  "e+2");
                findings.note(kCut, 30, 0, "*NODE", "the block");
                findings.note(kSeen, 0, 0, "set A");
                return true;
            },
            [](ImportReport& filled) {
                filled.addCount("nodes", 12);
                filled.addCount("elements", 3);
            });
    }

    CKVOImportReport report_;
    CKVOImportReport::FindingData finding_{};
    CKVOImportReport::PlaceData place_{};
    CKVOImportReport::CountData count_{};
};

TEST_F(ImportReportTest, WalksFindings) {
    EXPECT_EQ(report_.GetFindingNum(), 3);
    ASSERT_TRUE(report_.GetFindingBegin());
    ASSERT_TRUE(report_.GetFindingNext(&finding_));
    EXPECT_EQ(finding_.severity, CKVOImportReport::kWarning);
    EXPECT_STREQ(finding_.code, "test.torn");
    EXPECT_STREQ(finding_.text, "the number 1.0.e+2 is torn");
    EXPECT_STREQ(finding_.advice, "write it whole");
    EXPECT_STREQ(finding_.file, "part.inp");
    EXPECT_EQ(finding_.line, 7);
    EXPECT_EQ(finding_.column, 3);
    EXPECT_EQ(finding_.count, 20);
    EXPECT_EQ(finding_.placeNum, 8);
    ASSERT_TRUE(report_.GetFindingNext(&finding_));
    EXPECT_STREQ(finding_.text, "the rest of the block is not read");
    EXPECT_EQ(finding_.severity, CKVOImportReport::kError);
    ASSERT_TRUE(report_.GetFindingNext(&finding_));
    EXPECT_STREQ(finding_.text, "something was seen");
    EXPECT_STREQ(finding_.advice, "");
    EXPECT_EQ(finding_.line, 0);
    finding_.line = 99;
    EXPECT_FALSE(report_.GetFindingNext(&finding_));
    EXPECT_EQ(finding_.line, 99);
}

TEST_F(ImportReportTest, WalksThePlacesOfAFinding) {
    EXPECT_FALSE(report_.GetPlaceNext(&place_));
    report_.GetFindingBegin();
    report_.GetFindingNext(&finding_);
    for (int line = 7; line < 15; ++line) {
        ASSERT_TRUE(report_.GetPlaceNext(&place_));
        EXPECT_EQ(place_.line, line);
        EXPECT_EQ(place_.column, 3);
        EXPECT_STREQ(place_.text, "1.0.e+2");
        EXPECT_STREQ(place_.file, "part.inp");
    }
    EXPECT_FALSE(report_.GetPlaceNext(&place_));
    report_.GetFindingNext(&finding_);
    EXPECT_TRUE(report_.GetPlaceNext(&place_));
    EXPECT_STREQ(place_.text, "*NODE");
    EXPECT_FALSE(report_.GetPlaceNext(&place_));
}

TEST_F(ImportReportTest, CountsBySeverityAndCode) {
    EXPECT_EQ(report_.GetSeverityCount(CKVOImportReport::kNote), 1);
    EXPECT_EQ(report_.GetSeverityCount(CKVOImportReport::kWarning), 20);
    EXPECT_EQ(report_.GetSeverityCount(CKVOImportReport::kError), 1);
    EXPECT_EQ(report_.GetSeverityCount(3), 0);
    EXPECT_EQ(report_.GetCodeCount("test.torn"), 20);
    EXPECT_EQ(report_.GetCodeCount("test.other"), 0);
}

TEST_F(ImportReportTest, WalksCounts) {
    EXPECT_EQ(report_.GetCountNum(), 2);
    ASSERT_TRUE(report_.GetCountBegin());
    ASSERT_TRUE(report_.GetCountNext(&count_));
    EXPECT_STREQ(count_.name, "nodes");
    EXPECT_EQ(count_.count, 12);
    ASSERT_TRUE(report_.GetCountNext(&count_));
    EXPECT_STREQ(count_.name, "elements");
    EXPECT_FALSE(report_.GetCountNext(&count_));
}

TEST_F(ImportReportTest, HasNoFailureAfterAnImport) {
    EXPECT_FALSE(report_.GetFailure(&finding_));
}

TEST_F(ImportReportTest, IsFilledAnewByEveryImport) {
    runReported(
        &report_, [](const text::Listener&) { return true; }, [](ImportReport&) {});
    EXPECT_EQ(report_.GetFindingNum(), 0);
    EXPECT_EQ(report_.GetCountNum(), 0);
    EXPECT_FALSE(report_.GetFindingBegin());
    EXPECT_FALSE(report_.GetCountBegin());
}

TEST_F(ImportReportTest, IsAddedToByALaterStage) {
    runReportedOn(
        &report_,
        [](const text::Listener& listener) { listener.findings->note(kSeen, 0, 0, "set B"); },
        [](ImportReport& filled) { filled.addCount("sections", 1); });
    EXPECT_EQ(report_.GetFindingNum(), 3);
    EXPECT_EQ(report_.GetCodeCount("test.seen"), 2);
    EXPECT_EQ(report_.GetCountNum(), 3);
}

TEST_F(ImportReportTest, Clears) {
    report_.Clear();
    EXPECT_EQ(report_.GetFindingNum(), 0);
    EXPECT_EQ(report_.GetCountNum(), 0);
}

TEST_F(ImportReportTest, SaysWhyAFileCannotBeOpened) {
    KVONASTRAN_Reader reader;
    const test::TempFolder folder;
    const std::string missing = (folder.path() / "missing.nas").string();
    EXPECT_FALSE(reader.SetFilePath(missing.c_str(), &report_));
    ASSERT_TRUE(report_.GetFailure(&finding_));
    EXPECT_STREQ(finding_.code, "file.cannot-open");
    EXPECT_EQ(finding_.file, missing);
    EXPECT_STREQ(finding_.text, "the file cannot be opened: No such file or directory");
    EXPECT_FALSE(reader.SetFilePath(nullptr, &report_));
    ASSERT_TRUE(report_.GetFailure(&finding_));
    EXPECT_STREQ(finding_.text, "the file cannot be opened: no path is given");
}

TEST_F(ImportReportTest, SaysWhichErrorEndedTheImport) {
    static constexpr FindingKind kUnread{"test.unread", Severity::kError, "cannot be opened: {}",
                                         "", ""};
    runReported(
        &report_,
        [](const text::Listener& listener) {
            for (const char* file : {"one", "two"}) {
                listener.findings->beginFile(file);
                listener.findings->note(kUnread, 0, 0, std::string("reason ") + file);
            }
            listener.findings->note(kSeen, 0, 0, "something later");
            return false;
        },
        [](ImportReport&) { FAIL(); });
    ASSERT_TRUE(report_.GetFailure(&finding_));
    EXPECT_STREQ(finding_.text, "cannot be opened: reason two");
    EXPECT_STREQ(finding_.file, "two");
    EXPECT_EQ(finding_.count, 2);
}

TEST_F(ImportReportTest, SaysWhenAnAuditRanOutOfMemory) {
    runReported(
        &report_, [](const text::Listener&) { return true; },
        [](ImportReport&) { throw std::bad_alloc(); });
    ASSERT_EQ(report_.GetFindingNum(), 1);
    report_.GetFindingBegin();
    report_.GetFindingNext(&finding_);
    EXPECT_STREQ(finding_.code, "report.incomplete");
}

TEST(ImportReport, MayBeNull) {
    bool isHeard = true;
    EXPECT_TRUE(runReported(
        nullptr,
        [&](const text::Listener& listener) {
            isHeard = listener.findings != nullptr;
            return true;
        },
        [](ImportReport&) { FAIL(); }));
    EXPECT_FALSE(isHeard);
}

}  // namespace
}  // namespace kvocaeio::report
