/// The layout of what `kvocaeio convert --json` writes.
#include <gmock/gmock.h>

#include "host/program.h"
#include "host/schema.h"

namespace kvocaeio::test {
namespace {

using nlohmann::json;
using testing::IsEmpty;

/// The report of a conversion, which must fit the schema; `exitCode` is what it has to end with.
json reportOf(const std::vector<std::string>& arguments, int exitCode) {
    static const json schema = json::parse(readText(sourceFile("docs/convert.schema.json")));
    std::vector<std::string> words = {"convert", "--json"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const Outcome outcome = runHost(words);
    EXPECT_EQ(outcome.exitCode, exitCode);
    EXPECT_EQ(linesOf(outcome.errors).size(), static_cast<std::size_t>(exitCode));
    json report = json::parse(outcome.output);
    EXPECT_THAT(faultsOf(report, schema), IsEmpty());
    return report;
}

/// Level, code and count of each finding.
std::vector<std::string> findingsOf(const json& report) {
    std::vector<std::string> words;
    for (const json& finding : report.at("findings"))
        words.push_back(finding.at("level").get<std::string>() + " " +
                        finding.at("code").get<std::string>() + " " +
                        std::to_string(finding.at("count").get<int>()));
    return words;
}

using Words = std::vector<std::string>;

TEST(ConvertJson, OfAConversion) {
    const TempFolder folder;
    const std::string out = folder.file("out.nas");
    const json report = reportOf({"--as-is", sampleDeck("clip.inp"), out}, 0);
    EXPECT_EQ(report.at("source"), sampleDeck("clip.inp"));
    EXPECT_EQ(report.at("target"), out);
    EXPECT_EQ(report.at("status"), "warnings");
    EXPECT_EQ(report.at("written"),
              json::parse(R"({"nodes": 87, "elements": 168, "sections": 1})"));
    EXPECT_EQ(findingsOf(report), (Words{"warning generated-sets 3", "warning mid-side-nodes 168",
                                         "warning unused-nodes 338", "note material-missing 1"}));
    EXPECT_EQ(report.at("findings")[1].at("text"),
              "168 quadratic elements without their mid-side nodes");
}

TEST(ConvertJson, OfATargetThatIsNotCompressed) {
    const TempFolder folder;
    const json report = reportOf({"--compress", sampleDeck("clip.inp"), folder.file("out.inp")}, 1);
    EXPECT_EQ(findingsOf(report), (Words{"error not-compressed 1"}));
}

TEST(ConvertJson, OfAllSamplesInBothFormats) {
    const TempFolder folder;
    for (const char* sample :
         {"hinge.inp", "clip.inp", "housing.inp", "bracket.pat", "bracket_plain.pat"})
        for (const char* target : {"out.nas", "out.pat"})
            reportOf({"--force", sampleDeck(sample), folder.file(target)}, 0);
    EXPECT_EQ(
        findingsOf(reportOf(
            {"--as-is", "--force", "--normalised", sampleDeck("clip.inp"), folder.file("n.pat")},
            0)),
        (Words{"warning blank-row 9", "warning in-no-set 24", "warning mid-side-nodes 144",
               "warning unused-nodes 344", "warning sections 3", "note elements-renumbered 154",
               "note repeated-element 10", "note nodes-renumbered 81"}));
}

TEST(ConvertJson, OfAllSamplesAsVtkFiles) {
    const TempFolder folder;
    for (const char* sample :
         {"hinge.inp", "clip.inp", "cover.inp", "housing.inp", "bracket.pat", "bracket.bdf"})
        reportOf({sampleDeck(sample), folder.file("out.vtu")}, 0);
    reportOf({"--as-is", "--force", "--normalised", sampleDeck("clip.inp"), folder.file("n.vtu")},
             0);
    const json report = reportOf({sampleDeck("stack.3di"), folder.file("out.vtp")}, 0);
    EXPECT_EQ(report.at("written"), json::parse(R"({"bodies": 167, "wires": 96})"));
}

TEST(ConvertJson, OfAllSamplesInFormatsOfTheHost) {
    const TempFolder folder;
    for (const char* sample : {"hinge.inp", "clip.inp", "cover.inp", "housing.inp", "bracket.pat",
                               "bracket_plain.pat", "bracket.bdf"}) {
        for (const char* target : {"out.inp", "out.glb"})
            reportOf({"--force", sampleDeck(sample), folder.file(target)}, 0);
        reportOf({"--force", "--nastran=wide", sampleDeck(sample), folder.file("out.nas")}, 0);
    }
    reportOf({sampleDeck("stack.3di"), folder.file("out.glb")}, 0);
}

TEST(ConvertJson, OfAConversionThatLosesNothing) {
    const TempFolder folder;
    const std::string deck = folder.write("in.inp",
                                          "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n"
                                          "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n");
    EXPECT_EQ(reportOf({deck, folder.file("out.nas")}, 0).at("status"), "ok");
}

TEST(ConvertJson, OfFailures) {
    const TempFolder folder;
    const std::string out = folder.file("out.nas");
    const auto failure = [&](const Words& arguments) {
        const json report = reportOf(arguments, 1);
        EXPECT_EQ(report.at("status"), "failed");
        EXPECT_EQ(report.at("written"), nullptr);
        return findingsOf(report);
    };
    EXPECT_EQ(failure({folder.file("none.inp"), out}), Words{"error cannot-be-read 1"});
    EXPECT_EQ(failure({sampleDeck("hinge.inp"), folder.file("out.step")}),
              Words{"error unknown-target 1"});
    EXPECT_EQ(failure({sampleDeck("hinge.inp"), folder.file("none/out.nas")}),
              Words{"error cannot-be-written 1"});
    EXPECT_EQ(failure({sampleDeck("stack.3di"), out}), Words{"error not-converted 1"});
    EXPECT_EQ(failure({sampleDeck("cover.inp"), out}), Words{"error no-solids 1"});
    const std::string deck =
        folder.write("in.inp",
                     "*NODE\n1, 0, 0, 0\n2, 1e-5, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n"
                     "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n");
    EXPECT_EQ(failure({deck, out}), Words{"error nodes-meet 1"});
}

TEST(ConvertJson, OfAStrictConversion) {
    const TempFolder folder;
    const json report =
        reportOf({"--strict", sampleDeck("bracket_plain.pat"), folder.file("out.nas")}, 1);
    EXPECT_EQ(report.at("status"), "failed");
    EXPECT_EQ(report.at("written").at("elements"), 270);
    EXPECT_EQ(findingsOf(report).front(), "error left-out 1");
}

}  // namespace
}  // namespace kvocaeio::test
