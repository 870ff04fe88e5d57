/// What `kvocaeio tidy` writes and says, and what the other commands make of a deck that needs it.
#include <gmock/gmock.h>

#include "host/program.h"
#include "host/schema.h"

namespace kvocaeio::test {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;

// Of a deck in another folder, which includes its nodes: element 12 is inside out, and the other
// one has a number that is too long for eight columns.
constexpr std::string_view kNodes =
    "grid,1,,0.,0.,0.\ngrid,2,,1.123456789,0.,0.\ngrid,3,,0.,1.,0.\n"
    "grid,4,,0.,0.,1.\ngrid,5,,0.,0.,-1.\n";
constexpr std::string_view kDialect =
    "INCLUDE 'mesh.bdf'\nCTETRA,123456789,7,1,2,3,4\nCTETRA,12,7,1,2,3,5\nPSOLID,7,1\nENDDATA\n";
constexpr std::string_view kPlain =
    "BEGIN BULK\n"
    "GRID           1              0.      0.      0.\n"
    "GRID           2        1.123457      0.      0.\n"
    "GRID           3              0.      1.      0.\n"
    "GRID           4              0.      0.      1.\n"
    "GRID           5              0.      0.     -1.\n"
    "CTETRA        13       1       1       2       3       4\n"
    "CTETRA        12       1       1       2       3       5\n"
    "PSOLID         1       1\n"
    "ENDDATA\n";

/// Two bolts of one part.
constexpr std::string_view kBolts =
    "*PART, NAME=BOLT\n*NODE\n11, 0, 0, 0\n12, 1, 0, 0\n13, 0, 1, 0\n14, 0, 0, 1\n"
    "*ELEMENT, TYPE=C3D4, ELSET=BODY\n15, 11, 12, 13, 14\n*END PART\n"
    "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=LEFT, PART=BOLT\n*END INSTANCE\n"
    "*INSTANCE, NAME=RIGHT, PART=BOLT\n5., 0., 0.\n*END INSTANCE\n*END ASSEMBLY\n";

class Tidy : public testing::Test {
  protected:
    Tidy() {
        folder_.write("mesh.bdf", kNodes);
        deck_ = folder_.write("part.bdf", kDialect);
        out_ = folder_.file("out.nas");
    }

    json reportOf(const std::vector<std::string>& arguments) {
        static const json schema = json::parse(readText(sourceFile("docs/tidy.schema.json")));
        std::vector<std::string> words = {"tidy", "--json"};
        words.insert(words.end(), arguments.begin(), arguments.end());
        json report = json::parse(runHost(words).output);
        EXPECT_THAT(faultsOf(report, schema), IsEmpty());
        return report;
    }

    TempFolder folder_;
    std::string deck_;
    std::string out_;
};

TEST_F(Tidy, WritesAPlainDeckAndSaysSoInALine) {
    const Outcome outcome = runHost({"tidy", deck_, out_});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(readText(out_), kPlain);
    EXPECT_THAT(linesOf(outcome.output),
                ElementsAre(MatchesRegex(".*out.nas: rewritten, 5 nodes, 2 elements, 1 property; "
                                         "coordinates change by at most 2.1e-07; .* notes "
                                         ".--report lists them.")));
    EXPECT_THAT(namesIn(folder_), ElementsAre("mesh.bdf", "out.nas", "part.bdf"));
}

TEST_F(Tidy, CopiesADeckThatNeedsNothing) {
    const std::string plain = folder_.write("plain.nas", kPlain);
    const Outcome outcome = runHost({"tidy", plain, out_});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.output, out_ +
                                  ": nothing needs to be changed: copied, 5 nodes, 2 elements, "
                                  "1 property\n");
    EXPECT_EQ(readBytes(out_), kPlain);
    EXPECT_EQ(runHost({"tidy", "--quiet", plain, out_}).output, "");
}

