#include "standard_output.h"

#include <cstdio>
#include <stdexcept>

namespace kvocaeio::host {

void writeOut(std::string_view output) {
    if (std::fwrite(output.data(), 1, output.size(), stdout) != output.size() ||
        std::fflush(stdout) != 0)
        throw std::runtime_error("the report cannot be written to standard output");
}

}  // namespace kvocaeio::host
