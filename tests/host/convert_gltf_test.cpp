/// Binary glTF files that `kvocaeio convert` writes.
#include <gmock/gmock.h>

#include "host/glb.h"
#include "host/program.h"

namespace kvocaeio::test {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

// Two bricks and a pyramid on them, of three names: 2 x 1 x 1 and 1 high.
constexpr std::string_view kBricks =
    "*NODE\n"
    "1, 100, 0, 0\n2, 101, 0, 0\n3, 102, 0, 0\n4, 100, 1, 0\n5, 101, 1, 0\n6, 102, 1, 0\n"
    "11, 100, 0, 1\n12, 101, 0, 1\n13, 102, 0, 1\n14, 100, 1, 1\n15, 101, 1, 1\n16, 102, 1, 1\n"
    "20, 100.5, 0.5, 2\n"
    "*ELEMENT, TYPE=C3D8, ELSET=LEFT\n1, 1, 2, 5, 4, 11, 12, 15, 14\n"
    "*ELEMENT, TYPE=C3D8, ELSET=RIGHT\n2, 2, 3, 6, 5, 12, 13, 16, 15\n"
    "*ELEMENT, TYPE=C3D5, ELSET=RIGHT\n3, 11, 12, 15, 14, 20\n"
    "*ELEMENT, TYPE=S3, ELSET=SKIN\n4, 1, 2, 4\n";

Glb convertedMesh(std::string_view deck, const std::vector<std::string>& options = {}) {
    const TempFolder folder;
    std::vector<std::string> words = {"convert", "--force"};
    words.insert(words.end(), options.begin(), options.end());
    words.push_back(folder.write("in.inp", deck));
    words.push_back(folder.file("out.glb"));
    const Outcome outcome = runHost(words);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    return Glb(readBytes(folder.file("out.glb")));
}

TEST(GltfMesh, IsInMetresWithYUp) {
    const Glb glb = convertedMesh(kBricks, {"--unit", "cm"});
    // Places are relative to the middle of the mesh, x 101, y 0.5, z 1.
    const std::vector<double> middle = glb.document.at("nodes").back().at("translation");
    EXPECT_THAT(middle, ElementsAre(DoubleNear(1.01, 1e-12), DoubleNear(0.01, 1e-12),
                                    DoubleNear(-0.005, 1e-12)));
    EXPECT_THAT(glb.points("SKIN"), UnorderedElementsAre(Glb::Point{-0.01f, -0.01f, 0.005f},
                                                         Glb::Point{0.0f, -0.01f, 0.005f},
                                                         Glb::Point{-0.01f, -0.01f, -0.005f}));
    const auto points = glb.primitive("SKIN").at("attributes").at("POSITION").get<std::size_t>();
    const nlohmann::json& bounds = glb.document.at("accessors").at(points);
    EXPECT_NEAR(bounds.at("min").at(0), -0.01, 1e-9);
    EXPECT_NEAR(bounds.at("max").at(2), 0.005, 1e-9);
}

TEST(GltfMesh, HasTheOuterFacesOfEachSection) {
    const Glb glb = convertedMesh(kBricks, {"--unit", "m"});
    // Also those on which the other section borders.
    EXPECT_EQ(glb.triangles("LEFT").size(), 12u);
    EXPECT_TRUE(isClosed(glb.triangles("LEFT")));
    EXPECT_NEAR(volumeOf(glb.triangles("LEFT")), 1.0, 1e-6);
    EXPECT_EQ(glb.triangles("RIGHT").size(), 12u + 2 + 4);
    EXPECT_TRUE(isClosed(glb.triangles("RIGHT")));
    EXPECT_NEAR(volumeOf(glb.triangles("RIGHT")), 1.0 + 1.0 / 3.0, 1e-6);
    EXPECT_EQ(glb.triangles("SKIN").size(), 1u);
    EXPECT_EQ(glb.node("RIGHT").at("extras").at("elements"), 2);
    EXPECT_EQ(glb.node("SKIN").at("extras").at("origin"), "shell");
}

TEST(GltfMesh, CurvedFacesHaveTheirMidSideNodes) {
    const Glb glb = convertedMesh(
        "*NODE\n1, 0, 0, 0\n2, 2, 0, 0\n3, 0, 2, 0\n4, 0, 0, 2\n5, 1, 0, 0\n6, 1, 1, 0\n"
        "7, 0, 1, 0\n8, 0, 0, 1\n9, 1, 0, 1\n10, 0, 1, 1\n"
        "*ELEMENT, TYPE=C3D10, ELSET=A\n1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10\n",
        {"--unit", "m"});
    EXPECT_EQ(glb.points("A").size(), 10u);
    EXPECT_EQ(glb.triangles("A").size(), 16u);
    EXPECT_TRUE(isClosed(glb.triangles("A")));
    EXPECT_NEAR(volumeOf(glb.triangles("A")), 8.0 / 6.0, 1e-6);
}

TEST(GltfMesh, FacesOfSurfacesHideThoseOfTheSolids) {
    const Glb glb = convertedMesh(std::string(kBricks) +
                                  "*ELSET, ELSET=ONE\n1\n"
                                  "*SURFACE, TYPE=ELEMENT, NAME=TOP\nONE, S3\n");
    EXPECT_EQ(glb.triangles("Surface_Shell").size(), 2u);
    EXPECT_EQ(glb.triangles("LEFT").size(), 10u);
    EXPECT_NE(glb.color("Surface_Shell"), glb.color("LEFT"));
}

TEST(GltfMesh, SaysWhatItDoesNotHold) {
    const TempFolder folder;
    const std::string out = folder.file("out.glb");
    EXPECT_THAT(runHost({"convert", sampleDeck("bracket.pat"), out}).output,
                testing::AllOf(HasSubstr("  left out: 94 elements of which no face can be seen\n"),
                               HasSubstr("  note: lengths are taken for millimetres, which become "
                                         "metres: --unit names another unit\n")));
    const Glb glb(readBytes(out));
    EXPECT_EQ(glb.node("property 1").at("extras").at("property"), 1);
    EXPECT_THAT(runHost({"convert", folder.write("in.inp", kBricks), out}).output,
                HasSubstr("  left out: 17 OIDs of nodes and elements\n"));
}

TEST(GltfMesh, BarsAreLines) {
    const TempFolder folder;
    const std::string out = folder.file("out.glb");
    ASSERT_EQ(runHost({"convert", sampleDeck("bracket.pat"), out}).exitCode, 0);
    const Glb glb(readBytes(out));
    std::size_t lines = 0;
    for (const nlohmann::json& mesh : glb.document.at("meshes"))
        if (mesh.at("primitives").at(0).value("mode", 4) == 1)
            lines +=
                glb.values<std::uint32_t>(mesh.at("primitives").at(0).at("indices")).size() / 2;
    EXPECT_EQ(lines, 7u);
}

TEST(GltfPackage, BodiesAreBoxesAndBallsInTheirColours) {
    const TempFolder folder;
    const std::string out = folder.file("out.glb");
    const Outcome outcome = runHost({"convert", sampleDeck("stack.3di"), out});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.output, testing::StartsWith(out + ": 167 bodies, 96 wires\n"));
    const Glb glb(readBytes(out));
    const nlohmann::json report = jsonReport(sampleDeck("stack.3di")).at("package");
    std::size_t bodies = 0;
    for (const nlohmann::json& body : report.at("bodies")) {
        const nlohmann::json& node = glb.document.at("nodes").at(bodies++);
        EXPECT_EQ(node.at("name"), body.at("name"));
        const std::vector<double> center = body.at("center");
        const std::vector<double> place = node.at("translation");
        EXPECT_THAT(place, ElementsAre(DoubleNear(center[0] / 1000, 1e-12),
                                       DoubleNear(center[2] / 1000, 1e-12),
                                       DoubleNear(-center[1] / 1000, 1e-12)));
    }
    EXPECT_EQ(bodies, 167u);
    EXPECT_EQ(glb.node("SUBSTRATE").at("extras").at("kind"), "substrate");
    for (const char* name : {"SUBSTRATE", "BOTTOM"}) {
        // One wide in all directions, and scaled to the size of the body.
        EXPECT_TRUE(isClosed(glb.triangles(name)));
    }
    EXPECT_NEAR(volumeOf(glb.triangles("SUBSTRATE")), 1.0, 1e-6);
    EXPECT_NEAR(volumeOf(glb.triangles("BOTTOM")), 0.5236, 0.04);
}