TEST_F(Tidy, ListsItsFindingsAtPlacesOfTheOriginal) {
    const std::vector<std::string> lines =
        linesOf(runHost({"tidy", "--report", deck_, out_}).output);
    EXPECT_THAT(lines, testing::Contains(
                           MatchesRegex(".*part.bdf:2:8: note: the number 123456789 is too long .*"
                                        "\\[tidy.nastran-number-large\\]")));
    EXPECT_THAT(lines, testing::Contains(MatchesRegex(".*mesh.bdf:2:1: note: coordinates of .*"
                                                      "\\[tidy.nastran-number-rounded\\]")));
    EXPECT_THAT(lines.back(), EndsWith(" notes"));
}

TEST_F(Tidy, WritesAMapOnDemand) {
    const std::string map = folder_.file("map.txt");
    EXPECT_EQ(runHost({"tidy", deck_, out_, "--map", map}).exitCode, 0);
    const std::vector<std::string> lines = linesOf(readText(map));
    ASSERT_EQ(lines.size(), 9u);
    EXPECT_EQ(lines[0], "kind\tid\toriginal id\tpart\tfile");
    EXPECT_THAT(lines[1], MatchesRegex("node\t1\t1\t\t.*mesh.bdf"));
    EXPECT_THAT(lines[6], MatchesRegex("element\t13\t123456789\t\t.*part.bdf"));
    EXPECT_THAT(lines[8], MatchesRegex("property\t1\t7\t\t.*part.bdf"));
}

TEST_F(Tidy, WritesNothingWhereAFileIsMissing) {
    std::filesystem::remove(folder_.path() / "mesh.bdf");
    folder_.write("out.nas", "keep me");
    const Outcome outcome =
        runHost({"tidy", "--report", deck_, out_, "--map", folder_.file("map.txt")});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, "kvocaeio: " + deck_ +
                                  ": cannot be tidied: the included file mesh.bdf is not there "
                                  "(line 1)\n");
    EXPECT_THAT(outcome.output, HasSubstr("part.bdf:1:1: error: the included file mesh.bdf"));
    EXPECT_EQ(readText(out_), "keep me");
    EXPECT_THAT(namesIn(folder_), ElementsAre("out.nas", "part.bdf"));
}

TEST_F(Tidy, NeverReplacesAFileThatItReads) {
    const std::string mesh = folder_.file("mesh.bdf");
    for (const auto& [out, error] :
         {std::pair(deck_, deck_ + ": cannot be written: it is the file that is read\n"),
          std::pair(mesh, deck_ +
                              ": cannot be tidied: the new deck would replace a file that is "
                              "read: " +
                              mesh + "\n")}) {
        const Outcome outcome = runHost({"tidy", deck_, out});
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_EQ(outcome.errors, "kvocaeio: " + error);
    }
    EXPECT_EQ(runHost({"tidy", deck_, out_, "--map", deck_}).exitCode, 1);
    EXPECT_EQ(runHost({"tidy", deck_, out_, "--map", out_}).exitCode, 1);
    EXPECT_EQ(readText(mesh), kNodes);
    EXPECT_EQ(readText(deck_), kDialect);
    EXPECT_THAT(namesIn(folder_), ElementsAre("mesh.bdf", "part.bdf"));
}

TEST_F(Tidy, AMapReplacesNoFileThatIsRead) {
    const std::string empty = folder_.write("loads.bdf", "$ no node, no element\n");
    folder_.write("part.bdf", "INCLUDE 'loads.bdf'\n" + std::string(kDialect));
    for (const std::string& map : {folder_.file("mesh.bdf"), empty}) {
        const std::string before = readText(map);
        const Outcome outcome = runHost({"tidy", deck_, out_, "--map", map});
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_EQ(outcome.errors,
                  "kvocaeio: " + map + ": cannot be written: the deck includes it\n");
        EXPECT_EQ(readText(map), before);
    }
    folder_.makeFolder("sub");
    EXPECT_EQ(runHost({"tidy", deck_, out_, "--map", folder_.file("sub") + "/../out.nas"}).exitCode,
              1);
    EXPECT_THAT(namesIn(folder_), ElementsAre("loads.bdf", "mesh.bdf", "part.bdf", "sub"));
}

