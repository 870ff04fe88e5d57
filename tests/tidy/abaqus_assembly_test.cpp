/// A whole deck of parts, instances and steps, as modelling programs write them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tidy/tidied.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kAssembly =
    "*Heading\n"
    "** Job name: Job-1 Model name: Model-1\n"
    "*Preprint, echo=NO, model=NO, history=NO, contact=NO\n"
    "**\n"
    "** PARTS\n"
    "**\n"
    "*Part, name=Part-1\n"
    "*Node\n"
    "      1,           0.,           0.,           0.\n"
    "      2,           1.,           0.,           0.\n"
    "      3,           0.,           1.,           0.\n"
    "      4,           0.,           0.,           1.\n"
    "      5,           0.,           0.,          -1.\n"
    "*Element, type=C3D4\n"
    "1, 1, 2, 3, 4\n"
    "2, 1, 3, 2, 5\n"
    "*Nset, nset=Set-1, generate\n"
    " 1,  5,  1\n"
    "*Elset, elset=Set-1, generate\n"
    " 1,  2,  1\n"
    "** Section: Section-1\n"
    "*Solid Section, elset=Set-1, material=Steel\n"
    ",\n"
    "*End Part\n"
    "**\n"
    "*Part, name=Shell\n"
    "*Node\n"
    "1, 0., 0., 0.\n"
    "2, 1., 0., 0.\n"
    "3, 1., 1., 0.\n"
    "4, 0., 1., 0.\n"
    "*Element, type=S4R\n"
    "1, 1, 2, 3, 4\n"
    "*Elset, elset=_PickedSet2, internal\n"
    " 1,\n"
    "** Section: sh\n"
    "*Shell Section, elset=_PickedSet2, material=Steel\n"
    "0.5, 5\n"
    "*End Part\n"
    "**\n"
    "** ASSEMBLY\n"
    "**\n"
    "*Assembly, name=Assembly\n"
    "**\n"
    "*Instance, name=Part-1-1, part=Part-1\n"
    "*End Instance\n"
    "**\n"
    "*Instance, name=Part-1-2, part=Part-1\n"
    "          5.,           0.,           0.\n"
    "          5.,           0.,           0.,           5.,           0.,           1.,          "
    "90.\n"
    "*End Instance\n"
    "*Instance, name=Shell-1, part=Shell\n"
    "          0.,           0.,           7.\n"
    "*End Instance\n"
    "*Node\n"
    "      1,   1.,   2.,  3.\n"
    "*Nset, nset=_PickedSet10, internal\n"
    " 1,\n"
    "*Elset, elset=__PickedSurf7_S1, internal, instance=Part-1-1\n"
    " 1,\n"
    "*Elset, elset=__PickedSurf7_S3, internal, instance=Part-1-2, generate\n"
    " 1, 2, 1\n"
    "*Surface, type=ELEMENT, name=_PickedSurf7, internal\n"
    "__PickedSurf7_S1, S1\n"
    "__PickedSurf7_S3, S3\n"
    "*Elset, elset=__T_SPOS, internal, instance=Shell-1\n"
    " 1,\n"
    "*Surface, type=ELEMENT, name=T\n"
    "__T_SPOS, SPOS\n"
    "*Surface, type=NODE, name=N_CNS_, internal\n"
    "_PickedSet10, 1.\n"
    "*Elset, elset=Both, instance=Part-1-1\n"
    "1,\n"
    "*Elset, elset=Both, instance=Part-1-2\n"
    "2,\n"
    "*Coupling, constraint name=C, ref node=_PickedSet10, surface=T\n"
    "*Kinematic\n"
    "*End Assembly\n"
    "*Material, name=Steel\n"
    "*Elastic\n"
    "210000., 0.3\n"
    "*Step, name=Step-1, nlgeom=NO\n"
    "*Static\n"
    "1., 1., 1e-05, 1.\n"
    "*Boundary\n"
    "Part-1-1.Set-1, ENCASTRE\n"
    "*Dsload\n"
    "_PickedSurf7, P, 10.\n"
    "*Dload\n"
    "Both, P2, 3.\n"
    ", GRAV, 9.8, 0., 0., -1.\n"
    "*Restart, write, frequency=0\n"
    "*Output, field, variable=PRESELECT\n"
    "*End Step\n";

