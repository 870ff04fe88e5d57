/// What is taken of the library's report.
#include "import_findings.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "support/files.h"
#include <kvocaeio/nastran.h>
#include <kvocaeio/report.h>

namespace kvocaeio::host {
namespace {

class ImportFindingsTest : public testing::Test {
  protected:
    /// Takes the report of a reader that finds no file of this name.
    void takeMissing(const std::string& name) {
        KVONASTRAN_Reader reader;
        CKVOImportReport report;
        const bool isImported = reader.SetFilePath(folder_.file(name).c_str(), &report);
        import_.take(report, isImported);
    }

    test::TempFolder folder_;
    ImportFindings import_;
};

TEST_F(ImportFindingsTest, WhatTwoReadersFindIsToldOnce) {
    takeMissing("a.nas");
    takeMissing("a.nas");
    takeMissing("b.nas");
    ASSERT_EQ(import_.findings.size(), 2u);
    EXPECT_EQ(import_.findings[0].code, "file.cannot-open");
    EXPECT_EQ(import_.findings[0].file, folder_.file("a.nas"));
    EXPECT_EQ(import_.findings[0].count, 1);
    EXPECT_EQ(import_.tally().of(Level::kError), 2u);
    EXPECT_TRUE(import_.failed);
}

TEST_F(ImportFindingsTest, HasWhatTheReaderReturns) {
    const std::string deck = folder_.write("a.nas",
                                           "GRID           1              0.      0.      0.\n"
                                           "CROD           1       1       1       1\n"
                                           "PROD           1       1\n");
    KVONASTRAN_Reader reader;
    CKVOImportReport report;
    import_.take(report, reader.SetFilePath(deck.c_str(), &report));
    EXPECT_FALSE(import_.failed);
    EXPECT_FALSE(import_.counts.empty());
}

TEST_F(ImportFindingsTest, AreOrderedByFileAndLine) {
    import_.add(Level::kError, "x.no-line", "", "b");
    for (const auto& [line, column] : {std::pair(9, 0), std::pair(2, 7), std::pair(2, 3)}) {
        import_.add(Level::kNote, "x.line", "", "b");
        import_.findings.back().places = {{line, column, ""}};
    }
    import_.add(Level::kWarning, "x.other", "", "a");
    import_.sort();
    std::string order;
    for (const ImportFinding& finding : import_.findings)
        order += finding.file + std::to_string(finding.places[0].line) + '.' +
                 std::to_string(finding.places[0].column) + ' ';
    EXPECT_EQ(order, "a0.0 b2.3 b2.7 b9.0 b0.0 ");
}

TEST_F(ImportFindingsTest, BecomeJson) {
    import_.add(Level::kWarning, "x.torn", "is torn", "temporary");
    import_.findings.back().places = {{3, 7, "1.0e"}, {9, 0, ""}};
    import_.findings.back().count = 12;
    import_.rename("temporary", "-");
    EXPECT_EQ(asJson(import_), Json::parse(R"({
        "errors": 0, "warnings": 1, "notes": 0,
        "findings": [{
            "file": "-", "line": 3, "column": 7, "severity": "warning", "code": "x.torn",
            "count": 12, "text": "is torn", "advice": null,
            "places": [{"line": 3, "column": 7, "text": "1.0e"},
                       {"line": 9, "column": null, "text": ""}]}]})"));
}

}  // namespace
}  // namespace kvocaeio::host
