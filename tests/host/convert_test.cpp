/// What `kvocaeio convert` writes, what it says of it, and what it leaves behind when it fails.
#include <gmock/gmock.h>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

// A brick and a wedge under one name, a pyramid, a shell, a node that nothing but the pyramid has.
constexpr std::string_view kDeck =
    "*NODE\n"
    "10, 0, 0, 0\n20, 1, 0, 0\n30, 1, 1, 0\n40, 0, 1, 0\n"
    "50, 0, 0, 2\n60, 1, 0, 2\n70, 1, 1, 2\n80, 0, 1, 2\n90, 0.5, 0.5, 3.5\n"
    "95, 2.00025, 0, 0\n96, 2, 0, 2\n"
    "*ELEMENT, TYPE=C3D8, ELSET=BODY\n1, 10, 20, 30, 40, 50, 60, 70, 80\n"
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
    EXPECT_THAT(linesOf(outcome.output),
                ElementsAre(out + ": 10 nodes, 2 elements in 2 sections", "  left out: 1 pyramids",
                            "  left out: 1 shell elements",
                            "  left out: 1 nodes that no written element has",
                            "  note: coordinates are written with three decimals, which changes "
                            "them by up to 0.00025",
                            "  note: the deck needs a MAT1 card for material 1, which all sections "
                            "name"));
    EXPECT_THAT(readText(out), HasSubstr("$ Mesh unit           = mm\n"));
    EXPECT_THAT(
        bulkOf(out),
        ElementsAre(
            "GRID   ,       1,       0,   0.000,   0.000,   0.000,       0",
            "GRID   ,       2,       0,   1.000,   0.000,   0.000,       0",
            "GRID   ,       3,       0,   1.000,   1.000,   0.000,       0",
            "GRID   ,       4,       0,   0.000,   1.000,   0.000,       0",
            "GRID   ,       5,       0,   0.000,   0.000,   2.000,       0",
            "GRID   ,       6,       0,   1.000,   0.000,   2.000,       0",
            "GRID   ,       7,       0,   1.000,   1.000,   2.000,       0",
            "GRID   ,       8,       0,   0.000,   1.000,   2.000,       0",
            "GRID   ,       9,       0,   2.000,   0.000,   0.000,       0",
            "GRID   ,      10,       0,   2.000,   0.000,   2.000,       0", "$ Section 1: BODY",
            "PSOLID ,      1,      1,1", "$ Section 2: TIP", "PSOLID ,      2,      1,1",
            "CHEXA  ,      1,      1,      1,      2,      3,      4,      5,      6",
            "       ,      7,      8",
            "CPENTA ,      2,      1,      2,      9,      3,      6,     10,      7",
            "$ -----------------------------------------------------------", "$ END OF DATA",
            "$ -----------------------------------------------------------", "ENDDATA"));
}

TEST(Convert, NamesTheUnitThatItIsGiven) {
    const TempFolder folder;
    const std::string out = folder.file("out.bdf");
    EXPECT_EQ(runHost({"convert", "--unit", "inch", folder.write("in.inp", kDeck), out}).exitCode,
              0);
    EXPECT_THAT(readText(out), HasSubstr("$ Mesh unit           = inch\n"));
}

TEST(Convert, WritesAbaqusSolidsAsAPatranFile) {
    const TempFolder folder;
    const std::string out = folder.file("out.pat");
    const Outcome outcome = runHost({"convert", folder.write("in.inp", kDeck), out});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(linesOf(outcome.output),
                ElementsAre(out + ": 10 nodes, 2 elements in 2 sections", "  left out: 1 pyramids",
                            "  left out: 1 shell elements",
                            "  left out: 1 nodes that no written element has",
                            "  left out: 2 sections: elements have no property in the file"));
    const std::vector<std::string> lines = linesOf(readText(out));
    ASSERT_EQ(lines.size(), 42u);
    EXPECT_EQ(lines[29], "    2.000250E+00    0.000000E+00    0.000000E+00");
    EXPECT_EQ(lines[34], " 2       1       8       2       0       0       0       080");
    EXPECT_EQ(lines[39], "       2       9       3       6      10       7       0       0");
}

