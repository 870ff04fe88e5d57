/// Times in words.
#include "timed.h"

#include <cmath>
#include <cstdio>

namespace kvocaeio::host {

std::string secondsText(double seconds) {
    char words[64];
    if (seconds < 0.00095)
        return "less than 1 ms";
    if (seconds < 0.9995)
        std::snprintf(words, sizeof words, "%.0f ms", 1000.0 * seconds);
    else if (seconds < 59.95)
        std::snprintf(words, sizeof words, "%.1f s", seconds);
    else
        std::snprintf(words, sizeof words, "%lld min %lld s", std::llround(seconds) / 60,
                      std::llround(seconds) % 60);
    return words;
}

}  // namespace kvocaeio::host
