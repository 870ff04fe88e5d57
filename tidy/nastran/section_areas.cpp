/// Sums and differences of rectangles and circles.
#include "tidy/nastran/section_areas.h"

#include <algorithm>
#include <numbers>

namespace kvocaeio::tidy::nastran {

namespace {

double circle(double radius) {
    return std::numbers::pi * radius * radius;
}

// A web of width d[1] and height d[3] with flanges of width d[0] at both ends, between which it is
// d[2] high.
double openProfile(const Dimensions& d) {
    return d[1] * d[3] + d[0] * (d[3] - d[2]);
}

const std::array<SectionShape, 20> kSectionShapes{{
    {"BAR", 2, [](const Dimensions& d) { return d[0] * d[1]; }},
    {"BOX", 4,
     [](const Dimensions& d) { return d[0] * d[1] - (d[0] - 2 * d[3]) * (d[1] - 2 * d[2]); }},
    {"BOX1", 6,
     [](const Dimensions& d) { return d[0] * d[1] - (d[0] - d[4] - d[5]) * (d[1] - d[2] - d[3]); }},
    {"CHAN", 4, [](const Dimensions& d) { return 2 * d[3] * d[0] + (d[1] - 2 * d[3]) * d[2]; }},
    {"CHAN1", 4, openProfile},
    {"CHAN2", 4, [](const Dimensions& d) { return 2 * d[0] * d[2] + (d[3] - 2 * d[0]) * d[1]; }},
    {"CROSS", 4, [](const Dimensions& d) { return d[0] * d[3] + d[1] * d[2]; }},
    {"H", 4, [](const Dimensions& d) { return d[1] * d[2] + d[0] * d[3]; }},
    {"HAT", 4, [](const Dimensions& d) { return d[1] * (d[2] + 2 * (d[0] - d[1]) + 2 * d[3]); }},
    {"HEXA", 3, [](const Dimensions& d) { return d[2] * (d[1] - d[0]); }},
    {"I", 6,
     [](const Dimensions& d) { return d[1] * d[4] + d[2] * d[5] + (d[0] - d[4] - d[5]) * d[3]; }},
    {"I1", 4, openProfile},
    {"L", 4, [](const Dimensions& d) { return d[0] * d[2] + (d[1] - d[2]) * d[3]; }},
    {"ROD", 1, [](const Dimensions& d) { return circle(d[0]); }},
    {"T", 4, [](const Dimensions& d) { return d[0] * d[2] + (d[1] - d[2]) * d[3]; }},
    {"T1", 4, [](const Dimensions& d) { return d[0] * d[2] + d[1] * d[3]; }},
    {"T2", 4, [](const Dimensions& d) { return d[0] * d[2] + (d[1] - d[2]) * d[3]; }},
    {"TUBE", 2, [](const Dimensions& d) { return circle(d[0]) - circle(d[1]); }},
    {"TUBE2", 2, [](const Dimensions& d) { return circle(d[0]) - circle(d[0] - d[1]); }},
    {"Z", 4, openProfile},
}};

}  // namespace

const SectionShape* findSectionShape(std::string_view name) {
    const auto found = std::ranges::find(kSectionShapes, name, &SectionShape::name);
    return found == kSectionShapes.end() ? nullptr : &*found;
}

}  // namespace kvocaeio::tidy::nastran
