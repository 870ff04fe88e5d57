/// Imports that speak on standard output by design kept quiet over millions of runs.
#pragma once

#include <cstdio>

namespace kvocaeio::test {

inline bool silence() {
#if defined(_WIN32)
    return std::freopen("NUL", "w", stdout) != nullptr;
#else
    return std::freopen("/dev/null", "w", stdout) != nullptr;
#endif
}

}  // namespace kvocaeio::test
