/// The layout of what `kvocaeio info --json` and `--json-lines` write.
#include <gmock/gmock.h>

#include "host/program.h"
#include "host/schema.h"

namespace kvocaeio::test {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::IsEmpty;

json schema() {
    return json::parse(readText(sourceFile("docs/info.schema.json")));
}

/// The part of the schema that a document or a line has to fit.
json schemaOf(const std::string& part) {
    json root = schema();
    root.erase("anyOf");
    root["$ref"] = "#/$defs/" + part;
    return root;
}

TEST(InfoJson, TheSchemaRefusesWhatItDoesNotDescribe) {
    const json document = json::parse(
        R"({"version": 2, "library": "0.1", "files": [{"file": 7, "format": "step"}], "more": 1})");
    EXPECT_THAT(faultsOf(document, schemaOf("document")),
                testing::UnorderedElementsAre(
                    ": required, \"passedOver\"", ": additionalProperties, more", "/version: const",
                    "/library: pattern", "/files/0: required, \"status\"",
                    "/files/0: required, \"findings\"", "/files/0/file: type, 7",
                    "/files/0/format: enum, \"step\""));
    EXPECT_THAT(faultsOf(document, schema()), ElementsAre(": anyOf"));
}

TEST(InfoJson, ReportsOnAllSamplesFitTheSchema) {
    const Outcome outcome = runHost(
        {"info", "--json", "--reports", sampleDeck("reports"), sourceFile("examples/data")});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors, "");
    const json document = json::parse(outcome.output);
    EXPECT_THAT(faultsOf(document, schemaOf("document")), IsEmpty());
    std::vector<std::string> formats;
    for (const json& file : document.at("files"))
        formats.push_back(file.at("format"));
    EXPECT_THAT(formats, ElementsAre("nastran", "patran", "patran", "abaqus", "abaqus", "abaqus",
                                     "abaqus", "3di", "cadence"));
}

TEST(InfoJson, ReportsOnBadFilesFitTheSchema) {
    const TempFolder folder;
    folder.write("page.pat", "<html></html>\n");
    folder.write("short.pat",
                 "26       0       0       1       3       0       0       0\n\n"
                 " 1       1       0       2       0       0       0       0\n"
                 "             inf             nan    3.000000E+00\n"
                 "       0       0       0       0       0       0       0       0\n");
    folder.write("free.bdf", "GRID   ,       1,       0,   0.000\n");
    folder.write("lost.bdf",
                 "GRID           1              0.     nan      0.\n"
                 "CTETRA         4       1       1       2       3       4\n");
    folder.write("bare.3di", "TABLE OBJECT\n1 SYMBOL\nTABLE LAYER\n1 OUTLINE\nTABLE\n");
    folder.write("blank.inp",
                 "*NODE\n1, 0, nan, 0\n1, 1, 0, 0\n3, 0, 1, 0\n"
                 "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 3, 9\n1, 3, 1, 9\n"
                 "*ELEMENT, TYPE=MASS\n3, 10\n");
    folder.write("odd.inp",
                 "*NODE\n1, 0, 0, 0\n*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 1, 1\n"
                 "*ELSET, ELSET=B, GENERATE\n5, 3, 1\n");
    const Outcome outcome = runHost({"info", "--json", folder.path().string()});
    EXPECT_EQ(outcome.exitCode, 1);
    const json document = json::parse(outcome.output);
    EXPECT_THAT(faultsOf(document, schemaOf("document")), IsEmpty());
    std::vector<std::string> found;
    for (const json& file : document.at("files")) {
        std::string line =
            std::filesystem::path(file.at("file").get<std::string>()).filename().string();
        line += " " + file.at("status").get<std::string>();
        for (const json& finding : file.at("findings"))
            line += " " + finding.at("code").get<std::string>();
        found.push_back(line);
    }
    EXPECT_THAT(
        found,
        ElementsAre("bare.3di failed nothing-read",
                    "blank.inp warnings unknown-type undefined-node "
                    "node-defined-twice element-defined-twice not-finite "
                    "without-faces",
                    "free.bdf failed free-fields", "lost.bdf warnings undefined-node not-finite",
                    "odd.inp failed without-faces not-normalised", "page.pat failed other-document",
                    "short.pat warnings not-finite no-end"));
}

TEST(InfoJson, LinesHoldAFileEach) {
    const TempFolder folder;
    const Outcome outcome = runHost({"info", "--json-lines", sampleDeck("hinge.inp"),
                                     folder.file("gone"), sampleDeck("stack.3di")});
    EXPECT_EQ(outcome.exitCode, 1);
    const std::vector<std::string> lines = linesOf(outcome.output);
    ASSERT_EQ(lines.size(), 3u);
    for (const std::string& line : lines) {
        const json report = json::parse(line);
        EXPECT_THAT(faultsOf(report, schemaOf("file")), IsEmpty());
        EXPECT_EQ(report.at("version"), 1);
        EXPECT_EQ(report.at("library"), "0.1.0");
    }
    EXPECT_EQ(json::parse(lines[0]).at("mesh").at("elements"), 72);
    EXPECT_EQ(json::parse(lines[1]).at("status"), "failed");
    EXPECT_EQ(json::parse(lines[1]).at("format"), nullptr);
    EXPECT_EQ(json::parse(lines[2]).at("package").at("wires"), 96);
}

TEST(InfoJson, NamesTheFormatOfAFileThatFails) {
    const TempFolder folder;
    const json report = jsonReport(folder.write("steps.inp", "*HEADING\nnothing\n"));
    EXPECT_EQ(report.at("format"), "abaqus");
    EXPECT_EQ(report.at("findings")[0].at("code"), "nothing-read");
}

}  // namespace
}  // namespace kvocaeio::test
