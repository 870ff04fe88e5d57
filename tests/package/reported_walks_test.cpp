/// Random files are read the same with a report and without.
#include <gtest/gtest.h>
#include <string>

#include "package/cadence_generator.h"
#include "package/package_generator.h"
#include "report/walks.h"

namespace kvocaeio::test {
namespace {

TEST_F(ReportedWalks, OfRandomFiles) {
    for (unsigned seed = 1; seed <= kWalkedSeeds && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        expectTheSame(folder.write("package.3di", PackageGenerator(seed).file()));
        const ReportTriple reports = ReportGenerator(seed).triple();
        for (std::size_t i = 0; i < reports.size(); ++i) {
            const std::string name = "CmdFile" + std::to_string(i + 1) + ".txt";
            std::filesystem::remove(folder.path() / name);
            if (reports[i])
                folder.write(name, *reports[i]);
        }
        expectTheSame(folder.path());
    }
    EXPECT_GT(files, kWalkedSeeds / 2);
}

}  // namespace
}  // namespace kvocaeio::test
