/// Scanning and formatting where the host has set a locale with a decimal comma.
#include <gtest/gtest.h>
#include <string>

#include "support/comma_locale.h"
#include "support/files.h"
#include "text/file.h"
#include "text/format.h"
#include "text/scan.h"

namespace kvocaeio::text {
namespace {

class InACommaLocale : public testing::Test {
  protected:
    void SetUp() override {
        if (!locale_.found())
            GTEST_SKIP() << test::kNoCommaLocale;
    }

  private:
    const test::CommaLocale locale_;
};

TEST_F(InACommaLocale, RealsAreScannedWithAPoint) {
    double first = 0;
    double second = 0;
    Scan scan("1.5,2.5");
    EXPECT_TRUE(scan.real(first) && scan.literal(',') && scan.real(second));
    EXPECT_EQ(first, 1.5);
    EXPECT_EQ(second, 2.5);
    // Past what one operation gets right.
    EXPECT_TRUE(Scan("0.12345678901234567890").real(first));
    EXPECT_EQ(first, 0.12345678901234567890);
    float single = 0;
    EXPECT_TRUE(Scan("0x1.8p1").real(single));
    EXPECT_EQ(single, 3.0F);
    EXPECT_EQ(toReal("2.25"), 2.25);
}

TEST_F(InACommaLocale, BytesThatTheLocaleHasAsSpaceAreNone) {
    std::string_view word;
    EXPECT_TRUE(Scan("a\xA0\x85 b").word(word));
    EXPECT_EQ(word, "a\xA0\x85");
}

TEST_F(InACommaLocale, RealsAreWrittenWithAPoint) {
    const test::TempFolder folder;
    const File file = openFile(folder.file("file").c_str(), "wb");
    EXPECT_TRUE(Writer(file.get()).fixed(1234.5).scientific(1.5, 16).integer(1234567).flush());
    EXPECT_EQ(test::readBytes(folder.path() / "file"), "1234.500000    1.500000E+001234567");
}

}  // namespace
}  // namespace kvocaeio::text
