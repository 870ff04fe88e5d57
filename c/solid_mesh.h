/// A mesh that a host wants written, looked over.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "c/failure.h"

namespace kvocaeio::c_interface {

/// The arrays of a host, with what they leave out filled in.
class SolidMesh {
  public:
    /// Fails, and keeps the reason, where the arrays are no mesh of solids.
    kvocaeio_status take(const kvocaeio_mesh* mesh);

    std::size_t nodeCount() const { return mesh_.node_count; }
    std::size_t elementCount() const { return elementCount_; }
    const double* point(std::size_t row) const { return mesh_.coordinates + 3 * row; }
    int nodeOid(std::size_t row) const {
        return mesh_.node_oids == nullptr ? static_cast<int>(row) + 1 : mesh_.node_oids[row];
    }
    const char* unit() const { return mesh_.unit == nullptr ? "mm" : mesh_.unit; }
    std::span<const kvocaeio_block> blocks() const { return blocks_; }

    /// Calls `use(oid, property, nodes)` for each element, the nodes as a span of their OIDs.
    template <class Use>
    void forEachElement(const Use& use) const {
        int next = 0;
        for (const kvocaeio_block& block : blocks_)
            for (std::size_t i = 0; i < block.count; ++i) {
                ++next;
                const std::size_t width = block.nodes_per_element;
                std::array<int, 8> nodes;
                std::transform(block.nodes + i * width, block.nodes + (i + 1) * width,
                               nodes.begin(), [this](int node) {
                                   return mesh_.numbering == KVOCAEIO_ROWS
                                              ? nodeOid(static_cast<std::size_t>(node))
                                              : node;
                               });
                use(block.oids == nullptr ? next : block.oids[i],
                    block.property == 0 ? 1 : block.property, std::span(nodes).first(width));
            }
    }

  private:
    kvocaeio_status takeNodes();
    kvocaeio_status takeBlocks();
    kvocaeio_status checkBlock(const kvocaeio_block& block) const;
    kvocaeio_status checkNodes() const;
    kvocaeio_status checkElementOids() const;

    kvocaeio_mesh mesh_{};
    std::vector<kvocaeio_block> blocks_;
    std::size_t elementCount_ = 0;
};

}  // namespace kvocaeio::c_interface
