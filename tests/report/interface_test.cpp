/// The report as its header promises it, for every import, through the public classes alone.
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/captured_output.h"
#include "support/files.h"
#include <kvocaeio/abaqus.h>
#include <kvocaeio/nastran.h>
#include <kvocaeio/package.h>
#include <kvocaeio/patran.h>
#include <kvocaeio/report.h>

namespace kvocaeio::test {
namespace {

using FindingData = CKVOImportReport::FindingData;
using PlaceData = CKVOImportReport::PlaceData;

// One import, by a reader of its own.
struct Import {
    const char* name;
    std::function<bool(const std::string&, CKVOImportReport*)> run;
};

std::wstring wide(const std::string& path) {
    return {path.begin(), path.end()};
}

template <class Reader, class Member>
Import importBy(const char* name, Member member) {
    return {name, [member](const std::string& path, CKVOImportReport* report) {
                const CapturedOutput quiet;
                Reader reader;
                return member(reader, path, report);
            }};
}

const std::vector<Import>& allImports() {
    using Report = CKVOImportReport*;
    static const std::vector<Import> imports = {
        importBy<CKVOAbaqusReader>("Abaqus",
                                   [](auto& reader, const std::string& path, Report report) {
                                       return reader.ImportInpFile(path.c_str(), report);
                                   }),
        importBy<KVONASTRAN_Reader>("Nastran",
                                    [](auto& reader, const std::string& path, Report report) {
                                        return reader.SetFilePath(path.c_str(), report);
                                    }),
        importBy<CKVO_PatranIO_Bridge>("Patran lists",
                                       [](auto& reader, const std::string& path, Report report) {
                                           return reader.ImportFromPatFile(path.c_str(), report);
                                       }),
        importBy<CKVO_PatranIO_Bridge>("Patran lists, wide path",
                                       [](auto& reader, const std::string& path, Report report) {
                                           return reader._wImportFromPatFile(wide(path).c_str(),
                                                                             report);
                                       }),
        importBy<CPatranReader>("Patran arrays",
                                [](auto& reader, const std::string& path, Report report) {
                                    return reader.ImportFromPatFile(path.c_str(), report);
                                }),
        importBy<CKVOCadenceReader>("3DI",
                                    [](auto& reader, const std::string& path, Report report) {
                                        return reader.Import3DIFile(path.c_str(), report);
                                    }),
        importBy<CKVOCadenceReader>("3DI, wide path",
                                    [](auto& reader, const std::string& path, Report report) {
                                        return reader.Import3DIFile(wide(path).c_str(), report);
                                    })};
    return imports;
}

// A bar of Patran, with `surplus` nodes that the summary does not count.
std::string neutralFile(int surplus) {
    const auto node = [](const char* id) {
        return " 1" + std::string(id) +
               "       0       2\n             0.0             0.0             0.0\n-\n";
    };
    std::string file = "26       0       0       1       2       1       0       0\ndate\n" +
                       node("       1") + node("       2") +
                       " 2       1       2       2\n       2       0       0\n       1       2\n";
    for (int i = 0; i < surplus; ++i)
        file += node("       3");
    return file + "99\n";
}

class ReportInterface : public testing::Test {
  protected:
    bool importNeutral(const std::string& content) {
        path_ = folder_.write("a.pat", content);
        const CapturedOutput quiet;
        CPatranReader reader;
        return reader.ImportFromPatFile(path_.c_str(), &report_);
    }

