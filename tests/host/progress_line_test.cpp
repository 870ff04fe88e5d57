/// The line on the terminal while something takes long.
#include "progress_line.h"

#include <gmock/gmock.h>
#include <sstream>

namespace kvocaeio::test {
namespace {

using host::ProgressLine;
using testing::EndsWith;
using testing::StartsWith;

TEST(ProgressLine, ComesWithTheFirstStepAndGoes) {
    std::ostringstream out;
    {
        const ProgressLine line("reading", out, std::chrono::milliseconds(5));
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    EXPECT_THAT(out.str(), StartsWith("\rkvocaeio: reading, 1 s\rkvocaeio: reading, 2 s"));
    EXPECT_THAT(out.str(), EndsWith(" s\r\033[K"));
}

TEST(ProgressLine, IsNotThereForWhatIsQuick) {
    std::ostringstream out;
    { const ProgressLine line("reading", out, std::chrono::hours(1)); }
    EXPECT_EQ(out.str(), "");
}

}  // namespace
}  // namespace kvocaeio::test
