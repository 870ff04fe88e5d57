/// What `kvocaeio convert` writes, what it says of it, and what it leaves behind when it fails.
#include <gmock/gmock.h>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// A brick and a wedge under one name, a pyramid, a shell, a node that nothing but the pyramid has.
constexpr std::string_view kDeck =
    "*NODE\n"
    "10, 0, 0, 0\n20, 1, 0, 0\n30, 1, 1, 0\n40, 0, 1, 0\n"
    "50, 0, 0, 2\n60, 1, 0, 2\n70, 1, 1, 2\n80, 0, 1, 2\n90, 0.5, 0.5, 3.5\n"
    "95, 2.00025, 0, 0\n96, 2, 0, 2\n"
    "*ELEMENT, TYPE=C3D8, ELSET=BODY\n8, 10, 20, 30, 40, 50, 60, 70, 80\n"
    "*ELEMENT, TYPE=C3D6, ELSET=BODY\n2, 20, 95, 30, 60, 96, 70\n"
    "*ELEMENT, TYPE=C3D5, ELSET=TIP\n3, 50, 60, 70, 80, 90\n"
    "*ELEMENT, TYPE=S4, ELSET=SKIN\n4, 10, 20, 30, 40\n";

/// The deck's lines from its first GRID card on.
std::vector<std::string> bulkOf(const std::string& deck) {
    std::vector<std::string> lines = linesOf(readText(deck));
    const auto first = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
        return line.starts_with("GRID");
    });
    lines.erase(lines.begin(), first);
    return lines;
}

TEST(Convert, WritesAbaqusSolidsAsANastranDeck) {
    const TempFolder folder;
    const std::string out = folder.file("out.nas");
    const Outcome outcome = runHost({"convert", folder.write("in.inp", kDeck), out});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_THAT(
        ownLinesOf(outcome.output),
        ElementsAre(out + ": 10 nodes, 2 elements in 1 section", "  left out: 1 pyramid",
                    "  left out: 1 shell element", "  left out: 1 node that no written element has",
                    "  note: coordinates are written with three decimals, which changes "
                    "them by up to 0.00025",
                    "  note: the deck needs a MAT1 card for material 1, which all sections "
                    "name"));
    EXPECT_THAT(readText(out), HasSubstr("$ Mesh unit           = mm\n"));
    EXPECT_THAT(
        bulkOf(out),
        ElementsAre("GRID   ,      10,       0,   0.000,   0.000,   0.000,       0",
                    "GRID   ,      20,       0,   1.000,   0.000,   0.000,       0",
                    "GRID   ,      30,       0,   1.000,   1.000,   0.000,       0",
                    "GRID   ,      40,       0,   0.000,   1.000,   0.000,       0",
                    "GRID   ,      50,       0,   0.000,   0.000,   2.000,       0",
                    "GRID   ,      60,       0,   1.000,   0.000,   2.000,       0",
                    "GRID   ,      70,       0,   1.000,   1.000,   2.000,       0",
                    "GRID   ,      80,       0,   0.000,   1.000,   2.000,       0",
                    "GRID   ,      95,       0,   2.000,   0.000,   0.000,       0",
                    "GRID   ,      96,       0,   2.000,   0.000,   2.000,       0",
                    "$ Section 1: BODY", "PSOLID ,      1,      1,1",
                    "CHEXA  ,      8,      1,     10,     20,     30,     40,     50,     60",
                    "       ,     70,     80",
                    "CPENTA ,      2,      1,     20,     95,     30,     60,     96,     70",
                    "$ -----------------------------------------------------------",
                    "$ END OF DATA",
                    "$ -----------------------------------------------------------", "ENDDATA"));
}

TEST(Convert, NamesTheUnitThatItIsGiven) {
    const TempFolder folder;
    const std::string out = folder.file("out.bdf");
    EXPECT_EQ(runHost({"convert", "--unit", "inch", folder.write("in.inp", kDeck), out}).exitCode,
              0);
    EXPECT_THAT(readText(out), HasSubstr("$ Mesh unit           = inch\n"));
}

TEST(Convert, KnowsTheUnitsOfTheWriterAlone) {
    const TempFolder folder;
    const Outcome outcome =
        runHost({"convert", "--unit", "km", folder.write("in.inp", kDeck), folder.file("o.nas")});
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.errors, HasSubstr("km not in {m,cm,mm,inch}"));
}

TEST(Convert, Scales) {
    const TempFolder folder;
    const std::string out = folder.file("out.nas");
    const std::string deck = folder.write("in.inp", kDeck);
    EXPECT_EQ(runHost({"convert", "--scale", "25.4", deck, out}).exitCode, 0);
    EXPECT_THAT(bulkOf(out),
                testing::Contains("GRID   ,      95,       0,  50.806,   0.000,   0.000,       0"));
    EXPECT_EQ(runHost({"convert", "--scale", "0", deck, out}).exitCode, 2);
}

