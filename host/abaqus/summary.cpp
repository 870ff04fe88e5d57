/// The conclusions that are drawn from a deck's tables.
#include "abaqus/summary.h"

#include <utility>

namespace kvocaeio::host {

namespace {

KindCounts kindsOfRows(const Section& section) {
    KindCounts kinds;
    for (std::size_t e = 0; e < section.elements; ++e) {
        const int corners = cornersOf(section, section.element(e));
        const ElementKind& kind = elementKind(section.geometry, corners);
        count(kinds, kind.nodes == 0 ? kDegenerate : kind.name);
    }
    return kinds;
}

/// Whether no load and no surface can name a face of the section's elements: only the number of
/// nodes decides, and the reader has faces for tetrahedra, wedges, hexahedra and four-node shells.
bool isWithoutFaces(const Section& section) {
    const ElementKind& kind = elementKind(section.geometry, section.nodesPerElement);
    return kind.corners == 0 || kind.corners == 3 || kind.corners == 5;
}

LeftOut whyLeftOut(const Section& section, const DeckTables& tables) {
    if (section.geometry == Geometry::kUnknown)
        return LeftOut::kUnknownType;
    return tables.nodeIds.empty() ? LeftOut::kNoNodes : LeftOut::kInNoSet;
}

NormalisedSummary normalisedSummary(const DeckTables& tables, const ElementTrace& trace,
                                    std::size_t s, std::size_t sources) {
    const Section& section = tables.normalised[s];
    const bool solid = s < tables.solids;
    return {solid ? "solid" : "shell",
            solid ? s : s - tables.solids,
            section.elset,
            section.nodesPerElement,
            section.elements,
            kindsOfRows(section),
            section.elset == kLoadFaces      ? "loads"
            : section.elset == kSurfaceFaces ? "surfaces"
                                             : "elements",
            sources > 1,
            trace.blank[s],
            trace.repeated[s]};
}

RawSummary rawSummary(const DeckTables& tables, std::size_t s) {
    const Section& section = tables.raw[s];
    const ElementKind& kind = elementKind(section.geometry, section.nodesPerElement);
    RawSummary summary;
    summary.elset = section.elset;
    summary.kind = kind.name;
    summary.nodesPerElement = section.nodesPerElement;
    summary.corners = kind.corners;
    summary.elements = section.elements;
    return summary;
}

void addTrace(DeckSummary& summary, const DeckTables& tables) {
    ElementTrace trace = traceElements(tables);
    std::vector<std::size_t> sources(tables.normalised.size());  // sections that each came from
    std::vector<std::size_t> targets(tables.raw.size());         // sections that each went to
    for (const Flow& flow : trace.flows) {
        ++sources[flow.normalised];
        ++targets[flow.raw];
    }
    for (std::size_t s = 0; s < tables.normalised.size(); ++s) {
        const Section& section = tables.normalised[s];
        summary.normalised.push_back(normalisedSummary(tables, trace, s, sources[s]));
        if (section.elset == kLoadFaces)
            summary.loadFaces += section.elements;
        if (section.elset == kSurfaceFaces)
            summary.surfaceFaces += section.elements;
    }
    for (std::size_t s = 0; s < tables.raw.size(); ++s) {
        const Section& section = tables.raw[s];
        RawSummary& raw = summary.raw[s];
        raw.leftOut = trace.leftOut[s];
        if (raw.leftOut != 0)
            raw.reason = whyLeftOut(section, tables);
        raw.reduced = targets[s] != 0 && raw.corners < raw.nodesPerElement;
        raw.split = targets[s] > 1 || (targets[s] == 1 && raw.leftOut != 0);
        (section.geometry == Geometry::kUnknown ? summary.unknownType : summary.otherLeftOut) +=
            raw.leftOut;
    }
    summary.undefinedNodes = trace.undefinedNodes;
    summary.flows = std::move(trace.flows);
}

}  // namespace

DeckSummary summarise(const DeckTables& tables, bool normalised) {
    DeckSummary summary;
    summary.nodes = tables.nodeIds.size();
    summary.box = tables.box;
    summary.thicknesses = tables.thicknesses;
    for (std::size_t s = 0; s < tables.raw.size(); ++s) {
        const Section& section = tables.raw[s];
        summary.raw.push_back(rawSummary(tables, s));
        summary.elements += section.elements;
        count(summary.kinds, summary.raw.back().kind, section.elements);
        if (isWithoutFaces(section))
            summary.withoutFaces += section.elements;
    }
    summary.repeatedNodes = findRepeatedNodes(tables);
    summary.repeatedElements = findRepeatedElements(tables);
    if (normalised)
        addTrace(summary, tables);
    return summary;
}

}  // namespace kvocaeio::host
