/// `kvocaeio --version`: the program's version and that of the library that is loaded.
#include <gtest/gtest.h>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

TEST(Version, OfProgramAndLibrary) {
    const Outcome outcome = runHost({"--version"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.output, "kvocaeio 0.1.0\nlibrary 0.1.0\n");
}

#if defined(KVOCAEIO_OTHER_VERSION)

TEST(Version, SaysThatTheLibraryIsAnotherOne) {
    const Outcome outcome = runShell("LD_PRELOAD=" + quote(KVOCAEIO_OTHER_VERSION) + " " +
                                     quote(KVOCAEIO_PROGRAM) + " --version");
    EXPECT_EQ(outcome.output,
              "kvocaeio 0.1.0\n"
              "library 2.3.4, not the one that kvocaeio was built with (0.1.0)\n");
}

#endif

}  // namespace
}  // namespace kvocaeio::test
