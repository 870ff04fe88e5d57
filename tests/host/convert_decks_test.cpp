/// Decks of any elements that `kvocaeio convert` writes: Abaqus, and Nastran in wide fields.
#include <gmock/gmock.h>

#include "abaqus/imported_deck.h"
#include "host/program.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Solids of one name, a pyramid, shells with and without a name, a node that no element has, faces.
constexpr std::string_view kDeck =
    "*NODE\n"
    "10, 0, 0, 0\n20, 1, 0, 0\n30, 1, 1, 0\n40, 0, 1, 0\n"
    "50, 0, 0, 2\n60, 1, 0, 2\n70, 1, 1, 2\n80, 0, 1, 2\n90, 0.5, 0.5, 3.5\n"
    "95, 2.00025, 0, 0\n96, 2, 0.1234567890123456, 2\n99, 7, 7, 7\n"
    "*ELEMENT, TYPE=C3D8, ELSET=BODY\n8, 10, 20, 30, 40, 50, 60, 70, 80\n"
    "*ELEMENT, TYPE=C3D6, ELSET=BODY\n2, 20, 95, 30, 60, 96, 70\n"
    "*ELEMENT, TYPE=C3D5, ELSET=TIP\n3, 50, 60, 70, 80, 90\n"
    "*ELEMENT, TYPE=S4, ELSET=SKIN\n4, 10, 20, 30, 40\n"
    "*ELEMENT, TYPE=S3\n5, 10, 20, 30\n"
    "*ELSET, ELSET=ALL\n8, 2\n"
    "*ELSET, ELSET=BRICK\n8\n"
    "*SURFACE, TYPE=ELEMENT, NAME=TOP\nALL, S2\nBRICK, S1\n"
    "*SHELL SECTION, ELSET=SKIN, MATERIAL=STEEL\n0.8\n";

std::string converted(const TempFolder& folder, std::string_view deck, const std::string& target,
                      std::vector<std::string> options = {}) {
    options.insert(options.begin(), "convert");
    options.push_back(folder.write("in.inp", deck));
    options.push_back(folder.file(target));
    const Outcome outcome = runHost(options);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    return outcome.output;
}

TEST(AbaqusDeck, HoldsEveryElementAndSection) {
    const TempFolder folder;
    EXPECT_THAT(
        ownLinesOf(converted(folder, kDeck, "out.inp")),
        ElementsAre(folder.file("out.inp") + ": 12 nodes, 5 elements in 5 sections",
                    "  note: 3 faces in the surface SURFACE_FACES: the library returns "
                    "neither names of surfaces nor pressures",
                    "  note: 1 set of shells or bars without a section, as their thickness "
                    "or profile is not known",
                    "  note: the deck needs a *MATERIAL with the name MATERIAL_1, which all "
                    "sections name"));
    EXPECT_EQ(
        readText(folder.file("out.inp")),
        "*HEADING\nWritten by kvocaeio\n"
        "*NODE\n"
        "10, 0., 0., 0.\n20, 1., 0., 0.\n30, 1., 1., 0.\n40, 0., 1., 0.\n"
        "50, 0., 0., 2.\n60, 1., 0., 2.\n70, 1., 1., 2.\n80, 0., 1., 2.\n90, .5, .5, 3.5\n"
        "95, 2.00025, 0., 0.\n96, 2., .1234567890123456, 2.\n99, 7., 7., 7.\n"
        "*ELEMENT, TYPE=C3D8, ELSET=BODY\n8, 10, 20, 30, 40, 50, 60, 70, 80\n"
        "*ELEMENT, TYPE=C3D6, ELSET=BODY\n2, 20, 95, 30, 60, 96, 70\n"
        "*ELEMENT, TYPE=C3D5, ELSET=TIP\n3, 50, 60, 70, 80, 90\n"
        "*ELEMENT, TYPE=S4, ELSET=SKIN\n4, 10, 20, 30, 40\n"
        "*ELEMENT, TYPE=S3\n5, 10, 20, 30\n"
        "*SOLID SECTION, ELSET=BODY, MATERIAL=MATERIAL_1\n"
        "*SOLID SECTION, ELSET=TIP, MATERIAL=MATERIAL_1\n"
        "*SHELL SECTION, ELSET=SKIN, MATERIAL=MATERIAL_1\n.8\n"
        "*ELSET, ELSET=SHELLS\n5\n"
        "*ELSET, ELSET=FACES_1\n8\n"
        "*ELSET, ELSET=FACES_2\n8\n"
        "*ELSET, ELSET=FACES_3\n2\n"
        "*SURFACE, TYPE=ELEMENT, NAME=SURFACE_FACES\nFACES_1, S2\nFACES_2, S1\nFACES_3, S2\n");
}

