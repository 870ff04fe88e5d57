/// What `kvocaeio info` reports of Nastran decks, Patran neutral files and chip packages.
#include <gmock/gmock.h>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

using nlohmann::json;
using testing::Contains;
using testing::HasSubstr;
using testing::IsSupersetOf;

/// The report without the seconds that it took.
json steadyReport(const std::string& file) {
    json report = jsonReport(file);
    report.erase("seconds");
    report.erase("file");
    report.erase("import");
    return report;
}

/// Lines of the report but for the first, the file, the one that tells the time, and the end of a
/// report without warnings.
std::vector<std::string> steadyLines(const std::vector<std::string>& arguments) {
    const Outcome outcome = runHost(arguments);
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors, "");
    std::vector<std::string> lines = ownLinesOf(outcome.output);
    const auto isOfTime = [](const std::string& line) {
        return line.starts_with("  time taken") || line.ends_with(" ms") || line == "  ms";
    };
    std::erase_if(lines, isOfTime);
    lines.erase(lines.begin());
    while (lines.back().empty() || lines.back() == "no warnings")
        lines.pop_back();
    return lines;
}

TEST(NastranInfo, ReportsTheBracket) {
    EXPECT_EQ(steadyReport(sampleDeck("bracket.bdf")), json::parse(R"({
        "format": "nastran", "status": "ok", "findings": [],
        "mesh": {
            "nodes": 168, "boundingBox": {"min": [0, 0, 0], "max": [40, 15, 35]},
            "elements": 277,
            "elementsByKind": {"tetrahedra": 216, "wedges": 24, "bars": 7, "hexahedra": 30}},
        "nastran": {
            "nodeRows": 271, "elementRows": 313,
            "properties": [{"property": 1, "material": 1, "value": 0},
                           {"property": 2, "material": 1, "value": 0},
                           {"property": 3, "material": 2, "value": 0},
                           {"property": 4, "material": 2, "value": 2},
                           {"property": 5, "material": 1, "value": 10}],
            "materials": 2}})"));
}

TEST(NastranInfo, WritesGapsAndPropertiesForAPerson) {
    const TempFolder folder;
    const std::string deck = folder.write("gaps.nas",
                                          "GRID           1              0.      0.      0.\n"
                                          "GRID           9              1.      2.      3.\n"
                                          "CROD           4       1       1       7\n"
                                          "PROD           1       2 3.14159\n");
    EXPECT_EQ(steadyLines({"info", deck}),
              (std::vector<std::string>{
                  "  Nastran bulk data",
                  "  nodes         2 in 9 rows (one for each OID up to the largest)",
                  "  bounding box  (0, 0, 0) to (1, 2, 3)",
                  "  elements      1 in 4 rows (one for each OID up to the largest)",
                  "  by kind       1 bar", "  properties    1", "  materials     0", "",
                  "  property  material  value", "         1         2      2", "",
                  "  warning  no such node: 7 times in elements", "", "1 warning"}));
}

TEST(NastranInfo, SaysWhyADeckIsRefused) {
    const TempFolder folder;
    const std::string nodes =
        folder.write("nodes.bdf", "GRID           1              0.      0.      0.\n");
    EXPECT_EQ(runHost({"info", nodes}).errors,
              "kvocaeio: " + nodes +
                  ": cannot be read: the deck has no element card with an OID above 0 that can be "
                  "read\n");
    const std::string free =
        folder.write("free.bdf",
                     "GRID   ,       1,       0,   0.000\nGRID   ,       2,       0,   1.000\n"
                     "CROD   ,       1,       1,       1,       2\n");
    EXPECT_EQ(
        runHost({"info", free}).errors,
        "kvocaeio: " + free +
            ": has free or large fields on 3 cards; only fixed fields of eight columns are read "
            "as they are meant\n");
}

TEST(NastranInfo, FailsForCardsInFreeFieldsWhichAreReadWrongly) {
    const TempFolder folder;
    const json report = jsonReport(folder.write(
        "mixed.bdf",
        "GRID           1              0.      0.      0.\nGRID,2,,1.,0.,0.\nPSOLID,1,1\n"
        "$ GRID,7\nGRID*,3\nCROD           4       1       1       1\n"));
    EXPECT_EQ(report.at("status"), "failed");
    EXPECT_EQ(report.at("mesh").at("nodes"), 3);
    EXPECT_EQ(report.at("findings")[0].at("code"), "free-fields");
    EXPECT_EQ(report.at("findings")[0].at("count"), 1);  // the GRID card; the others read as meant
}

TEST(PatranInfo, ShowsTypesAndKindsOfABracket) {
    EXPECT_EQ(
        steadyLines({"info", sampleDeck("bracket.pat")}),
        (std::vector<std::string>{
            "  Patran neutral file", "  nodes         168",
            "  bounding box  (0, 0, 0) to (40, 15, 35)", "  elements      313",
            "  by kind       7 bars, 24 triangles, 12 quadrilaterals, 216 tetrahedra,",
            "                24 wedges, 30 hexahedra",  //
            "  properties    5", "", "  type  elements                         their property has",
            "     0  216 tetrahedra, 24 wedges,       other values, or none",
            "        30 hexahedra",
            "    10  7 bars                           two values, the first is 2",
            "    13  24 triangles, 12 quadrilaterals  three or four values, the second",
            "                                         above 0"}));
}

