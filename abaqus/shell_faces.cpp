/// The table of element faces, and the sections that loads and surfaces make of them.
#include "abaqus/shell_faces.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numeric>
#include <span>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "abaqus/element_sets.h"

namespace kvocaeio {

namespace {

constexpr int kMostFaces = 6;

/// Positions, in an element's own node list, of the nodes of its faces. Quadratic elements have the
/// faces of their corners.
struct FaceTable {
    int width;
    int quadraticWidth;
    int faceNum;
    int positions[kMostFaces][4];
};
constexpr FaceTable kFaceTables[] = {
    {4, 10, 4, {{0, 2, 1, 1}, {0, 1, 3, 3}, {1, 2, 3, 3}, {0, 3, 2, 2}}},
    {6, 15, 5, {{0, 2, 1, 1}, {3, 4, 5, 5}, {0, 1, 4, 3}, {1, 2, 5, 4}, {2, 0, 3, 5}}},
    {8, 20, 6, {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {0, 4, 7, 3}}},
};

// Only the width decides, so that a four-node shell has the faces of a tetrahedron.
bool faceNodes(const std::vector<ElemSection>& sections, ElemLocation location, int face,
               FaceTuple& out) {
    if (location.section >= sections.size())
        return false;
    const ElemSection& section = sections[location.section];
    const auto table = std::find_if(
        std::begin(kFaceTables), std::end(kFaceTables), [&section](const FaceTable& t) {
            return t.width == section.nodesPerElem || t.quadraticWidth == section.nodesPerElem;
        });
    if (table == std::end(kFaceTables) || face < 1 || face > table->faceNum)
        return false;
    if (location.row >= section.ids.size())
        return false;  // the place of an unused OID, while the first section is empty
    const int* const nodes =
        section.nodes.data() + std::size_t{location.row} * static_cast<std::size_t>(section.nodesPerElem);
    for (std::size_t i = 0; i < out.size(); ++i)
        out[i] = nodes[table->positions[face - 1][i]];
    return true;
}

// Calls `visit(location, times)` for the ids of the run that the map covers, in order. Unused OIDs
// all have the first element's location; stretches of them come in one call.
template <class Visit>
void forEachLocation(const OidMap<ElemLocation>& elemOidMap, const IdRun& run, const Visit& visit) {
    const std::int64_t step = run.step;
    const std::int64_t end = std::min(static_cast<std::int64_t>(run.last) + 1,
                                      static_cast<std::int64_t>(elemOidMap.size()));
    std::int64_t id = run.first;
    if (id < 0)
        id += (step - 1 - id) / step * step;
    while (id < end) {
        const auto oid = static_cast<std::size_t>(id);
        const std::int64_t used =
            std::min(static_cast<std::int64_t>(elemOidMap.skipGap(oid)), end);
        const std::int64_t times = std::max<std::int64_t>((used - id + step - 1) / step, 1);
        visit(elemOidMap[oid], times);
        id += times * step;
    }
}

// The digit in second place: S1 and SX1 differ, S1 and S10 do not. 0 for what is no digit.
int faceOfSurfaceLabel(std::string_view label) {
    return label.size() > 1 && label[1] >= '0' && label[1] <= '9' ? label[1] - '0' : 0;
}

/// Tells how many faces the elements of a set have, looking at each set and face once: a deck may
/// name a large set in very many lines.
class FaceCounter {
  public:
    FaceCounter(const RawModel& raw, const std::vector<ElemList>& elsetElems)
        : raw_(raw), elsetElems_(elsetElems) {}

    std::int64_t count(int set, int face) {
        const auto [counted, isNew] = counts_.try_emplace({set, face}, 0);
        if (isNew) {
            FaceTuple tuple;
            for (const IdRun& run : elemsAt(elsetElems_, set))
                forEachLocation(raw_.elemOidMap, run, [&](ElemLocation place, std::int64_t times) {
                    if (faceNodes(raw_.elemSections, place, face, tuple))
                        counted->second += times;
                });
        }
        return counted->second;
    }

