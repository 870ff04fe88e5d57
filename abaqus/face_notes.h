/// Notes of faces that loads and surfaces name.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "abaqus/findings.h"
#include "abaqus/model.h"

namespace kvocaeio::abaqus {

/// What the loads, or the surfaces, of a deck make of its elements. Nothing is noted, and nothing
/// allocated, while nobody listens.
class FaceNotes {
  public:
    FaceNotes(const RawModel& raw, const text::Listener& listener) noexcept;

    bool areNoted() const { return listener_.findings != nullptr; }

    /// A label that is no face. `item` names the element or set.
    void label(std::string_view item, std::string_view label) const;
    /// `oid` has been looked up for `face`, which it `hasFace` or not.
    void element(std::int64_t oid, int face, bool hasFace);
    /// The elements of a set, of which those that no map covers are not looked up.
    void set(std::span<const IdRun> elements) const;
    /// A face of a set that another line has named.
    void repeatedSet(std::string_view name, int face) const;
    /// `name` is that of a set which a surface names, `isKnown` or not.
    void surfaceSet(std::string_view name, bool isKnown) const;

  private:
    void repeat(ElemLocation location, int face, std::string_view what);

    const RawModel& raw_;
    const text::Listener& listener_;
    std::vector<std::vector<std::uint8_t>> named_;  // faces of each element of each section
    std::vector<std::string_view> blockNames_;      // of the element sections, sorted
};

}  // namespace kvocaeio::abaqus
