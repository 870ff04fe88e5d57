/// The VTK files that `kvocaeio convert` writes: what is in them, and what is said of the rest.
#include <gmock/gmock.h>

#include "host/program.h"
#include "host/vtk_document.h"

namespace kvocaeio::test {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

// A brick and a wedge under one name, a pyramid, a shell, a quadratic tetrahedron, a bar, a load.
constexpr std::string_view kEveryKind =
    "*NODE\n"
    "10, 0, 0, 0\n20, 1, 0, 0\n30, 1, 1, 0\n40, 0, 1, 0\n"
    "50, 0, 0, 2\n60, 1, 0, 2\n70, 1, 1, 2\n80, 0, 1, 2\n90, 0.5, 0.5, 3.5\n"
    "95, 2.00025, 0, 0\n96, 2, 0, 2\n"
    "*ELEMENT, TYPE=C3D8, ELSET=BODY\n8, 10, 20, 30, 40, 50, 60, 70, 80\n"
    "*ELEMENT, TYPE=C3D6, ELSET=BODY\n2, 20, 95, 30, 60, 96, 70\n"
    "*ELEMENT, TYPE=C3D5, ELSET=TIP\n3, 50, 60, 70, 80, 90\n"
    "*ELEMENT, TYPE=S4, ELSET=SKIN\n4, 10, 20, 30, 40\n"
    "*ELEMENT, TYPE=B31, ELSET=BEAM\n7, 10, 20\n"
    "*ELEMENT, TYPE=C3D10, ELSET=TIP\n9, 10, 20, 40, 50, 30, 60, 70, 80, 90, 95\n"
    "*SHELL SECTION, ELSET=SKIN, MATERIAL=ABS\n0.25, 5\n"
    "*DLOAD\n3, P1, 1.0\n8, P2, 1.0\n";

/// What the program writes of `deck` as a VTK file.
VtkDocument converted(std::vector<std::string> options, const std::string& source,
                      const char* name = "out.vtu") {
    const TempFolder folder;
    options.insert(options.begin(), {"convert", "--quiet"});
    options.insert(options.end(), {source, folder.file(name)});
    const Outcome outcome = runHost(options);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    return VtkDocument(readBytes(folder.path() / name));
}

VtkDocument convertedDeck(const std::vector<std::string>& options) {
    const TempFolder folder;
    return converted(options, folder.write("in.inp", kEveryKind));
}

TEST(ConvertVtk, HoldsEveryElementAsItIs) {
    const VtkDocument file = convertedDeck({"--as-is"});
    EXPECT_THAT(file.head(), HasSubstr("<Piece NumberOfPoints=\"11\" NumberOfCells=\"6\">"));
    EXPECT_THAT(file.bytes("Cells", "types"), ElementsAre(12, 13, 14, 9, 24, 9));
    EXPECT_THAT(file.ints("Cells", "offsets"), ElementsAre(8, 14, 19, 23, 33, 37));
    EXPECT_THAT(file.ints("Cells", "connectivity"),
                ElementsAre(0, 1, 2, 3, 4, 5, 6, 7,        // the brick
                            1, 2, 9, 5, 6, 10,             // the wedge, turned
                            4, 5, 6, 7, 8,                 // the pyramid
                            0, 1, 2, 3,                    // the shell
                            0, 1, 3, 4, 2, 5, 6, 7, 8, 9,  // the quadratic tetrahedron
                            4, 5, 6, 7));                  // the face with the load
    EXPECT_THAT(file.ints("CellData", "OID"), ElementsAre(8, 2, 3, 4, 9, 0));
    EXPECT_THAT(file.ints("CellData", "Section"), ElementsAre(0, 1, 2, 3, 5, 6));
    EXPECT_THAT(file.ints("CellData", "Set"), ElementsAre(0, 0, 1, 2, 1, 3));
    EXPECT_THAT(file.texts("FieldData", "SetNames"),
                ElementsAre("BODY", "TIP", "SKIN", "Dload_Shell"));
    EXPECT_THAT(file.bytes("CellData", "GeometryType"), ElementsAre(2, 2, 2, 1, 2, 1));
    EXPECT_THAT(file.bytes("CellData", "Origin"), ElementsAre(0, 0, 0, 1, 0, 2));
    EXPECT_FALSE(file.has("CellData", "Property"));
}

TEST(ConvertVtk, HoldsNodesWithOidsAndAllDigits) {
    const VtkDocument file = convertedDeck({"--as-is", "--scale", "2"});
    EXPECT_THAT(file.ints("PointData", "OID"),
                ElementsAre(10, 20, 30, 40, 50, 60, 70, 80, 90, 95, 96));
    const std::vector<double> places = file.doubles("Points", "Points");
    ASSERT_THAT(places, SizeIs(33));
    EXPECT_EQ(places[3], 2.0);
    EXPECT_EQ(places[27], 4.0005);
}

TEST(ConvertVtk, SaysWhatTheSourceIs) {
    const TempFolder folder;
    const std::string deck = folder.write("in.inp", kEveryKind);
    const VtkDocument file = converted({"--as-is", "--unit", "inch"}, deck);
    EXPECT_THAT(file.texts("FieldData", "Source"), ElementsAre(deck));
    EXPECT_THAT(file.texts("FieldData", "LengthUnit"), ElementsAre("inch"));
    EXPECT_THAT(file.doubles("FieldData", "SetThicknesses"), ElementsAre(0, 0, 0.25, 0));
    EXPECT_THAT(file.ints("FieldData", "ImportFindings"), ElementsAre(0, 1, 1));
    EXPECT_THAT(file.texts("FieldData", "ImportTexts"),
                Contains(HasSubstr("[abaqus.element-type-other]")));
}

TEST(ConvertVtk, TellsWhatItCannotHold) {
    const TempFolder folder;
    const std::string out = folder.file("out.vtu");
    const Outcome outcome =
        runHost({"convert", "--as-is", folder.write("in.inp", kEveryKind), out});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(ownLinesOf(outcome.output),
                ElementsAre(out + ": 11 nodes, 6 elements in 6 sections",
                            "  left out: 1 element of unknown type"));
    EXPECT_EQ(runHost({"convert", "--as-is", "--strict", "--quiet",
                       folder.write("in.inp", kEveryKind), out})
                  .exitCode,
              1);
}

TEST(ConvertVtk, TakesTheNormalisedMesh) {
    const VtkDocument file = convertedDeck({"--as-is", "--normalised"});
    EXPECT_THAT(file.texts("FieldData", "SetNames"),
                ElementsAre("BODY", "TIP", "SKIN", "Dload_Shell"));
    // Corners alone, by section: a brick, a wedge; a pyramid, a tetrahedron; shell and face.
    EXPECT_THAT(file.bytes("Cells", "types"), ElementsAre(12, 13, 14, 10, 9, 9));
    EXPECT_THAT(file.ints("CellData", "Section"), ElementsAre(0, 0, 1, 1, 2, 3));
    EXPECT_FALSE(file.has("CellData", "OID"));
    EXPECT_TRUE(file.has("PointData", "OID"));
}

TEST(ConvertVtk, OfElementsThatAreListedAgainHoldsOne) {
    const TempFolder folder;
    const std::string deck = folder.write("in.inp",
                                          "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n"
                                          "*ELEMENT, TYPE=C3D4, ELSET=A\n1, 1, 2, 3, 4\n"
                                          "1, 1, 2, 3, 4\n2, 1, 2, 3, 77\n");
    const VtkDocument file = converted({"--as-is", "--force"}, deck);
    EXPECT_THAT(file.ints("CellData", "OID"), ElementsAre(1));
}

TEST(ConvertVtk, ReadsNastranDecks) {
    const VtkDocument file = converted({}, sampleDeck("bracket.bdf"));
    const std::vector<int> types = file.bytes("Cells", "types");
    EXPECT_EQ(std::ranges::count(types, 10), 216);
    EXPECT_EQ(std::ranges::count(types, 13), 24);
    EXPECT_EQ(std::ranges::count(types, 3), 7);
    EXPECT_EQ(std::ranges::count(types, 12), 30);
    EXPECT_EQ(file.ints("PointData", "OID").front(), 101);
}

TEST(ConvertVtk, ReadsPatranFilesWithTheirProperties) {
    const VtkDocument file = converted({}, sampleDeck("bracket.pat"));
    const std::vector<int> properties = file.ints("CellData", "Property");
    EXPECT_THAT(properties, SizeIs(313));
    EXPECT_EQ(properties.front(), 3);
    EXPECT_FALSE(file.has("CellData", "OID"));
    EXPECT_THAT(file.texts("FieldData", "SetNames"),
                ElementsAre("property 3", "property 2", "property 1", "property 4", "property 5"));
}

TEST(ConvertVtk, HoldsPackagesAsSurfacesAndLines) {
    const VtkDocument file = converted({}, sampleDeck("stack.3di"), "out.vtp");
    // 96 wires, seven boxes of six sides, 160 balls of 72.
    EXPECT_THAT(file.head(), HasSubstr("NumberOfLines=\"96\" NumberOfStrips=\"0\" "
                                       "NumberOfPolys=\"11562\""));
    const std::vector<std::string> names = file.texts("FieldData", "BodyNames");
    ASSERT_THAT(names, SizeIs(167));
    EXPECT_EQ(names[1], "LOGIC_DIE");
    EXPECT_EQ(file.texts("FieldData", "BodyKinds")[1], "die");
    EXPECT_THAT(file.texts("FieldData", "ProfileNames"),
                ElementsAre("AU20_LOW", "AU25_LOOP", "CU18_SPARE"));
    EXPECT_THAT(file.texts("FieldData", "LengthUnit"), ElementsAre("mm"));
    const std::vector<int> bodies = file.ints("CellData", "Body");
    ASSERT_THAT(bodies, SizeIs(96 + 11562));
    EXPECT_EQ(bodies[95], -1);
    EXPECT_EQ(bodies[96], 0);
    EXPECT_EQ(bodies.back(), 166);
    EXPECT_EQ(file.doubles("CellData", "Diameter")[0], 0.02);
    std::vector<int> color = file.bytes("CellData", "Color");
    color.resize(3);
    EXPECT_THAT(color, ElementsAre(230, 190, 60));
}

TEST(ConvertVtk, ReadsTheReportsOfACadenceDesign) {
    const VtkDocument file = converted({}, sampleDeck("reports"), "out.vtp");
    EXPECT_THAT(file.texts("FieldData", "BodyNames"),
                ElementsAre("SUBSTRATE", "LOGIC_DIE", "SPACER_LOW", "MEMORY_DIE", "INTERPOSER_TOP",
                            "SENSOR_DIE"));
    EXPECT_THAT(file.head(), HasSubstr("NumberOfPolys=\"36\""));
    const TempFolder folder;
    const Outcome outcome = runHost({"convert", folder.path().string(), folder.file("out.vtp")});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("no reports of a design that can be used"));
}

