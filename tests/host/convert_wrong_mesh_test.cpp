/// Meshes that `kvocaeio convert` must not write, since the file would hold another one.
#include <gmock/gmock.h>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

/// The message on a conversion of `deck` that fails and leaves nothing behind.
std::string refusalOf(std::string_view deck, const std::vector<std::string>& options = {},
                      const std::string& name = "in.inp", const std::string& target = "out.nas") {
    const TempFolder folder;
    const std::string source = folder.write(name, deck);
    std::vector<std::string> arguments = {"convert", source, folder.file(target)};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const Outcome outcome = runHost(arguments);
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(namesIn(folder), ElementsAre(name));
    const std::size_t end = outcome.errors.find(": ", outcome.errors.find(folder.file("")));
    return outcome.errors.substr(std::min(end, outcome.errors.size()));
}

/// A tetrahedron with corners at 0 and at `size` on the axes.
std::string tetrahedron(const std::string& size) {
    return "*NODE\n1, 0, 0, 0\n2, " + size + ", 0, 0\n3, 0, " + size + ", 0\n4, 0, 0, " + size +
           "\n*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n";
}

TEST(ConvertRefuses, CoordinatesThatAreNoFiniteNumbers) {
    const std::string message = ": has 3 nodes with coordinates that are no finite numbers\n";
    EXPECT_EQ(refusalOf(tetrahedron("1e999"), {"--as-is"}), message);
    EXPECT_EQ(refusalOf(tetrahedron("nan"), {"--as-is"}), message);
    EXPECT_THAT(refusalOf(tetrahedron("nan")), StartsWith(": cannot be tidied: "));
    EXPECT_EQ(refusalOf(tetrahedron("1e300"), {"--scale", "1e9"}), message);
}

TEST(ConvertRefuses, NodesThatMeetByTheRounding) {
    const std::string front =
        ": cannot be written: coordinates have three decimals there, by which nodes of 1 element "
        "meet; ";
    EXPECT_EQ(refusalOf(tetrahedron("0.0004"), {"--unit", "m"}),
              front + "--unit cm --scale 100 would do\n");
    EXPECT_EQ(refusalOf(tetrahedron("0.000004"), {"--unit", "m"}),
              front + "--unit mm --scale 1000 would do\n");
    EXPECT_EQ(refusalOf(tetrahedron("0.0004")), front + "--scale 10 would do\n");
    EXPECT_EQ(refusalOf(tetrahedron("1e-40")), front + "no --scale would do\n");
}

TEST(ConvertRefuses, NodesThatMeetInSevenDigits) {
    EXPECT_EQ(refusalOf("*NODE\n1, 1000, 0, 0\n2, 1000.00001, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n"
                        "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n",
                        {}, "in.inp", "out.pat"),
              ": cannot be written: coordinates have seven digits there, by which nodes of 1 "
              "element meet; no --scale would do\n");
}

TEST(ConvertRefuses, ButNotNodesThatAreAtOnePlaceAnyway) {
    const TempFolder folder;
    const std::string deck = folder.write("in.inp",
                                          "*NODE\n1, 0, 0, 0\n2, 0, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n"
                                          "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n");
    EXPECT_EQ(runHost({"convert", deck, folder.file("out.nas")}).exitCode, 0);
}

TEST(ConvertRefuses, ButWritesWithTheScaleThatItNames) {
    const TempFolder folder;
    const std::string deck = folder.write("in.inp", tetrahedron("0.0004"));
    const std::string out = folder.file("out.nas");
    EXPECT_EQ(runHost({"convert", "--unit", "cm", "--scale", "100", deck, out}).exitCode, 0);
    EXPECT_THAT(readText(out),
                HasSubstr("GRID   ,       2,       0,   0.040,   0.000,   0.000,       0\n"));
    EXPECT_THAT(readText(out), HasSubstr("$ Mesh unit           = cm\n"));
}

// Two parts, each with its own node 2 and element 1.
constexpr std::string_view kParts =
    "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n"
    "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n"
    "*NODE\n1, 0, 0, 0\n2, 9, 0, 0\n5, 0, 0, 5\n"
    "*ELEMENT, TYPE=C3D4, ELSET=B\n1, 1, 2, 3, 5\n7, 1, 2, 4, 5\n7, 1, 2, 4, 5\n";

TEST(ConvertRefuses, OidsThatAreDefinedTwice) {
    const std::string message =
        ": 1 OID (2) of nodes and 1 OID (1) of elements are defined more than once with different "
        "content, as in a deck of several parts: give it in one numbering, or --force to take the "
        "last definition of each node and every element\n";
    EXPECT_EQ(refusalOf(kParts, {"--as-is"}), message);
    EXPECT_EQ(refusalOf(kParts, {"--as-is", "--normalised"}), message);
    EXPECT_EQ(refusalOf(kParts),
              ": is not converted: a node is defined again, and its last place counts (2 times, "
              "first in line 9): give each a number of its own, or --force to take the last "
              "definition\n");
}

TEST(ConvertRefuses, OidsThatAreDefinedTwiceUnlessForced) {
    const TempFolder folder;
    const std::string out = folder.file("out.nas");
    const Outcome outcome =
        runHost({"convert", "--as-is", "--force", folder.write("in.inp", kParts), out});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(ownLinesOf(outcome.output),
                ElementsAre(out + ": 5 nodes, 3 elements in 2 sections",
                            "  left out: 1 element listed again with the same OID and nodes",
                            "  left out: 2 nodes that no written element has",
                            "  note: 1 OID (2) of nodes and 1 OID (1) of elements are defined more "
                            "than once with different content: of nodes the last definition is "
                            "taken",
                            "  note: elements are numbered from 1: the file cannot hold their OIDs",
                            "  note: the deck needs a MAT1 card for material 1, which all sections "
                            "name"));
    EXPECT_THAT(readText(out),
                HasSubstr("GRID   ,       2,       0,   9.000,   0.000,   0.000,       0\n"));
}

// A surface on nodes, after which nothing is read.
const std::string kCutDeck = tetrahedron("1") + "*SURFACE, TYPE=NODE\n7\n";

TEST(ConvertRefuses, SourcesThatWereReadWrongly) {
    const std::string message = refusalOf(kCutDeck, {"--as-is"});
    EXPECT_THAT(message,
                HasSubstr(": is not converted for 1 error of the import, which is in line 8: "));
    EXPECT_THAT(message, EndsWith("in.inp shows all, and --force converts what was read\n"));
}

TEST(ConvertRefuses, SourcesThatWereReadWronglyUnlessForced) {
    const TempFolder folder;
    const Outcome outcome = runHost({"convert", "--as-is", "--force",
                                     folder.write("in.inp", kCutDeck), folder.file("out.nas")});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(linesOf(outcome.output).back(),
                testing::MatchesRegex("import: 1 error.* in 1 file; kvocaeio check lists them"));
}

TEST(ConvertRefuses, PatranFilesInWhichNothingIsRead) {
    EXPECT_EQ(refusalOf("no mesh\n", {}, "page.pat"),
              ": holds no nodes and no elements of a Patran neutral file\n");
    EXPECT_EQ(refusalOf("\x1f\x8b\x08\n", {}, "page.pat"),
              ": is compressed by gzip: unpack it first\n");
}

}  // namespace
}  // namespace kvocaeio::test
