/// Memory that cannot be had, for programs that `kvocaeio_failing_memory` is called for.
#pragma once

#include <cstddef>

namespace kvocaeio::test {

/// Whether malloc and its kin fail and count, too.
#if defined(__linux__)
inline constexpr bool kMallocFails = true;
#else
inline constexpr bool kMallocFails = false;
#endif

/// Allocations still granted; negative: all.
extern long granted;
/// Blocks that are not released yet.
extern long outstanding;
/// As the C library rounds them up.
extern std::size_t bytesInUse;
extern std::size_t mostBytesInUse;

/// Makes a call with that many allocations granted, and gives its result.
template <class Call>
auto withAllocations(long allocations, const Call& call) {
    struct Grant {
        explicit Grant(long count) { granted = count; }
        ~Grant() { granted = -1; }
    };
    const Grant grant(allocations);
    return call();
}

}  // namespace kvocaeio::test
