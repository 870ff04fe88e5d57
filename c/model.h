/// What the opaque model is.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "c/content.h"
#include "tidy/origin_map.h"

namespace kvocaeio::c_interface {

/// Origins of one kind of things as arrays.
struct OriginTable {
    std::vector<int> oids;
    std::vector<int> originalOids;
    std::vector<int> sources;
    std::vector<const char*> parts;
    std::vector<const char*> files;
};

/// `KVOCAEIO_NODES` and so on.
inline constexpr std::size_t kKindsOfThings = 3;

}  // namespace kvocaeio::c_interface

struct kvocaeio_model {
    std::int32_t format = KVOCAEIO_FORMAT_UNKNOWN;
    std::unique_ptr<kvocaeio::c_interface::Content> content;
    bool isTidied = false;
    double deviation = 0.0;
    kvocaeio::tidy::Origins origins;
    /// Made from those when they are asked for.
    std::array<std::optional<kvocaeio::c_interface::OriginTable>,
               kvocaeio::c_interface::kKindsOfThings>
        originTables;
};
