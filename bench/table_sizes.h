/// How much memory the tables of a model need by themselves.
#pragma once

#include <cstddef>

#include "abaqus/model.h"

namespace kvocaeio::bench {

/// Bytes of all entries of the raw tables and the OID maps, without what the containers hold in
/// reserve.
std::size_t rawTableBytes(const AbaqusModel& model);

}  // namespace kvocaeio::bench