TEST_F(Tidy, IncludesOfStandardInputAreInTheCurrentFolder) {
#if defined(_WIN32)
    const std::string change = "cd /d ";
#else
    const std::string change = "cd ";
#endif
    const std::string program = quote(nativePath(KVOCAEIO_PROGRAM));
    const std::string in = change + quote(folder_.path().string()) + " && " + program;
    const Outcome outcome =
        runShell(in + " tidy --map map.txt - out.nas <" + quote(folder_.file("part.bdf")));
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_EQ(readText(out_), kPlain);
    EXPECT_THAT(readText(folder_.file("map.txt")), HasSubstr("node\t5\t5\t\tmesh.bdf\nelement\t"));
    EXPECT_THAT(runShell(in + " check --tidy --brief - <" + quote(deck_)).output,
                HasSubstr("the first is element 12 "));
    const Outcome refused =
        runShell(in + " tidy --map mesh.bdf - other.nas <" + quote(folder_.file("part.bdf")));
    EXPECT_EQ(refused.errors, "kvocaeio: mesh.bdf: cannot be written: the deck includes it\n");
    EXPECT_EQ(readText(folder_.file("mesh.bdf")), kNodes);
}

TEST_F(Tidy, IncludesThatCannotBeFollowed) {
    folder_.makeFolder("sub");
    folder_.write("sub/back.bdf", "INCLUDE '../part.bdf'\n");
    for (const auto& [name, failure] :
         {std::pair("part.bdf",
                    "the file part.bdf includes itself, directly or through another "
                    "(line 1)\n"),
          std::pair("sub",
                    "the include sub is a folder or something else that is no file (line "
                    "1)\n")}) {
        folder_.write("part.bdf", "INCLUDE '" + std::string(name) + "'\nGRID,1\n");
        EXPECT_EQ(runHost({"tidy", deck_, out_}).errors,
                  "kvocaeio: " + deck_ + ": cannot be tidied: " + failure);
    }
    folder_.write("part.bdf", "\nINCLUDE 'sub/back.bdf'\nGRID,1\n");
    EXPECT_THAT(runHost({"tidy", deck_, out_}).errors,
                MatchesRegex(".*the file ../part.bdf includes itself.* .line 1 of .*back.bdf.\n"));
    EXPECT_FALSE(std::filesystem::exists(out_));
}

TEST_F(Tidy, AnIncludeThatClimbsOutIsTold) {
    folder_.makeFolder("sub");
    const std::string deck =
        folder_.write("sub/deck.bdf", "\nINCLUDE '../mesh.bdf'\nCTETRA,13,1,1,2,3,4\nPSOLID,1,1\n");
    const Outcome outcome = runHost({"tidy", "--report", deck, out_});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.output, HasSubstr("deck.bdf:2:1: note: the included file ../mesh.bdf is "
                                          "outside the deck's folder [tidy.include-outside]"));
}

TEST_F(Tidy, SaysThatPatranFilesNeedNone) {
    EXPECT_THAT(runHost({"tidy", sampleDeck("bracket.pat"), out_}).errors,
                EndsWith("bracket.pat: is of a format that needs no tidying (Patran neutral file); "
                         "it is read whole as it is\n"));
}

TEST_F(Tidy, ReportsAsJson) {
    const json report = reportOf({deck_, out_});
    EXPECT_EQ(report.at("status"), "ok");
    EXPECT_EQ(report.at("format"), "nastran");
    const json& written = report.at("written");
    EXPECT_TRUE(written.at("changed"));
    EXPECT_EQ(written.at("nodes"), 5);
    EXPECT_EQ(written.at("elements"), 2);
    EXPECT_EQ(written.at("properties"), 1);
    EXPECT_NEAR(written.at("deviation").get<double>(), 2.11e-7, 1e-12);
    EXPECT_FALSE(reportOf({out_, folder_.file("again.nas")}).at("written").at("changed"));
    std::filesystem::remove(folder_.path() / "mesh.bdf");
    const json failed = reportOf({deck_, out_});
    EXPECT_EQ(failed.at("status"), "failed");
    EXPECT_EQ(failed.at("written"), nullptr);
    EXPECT_EQ(failed.at("failure").at("code"), "not-tidied");
    EXPECT_EQ(reportOf({folder_.file("none.bdf"), out_}).at("failure").at("code"),
              "cannot-be-read");
}

