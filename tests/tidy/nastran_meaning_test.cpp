/// What the cards of Nastran decks mean: places, sections and numbers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <utility>

#include "tidy/nastran_cards.h"

namespace {

using kvocaeio::test::cardsOf;
using kvocaeio::test::kBar;
using kvocaeio::test::TempFolder;
using kvocaeio::test::Tidied;
using kvocaeio::test::tidiedNastran;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Origin at (1, 2, 3); z along the basic x, x along the basic y, and so y along the basic z.
constexpr std::string_view kTurned =
    "CORD2R,5,,1.,2.,3.,2.,2.,3.,+\n"
    "+,1.,5.,3.\n";

TEST(TidyNastranMeaning, PlacesInFramesThatAreChainedInAnyOrder) {
    const std::string places = cardsOf(
        "GRID,1,7,1.,0.,0.\nGRID,2,6,2.,90.,1.\nGRID,3,5,10.,20.,30.\nGRID,4,0,1.,2.,3.\n"
        "CORD2R*                7               6              0.              0.\n"
        "*                     0.              0.              0.              1.\n"
        "*                     1.              0.              0.\n"
        "CORD2C         6       5      0.      0.      0.      0.      0.      1.\n"
        "              1.      0.      0.\n" +
        std::string(kTurned));
    EXPECT_EQ(places,
              "GRID           1              1.      3.      3.\n"
              "GRID           2              2.      2.      5.\n"
              "GRID           3             31.     12.     23.\n"
              "GRID           4              1.      2.      3.\n");
}

TEST(TidyNastranMeaning, FramesByGridPointsInOtherFrames) {
    // Both frames of one card; the points of the first stand in frame 5, those of the second, among
    // them the basic origin, in the first and the basic one.
    const std::string deck =
        "GRID,20,8,10.,20.,30.\nGRID,21,9,1.,90.,2.\n"
        "CORD1R,8,1,2,3,+C\nCORD1C,9,4,5,6\n+C\n"
        "GRID,1,5,0.,0.,0.\nGRID,2,5,0.,0.,1.\nGRID,3,,1.,5.,3.\n"
        "GRID,4,8,0.,0.,0.\nGRID,5,8,0.,0.,1.\nGRID,6,8,1.,0.,0.\n" +
        std::string(kTurned);
    const std::string places = cardsOf(deck);
    EXPECT_THAT(places, HasSubstr("GRID          20             31.     12.     23.\n"));
    EXPECT_THAT(places, HasSubstr("GRID          21              3.      2.      4.\n"));
    const std::string both = cardsOf(
        "GRID,20,18,1.,0.,0.\nGRID,21,19,1.,0.,0.\nCORD1R,18,1,2,3,19,1,3,2\n"
        "GRID,1,,0.,0.,0.\nGRID,2,,0.,0.,1.\nGRID,3,,1.,0.,0.\n");
    EXPECT_THAT(both, HasSubstr("GRID          20              1.      0.      0.\n"
                                "GRID          21              0.      0.      1.\n"));
}

TEST(TidyNastranMeaning, SphericalPlaces) {
    EXPECT_EQ(
        cardsOf("CORD2S,5,,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\nGRID,1,5,2.,90.,90.\nGRID,2,5,2.,0.,7.\n"
                "GRID,3,5,2.,30.,180.\n"),
        "GRID           1              0.      2.      0.\n"
        "GRID           2              0.      0.      2.\n"
        "GRID           3             -1.      0.1.732051\n");
}

TEST(TidyNastranMeaning, TheDefaultFrame) {
    const Tidied result = tidiedNastran(
        "GRID,1,,0.,0.,0.\nGRID,2,0,0.,0.,0.\nGRID,3,6,4.,0.,0.\ngrdset,,5\n"
        "CORD2R,6,,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n" +
        std::string(kTurned) + std::string(kBar));
    EXPECT_THAT(result.text, HasSubstr("GRID           1              1.      2.      3.\n"
                                       "GRID           2              0.      0.      0.\n"
                                       "GRID           3              4.      0.      0.\n"));
}

TEST(TidyNastranMeaning, FramesThatCannotBe) {
    for (const auto& [cards, code] :
         {std::pair("GRID,1,5\n", "1:8 tidy.nastran-frame-missing"),
          std::pair("GRID,1,5\nCORD2R,5,6,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n",
                    "1:8 tidy.nastran-frame-wrong"),
          std::pair("GRID,1,5\nCORD1R,5,1,2,3\nGRID,2\nGRID,3,,1.\n",
                    "1:8 tidy.nastran-frame-wrong"),
          std::pair("GRID,1,5\nCORD2R,5,,0.,0.,0.,0.,0.,1.\n,0.,0.,2.\n",
                    "1:8 tidy.nastran-frame-wrong"),
          std::pair("GRID,1,-5\n", "1:8 tidy.nastran-id-unreadable")}) {
        const Tidied result = tidiedNastran(std::string(cards) + std::string(kBar));
        EXPECT_FALSE(result.isDone);
        EXPECT_THAT(result.others, ElementsAre(code));
    }
}

TEST(TidyNastranMeaning, AreasOfAllCrossSections) {
    for (const auto& [section, area] : {
             std::pair("BAR\n,2.,4.", "      8."),
             std::pair("BOX\n,10.,6.,1.,2.", "     36."),
             std::pair("BOX1\n,10.,6.,1.,2.,1.,3.", "     42."),
             std::pair("CHAN\n,4.,10.,1.,2.", "     22."),
             std::pair("CHAN1\n,3.,1.,6.,10.", "     22."),
             std::pair("CHAN2\n,1.,2.,5.,8.", "     22."),
             std::pair("CROSS\n,4.,1.,6.,2.", "     14."),
             std::pair("H\n,4.,2.,6.,1.", "     16."),
             std::pair("HAT\n,5.,1.,4.,3.", "     18."),
             std::pair("HEXA\n,1.,6.,4.", "     20."),
             std::pair("I\n,10.,4.,6.,1.,2.,1.", "     21."),
             std::pair("I1\n,4.,1.,6.,10.", "     26."),
             std::pair("L\n,4.,6.,1.,2.", "     14."),
             std::pair("ROD\n,2.", "12.56637"),
             std::pair("T\n,6.,8.,1.,2.", "     20."),
             std::pair("T1\n,8.,5.,2.,1.", "     21."),
             std::pair("T2\n,6.,8.,1.,2.", "     20."),
             std::pair("TUBE\n,2.,1.", "9.424778"),
             std::pair("TUBE2\n,2.,.5", "5.497787"),
             std::pair("Z\n,3.,1.,6.,10.", "     22."),
             std::pair("Rod\n,2.,99.", "12.56637"),  // a mass follows
         }) {
        const std::string card =
            "       1       3" + std::string(8 - std::string(area).size(), ' ') + area + "\n";
        EXPECT_EQ(cardsOf("PBARL,7,3,," + std::string(section) + "\n"), "PBAR    " + card);
        EXPECT_EQ(cardsOf("PBEAML,7,3,MSCBML0," + std::string(section) + "\n"), "PBEAM   " + card);
    }
}

TEST(TidyNastranMeaning, AnAreaThatIsNotKnownIsTold) {
    const Tidied result =
        tidiedNastran("GRID,1\nPBARL,1,3,,STAR\n,1.\nPBARL,2,3,,BOX\n,1.,2.\n" + std::string(kBar));
    EXPECT_THAT(result.text, HasSubstr("PBAR           1       3\nPBAR           2       3\n"));
    EXPECT_THAT(result.others,
                ElementsAre("2:12 tidy.nastran-area-unknown", "4:12 tidy.nastran-area-unknown"));
    EXPECT_TRUE(result.isDone);
}

TEST(TidyNastranMeaning, ReplicationsThatCountThemselves) {
    const std::string meant =
        "GRID         101              1.    10.5      0.\n"
        "GRID         102            1.25    10.5      0.\n"
        "GRID         103             1.5    10.5      0.\n"
        "GRID         104            1.75    10.5      0.\n"
        "GRID         105              2.    10.5      0.\n";
    for (const std::string_view replication :
         {"=,*1,=,*.25,==\n=3\n", "=,*(1),=,*(0.25),==$\n=(3)\n", "=(4),*(1),=,*(.25),==\n",
          "=4,*1,=,*.25,==\n", "=(4),*(1),=,%(2.),==\n", "=4,%105,=,%2.,==\n",
          "=             *1       =    *.25      ==\n=3\n",
          "=(4)        *(1)       =   %(2.)      ==\n", "=,*1,=,*.25,==\n=,*1,=,*.25,==\n=(2)\n"})
        EXPECT_EQ(cardsOf("GRID,101,,1.,10.5,,7,3456\n" + std::string(replication)), meant)
            << replication;
}

TEST(TidyNastranMeaning, ReplicationsThatAreNotDefined) {
    for (const std::string_view replication :
         {"=,*1,==,\n=(x)\n", "=(4),%103,==\n", "=(4),*1,=,%2.,==\n=(2)\n", "=(-1),*1,==\n",
          "=,*1,=,*x,==\n", "=,*1,=,=3,==\n"}) {
        const Tidied result =
            tidiedNastran("GRID,101,,1.,10.5\n" + std::string(replication) + std::string(kBar));
        EXPECT_FALSE(result.isDone) << replication;
        EXPECT_THAT(result.others, Contains(HasSubstr("tidy.nastran-replication-wrong")))
            << replication;
    }
    EXPECT_THAT(tidiedNastran("GRID,101\n$\n=,*x\n" + std::string(kBar)).others,
                ElementsAre("3:1 tidy.nastran-replication-wrong"));
}

TEST(TidyNastranMeaning, ElementsThatTheReaderHasNoRowForAreWarnedOf) {
    for (const std::string_view name :
         {"CBUSH", "CELAS1", "CONM2", "CONROD", "RBE2", "RBE3", "CGAP", "PCOMP", "CIHEX1", "CWEDGE",
          "CMASS2", "CQUADX", "CTRIAX6"})
        EXPECT_THAT(
            tidiedNastran("GRID,1\n" + std::string(name) + ",4,1,1,1\n" + std::string(kBar)).others,
            ElementsAre("2:1 tidy.nastran-element-left-out"))
            << name;
    EXPECT_THAT(tidiedNastran("GRID,1\nMAT1,4,1.\nSPC1,4,123,1\n" + std::string(kBar)).others,
                IsEmpty());
}

TEST(TidyNastranMeaning, TheWayBackOfEachThing) {
    const TempFolder folder;
    const std::string mesh = folder.write("mesh.bdf", "GRID,7\nGRID,300000000\n=,*1,==\n=(2)\n");
    const std::string deck = folder.write(
        "deck",
        "PROD,40,1,1.\nCROD,5,40,7,300000000\nINCLUDE 'mesh.bdf'\nCROD,400000000,8,7,300000001\n"
        "PROD,8,1,1.\nCROD,6,8,7,300000002\nPROD,40,1,1.\nGRID,2\n");
    const std::string map = folder.file("map");
    CKVODeckTidy tidy;
    ASSERT_TRUE(tidy.Tidy(deck.c_str(), nullptr, CKVODeckTidy::kNastran, nullptr));
    ASSERT_TRUE(tidy.WriteMap(map.c_str()));
    EXPECT_EQ(kvocaeio::test::readText(map),
              "kind\tid\toriginal id\tpart\tfile\n"
              "node\t7\t7\t\t" +
                  mesh +
                  "\n"
                  "node\t8\t300000000\t\t" +
                  mesh +
                  "\n"
                  "node\t9\t300000001\t\t" +
                  mesh +
                  "\n"
                  "node\t10\t300000002\t\t" +
                  mesh +
                  "\n"
                  "node\t11\t300000003\t\t" +
                  mesh +
                  "\n"
                  "node\t2\t2\t\t" +
                  deck +
                  "\n"
                  "element\t5\t5\t\t" +
                  deck +
                  "\n"
                  "element\t7\t400000000\t\t" +
                  deck +
                  "\n"
                  "element\t6\t6\t\t" +
                  deck +
                  "\n"
                  "property\t1\t40\t\t" +
                  deck +
                  "\n"
                  "property\t2\t8\t\t" +
                  deck +
                  "\n"
                  "property\t3\t40\t\t" +
                  deck + "\n");
}

}  // namespace
