/// Selection, merging, corner reduction and renumbering of element sections.
#include "abaqus/section_tables.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <map>
#include <string>
#include <utility>

#include "text/scan.h"

namespace kvocaeio::abaqus {

namespace {

// Nodes of quadratic solids, and how many of them are corners, which stand first.
constexpr std::pair<int, int> kReductions[] = {{10, 4}, {15, 6}, {20, 8}};

/// What merged sections become, whatever their elements were.
struct MergedForm {
    const char* type;
    int nodesPerElem;
};

MergedForm mergedForm(const SectionSources& sources) {
    const bool areSolids = sources.front()->geometryType == GeometryType::kSolid;
    return areSolids ? MergedForm{"C3D8", 8} : MergedForm{"S4", 4};
}

std::size_t elementTotal(const SectionSources& sources) {
    std::size_t total = 0;
    for (const ElemSection* source : sources)
        total += source->ids.size();
    return total;
}

// An empty block of quadratic solids keeps its width.
int cornersOf(const ElemSection& source) {
    for (const auto& [nodes, corners] : kReductions)
        if (nodes == source.nodesPerElem && !source.ids.empty())
            return corners;
    return source.nodesPerElem;
}

// Appends the corner nodes of all elements in new IDs, each filled up to `width` by repeating its
// last node.
void appendNodes(std::vector<int>& nodes, const ElemSection& source, std::size_t width,
                 const OidMap<int>& nodeOidMap) {
    const auto corners = static_cast<std::size_t>(cornersOf(source));
    const int* from = source.nodes.data();
    // A large table is grown while its end is still in the cache, not filled with zeros beforehand.
    constexpr std::size_t kRowsAtOnce = 256;
    const std::size_t rows = source.ids.size();
    nodeOidMap.lookUpMany([&](const auto& newIdOf) {
        for (std::size_t done = 0; done < rows; done += kRowsAtOnce) {
            const std::size_t first = nodes.size();
            nodes.resize(first + std::min(rows - done, kRowsAtOnce) * width);
            for (auto to = nodes.data() + first; to != nodes.data() + nodes.size(); to += width) {
                std::transform(from, from + corners, to, newIdOf);
                std::fill(to + corners, to + width, to[corners - 1]);
                from += source.nodesPerElem;
            }
        }
    });
}

ElemSection makeSection(const SectionSources& sources, const OidMap<int>& nodeOidMap,
                        const text::Listener& listener) {
    const ElemSection& first = *sources.front();
    const bool isMerged = sources.size() > 1;
    ElemSection made;
    made.elset = first.elset;
    made.type = isMerged ? mergedForm(sources).type : first.type;  // "C3D10" even if four are left
    made.geometryType = first.geometryType;
    made.nodesPerElem = isMerged ? mergedForm(sources).nodesPerElem : cornersOf(first);
    const auto width = static_cast<std::size_t>(made.nodesPerElem);
    made.ids.reserve(elementTotal(sources));
    made.nodes.reserve(elementTotal(sources) * width);
    for (const ElemSection* source : sources) {
        if (cornersOf(*source) < source->nodesPerElem)
            listener.note(Finding::kSectionReduced, text::trimSpace(source->type),
                          text::trimSpace(source->type));
        if (cornersOf(*source) < 1 || cornersOf(*source) > made.nodesPerElem)
            continue;  // no element of it can be written in this form
        appendNodes(made.nodes, *source, width, nodeOidMap);
        made.ids.insert(made.ids.end(), source->ids.begin(), source->ids.end());
    }
    return made;
}

void printSections(const std::vector<ElemSection>& elemSections) {
    std::printf("elem sec num = %d\n", static_cast<int>(elemSections.size()));
    int number = 0;
    for (const ElemSection& section : elemSections) {
        std::printf("sec %d , geom type = %d\n", number++, static_cast<int>(section.geometryType));
        if (section.geometryType == GeometryType::kSolid)
            std::printf("element node num = %d\n", section.nodesPerElem);
    }
}

void printMerged(const std::string& name, const SectionSources& sources) {
    const std::size_t total = elementTotal(sources);
    const auto width = static_cast<std::size_t>(mergedForm(sources).nodesPerElem);
    std::printf("Elset name = %s , num = %d\n", name.c_str(), static_cast<int>(sources.size()));
    std::printf("Total Element num = %d , Total node num = %d\n", static_cast<int>(total),
                static_cast<int>(total * width));
}

}  // namespace

void selectSections(const std::vector<ElemSection>& elemSections,
                    std::vector<SectionSources>& solids, std::vector<SectionSources>& shells,
                    const text::Listener& listener) {
    if (!listener.isQuiet)
        printSections(elemSections);
    for (const ElemSection& section : elemSections) {
        if (section.geometryType == GeometryType::kShell)
            shells.push_back({&section});
        else if (section.geometryType == GeometryType::kSolid)
            solids.push_back({&section});
    }
}

void MergeSectionsByElset(std::vector<SectionSources>& sections, const text::Listener& listener) {
    std::map<std::string, SectionSources> byName;
    for (const SectionSources& section : sections)
        byName[section.front()->elset].push_back(section.front());
    if (byName.size() == sections.size())
        return;  // no name stands twice
    sections.clear();
    for (auto& [name, sources] : byName) {
        if (sources.size() > 1) {
            if (!listener.isQuiet)
                printMerged(name, sources);
            listener.note(Finding::kSectionsMerged, nameOrNone(name), nameOrNone(name));
        }
        sections.push_back(std::move(sources));
    }
}

void makeSections(const std::vector<SectionSources>& sources, const OidMap<int>& nodeOidMap,
                  std::vector<ElemSection>& sections, const text::Listener& listener) {
    sections.clear();
    sections.reserve(sources.size());
    for (const SectionSources& section : sources)
        sections.push_back(makeSection(section, nodeOidMap, listener));
}

}  // namespace kvocaeio::abaqus
