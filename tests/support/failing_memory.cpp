/// The program's allocation functions, replaced by ones that count and fail.
#include "support/failing_memory.h"

#include <cstdlib>
#include <new>

#if defined(__APPLE__)
#include <malloc/malloc.h>
#else
#include <malloc.h>
#endif

#if defined(__linux__)
// The linker sends the program's calls of the C library's functions to the __wrap_ ones below.
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* memory, std::size_t size);
void __real_free(void* memory);
}
#else
static void* __real_malloc(std::size_t size) {
    return std::malloc(size);
}
static void __real_free(void* memory) {
    std::free(memory);
}
#endif

namespace kvocaeio::test {

long granted = -1;
long outstanding = 0;
std::size_t bytesInUse = 0;
std::size_t mostBytesInUse = 0;

namespace {

std::size_t sizeOf(void* memory) {
#if defined(_WIN32)
    return _msize(memory);
#elif defined(__APPLE__)
    return malloc_size(memory);
#else
    return malloc_usable_size(memory);
#endif
}

bool grant() {
    if (granted == 0)
        return false;
    if (granted > 0)
        --granted;
    return true;
}

void* counted(void* memory) {
    if (memory == nullptr)
        return nullptr;
    ++outstanding;
    bytesInUse += sizeOf(memory);
    mostBytesInUse = bytesInUse > mostBytesInUse ? bytesInUse : mostBytesInUse;
    return memory;
}

void* allocateOrNull(std::size_t size) {
    return grant() ? counted(__real_malloc(size == 0 ? 1 : size)) : nullptr;
}

void* allocate(std::size_t size) {
    void* const memory = allocateOrNull(size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void release(void* memory) {
    if (memory == nullptr)
        return;
    --outstanding;
    bytesInUse -= sizeOf(memory);
    __real_free(memory);
}

}  // namespace
}  // namespace kvocaeio::test

using namespace kvocaeio::test;

#if defined(__linux__)
extern "C" {
void* __wrap_malloc(std::size_t size) {
    return grant() ? counted(__real_malloc(size)) : nullptr;
}
void* __wrap_calloc(std::size_t count, std::size_t size) {
    return grant() ? counted(__real_calloc(count, size)) : nullptr;
}
void* __wrap_realloc(void* memory, std::size_t size) {
    if (!grant())
        return nullptr;
    const std::size_t sizeBefore = memory == nullptr ? 0 : sizeOf(memory);
    void* const moved = __real_realloc(memory, size);
    if (moved != nullptr && memory != nullptr) {
        --outstanding;
        bytesInUse -= sizeBefore;
    }
    return counted(moved);
}
void __wrap_free(void* memory) {
    release(memory);
}
}
#endif

void* operator new(std::size_t size) {
    return allocate(size);
}
void* operator new[](std::size_t size) {
    return allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocateOrNull(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocateOrNull(size);
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
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    release(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    release(memory);
}