TEST(ConvertVtk, RefusesWhatTheTargetIsNotFor) {
    const TempFolder folder;
    const std::string mesh = folder.write("in.inp", kEveryKind);
    EXPECT_EQ(runHost({"convert", mesh, folder.file("out.vtp")}).errors,
              "kvocaeio: " + mesh +
                  ": is a mesh, which is not written as .vtp but as .nas, .bdf (Nastran), .pat "
                  "(Patran), .inp (Abaqus), .glb (glTF), .vtu (VTK)\n");
    const std::string package = sampleDeck("stack.3di");
    const Outcome outcome = runHost({"convert", package, folder.file("out.vtu")});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors,
              "kvocaeio: " + package +
                  ": is a package, which is not written as .vtu but as .glb (glTF), .vtp (VTK)\n");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "out.vtu"));
}

#if KVOCAEIO_HAS_ZLIB

TEST(ConvertVtk, HoldsTheSameInCompressedBlocks) {
    const std::string package = sampleDeck("stack.3di");
    const VtkDocument plain = converted({}, package, "out.vtp");
    const VtkDocument file = converted({"--compress"}, package, "out.vtp");
    EXPECT_THAT(file.head(), HasSubstr(" compressor=\"vtkZLibDataCompressor\">"));
    EXPECT_THAT(plain.head(), Not(HasSubstr("compressor")));
    for (const char* name : {"Body", "Wire", "Profile"})
        EXPECT_EQ(file.ints("CellData", name), plain.ints("CellData", name)) << name;
    EXPECT_EQ(file.ints("Polys", "connectivity"), plain.ints("Polys", "connectivity"));
    EXPECT_EQ(file.doubles("Points", "Points"), plain.doubles("Points", "Points"));
    EXPECT_EQ(file.bytes("CellData", "Color"), plain.bytes("CellData", "Color"));
    EXPECT_EQ(file.texts("FieldData", "BodyNames")[1], "LOGIC_DIE");
}

