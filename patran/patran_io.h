/// The mesh behind the bridge: lists in file order, and the properties by their ids.
#pragma once

#include <array>
#include <cstdio>
#include <vector>

#include "patran/property_list.h"

namespace kvocaeio {

class CKVO_PatranIO {
  public:
    virtual ~CKVO_PatranIO() = default;

    /// Reads the packets of an open file, behind what the lists hold already. True, except where
    /// memory cannot be had: the lists are empty then.
    bool ReadPackets(std::FILE* file) noexcept;

    /// The highest id that a node packet of the file has, 0 at the least.
    static int FindMaxNodeId(std::FILE* file);

    std::vector<std::array<float, 3>> nodes;
    std::vector<std::array<int, 4>> elements;  ///< corners, as node indices
    std::vector<int> elementPropertyIds;
    PropertyList<int> propertyTypes;
    std::vector<int> elementShapes;
    PropertyList<double> propertyValueA;
    PropertyList<double> propertyValueB;
    PropertyList<double> propertyValueC;
    int propertyCount = 0;
    int nodeCount = 0;
    int elementCount = 0;

  private:
    void clearLists() noexcept;
};

}  // namespace kvocaeio
