/// Paths as URI references.
#include "check/uri.h"

#include <gtest/gtest.h>

namespace kvocaeio::host {
namespace {

TEST(Uri, OfRelativePaths) {
    EXPECT_EQ(uriOf("parts/a.inp", false), "parts/a.inp");
    EXPECT_EQ(uriOf("a b#1%.inp", false), "a%20b%231%25.inp");
    EXPECT_EQ(uriOf("a:b\\c.inp", false), "a%3Ab%5Cc.inp");
    EXPECT_EQ(uriOf("\xc3\xa4\xff.inp", false), "%C3%A4%FF.inp");
    EXPECT_EQ(uriOf("parts\\a.inp", true), "parts/a.inp");
}

TEST(Uri, OfAbsolutePaths) {
    EXPECT_EQ(uriOf("/parts/a.inp", false), "file:///parts/a.inp");
    EXPECT_EQ(uriOf("C:\\parts\\a.inp", true), "file:///C:/parts/a.inp");
    EXPECT_EQ(uriOf("\\\\server\\share\\a.inp", true), "file://server/share/a.inp");
}

}  // namespace
}  // namespace kvocaeio::host
