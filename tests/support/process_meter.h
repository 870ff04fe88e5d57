/// What the running process has used so far; one source file per platform.
#pragma once

#include <cstddef>

namespace kvocaeio::test {

/// Processor time of all threads, in the program and in the system on its behalf.
double processorSeconds();

/// The most memory that was resident at any time.
std::size_t peakBytes();

}  // namespace kvocaeio::test