TEST(Convert, CarriesAPatranFileThroughBothFormats) {
    const TempFolder folder;
    const std::string out = folder.file("out.pat");
    const Outcome outcome = runHost({"convert", sampleDeck("bracket.pat"), out});
    EXPECT_THAT(outcome.output, StartsWith(out + ": 168 nodes, 270 elements in 3 sections\n"
                                                 "  left out: 12 quadrilaterals\n"
                                                 "  left out: 24 triangles\n"
                                                 "  left out: 7 bars\n"));
    const nlohmann::json report = jsonReport(out);
    EXPECT_EQ(report.at("mesh").at("elementsByKind"),
              nlohmann::json::parse(R"({"tetrahedra": 216, "wedges": 24, "hexahedra": 30})"));
    EXPECT_EQ(report.at("mesh").at("boundingBox"),
              nlohmann::json::parse(R"({"min": [0, 0, 0], "max": [40, 15, 35]})"));

    const std::string deck = folder.file("out.nas");
    EXPECT_EQ(runHost({"convert", out, deck}).exitCode, 0);
    EXPECT_THAT(bulkOf(deck), testing::Contains("$ Section 1: property 0"));
    EXPECT_EQ(bulkOf(deck).size(), 168u + 2 + 270 + 30 + 4);
}

TEST(Convert, SaysHowOftenElementsStandInSets) {
    const TempFolder folder;
    EXPECT_THAT(runHost({"convert", sampleDeck("clip.inp"), folder.file("clip.nas")}).output,
                HasSubstr("  left out: 9 rows that hold no element\n"
                          "  left out: 24 elements that are in no generated set\n"
                          "  left out: 144 quadratic elements' mid-side nodes\n"
                          "  left out: 344 nodes that no written element has\n"
                          "  note: 10 elements are written once more, since they are in several "
                          "sets\n"));
}

TEST(Convert, MayReplaceItsOwnSource) {
    const TempFolder folder;
    const std::string file = folder.file("mesh.pat");
    std::filesystem::copy_file(sampleDeck("bracket.pat"), file);
    EXPECT_EQ(runHost({"convert", file, file}).exitCode, 0);
    EXPECT_EQ(jsonReport(file).at("mesh").at("elements"), 270);
}

/// Names of the files in a folder.
std::vector<std::string> filesIn(const TempFolder& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
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
                  ": is of a format that is not converted (3DI package); Abaqus decks and Patran "
                  "neutral files are\n");
    EXPECT_EQ(readBytes(old), "keep me");
    EXPECT_THAT(filesIn(folder), ElementsAre("old.nas"));
}

TEST(ConvertFailure, TargetThatNoFormatHas) {
    const TempFolder folder;
    EXPECT_EQ(failureOf(sampleDeck("hinge.inp"), folder.file("out.xyz")),
              "kvocaeio: " + folder.file("out.xyz") +
                  ": cannot be written: its name must end in .nas, .bdf (Nastran) or .pat "
                  "(Patran)\n");
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
    EXPECT_THAT(failureOf(deck, folder.file("out.nas")), HasSubstr("cannot be normalised"));
    EXPECT_THAT(filesIn(folder), ElementsAre("odd.inp"));
}

#if !defined(_WIN32)

TEST(ConvertFailure, FullDiskLeavesNothingBehind) {
    for (const char* name : {"old.nas", "old.pat"}) {
        const TempFolder folder;
        const std::string old = folder.write(name, "keep me");
        // A file may not grow beyond four blocks; the signal for that would end the program.
        const Outcome outcome =
            runShell("trap '' XFSZ; ulimit -f 4; " + quote(KVOCAEIO_PROGRAM) + " convert " +
                     quote(sampleDeck("hinge.inp")) + " " + quote(old));
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_EQ(outcome.errors,
                  "kvocaeio: " + old + ": cannot be written as a whole: the disk may be full\n");
        EXPECT_EQ(readBytes(old), "keep me");
        EXPECT_THAT(filesIn(folder), ElementsAre(name));
    }
}

#endif

}  // namespace
}  // namespace kvocaeio::test
