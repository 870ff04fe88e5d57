/// The comparison of raw and normalised elements, as two sorted lists that are walked side by side.
#include "abaqus/element_trace.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <map>
#include <string>
#include <tuple>
#include <utility>

namespace kvocaeio::host {

namespace {

/// One element: its corners as new node IDs, filled to eight by repeating the last one, so that an
/// element looks the same in a section of any width.
struct Row {
    std::array<int, 8> corners;
    std::uint32_t name;  ///< number of its section's set name
    std::uint32_t section;
};

bool byAll(const Row& a, const Row& b) {
    return std::tie(a.corners, a.name, a.section) < std::tie(b.corners, b.name, b.section);
}

bool byCornersAndName(const Row& a, const Row& b) {
    return std::tie(a.corners, a.name) < std::tie(b.corners, b.name);
}

bool byCorners(const Row& a, const Row& b) {
    return a.corners < b.corners;
}

/// New node IDs by OID.
class NodeRows {
  public:
    explicit NodeRows(const std::vector<int>& ids) {
        rows_.reserve(ids.size());
        for (const int id : ids)
            rows_.emplace_back(id, static_cast<int>(rows_.size()));
        std::sort(rows_.begin(), rows_.end());
    }

    /// The row of node `oid`, the last one where the deck defines it again; -1 for none.
    int find(int oid) const {
        const auto behind = std::upper_bound(
            rows_.begin(), rows_.end(), oid,
            [](int wanted, const std::pair<int, int>& row) { return wanted < row.first; });
        const bool found = behind != rows_.begin() && std::prev(behind)->first == oid;
        return found ? std::prev(behind)->second : -1;
    }

  private:
    std::vector<std::pair<int, int>> rows_;  // OID, row
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
    using Rows = std::vector<Row>;

    std::uint32_t numberOf(const std::string& name) {
        return names_.emplace(name, static_cast<std::uint32_t>(names_.size())).first->second;
    }

    Rows rawRows(Geometry geometry) {
        Rows rows;
        for (std::size_t s = 0; s < tables_.raw.size(); ++s) {
            const Section& section = tables_.raw[s];
            const int corners = elementKind(section.geometry, section.nodesPerElement).corners;
            if (section.geometry != geometry || corners == 0)
                continue;
            Row row{{}, numberOf(section.elset), static_cast<std::uint32_t>(s)};
            std::array<int, 8> newIds{};
            for (std::size_t e = 0; e < section.elements; ++e) {
                for (int i = 0; i < corners; ++i)  // a node that is not defined becomes the first
                    newIds[static_cast<std::size_t>(i)] =
                        std::max(0, nodeRows_.find(section.element(e)[i]));
                fill(row, newIds.data(), corners);
                rows.push_back(row);
            }
        }
        return rows;
    }

    Rows normalisedRows(Geometry geometry) {
        Rows rows;
        for (std::size_t s = 0; s < tables_.normalised.size(); ++s) {
            const Section& section = tables_.normalised[s];
            if (section.geometry != geometry || section.isOfFaces())
                continue;
            Row row{{}, numberOf(section.elset), static_cast<std::uint32_t>(s)};
            for (std::size_t e = 0; e < section.elements; ++e) {
                fill(row, section.element(e), section.nodesPerElement);
                rows.push_back(row);
            }
        }
        return rows;
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

    static void fill(Row& row, const int* nodes, int count) {
        for (int i = 0; i < 8; ++i)
            row.corners[static_cast<std::size_t>(i)] = nodes[std::min(i, count - 1)];
    }

    void compare(Geometry geometry) {
        Rows raw = rawRows(geometry);
        Rows normalised = normalisedRows(geometry);
        std::sort(raw.begin(), raw.end(), byAll);
        std::sort(normalised.begin(), normalised.end(), byAll);
        // Elements on the same nodes are told apart by their set's name first.
        pairUp(raw, normalised, byCornersAndName);
        pairUp(raw, normalised, byCorners);
        for (const Row& row : raw)
            ++trace_.leftOut[row.section];
        if (!normalised.empty())
            placeExtras(normalised, rawRows(geometry));
    }

    /// Books each pair of equal rows and leaves the rows without a partner in the two lists.
    template <class Less>
    void pairUp(Rows& raw, Rows& normalised, const Less& less) {
        auto r = raw.cbegin();
        auto n = normalised.cbegin();
        auto rawKept = raw.begin();
        auto normalisedKept = normalised.begin();
        while (r != raw.cend() && n != normalised.cend()) {
            if (less(*r, *n))
                *rawKept++ = *r++;
            else if (less(*n, *r))
                *normalisedKept++ = *n++;
            else
                ++flows_[{r++->section, n++->section}];
        }
        raw.erase(std::copy(r, raw.cend(), rawKept), raw.end());
        normalised.erase(std::copy(n, normalised.cend(), normalisedKept), normalised.end());
    }

    void placeExtras(const Rows& extras, Rows raw) {
        std::sort(raw.begin(), raw.end(), byAll);
        for (const Row& row : extras) {
            const auto source = std::lower_bound(raw.begin(), raw.end(), row, byCorners);
            if (source != raw.end() && source->corners == row.corners) {
                ++trace_.repeated[row.section];
                ++flows_[{source->section, row.section}];
            } else {
                ++trace_.blank[row.section];
            }
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
