/// Memory that cannot be had, at every single allocation of a reader and a writer.
#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>
#include <string>

#include "nastran/written_deck.h"

namespace {

// Allocations still granted; negative: all. Counted only inside the calls that are tested.
long granted = -1;
long outstanding = 0;

bool grant() {
    if (granted == 0)
        return false;
    if (granted > 0)
        --granted;
    return true;
}

void* allocate(std::size_t size) {
    void* const memory = grant() ? std::malloc(size == 0 ? 1 : size) : nullptr;
    if (memory == nullptr)
        throw std::bad_alloc();
    ++outstanding;
    return memory;
}

void release(void* memory) {
    if (memory != nullptr)
        --outstanding;
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
    return allocate(size);
}
void* operator new[](std::size_t size) {
    return allocate(size);
}
void operator delete(void* memory) noexcept {
    release(memory);
}
void operator delete[](void* memory) noexcept {
    release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    release(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    release(memory);
}

#if defined(__linux__)
// The linker puts the second in the place of the C library's, which is the first. Elsewhere a
// linked-in runtime would be made to fail as well.
extern "C" {
void* __real_calloc(std::size_t count, std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size) {
    return grant() ? __real_calloc(count, size) : nullptr;
}
}
#endif

namespace kvocaeio {
namespace {

const std::string kSmallDeck =
    "GRID           3       0     1.5     2.5     3.5\n"
    "CBAR,2,1,1,2\n"
    "CHEXA          4       1       1       2       3       4       5       6\n,7,8\n"
    "PSOLID         1       1       1\nPSOLID         2       1       1\n"
    "PSOLID         3       1       1\n";

class MemoryFailure : public testing::Test {
  protected:
    bool readWith(KVONASTRAN_Reader& reader, long allocations) const {
        granted = allocations;
        const bool result = reader.SetFilePath(path.c_str());
        granted = -1;
        return result;
    }

    test::TempFolder folder;
    std::string path = folder.write("deck.nas", kSmallDeck);
};

void expectDeck(KVONASTRAN_Reader& reader) {
    ASSERT_EQ(reader.GetNodeCout(), 3);
    ASSERT_EQ(reader.GetElemCout(), 4);
    ASSERT_EQ(reader.GetSectionCout(), 3);
    EXPECT_EQ(reader.GetNodeVector()[9], 1.5F);
    EXPECT_EQ(reader.GetElemVector()[9], 2);
    EXPECT_EQ(reader.GetElemVector()[27], 4);
    EXPECT_EQ(reader.GetSectionVector()[6], 3);
    EXPECT_EQ(reader.GetPropertiesCout(), 1);
}

TEST_F(MemoryFailure, OfAReaderGivesFalseAndLeaksNothing) {
    {
        KVONASTRAN_Reader first;
        readWith(first, -1);
    }
    int failures = 0;
    for (bool read = false; !read; ++failures) {
        const long before = outstanding;
        {
            KVONASTRAN_Reader reader;
            read = readWith(reader, failures);
            if (read)
                expectDeck(reader);
            else {
                EXPECT_EQ(reader.GetNodeCout(), 0);
                EXPECT_EQ(reader.GetSectionCout(), 0);
                EXPECT_EQ(reader.GetPropertiesCout(), 0);
                EXPECT_EQ(reader.GetNodeVector(), nullptr);
                EXPECT_EQ(reader.GetElemVector(), nullptr);
                EXPECT_EQ(reader.GetSectionVector(), nullptr);
            }
        }
        ASSERT_EQ(outstanding, before) << "after " << failures << " allocations";
    }
    EXPECT_GT(failures, 6);
}

TEST_F(MemoryFailure, OfASecondReadingLeavesTheFirst) {
    bool read = false;
    for (int allocations = 0; !read; ++allocations) {
        KVONASTRAN_Reader reader;
        ASSERT_TRUE(readWith(reader, -1));
        const float* const nodes = reader.GetNodeVector();
        read = readWith(reader, allocations);
        EXPECT_EQ(nodes[9], 1.5F) << allocations;
        EXPECT_EQ(reader.GetSectionCout(), 3) << allocations;
        EXPECT_EQ(reader.GetPropertiesCout(), 1) << allocations;
        if (read)
            expectDeck(reader);
    }
}

TEST_F(MemoryFailure, OfAWriterGivesFalseAndLeaksNothing) {
    std::array<int, 8> nodes{1, 2, 3, 4, 5, 6, 7, 8};
    const std::string unit(100, 'm');
    const std::string deckPath = folder.file("out.nas");
    const auto write = [&](KVONASTRAN_Writer& writer) {
        if (!writer.SetFilePath(deckPath.c_str(), unit.c_str()))
            return false;
        writer.AddNode(1, 1e300, 0, 0);
        writer.AddSection(1, 1);
        writer.AddElement(1, 1, 8, nodes.data());
        return writer.EndWriting();
    };
    {
        KVONASTRAN_Writer first;
        write(first);
    }
    int failures = 0;
    for (bool written = false; !written; ++failures) {
        const long before = outstanding;
        {
            KVONASTRAN_Writer writer;
            granted = failures;
            written = write(writer);
            granted = -1;
        }
        ASSERT_EQ(outstanding, before) << "after " << failures << " allocations";
        ASSERT_LT(failures, 1000);
    }
    const std::string text = test::readText(deckPath);
    EXPECT_NE(text.find("CHEXA  ,      1,      1,      1"), std::string::npos);
    EXPECT_TRUE(text.ends_with(test::kFooter));
}

}  // namespace
}  // namespace kvocaeio
