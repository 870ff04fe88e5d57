/// What tidying promises of every Abaqus deck, held against all that the tests have.
#include <gtest/gtest.h>
#include <string>

#include "abaqus/deck_generator.h"
#include "abaqus/normalise_generator.h"
#include "tidy/tidied.h"

namespace {

using kvocaeio::test::DeckGenerator;
using kvocaeio::test::expectAllStayTidy;
using kvocaeio::test::kRandomDecks;
using kvocaeio::test::staysTidy;
using kvocaeio::test::TempFolder;

TEST(TidyAbaqusPromises, ATidyDeckStaysAsItIsWhateverItWas) {
    const TempFolder folder;
    int tidied = 0;
    for (unsigned seed = 1; seed <= kRandomDecks; ++seed) {
        DeckGenerator generator(seed);
        EXPECT_TRUE(staysTidy(folder, folder.write("deck", generator.deck()), CKVODeckTidy::kAbaqus,
                              tidied))
            << seed;
        EXPECT_TRUE(staysTidy(folder, folder.write("deck", kvocaeio::test::randomDeck(seed).text),
                              CKVODeckTidy::kAbaqus, tidied))
            << seed;
    }
    EXPECT_GT(tidied, 20);
}

TEST(TidyAbaqusPromises, SamplesStayTidy) {
    const std::string sources = KVOCAEIO_SOURCES;
    expectAllStayTidy(sources + "/examples/data", ".inp", CKVODeckTidy::kAbaqus);
    expectAllStayTidy(sources + "/tests/fuzz/corpus/abaqus", "", CKVODeckTidy::kAbaqus);
    expectAllStayTidy(sources + "/tests/fuzz/corpus/tidy_abaqus", "", CKVODeckTidy::kAbaqus);
}

}  // namespace
