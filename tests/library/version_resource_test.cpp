/// The version that Windows shows for the DLL.
#include <gtest/gtest.h>
#include <string>
#include <vector>
#include <windows.h>

#include <kvocaeio/abaqus.h>

namespace {

TEST(VersionResource, NamesTheVersionOfTheHeaders) {
    const CKVOAbaqusReader keepsTheLibraryLoaded;
    const char* const library = "KVOCAEIO.dll";
    std::vector<char> block(GetFileVersionInfoSizeA(library, nullptr));
    ASSERT_TRUE(GetFileVersionInfoA(library, 0, static_cast<DWORD>(block.size()), block.data()));

    void* found = nullptr;
    UINT size = 0;
    ASSERT_TRUE(VerQueryValueA(block.data(), "\\", &found, &size));
    const auto* numbers = static_cast<const VS_FIXEDFILEINFO*>(found);
    EXPECT_EQ(numbers->dwFileVersionMS, DWORD{1});  // 0.1
    EXPECT_EQ(numbers->dwFileVersionLS, DWORD{0});  // .0.0

    ASSERT_TRUE(
        VerQueryValueA(block.data(), "\\StringFileInfo\\040904B0\\FileVersion", &found, &size));
    EXPECT_STREQ(static_cast<const char*>(found), "0.1.0");
}

}  // namespace
