/// Element faces that loads and surfaces name, made into shell sections.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "abaqus/findings.h"
#include "abaqus/model.h"

namespace kvocaeio::abaqus {

/// The four nodes of a face; a triangle repeats its last node.
using FaceTuple = std::array<int, 4>;

/// The node OIDs of face `face` (from 1) of a raw element. False, `out` untouched, where the
/// element has no such face or the OID lies outside the map. An OID inside it that no element has
/// gives the faces of the first element.
bool GetElemFaceNodes(const RawModel& raw, int elemOid, int face, FaceTuple& out);

/// Appends the faces named by loads "P1" to "P6" to `dloadFaces`, turns all that stands there into
/// new node IDs, and makes a section "Dload_Shell" of it.
void AddDloadFaces(const RawModel& raw, std::vector<int>& dloadFaces,
                   std::vector<ElemSection>& shellElemSections, const text::Listener& listener);

/// Likewise for the surfaces, whose items name element sets: section "Surface_Shell". Throws
/// `std::length_error` before anything is changed if there were more faces than int counts.
void AddSurfaceFaces(const RawModel& raw, const std::map<std::string, int>& elsetIndexMap,
                     const std::vector<ElemList>& elsetElems, std::vector<int>& surfaceFaces,
                     std::vector<ElemSection>& shellElemSections, const text::Listener& listener);

}  // namespace kvocaeio::abaqus
