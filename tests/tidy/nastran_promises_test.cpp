/// What tidying promises of every Nastran deck, held against all that the tests have.
#include <gtest/gtest.h>
#include <string>

#include "nastran/deck_generator.h"
#include "tidy/tidied.h"

namespace {

using kvocaeio::test::DeckGenerator;
using kvocaeio::test::expectAllStayTidy;
using kvocaeio::test::kRandomDecks;
using kvocaeio::test::staysTidy;
using kvocaeio::test::TempFolder;

TEST(TidyNastranPromises, ATidyDeckStaysAsItIsWhateverItWas) {
    const TempFolder folder;
    int tidied = 0;
    for (unsigned seed = 1; seed <= kRandomDecks; ++seed) {
        DeckGenerator generator(seed);
        EXPECT_TRUE(staysTidy(folder, folder.write("deck", generator.deck()),
                              CKVODeckTidy::kNastran, tidied))
            << seed;
        EXPECT_TRUE(staysTidy(folder, folder.write("deck", generator.nearlyPlainDeck()),
                              CKVODeckTidy::kNastran, tidied))
            << seed;
    }
    EXPECT_GT(tidied, 20);
}

TEST(TidyNastranPromises, SamplesStayTidy) {
    const std::string sources = KVOCAEIO_SOURCES;
    expectAllStayTidy(sources + "/examples/data", ".bdf", CKVODeckTidy::kNastran);
    expectAllStayTidy(sources + "/tests/fuzz/corpus/nastran", "", CKVODeckTidy::kNastran);
    expectAllStayTidy(sources + "/tests/fuzz/corpus/tidy_nastran", "", CKVODeckTidy::kNastran);
}

}  // namespace
