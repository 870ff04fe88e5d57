/// Random files are read the same with a report and without.
#include <gtest/gtest.h>
#include <string>

#include "nastran/deck_generator.h"
#include "report/walks.h"

namespace kvocaeio::test {
namespace {

TEST_F(ReportedWalks, OfRandomFiles) {
    for (unsigned seed = 1; seed <= kWalkedSeeds && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        DeckGenerator generator(seed);
        expectTheSame(folder.write("deck.nas", generator.deck()));
        expectTheSame(folder.write("deck.nas", generator.nearlyPlainDeck()));
    }
    EXPECT_GT(files, kWalkedSeeds / 2);
}

}  // namespace
}  // namespace kvocaeio::test
