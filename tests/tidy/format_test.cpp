#include "tidy/format.h"

#include <gtest/gtest.h>
#include <string>

#include "support/files.h"

namespace {

using kvocaeio::test::TempFolder;
using kvocaeio::tidy::DeckFormat;
using kvocaeio::tidy::recogniseDeck;
using kvocaeio::tidy::recogniseText;

TEST(TidyFormat, KeywordsAndCommentsOfAbaqusDecks) {
    EXPECT_EQ(recogniseText("*HEADING\na part\n"), DeckFormat::kAbaqus);
    EXPECT_EQ(recogniseText("** written by a program\n"), DeckFormat::kAbaqus);
    EXPECT_EQ(recogniseText("\xEF\xBB\xBF\n\n  *Node\n"), DeckFormat::kAbaqus);
}

TEST(TidyFormat, StatementsCardsAndCommentsOfNastranDecks) {
    EXPECT_EQ(recogniseText("$ written by a program\n"), DeckFormat::kNastran);
    EXPECT_EQ(recogniseText("SOL 101\r\nCEND\r\n"), DeckFormat::kNastran);
    EXPECT_EQ(recogniseText("grid,1,,0.,0.,0.\n"), DeckFormat::kNastran);
    EXPECT_EQ(recogniseText("some words\nGRID*                  1\n"), DeckFormat::kNastran);
    EXPECT_EQ(recogniseText("include 'mesh.bdf'\n"), DeckFormat::kNastran);
}

TEST(TidyFormat, TheContinuationOfALargeFieldIsNoKeyword) {
    EXPECT_EQ(recogniseText("*                    3.0\nGRID           1\n"), DeckFormat::kNastran);
}

TEST(TidyFormat, AnythingElseIsUnknown) {
    EXPECT_EQ(recogniseText(""), DeckFormat::kUnknown);
    EXPECT_EQ(recogniseText("\n\n\n"), DeckFormat::kUnknown);
    EXPECT_EQ(recogniseText("GRIDS of squares\n1, 2, 3\n"), DeckFormat::kUnknown);
}

TEST(TidyFormat, OfAFileByItsContentAndNotByItsName) {
    const TempFolder folder;
    const std::string path = folder.write("deck.inp", std::string(100'000, '\n') + "GRID,1\n");
    EXPECT_EQ(recogniseDeck({path, path}), DeckFormat::kNastran);
    EXPECT_EQ(recogniseDeck({folder.file("none"), ""}), DeckFormat::kUnknown);
    EXPECT_EQ(recogniseDeck({folder.path(), ""}), DeckFormat::kUnknown);
}

}  // namespace