TEST(PatranInfo, ShowsBothReadersWhereTheyDiffer) {
    const TempFolder folder;
    // The summary counts three nodes, of which the file holds one.
    const std::vector<std::string> lines = steadyLines(
        {"info", folder.write("short.pat",
                              "26       0       0       1       3       0       0       0\n\n"
                              " 1       1       0       2       0       0       0       0\n"
                              "    1.000000E+00    2.000000E+00    3.000000E+00\n"
                              "       0       0       0       0       0       0       0       0\n"
                              "99       0       0       1       0       0       0       0\n")});
    EXPECT_THAT(lines,
                IsSupersetOf({"  reader                nodes  elements  bounding box",
                              "  CPatranReader             3         0  (0, 0, 0) to (1, 2, 3)",
                              "  CKVO_PatranIO_Bridge      1         0  (1, 2, 3) to (1, 2, 3)"}));
}

TEST(PatranInfo, TypesAreShapesInAFileWithoutProperties) {
    const json report = jsonReport(sampleDeck("bracket_plain.pat"));
    EXPECT_EQ(report.at("patran").at("bridge").at("types"), json::parse(R"([
        {"type": 2, "elementsByKind": {"bars": 7}},
        {"type": 3, "elementsByKind": {"triangles": 24}},
        {"type": 4, "elementsByKind": {"quadrilaterals": 12}},
        {"type": 5, "elementsByKind": {"tetrahedra": 216}},
        {"type": 7, "elementsByKind": {"wedges": 24}},
        {"type": 8, "elementsByKind": {"hexahedra": 30}}])"));
    EXPECT_EQ(report.at("patran").at("properties"), 0);
}

TEST(PatranInfo, TellsOfAFileThatIsCutOffAndKeepsTheReadersMessagesFromTheReport) {
    const TempFolder folder;
    const std::string file =
        folder.write("open.neu",
                     "26       0       0       1       1       0       0       0       0\n\n"
                     " 1       1       0       2       0       0       0       0\n"
                     "    1.000000E+00    2.000000E+00    3.000000E+00\n"
                     "       0       0       0       0       0       0       0       0\n");
    const Outcome quiet = runHost({"info", "--json", file});
    EXPECT_EQ(quiet.exitCode, 0);
    EXPECT_EQ(quiet.errors, "");
    EXPECT_EQ(json::parse(quiet.output).at("files")[0].at("findings")[0].at("code"), "no-end");
    EXPECT_EQ(linesOf(runHost({"info", "--verbose", file}).errors),
              (std::vector<std::string>(2, "We have reached end-of-file")));
}

TEST(PackageInfo, ReportsTheStack) {
    EXPECT_EQ(steadyLines({"info", sampleDeck("stack.3di")}),
              (std::vector<std::string>{
                  "  3DI package",
                  "  bodies      167: 1 substrate, 3 dies, 1 spacer, 1 interposer, 1 package cap,",
                  "              160 solder balls",
                  "  wires       96",
                  "",
                  "  body         name            centre mm      size mm            colour",
                  "  substrate    SUBSTRATE       (0, 0, 0.15)   14 x 14 x 0.3      #006000",
                  "  die          LOGIC_DIE       (0, 0, 0.375)  7.2 x 7.2 x 0.15   #b4b4be",
                  "  spacer       SPACER_LOW      (0, 0, 0.49)   4.8 x 4.8 x 0.08   #b4b4be",
                  "  die          MEMORY_DIE      (0, 0, 0.59)   5.6 x 4.4 x 0.12   #b4b4be",
                  "  interposer   INTERPOSER_TOP  (0, 0, 0.68)   4 x 3.2 x 0.06     #b4b4be",
                  "  die          SENSOR_DIE      (0, 0, 0.76)   2.8 x 2.4 x 0.1    #b4b4be",
                  "  package cap  PACKAGECAP      (0, 0, 0.75)   13.2 x 13.2 x 0.9  #282828",
                  "",
                  "  balls  layer   diameter mm  colour   centres mm",
                  "    160  BOTTOM          0.5  #b4b4be  (-5.85, -5.85, -0.173493) to",
                  "                                       (5.85, 5.85, -0.173493)",
                  "",
                  "  profile  model       wires  diameter mm  points  length mm  colour",
                  "        1  AU20_LOW       48  0.02            336    85.1724  #e6be3c",
                  "        2  AU25_LOOP      48  0.025           480    261.513  #e6be3c",
                  "        3  CU18_SPARE      0  -                 0          0  -"}));
}

