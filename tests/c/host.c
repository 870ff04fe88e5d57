/// A host in plain C: opens files of all formats, goes over what they hold, and writes meshes. It
/// is compiled as C and as C++.
#include <stdio.h>
#include <string.h>

#include <kvocaeio/kvocaeio.h>

static int failures = 0;

#define EXPECT(condition)                                                                     \
    ((condition) ? (void)0                                                                    \
                 : (void)(++failures, fprintf(stderr, "%s:%d: %s (%s)\n", __FILE__, __LINE__, \
                                              #condition, kvocaeio_error_text())))

static void writeFile(const char* path, const char* text) {
    FILE* const file = fopen(path, "wb");
    EXPECT(file != NULL);
    if (file != NULL) {
        fputs(text, file);
        fclose(file);
    }
}

static const char deckText[] =
    "*NODE\n10, 0., 0., 0.\n20, 1., 0., 0.\n30, 0., 1., 0.\n40, 0., 0., 2.5\n"
    "*ELEMENT, TYPE=C3D4, ELSET=Body\n7, 10, 20, 30, 40\n8, 10, 20, 30, 50\n"
    "*ELEMENT, TYPE=S3, ELSET=Skin\n9, 10, 20, 30\n"
    "*SHELL SECTION, ELSET=Skin, MATERIAL=Steel\n0.75\n*BOUNDARY\n10, 1\n";

static void openDeck(void) {
    kvocaeio_model* deck;
    kvocaeio_nodes nodes;
    kvocaeio_section section;
    kvocaeio_shell_sections shells;
    const int32_t* oids;
    const int32_t* rows;
    size_t count = 0;
    writeFile("host.inp", deckText);
    EXPECT(kvocaeio_open("host.inp", NULL, &deck) == KVOCAEIO_OK);
    EXPECT(kvocaeio_model_format(deck) == KVOCAEIO_FORMAT_ABAQUS);

    nodes.struct_size = sizeof nodes;
    EXPECT(kvocaeio_get_nodes(deck, &nodes) == KVOCAEIO_OK);
    EXPECT(nodes.count == 4 && nodes.oids[3] == 40);
    EXPECT(nodes.coordinates[3 * 3 + 2] == 2.5 && nodes.float_coordinates == NULL);

    EXPECT(kvocaeio_get_section_count(deck, KVOCAEIO_SECTIONS, &count) == KVOCAEIO_OK);
    EXPECT(count == 2);
    section.struct_size = sizeof section;
    EXPECT(kvocaeio_get_section(deck, KVOCAEIO_SECTIONS, 0, &section) == KVOCAEIO_OK);
    EXPECT(strcmp(section.name, "BODY") == 0 && strcmp(section.type, "C3D4") == 0);
    EXPECT(section.geometry == KVOCAEIO_GEOMETRY_SOLID);
    EXPECT(section.kind == KVOCAEIO_KIND_TETRAHEDRON);
    EXPECT(section.count == 2 && section.nodes_per_element == 4 && section.oids[1] == 8);
    EXPECT(kvocaeio_get_connectivity(deck, KVOCAEIO_SECTIONS, 0, KVOCAEIO_OIDS, &oids) ==
           KVOCAEIO_OK);
    EXPECT(kvocaeio_get_connectivity(deck, KVOCAEIO_SECTIONS, 0, KVOCAEIO_ROWS, &rows) ==
           KVOCAEIO_OK);
    EXPECT(oids[3] == 40 && rows[3] == 3);
    EXPECT(oids[7] == 50 && rows[7] == -1); /* no node has the OID 50 */

    shells.struct_size = sizeof shells;
    EXPECT(kvocaeio_get_shell_sections(deck, &shells) == KVOCAEIO_OK);
    EXPECT(shells.count == 1 && strcmp(shells.names[0], "SKIN") == 0);
    EXPECT(strcmp(shells.materials[0], "STEEL") == 0 && shells.thicknesses[0] == 0.75);

    EXPECT(kvocaeio_model_is_normalised(deck) == 0);
    EXPECT(kvocaeio_normalise(deck, NULL) == KVOCAEIO_OK);
    EXPECT(kvocaeio_model_is_normalised(deck) == 1);
    EXPECT(kvocaeio_get_section_count(deck, KVOCAEIO_NORMALISED_SHELLS, &count) == KVOCAEIO_OK);
    EXPECT(count == 1);
    EXPECT(kvocaeio_get_section(deck, KVOCAEIO_NORMALISED_SHELLS, 0, &section) == KVOCAEIO_OK);
    EXPECT(section.kind == KVOCAEIO_KIND_TRIANGLE && section.oids == NULL);
    EXPECT(kvocaeio_get_connectivity(deck, KVOCAEIO_NORMALISED_SHELLS, 0, KVOCAEIO_ROWS, &rows) ==
           KVOCAEIO_OK);
    EXPECT(kvocaeio_get_connectivity(deck, KVOCAEIO_NORMALISED_SHELLS, 0, KVOCAEIO_OIDS, &oids) ==
           KVOCAEIO_OK);
    EXPECT(rows[2] == 2 && oids[2] == 30);
    kvocaeio_close(deck);
}

static int32_t stopAtOnce(void* user, uint64_t done, uint64_t total) {
    ++*(int*)user;
    return done <= total ? 1 : 0;
}

static void readReport(void) {
    kvocaeio_options options;
    kvocaeio_model* deck;
    kvocaeio_report* report;
    kvocaeio_finding finding;
    kvocaeio_place place;
    kvocaeio_count counted;
    int calls = 0;
    EXPECT(kvocaeio_report_create(&report) == KVOCAEIO_OK);
    kvocaeio_init_options(&options, sizeof options);
    options.format = KVOCAEIO_FORMAT_ABAQUS;
    options.report = report;
    EXPECT(kvocaeio_open("host.inp", &options, &deck) == KVOCAEIO_OK);
    EXPECT(kvocaeio_report_finding_count(report) == 2);
    finding.struct_size = sizeof finding;
    EXPECT(kvocaeio_report_finding(report, 0, &finding) == KVOCAEIO_OK);
    EXPECT(strcmp(finding.code, "abaqus.keyword-passed-over") == 0 && finding.line == 13);
    EXPECT(finding.severity == KVOCAEIO_NOTE && finding.place_count == 1);
    EXPECT(strcmp(finding.file, "host.inp") == 0);
    place.struct_size = sizeof place;
    EXPECT(kvocaeio_report_place(report, 0, 0, &place) == KVOCAEIO_OK);
    EXPECT(strcmp(place.text, "*BOUNDARY") == 0 && place.line == 13);
    EXPECT(kvocaeio_report_place(report, 0, 1, &place) == KVOCAEIO_BAD_ARGUMENT);
    EXPECT(kvocaeio_report_code_count(report, "mesh.node-undefined") == 0);
    EXPECT(kvocaeio_report_severity_count(report, KVOCAEIO_NOTE) == 1);
    counted.struct_size = sizeof counted;
    EXPECT(kvocaeio_report_count_count(report) > 0);
    EXPECT(kvocaeio_report_count(report, 0, &counted) == KVOCAEIO_OK);
    EXPECT(strcmp(counted.name, "nodes") == 0 && counted.count == 4);
    EXPECT(kvocaeio_report_failure(report, &finding) == 0);
    kvocaeio_close(deck);

    EXPECT(kvocaeio_open("missing.inp", &options, &deck) == KVOCAEIO_CANNOT_OPEN);
    EXPECT(deck == NULL);
    EXPECT(strcmp(kvocaeio_error_file(), "missing.inp") == 0 && kvocaeio_error_line() == 0);
    EXPECT(kvocaeio_report_failure(report, &finding) == 1);
    EXPECT(strcmp(finding.code, "file.cannot-open") == 0);

    options.progress = stopAtOnce;
    options.progress_user = &calls;
    EXPECT(kvocaeio_open("host.inp", &options, &deck) == KVOCAEIO_STOPPED);
    EXPECT(calls == 1 && deck == NULL);
    kvocaeio_report_destroy(report);
}

static const int32_t elementOids[] = {5, 3};
static const int32_t elementNodes[] = {11, 22, 33, 44, 44, 22, 33, 55};
static const int32_t nodeOids[] = {11, 22, 33, 44, 55};
static const double coordinates[] = {0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 1, 1, 1.25};

static void writeMesh(const char* path, int32_t format) {
    kvocaeio_block block;
    kvocaeio_mesh mesh;
    kvocaeio_options options;
    kvocaeio_model* written;
    kvocaeio_nodes nodes;
    kvocaeio_section section;
    const int32_t* oids;
    memset(&block, 0, sizeof block);
    block.nodes_per_element = 4;
    block.count = 2;
    block.oids = elementOids;
    block.nodes = elementNodes;
    memset(&mesh, 0, sizeof mesh);
    mesh.struct_size = sizeof mesh;
    mesh.node_count = 5;
    mesh.node_oids = nodeOids;
    mesh.coordinates = coordinates;
    mesh.block_count = 1;
    mesh.block_size = sizeof block;
    mesh.blocks = &block;
    EXPECT(kvocaeio_write(path, format, &mesh) == KVOCAEIO_OK);

    /* The written deck has its fields between commas, which the reader takes once they are tidied.
     */
    kvocaeio_init_options(&options, sizeof options);
    options.tidy = 1;
    EXPECT(kvocaeio_open(path, &options, &written) == KVOCAEIO_OK);
    EXPECT(kvocaeio_model_format(written) == format);
    nodes.struct_size = sizeof nodes;
    EXPECT(kvocaeio_get_nodes(written, &nodes) == KVOCAEIO_OK);
    EXPECT(nodes.count == 5 && nodes.oids[4] == 55 && nodes.coordinates == NULL);
    EXPECT(nodes.float_coordinates[3 * 4 + 2] == 1.25F);
    section.struct_size = sizeof section;
    EXPECT(kvocaeio_get_section(written, KVOCAEIO_SECTIONS, 0, &section) == KVOCAEIO_OK);
    EXPECT(section.count == 2 && section.kind == KVOCAEIO_KIND_TETRAHEDRON);
    EXPECT(kvocaeio_get_connectivity(written, KVOCAEIO_SECTIONS, 0, KVOCAEIO_OIDS, &oids) ==
           KVOCAEIO_OK);
    /* The reader of Nastran decks has rows by OID, that of Patran files in file order. */
    EXPECT(section.oids[0] == (format == KVOCAEIO_FORMAT_NASTRAN ? 3 : 5));
    EXPECT(oids[format == KVOCAEIO_FORMAT_NASTRAN ? 3 : 7] == 55);
    kvocaeio_close(written);

    block.nodes_per_element = 5;
    EXPECT(kvocaeio_write(path, format, &mesh) == KVOCAEIO_BAD_ARGUMENT);
    EXPECT(kvocaeio_open(path, &options, &written) == KVOCAEIO_OK); /* the old one */
    kvocaeio_close(written);
}

static void openPackage(void) {
    kvocaeio_model* package;
    kvocaeio_bodies bodies;
    kvocaeio_wires wires;
    kvocaeio_nodes nodes;
    writeFile("host.3di",
              "3DI MM\nTABLE COLOR\n1 255 0 0 0\nTABLE OBJECT\n1 SYMBOL\n2 BALL\n"
              "TABLE LAYER\n1 OUTLINE\nTABLE END\n");
    EXPECT(kvocaeio_open("host.3di", NULL, &package) == KVOCAEIO_OK);
    EXPECT(kvocaeio_model_format(package) == KVOCAEIO_FORMAT_3DI);
    bodies.struct_size = sizeof bodies;
    wires.struct_size = sizeof wires;
    nodes.struct_size = sizeof nodes;
    EXPECT(kvocaeio_get_bodies(package, &bodies) == KVOCAEIO_OK && bodies.count == 0);
    EXPECT(kvocaeio_get_wires(package, &wires) == KVOCAEIO_OK && wires.first_points[0] == 0);
    EXPECT(kvocaeio_get_nodes(package, &nodes) == KVOCAEIO_NO_SUCH_TABLE);
    kvocaeio_close(package);
}

int main(void) {
    EXPECT(kvocaeio_version() == KVOCAEIO_VERSION);
    openDeck();
    readReport();
    writeMesh("host.nas", KVOCAEIO_FORMAT_NASTRAN);
    writeMesh("host.pat", KVOCAEIO_FORMAT_PATRAN);
    openPackage();
    printf("%d failures\n", failures);
    return failures == 0 ? 0 : 1;
}