TEST(GltfPackage, HasTheColoursOfTheFile) {
    const TempFolder folder;
    const std::string out = folder.file("out.glb");
    ASSERT_EQ(runHost({"convert", sampleDeck("stack.3di"), out}).exitCode, 0);
    const Glb glb(readBytes(out));
    // #006000, #e6be3c and #282828 in linear values; of the cap a part of the light comes through.
    EXPECT_THAT(glb.color("SUBSTRATE"), ElementsAre(0, DoubleNear(0.11697, 1e-5), 0, 1));
    EXPECT_THAT(glb.color("AU20_LOW"),
                ElementsAre(DoubleNear(0.7913, 1e-4), DoubleNear(0.5149, 1e-4),
                            DoubleNear(0.0452, 1e-4), 1));
    EXPECT_THAT(glb.color("PACKAGECAP"),
                ElementsAre(DoubleNear(0.0212, 1e-4), DoubleNear(0.0212, 1e-4),
                            DoubleNear(0.0212, 1e-4), 0.3));
}

TEST(GltfPackage, WiresAreTubesOfTrueDiameter) {
    const TempFolder folder;
    const std::string out = folder.file("out.glb");
    ASSERT_EQ(runHost({"convert", sampleDeck("stack.3di"), out}).exitCode, 0);
    const Glb glb(readBytes(out));
    EXPECT_TRUE(isClosed(glb.triangles("AU20_LOW")));
    EXPECT_TRUE(isClosed(glb.triangles("AU25_LOOP")));
    // Polygons of twelve corners have the area of 3 times the square of the radius: lengths of
    // 85.1724 and 261.513 mm, diameters of 0.02 and 0.025 mm.
    EXPECT_NEAR(volumeOf(glb.triangles("AU20_LOW")) * 1e9, 85.1724 * 3 * 0.01 * 0.01, 2e-4);
    EXPECT_NEAR(volumeOf(glb.triangles("AU25_LOOP")) * 1e9, 261.513 * 3 * 0.0125 * 0.0125, 1e-3);
    EXPECT_EQ(glb.node("AU25_LOOP").at("extras").at("wires"), 48);
    EXPECT_EQ(glb.node("AU25_LOOP").at("extras").at("profile"), 2);
}

TEST(GltfPackage, IsNotWrittenAsADeck) {
    const TempFolder folder;
    const Outcome outcome = runHost({"convert", sampleDeck("stack.3di"), folder.file("out.inp")});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors,
                HasSubstr("is a package, which is not written as .inp but as .glb"));
}

}  // namespace
}  // namespace kvocaeio::test