TEST(Convert, WritesAbaqusSolidsAsAPatranFile) {
    const TempFolder folder;
    const std::string out = folder.file("out.pat");
    const Outcome outcome = runHost({"convert", folder.write("in.inp", kDeck), out});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(
        ownLinesOf(outcome.output),
        ElementsAre(out + ": 10 nodes, 2 elements in 1 section", "  left out: 1 pyramid",
                    "  left out: 1 shell element", "  left out: 1 node that no written element has",
                    "  left out: 1 section: elements have no property in the file",
                    "  note: nodes are numbered from 1: the file cannot hold their OIDs",
                    "  note: elements are numbered from 1: the file cannot hold their OIDs"));
    const std::vector<std::string> lines = linesOf(readText(out));
    ASSERT_EQ(lines.size(), 42u);
    EXPECT_EQ(lines[29], "    2.000250E+00    0.000000E+00    0.000000E+00");
    EXPECT_EQ(lines[34], " 2       1       8       2       0       0       0       080");
    EXPECT_EQ(lines[39], "       2       9       3       6      10       7       0       0");
}

TEST(Convert, KeepsOidsWithoutGapsInAPatranFile) {
    const TempFolder folder;
    const std::string deck = folder.write("in.inp",
                                          "*NODE\n4, 0, 0, 0\n2, 1, 0, 0\n1, 0, 1, 0\n3, 0, 0, 5\n"
                                          "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 4, 2, 1, 3\n");
    const std::string out = folder.file("out.pat");
    EXPECT_THAT(runHost({"convert", deck, out}).output, Not(HasSubstr("numbered")));
    const std::vector<std::string> lines = linesOf(readText(out));
    ASSERT_EQ(lines.size(), 21u);
    EXPECT_EQ(lines[5], "    0.000000E+00    1.000000E+00    0.000000E+00");
    EXPECT_EQ(lines[11], "    0.000000E+00    0.000000E+00    5.000000E+00");
    EXPECT_EQ(lines[18], "       4       2       1       3       0       0       0       0");
}

TEST(Convert, CarriesAPatranFileThroughBothFormats) {
    const TempFolder folder;
    const std::string out = folder.file("out.pat");
    const Outcome outcome = runHost({"convert", sampleDeck("bracket.pat"), out});
    EXPECT_THAT(outcome.output, StartsWith(out + ": 168 nodes, 270 elements in 3 sections\n"
                                                 "  left out: 12 quadrilaterals\n"
                                                 "  left out: 24 triangles\n"
                                                 "  left out: 7 bars\n"));
    const std::string deck = folder.file("out.nas");
    EXPECT_EQ(runHost({"convert", out, deck}).exitCode, 0);
    EXPECT_THAT(bulkOf(deck), testing::Contains("$ Section 1: property 0"));
    EXPECT_EQ(bulkOf(deck).size(), 168u + 2 + 270 + 30 + 4);
}

TEST(Convert, TakesTheElementsThatTheDeckLists) {
    const TempFolder folder;
    const Outcome outcome =
        runHost({"convert", "--as-is", sampleDeck("clip.inp"), folder.file("clip.nas")});
    EXPECT_THAT(
        ownLinesOf(outcome.output),
        ElementsAre(folder.file("clip.nas") + ": 87 nodes, 168 elements in 1 section",
                    "  left out: 3 generated sets, which --normalised carries over",
                    "  left out: 168 quadratic elements without their mid-side nodes",
                    "  left out: 338 nodes that no written element has",
                    "  note: the deck needs a MAT1 card for material 1, which all sections name"));
}

TEST(Convert, TakesTheNormalisedMeshOnDemand) {
    const TempFolder folder;
    EXPECT_THAT(runHost({"convert", "--as-is", "--force", "--normalised", sampleDeck("clip.inp"),
                         folder.file("c.nas")})
                    .output,
                HasSubstr("c.nas: 81 nodes, 154 elements in 3 sections\n"
                          "  left out: 9 rows that hold no element\n"
                          "  left out: 24 elements in no generated set\n"
                          "  left out: 144 quadratic elements without their mid-side nodes\n"
                          "  left out: 344 nodes that no written element has\n"
                          "  note: elements are numbered from 1: those of the normalised mesh have "
                          "no OIDs\n"
                          "  note: 10 elements written once more for being in several sets\n"));
    EXPECT_THAT(
        runHost({"convert", "--normalised", sampleDeck("bracket.pat"), folder.file("b.nas")})
            .errors,
        HasSubstr("bracket.pat: has no normalised mesh: only Abaqus decks have one\n"));
}

TEST(Convert, LeavesOutElementsOfNodesThatTheDeckLacks) {
    const TempFolder folder;
    const std::string deck =
        folder.write("in.inp",
                     "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n"
                     "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n2, 1, 2, 3, 5\n");
    EXPECT_THAT(runHost({"convert", "--force", deck, folder.file("o.nas")}).output,
                HasSubstr("4 nodes, 1 element in 1 section\n"
                          "  left out: 1 element of nodes that are not there\n"));
}

