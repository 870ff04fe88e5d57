/// What the running process has used so far, as a POSIX system accounts for it.
#include <ctime>
#include <sys/resource.h>

#include "support/process_meter.h"

namespace kvocaeio::test {

double processorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

std::size_t peakBytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

}  // namespace kvocaeio::test