TEST(ConvertVtk, CompressesToAPart) {
    const TempFolder folder;
    const auto sizeOf = [&](const char* option) {
        const std::string out = folder.file("out.vtp");
        EXPECT_EQ(runHost({"convert", option, sampleDeck("stack.3di"), out}).exitCode, 0);
        return std::filesystem::file_size(out);
    };
    EXPECT_LT(sizeOf("--compress"), sizeOf("--as-is") / 3);
}

TEST(ConvertVtk, CompressesNoOtherTargets) {
    const TempFolder folder;
    const std::string out = folder.file("out.glb");
    const Outcome outcome = runHost({"convert", "--compress", sampleDeck("stack.3di"), out});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors,
              "kvocaeio: " + out + ": cannot be compressed, as .vtu, .vtp (VTK) can be\n");
    EXPECT_FALSE(std::filesystem::exists(out));
}

#else

TEST(ConvertVtk, SaysThatItCannotCompress) {
    const TempFolder folder;
    const std::string out = folder.file("out.vtp");
    const Outcome outcome = runHost({"convert", "--compress", sampleDeck("stack.3di"), out});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors,
              "kvocaeio: " + out + ": cannot be compressed: this program was built without zlib\n");
}

#endif

TEST(ConvertVtk, RefusesMeshesWithoutElements) {
    const TempFolder folder;
    const std::string deck = folder.write("in.inp", "*NODE\n1, 0, 0, 0\n");
    EXPECT_EQ(runHost({"convert", "--as-is", deck, folder.file("out.vtu")}).errors,
              "kvocaeio: " + deck + ": holds no elements\n");
}

}  // namespace
}  // namespace kvocaeio::test