TEST(Convert, SaysWhichCoordinatesAreWiderThanTheirFields) {
    const TempFolder folder;
    const std::string deck =
        folder.write("in.inp",
                     "*NODE\n1, 0, 0, 0\n2, 9999.5, 0, 0\n3, 0, 10000, 0\n4, 0, 0, -1000\n"
                     "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n");
    EXPECT_THAT(runHost({"convert", deck, folder.file("o.nas")}).output,
                HasSubstr("  note: 2 nodes with coordinates of more than eight characters, which "
                          "other programs may round\n"));
}

TEST(Convert, IsQuietOnDemand) {
    const TempFolder folder;
    const std::string out = folder.file("out.nas");
    const Outcome outcome = runHost({"convert", "--quiet", sampleDeck("hinge.inp"), out});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.output + outcome.errors, "");
    EXPECT_NE(readBytes(out), "");
    EXPECT_EQ(runHost({"convert", "--quiet", "--json", sampleDeck("hinge.inp"), out}).exitCode, 2);
}

TEST(Convert, IsStrictOnDemand) {
    const TempFolder folder;
    const std::string out = folder.file("out.nas");
    const Outcome losing = runHost({"convert", "--strict", folder.write("in.inp", kDeck), out});
    EXPECT_EQ(losing.exitCode, 1);
    EXPECT_THAT(losing.output, HasSubstr("  left out: 1 pyramid\n"));
    EXPECT_EQ(losing.errors, "kvocaeio: " + out +
                                 ": is written, but without what is left out, which --strict "
                                 "counts as a failure\n");
    const std::string whole = folder.write("whole.inp",
                                           "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n"
                                           "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n");
    EXPECT_EQ(runHost({"convert", "--strict", whole, out}).exitCode, 0);
}

/// The message of a conversion that fails, in a folder with a file "old.nas" that it must not
/// touch.
std::string failureOf(const std::string& source, const std::string& target) {
    const Outcome outcome = runHost({"convert", source, target});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, "");
    return outcome.errors;
}

TEST(ConvertFailure, LeavesTheOldFileAlone) {
    const TempFolder folder;
    const std::string old = folder.write("old.nas", "keep me");
    EXPECT_EQ(
        failureOf(sampleDeck("cover.inp"), old),
        "kvocaeio: " + sampleDeck("cover.inp") + ": holds no tetrahedra, wedges or hexahedra\n");
    EXPECT_EQ(failureOf(folder.file("missing.inp"), old),
              "kvocaeio: " + folder.file("missing.inp") +
                  ": cannot be read: No such file or directory\n");
    EXPECT_EQ(failureOf(sampleDeck("stack.3di"), old),
              "kvocaeio: " + sampleDeck("stack.3di") +
                  ": is a 3DI package, and this kind of file is written of Abaqus decks and Patran "
                  "neutral files; meshes of all formats are written as .vtu, .inp, .glb and with "
                  "--nastran=wide\n");
    EXPECT_EQ(readBytes(old), "keep me");
    EXPECT_THAT(namesIn(folder), ElementsAre("old.nas"));
}

TEST(ConvertFailure, TargetThatNoFormatHas) {
    const TempFolder folder;
    EXPECT_EQ(failureOf(sampleDeck("hinge.inp"), folder.file("out.xyz")),
              "kvocaeio: " + folder.file("out.xyz") +
                  ": cannot be written: its name must end in .nas, .bdf (Nastran), .pat (Patran), "
                  ".inp (Abaqus), .glb (glTF), .vtu, .vtp (VTK)\n");
}

TEST(ConvertFailure, FolderThatIsNotThere) {
    const TempFolder folder;
    const std::string out = folder.file("nowhere") + "/out.nas";
    EXPECT_EQ(failureOf(sampleDeck("hinge.inp"), out),
              "kvocaeio: " + out + ": cannot be written: No such file or directory\n");
}

TEST(ConvertFailure, DeckThatCannotBeNormalised) {
    const TempFolder folder;
    const std::string deck = folder.write("odd.inp",
                                          "*NODE\n1, 0, 0, 0\n*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 1, "
                                          "1\n*ELSET, ELSET=B, GENERATE\n5, 3, 1\n");
    const Outcome outcome =
        runHost({"convert", "--as-is", "--normalised", deck, folder.file("out.nas")});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("cannot be normalised"));
    EXPECT_THAT(namesIn(folder), ElementsAre("odd.inp"));
}

#if !defined(_WIN32)

TEST(ConvertFailure, FullDiskLeavesNothingBehind) {
    for (const char* name : {"old.nas", "old.pat", "old.inp", "old.glb", "old.vtu"}) {
        const TempFolder folder;
        const std::string old = folder.write(name, "keep me");
        // A file may not grow beyond four blocks; the signal for that would end the program.
        const Outcome outcome =
            runShell("trap '' XFSZ; ulimit -f 4; " + quote(KVOCAEIO_PROGRAM) + " convert --as-is " +
                     quote(sampleDeck("hinge.inp")) + " " + quote(old));
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_EQ(outcome.errors,
                  "kvocaeio: " + old + ": cannot be written as a whole: the disk may be full\n");
        EXPECT_EQ(readBytes(old), "keep me");
        EXPECT_THAT(namesIn(folder), ElementsAre(name));
    }
}

#endif

}  // namespace
}  // namespace kvocaeio::test