/// All that the walks over both sides return.
struct Tables {
    explicit Tables(const std::string& path) {
        CKVOAbaqusReader reader;
        CapturedOutput hidden;
        EXPECT_TRUE(reader.ImportInpFile(path.c_str()));
        reader.SortData();
        nodes = walkNodes(reader);
        sections = walkSections(reader);
        thicknesses = walkShellSections(reader);
    }

    std::vector<Node> nodes;
    std::vector<Section> sections;
    std::vector<ShellThickness> thicknesses;
};

TEST(AbaqusDeck, IsReadAgainAsTheSameTables) {
    const TempFolder folder;
    for (const char* sample : {"hinge.inp", "clip.inp", "cover.inp", "housing.inp"}) {
        const std::string tidy = folder.file("tidy.inp");
        ASSERT_EQ(runHost({"tidy", sampleDeck(sample), tidy}).exitCode, 0);
        const std::string out = folder.file("out.inp");
        ASSERT_EQ(runHost({"convert", "--force", sampleDeck(sample), out}).exitCode, 0);
        const Tables source(tidy);
        const Tables target(out);
        ASSERT_GT(source.nodes.size(), 20u);
        EXPECT_TRUE(target.nodes == source.nodes) << sample;
        EXPECT_TRUE(target.sections == source.sections) << sample;
    }
    EXPECT_THAT(Tables(folder.file("out.inp")).thicknesses, testing::IsEmpty());
    ASSERT_EQ(
        runHost({"convert", "--force", sampleDeck("cover.inp"), folder.file("out.inp")}).exitCode,
        0);
    EXPECT_THAT(Tables(folder.file("out.inp")).thicknesses,
                ElementsAre(ShellThickness{"COVER", 2.5}, ShellThickness{"RIM", 1.8}));
}

TEST(AbaqusDeck, IsTheSameWhenItIsConvertedAgain) {
    const TempFolder folder;
    for (const char* sample : {"clip.inp", "cover.inp"}) {
        const std::string first = folder.file("first.inp");
        const std::string second = folder.file("second.inp");
        ASSERT_EQ(runHost({"convert", "--force", sampleDeck(sample), first}).exitCode, 0);
        const Outcome again = runHost({"convert", "--strict", first, second});
        EXPECT_EQ(again.errors, "") << sample;
        EXPECT_TRUE(readBytes(second) == readBytes(first)) << sample;
    }
}

TEST(AbaqusDeck, NamesAreThoseThatADeckCanHold) {
    const TempFolder folder;
    const std::string out = folder.file("out.inp");
    EXPECT_THAT(runHost({"convert", sampleDeck("bracket.pat"), out}).output,
                HasSubstr("names of sections changed to what a deck can hold: letters, digits, "
                          "hyphens, points and underscores\n"));
    const std::string deck = readText(out);
    EXPECT_THAT(deck, HasSubstr("*ELEMENT, TYPE=B31, ELSET=PROPERTY_"));
    EXPECT_THAT(deck, HasSubstr("*SOLID SECTION, ELSET=PROPERTY_1, MATERIAL=MATERIAL_1\n"));
}

TEST(AbaqusDeck, SolidsAndShellsOfOneNameHaveSetsOfTheirOwn) {
    const TempFolder folder;
    converted(folder,
              "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n"
              "*ELEMENT, TYPE=C3D4, ELSET=PART\n1, 1, 2, 3, 4\n"
              "*ELEMENT, TYPE=S3, ELSET=PART\n2, 1, 2, 3\n"
              "*SHELL SECTION, ELSET=PART, MATERIAL=A\n2\n",
              "out.inp");
    EXPECT_THAT(readText(folder.file("out.inp")),
                HasSubstr("*ELSET, ELSET=PART_SOLIDS\n1\n"
                          "*SOLID SECTION, ELSET=PART_SOLIDS, MATERIAL=MATERIAL_1\n"
                          "*ELSET, ELSET=PART_SHELLS\n2\n"
                          "*SHELL SECTION, ELSET=PART_SHELLS, MATERIAL=MATERIAL_1\n2.\n"));
}

