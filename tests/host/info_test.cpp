/// What `kvocaeio info` reports of good decks.
#include <gmock/gmock.h>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

using nlohmann::json;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

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

TEST(Info, WritesRawAndNormalisedTablesSideBySide) {
    const TempFolder folder;
    const std::string deck = folder.write("small.inp", kSmallDeck);
    const Outcome outcome = runHost({"info", deck});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors, "");
    std::vector<std::string> lines = linesOf(outcome.output);
    ASSERT_GT(lines.size(), 5u);
    EXPECT_THAT(lines[5], HasSubstr("time taken"));
    lines.erase(lines.begin() + 5);
    EXPECT_THAT(
        lines,
        ElementsAre(
            deck,  //
            "  Abaqus input deck", "  nodes         9", "  bounding box  (0, 0, 0) to (1, 1, 3.5)",
            "  elements      3 in 3 sections: 1 hexahedra, 1 pyramids, 1 of unknown type", "",
            "  deck  set        elements           nodes     mesh     set          nodes  elements "
            " "
            "how",
            "     0  BODY       1 hexahedra            8  |  solid 0  BODY             8    1 of 2 "
            " "
            "merged",
            "     1  BODY       1 pyramids             5  |  solid 0  BODY             8    1 of 2 "
            " "
            "merged, filled up to 8",
            "     2  (no name)  1 of unknown type      0  |  -                                   1 "
            " "
            "left out: unknown type",
            "                   loads                     |  shell 0  Dload_Shell      4         2 "
            " "
            "faces: 2 quadrilaterals",
            "", "  left out  1 elements of unknown type",
            "  faces     2 from loads, 0 from surfaces; the reader does not tell which of them "
            "gave "
            "none",
            "  faceless  2 elements, of which loads and surfaces give no face (pyramids, "
            "triangles, "
            "unknown types)",
            ""));
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
    EXPECT_EQ(report, json::parse(R"({
        "format": "Abaqus input deck",
        "nodes": 9,
        "boundingBox": {"min": [0, 0, 0], "max": [1, 1, 3.5]},
        "elements": 3,
        "elementsByKind": {"hexahedra": 1, "pyramids": 1, "of unknown type": 1},
        "shellSections": [],
        "sections": [
            {"elset": "BODY", "kind": "hexahedra", "nodesPerElement": 8, "elements": 1,
             "reduced": false, "split": false, "leftOut": 0,
             "normalisedTo": [{"list": "solid", "section": 0, "elements": 1}]},
            {"elset": "BODY", "kind": "pyramids", "nodesPerElement": 5, "elements": 1,
             "reduced": false, "split": false, "leftOut": 0,
             "normalisedTo": [{"list": "solid", "section": 0, "elements": 1}]},
            {"elset": "", "kind": "of unknown type", "nodesPerElement": 0, "elements": 1,
             "reduced": false, "split": false, "leftOut": 1, "leftOutBecause": "unknown type",
             "normalisedTo": []}],
        "normalised": {
            "solid": [
                {"elset": "BODY", "origin": "elements", "nodesPerElement": 8, "elements": 2,
                 "elementsByKind": {"hexahedra": 1, "pyramids": 1}, "merged": true,
                 "repeated": 0, "blank": 0}],
            "shell": [
                {"elset": "Dload_Shell", "origin": "loads", "nodesPerElement": 4, "elements": 2,
                 "elementsByKind": {"quadrilaterals": 2}, "merged": false,
                 "repeated": 0, "blank": 0}],
            "leftOut": {"unknownType": 1, "other": 0},
            "undefinedNodes": 0,
            "faces": {"loads": 2, "surfaces": 0, "elementsWithout": 2}}
    })"));
}

