/// The comparison of raw and normalised elements: set by set as long as both sides list the same,
/// and of the rest as two sorted lists that are walked side by side.
#include "abaqus/element_trace.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <utility>

#include "node_rows.h"

namespace kvocaeio::host {

namespace {

/// The corners of an element as new node IDs, filled to eight by repeating the last one, so that an
/// element looks the same in a section of any width.
using ElementCorners = std::array<int, 8>;

/// Elements on the same corners that follow one another in a section.
struct Row {
    ElementCorners corners;
    std::uint32_t name;  ///< number of its section's set name
    std::uint32_t section;
    std::uint32_t elements;
};
using Rows = std::vector<Row>;

constexpr auto kByAll = [](const Row& a, const Row& b) {
    return std::tie(a.corners, a.name, a.section) < std::tie(b.corners, b.name, b.section);
};
constexpr auto kByCornersAndName = [](const Row& a, const Row& b) {
    return std::tie(a.corners, a.name) < std::tie(b.corners, b.name);
};
constexpr auto kByCorners = [](const Row& a, const Row& b) { return a.corners < b.corners; };

void append(Rows& rows, const Row& row) {
    if (!rows.empty() && rows.back().section == row.section && rows.back().corners == row.corners)
        ++rows.back().elements;
    else
        rows.push_back(row);
}

/// A walk over the elements of some sections, one after the other.
class Walk {
  public:
    Walk(const std::vector<Section>& all, const std::vector<std::uint32_t>& walked)
        : all_(all), at_(walked.begin()), end_(walked.end()) {
        advance(0);
    }

    bool done() const { return at_ == end_; }
    std::uint32_t number() const { return *at_; }
    const Section& section() const { return all_[*at_]; }
    std::size_t row() const { return row_; }
    std::size_t leftInSection() const { return section().elements - row_; }

    /// Goes on by `elements` of this section.
    void advance(std::size_t elements) {
        row_ += elements;
        while (!done() && leftInSection() == 0) {
            ++at_;
            row_ = 0;
        }
    }

    std::size_t left() const {
        std::size_t elements = 0;
        for (auto at = at_; at != end_; ++at)
            elements += all_[*at].elements;
        return elements - row_;
    }

  private:
    const std::vector<Section>& all_;
    std::vector<std::uint32_t>::const_iterator at_;
    std::vector<std::uint32_t>::const_iterator end_;
    std::size_t row_ = 0;
};

class Tracer {
  public:
    explicit Tracer(const DeckTables& tables) : tables_(tables), nodeRows_(tables.nodeIds) {
        trace_.leftOut.resize(tables.raw.size());
        trace_.blank.resize(tables.normalised.size());
        trace_.repeated.resize(tables.normalised.size());
    }

    ElementTrace trace() {
        // One geometry after the other: a shell and a solid of four nodes look alike.
        for (const Geometry geometry : {Geometry::kSolid, Geometry::kShell})
            compare(geometry);
        for (std::size_t s = 0; s < tables_.raw.size(); ++s)
            if (tables_.raw[s].geometry == Geometry::kUnknown)
                trace_.leftOut[s] = tables_.raw[s].elements;
        countUndefinedNodes();
        for (const auto& [place, elements] : flows_)
            trace_.flows.push_back({place.first, place.second, elements});
        return std::move(trace_);
    }

  private:
    /// Sections of one set name and geometry.
    struct Namesakes {
        std::vector<std::uint32_t> raw;
        std::vector<std::uint32_t> normalised;
    };
    using NamesakesByName = std::map<std::uint32_t, Namesakes>;

    std::uint32_t numberOf(const std::string& name) {
        return names_.emplace(name, static_cast<std::uint32_t>(names_.size())).first->second;
    }

    static int cornerCount(const Section& raw) {
        return elementKind(raw.geometry, raw.nodesPerElement).corners;
    }

    NamesakesByName namesakes(Geometry geometry) {
        NamesakesByName byName;
        for (std::uint32_t s = 0; s < tables_.raw.size(); ++s) {
            const Section& section = tables_.raw[s];
            if (section.geometry == geometry && cornerCount(section) != 0)
                byName[numberOf(section.elset)].raw.push_back(s);
        }
        for (std::uint32_t s = 0; s < tables_.normalised.size(); ++s) {
            const Section& section = tables_.normalised[s];
            if (section.geometry == geometry && !section.isOfFaces())
                byName[numberOf(section.elset)].normalised.push_back(s);
        }
        return byName;
    }

    // A node that is not defined becomes the first.
    int newId(int oid) const { return std::max(0, nodeRows_.find(oid)); }

    ElementCorners rawCorners(const Section& section, int count, std::size_t row) const {
        const int* oids = section.element(row);
        ElementCorners corners;
        for (int i = 0; i < 8; ++i) {
            const auto place = static_cast<std::size_t>(i);
            corners[place] = i < count ? newId(oids[i]) : corners[place - 1];
        }
        return corners;
    }

    static ElementCorners normalisedCorners(const Section& section, std::size_t row) {
        const int* nodes = section.element(row);
        ElementCorners corners;
        for (int i = 0; i < 8; ++i)
            corners[static_cast<std::size_t>(i)] = nodes[std::min(i, section.nodesPerElement - 1)];
        return corners;
    }

