/// The table of element faces, and the sections that loads and surfaces make of them.
#include "abaqus/shell_faces.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "abaqus/element_sets.h"
#include "abaqus/face_notes.h"
#include "text/place_text.h"

namespace kvocaeio::abaqus {

namespace {

constexpr int kMostFaces = 6;

/// The faces of elements of one width, and of their quadratic relatives: positions of the nodes in
/// the element's own list, as digits.
struct FaceTable {
    int width;
    int quadraticWidth;
    std::string_view faces[kMostFaces];
};
constexpr FaceTable kFaceTables[] = {
    {4, 10, {"0211", "0133", "1233", "0322"}},
    {6, 15, {"0211", "3455", "0143", "1254", "2035"}},
    {8, 20, {"0321", "4567", "0154", "1265", "2376", "0473"}},
};

// Only the width decides, so that a four-node shell has the faces of a tetrahedron.
bool faceNodes(const std::vector<ElemSection>& sections, ElemLocation location, int face,
               FaceTuple& out) {
    const ElemSection& section = sections[location.section];
    std::string_view positions;
    for (const auto& [width, quadraticWidth, faces] : kFaceTables)
        if (section.nodesPerElem == width || section.nodesPerElem == quadraticWidth)
            positions = face < 1 || face > kMostFaces ? "" : faces[face - 1];
    // An unused OID gives the first element of the first section, which may have none.
    if (positions.empty() || location.row >= section.ids.size())
        return false;
    const int* const nodes =
        &section.nodes[location.row * static_cast<std::size_t>(section.nodesPerElem)];
    std::transform(positions.begin(), positions.end(), out.begin(),
                   [nodes](char position) { return nodes[position - '0']; });
    return true;
}

// The digit in second place: S1 and SX1 differ, S1 and S10 do not. 0 for what is no digit.
int faceOfSurfaceLabel(std::string_view label) {
    return label.size() > 1 && label[1] >= '0' && label[1] <= '9' ? label[1] - '0' : 0;
}

// "P1" to "P6", and nothing after it; 0 for any other label.
int faceOfLoadLabel(std::string_view label) {
    const bool isFace = label.size() == 2 && label[0] == 'P' && label[1] >= '1' && label[1] <= '6';
    return isFace ? label[1] - '0' : 0;
}

/// What a line of a surface names: a value of `elsetIndexMap` and a face number.
struct SetFace {
    int set;
    int face;
    bool operator<(const SetFace& other) const {
        return std::pair(set, face) < std::pair(other.set, other.face);
    }
};

/// The faces of a set of elements. A deck may name them in very many lines; they are looked up for
/// the first one and copied for the others.
struct FaceStretch {
    std::size_t faceNum = 0;
    std::optional<std::size_t> begin;  // place of the first line's nodes, once they are there
};

// What the lines of all surfaces name, where it is a known set and a face.
std::vector<SetFace> namedFaces(const std::vector<SurfaceSection>& surfaces,
                                const std::map<std::string, int>& elsetIndexMap,
                                const FaceNotes& notes) {
    std::vector<SetFace> named;
    for (const SurfaceSection& surface : surfaces) {
        for (std::size_t i = 0; i < surface.items.size(); ++i) {
            const auto set = elsetIndexMap.find(surface.items[i]);
            const int face = faceOfSurfaceLabel(surface.faces[i]);
            const bool isFace = face >= 1 && face <= kMostFaces;
            if (set != elsetIndexMap.end() && isFace)
                named.push_back({set->second, face});
            if (!notes.areNoted())
                continue;
            notes.surfaceSet(surface.items[i], set != elsetIndexMap.end());
            if (!isFace)
                notes.label(surface.items[i], surface.faces[i]);
        }
    }
    return named;
}

// Calls `visit(oid, times, tuple)` for the elements that the map covers, in the order of the set;
// the tuple is null where an element has no such face. Unused OIDs all have the first element's
// location; stretches of them come in one call.
template <class Visit>
void forEachFace(const RawModel& raw, const std::vector<ElemList>& elsetElems, const SetFace& named,
                 const Visit& visit) {
    const auto size = static_cast<std::int64_t>(raw.elemOidMap.size());
    FaceTuple tuple;
    for (const auto& [first, last, step] : elemsAt(elsetElems, named.set)) {
        const std::int64_t end = std::min(std::int64_t{last} + 1, size);
        std::int64_t id = first;
        if (id < 0)
            id += (step - 1 - id) / step * step;
        while (id < end) {
            const auto oid = static_cast<std::size_t>(id);
            const std::size_t next = raw.elemOidMap.skipGap(oid, static_cast<std::size_t>(end));
            const auto gap = static_cast<std::int64_t>(next - oid);
            const std::int64_t times = std::max<std::int64_t>((gap + step - 1) / step, 1);
            const bool hasFace =
                faceNodes(raw.elemSections, raw.elemOidMap[oid], named.face, tuple);
            visit(id, static_cast<std::size_t>(times), hasFace ? &tuple : nullptr);
            id += times * step;
        }
    }
}

// Turns the node OIDs of `faces` into new node IDs and appends a section of them, if there are any.
// Tuples of an earlier run stand among them and are mapped once more.
void appendFaceSection(const char* name, const OidMap<int>& nodeOidMap, std::vector<int>& faces,
                       std::vector<ElemSection>& shellElemSections) {
    if (faces.empty())
        return;
    for (int& node : faces)
        node = nodeOidMap.find(node);
    ElemSection section{name, "S4", GeometryType::kShell, 4, {}, faces};
    section.ids.resize(faces.size() / 4);
    std::iota(section.ids.begin(), section.ids.end(), 0);
    shellElemSections.push_back(std::move(section));
}

}  // namespace

bool GetElemFaceNodes(const RawModel& raw, int elemOid, int face, FaceTuple& out) {
    return raw.elemOidMap.covers(elemOid) &&
           faceNodes(raw.elemSections, raw.elemOidMap.find(elemOid), face, out);
}

void AddDloadFaces(const RawModel& raw, std::vector<int>& dloadFaces,
                   std::vector<ElemSection>& shellElemSections, const text::Listener& listener) {
    FaceTuple tuple;
    FaceNotes notes(raw, listener);
    for (const DloadSection& dload : raw.dloads)
        for (std::size_t i = 0; i < dload.elemIDs.size(); ++i) {
            const int face = faceOfLoadLabel(dload.faceIdx[i]);
            const bool hasFace = GetElemFaceNodes(raw, dload.elemIDs[i], face, tuple);
            if (hasFace)
                dloadFaces.insert(dloadFaces.end(), tuple.begin(), tuple.end());
            if (!notes.areNoted())
                continue;
            if (face >= 1 && face <= kMostFaces)
                notes.element(dload.elemIDs[i], face, hasFace);
            else
                notes.label(text::PlaceText("element ", dload.elemIDs[i]), dload.faceIdx[i]);
        }
    appendFaceSection("Dload_Shell", raw.nodeOidMap, dloadFaces, shellElemSections);
}

void AddSurfaceFaces(const RawModel& raw, const std::map<std::string, int>& elsetIndexMap,
                     const std::vector<ElemList>& elsetElems, std::vector<int>& surfaceFaces,
                     std::vector<ElemSection>& shellElemSections, const text::Listener& listener) {
    // Counted first, since a few lines may ask for more faces than there is memory: nothing is
    // filled then.
    std::map<SetFace, FaceStretch> stretches;
    std::size_t faceNum = surfaceFaces.size() / 4;
    FaceNotes notes(raw, listener);
    const std::vector<SetFace> lines = namedFaces(raw.surfaces, elsetIndexMap, notes);
    for (const SetFace& named : lines) {
        const auto [entry, isNew] = stretches.try_emplace(named);
        std::size_t& count = entry->second.faceNum;
        if (isNew) {
            notes.set(elemsAt(elsetElems, named.set));
            forEachFace(raw, elsetElems, named,
                        [&](std::int64_t oid, std::size_t times, const FaceTuple* tuple) {
                            count += tuple != nullptr ? times : 0;
                            if (notes.areNoted()) [[unlikely]]
                                notes.element(oid, named.face, tuple != nullptr);
                        });
        } else if (count > 0) {
            notes.repeatedSet(raw.elsets[static_cast<std::size_t>(named.set)].name, named.face);
        }
        faceNum += count;
        if (!std::in_range<int>(faceNum))
            throw std::length_error("vector<T> too long");
    }
    surfaceFaces.reserve(faceNum * 4);
    for (const SetFace& named : lines) {
        FaceStretch& stretch = stretches[named];
        const std::size_t begin = surfaceFaces.size();
        if (stretch.begin) {
            surfaceFaces.resize(begin + stretch.faceNum * 4);
            std::copy_n(surfaceFaces.data() + *stretch.begin, stretch.faceNum * 4,
                        surfaceFaces.data() + begin);
        } else {
            stretch.begin = begin;
            forEachFace(raw, elsetElems, named,
                        [&](std::int64_t, std::size_t times, const FaceTuple* tuple) {
                            for (; tuple != nullptr && times > 0; --times)
                                surfaceFaces.insert(surfaceFaces.end(), tuple->begin(),
                                                    tuple->end());
                        });
        }
    }
    appendFaceSection("Surface_Shell", raw.nodeOidMap, surfaceFaces, shellElemSections);
}

}  // namespace kvocaeio::abaqus
