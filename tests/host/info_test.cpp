/// What `kvocaeio info` reports of good decks.
#include <gmock/gmock.h>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

using nlohmann::json;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

/// The finding of `report` with this code; one of nothing where it has none.
json findingOf(const json& report, std::string_view code) {
    for (const json& finding : report.at("findings"))
        if (finding.at("code") == code)
            return finding;
    return {{"count", 0}};
}

// One set name on two blocks, one element of unknown type, loads on two faces of the brick.
constexpr std::string_view kSmallDeck =
    "*NODE\n"
    "10, 0, 0, 0\n20, 1, 0, 0\n30, 1, 1, 0\n40, 0, 1, 0\n"
    "50, 0, 0, 2\n60, 1, 0, 2\n70, 1, 1, 2\n80, 0, 1, 2\n90, 0.5, 0.5, 3.5\n"
    "*ELEMENT, TYPE=C3D8, ELSET=BODY\n"
    "1, 10, 20, 30, 40, 50, 60, 70, 80\n"
    "*ELEMENT, TYPE=C3D5, ELSET=BODY\n"
    "2, 50, 60, 70, 80, 90\n"
    "*ELEMENT, TYPE=MASS\n"
    "3, 10\n"
    "*DLOAD\n"
    "1, P1, 1.0\n1, P3, 1.0\n2, P1, 1.0\n";

TEST(Info, WritesTheDecksSectionsAndThoseOfTheMesh) {
    const TempFolder folder;
    const std::string deck = folder.write("small.inp", kSmallDeck);
    const Outcome outcome = runHost({"info", deck});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors, "");
    std::vector<std::string> lines = ownLinesOf(outcome.output);
    ASSERT_GT(lines.size(), 6u);
    EXPECT_THAT(lines[6],
                testing::MatchesRegex("  time taken    import .* ms, normalisation .* ms"));
    lines.erase(lines.begin() + 6);
    EXPECT_EQ(lines,
              (std::vector<std::string>{
                  deck,  //
                  "  Abaqus input deck",
                  "  nodes         9",
                  "  bounding box  (0, 0, 0) to (1, 1, 3.5)",
                  "  elements      3 in 3 sections: 1 hexahedron, 1 pyramid, 1 of unknown type",
                  "  faces         2 from loads, 0 from surfaces",
                  "",
                  "  deck  set        elements           nodes each  in the mesh",
                  "     0  BODY       1 hexahedron                8  solid 0",
                  "     1  BODY       1 pyramid                   5  solid 0, last corner repeated",
                  "     2  (no name)  1 of unknown type           0  left out",
                  "",
                  "  mesh     set          rows  nodes each  content",
                  "  solid 0  BODY            2           8  1 hexahedron, 1 pyramid",
                  "  shell 0  Dload_Shell     2           4  faces of loads: 2 quadrilaterals",
                  "",
                  "  warning  left out: 1 element of unknown type",
                  "  note     without faces for loads and surfaces: 2 elements (pyramids,",
                  "           triangles, unknown types)",
                  "",
                  "1 warning"}));
}

