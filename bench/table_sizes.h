/// How much memory the tables of a model need by themselves.
#pragma once

#include <cstddef>

#include "abaqus/model.h"
#include "package/model.h"

namespace kvocaeio::bench {

/// Bytes of all entries of the raw tables and the OID maps, without what the containers hold in
/// reserve.
std::size_t rawTableBytes(const abaqus::AbaqusModel& model);

/// The same of the tables that the normalisation adds, its largest section once more, since that is
/// what a section takes while it is made.
std::size_t sortedTableBytes(const abaqus::AbaqusModel& model);

/// Bytes of all bodies, wires and wire models, and of the texts in them. (The tables of colours,
/// objects and layers are small.)
std::size_t packageBytes(const package::Model& model);

}  // namespace kvocaeio::bench