TEST(AbaqusDeck, LoadsBecomeASurface) {
    const TempFolder folder;
    converted(folder, std::string(kDeck) + "*DLOAD\n2, P3, 2.5\n", "out.inp");
    EXPECT_THAT(readText(folder.file("out.inp")),
                HasSubstr("*ELSET, ELSET=FACES_1\n2\n"
                          "*SURFACE, TYPE=ELEMENT, NAME=LOAD_FACES\nFACES_1, S3\n"));
}

TEST(AbaqusDeck, NodesOfBlankLinesAreLeftOut) {
    const TempFolder folder;
    const std::string output = converted(folder,
                                         "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n\n3, 0, 1, 0\n"
                                         "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, 3\n",
                                         "out.inp", {"--as-is"});
    EXPECT_THAT(output,
                HasSubstr("  left out: 1 node that no element has, with an OID that is none "
                          "or another node's\n"));
    EXPECT_THAT(readText(folder.file("out.inp")),
                HasSubstr("*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 0., 1., 0.\n*ELEMENT"));
}

TEST(AbaqusDeck, ElementsWithoutOidsAreNumbered) {
    const TempFolder folder;
    converted(folder, kDeck, "out.inp", {"--normalised"});
    EXPECT_THAT(readText(folder.file("out.inp")),
                HasSubstr("*ELEMENT, TYPE=C3D8, ELSET=BODY\n1, 10, 20, 30, 40, 50, 60, 70, 80\n"));
}

TEST(AbaqusDeck, IsScaledWithItsThicknesses) {
    const TempFolder folder;
    converted(folder, kDeck, "out.inp", {"--scale", "10"});
    const std::string deck = readText(folder.file("out.inp"));
    EXPECT_THAT(deck, HasSubstr("\n95, 20.002499999999998, 0., 0.\n"));
    EXPECT_THAT(deck, HasSubstr("*SHELL SECTION, ELSET=SKIN, MATERIAL=MATERIAL_1\n8.\n"));
}

TEST(WideNastranDeck, HoldsEveryElement) {
    const TempFolder folder;
    EXPECT_THAT(ownLinesOf(converted(folder, kDeck, "out.nas", {"--nastran=wide"})),
                ElementsAre(folder.file("out.nas") + ": 12 nodes, 5 elements in 5 sections",
                            "  left out: 3 faces of loads and surfaces",
                            "  note: coordinates are written with at most sixteen characters, "
                            "which changes them by up to 4.02456e-16",
                            "  note: 1 property of shells or bars without a thickness or an area, "
                            "which are not known",
                            "  note: the deck needs a MAT1 card for material 1, which all "
                            "properties name"));
    const std::vector<std::string> lines = linesOf(readText(folder.file("out.nas")));
    ASSERT_EQ(lines.size(), 3u + 24 + 10 + 6 + 1);
    EXPECT_EQ(lines[1], "$ Mesh unit           = mm");
    EXPECT_EQ(lines[2], "BEGIN BULK");
    EXPECT_EQ(lines[23],
              "GRID*                 96                              2..123456789012346*N00002O");
    EXPECT_EQ(lines[24], "*N00002O              2.");
    EXPECT_THAT(
        std::vector(lines.begin() + 27, lines.end()),
        ElementsAre(
            "$ Section 1: BODY", "PSOLID         1       1", "$ Section 2: TIP",
            "PSOLID         2       1", "$ Section 3: SKIN",
            "PSHELL*                3               1              .8               1", "*",
            "$ Section 4: ",
            "PSHELL*                4               1                               1", "*",
            "CHEXA          8       1      10      20      30      40      50      60+1000008",
            "+1000008      70      80",
            "CPENTA         2       1      20      95      30      60      96      70",
            "CPYRAM         3       2      50      60      70      80      90",
            "CQUAD4         4       3      10      20      30      40",
            "CTRIA3         5       4      10      20      30", "ENDDATA"));
}

