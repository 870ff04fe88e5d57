/// Boxes in words.
#include "bounding_box.h"

#include <sstream>

namespace kvocaeio::host {

std::string asText(const std::array<double, 3>& place) {
    std::ostringstream words;
    words << "(" << place[0] << ", " << place[1] << ", " << place[2] << ")";
    return words.str();
}

std::string asText(const BoundingBox& box) {
    return box.known() ? asText(box.low) + " to " + asText(box.high) : "none";
}

}  // namespace kvocaeio::host
