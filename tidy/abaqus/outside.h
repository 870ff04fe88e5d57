/// The faces of solids that no other solid shares.
#pragma once

#include <map>
#include <vector>

#include "tidy/abaqus/model.h"

namespace kvocaeio::tidy::abaqus {

/// A face of an element, numbered from 1.
struct ElementFace {
    int id;
    int face;
    // NOLINTNEXTLINE(modernize-use-nullptr): what the compiler makes of it is not ours
    auto operator<=>(const ElementFace&) const = default;
};

/// The faces on the outside of each scope that is asked for, in the order of their elements.
class OutsideFaces {
  public:
    const std::vector<ElementFace>& of(const Scope& scope);

  private:
    std::map<const Scope*, std::vector<ElementFace>> faces_;
};

}  // namespace kvocaeio::tidy::abaqus
