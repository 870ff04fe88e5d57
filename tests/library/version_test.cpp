/// The version of the loaded library, as a number that a host can compare with its headers.
#include <gtest/gtest.h>
#include <string>

#include <kvocaeio/version.h>

namespace kvocaeio::test {
namespace {

TEST(Version, OfTheLibraryIsThatOfItsHeaders) {
    EXPECT_EQ(kvocaeio_version(), KVOCAEIO_VERSION);
}

TEST(Version, IsOneNumberThatGrowsWithEveryRelease) {
    const int version = kvocaeio_version();
    EXPECT_EQ(std::to_string(version / 1'000'000) + '.' + std::to_string(version / 1'000 % 1'000) +
                  '.' + std::to_string(version % 1'000),
              KVOCAEIO_CMAKE_VERSION);
}

}  // namespace
}  // namespace kvocaeio::test