TEST(TidyAbaqusAssembly, AllThatTheReaderHoldsArrives) {
    const Tidied deck = tidyText(kAssembly, CKVODeckTidy::kAbaqus);
    EXPECT_TRUE(deck.isDone);
    EXPECT_EQ(deck.text,
              "** Tidy deck\n"
              "*NODE\n"
              "1, 0, 0, 0\n"
              "2, 1, 0, 0\n"
              "3, 0, 1, 0\n"
              "4, 0, 0, 1\n"
              "5, 0, 0, -1\n"
              "6, 5, 0, 0\n"
              "7, 5, 1, 0\n"
              "8, 4, 0, 0\n"
              "9, 5, 0, 1\n"
              "10, 5, 0, -1\n"
              "11, 0, 0, 7\n"
              "12, 1, 0, 7\n"
              "13, 1, 1, 7\n"
              "14, 0, 1, 7\n"
              "15, 1, 2, 3\n"
              "*ELEMENT, TYPE=C3D4\n"
              "1, 1, 2, 3, 4\n"
              "2, 1, 3, 2, 5\n"
              "*ELEMENT, TYPE=C3D4\n"
              "3, 6, 7, 8, 9\n"
              "4, 6, 8, 7, 10\n"
              "*ELEMENT, TYPE=S4R\n"
              "5, 11, 12, 13, 14\n"
              "*ELSET, ELSET=PART-1-1.SET-1\n"
              "1, 2\n"
              "*ELSET, ELSET=PART-1-2.SET-1\n"
              "3, 4\n"
              "*ELSET, ELSET=_PICKEDSET2\n"
              "5\n"
              "*ELSET, ELSET=BOTH\n"
              "1, 4\n"
              "*ELSET, ELSET=__PICKEDSURF7_S1\n"
              "1\n"
              "*ELSET, ELSET=__PICKEDSURF7_S3\n"
              "3, 4\n"
              "*ELSET, ELSET=__T_SPOS\n"
              "5\n"
              "*SHELL SECTION, ELSET=_PICKEDSET2, MATERIAL=STEEL\n"
              "0.5\n"
              "*SURFACE, TYPE=ELEMENT, NAME=_PICKEDSURF7\n"
              "__PICKEDSURF7_S1, S1\n"
              "__PICKEDSURF7_S3, S3\n"
              "*DLOAD\n"
              "1, P1, 10\n"
              "3, P3, 10\n"
              "4, P3, 10\n"
              "1, P2, 3\n"
              "4, P2, 3\n");
    EXPECT_THAT(deck.others,
                ElementsAre("69:11 tidy.abaqus-face-unread", "70:1 tidy.abaqus-surface-unread"));
    EXPECT_EQ(deck.elementOrigins, "1<1 2<2 3<1 4<2 5<1");
}

TEST(TidyAbaqusAssembly, EachInstanceHasTheShellSectionsOfItsPart) {
    const Tidied deck = tidyText(
        "*PART, NAME=P\n*NODE\n1\n*ELEMENT, TYPE=S8R, ELSET=A\n1, 1, 1, 1, 1, 1, 1, 1, 1\n"
        "*SHELL SECTION, ELSET=A, MATERIAL=M\n1.5\n*SOLID SECTION, ELSET=A, MATERIAL=M\n,\n"
        "*END PART\n*ASSEMBLY, NAME=ALL\n*INSTANCE, NAME=I, PART=P\n*END INSTANCE\n"
        "*INSTANCE, NAME=J, PART=P\n*END INSTANCE\n*END ASSEMBLY\n",
        CKVODeckTidy::kAbaqus);
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n1, 0, 0, 0\n2, 0, 0, 0\n*ELEMENT, TYPE=S4, ELSET=I.A\n"
              "1, 1, 1, 1, 1\n*ELEMENT, TYPE=S4, ELSET=J.A\n2, 2, 2, 2, 2\n"
              "*SHELL SECTION, ELSET=I.A, MATERIAL=M\n1.5\n"
              "*SHELL SECTION, ELSET=J.A, MATERIAL=M\n1.5\n");
}

TEST(TidyAbaqusAssembly, AnInstanceMayAddToThePartThatOthersPlace) {
    const Tidied deck = tidyText(
        "*PART, NAME=P\n*NODE\n1\n*ELEMENT, TYPE=C3D4\n1, 1, 1, 1, 1\n*END PART\n"
        "*ASSEMBLY, NAME=ALL\n*INSTANCE, NAME=I, PART=P\n*NODE\n2, 5, 0, 0\n"
        "*ELSET, ELSET=A\n1\n*END INSTANCE\n*INSTANCE, NAME=J, PART=P\n*END INSTANCE\n"
        "*DLOAD\nI.A, P1, 1\nJ.1, P2, 2\n*END ASSEMBLY\n",
        CKVODeckTidy::kAbaqus);
    EXPECT_EQ(deck.text,
              "** Tidy deck\n*NODE\n1, 0, 0, 0\n2, 5, 0, 0\n3, 0, 0, 0\n"
              "*ELEMENT, TYPE=C3D4\n1, 1, 1, 1, 1\n*ELEMENT, TYPE=C3D4\n2, 3, 3, 3, 3\n"
              "*ELSET, ELSET=A\n1\n*DLOAD\n1, P1, 1\n2, P2, 2\n");
    EXPECT_THAT(deck.others, IsEmpty());
}

}  // namespace
}  // namespace kvocaeio::test