TEST(PackageInfo, JsonListsEveryBodyAndProfile) {
    const json report = jsonReport(sampleDeck("stack.3di"));
    ASSERT_EQ(report.at("package").at("bodies").size(), 167u);
    EXPECT_EQ(report.at("package").at("bodies")[2].at("kind"), "spacer");
    EXPECT_EQ(report.at("package").at("bodies")[166].at("diameter"), 0.5);
    EXPECT_EQ(report.at("package").at("wireProfiles")[0].at("diameters"),
              json::parse("[0.02, 0.02]"));
    EXPECT_EQ(report.at("package").at("wireProfiles")[2].at("diameters"), nullptr);
}

TEST(PackageInfo, ShowsWhatWasReadBeforeAFailure) {
    const TempFolder folder;
    const std::string file = folder.write("bare.3di",
                                          "TABLE OBJECT\n1 SYMBOL\nTABLE LAYER\n1 OUTLINE\nTABLE\n"
                                          "GEOM\nOBJECT 1\nLAYER 1\n2DPG 1\n0 0\n");
    const Outcome outcome = runHost({"info", file});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(linesOf(outcome.output), Contains("  bodies      0"));
    EXPECT_THAT(outcome.errors, HasSubstr("has no colour of the colour table"));
}

TEST(CadenceInfo, ReportsWhatAToolHasLeft) {
    EXPECT_EQ(steadyLines({"info", "--reports", sampleDeck("reports")}),
              (std::vector<std::string>{
                  "  Cadence design", "  bodies      6: 1 substrate, 5 stack members",
                  "  wires       0", "", "  body          name            centre mm        size mm",
                  "  substrate     SUBSTRATE       (0, 0, 0.14986)  14 x 14 x 0.29972",
                  "  stack member  LOGIC_DIE       (0, 0, 0.37472)  7.2 x 7.2 x 0.15",
                  "  stack member  SPACER_LOW      (0, 0, 0.48972)  4.8 x 4.8 x 0.08",
                  "  stack member  MEMORY_DIE      (0, 0, 0.58972)  5.6 x 4.4 x 0.12",
                  "  stack member  INTERPOSER_TOP  (0, 0, 0.67972)  4 x 3.2 x 0.06",
                  "  stack member  SENSOR_DIE      (0, 0, 0.75972)  2.8 x 2.4 x 0.1"}));
}

TEST(CadenceInfo, RunsTheToolOverADesign) {
    const TempFolder folder;
    folder.makeFolder("CmdFile1.run");
    for (const char* name : {"CmdFile1.txt", "CmdFile2.txt", "CmdFile3.txt"})
        std::filesystem::copy_file(sourceFile("examples/data/reports") + "/" + name,
                                   folder.path() / "CmdFile1.run" / name);
    const std::string design = folder.write("flip_stack.mcm", "a design");
    const Outcome outcome =
        runHost({"info", "--json", "--tool", nativePath(KVOCAEIO_EXTRACTION_TOOL), "--temp",
                 folder.path().string(), design});
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.exitCode, 0);
    const json report = json::parse(outcome.output).at("files").at(0);
    EXPECT_EQ(report.at("file"), design);
    EXPECT_EQ(report.at("package").at("bodies").size(), 6u);
}

TEST(CadenceInfo, SaysWhereReportsAreMissing) {
    const TempFolder folder;
    const std::string path = folder.path().string();
    const Outcome outcome = runHost({"info", "--reports", path});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, "kvocaeio: " + path +
                                  ": no reports of a design that can be used are in " + path +
                                  " (CmdFile1.txt, CmdFile2.txt, and CmdFile3.txt of a .sip "
                                  "design)\n");
    EXPECT_EQ(runHost({"info", "--reports", folder.file("nowhere")}).errors,
              "kvocaeio: " + folder.file("nowhere") + ": the folder " + folder.file("nowhere") +
                  " does not exist\n");
}

TEST(CadenceInfo, AsksForTheToolOfADesign) {
    const TempFolder folder;
    const std::string design = folder.write("board.BRD", "\x01\x02");
    EXPECT_EQ(runHost({"info", design}).errors,
              "kvocaeio: " + design +
                  ": is a design that needs an extraction tool: give --tool and --temp\n");
    EXPECT_EQ(runHost({"info", "--tool", "extract", design}).exitCode, 2);
    EXPECT_EQ(runHost({"info", "--temp", folder.path().string(), design}).exitCode, 2);
}

TEST(Formats, AreToldByTheirContent) {
    const TempFolder folder;
    const auto formatOf = [&](std::string_view text) {
        return jsonReport(folder.write("file.txt", text)).at("format");
    };
    EXPECT_EQ(formatOf("$ comment\nGRID,1,,0.,0.,0.\nCROD           1       1       1       1\n"
                       "GRID           1\n"),
              "nastran");
    EXPECT_EQ(formatOf("! comment\n25       0       0       1       0\ntitle\n"
                       "99       0       0       1       0\n"),
              "patran");
    EXPECT_EQ(formatOf("\r\n3di mm\r\n"), "3di");
    EXPECT_EQ(formatOf("table layer\n1 OUTLINE\n"), "3di");
}

}  // namespace
}  // namespace kvocaeio::test
