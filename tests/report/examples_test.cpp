/// Every code has an example that yields this finding and no other, and a counter-example that does
/// not.
#include "report/examples.h"

#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "report/kinds.h"
#include "support/files.h"

namespace kvocaeio {
namespace {

using test::allExamples;
using test::allKinds;
using test::Example;

// Where an example is tidied, notes tell what else was done to it.
std::set<std::string> codesOf(const Example& example) {
    std::set<std::string> codes;
    for (const test::Told& told : test::importExample(example.path))
        if (!test::isTidied(example.code) || told.severity != "note" || told.code == example.code)
            codes.insert(told.code);
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
        EXPECT_THAT(codesOf(example), testing::ElementsAre(example.code)) << example.path;
}

TEST_P(FindingExamples, OfWhatIsNoFindingHaveNone) {
    for (const Example& example : examples(true))
        EXPECT_FALSE(codesOf(example).contains(example.code)) << example.path;
}

TEST_P(FindingExamples, CoverEveryCodeAndItsOpposite) {
    std::set<std::string> codes;
    for (const text::FindingKind& kind : allKinds())
        if (isOurs(kind.code))
            codes.insert(std::string(kind.code));
    for (const test::CodeWithoutExample& of : test::kCodesWithoutExample)
        codes.erase(std::string(of.code));
    for (const bool areCounters : {false, true}) {
        std::set<std::string> covered;
        for (const Example& example : examples(areCounters))
            covered.insert(example.code);
        EXPECT_EQ(covered, codes) << (areCounters ? "counter-examples" : "examples");
    }
}

INSTANTIATE_TEST_SUITE_P(All, FindingExamples,
                         testing::Values("abaqus.", "mesh.", "nastran.", "package.", "patran.",
                                         "tidy."),
                         [](const auto& island) {
                             const std::string name = island.param;
                             return name.substr(0, name.size() - 1);
                         });

std::vector<std::filesystem::path> filesIn(const char* folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(KVOCAEIO_SOURCES) / folder))
        if (const auto extension = entry.path().extension();
            extension != ".md" && extension != ".py")
            files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

std::vector<std::string> linesOf(const std::filesystem::path& file) {
    std::vector<std::string> lines;
    for (const test::Told& told : test::importExample(file))
        lines.push_back(test::lineOf(told));
    return lines;
}

TEST(FindingsOfFiles, AreNoneWhereAGoodExporterWroteThem) {
    const auto files = filesIn("tests/report/clean");
    EXPECT_EQ(files.size(), 7U);
    for (const std::filesystem::path& file : files)
        EXPECT_THAT(linesOf(file), testing::IsEmpty()) << file;
}

// A person has looked at each of these lines, with the sample beside it.
TEST(FindingsOfFiles, AreTrueOfTheSamples) {
    std::string told;
    for (const std::filesystem::path& file : filesIn("examples/data"))
        for (const std::string& line : linesOf(file))
            told += line + '\n';
    EXPECT_EQ(told, test::readText(std::filesystem::path(KVOCAEIO_SOURCES) /
                                   "tests/report/findings_of_samples.txt"));
}

TEST(FindingKinds, SayWhatWhyAndHowLongTheyAre) {
    std::set<std::string_view> codes;
    for (const text::FindingKind& kind : allKinds()) {
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
