/// The example programs, and their place in the documentation.
#include <gmock/gmock.h>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

using testing::Contains;
using testing::HasSubstr;

TEST(Examples, CountPrintsItsLineBehindTheProgressLines) {
    const Outcome outcome = runProgram(KVOCAEIO_EXAMPLE_COUNT, {sampleDeck("housing.inp")});
    EXPECT_EQ(outcome.exitCode, 0);
    ASSERT_FALSE(linesOf(outcome.output).empty());
    EXPECT_EQ(linesOf(outcome.output).back(), "1253 nodes, 4 sections of solids, 2 of shells");
}

TEST(Examples, CountFailsWithoutADeck) {
    EXPECT_EQ(runProgram(KVOCAEIO_EXAMPLE_COUNT, {"nowhere.inp"}).exitCode, 1);
}

TEST(Examples, TablesPrintsNodesAndElementsInNewNumbers) {
    const TempFolder folder;
    const Outcome outcome = runProgram(
        KVOCAEIO_EXAMPLE_TABLES,
        {folder.write("tet.inp",
                      "*NODE\n10, 0, 0, 0\n30, 1.5, 0, 0\n20, 0, 1, 0\n40, 0, 0, 1\n"
                      "*ELEMENT, TYPE=C3D4, ELSET=TET\n7, 10, 30, 20, 40\n*DLOAD\n7, P1, 2.0\n")});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.output, HasSubstr("nodes\n 10 0 0 0\n 30 1.5 0 0\n 20 0 1 0\n 40 0 0 1\n"
                                          "section TET, 1 elements\n 0 1 2 3\n"
                                          "section Dload_Shell, 1 elements\n 0 2 1 1\n"));
}

TEST(Examples, TheReadmeShowsTheSmallestProgramAsItIsCompiled) {
    const std::string program = readText(sourceFile("examples/count.cpp"));
    ASSERT_FALSE(program.empty());
    EXPECT_THAT(readText(sourceFile("README.md")), HasSubstr("```cpp\n" + program + "```\n"));
}

}  // namespace
}  // namespace kvocaeio::test