TEST(Info, JsonHoldsTheSame) {
    const TempFolder folder;
    const std::string deck = folder.write("small.inp", kSmallDeck);
    json report = jsonReport(deck);
    EXPECT_GE(report.at("seconds").at("import").get<double>(), 0.0);
    EXPECT_GE(report.at("seconds").at("normalisation").get<double>(), 0.0);
    EXPECT_EQ(report.at("file"), deck);
    report.erase("seconds");
    report.erase("file");
    report.erase("import");
    EXPECT_EQ(report, json::parse(R"json({
        "format": "abaqus",
        "status": "warnings",
        "findings": [
            {"level": "warning", "code": "unknown-type", "count": 1,
             "text": "left out: 1 element of unknown type"},
            {"level": "note", "code": "without-faces", "count": 2,
             "text": "without faces for loads and surfaces: 2 elements (pyramids, triangles, unknown types)"
}],
        "mesh": {
            "nodes": 9,
            "boundingBox": {"min": [0, 0, 0], "max": [1, 1, 3.5]},
            "elements": 3,
            "elementsByKind": {"hexahedra": 1, "pyramids": 1, "unknown-type": 1}},
        "abaqus": {
    "sections": [
                {"set": "BODY", "kind": "hexahedra", "nodesPerElement": 8, "elements": 1,
                 "reduced": false, "split": false, "leftOut": 0,
                 "normalisedTo": [{"list": "solid", "section": 0, "elements": 1}]},
                {"set": "BODY", "kind": "pyramids", "nodesPerElement": 5, "elements": 1,
                 "reduced": false, "split": false, "leftOut": 0,
                 "normalisedTo": [{"list": "solid", "section": 0, "elements": 1}]},
                {"set": "", "kind": "unknown-type", "nodesPerElement": 0, "elements": 1,
                 "reduced": false, "split": false, "leftOut": 1, "leftOutBecause": "unknown-type",
                 "normalisedTo": []}],
            "shellSections": [],
            "normalised": {
        "solid" : [ {
            "set" : "BODY",
            "origin" : "elements",
            "nodesPerElement" : 8,
            "elements" : 2,
            "elementsByKind" : {"hexahedra" : 1, "pyramids" : 1},
            "merged" : true,
            "repeated" : 0,
            "blank" : 0
        } ],
                  "shell" : [ {
                      "set" : "Dload_Shell",
                      "origin" : "loads",
                      "nodesPerElement" : 4,
                      "elements" : 2,
                      "elementsByKind" : {"quadrilaterals" : 2},
                      "merged" : false,
                      "repeated" : 0,
                      "blank" : 0
                  } ],
                            "loadFaces" : 2,
                            "surfaceFaces" : 0
    }
}
})json"));
}

TEST(Info, ReportsTheHousing) {
    const json report = jsonReport(sampleDeck("housing.inp"));
    EXPECT_EQ(report.at("mesh").at("nodes"), 1253);
    EXPECT_EQ(report.at("mesh").at("elementsByKind"), json::parse(R"({"hexahedra": 562, "wedges": 4,
        "pyramids": 2, "tetrahedra": 44, "quadratic-tetrahedra": 24, "unknown-type": 4})"));
    EXPECT_EQ(report.at("mesh").at("boundingBox").at("max"), json::parse("[60, 40, 20]"));
    const json& solid = report.at("abaqus").at("normalised").at("solid");
    ASSERT_EQ(solid.size(), 4u);
    EXPECT_EQ(solid[0].at("set"), "BOSS");
    EXPECT_EQ(solid[0].at("elementsByKind"), json::parse(R"({"pyramids": 2, "tetrahedra": 44})"));
    EXPECT_EQ(solid[1].at("set"), "HOUSING");
    EXPECT_EQ(solid[1].at("elements"), 522);
    EXPECT_EQ(solid[1].at("merged"), true);
    EXPECT_EQ(solid[2].at("set"), "INSERT");
    EXPECT_EQ(solid[2].at("nodesPerElement"), 4);
    EXPECT_EQ(report.at("abaqus").at("sections").at(6).at("reduced"), true);
    EXPECT_EQ(solid[3].at("set"), "RIBS");
    EXPECT_EQ(solid[3].at("elementsByKind"), json::parse(R"({"hexahedra": 40, "wedges": 4})"));
    EXPECT_EQ(report.at("abaqus").at("normalised").at("loadFaces"), 4);
    EXPECT_EQ(report.at("abaqus").at("normalised").at("surfaceFaces"), 198);
    EXPECT_EQ(findingOf(report, "without-faces").at("count"), 6);
}

TEST(Info, ReportsTheCover) {
    const json report = jsonReport(sampleDeck("cover.inp"));
    EXPECT_EQ(report.at("mesh").at("nodes"), 371);
    EXPECT_EQ(report.at("mesh").at("elementsByKind"),
              json::parse(R"({"quadrilaterals": 320, "triangles": 20})"));
    EXPECT_EQ(report.at("abaqus").at("shellSections"), json::parse(R"([
        {"set": "COVER", "thickness": 2.5}, {"set": "RIM", "thickness": 1.8}])"));
    EXPECT_EQ(report.at("abaqus").at("normalised").at("solid"), json::array());
    const json& shell = report.at("abaqus").at("normalised").at("shell");
    ASSERT_EQ(shell.size(), 3u);
    EXPECT_EQ(shell[0].at("set"), "COVER");
    EXPECT_EQ(shell[0].at("elementsByKind"),
              json::parse(R"({"quadrilaterals": 276, "triangles": 20})"));
    EXPECT_EQ(shell[1].at("elements"), 44);
    EXPECT_EQ(shell[2].at("origin"), "loads");
}