TEST(WideNastranDeck, ListsEdgesBetweenTheFacesBeforeThoseOfTheSecondFace) {
    const TempFolder folder;
    std::string deck = "*NODE\n";
    for (int node = 1; node <= 20; ++node)
        deck += std::to_string(node) + ", " + std::to_string(node) + "., " +
                std::to_string(node * node) + ", 0\n";
    deck +=
        "*ELEMENT, TYPE=C3D20, ELSET=A\n"
        "1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15,\n16, 17, 18, 19, 20\n"
        "*ELEMENT, TYPE=C3D15, ELSET=A\n2, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15\n"
        "*ELEMENT, TYPE=C3D10, ELSET=A\n3, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10\n";
    converted(folder, deck, "out.bdf", {"--nastran=wide", "--force"});
    EXPECT_THAT(
        readText(folder.file("out.bdf")),
        HasSubstr(
            "CHEXA          1       1       1       2       3       4       5       6+1000001\n"
            "+1000001       7       8       9      10      11      12      17      18+2000001\n"
            "+2000001      19      20      13      14      15      16\n"
            "CPENTA         2       1       1       2       3       4       5       6+1000002\n"
            "+1000002       7       8       9      13      14      15      10      11+2000002\n"
            "+2000002      12\n"
            "CTETRA         3       1       1       2       3       4       5       6+1000003\n"
            "+1000003       7       8       9      10\n"));
}

TEST(WideNastranDeck, ComesBackByWayOfTidy) {
    const TempFolder folder;
    converted(folder, kDeck, "out.nas", {"--nastran=wide"});
    const std::string back = folder.file("back.inp");
    ASSERT_EQ(runHost({"convert", folder.file("out.nas"), back}).exitCode, 0);
    const Tables tables(back);
    ASSERT_EQ(tables.nodes.size(), 12u);
    EXPECT_EQ(tables.nodes[8], (Node{90, 0.5, 0.5, 3.5}));
    EXPECT_EQ(tables.nodes[11], (Node{99, 7, 7, 7}));
    ASSERT_GE(tables.sections.size(), 2u);
    std::vector<int> oids;
    for (const Section& section : tables.sections)
        oids.insert(oids.end(), section.ids.begin(), section.ids.end());
    // The pyramid has become a hexahedron, and of shells the library returns nothing.
    EXPECT_THAT(oids, testing::UnorderedElementsAre(2, 3, 8));
}

TEST(WideNastranDeck, KeepsThePropertiesOfAPatranFile) {
    const TempFolder folder;
    const std::string out = folder.file("out.nas");
    ASSERT_EQ(runHost({"convert", "--nastran=wide", sampleDeck("bracket.pat"), out}).exitCode, 0);
    const std::string deck = readText(out);
    EXPECT_THAT(deck, HasSubstr("$ Section 1: property 1\nPSOLID         1       1\n"));
    EXPECT_THAT(deck, HasSubstr("\nCROD    "));
}

TEST(WideNastranDeck, NumbersAboveEightDigitsAreReplaced) {
    const TempFolder folder;
    const std::string output = converted(folder,
                                         "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n123456789, 0, 1, 0\n"
                                         "*ELEMENT, TYPE=S3, ELSET=A\n7, 1, 2, 123456789\n",
                                         "out.nas", {"--nastran=wide"});
    EXPECT_THAT(output, HasSubstr("  note: nodes are numbered from 1: the file cannot hold their "
                                  "OIDs\n"));
    EXPECT_THAT(readText(folder.file("out.nas")),
                HasSubstr("CTRIA3         7       1       1       2       3\n"));
}

TEST(WideNastranDeck, IsNotWrittenWhereNodesMeetByItsDigits) {
    const TempFolder folder;
    const std::string deck = folder.write("in.inp",
                                          "*NODE\n1, 1, 0, 0\n2, 1.0000000000000002, 0, 0\n"
                                          "3, 0, 1, 0\n*ELEMENT, TYPE=S3, ELSET=A\n7, 1, 2, 3\n");
    const std::string out = folder.file("out.nas");
    const Outcome outcome = runHost({"convert", "--nastran=wide", deck, out});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors,
              "kvocaeio: " + out +
                  ": cannot be written: coordinates have at most sixteen characters "
                  "there, by which nodes of 1 element meet\n");
    EXPECT_THAT(namesIn(folder), ElementsAre("in.inp"));
    EXPECT_EQ(runHost({"convert", deck, folder.file("out.inp")}).exitCode, 0);
}

TEST(WideNastranDeck, IsAFormOfTwo) {
    const TempFolder folder;
    converted(folder, kDeck, "plain.nas", {"--nastran=plain"});
    EXPECT_THAT(readText(folder.file("plain.nas")), HasSubstr("GRID   ,      10,"));
    converted(folder, kDeck, "out.pat", {"--nastran=wide"});  // of which there is one form
    EXPECT_EQ(runHost({"convert", "--nastran=narrow", folder.file("in.inp"), folder.file("o.nas")})
                  .exitCode,
              2);
}

}  // namespace
}  // namespace kvocaeio::test
