/// Times in words.
#include "timed.h"

#include <iomanip>
#include <sstream>

namespace kvocaeio::host {

std::string secondsText(double seconds) {
    std::ostringstream words;
    words << std::setprecision(3) << seconds << " s";
    return words.str();
}

}  // namespace kvocaeio::host