TEST(Info, ReportsTheClipCutUpByGeneratedSets) {
    const json report = jsonReport(sampleDeck("clip.inp"));
    EXPECT_EQ(report.at("mesh").at("elements"), 168);
    EXPECT_EQ(report.at("abaqus").at("sections"), json::parse(R"([
        {"set": "CLIP", "kind": "quadratic-tetrahedra", "nodesPerElement": 10, "elements": 168,
         "reduced": true, "split": true, "leftOut": 24, "leftOutBecause": "in-no-set",
         "normalisedTo": [{"list": "solid", "section": 0, "elements": 120},
                          {"list": "solid", "section": 1, "elements": 24},
                          {"list": "solid", "section": 2, "elements": 10}]}])"));
    const json& marked = report.at("abaqus").at("normalised").at("solid").at(2);
    EXPECT_EQ(marked.at("set"), "MARKED");
    EXPECT_EQ(marked.at("elements"), 19);
    EXPECT_EQ(marked.at("repeated"), 10);
    EXPECT_EQ(marked.at("blank"), 9);
}

TEST(Info, ReportsTheHinge) {
    const json report = jsonReport(sampleDeck("hinge.inp"));
    EXPECT_EQ(report.at("mesh").at("nodes"), 367);
    const json& solid = report.at("abaqus").at("normalised").at("solid");
    ASSERT_EQ(solid.size(), 2u);
    EXPECT_EQ(solid[0].at("elementsByKind"), json::parse(R"({"wedges": 36})"));
    EXPECT_EQ(solid[1].at("elementsByKind"), json::parse(R"({"hexahedra": 36})"));
    const json& shell = report.at("abaqus").at("normalised").at("shell");
    ASSERT_EQ(shell.size(), 2u);
    EXPECT_EQ(shell[0].at("elementsByKind"), json::parse(R"({"triangles": 1})"));
    EXPECT_EQ(shell[1].at("set"), "Surface_Shell");
    EXPECT_EQ(shell[1].at("elements"), 36);
}

TEST(Info, TellsElementsOnTheSameNodesApartByTheirSet) {
    const TempFolder folder;
    const json report =
        jsonReport(folder.write("twins.inp",
                                "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n"
                                "*ELEMENT, TYPE=C3D4, ELSET=ZED\n1, 1, 2, 3, 4\n"
                                "*ELEMENT, TYPE=C3D4, ELSET=ALPHA\n2, 1, 2, 3, 4\n"
                                "*ELEMENT, TYPE=C3D4, ELSET=ALPHA\n3, 1, 2, 3, 4\n"));
    // The list is in the order of names: ALPHA is section 0.
    EXPECT_EQ(report.at("abaqus").at("sections").at(0).at("normalisedTo"),
              json::parse(R"([{"list": "solid", "section": 1, "elements": 1}])"));
    EXPECT_EQ(report.at("abaqus").at("sections").at(1).at("normalisedTo"),
              json::parse(R"([{"list": "solid", "section": 0, "elements": 1}])"));
}

TEST(Info, CountsNodesThatElementsNameButTheDeckLacks) {
    const TempFolder folder;
    const json report =
        jsonReport(folder.write("lost.inp",
                                "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n"
                                "*ELEMENT, TYPE=S4, ELSET=A\n1, 1, 2, 3, 77\n2, 1, 2, 3, -5\n"));
    EXPECT_EQ(findingOf(report, "undefined-node").at("count"), 2);
    EXPECT_EQ(report.at("abaqus").at("sections").at(0).at("leftOut"), 0);
}

TEST(Info, SaysThatElementsWithoutNodesAreLeftOut) {
    const TempFolder folder;
    const json report = jsonReport(
        folder.write("nodeless.inp", "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, 3\n2, 2, 3, 4\n"));
    EXPECT_EQ(report.at("mesh").at("boundingBox"), nullptr);
    EXPECT_EQ(report.at("abaqus").at("sections").at(0).at("leftOut"), 2);
    EXPECT_EQ(report.at("abaqus").at("sections").at(0).at("leftOutBecause"), "no-nodes");
}

