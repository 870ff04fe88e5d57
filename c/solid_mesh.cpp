/// What a mesh must be to be written.
#include "c/solid_mesh.h"

#include <cmath>
#include <cstring>
#include <string>
#include <utility>

#include "c/versioned.h"
#include "text/zeroed_array.h"

namespace kvocaeio::c_interface {

namespace {

constexpr int kLargestOid = 99'999'999;  // a field of either format has eight columns

kvocaeio_status refuse(const std::string& text) {
    return fail(KVOCAEIO_BAD_ARGUMENT, text);
}

// OIDs that are looked up: as a range where they follow each other, else sorted.
class OidSet {
  public:
    explicit OidSet(std::vector<int> oids) : oids_(std::move(oids)) {
        if (!std::ranges::is_sorted(oids_))
            std::ranges::sort(oids_);
        isRange_ = static_cast<std::size_t>(oids_.back() - oids_.front()) == oids_.size() - 1;
    }
    // One that stands twice; 0 without one.
    int repeated() const {
        const auto place = std::ranges::adjacent_find(oids_);
        return place == oids_.end() ? 0 : *place;
    }
    bool contains(int oid) const {
        return oid >= oids_.front() && oid <= oids_.back() &&
               (isRange_ || std::ranges::binary_search(oids_, oid));
    }

  private:
    std::vector<int> oids_;
    bool isRange_;
};

// Whether all of `oids` can be written, each once.
kvocaeio_status checkOids(const char* what, std::span<const int> oids) {
    const auto bad =
        std::ranges::find_if(oids, [](int oid) { return oid < 1 || oid > kLargestOid; });
    if (bad != oids.end())
        return refuse(std::string(what) + " OID " + std::to_string(*bad) +
                      " is not between 1 and 99999999");
    const int repeated = OidSet({oids.begin(), oids.end()}).repeated();
    return repeated == 0
               ? KVOCAEIO_OK
               : refuse(std::string(what) + " OID " + std::to_string(repeated) + " stands twice");
}

}  // namespace

kvocaeio_status SolidMesh::take(const kvocaeio_mesh* mesh) {
    if (mesh == nullptr || mesh->struct_size <= sizeof mesh->struct_size)
        return refuse("no mesh is given, or its struct_size is not set");
    mesh_ = taken(mesh);
    kvocaeio_status status = takeNodes();
    if (status == KVOCAEIO_OK)
        status = takeBlocks();
    if (status == KVOCAEIO_OK)
        status = checkNodes();
    return status == KVOCAEIO_OK ? checkElementOids() : status;
}

kvocaeio_status SolidMesh::takeNodes() {
    if (mesh_.node_count == 0 || mesh_.coordinates == nullptr)
        return refuse("the mesh has no nodes");
    if (mesh_.node_count > text::asSize(kLargestOid))
        return refuse("the mesh has more than 99999999 nodes");
    if (mesh_.numbering != KVOCAEIO_OIDS && mesh_.numbering != KVOCAEIO_ROWS)
        return refuse("the numbering is neither by OIDs nor by rows");
    const double* const end = mesh_.coordinates + 3 * mesh_.node_count;
    const double* const bad = std::find_if_not(
        mesh_.coordinates, end, [](double coordinate) { return std::isfinite(coordinate); });
    if (bad != end)
        return refuse(
            "a coordinate of node " +
            std::to_string(nodeOid(static_cast<std::size_t>(bad - mesh_.coordinates) / 3)) +
            " is no finite number");
    return mesh_.node_oids == nullptr ? KVOCAEIO_OK
                                      : checkOids("node", {mesh_.node_oids, mesh_.node_count});
}

kvocaeio_status SolidMesh::checkBlock(const kvocaeio_block& block) const {
    if (block.nodes_per_element != 4 && block.nodes_per_element != 6 &&
        block.nodes_per_element != 8)
        return refuse("the elements of a block have neither 4 nor 6 nor 8 nodes");
    if (block.nodes == nullptr && block.count != 0)
        return refuse("a block has no connectivity");
    if (block.property < 0 || block.property > kLargestOid)
        return refuse("a property OID is not between 1 and 99999999");
    if ((block.oids == nullptr) != (blocks_.front().oids == nullptr))
        return refuse("some blocks have OIDs of elements, others have none");
    if (block.count > text::asSize(kLargestOid) - elementCount_)
        return refuse("the mesh has more than 99999999 elements");
    return KVOCAEIO_OK;
}

kvocaeio_status SolidMesh::takeBlocks() {
    if (mesh_.block_count == 0 || mesh_.blocks == nullptr)
        return refuse("the mesh has no blocks of elements");
    if (mesh_.block_size < sizeof(kvocaeio_block))
        return refuse("the block_size of the mesh is not set");
    const auto* const bytes = reinterpret_cast<const char*>(mesh_.blocks);
    for (std::size_t i = 0; i < mesh_.block_count; ++i) {
        std::memcpy(&blocks_.emplace_back(), bytes + i * mesh_.block_size, sizeof(kvocaeio_block));
        if (const kvocaeio_status status = checkBlock(blocks_.back()); status != KVOCAEIO_OK)
            return status;
        elementCount_ += blocks_.back().count;
    }
    return elementCount_ != 0 ? KVOCAEIO_OK : refuse("the mesh has no elements");
}

// Before an element's nodes are looked up, they are known to be there.
kvocaeio_status SolidMesh::checkNodes() const {
    const auto check = [&](const char* what, const auto& isThere) {
        for (const kvocaeio_block& block : blocks_) {
            const std::span<const int> nodes(block.nodes, block.count * block.nodes_per_element);
            const auto bad = std::ranges::find_if_not(nodes, isThere);
            if (bad != nodes.end())
                return refuse("an element has " + std::string(what) + " " + std::to_string(*bad) +
                              ", which is not among the nodes");
        }
        return kvocaeio_status{KVOCAEIO_OK};
    };
    if (mesh_.numbering == KVOCAEIO_ROWS)
        return check("row", [&](int row) {
            return row >= 0 && static_cast<std::size_t>(row) < mesh_.node_count;
        });
    if (mesh_.node_oids == nullptr)
        return check("node", [&](int oid) {
            return oid > 0 && static_cast<std::size_t>(oid) <= mesh_.node_count;
        });
    const OidSet oids({mesh_.node_oids, mesh_.node_oids + mesh_.node_count});
    return check("node", [&](int oid) { return oids.contains(oid); });
}

kvocaeio_status SolidMesh::checkElementOids() const {
    if (blocks_.front().oids == nullptr)
        return KVOCAEIO_OK;
    std::vector<int> oids;
    oids.reserve(elementCount_);
    for (const kvocaeio_block& block : blocks_)
        oids.insert(oids.end(), block.oids, block.oids + block.count);
    return checkOids("element", oids);
}

}  // namespace kvocaeio::c_interface