TEST_F(Tidy, CheckTellsPlacesOfTheOriginal) {
    const Outcome outcome = runHost({"check", "--tidy", "--brief", deck_});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.output, HasSubstr("part.bdf: warning: elements have no volume or a "
                                          "negative one; the first is element 12 "));
    EXPECT_THAT(outcome.output, Not(HasSubstr("/deck")));
    const std::string turned = folder_.write(
        "part.bdf", "INCLUDE 'mesh.bdf'\nCTETRA,123456789,7,1,2,3,5\nPSOLID,7,1\nENDDATA\n");
    EXPECT_THAT(runHost({"check", "--tidy", turned}).output,
                HasSubstr("the first is element 123456789 "));
}

TEST_F(Tidy, CheckTellsOfAPlainDeckTheSameWithAndWithout) {
    const std::string plain = folder_.write("plain.nas", kPlain);
    const Outcome outcome = runHost({"check", plain});
    EXPECT_THAT(outcome.output, HasSubstr("element 12"));
    EXPECT_EQ(runHost({"check", "--tidy", plain}).output, outcome.output);
}

TEST_F(Tidy, CheckEndsWithThreeWhereItIsNotPossible) {
    std::filesystem::remove(folder_.path() / "mesh.bdf");
    const Outcome outcome = runHost({"check", "--tidy", deck_});
    EXPECT_EQ(outcome.exitCode, 3);
    EXPECT_THAT(outcome.output, HasSubstr("[tidy.include-missing]"));
}

TEST_F(Tidy, InfoReadsTheTidyDeck) {
    const Outcome outcome = runHost({"info", "--tidy", deck_});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.output, HasSubstr("by kind       2 tetrahedra\n"));
    EXPECT_THAT(outcome.output, HasSubstr("note     tidied before it was read: "));
    EXPECT_THAT(outcome.output, EndsWith("; kvocaeio check --tidy lists them\n"));
    EXPECT_EQ(runHost({"info", deck_}).exitCode, 1);
}

TEST_F(Tidy, InfoNamesPropertiesAsTheOriginalDoes) {
    const std::string deck =
        folder_.write("part.bdf", std::string(kDialect.substr(0, kDialect.find("ENDDATA"))) +
                                      "PSOLID,300000000,2\nPROD,5,3,12.\nENDDATA\n");
    EXPECT_THAT(runHost({"info", "--tidy", deck}).output,
                HasSubstr("   property  material  value\n"
                          "          7         1      0\n"
                          "  300000000         2      0\n"
                          "          5         3      3\n"));
    const json report = json::parse(runHost({"info", "--tidy", "--json", deck}).output);
    const json& properties = report.at("files").at(0).at("nastran").at("properties");
    EXPECT_EQ(properties.at(1).at("property"), 300000000);
}

TEST_F(Tidy, ConvertTidiesWhereItIsNeeded) {
    const std::string bolts = folder_.write("bolts.inp", kBolts);
    const Outcome outcome = runHost({"convert", bolts, out_});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_THAT(outcome.output, HasSubstr("out.nas: 8 nodes, 2 elements in "));
    EXPECT_THAT(outcome.output, HasSubstr("  note: tidied before it was read"));
    EXPECT_THAT(outcome.output,
                HasSubstr("  note: nodes are numbered anew: parts of the source number theirs "
                          "alike\n"));
    const Outcome plain = runHost({"convert", "--as-is", "--force", bolts, out_});
    EXPECT_THAT(plain.output, HasSubstr("out.nas: 4 nodes, 1 element in 1 section\n"));
    EXPECT_EQ(runHost({"convert", "--as-is", "--tidy", bolts, out_}).exitCode, 2);
}

