/// The memory that a test program has needed at most.
#pragma once

#if !defined(_WIN32)
#include <sys/resource.h>
#endif

namespace kvocaeio::test {

#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kMemoryCounts = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr bool kMemoryCounts = false;
#else
inline constexpr bool kMemoryCounts = true;
#endif
#else
inline constexpr bool kMemoryCounts = true;
#endif

/// Peak memory of this process in MiB; 0 where it cannot be told.
inline double peakMemory() {
#if defined(_WIN32)
    return 0.0;
#else
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return kMemoryCounts ? static_cast<double>(usage.ru_maxrss) / 1024.0 : 0.0;
#endif
}

}  // namespace kvocaeio::test
