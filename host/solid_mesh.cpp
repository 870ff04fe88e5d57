/// What all writers of meshes need.
#include "solid_mesh.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace kvocaeio::host {

std::array<int, 8> idsOf(const SolidMesh::Element& element) {
    std::array<int, 8> ids{};
    std::transform(element.nodes.begin(), element.nodes.begin() + element.corners, ids.begin(),
                   [](int row) { return row + 1; });
    return ids;
}

void note(std::vector<std::string>& notes, std::size_t number, const std::string& what) {
    if (number != 0)
        notes.push_back(std::to_string(number) + " " + what);
}

void remarkOnRounding(SolidMesh& mesh, std::chars_format form, int decimals, const char* what) {
    double largest = 0.0;
    char digits[512];
    for (const auto& node : mesh.nodes)
        for (const double value : node) {
            const char* end =
                std::to_chars(digits, digits + sizeof digits, value, form, decimals).ptr;
            double written = value;
            std::from_chars(digits, end, written);
            largest = std::max(largest, std::fabs(written - value));
        }
    if (largest == 0.0)
        return;
    std::ostringstream remark;
    remark << "coordinates are written with " << what << ", which changes them by up to "
           << largest;
    mesh.remarks.push_back(remark.str());
}

}  // namespace kvocaeio::host