  private:
    const RawModel& raw_;
    const std::vector<ElemList>& elsetElems_;
    std::map<std::pair<int, int>, std::int64_t> counts_;
};

// Calls `visit(set, face)` for each line of a surface that names a known set and a face.
template <class Visit>
void forEachSurfaceLine(const std::vector<SurfaceSection>& surfaces,
                        const std::map<std::string, int>& elsetIndexMap, const Visit& visit) {
    for (const SurfaceSection& surface : surfaces) {
        if (surface.type != "ELEMENT")
            continue;
        for (std::size_t i = 0; i < surface.items.size(); ++i) {
            const auto set = elsetIndexMap.find(surface.items[i]);
            const int face = faceOfSurfaceLabel(surface.faces[i]);
            if (set != elsetIndexMap.end() && face >= 1 && face <= kMostFaces)
                visit(set->second, face);
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
    ElemSection section;
    section.elset = name;
    section.type = "S4";
    section.geometryType = GeometryType::kShell;
    section.nodesPerElem = 4;
    section.ids.resize(faces.size() / 4);
    std::iota(section.ids.begin(), section.ids.end(), 0);
    section.nodes = faces;
    shellElemSections.push_back(std::move(section));
}

}  // namespace

bool GetElemFaceNodes(const RawModel& raw, int elemOid, int face, FaceTuple& out) {
    return raw.elemOidMap.covers(elemOid) &&
           faceNodes(raw.elemSections, raw.elemOidMap.find(elemOid), face, out);
}

void AddDloadFaces(const RawModel& raw, std::vector<int>& dloadFaces,
                   std::vector<ElemSection>& shellElemSections) {
    FaceTuple tuple;
    for (const DloadSection& dload : raw.dloads)
        for (std::size_t i = 0; i < dload.elemIDs.size(); ++i) {
            const std::string& label = dload.faceIdx[i];
            if (label.size() == 2 && label[0] == 'P' &&
                GetElemFaceNodes(raw, dload.elemIDs[i], label[1] - '0', tuple))
                dloadFaces.insert(dloadFaces.end(), tuple.begin(), tuple.end());
        }
    appendFaceSection("Dload_Shell", raw.nodeOidMap, dloadFaces, shellElemSections);
}

void AddSurfaceFaces(const RawModel& raw, const std::map<std::string, int>& elsetIndexMap,
                     const std::vector<ElemList>& elsetElems, std::vector<int>& surfaceFaces,
                     std::vector<ElemSection>& shellElemSections) {
    // Counted first, since a few lines may ask for more faces than there is memory: nothing is
    // filled then.
    FaceCounter counter(raw, elsetElems);
    std::size_t faceNum = surfaceFaces.size() / 4;
    forEachSurfaceLine(raw.surfaces, elsetIndexMap, [&](int set, int face) {
        faceNum += static_cast<std::size_t>(counter.count(set, face));
        if (faceNum > static_cast<std::size_t>(std::numeric_limits<int>::max()))
            throw std::length_error("vector<T> too long");
    });
    surfaceFaces.reserve(faceNum * 4);
    forEachSurfaceLine(raw.surfaces, elsetIndexMap, [&](int set, int face) {
        if (counter.count(set, face) == 0)
            return;
        for (const IdRun& run : elemsAt(elsetElems, set))
            forEachLocation(raw.elemOidMap, run, [&](ElemLocation place, std::int64_t times) {
                FaceTuple tuple;
                if (faceNodes(raw.elemSections, place, face, tuple))
                    for (; times > 0; --times)
                        surfaceFaces.insert(surfaceFaces.end(), tuple.begin(), tuple.end());
            });
    });
    appendFaceSection("Surface_Shell", raw.nodeOidMap, surfaceFaces, shellElemSections);
}

}  // namespace kvocaeio