TEST_F(Tidy, ConvertKeepsOidsWhereNoTwoAreAlike) {
    const std::string one =
        std::string(kBolts.substr(0, kBolts.find("*INSTANCE, NAME=RIGHT"))) + "*END ASSEMBLY\n";
    const Outcome outcome = runHost({"convert", folder_.write("bolt.inp", one), out_});
    EXPECT_THAT(outcome.output, HasSubstr("  note: tidied before it was read"));
    EXPECT_THAT(outcome.output, Not(HasSubstr("numbered")));
    EXPECT_THAT(readText(out_), HasSubstr("GRID   ,      14,       0,   0.000,   0.000,   1.000"));
    EXPECT_THAT(readText(out_),
                HasSubstr("CTETRA ,     15,      1,     11,     12,     13,     14"));
}

TEST_F(Tidy, LeavesNoTemporaryFiles) {
    folder_.makeFolder("temp");
#if defined(_WIN32)
    const std::string setting =
        "set TEMP=" + folder_.file("temp") + "&& set TMP=" + folder_.file("temp") + "&& ";
#else
    const std::string setting = "TMPDIR=" + quote(folder_.file("temp")) + " ";
#endif
    const std::string program = quote(nativePath(KVOCAEIO_PROGRAM));
    EXPECT_EQ(runShell(setting + program + " check --tidy " + quote(deck_)).exitCode, 1);
    std::filesystem::remove(folder_.path() / "mesh.bdf");
    EXPECT_EQ(runShell(setting + program + " info --tidy " + quote(deck_)).exitCode, 1);
    EXPECT_TRUE(std::filesystem::is_empty(folder_.path() / "temp"));
}

#if !defined(_WIN32)

TEST_F(Tidy, AFullDiskLeavesTheOldFileAlone) {
    std::string deck = "INCLUDE 'mesh.bdf'\n";
    for (int i = 1; i <= 500; ++i)
        deck += "CTETRA," + std::to_string(i) + ",7,1,2,3,4\n";
    folder_.write("part.bdf", deck + "PSOLID,7,1\nENDDATA\n");
    folder_.write("out.nas", "keep me");
    const Outcome outcome = runShell("trap '' XFSZ; ulimit -f 4; " + quote(KVOCAEIO_PROGRAM) +
                                     " tidy " + quote(deck_) + " " + quote(out_));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("the new deck cannot be written: File too large"));
    EXPECT_EQ(readText(out_), "keep me");
    EXPECT_THAT(namesIn(folder_), ElementsAre("mesh.bdf", "out.nas", "part.bdf"));
}

TEST_F(Tidy, AnInterruptionLeavesNoTemporaryFiles) {
    folder_.makeFolder("temp");
    std::string deck = "INCLUDE 'mesh.bdf'\n";
    for (int i = 1; i <= 200'000; ++i)
        deck += "CTETRA," + std::to_string(i) + ",7,1,2,3,4\n";
    folder_.write("part.bdf", deck + "PSOLID,7,1\nENDDATA\n");
    for (const char* after : {"0.05", "0.1", "0.2", "0.3"}) {
        const std::string line = "TMPDIR=" + quote(folder_.file("temp")) + " timeout -s INT " +
                                 after + " " + quote(KVOCAEIO_PROGRAM);
        runShell(line + " info --tidy " + quote(deck_));
        runShell(line + " tidy --quiet " + quote(deck_) + " " + quote(out_));
        EXPECT_TRUE(std::filesystem::is_empty(folder_.path() / "temp")) << after;
    }
    std::filesystem::remove(out_);
    EXPECT_THAT(namesIn(folder_), ElementsAre("mesh.bdf", "part.bdf", "temp"));
}

#endif

}  // namespace
}  // namespace kvocaeio::test
