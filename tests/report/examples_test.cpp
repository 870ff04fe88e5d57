/// Every code has an example that yields this finding and no other, and a counter-example that does
/// not. `examples/CODE.EXT` and `examples/CODE.not.EXT` are files, or folders of a design's
/// reports.
#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "abaqus/findings.h"
#include "nastran/findings.h"
#include "package/findings.h"
#include "patran/findings.h"
#include "report/mesh_audit.h"
#include "support/captured_output.h"
#include <kvocaeio/abaqus.h>
#include <kvocaeio/nastran.h>
#include <kvocaeio/package.h>
#include <kvocaeio/patran.h>
#include <kvocaeio/report.h>

namespace kvocaeio {
namespace {

namespace fs = std::filesystem;

void addCodes(CKVOImportReport& report, std::set<std::string>& codes) {
    CKVOImportReport::FindingData finding;
    for (report.GetFindingBegin(); report.GetFindingNext(&finding);)
        codes.insert(finding.code);
}

// The codes that an import of `path`, with all that follows it, reports.
std::set<std::string> codesOf(const fs::path& path) {
    const test::CapturedOutput quiet;
    CKVOImportReport report;
    std::set<std::string> codes;
    const std::string name = path.string();
    const std::string extension = path.extension().string();
    if (extension == ".inp") {
        CKVOAbaqusReader reader;
        try {
            if (reader.ImportInpFile(name.c_str(), &report))
                reader.SortData(&report);
        } catch (const std::length_error&) {  // the report holds the reason
        }
    } else if (extension == ".nas") {
        KVONASTRAN_Reader reader;
        reader.SetFilePath(name.c_str(), &report);
    } else if (extension == ".pat") {
        CKVO_PatranIO_Bridge lists;
        lists.ImportFromPatFile(name.c_str(), &report);
        addCodes(report, codes);
        CPatranReader arrays;
        arrays.ImportFromPatFile(name.c_str(), &report);
    } else if (extension == ".3di") {
        CKVOCadenceReader reader;
        try {
            reader.Import3DIFile(name.c_str(), &report);
        } catch (const std::out_of_range&) {  // the report holds the reason
        }
    } else if (fs::is_directory(path)) {
        CKVOCadenceReader reader;
        reader.SetTempFilePath(name.c_str());
        try {
            reader.ImportCadenceFile("design", &report);  // without a tool: the reports lie there
        } catch (const std::out_of_range&) {
        }
    } else {
        ADD_FAILURE() << name << " is no example of any format";
    }
    addCodes(report, codes);
    return codes;
}

// A name without its extension, and whether it is a counter-example.
struct Example {
    explicit Example(const fs::path& file) : path(file), code(file.filename().string()) {
        for (const std::string_view extension : {".inp", ".nas", ".pat", ".3di", ".reports"})
            if (code.ends_with(extension))
                code.resize(code.size() - extension.size());
        isCounter = code.ends_with(".not");
        if (isCounter)
            code.resize(code.size() - std::string_view(".not").size());
    }

    fs::path path;
    std::string code;
    bool isCounter = false;
};

std::vector<Example> allExamples() {
    std::vector<Example> examples;
    for (const fs::directory_entry& entry : fs::directory_iterator(KVOCAEIO_FINDING_EXAMPLES))
        examples.emplace_back(entry.path());
    std::ranges::sort(examples, {}, &Example::path);
    return examples;
}

template <std::size_t N>
void addKinds(const std::array<text::FindingKind, N>& kinds, std::set<std::string>& codes) {
    for (const text::FindingKind& kind : kinds)
        codes.insert(std::string(kind.code));
}

std::set<std::string> allCodes() {
    std::set<std::string> codes;
    addKinds(abaqus::kFindingKinds, codes);
    addKinds(nastran::kFindingKinds, codes);
    addKinds(package::kFindingKinds, codes);
    addKinds(patran::kFindingKinds, codes);
    addKinds(report::kMeshFindingKinds, codes);
    return codes;
}

// The codes that begin with the name of an island.
class FindingExamples : public testing::TestWithParam<const char*> {
  protected:
    bool isOurs(std::string_view code) const { return code.starts_with(GetParam()); }
    std::vector<Example> examples(bool areCounters) const {
        std::vector<Example> examples = allExamples();
        std::erase_if(examples, [&](const Example& example) {
            return example.isCounter != areCounters || !isOurs(example.code);
        });
        return examples;
    }
};

TEST_P(FindingExamples, YieldTheirFindingAndNoOther) {
    for (const Example& example : examples(false))
        EXPECT_THAT(codesOf(example.path), testing::ElementsAre(example.code)) << example.path;
}

TEST_P(FindingExamples, OfWhatIsNoFindingHaveNone) {
    for (const Example& example : examples(true))
        EXPECT_FALSE(codesOf(example.path).contains(example.code)) << example.path;
}

TEST_P(FindingExamples, CoverEveryCodeAndItsOpposite) {
    std::set<std::string> codes = allCodes();
    std::erase_if(codes, [&](const std::string& code) { return !isOurs(code); });
    for (const bool areCounters : {false, true}) {
        std::set<std::string> covered;
        for (const Example& example : examples(areCounters))
            covered.insert(example.code);
        EXPECT_EQ(covered, codes) << (areCounters ? "counter-examples" : "examples");
    }
}

INSTANTIATE_TEST_SUITE_P(All, FindingExamples,
                         testing::Values("abaqus.", "mesh.", "nastran.", "package.", "patran."),
                         [](const auto& island) {
                             const std::string name = island.param;
                             return name.substr(0, name.size() - 1);
                         });

TEST(FindingKinds, SayWhatWhyAndHowLongTheyAre) {
    std::vector<text::FindingKind> kinds;
    const auto add = [&](const auto& table) {
        kinds.insert(kinds.end(), table.begin(), table.end());
    };
    add(abaqus::kFindingKinds);
    add(nastran::kFindingKinds);
    add(package::kFindingKinds);
    add(patran::kFindingKinds);
    add(report::kMeshFindingKinds);
    add(text::kFileFindingKinds);
    std::set<std::string_view> codes;
    for (const text::FindingKind& kind : kinds) {
        EXPECT_TRUE(codes.insert(kind.code).second) << kind.code << " is there twice";
        EXPECT_LT(kind.code.size(), 64u) << kind.code;
        EXPECT_FALSE(kind.text.empty()) << kind.code;
        EXPECT_LT(kind.text.size(), 400u) << kind.code;
        EXPECT_LT(kind.advice.size(), 500u) << kind.code;
        EXPECT_FALSE(kind.why.empty()) << kind.code;
        EXPECT_FALSE(kind.text.ends_with('.')) << kind.code;
        EXPECT_FALSE(kind.advice.ends_with('.')) << kind.code;
    }
}

}  // namespace
}  // namespace kvocaeio
