/// Arrays whose size a file or a host names, whatever is really there.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>

namespace kvocaeio::text {

struct ReleaseZeroed {
    void operator()(void* array) const noexcept { std::free(array); }
};

/// Zeroed memory of the C library: what is not used of it takes none.
template <class Value>
using ZeroedArray = std::unique_ptr<Value[], ReleaseZeroed>;

/// Null for no rows. Throws `std::bad_alloc` where the memory cannot be had.
template <class Value>
ZeroedArray<Value> makeZeroed(std::size_t rows, std::size_t width = 1) {
    if (rows == 0)
        return nullptr;
    ZeroedArray<Value> array(static_cast<Value*>(std::calloc(rows, width * sizeof(Value))));
    if (array == nullptr)
        throw std::bad_alloc();
    return array;
}

/// A count or index as a size; 0 where it is negative.
constexpr std::size_t asSize(int count) {
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

}  // namespace kvocaeio::text
