/// Memory that cannot be had, at every single allocation of a Cadence import.
#include <gtest/gtest.h>
#include <string>

#include "package/cadence_design.h"
#include "support/failing_memory.h"
#include "support/files.h"

namespace kvocaeio::test {
namespace {

class CadenceMemoryFailure : public testing::Test {
  protected:
    CadenceMemoryFailure() {
        folder.write("CmdFile1.txt", symbolReport("a.sip"));
        folder.write("CmdFile2.txt", layerReport("a.sip"));
        folder.write("CmdFile3.txt", dieStackReport() + "S!SPACER!" + std::string(500, 'n') +
                                         "!0!0!1!1!0.2!0.3!\n");
    }

    // Imports with so many allocations; `short_` tells whether all of them were used.
    template <class Char>
    bool importWith(CKVOCadenceReader& reader, const Char* design, long allocations) {
        return withAllocations(allocations, [&] {
            const bool imported = reader.ImportCadenceFile(design);
            short_ = granted == 0;
            return imported;
        });
    }

    TempFolder folder;
    std::string temp = folder.path().string();
    bool short_ = true;
};

TEST_F(CadenceMemoryFailure, GivesFalseAndLeaksNothing) {
    int failures = 0;
    for (bool imported = false; !imported; ++failures) {
        const long before = outstanding;
        {
            CKVOCadenceReader reader;
            reader.SetTempFilePath(temp.c_str());
            imported = importWith(reader, "", failures);
            const std::string bodies = bodiesOf(reader);
            EXPECT_EQ(bodies.substr(0, 10), bodies.empty() ? "" : "SUBSTRATE ");
        }
        ASSERT_EQ(outstanding, before) << "after " << failures << " allocations";
    }
    EXPECT_GT(failures, 20);
}

TEST_F(CadenceMemoryFailure, OfASecondImportLeavesBodiesThatCanBeQueried) {
    bool imported = false;
    for (int allocations = 0; !imported; ++allocations) {
        CKVOCadenceReader reader;
        reader.SetTempFilePath(temp.c_str());
        ASSERT_TRUE(importWith(reader, "", -1));
        imported = importWith(reader, "", allocations);
        bodiesOf(reader);
        ASSERT_TRUE(importWith(reader, "", -1));
        EXPECT_EQ(bodiesOf(reader),
                  kSipBodies + std::string(500, 'n') + " at 0.5 0.5 0.504, 1 x 1 x 0.1\n");
    }
}

TEST_F(CadenceMemoryFailure, WithAToolGivesFalse) {
    const std::wstring wideTemp = folder.path().wstring();
    for (int allocations = 0; short_; ++allocations) {
        CKVOCadenceReader reader;
        reader.SetExeFilePath("kvocaeio-test-no-such-tool");
        reader.SetTempFilePath(temp.c_str());
        EXPECT_FALSE(importWith(reader, "a_design_with_a_long_name.sip", allocations));
    }
    short_ = true;
    for (int allocations = 0; short_; ++allocations) {
        CKVOCadenceReader reader;
        reader.SetExeFilePath(L"kvocaeio-test-no-such-tool");
        reader.SetTempFilePath(temp.c_str());
        reader.SetTempFilePath(wideTemp.c_str());
        EXPECT_FALSE(importWith(reader, L"a_design_with_a_long_name.sip", allocations));
    }
}

}  // namespace
}  // namespace kvocaeio::test