    void compare(Geometry geometry) {
        const NamesakesByName byName = namesakes(geometry);
        Rows raw;
        Rows normalised;
        for (const auto& [name, sections] : byName) {
            Walk from(tables_.raw, sections.raw);
            Walk to(tables_.normalised, sections.normalised);
            pairInOrder(from, to);
            takeRest(from, name, raw, [this](const Section& section, std::size_t row) {
                return rawCorners(section, cornerCount(section), row);
            });
            takeRest(to, name, normalised, normalisedCorners);
        }
        std::sort(raw.begin(), raw.end(), kByAll);
        std::sort(normalised.begin(), normalised.end(), kByAll);
        // Elements on the same nodes are told apart by their set's name first.
        pairUp(raw, normalised, kByCornersAndName);
        pairUp(raw, normalised, kByCorners);
        for (const Row& row : raw)
            trace_.leftOut[row.section] += row.elements;
        if (!normalised.empty())
            placeExtras(normalised, byName);
    }

    /// Books elements of one set name as long as both sides list the same ones in the same order.
    /// Equal rows are paired first with first, second with second, as they are in sorted lists.
    void pairInOrder(Walk& from, Walk& to) {
        while (!from.done() && !to.done()) {
            const Section& raw = from.section();
            const Section& normalised = to.section();
            const int count = cornerCount(raw);
            const std::size_t most = std::min(from.leftInSection(), to.leftInSection());
            std::size_t same = 0;
            while (same < most && rawCorners(raw, count, from.row() + same) ==
                                      normalisedCorners(normalised, to.row() + same))
                ++same;
            if (same != 0)
                flows_[{from.number(), to.number()}] += same;
            from.advance(same);
            to.advance(same);
            if (same != most)
                return;
        }
    }

    template <class CornersOf>
    static void takeRest(Walk& walk, std::uint32_t name, Rows& rows, const CornersOf& cornersOf) {
        rows.reserve(rows.size() + walk.left());
        for (; !walk.done(); walk.advance(1))
            append(rows, {cornersOf(walk.section(), walk.row()), name, walk.number(), 1});
    }

    /// Books each pair of equal rows and leaves the elements without a partner in the two lists.
    template <class Less>
    void pairUp(Rows& raw, Rows& normalised, const Less& less) {
        auto r = raw.begin();
        auto n = normalised.begin();
        auto rawKept = r;
        auto normalisedKept = n;
        while (r != raw.end() && n != normalised.end()) {
            if (less(*r, *n)) {
                *rawKept++ = *r++;
            } else if (less(*n, *r)) {
                *normalisedKept++ = *n++;
            } else {
                const std::uint32_t pairs = std::min(r->elements, n->elements);
                flows_[{r->section, n->section}] += pairs;
                if ((r->elements -= pairs) == 0)
                    ++r;
                if ((n->elements -= pairs) == 0)
                    ++n;
            }
        }
        raw.erase(std::copy(r, raw.end(), rawKept), raw.end());
        normalised.erase(std::copy(n, normalised.end(), normalisedKept), normalised.end());
    }

    /// The raw elements that begin with a node with which one of `extras` begins, sorted.
    Rows rawLike(const Rows& extras, const NamesakesByName& byName) const {
        std::vector<bool> wanted(tables_.nodeIds.size() + 1);
        for (const Row& row : extras)
            if (const auto first = static_cast<std::size_t>(row.corners[0]); first < wanted.size())
                wanted[first] = true;
        Rows rows;
        for (const auto& [name, sections] : byName)
            for (Walk walk(tables_.raw, sections.raw); !walk.done(); walk.advance(1)) {
                const Section& section = walk.section();
                if (wanted[static_cast<std::size_t>(newId(*section.element(walk.row())))])
                    append(rows, {rawCorners(section, cornerCount(section), walk.row()), name,
                                  walk.number(), 1});
            }
        std::sort(rows.begin(), rows.end(), kByAll);
        return rows;
    }

    void placeExtras(const Rows& extras, const NamesakesByName& byName) {
        const Rows raw = rawLike(extras, byName);
        for (const Row& row : extras) {
            const auto source = std::lower_bound(raw.begin(), raw.end(), row, kByCorners);
            if (source != raw.end() && source->corners == row.corners) {
                trace_.repeated[row.section] += row.elements;
                flows_[{source->section, row.section}] += row.elements;
            } else {
                trace_.blank[row.section] += row.elements;
            }
        }
    }

    void countUndefinedNodes() {
        for (const Section& section : tables_.raw) {
            if (section.geometry == Geometry::kUnknown)
                continue;
            const int* end = section.element(section.elements);
            trace_.undefinedNodes += static_cast<std::size_t>(std::count_if(
                section.nodes, end, [&](int oid) { return nodeRows_.find(oid) < 0; }));
        }
    }

    const DeckTables& tables_;
    NodeRows nodeRows_;
    std::map<std::string, std::uint32_t> names_;
    std::map<std::pair<std::size_t, std::size_t>, std::size_t> flows_;
    ElementTrace trace_;
};

}  // namespace

ElementTrace traceElements(const DeckTables& tables) {
    return Tracer(tables).trace();
}

}  // namespace kvocaeio::host
