/// The plain second normalisation on examples small enough to be checked by eye.
#include "abaqus/normalise_naive.h"

#include <gtest/gtest.h>
#include <stdexcept>

#include "abaqus/normalise_generator.h"

namespace kvocaeio::test {
namespace {

std::vector<RawModel::Node> nodesAtOrigin(const std::vector<int>& oids) {
    std::vector<RawModel::Node> nodes;
    for (const int oid : oids)
        nodes.push_back({oid, {}});
    return nodes;
}

/// Name, type and width of a section, then each row: OID and nodes.
std::string shown(const RawModel::Block& section) {
    std::string text = section.elset + " " + section.type + " " + std::to_string(section.width);
    for (const RawModel::Element& element : section.elements) {
        text += " | " + std::to_string(element.oid) + ":";
        for (const int node : element.nodes)
            text.append(" ").append(std::to_string(node));
    }
    return text;
}

TEST(NaiveNormalisation, MergesARepeatedName) {
    RawModel model;
    model.nodes = nodesAtOrigin({10, 30, 20, 40, 50, 60, 70, 80});
    model.blocks = {{"ZED", "C3D8", 2, 8, {{100, {10, 30, 20, 40, 50, 60, 70, 80}}}},
                    {"ALPHA", "C3D4", 2, 4, {{7, {10, 30, 20, 40}}}},
                    {"ZED", "C3D4", 2, 4, {{5, {30, 20, 40, 50}}}}};
    NaiveNormalisation naive(model);
    naive.sort();
    ASSERT_EQ(naive.solids.size(), 2U);
    EXPECT_EQ(shown(naive.solids[0]), "ALPHA C3D4 4 | 7: 0 1 2 3");
    EXPECT_EQ(shown(naive.solids[1]), "ZED C3D8 8 | 100: 0 1 2 3 4 5 6 7 | 5: 1 2 3 4 4 4 4 4");
    EXPECT_EQ(naive.printed,
              "elem sec num = 3\n"
              "sec 0 , geom type = 2\nelement node num = 8\n"
              "sec 1 , geom type = 2\nelement node num = 4\n"
              "sec 2 , geom type = 2\nelement node num = 4\n"
              "Elset name = ZED , num = 2\nTotal Element num = 2 , Total node num = 16\n");
}

TEST(NaiveNormalisation, SplitsALoneSection) {
    RawModel model;
    model.nodes = nodesAtOrigin({1, 2, 3, 4, 5});
    model.blocks = {{"ALL", "S3", 1, 3, {{1, {1, 2, 3}}, {2, {2, 3, 4}}, {3, {3, 4, 5}}}}};
    model.sets = {
        {"X", false, {"1"}, 0, -1, 1}, {"P", true, {}, 1, 3, 2}, {"Q", true, {}, 3, 4, 1}};
    NaiveNormalisation naive(model);
    naive.sort();
    ASSERT_EQ(naive.shells.size(), 2U);
    EXPECT_EQ(shown(naive.shells[0]), "X  3 | 1: 0 1 2 | 3: 2 3 4 | 0: 0 0 0");
    EXPECT_EQ(shown(naive.shells[1]), "P  3 | 3: 2 3 4 | 1: 0 1 2");
    model.sets.push_back({"BACK", true, {}, 5, 3, 1});
    NaiveNormalisation throwing(model);
    EXPECT_THROW(throwing.sort(), std::length_error);
}

TEST(NaiveNormalisation, MapsTheFacesOfLoadsTwiceInASecondRun) {
    RawModel model;
    model.nodes = nodesAtOrigin({1, 2, 3, 4, 5, 6, 7, 8});
    model.blocks = {{"A", "C3D8", 2, 8, {{1, {1, 2, 3, 4, 5, 6, 7, 8}}}}};
    model.loadLines = {{1, "P1"}, {1, "P7"}};
    NaiveNormalisation naive(model);
    naive.sort();
    ASSERT_EQ(naive.shells.size(), 1U);
    EXPECT_EQ(shown(naive.shells[0]), "Dload_Shell S4 4 | 0: 0 3 2 1");
    naive.sort();
    ASSERT_EQ(naive.shells.size(), 1U);
    EXPECT_EQ(shown(naive.shells[0]), "Dload_Shell S4 4 | 0: 0 2 1 0 | 1: 0 3 2 1");
}

TEST(NaiveNormalisation, ReadsTheListThatAShiftedIndexNames) {
    RawModel model;
    model.nodes = nodesAtOrigin({1, 2, 3, 4});
    model.blocks = {{"S", "C3D4", 2, 4, {{4, {1, 2, 3, 4}}, {5, {4, 3, 2, 1}}}}};
    model.sets = {{"A", false, {"1"}, 0, -1, 1},
                  {"B", false, {"2"}, 0, -1, 1},
                  {"A", false, {"3"}, 0, -1, 1},
                  {"D", false, {"4"}, 0, -1, 1},
                  {"E", false, {"5"}, 0, -1, 1}};
    model.surfaceLines = {{"D", "S2"}, {"E", "S2"}};
    NaiveNormalisation naive(model);
    naive.sort();
    ASSERT_EQ(naive.shells.size(), 1U);
    EXPECT_EQ(shown(naive.shells[0]), "Surface_Shell S4 4 | 0: 3 2 0 0");
}

TEST(NaiveNormalisation, LogsOneTetrahedron) {
    RawModel model;
    model.nodes = nodesAtOrigin({10, 30, 20, 40});
    model.blocks = {{"", "C3D4", 2, 4, {{7, {10, 30, 20, 40}}}}};
    NaiveNormalisation naive(model);
    naive.sort();
    EXPECT_EQ(naive.log(),
              "--------------- Node ID Map-----------------\n"
              "Old ID = 10 , New ID = 0\n"
              "Old ID = 30 , New ID = 1\n"
              "Old ID = 20 , New ID = 2\n"
              "Old ID = 40 , New ID = 3\n"
              "--------------- Element ID Map-----------------\n"
              "Old ID = 7 , MapData = (0, 0)\n"
              "-------- Node Data--------\n"
              "New ID = 0 , Old ID = 10 , (0.000000, 0.000000, 0.000000)\n"
              "New ID = 1 , Old ID = 30 , (0.000000, 0.000000, 0.000000)\n"
              "New ID = 2 , Old ID = 20 , (0.000000, 0.000000, 0.000000)\n"
              "New ID = 3 , Old ID = 40 , (0.000000, 0.000000, 0.000000)\n"
              "-------- Solid Element Data--------\n"
              "------- Solid Element Section 0 --------\n"
              "Type = C3D4, Elset = , Element Node Num = 4\n"
              "New ID = 0 , Old ID = 7 , 0 1 2 3\n"
              "-------- Shell Element Data--------\n"
              "-------- Elset Data--------\n"
              "-------- Dload Data--------\n"
              "Face Elem Num = 0\n");
}

TEST(NaiveNormalisation, RandomDecksReachEveryRule) {
    std::map<std::string, int> reached;
    for (unsigned seed = 1; seed <= 4000; ++seed) {
        NaiveNormalisation naive(randomDeck(seed).model);
        try {
            naive.sort();
        } catch (const std::length_error&) {
        }
        for (const auto& [what, count] : naive.reached)
            reached[what] += count;
    }
    for (const char* what :
         {"reduced", "merged", "solids split", "shells split", "negative count", "Dload_Shell",
          "Surface_Shell", "set continued", "set members dropped"})
        EXPECT_GT(reached[what], 40) << what;
}

}  // namespace
}  // namespace kvocaeio::test
