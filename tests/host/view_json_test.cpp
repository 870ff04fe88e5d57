/// The layout of what `kvocaeio view --json` writes.
#include <gmock/gmock.h>

#include "host/program.h"
#include "host/schema.h"

namespace kvocaeio::test {
namespace {

/// What is wrong with the report, by the schema.
std::vector<std::string> faultsOfView(std::vector<std::string> words) {
    const auto schema = nlohmann::json::parse(readText(sourceFile("docs/view.schema.json")));
    words.insert(words.begin(), {"view", "--json"});
    return faultsOf(nlohmann::json::parse(runHost(words).output), schema);
}

TEST(ViewJson, OfAllSamples) {
    const TempFolder folder;
    for (const char* sample :
         {"hinge.inp", "clip.inp", "cover.inp", "bracket.bdf", "bracket.pat", "stack.3di"})
        EXPECT_THAT(faultsOfView({sampleDeck(sample), "-o", folder.file("out.html")}),
                    testing::IsEmpty())
            << sample;
}

TEST(ViewJson, OfAFailure) {
    const TempFolder folder;
    EXPECT_THAT(faultsOfView({folder.file("no.inp"), "-o", folder.file("out.html")}),
                testing::IsEmpty());
}

}  // namespace
}  // namespace kvocaeio::test
