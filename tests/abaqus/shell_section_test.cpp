/// Shell sections: material, set and thickness.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "abaqus/imported_deck.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What is stored of a keyword line's two parameters, as "material|elset".
std::string shellParameters(const std::string& keywordLine) {
    const std::string part = ImportedDeck(keywordLine + "\n").logOf(LogPart::kShells);
    const std::size_t material = part.find("material = ") + 11;
    const std::size_t elset = part.find(" , elset = ");
    if (elset == std::string::npos)
        return part;
    return part.substr(material, elset - material) + "|" +
           part.substr(elset + 11, part.find("\n", elset) - elset - 11);
}

/// The thickness that the data lines of one section give.
double thicknessOf(const std::string& dataLines) {
    ImportedDeck deck("*SHELL SECTION, ELSET=A, MATERIAL=M\n" + dataLines);
    return deck.shellSections().size() == 1 ? deck.shellSections()[0].thickness : -999.0;
}

TEST(ShellSection, TheFirstNumberOfTheLineIsTheThickness) {
    EXPECT_EQ(thicknessOf("0.25\n"), 0.25);
    EXPECT_EQ(thicknessOf("  1.5e-1, 5\n"), 0.15);
    EXPECT_EQ(thicknessOf("\t2 3\n"), 2.0);
    EXPECT_EQ(thicknessOf("-3x\n"), -3.0);
    EXPECT_EQ(thicknessOf("4e, 5"), 4.0);
}

TEST(ShellSection, TheLastDataLineSetsTheThickness) {
    EXPECT_EQ(thicknessOf("0.25, 5\n0.75, 3\n"), 0.75);
}

TEST(ShellSection, ALineWithoutANumberStoresTheValueBefore) {
    EXPECT_EQ(thicknessOf("0.25\nsteel\n"), 0.25);
    EXPECT_EQ(thicknessOf("0.25\n\n"), 0.25);
    EXPECT_EQ(thicknessOf("steel\n"), 0.0);
    EXPECT_EQ(thicknessOf(", 5\n"), 0.0);
}

TEST(ShellSection, CommentsAreNoDataLines) {
    EXPECT_EQ(thicknessOf("0.25\n** 0.75\n"), 0.25);
}

TEST(ShellSection, WithoutDataLinesTheThicknessIsZero) {
    EXPECT_EQ(thicknessOf(""), 0.0);
    EXPECT_EQ(thicknessOf("*NODE\n1, 2, 3, 4\n"), 0.0);
}

TEST(ShellSection, TheVariableIsZeroAtTheStartOfEachSection) {
    EXPECT_THAT(ImportedDeck("*SHELL SECTION, MATERIAL=M, ELSET=A\n0.5\n"
                             "*SHELL SECTION, MATERIAL=M, ELSET=B\nsteel\n")
                    .shellSections(),
                ElementsAre(ShellThickness{"A", 0.5}, ShellThickness{"B", 0.0}));
}

TEST(ShellSection, ParametersInEitherOrder) {
    EXPECT_EQ(shellParameters("*SHELL SECTION, MATERIAL=STEEL, ELSET=A"), "STEEL|A");
    EXPECT_EQ(shellParameters("*Shell Section, elset=a, offset=0, material=steel"), "STEEL|A");
}

TEST(ShellSection, ParameterValuesKeepTheirBlanks) {
    EXPECT_EQ(shellParameters("*SHELL SECTION, MATERIAL= PC + ABS , ELSET=TOP SIDE "),
              " PC + ABS |TOP SIDE ");
}

TEST(ShellSection, AbsentParametersAreEmpty) {
    EXPECT_EQ(shellParameters("*SHELL SECTION, MATERIAL=STEEL"), "STEEL|");
    EXPECT_EQ(shellParameters("*SHELL SECTION, ELSET=A, MATERIAL"), "|A");
    EXPECT_EQ(shellParameters("*SHELL SECTION, ELSET=A, MATERIAL="), "|A");
    EXPECT_EQ(shellParameters("*SHELL SECTION, MATERIAL=STEEL, ELSET"), "STEEL|");
}

TEST(ShellSection, MaterialInsideAnotherWordIsEnoughToReadOn) {
    EXPECT_EQ(shellParameters("*SHELL SECTION, ELSET=MATERIAL-1"), "|MATERIAL-1");
    EXPECT_EQ(shellParameters("*SHELL SECTION, ELSET=A, XMATERIAL=B"), "|A");
}

TEST(ShellSection, WithoutMaterialTheReadingEnds) {
    for (const char* line : {"*SHELL SECTION", "*SHELL SECTION, ELSET=A, COMPOSITE",
                             "*SHELL SECTION, ELSET=A, MATERIA=L"}) {
        ImportedDeck deck(std::string("*NODE\n1, 1, 2, 3\n") +
                          "*SHELL SECTION, MATERIAL=M, ELSET=B\n0.5\n" + line +
                          "\n0.7\n*NODE\n2, 4, 5, 6\n");
        EXPECT_TRUE(deck.result);
        EXPECT_THAT(deck.nodes(), ElementsAre(Node{1, 1, 2, 3})) << line;
        EXPECT_THAT(deck.shellSections(), ElementsAre(ShellThickness{"B", 0.5})) << line;
        EXPECT_THAT(deck.printed, testing::HasSubstr("Shell Section num = 1\n")) << line;
    }
}

TEST(ShellSection, GeneralSectionsAreUnknownKeywords) {
    ImportedDeck deck("*SHELL GENERAL SECTION, ELSET=A, MATERIAL=M\n1.0\n*NODE\n1, 1, 2, 3\n");
    EXPECT_THAT(deck.shellSections(), IsEmpty());
    EXPECT_THAT(deck.nodes(), ElementsAre(Node{1, 1, 2, 3}));
}

TEST(ShellSection, ALongNameIsCutTo79CharactersInTheRecordOnly) {
    const std::string name(200, 'N');
    ImportedDeck deck("*SHELL SECTION, MATERIAL=M, ELSET=" + name + "\n1\n");
    EXPECT_THAT(deck.shellSections(), ElementsAre(ShellThickness{std::string(79, 'N'), 1.0}));
    EXPECT_EQ(shellParameters("*SHELL SECTION, MATERIAL=M, ELSET=" + name), "M|" + name);
}

}  // namespace
}  // namespace kvocaeio::test
