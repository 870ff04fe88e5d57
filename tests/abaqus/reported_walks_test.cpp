/// Random files are read the same with a report and without.
#include <gtest/gtest.h>
#include <string>

#include "abaqus/deck_generator.h"
#include "abaqus/normalise_generator.h"
#include "fuzz/long_numbers.h"
#include "report/walks.h"

namespace kvocaeio::test {
namespace {

TEST_F(ReportedWalks, OfRandomFiles) {
    for (unsigned seed = 1; seed <= kWalkedSeeds && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        for (const std::string& deck : {DeckGenerator(seed).deck(), randomDeck(seed).text})
            // A generated set may name more elements than a test should hold.
            if (!hasLongNumber(deck, 4))
                expectTheSame(folder.write("deck.inp", deck));
    }
    EXPECT_GT(files, kWalkedSeeds / 2);
}

}  // namespace
}  // namespace kvocaeio::test
