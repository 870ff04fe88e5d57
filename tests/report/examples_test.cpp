/// Every code has an example that yields this finding and no other, and a counter-example that does
/// not.
#include "report/examples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "report/kinds.h"

namespace kvocaeio {
namespace {

using test::allExamples;
using test::allKinds;
using test::Example;

std::set<std::string> codesOf(const Example& example) {
    std::set<std::string> codes;
    for (const test::Told& told : test::importExample(example))
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
