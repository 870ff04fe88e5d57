/// Where elements ended up: facts, and random tables against a naive twin.
#include "abaqus/element_trace.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace kvocaeio::host {
namespace {

/// Tables whose sections own their nodes. Node 10 is row 0, node 20 row 1 and so on.
struct Mesh {
    explicit Mesh(int nodes) {
        for (int row = 0; row < nodes; ++row)
            tables.nodeIds.push_back(10 * (row + 1));
    }

    void add(std::vector<Section>& sections, const std::string& set, Geometry geometry, int width,
             std::vector<int> entries) {
        lists.push_back(std::move(entries));
        sections.push_back({set, geometry, width,
                            lists.back().size() / static_cast<std::size_t>(width),
                            lists.back().data()});
    }

    DeckTables tables;
    std::vector<std::vector<int>> lists;  // moving a list leaves its entries where they are
};

using Flows = std::map<std::array<std::size_t, 2>, std::size_t>;

Flows flowsOf(const ElementTrace& trace) {
    Flows flows;
    for (const Flow& flow : trace.flows)
        flows[{flow.raw, flow.normalised}] = flow.elements;
    return flows;
}

TEST(ElementTrace, FollowsMergedSectionsInTheirOrder) {
    Mesh mesh(5);
    mesh.add(mesh.tables.raw, "A", Geometry::kSolid, 4, {10, 20, 30, 40, 20, 30, 40, 50});
    mesh.add(mesh.tables.raw, "A", Geometry::kSolid, 5, {10, 20, 30, 40, 50});
    mesh.add(mesh.tables.normalised, "A", Geometry::kSolid, 5,
             {0, 1, 2, 3, 3, 1, 2, 3, 4, 4, 0, 1, 2, 3, 4});
    const ElementTrace trace = traceElements(mesh.tables);
    EXPECT_EQ(flowsOf(trace), (Flows{{{0, 0}, 2}, {{1, 0}, 1}}));
    EXPECT_EQ(trace.leftOut, (std::vector<std::size_t>{0, 0}));
    EXPECT_EQ(trace.blank, (std::vector<std::size_t>{0}));
    EXPECT_EQ(trace.repeated, (std::vector<std::size_t>{0}));
    EXPECT_EQ(trace.undefinedNodes, 0u);
}

TEST(ElementTrace, FollowsALoneSectionIntoSetsThatOverlap) {
    Mesh mesh(6);
    mesh.add(mesh.tables.raw, "ALL", Geometry::kShell, 3,
             {10, 20, 30, 20, 30, 40, 30, 40, 50, 40, 50, 77});
    mesh.add(mesh.tables.normalised, "G1", Geometry::kShell, 4, {0, 1, 2, 2, 1, 2, 3, 3});
    mesh.add(mesh.tables.normalised, "G2", Geometry::kShell, 4,
             {1, 2, 3, 3, 2, 3, 4, 4, 0, 0, 0, 0, 0, 0, 0, 0});
    const ElementTrace trace = traceElements(mesh.tables);
    EXPECT_EQ(flowsOf(trace), (Flows{{{0, 0}, 2}, {{0, 1}, 2}}));
    EXPECT_EQ(trace.leftOut, (std::vector<std::size_t>{1}));
    EXPECT_EQ(trace.blank, (std::vector<std::size_t>{0, 2}));
    EXPECT_EQ(trace.repeated, (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(trace.undefinedNodes, 1u);
}

// The rules as one would do it by hand: every normalised element takes the first raw one on its
// corners that is free, in two rounds, of which the first asks for the same set name as well.
class NaiveTrace {
  public:
    explicit NaiveTrace(const DeckTables& tables) {
        trace.leftOut.resize(tables.raw.size());
        trace.blank.resize(tables.normalised.size());
        trace.repeated.resize(tables.normalised.size());
        for (const Geometry geometry : {Geometry::kSolid, Geometry::kShell}) {
            Elements raw = rawElements(tables, geometry);
            Elements normalised = elementsOf(tables.normalised, geometry);
            take(raw, normalised, true);
            take(raw, normalised, false);
            for (const Element& element : raw)
                trace.leftOut[element.section] += element.free ? 1 : 0;
            for (const Element& extra : normalised)
                if (extra.free)
                    placeExtra(raw, extra);
        }
        for (const auto& [place, elements] : flows)
            trace.flows.push_back({place[0], place[1], elements});
    }

    ElementTrace trace;

  private:
    struct Element {
        std::array<int, 8> corners;
        std::size_t name;
        std::size_t section;
        bool free;
    };
    using Elements = std::vector<Element>;

    Elements rawElements(const DeckTables& tables, Geometry geometry) {
        Elements elements = elementsOf(tables.raw, geometry);
        for (Element& element : elements)
            for (int& node : element.corners) {
                const auto& ids = tables.nodeIds;
                const auto row = std::find(ids.begin(), ids.end(), node);
                node = row == ids.end() ? 0 : static_cast<int>(row - ids.begin());
            }
        for (const Section& section : tables.raw)
            for (std::size_t i = 0; i < section.elements * 4 && section.geometry == geometry; ++i)
                trace.undefinedNodes += static_cast<std::size_t>(std::count(tables.nodeIds.begin(),
                                                                            tables.nodeIds.end(),
                                                                            section.nodes[i]) == 0);
        return elements;
    }

    // All sections here have four nodes. Sorted by set name, as numbered, and section.
    Elements elementsOf(const std::vector<Section>& sections, Geometry geometry) {
        Elements elements;
        for (std::size_t s = 0; s < sections.size(); ++s) {
            const Section& section = sections[s];
            if (section.geometry != geometry)
                continue;
            if (std::find(names.begin(), names.end(), section.elset) == names.end())
                names.push_back(section.elset);
            const auto name = static_cast<std::size_t>(
                std::find(names.begin(), names.end(), section.elset) - names.begin());
            for (std::size_t e = 0; e < section.elements; ++e) {
                const int* n = section.element(e);
                elements.push_back(
                    {{n[0], n[1], n[2], n[3], n[3], n[3], n[3], n[3]}, name, s, true});
            }
        }
        std::stable_sort(elements.begin(), elements.end(),
                         [](const Element& a, const Element& b) { return a.name < b.name; });
        return elements;
    }

    void take(Elements& raw, Elements& normalised, bool sameName) {
        for (Element& to : normalised)
            for (Element& from : raw) {
                if (!to.free || !from.free || from.corners != to.corners ||
                    (sameName && from.name != to.name))
                    continue;
                ++flows[{from.section, to.section}];
                from.free = to.free = false;
            }
    }

    void placeExtra(const Elements& raw, const Element& extra) {
        for (const Element& from : raw)
            if (from.corners == extra.corners) {
                ++trace.repeated[extra.section];
                ++flows[{from.section, extra.section}];
                return;
            }
        ++trace.blank[extra.section];
    }

    std::vector<std::string> names;
    Flows flows;
};

class Random {
  public:
    explicit Random(unsigned seed) : engine_(seed) {}
    int upTo(int most) { return std::uniform_int_distribution(0, most)(engine_); }

  private:
    std::mt19937 engine_;
};

// Few elements that differ, in few sets, so that the same ones stand in several sections.
Mesh randomMesh(Random& random) {
    constexpr std::array<const char*, 3> kSets = {"A", "B", ""};
    constexpr std::array<Geometry, 2> kGeometries = {Geometry::kSolid, Geometry::kShell};
    Mesh mesh(3);
    const int rawSections = random.upTo(4);
    const int sections = rawSections + random.upTo(4);
    const int variety = random.upTo(2);
    for (int s = 0; s < sections; ++s) {
        std::vector<int> entries;
        for (int elements = random.upTo(5); elements > 0; --elements)
            for (const int last : {0, 1, 2, random.upTo(variety)})
                entries.push_back(s < rawSections ? 10 * (last + 1) : last);
        if (s < rawSections && !entries.empty() && random.upTo(3) == 0)
            entries.back() = 77;  // no such node
        mesh.add(s < rawSections ? mesh.tables.raw : mesh.tables.normalised,
                 kSets[static_cast<std::size_t>(random.upTo(2))],
                 kGeometries[static_cast<std::size_t>(random.upTo(5) / 5)], 4, std::move(entries));
    }
    return mesh;
}

TEST(ElementTrace, AgreesWithTheNaiveTwin) {
    for (unsigned seed = 1; seed <= 5000; ++seed) {
        Random random(seed);
        const Mesh mesh = randomMesh(random);
        const ElementTrace trace = traceElements(mesh.tables);
        const ElementTrace expected = NaiveTrace(mesh.tables).trace;
        ASSERT_EQ(flowsOf(trace), flowsOf(expected)) << "seed " << seed;
        ASSERT_EQ(trace.leftOut, expected.leftOut) << "seed " << seed;
        ASSERT_EQ(trace.blank, expected.blank) << "seed " << seed;
        ASSERT_EQ(trace.repeated, expected.repeated) << "seed " << seed;
        ASSERT_EQ(trace.undefinedNodes, expected.undefinedNodes) << "seed " << seed;
    }
}

}  // namespace
}  // namespace kvocaeio::host