TEST(Info, ReportsTheHousing) {
    const json report = jsonReport(sampleDeck("housing.inp"));
    EXPECT_EQ(report.at("nodes"), 1253);
    EXPECT_EQ(report.at("elementsByKind"), json::parse(R"({"hexahedra": 562, "wedges": 4,
        "pyramids": 2, "tetrahedra": 44, "quadratic tetrahedra": 24, "of unknown type": 4})"));
    EXPECT_EQ(report.at("boundingBox").at("max"), json::parse("[60, 40, 20]"));
    const json& solid = report.at("normalised").at("solid");
    ASSERT_EQ(solid.size(), 4u);
    EXPECT_EQ(solid[0].at("elset"), "BOSS");
    EXPECT_EQ(solid[0].at("elementsByKind"), json::parse(R"({"pyramids": 2, "tetrahedra": 44})"));
    EXPECT_EQ(solid[1].at("elset"), "HOUSING");
    EXPECT_EQ(solid[1].at("elements"), 522);
    EXPECT_EQ(solid[1].at("merged"), true);
    EXPECT_EQ(solid[2].at("elset"), "INSERT");
    EXPECT_EQ(solid[2].at("nodesPerElement"), 4);
    EXPECT_EQ(report.at("sections").at(6).at("reduced"), true);
    EXPECT_EQ(solid[3].at("elset"), "RIBS");
    EXPECT_EQ(solid[3].at("elementsByKind"), json::parse(R"({"hexahedra": 40, "wedges": 4})"));
    EXPECT_EQ(report.at("normalised").at("faces"),
              json::parse(R"({"loads": 4, "surfaces": 198, "elementsWithout": 6})"));
}

TEST(Info, ReportsTheCover) {
    const json report = jsonReport(sampleDeck("cover.inp"));
    EXPECT_EQ(report.at("nodes"), 371);
    EXPECT_EQ(report.at("elementsByKind"),
              json::parse(R"({"quadrilaterals": 320, "triangles": 20})"));
    EXPECT_EQ(report.at("shellSections"), json::parse(R"([
        {"elset": "COVER", "thickness": 2.5}, {"elset": "RIM", "thickness": 1.8}])"));
    EXPECT_EQ(report.at("normalised").at("solid"), json::array());
    const json& shell = report.at("normalised").at("shell");
    ASSERT_EQ(shell.size(), 3u);
    EXPECT_EQ(shell[0].at("elset"), "COVER");
    EXPECT_EQ(shell[0].at("elementsByKind"),
              json::parse(R"({"quadrilaterals": 276, "triangles": 20})"));
    EXPECT_EQ(shell[1].at("elements"), 44);
    EXPECT_EQ(shell[2].at("origin"), "loads");
}

TEST(Info, ReportsTheClipCutUpByGeneratedSets) {
    const json report = jsonReport(sampleDeck("clip.inp"));
    EXPECT_EQ(report.at("elements"), 168);
    EXPECT_EQ(report.at("sections"), json::parse(R"([
        {"elset": "CLIP", "kind": "quadratic tetrahedra", "nodesPerElement": 10, "elements": 168,
         "reduced": true, "split": true, "leftOut": 24, "leftOutBecause": "in no generated set",
         "normalisedTo": [{"list": "solid", "section": 0, "elements": 120},
                          {"list": "solid", "section": 1, "elements": 24},
                          {"list": "solid", "section": 2, "elements": 10}]}])"));
    const json& marked = report.at("normalised").at("solid").at(2);
    EXPECT_EQ(marked.at("elset"), "MARKED");
    EXPECT_EQ(marked.at("elements"), 19);
    EXPECT_EQ(marked.at("repeated"), 10);
    EXPECT_EQ(marked.at("blank"), 9);
}

