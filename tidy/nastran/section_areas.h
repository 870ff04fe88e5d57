/// Areas of the cross sections that beam properties have by name.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kvocaeio::tidy::nastran {

/// Dimensions that a cross section may have at most, of those whose area is known.
inline constexpr std::size_t kMostDimensions = 6;

using Dimensions = std::array<double, kMostDimensions>;

struct SectionShape {
    std::string_view name;
    std::size_t dimensions;
    double (*area)(const Dimensions& d);
};

/// A cross section by its name in upper case; null where its area is not known.
const SectionShape* findSectionShape(std::string_view name);

}  // namespace kvocaeio::tidy::nastran