TEST(Info, ShowsSectionsThatNoElementWentInto) {
    const TempFolder folder;
    const Outcome outcome =
        runHost({"info", folder.write("blank.inp",
                                      "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n"
                                      "*ELEMENT, TYPE=S3, ELSET=A\n"
                                      "*ELSET, ELSET=B, GENERATE\n1, 3\n")});
    EXPECT_THAT(outcome.output, HasSubstr("     0  A    0 triangles           3\n"));
    EXPECT_THAT(outcome.output,
                HasSubstr("  shell 0  B       3           3  3 rows without an element\n"));
}

TEST(Info, CountsNodesWhoseCoordinatesAreNoNumbers) {
    const TempFolder folder;
    const json report =
        jsonReport(folder.write("nan.inp", "*NODE\n1, 1, nan, 3\n2, 4, 5, 6\n3, inf, -inf, 4\n"));
    EXPECT_EQ(report.at("mesh").at("boundingBox"),
              json::parse(R"({"min": [1, 5, 3], "max": [4, 5, 6]})"));
    EXPECT_EQ(findingOf(report, "not-finite").at("count"), 2);
}

TEST(Info, TellsADeckByItsContent) {
    const TempFolder folder;
    const std::string deck =
        folder.write("part.txt", "some title\r\n** comment\r\n*Node , nset=all\r\n1, 2, 3, 4\r\n");
    EXPECT_EQ(jsonReport(deck).at("mesh").at("nodes"), 1);
}

TEST(Info, TellsADeckByItsExtension) {
    const TempFolder folder;
    const std::string deck =
        folder.write("LATE.INP", std::string(100'000, ' ') + "\n*NODE\n1, 2, 3, 4\n");
    EXPECT_EQ(jsonReport(deck).at("mesh").at("nodes"), 1);
}

TEST(Info, HidesTheProgressLines) {
    const Outcome outcome = runHost({"info", sampleDeck("hinge.inp")});
    EXPECT_THAT(outcome.output, Not(HasSubstr("Loop")));
    EXPECT_EQ(outcome.errors, "");
}

TEST(Info, ShowsTheProgressLinesOnStandardErrorWhenAsked) {
    const Outcome outcome = runHost({"info", "--json", "--verbose", sampleDeck("hinge.inp")});
    EXPECT_TRUE(json::accept(outcome.output));
    EXPECT_THAT(linesOf(outcome.errors), Contains("============= Loop 2 =============="));
    EXPECT_THAT(linesOf(outcome.errors), Contains("elem sec num = 2"));
}

TEST(Info, JsonIsAllThatStandsOnStandardOutput) {
    const Outcome outcome =
        runHost({"info", "--json", sampleDeck("housing.inp"), sampleDeck("cover.inp")});
    EXPECT_EQ(outcome.exitCode, 0);
    ASSERT_TRUE(json::accept(outcome.output));
    EXPECT_EQ(json::parse(outcome.output).at("files").size(), 2u);
    EXPECT_EQ(outcome.errors, "");
}

TEST(Info, JsonIsValidWhateverBytesANameHolds) {
    const TempFolder folder;
    const json report = jsonReport(
        folder.write("bytes.inp", "*ELEMENT, TYPE=S3, ELSET=\"A\\\xff\xfe\x01\n1, 1, 2, 3\n"));
    EXPECT_EQ(report.at("abaqus").at("sections").at(0).at("set"),
              "\"A\\\xef\xbf\xbd\xef\xbf\xbd\x01");
}

TEST(Info, ControlCharactersOfANameDoNotReachTheTerminal) {
    const TempFolder folder;
    const Outcome outcome = runHost(
        {"info", folder.write("escape.inp", "*ELEMENT, TYPE=S3, ELSET=A\x1b[2JB\n1, 1, 2, 3\n")});
    EXPECT_THAT(outcome.output, HasSubstr("A?[2JB"));
}

}  // namespace
}  // namespace kvocaeio::test