TEST(Info, ReportsTheHinge) {
    const json report = jsonReport(sampleDeck("hinge.inp"));
    EXPECT_EQ(report.at("nodes"), 367);
    const json& solid = report.at("normalised").at("solid");
    ASSERT_EQ(solid.size(), 2u);
    EXPECT_EQ(solid[0].at("elementsByKind"), json::parse(R"({"wedges": 36})"));
    EXPECT_EQ(solid[1].at("elementsByKind"), json::parse(R"({"hexahedra": 36})"));
    const json& shell = report.at("normalised").at("shell");
    ASSERT_EQ(shell.size(), 2u);
    EXPECT_EQ(shell[0].at("elementsByKind"), json::parse(R"({"triangles": 1})"));
    EXPECT_EQ(shell[1].at("elset"), "Surface_Shell");
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
    EXPECT_EQ(report.at("sections").at(0).at("normalisedTo"),
              json::parse(R"([{"list": "solid", "section": 1, "elements": 1}])"));
    EXPECT_EQ(report.at("sections").at(1).at("normalisedTo"),
              json::parse(R"([{"list": "solid", "section": 0, "elements": 1}])"));
}

TEST(Info, CountsNodesThatElementsNameButTheDeckLacks) {
    const TempFolder folder;
    const json report =
        jsonReport(folder.write("lost.inp",
                                "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n"
                                "*ELEMENT, TYPE=S4, ELSET=A\n1, 1, 2, 3, 77\n2, 1, 2, 3, -5\n"));
    EXPECT_EQ(report.at("normalised").at("undefinedNodes"), 2);
    EXPECT_EQ(report.at("sections").at(0).at("leftOut"), 0);
}

TEST(Info, SaysThatElementsWithoutNodesAreLeftOut) {
    const TempFolder folder;
    const json report = jsonReport(
        folder.write("nodeless.inp", "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, 3\n2, 2, 3, 4\n"));
    EXPECT_EQ(report.at("boundingBox"), nullptr);
    EXPECT_EQ(report.at("sections").at(0).at("leftOut"), 2);
    EXPECT_EQ(report.at("sections").at(0).at("leftOutBecause"), "the deck has no nodes");
}

TEST(Info, ShowsSectionsThatNoElementWentInto) {
    const TempFolder folder;
    const Outcome outcome =
        runHost({"info", folder.write("blank.inp",
                                      "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n"
                                      "*ELEMENT, TYPE=S3, ELSET=A\n"
                                      "*ELSET, ELSET=B, GENERATE\n1, 3\n")});
    EXPECT_THAT(
        outcome.output,
        HasSubstr("     0  A    0 triangles      3  |\n"
                  "                                 |  shell 0  B        3         3  blank "
                  "rows\n"));
}

TEST(Info, TakesNoNumberFromANodeThatIsNone) {
    const TempFolder folder;
    const json report = jsonReport(folder.write("nan.inp", "*NODE\n1, 1, nan, 3\n2, 4, 5, 6\n"));
    EXPECT_EQ(report.at("boundingBox"), json::parse(R"({"min": [1, 5, 3], "max": [4, 5, 6]})"));
}

TEST(Info, TellsADeckByItsContent) {
    const TempFolder folder;
    const std::string deck =
        folder.write("part.txt", "some title\r\n** comment\r\n*Node , nset=all\r\n1, 2, 3, 4\r\n");
    EXPECT_EQ(jsonReport(deck).at("nodes"), 1);
}

TEST(Info, TellsADeckByItsExtension) {
    const TempFolder folder;
    const std::string deck =
        folder.write("LATE.INP", std::string(100'000, ' ') + "\n*NODE\n1, 2, 3, 4\n");
    EXPECT_EQ(jsonReport(deck).at("nodes"), 1);
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
    EXPECT_EQ(report.at("sections").at(0).at("elset"), "\"A\\\xef\xbf\xbd\xef\xbf\xbd\x01");
}

TEST(Info, ControlCharactersOfANameDoNotReachTheTerminal) {
    const TempFolder folder;
    const Outcome outcome = runHost(
        {"info", folder.write("escape.inp", "*ELEMENT, TYPE=S3, ELSET=A\x1b[2JB\n1, 1, 2, 3\n")});
    EXPECT_THAT(outcome.output, HasSubstr("A?[2JB"));
}

}  // namespace
}  // namespace kvocaeio::test
