/// What the running process has used so far, as Windows accounts for it.
#include "support/process_meter.h"

#define PSAPI_VERSION 2
#include <windows.h>
// Needs the header above.
#include <psapi.h>

namespace kvocaeio::test {

namespace {

double seconds(const FILETIME& time) {
    ULARGE_INTEGER ticks;
    ticks.LowPart = time.dwLowDateTime;
    ticks.HighPart = time.dwHighDateTime;
    return 1e-7 * static_cast<double>(ticks.QuadPart);
}

}  // namespace

double processorSeconds() {
    FILETIME created, ended, kernel, user;
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
    return seconds(kernel) + seconds(user);
}

std::size_t peakBytes() {
    PROCESS_MEMORY_COUNTERS counters;
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PeakWorkingSetSize;
}

}  // namespace kvocaeio::test
