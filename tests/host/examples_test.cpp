/// The example programs: each run on a sample file, its whole output compared.
#include <algorithm>
#include <gtest/gtest.h>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

Outcome runExample(const std::string& name, const std::vector<std::string>& arguments) {
    return runProgram(KVOCAEIO_EXAMPLES + name + KVOCAEIO_PROGRAM_SUFFIX, arguments);
}

void expectOutput(const Outcome& outcome, const std::string& output) {
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.output, output);
}

TEST(Examples, AbaqusPrintsItsLinesAfterTheProgressLines) {
    expectOutput(runExample("abaqus", {sampleDeck("clip.inp")}),
                 "debug folder state = -1\n"
                 "============= Loop 1 ==============\n"
                 "Reading Node Section...\n"
                 "Reading Element Section...\n"
                 "  element type = C3D10M\n"
                 "  geometry type = 2\n"
                 "  node num per element = 10\n"
                 "  elset name = CLIP\n"
                 "Reading Elset Section...\n"
                 "Reading Elset Section...\n"
                 "Reading Elset Section...\n"
                 "Reading Elset Section...\n"
                 "------- Summary ------\n"
                 "Node Section num = 1\n"
                 "  Node Block [0] = 425\n"
                 "Elem Section num = 1\n"
                 "  Elem Block [0] = 168\n"
                 "Shell Section num = 0\n"
                 "Surface Section num = 0\n"
                 "Dload Section num = 0\n"
                 "Elset Section num = 4\n"
                 "============= Loop 2 ==============\n"
                 "Reading Node Section...\n"
                 "Reading Element Section...\n"
                 "  element type = C3D10M\n"
                 "  geometry type = 2\n"
                 "  node num per element = 10\n"
                 "  elset name = CLIP\n"
                 "Reading Elset Section...\n"
                 "Reading Elset Section...\n"
                 "Reading Elset Section...\n"
                 "Reading Elset Section...\n"
                 "elem sec num = 1\n"
                 "sec 0 , geom type = 2\n"
                 "element node num = 10\n"
                 "generate found\n"
                 "  start ID = 1 , End ID = 120\n"
                 "generate found\n"
                 "  start ID = 145 , End ID = 168\n"
                 "generate found\n"
                 "  start ID = 1 , End ID = 19\n"
                 "ARM: 120 elements, 4 nodes each\n"
                 "HOOK: 24 elements, 4 nodes each\n"
                 "MARKED: 19 elements, 4 nodes each\n");
}

TEST(Examples, AbaqusFailsWithoutADeck) {
    EXPECT_EQ(runExample("abaqus", {"nowhere.inp"}).exitCode, 1);
}

TEST(Examples, NastranReaderPrintsTheSections) {
    expectOutput(runExample("nastran_reader", {sampleDeck("bracket.bdf")}),
                 "property 1: material 1, value 0\n"
                 "property 2: material 1, value 0\n"
                 "property 3: material 2, value 0\n"
                 "property 4: material 2, value 2\n"
                 "property 5: material 1, value 10\n"
                 "277 elements\n");
}

TEST(Examples, NastranWriterWritesOneTetrahedron) {
    const TempFolder folder;
    expectOutput(runExample("nastran_writer", {folder.file("tet.nas")}), "");
    const std::string deck = readText(folder.file("tet.nas"));
    EXPECT_EQ(deck.substr(std::min(deck.find("GRID"), deck.size())),
              "GRID   ,       1,       0,   0.000,   0.000,   0.000,       0\n"
              "GRID   ,       2,       0,   1.000,   0.000,   0.000,       0\n"
              "GRID   ,       3,       0,   0.000,   1.000,   0.000,       0\n"
              "GRID   ,       4,       0,   0.000,   0.000,   1.000,       0\n"
              "PSOLID ,      1,      1,1\n"
              "CTETRA ,      1,      1,      1,      2,      3,      4\n"
              "$ -----------------------------------------------------------\n"
              "$ END OF DATA\n"
              "$ -----------------------------------------------------------\n"
              "ENDDATA\n");
}

TEST(Examples, PatranBridgePrintsTheBars) {
    expectOutput(runExample("patran_bridge", {sampleDeck("bracket.pat")}),
                 "bar 0 4, value 10\n"
                 "bar 4 8, value 10\n"
                 "bar 8 12, value 10\n"
                 "bar 12 16, value 10\n"
                 "bar 16 20, value 10\n"
                 "bar 20 24, value 10\n"
                 "bar 24 28, value 10\n");
}

TEST(Examples, PatranReaderCountsShapes) {
    expectOutput(runExample("patran_reader", {sampleDeck("bracket.pat")}),
                 "168 nodes, 216 tetrahedra, 30 hexahedra\n");
}

TEST(Examples, PatranWriterWritesOneTetrahedron) {
    const TempFolder folder;
    expectOutput(runExample("patran_writer", {folder.file("tet.pat")}), "");
    EXPECT_EQ(readText(folder.file("tet.pat")),
              "25       0       0       1       0       0       0       0       0\n"
              "**                 Created By : Vorlan9Q-Mesh R13\n"
              "26       0       0       1       4       1       0       1       1\n"
              "\n"
              " 1       1       0       2       4       1       0       181\n"
              "    0.000000E+00    0.000000E+00    0.000000E+00\n"
              "       0       0       0       0       0       0       0       0       0\n"
              " 1       2       0       2       0       0       0       080\n"
              "    1.000000E+00    0.000000E+00    0.000000E+00\n"
              "       0       0       0       0       0       0       0       0       0\n"
              " 1       3       0       2       0       0       0       080\n"
              "    0.000000E+00    1.000000E+00    0.000000E+00\n"
              "       0       0       0       0       0       0       0       0       0\n"
              " 1       4       0       2       0       0       0       080\n"
              "    0.000000E+00    0.000000E+00    1.000000E+00\n"
              "       0       0       0       0       0       0       0       0       0\n"
              " 2       1       5       2       0       0       0       080\n"
              "       5       2       0\n"
              "       1       2       3       4       0       0       0       0\n"
              "99       0       0       1       0       0       0       080\n"
              "\n");
}

TEST(Examples, PackagePrintsTheBodiesOfA3diFile) {
    expectOutput(runExample("package", {sampleDeck("stack.3di")}),
                 "SUBSTRATE: 14 x 14 x 0.3 mm\n"
                 "LOGIC_DIE: 7.2 x 7.2 x 0.15 mm\n"
                 "SPACER_LOW: 4.8 x 4.8 x 0.08 mm\n"
                 "MEMORY_DIE: 5.6 x 4.4 x 0.12 mm\n"
                 "INTERPOSER_TOP: 4 x 3.2 x 0.06 mm\n"
                 "SENSOR_DIE: 2.8 x 2.4 x 0.1 mm\n"
                 "PACKAGECAP: 13.2 x 13.2 x 0.9 mm\n");
}

TEST(Examples, PackagePrintsTheBodiesOfADesignsReports) {
    expectOutput(runExample("package", {"", sampleDeck("reports"), "flip_stack.sip"}),
                 "SUBSTRATE: 14 x 14 x 0.29972 mm\n"
                 "LOGIC_DIE: 7.2 x 7.2 x 0.15 mm\n"
                 "SPACER_LOW: 4.8 x 4.8 x 0.08 mm\n"
                 "MEMORY_DIE: 5.6 x 4.4 x 0.12 mm\n"
                 "INTERPOSER_TOP: 4 x 3.2 x 0.06 mm\n"
                 "SENSOR_DIE: 2.8 x 2.4 x 0.1 mm\n");
}

}  // namespace
}  // namespace kvocaeio::test
