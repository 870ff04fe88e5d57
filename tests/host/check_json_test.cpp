/// The layouts of what `kvocaeio check` writes for programs.
#include <gmock/gmock.h>
#include <set>

#include "host/program.h"
#include "host/schema.h"

namespace kvocaeio::test {
namespace {

using nlohmann::json;
using testing::IsEmpty;

// A number that is none, an unknown keyword, and a surface after which nothing is read.
constexpr std::string_view kFaultyDeck =
    "*NODE\n1, 0, x, 0\n*UNKNOWN \xff\n*SURFACE, TYPE=NODE\nA,\n";

json checkSchemaOf(const std::string& part) {
    json root = json::parse(readText(sourceFile("docs/check.schema.json")));
    root.erase("anyOf");
    root["$ref"] = "#/$defs/" + part;
    return root;
}

/// The first finding of `findings` in this line.
json findingIn(int line, const json& findings) {
    for (const json& finding : findings)
        if (finding.at("line") == line)
            return finding;
    return {};
}

TEST(CheckJson, FitsTheSchema) {
    const TempFolder folder;
    const std::string deck = folder.write("bad.inp", kFaultyDeck);
    const Outcome outcome =
        runHost({"check", "--json", deck, folder.file("gone"), sourceFile("examples/data")});
    EXPECT_EQ(outcome.exitCode, 3);
    const json document = json::parse(outcome.output);
    EXPECT_THAT(faultsOf(document, checkSchemaOf("document")), IsEmpty());
    EXPECT_EQ(document.at("failed"), 1);
    const json file = document.at("files").at(0);
    EXPECT_EQ(file.at("file"), deck);
    EXPECT_EQ(file.at("read").at("nodes"), 1);
    const json finding = findingIn(2, file.at("findings"));
    EXPECT_EQ(finding.at("line"), 2);
    EXPECT_EQ(finding.at("column"), 7);
    EXPECT_EQ(finding.at("places").at(0).at("line"), 2);
    const json gone = document.at("files").at(1);
    EXPECT_EQ(gone.at("failed"), true);
    EXPECT_EQ(gone.at("format"), nullptr);
    EXPECT_EQ(gone.at("findings").at(0).at("code"), "file.cannot-open");
}

TEST(CheckJson, HidesFindingsButCountsThem) {
    const TempFolder folder;
    // Two blocks of one set become one section.
    const json document =
        json::parse(runHost({"check", "--json", "--min-severity", "error",
                             folder.write("two.inp",
                                          "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n4, 1, 1, 0\n"
                                          "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, 3\n"
                                          "*ELEMENT, TYPE=S3, ELSET=A\n2, 2, 4, 3\n")})
                        .output);
    EXPECT_EQ(document.at("files").at(0).at("findings"), json::array());
    EXPECT_EQ(document.at("files").at(0).at("warnings"), 1);
    EXPECT_EQ(document.at("warnings"), 1);
}

TEST(CheckJson, OfNoFileIsStillADocument) {
    const TempFolder folder;
    const json document = json::parse(runHost({"check", "--json", folder.path().string()}).output);
    EXPECT_THAT(faultsOf(document, checkSchemaOf("document")), IsEmpty());
    EXPECT_EQ(document.at("files").at(0).at("findings").at(0).at("code"), "file.nothing-read");
}

TEST(CheckJson, LinesHoldAFindingEach) {
    const TempFolder folder;
    const Outcome outcome = runHost(
        {"check", "--json-lines", folder.write("bad.inp", kFaultyDeck), folder.file("gone")});
    EXPECT_EQ(outcome.exitCode, 3);
    json findings = json::array();
    for (const std::string& line : linesOf(outcome.output)) {
        findings.push_back(json::parse(line));
        EXPECT_THAT(faultsOf(findings.back(), checkSchemaOf("line")), IsEmpty());
    }
    EXPECT_EQ(findingIn(2, findings).at("column"), 7);
    EXPECT_EQ(findingIn(4, findings).at("severity"), "error");
    EXPECT_EQ(findings.back(), json({{"file", folder.file("gone")},
                                     {"line", nullptr},
                                     {"column", nullptr},
                                     {"severity", "error"},
                                     {"code", "file.cannot-open"},
                                     {"count", 1},
                                     {"text", "cannot be read: No such file or directory"}}));
}

/// The rules of SARIF 2.1.0 for the part of it that the program writes.
json sarifSchema() {
    return json::parse(readText(sourceFile("tests/host/sarif.schema.json")));
}

TEST(CheckSarif, FitsTheFormat) {
    const TempFolder folder;
    const std::string deck = folder.write("a part.inp", kFaultyDeck);
    const Outcome outcome =
        runHost({"check", "--sarif", deck, folder.file("gone"), sourceFile("examples/data")});
    EXPECT_EQ(outcome.exitCode, 3);
    const json document = json::parse(outcome.output);
    EXPECT_THAT(faultsOf(document, sarifSchema()), IsEmpty());
    const json run = document.at("runs").at(0);
    const json rules = run.at("tool").at("driver").at("rules");
    std::vector<std::string> ids;
    for (const json& rule : rules)
        ids.push_back(rule.at("id"));
    EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), ids.size());
    bool isTorn = false;
    for (const json& result : run.at("results")) {
        const json rule = rules.at(result.at("ruleIndex").get<std::size_t>());
        EXPECT_EQ(rule.at("id"), result.at("ruleId"));
        EXPECT_EQ(rule.at("defaultConfiguration").at("level"), result.at("level"));
        const json physical = result.at("locations").at(0).at("physicalLocation");
        const std::string uri = physical.at("artifactLocation").at("uri");
        if (!uri.ends_with("/a%20part.inp") ||
            physical.value("/region/startLine"_json_pointer, 0) != 2)
            continue;
        isTorn = true;
        EXPECT_TRUE(uri.starts_with("file:///"));
        EXPECT_EQ(physical.at("region"), json::parse(R"({"startLine": 2, "startColumn": 7})"));
    }
    EXPECT_TRUE(isTorn);
    EXPECT_EQ(run.at("invocations").at(0).at("executionSuccessful"), false);
}

TEST(CheckSarif, OfACleanFileHasNoResults) {
    const TempFolder folder;
    const json document =
        json::parse(runHost({"check", "--sarif",
                             folder.write("good.inp",
                                          "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n"
                                          "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, 3\n"),
                             "--min-severity", "warning"})
                        .output);
    EXPECT_THAT(faultsOf(document, sarifSchema()), IsEmpty());
    EXPECT_EQ(document.at("runs").at(0).at("results"), json::array());
}

}  // namespace
}  // namespace kvocaeio::test
