/// The search for faces that solids share: each face is filed under the least of its corners, so
/// that only a few have to be compared.
#include "mesh/outer_faces.h"

#include <algorithm>
#include <array>
#include <map>
#include <numeric>
#include <string_view>
#include <tuple>
#include <utility>

namespace kvocaeio::host {

namespace {

/// The corners of a face, ascending and each once; -1 after them where they are fewer than four.
using FaceCorners = std::array<int, 4>;

/// One face of one element.
struct FaceAt {
    std::uint32_t element;         ///< row in its section
    std::uint32_t sectionAndFace;  ///< eight times the section, and the face of the element

    std::size_t section() const { return sectionAndFace / 8; }
    std::size_t face() const { return sectionAndFace % 8; }
};

struct CorneredFace {
    FaceCorners corners;
    std::size_t name;  ///< number of its section's name
    FaceAt at;
};

struct OuterFace {
    FaceAt at;
    CellKind kind;
    bool isBetweenSections;
};

/// False where the corners of the face are fewer than three.
bool takeCorners(const int* element, const CellFace& face, FaceCorners& corners) {
    const auto begin = corners.begin();
    const auto end = begin + static_cast<std::ptrdiff_t>(cellShape(face.kind).corners);
    std::transform(begin, end, face.places.begin(), begin,
                   [&](int, std::uint8_t place) { return element[place]; });
    std::sort(begin, end);
    const auto last = std::unique(begin, end);
    std::fill(last, corners.end(), -1);
    return last - begin >= 3;
}

class FaceSearch {
  public:
    explicit FaceSearch(const Mesh& mesh) : mesh_(mesh) {
        std::map<std::string_view, std::size_t> names;
        for (const MeshSection& section : mesh.sections)
            names_.push_back(names.emplace(section.name, names.size()).first->second);
    }

    /// All faces of solids that can be seen, those of one group together.
    std::vector<OuterFace> find() {
        fileFaces();
        std::vector<CorneredFace> alike;
        for (std::size_t node = 0; node + 1 < begins_.size(); ++node) {
            alike.clear();
            for (std::size_t i = begins_[node]; i < begins_[node + 1]; ++i) {
                CorneredFace& face = alike.emplace_back();
                face.at = faces_[i];
                face.name = names_[face.at.section()];
                takeCorners(mesh_.sections[face.at.section()].element(face.at.element),
                            cellFace(face.at), face.corners);
            }
            std::ranges::sort(alike, {}, [](const CorneredFace& face) {
                return std::tie(face.corners, face.name);
            });
            for (auto first = alike.begin(); first != alike.end();) {
                const auto last = std::find_if(first, alike.end(), [&](const CorneredFace& face) {
                    return face.corners != first->corners;
                });
                judge(first, last);
                first = last;
            }
        }
        std::ranges::sort(outer_, {}, [](const OuterFace& face) {
            return std::tuple(face.at.section(), face.isBetweenSections, face.kind, face.at.element,
                              face.at.face());
        });
        return std::move(outer_);
    }

  private:
    using FaceIterator = std::vector<CorneredFace>::const_iterator;

    const CellFace& cellFace(const FaceAt& at) const {
        return cellShape(mesh_.sections[at.section()].kind).faces[at.face()];
    }

    template <class Take>
    void forEachFace(const Take& take) const {
        FaceCorners corners;
        for (std::size_t s = 0; s < mesh_.sections.size(); ++s) {
            const MeshSection& section = mesh_.sections[s];
            const auto faces = cellShape(section.kind).faces;
            const std::size_t elements = faces.empty() ? 0 : section.elements();
            for (std::size_t e = 0; e < elements; ++e)
                for (std::size_t f = 0; f < faces.size(); ++f)
                    if (takeCorners(section.element(e), faces[f], corners))
                        take(static_cast<std::size_t>(corners[0]),
                             FaceAt{static_cast<std::uint32_t>(e),
                                    static_cast<std::uint32_t>(8 * s + f)});
        }
    }

    /// Fills `faces_` by least corner: those of each node begin where `begins_` says.
    void fileFaces() {
        begins_.assign(mesh_.nodes() + 2, 0);
        forEachFace([&](std::size_t node, FaceAt) { ++begins_[node + 2]; });
        std::partial_sum(begins_.begin(), begins_.end(), begins_.begin());
        faces_.resize(begins_.back());
        forEachFace([&](std::size_t node, FaceAt face) { faces_[begins_[node + 1]++] = face; });
        begins_.pop_back();
    }

    /// Takes those of the faces from `first` on, all with the same corners and in the order of
    /// names, that can be seen.
    void judge(FaceIterator first, FaceIterator last) {
        const bool isShared = last - first > 1;
        for (auto face = first; face != last;) {
            const auto next = std::find_if(
                face, last, [&](const CorneredFace& other) { return other.name != face->name; });
            if (next - face == 1)
                outer_.push_back({face->at, cellFace(face->at).kind, isShared});
            face = next;
        }
    }

    const Mesh& mesh_;
    std::vector<std::size_t> names_;  // per section a number for its name
    std::vector<std::size_t> begins_;
    std::vector<FaceAt> faces_;
    std::vector<OuterFace> outer_;
};

}  // namespace

std::vector<FaceGroup> outerFaces(const Mesh& mesh) {
    const std::vector<OuterFace> faces = FaceSearch(mesh).find();
    std::vector<FaceGroup> groups;
    auto face = faces.begin();
    for (std::size_t s = 0; s < mesh.sections.size(); ++s) {
        const MeshSection& section = mesh.sections[s];
        const CellShape& shape = cellShape(section.kind);
        if (shape.dimension == 2) {
            FaceGroup& group =
                groups.emplace_back(FaceGroup{s, section.kind, false, section.nodes, {}});
            group.elements.resize(section.elements());
            std::iota(group.elements.begin(), group.elements.end(), 0u);
        }
        for (; face != faces.end() && face->at.section() == s; ++face) {
            if (groups.empty() || groups.back().section != s || groups.back().kind != face->kind ||
                groups.back().isBetweenSections != face->isBetweenSections)
                groups.push_back({s, face->kind, face->isBetweenSections, {}, {}});
            FaceGroup& group = groups.back();
            const int* const nodes = section.element(face->at.element);
            for (std::size_t i = 0; i < cellShape(face->kind).nodes; ++i)
                group.nodes.push_back(nodes[shape.faces[face->at.face()].places[i]]);
            group.elements.push_back(face->at.element);
        }
    }
    return groups;
}

}  // namespace kvocaeio::host
