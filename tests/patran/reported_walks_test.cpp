/// Random files are read the same with a report and without.
#include <gtest/gtest.h>
#include <string>

#include "patran/neutral_generator.h"
#include "report/walks.h"

namespace kvocaeio::test {
namespace {

TEST_F(ReportedWalks, OfRandomFiles) {
    for (unsigned seed = 1; seed <= kWalkedSeeds && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        for (const std::string& file : NeutralGenerator(seed).files())
            expectTheSame(folder.write("file.pat", file));
    }
    EXPECT_GT(files, kWalkedSeeds / 2);
}

}  // namespace
}  // namespace kvocaeio::test