    TempFolder folder_;
    std::string path_;
    CKVOImportReport report_;
    FindingData finding_{};
    PlaceData place_{};
};

TEST_F(ReportInterface, IsEmptyAtFirst) {
    CKVOImportReport::CountData count{};
    EXPECT_EQ(report_.GetFindingNum(), 0);
    EXPECT_FALSE(report_.GetFindingBegin());
    EXPECT_FALSE(report_.GetFindingNext(&finding_));
    EXPECT_FALSE(report_.GetPlaceNext(&place_));
    EXPECT_FALSE(report_.GetFailure(&finding_));
    EXPECT_EQ(report_.GetCountNum(), 0);
    EXPECT_FALSE(report_.GetCountBegin());
    EXPECT_FALSE(report_.GetCountNext(&count));
    for (int severity = -1; severity <= 3; ++severity)
        EXPECT_EQ(report_.GetSeverityCount(severity), 0);
    EXPECT_EQ(report_.GetCodeCount(""), 0);
}

TEST_F(ReportInterface, SaysOfEveryImportWhyItFails) {
    const std::string missing = folder_.file("missing.file");
    for (const Import& import : allImports()) {
        EXPECT_FALSE(import.run(missing, nullptr)) << import.name;
        EXPECT_FALSE(import.run(missing, &report_)) << import.name;
        finding_ = {};
        ASSERT_TRUE(report_.GetFailure(&finding_)) << import.name;
        EXPECT_STREQ(finding_.code, "file.cannot-open") << import.name;
        EXPECT_STREQ(finding_.text, "the file cannot be opened: No such file or directory")
            << import.name;
        EXPECT_EQ(finding_.file, missing) << import.name;
        EXPECT_EQ(finding_.severity, CKVOImportReport::kError) << import.name;
        EXPECT_EQ(finding_.count, 1) << import.name;
        EXPECT_EQ(finding_.line, 0) << import.name;
        EXPECT_EQ(finding_.column, 0) << import.name;
        EXPECT_STRNE(finding_.advice, "") << import.name;
        EXPECT_EQ(report_.GetFindingNum(), 1) << import.name;
        EXPECT_EQ(report_.GetSeverityCount(CKVOImportReport::kError), 1) << import.name;
        EXPECT_EQ(report_.GetCountNum(), 0) << import.name;
    }
}

TEST_F(ReportInterface, IsFilledAnewByAnyImport) {
    for (const Import& import : allImports()) {
        import.run(folder_.file("missing.file"), &report_);
        ASSERT_TRUE(importNeutral(neutralFile(0)));
        EXPECT_FALSE(report_.GetFailure(&finding_));
        EXPECT_EQ(report_.GetFindingNum(), 0);
        EXPECT_EQ(report_.GetCountNum(), 3);
    }
}

TEST_F(ReportInterface, FoldsEqualFindingsAndKeepsTheFirstPlaces) {
    ASSERT_TRUE(importNeutral(neutralFile(1000)));
    EXPECT_EQ(report_.GetFindingNum(), 1);
    ASSERT_TRUE(report_.GetFindingBegin());
    ASSERT_TRUE(report_.GetFindingNext(&finding_));
    EXPECT_STREQ(finding_.code, "patran.packet-not-counted");
    EXPECT_EQ(finding_.severity, CKVOImportReport::kError);
    EXPECT_EQ(finding_.count, 1000);
    EXPECT_EQ(finding_.line, 12);
    EXPECT_EQ(finding_.column, 0);
    EXPECT_EQ(finding_.placeNum, 8);
    EXPECT_EQ(finding_.file, path_);
    for (int place = 0; place < 8; ++place) {
        ASSERT_TRUE(report_.GetPlaceNext(&place_));
        EXPECT_EQ(place_.line, 12 + 3 * place);
        EXPECT_EQ(place_.column, 0);
        EXPECT_STREQ(place_.text, " 1       3       0       2");
        EXPECT_EQ(place_.file, path_);
    }
    place_.line = -1;
    EXPECT_FALSE(report_.GetPlaceNext(&place_));
    EXPECT_EQ(place_.line, -1);
    finding_.line = -1;
    EXPECT_FALSE(report_.GetFindingNext(&finding_));
    EXPECT_EQ(finding_.line, -1);
    EXPECT_EQ(report_.GetSeverityCount(CKVOImportReport::kError), 1000);
    EXPECT_EQ(report_.GetSeverityCount(CKVOImportReport::kWarning), 0);
    EXPECT_EQ(report_.GetCodeCount("patran.packet-not-counted"), 1000);
    EXPECT_EQ(report_.GetCodeCount("patran.packet-not"), 0);
}

TEST_F(ReportInterface, StartsItsWalksAnew) {
    ASSERT_TRUE(importNeutral(neutralFile(3)));
    for (int walk = 0; walk < 2; ++walk) {
        ASSERT_TRUE(report_.GetFindingBegin());
        EXPECT_FALSE(report_.GetPlaceNext(&place_)) << "no finding has been returned";
        ASSERT_TRUE(report_.GetFindingNext(&finding_));
        ASSERT_TRUE(report_.GetPlaceNext(&place_));
        EXPECT_EQ(place_.line, 12);
    }
    // A walk does not go on in the findings of another import.
    ASSERT_TRUE(importNeutral(neutralFile(3)));
    EXPECT_FALSE(report_.GetPlaceNext(&place_));
    ASSERT_TRUE(report_.GetFindingNext(&finding_));
    EXPECT_EQ(finding_.line, 12);
    report_.Clear();
    EXPECT_FALSE(report_.GetPlaceNext(&place_));
    EXPECT_FALSE(report_.GetFindingNext(&finding_));
}

TEST_F(ReportInterface, CutsTextsToTheirCapacity) {
    static_assert(sizeof(FindingData::code) == 64 && sizeof(FindingData::text) == 512 &&
                  sizeof(FindingData::advice) == 512 && sizeof(FindingData::file) == 1024 &&
                  sizeof(PlaceData::text) == 81 && sizeof(PlaceData::file) == 1024 &&
                  sizeof(CKVOImportReport::CountData::name) == 64);
    // A line of 200 characters that repeats the summary's header.
    std::string file = neutralFile(0);
    file.insert(file.find("\n 1 ") + 1, "\x1B\t" + std::string(198, 'y') + "\ndate\n");
    ASSERT_TRUE(importNeutral(file));
    ASSERT_TRUE(report_.GetFindingBegin());
    ASSERT_TRUE(report_.GetFindingNext(&finding_));
    EXPECT_STREQ(finding_.code, "patran.header-repeated");
    ASSERT_TRUE(report_.GetPlaceNext(&place_));
    EXPECT_EQ(place_.text, ".." + std::string(78, 'y'));
    // A path of 1500 characters.
    const std::string path(1500, 'p');
    const CapturedOutput quiet;
    CPatranReader reader;
    EXPECT_FALSE(reader.ImportFromPatFile(path.c_str(), &report_));
    ASSERT_TRUE(report_.GetFailure(&finding_));
    EXPECT_EQ(finding_.file, std::string(1023, 'p'));
}

TEST_F(ReportInterface, CountsWhatTheWalksReturn) {
    ASSERT_TRUE(importNeutral(neutralFile(0)));
    CKVOImportReport::CountData count{};
    EXPECT_EQ(report_.GetCountNum(), 3);
    for (int walk = 0; walk < 2; ++walk) {
        ASSERT_TRUE(report_.GetCountBegin());
        ASSERT_TRUE(report_.GetCountNext(&count));
        EXPECT_STREQ(count.name, "nodes");
        EXPECT_EQ(count.count, 2);
    }
    ASSERT_TRUE(report_.GetCountNext(&count));
    EXPECT_STREQ(count.name, "elements");
    EXPECT_EQ(count.count, 1);
    ASSERT_TRUE(report_.GetCountNext(&count));
    count.count = -1;
    EXPECT_FALSE(report_.GetCountNext(&count));
    EXPECT_EQ(count.count, -1);
}

}  // namespace
}  // namespace kvocaeio::test
