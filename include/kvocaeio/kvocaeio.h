/// The interface for hosts of every compiler and language: C99, one header.
///
///     kvocaeio_options options;
///     kvocaeio_model* model;
///     kvocaeio_nodes nodes;
///     kvocaeio_init_options(&options, sizeof options);
///     if (kvocaeio_open("part.inp", &options, &model) != KVOCAEIO_OK)
///         return fail(kvocaeio_error_text());
///     nodes.struct_size = sizeof nodes;
///     if (kvocaeio_get_nodes(model, &nodes) == KVOCAEIO_OK)
///         ... nodes.oids[i], nodes.coordinates[3 * i] ...
///     kvocaeio_close(model);
///
/// Handles: a `kvocaeio_model` is a file that was read, a `kvocaeio_report` is what was noticed
/// while it was read. Both are opaque, made by one call and released by another.
///
/// Arrays: those that a model hands out are its own. They are contiguous and aligned, and stay
/// valid until the model is closed; the caller frees nothing and writes nothing. Shapes are written
/// as [rows][columns], row after row. A pointer to an array without rows may be null.
///
/// Structs: the caller sets `struct_size` to the size of the struct before each call. The library
/// fills, or reads, only the members that lie within that size, so a host goes on working with a
/// later library whose structs have more members at their ends.
///
/// Failures: a call that may fail returns a status. `kvocaeio_error_text` tells the reason of the
/// last failure of the calling thread. A call that fails leaves what it was to set untouched,
/// unless it says otherwise. No exception leaves the library, and nothing is printed.
///
/// Threads: a handle serves one thread at a time. Handles share nothing, so that each may serve a
/// thread of its own.
///
/// Paths and other texts are UTF-8 on every platform. What comes from a file is handed out byte for
/// byte as it stands there, whatever its encoding.
#ifndef KVOCAEIO_KVOCAEIO_H
#define KVOCAEIO_KVOCAEIO_H

// NOLINTBEGIN(modernize-*): this is C, too.
#include <stddef.h>
#include <stdint.h>

#include <kvocaeio/export.h>
#include <kvocaeio/version.h>

#ifdef __cplusplus
extern "C" {
#endif

/// The outcome of a call: one of the constants below.
typedef int32_t kvocaeio_status;

/// Values of `kvocaeio_status`.
enum {
    /// The call has done what it says.
    KVOCAEIO_OK = 0,
    /// The progress function has stopped the import.
    KVOCAEIO_STOPPED = 1,
    /// Memory ran out.
    KVOCAEIO_OUT_OF_MEMORY = 2,
    /// An argument is null, an index lies outside its table, a struct is too small, or arrays that
    /// are to be written contradict each other.
    KVOCAEIO_BAD_ARGUMENT = 3,
    /// A file cannot be opened.
    KVOCAEIO_CANNOT_OPEN = 4,
    /// The content of a file is of no format that is known.
    KVOCAEIO_UNKNOWN_FORMAT = 5,
    /// Nothing that makes a model is in a file.
    KVOCAEIO_NOT_READ = 6,
    /// A deck cannot be tidied.
    KVOCAEIO_NOT_TIDIED = 7,
    /// A mesh cannot be normalised.
    KVOCAEIO_NOT_NORMALISED = 8,
    /// A file cannot be written, or not completely.
    KVOCAEIO_CANNOT_WRITE = 9,
    /// Models of this format have no such table.
    KVOCAEIO_NO_SUCH_TABLE = 10,
    /// An error of the library that no other status describes.
    KVOCAEIO_INTERNAL = 11
};

/// Returns the reason of the last failure of the calling thread, in a sentence without a full stop;
/// an empty text before the first one. The text stays valid until the thread's next failure.
KVOCAEIO_API const char* kvocaeio_error_text(void);
/// Returns the path of the file that the reason concerns; an empty text where it concerns none. The
/// text stays valid as that of `kvocaeio_error_text` does.
KVOCAEIO_API const char* kvocaeio_error_file(void);
/// Returns the line of that file, from 1; 0 where the reason concerns no line.
KVOCAEIO_API int64_t kvocaeio_error_line(void);

/// Formats of files.
enum {
    /// Not known; to be told by the content of the file.
    KVOCAEIO_FORMAT_UNKNOWN = 0,
    /// Abaqus input deck.
    KVOCAEIO_FORMAT_ABAQUS = 1,
    /// Nastran bulk data deck.
    KVOCAEIO_FORMAT_NASTRAN = 2,
    /// Patran neutral file.
    KVOCAEIO_FORMAT_PATRAN = 3,
    /// 3DI file of a chip package.
    KVOCAEIO_FORMAT_3DI = 4,
    /// Cadence design. Its content does not tell it: the format must be given.
    KVOCAEIO_FORMAT_CADENCE = 5
};

/// Returns the name of a format, such as "Nastran bulk data deck"; null for a number that is none.
KVOCAEIO_API const char* kvocaeio_format_name(int32_t format);

/// Sets `*format` to the format of the file at `path`, by its content; its name does not matter.
KVOCAEIO_API kvocaeio_status kvocaeio_recognise(const char* path, int32_t* format);

/// What is noticed while a file is read. Made by `kvocaeio_report_create`.
typedef struct kvocaeio_report kvocaeio_report;
/// A file that was read. Made by `kvocaeio_open`.
typedef struct kvocaeio_model kvocaeio_model;

/// Follows an import. Called once for each block that is read, on the thread of the import: `user`
/// is the `progress_user` of the options, `done` the number of bytes that have been read, `total`
/// how many there will be at most. A file that is read several times counts as often; `done` never
/// falls and never exceeds `total`. A result other than 0 stops the import, which then returns
/// `KVOCAEIO_STOPPED`. Must not throw, and must not leave by `longjmp`.
typedef int32_t (*kvocaeio_progress)(void* user, uint64_t done, uint64_t total);

/// How a file is opened. Set by `kvocaeio_init_options`, then changed by the host.
typedef struct kvocaeio_options {
    /// Size of the struct in bytes.
    size_t struct_size;
    /// One of the formats, or `KVOCAEIO_FORMAT_UNKNOWN` for one to be told by the content.
    int32_t format;
    /// Not 0: an Abaqus or Nastran deck that the reader would not take whole is rewritten before it
    /// is read, in a temporary file, as kvocaeio/tidy.h describes. Then the OIDs of the model are
    /// those of the rewritten deck, and `kvocaeio_get_origins` leads back. Other formats are read
    /// as they are.
    int32_t tidy;
    /// Not 0: an Abaqus deck is normalised after it was read, as by `kvocaeio_normalise`. A deck
    /// that cannot be normalised does not open then.
    int32_t normalise;
    /// Not 0: a Patran file is read a second time, for `kvocaeio_get_patran_values`.
    int32_t property_values;
    /// Emptied, and filled with what is noticed, whether the file opens or not. May be null, and is
    /// not kept.
    kvocaeio_report* report;
    /// Follows the import; may be null.
    kvocaeio_progress progress;
    /// Handed to `progress`.
    void* progress_user;
    /// Only for Cadence designs: path of the extraction tool. Null: no tool is run, and the path
    /// that is opened is that of the folder in which a tool has left its reports.
    const char* tool;
    /// Only for Cadence designs with a tool: folder of its command files and reports, as in
    /// kvocaeio/package.h. Two imports at the same time need a folder each.
    const char* tool_folder;
} kvocaeio_options;

/// Sets all members within `struct_size` to 0 and null, which are the defaults, and `struct_size`
/// itself. Does nothing where `options` is null.
KVOCAEIO_API void kvocaeio_init_options(kvocaeio_options* options, size_t struct_size);

/// Reads the file at `path` and sets `*model`, which is to be closed by `kvocaeio_close`. `options`
/// may be null, for the defaults. The file is only read from, and may be read-only. On failure
/// `*model` is null.
///
/// A file whose content is odd opens: what cannot be read is passed over, which the report tells. A
/// Nastran deck without nodes or without elements, and a package that refers to colours, layers or
/// objects that it does not have, do not open: `KVOCAEIO_NOT_READ`.
KVOCAEIO_API kvocaeio_status kvocaeio_open(const char* path, const kvocaeio_options* options,
                                           kvocaeio_model** model);

/// Releases a model and all of its arrays. Does nothing for null.
KVOCAEIO_API void kvocaeio_close(kvocaeio_model* model);

/// Returns the format of a model.
KVOCAEIO_API int32_t kvocaeio_model_format(const kvocaeio_model* model);
/// Returns 1 if the deck was rewritten before it was read, otherwise 0.
KVOCAEIO_API int32_t kvocaeio_model_is_tidied(const kvocaeio_model* model);
/// Returns 1 if the mesh has been normalised, otherwise 0.
KVOCAEIO_API int32_t kvocaeio_model_is_normalised(const kvocaeio_model* model);

/// Makes the normalised mesh of an Abaqus deck: solids and shells apart, sections of one name
/// merged, corner nodes only, faces of loads and surfaces as shells. docs/abaqus.md tells how. The
/// sections that the deck lists stay as they are. `report` may be null; what is noticed is added to
/// it. For a model that is normalised already, nothing is done.
///
/// Returns `KVOCAEIO_NOT_NORMALISED` where the sets or surfaces of the deck ask for more elements
/// than can be counted; there is no normalised mesh then.
KVOCAEIO_API kvocaeio_status kvocaeio_normalise(kvocaeio_model* model, kvocaeio_report* report);

/// The nodes of a mesh, in the order of the file (of a Nastran deck: by OID). A node's place among
/// them, from 0, is its row. One of the two arrays of coordinates is there, in the precision that
/// the reader of the format keeps.
typedef struct kvocaeio_nodes {
    /// Size of the struct in bytes.
    size_t struct_size;
    /// Number of nodes.
    size_t count;
    /// [count] OIDs.
    const int32_t* oids;
    /// [count][3] x, y, z in the length unit of the file: Abaqus decks. Otherwise null.
    const double* coordinates;
    /// [count][3] likewise: Nastran decks and Patran files. Otherwise null.
    const float* float_coordinates;
} kvocaeio_nodes;

/// Sets `nodes`. Packages have none.
KVOCAEIO_API kvocaeio_status kvocaeio_get_nodes(kvocaeio_model* model, kvocaeio_nodes* nodes);

/// Tables of sections.
enum {
    /// As the file lists them: for Abaqus decks a section for each block of elements; for Nastran
    /// decks and Patran files one for each kind of element.
    KVOCAEIO_SECTIONS = 0,
    /// The solids of the normalised mesh; none before it is made.
    KVOCAEIO_NORMALISED_SOLIDS = 1,
    /// The shells of the normalised mesh, those made of loads ("Dload_Shell") and surfaces
    /// ("Surface_Shell") last; none before it is made.
    KVOCAEIO_NORMALISED_SHELLS = 2
};

/// What elements are.
enum {
    /// Not known: such elements have no connectivity.
    KVOCAEIO_GEOMETRY_UNKNOWN = 0,
    /// Shells.
    KVOCAEIO_GEOMETRY_SHELL = 1,
    /// Solids.
    KVOCAEIO_GEOMETRY_SOLID = 2,
    /// Bars, rods, beams.
    KVOCAEIO_GEOMETRY_LINE = 3
};

/// The shape of elements, by their corners. An element with more nodes has mid-side nodes, after
/// its corners.
enum {
    /// Not known.
    KVOCAEIO_KIND_UNKNOWN = 0,
    /// Two corners.
    KVOCAEIO_KIND_LINE = 1,
    /// Three corners.
    KVOCAEIO_KIND_TRIANGLE = 2,
    /// Four corners in a plane.
    KVOCAEIO_KIND_QUADRILATERAL = 3,
    /// Four corners.
    KVOCAEIO_KIND_TETRAHEDRON = 4,
    /// Five corners.
    KVOCAEIO_KIND_PYRAMID = 5,
    /// Six corners: a triangular prism.
    KVOCAEIO_KIND_WEDGE = 6,
    /// Eight corners.
    KVOCAEIO_KIND_HEXAHEDRON = 7
};

/// One section: elements of one kind. In the normalised mesh an element with fewer corners than its
/// section has nodes repeats its last one.
typedef struct kvocaeio_section {
    /// Size of the struct in bytes.
    size_t struct_size;
    /// Name of the element set, in upper case; an empty text without one.
    const char* name;
    /// The element type as the deck has it, in upper case; an empty text in the normalised mesh and
    /// in other formats.
    const char* type;
    /// One of `KVOCAEIO_GEOMETRY_...`.
    int32_t geometry;
    /// One of `KVOCAEIO_KIND_...`.
    int32_t kind;
    /// Nodes of every element; 0 where the type is unknown.
    size_t nodes_per_element;
    /// Number of elements.
    size_t count;
    /// [count] OIDs; null in the normalised mesh.
    const int32_t* oids;
    /// [count] property ids that the elements name: Patran files. Otherwise null.
    const int32_t* property_ids;
} kvocaeio_section;

/// Sets `*count` to the number of sections of one of the tables. Packages have none.
KVOCAEIO_API kvocaeio_status kvocaeio_get_section_count(kvocaeio_model* model, int32_t table,
                                                        size_t* count);
/// Sets `section` to the one at `index`, from 0, of one of the tables.
KVOCAEIO_API kvocaeio_status kvocaeio_get_section(kvocaeio_model* model, int32_t table,
                                                  size_t index, kvocaeio_section* section);

/// How a connectivity names nodes.
enum {
    /// By their OIDs.
    KVOCAEIO_OIDS = 0,
    /// By their rows, from 0; -1 for an OID that no node has.
    KVOCAEIO_ROWS = 1
};

/// Sets `*nodes` to the connectivity of the section at `index` of one of the tables:
/// [count][nodes_per_element], or null where that is empty. `numbering` is `KVOCAEIO_OIDS` or
/// `KVOCAEIO_ROWS`. The form that the reader of the format has not kept is made by the first call
/// that asks for it, and belongs to the model, too.
KVOCAEIO_API kvocaeio_status kvocaeio_get_connectivity(kvocaeio_model* model, int32_t table,
                                                       size_t index, int32_t numbering,
                                                       const int32_t** nodes);

/// The `*SHELL SECTION` blocks of an Abaqus deck, in its order.
typedef struct kvocaeio_shell_sections {
    /// Size of the struct in bytes.
    size_t struct_size;
    /// Number of blocks.
    size_t count;
    /// [count] names of element sets, in upper case; empty texts without one.
    const char* const* names;
    /// [count] names of materials, likewise.
    const char* const* materials;
    /// [count] thicknesses in the length unit of the deck; 0 without one.
    const double* thicknesses;
} kvocaeio_shell_sections;

/// Sets `sections`. Only of Abaqus decks.
KVOCAEIO_API kvocaeio_status kvocaeio_get_shell_sections(kvocaeio_model* model,
                                                         kvocaeio_shell_sections* sections);

/// The tables of a Nastran deck as its reader keeps them: a row for each OID up to the largest one,
/// of zeros where the deck does not use the OID.
typedef struct kvocaeio_nastran_tables {
    /// Size of the struct in bytes.
    size_t struct_size;
    /// The largest node OID.
    size_t node_rows;
    /// [node_rows][4] node OID, x, y, z. The row of OID n is row n-1.
    const float* nodes;
    /// The largest element OID.
    size_t element_rows;
    /// [element_rows][9] element OID, then eight node OIDs; an element of fewer nodes repeats its
    /// last one. The row of OID n is row n-1. Shells have rows of zeros.
    const int32_t* elements;
    /// The property OID of the last property card; 0 without one.
    size_t section_rows;
    /// [section_rows][3] property OID, material OID, property value (see
    /// `KVONASTRAN_Reader::GetSectionVector`), in deck order.
    const int32_t* sections;
    /// Number of different material OIDs among them, of those from 1 to `section_rows`.
    size_t material_count;
} kvocaeio_nastran_tables;

/// Sets `tables`. Only of Nastran decks.
KVOCAEIO_API kvocaeio_status kvocaeio_get_nastran_tables(kvocaeio_model* model,
                                                         kvocaeio_nastran_tables* tables);

/// The elements of a Patran file, in file order: those that its summary (packet 26) counts and the
/// file holds.
typedef struct kvocaeio_patran_tables {
    /// Size of the struct in bytes.
    size_t struct_size;
    /// Number of elements.
    size_t count;
    /// [count] OIDs.
    const int32_t* oids;
    /// [count] shape codes: 2 bar, 3 triangle, 4 quadrilateral, 5 tetrahedron, 7 wedge, 8
    /// hexahedron; 0 for any other.
    const int32_t* shapes;
    /// [count] property ids that the elements name.
    const int32_t* property_ids;
    /// [count][8] node OIDs; 0 in places that the file leaves empty, -1 for an OID above all that
    /// nodes have.
    const int32_t* nodes;
    /// Number of nodes in the summary, whatever the file holds.
    int32_t summary_nodes;
    /// Number of elements in the summary.
    int32_t summary_elements;
    /// Number of properties in the summary.
    int32_t summary_properties;
} kvocaeio_patran_tables;

/// Sets `tables`. Only of Patran files.
KVOCAEIO_API kvocaeio_status kvocaeio_get_patran_tables(kvocaeio_model* model,
                                                        kvocaeio_patran_tables* tables);

/// A Patran file as it is read with its property data: see `CKVO_PatranIO_Bridge`. Nodes and
/// elements are in file order.
typedef struct kvocaeio_patran_values {
    /// Size of the struct in bytes.
    size_t struct_size;
    /// Number of nodes.
    size_t node_count;
    /// [node_count][3] x, y, z.
    const float* nodes;
    /// Number of elements.
    size_t element_count;
    /// [element_count][4] corners as rows of `nodes`; 0 for an OID that no node has.
    const int32_t* corners;
    /// [element_count] types, as `CKVO_PatranIO_Bridge::GetElementDataBase` has them: a shape code,
    /// or what the property says.
    const int32_t* types;
    /// [element_count][3] values of the property: A, B and C of that function.
    const double* values;
} kvocaeio_patran_values;

/// Sets `values`. Only of Patran files that were opened with the option `property_values`.
KVOCAEIO_API kvocaeio_status kvocaeio_get_patran_values(kvocaeio_model* model,
                                                        kvocaeio_patran_values* values);

/// What a body of a package is.
enum {
    /// None of those that follow.
    KVOCAEIO_BODY_OTHER = 0,
    /// The substrate.
    KVOCAEIO_BODY_SUBSTRATE = 1,
    /// A die.
    KVOCAEIO_BODY_DIE = 2,
    /// An interposer.
    KVOCAEIO_BODY_INTERPOSER = 3,
    /// A spacer.
    KVOCAEIO_BODY_SPACER = 4,
    /// A solder ball.
    KVOCAEIO_BODY_BALL = 5,
    /// The package cap.
    KVOCAEIO_BODY_CAP = 6
};

/// The bodies of a package, in file order. Lengths are millimetres.
typedef struct kvocaeio_bodies {
    /// Size of the struct in bytes.
    size_t struct_size;
    /// Number of bodies.
    size_t count;
    /// [count] names.
    const char* const* names;
    /// [count] of `KVOCAEIO_BODY_...`.
    const int32_t* types;
    /// [count][3] x, y, z of the middle.
    const double* centers;
    /// [count][3] extents in x, y, z. Of a ball only the first one has a meaning, its diameter. See
    /// `CKVOCadenceReader::GetComponentData`.
    const double* sizes;
    /// [count] packed colours, the first colour value in the lowest byte; 0 for a Cadence design.
    const uint32_t* colors;
} kvocaeio_bodies;

/// Sets `bodies`. Only of packages.
KVOCAEIO_API kvocaeio_status kvocaeio_get_bodies(kvocaeio_model* model, kvocaeio_bodies* bodies);

/// The bond wires of a 3DI file, each a polyline, in file order, and the wire models that they
/// name. Lengths are millimetres.
typedef struct kvocaeio_wires {
    /// Size of the struct in bytes.
    size_t struct_size;
    /// Number of wires.
    size_t count;
    /// [count + 1] rows of `points`: wire i has those from `first_points[i]` to before
    /// `first_points[i + 1]`.
    const int64_t* first_points;
    /// Number of points of all wires.
    size_t point_count;
    /// [point_count][3] x, y, z.
    const double* points;
    /// [count] numbers of wire models, from 1. The file need not describe a model that a wire
    /// names.
    const int32_t* profiles;
    /// [count] diameters.
    const double* diameters;
    /// [count] packed colours, the first colour value in the lowest byte; 0 for a wire whose colour
    /// the file does not define.
    const uint32_t* colors;
    /// Number of wire models that the file describes.
    size_t profile_count;
    /// [profile_count] names of the wire models, in upper case. That of model n is at n-1.
    const char* const* profile_names;
} kvocaeio_wires;

/// Sets `wires`. Only of packages; Cadence designs have no wires.
KVOCAEIO_API kvocaeio_status kvocaeio_get_wires(kvocaeio_model* model, kvocaeio_wires* wires);

/// What origins are of.
enum {
    /// Nodes.
    KVOCAEIO_NODES = 0,
    /// Elements.
    KVOCAEIO_ELEMENTS = 1,
    /// Properties.
    KVOCAEIO_PROPERTIES = 2
};

/// Where the nodes, elements or properties of a deck come from that was rewritten before it was
/// read, in the order of the rewritten deck.
typedef struct kvocaeio_origins {
    /// Size of the struct in bytes.
    size_t struct_size;
    /// Number of things; 0 for a deck that was not rewritten.
    size_t count;
    /// [count] OIDs in the model.
    const int32_t* oids;
    /// [count] OIDs in the original.
    const int32_t* original_oids;
    /// [count] places in the following arrays.
    const int32_t* sources;
    /// Number of sources.
    size_t source_count;
    /// [source_count] names of instances or parts; empty texts without one.
    const char* const* source_parts;
    /// [source_count] paths of files: the deck, or one that it includes.
    const char* const* source_files;
    /// By how much the coordinate of a node differs most from its place in the original, in the
    /// length unit of the deck.
    double deviation;
} kvocaeio_origins;

/// Sets `origins` to those of one kind of things: `KVOCAEIO_NODES`, `KVOCAEIO_ELEMENTS`,
/// `KVOCAEIO_PROPERTIES` (of which Abaqus decks have none).
KVOCAEIO_API kvocaeio_status kvocaeio_get_origins(kvocaeio_model* model, int32_t things,
                                                  kvocaeio_origins* origins);

/// What a finding means for the model.
enum {
    /// Passed over as designed; nothing of the mesh is concerned.
    KVOCAEIO_NOTE = 0,
    /// Something of the model is lost or changed.
    KVOCAEIO_WARNING = 1,
    /// What follows is not read, or the result is surely not what the file means.
    KVOCAEIO_ERROR = 2
};

/// One finding, with its first place. Equal findings are one. docs/findings.md lists all codes.
typedef struct kvocaeio_finding {
    /// Size of the struct in bytes.
    size_t struct_size;
    /// `KVOCAEIO_NOTE`, `KVOCAEIO_WARNING` or `KVOCAEIO_ERROR`.
    int32_t severity;
    /// Column of the first place, in bytes from 1; 0 where no field is concerned.
    int32_t column;
    /// Line of the first place, from 1; 0 where no line is concerned.
    int64_t line;
    /// How often it was found.
    int64_t count;
    /// Number of places that are kept, at most 8.
    size_t place_count;
    /// The stable code in words, such as "nastran.exponent-torn".
    char code[64];
    /// What was found, in a sentence without a full stop.
    char text[512];
    /// What to do about it, likewise; empty where nothing helps.
    char advice[512];
    /// Path of the file, cut to 1023 bytes.
    char file[1024];
} kvocaeio_finding;

/// One place of a finding.
typedef struct kvocaeio_place {
    /// Size of the struct in bytes.
    size_t struct_size;
    /// Line, from 1; 0 where no line is concerned.
    int64_t line;
    /// Column in bytes, from 1; 0 where no field is concerned.
    int32_t column;
    /// The line or field as it stands in the file, or what else names the place, cut to 80 bytes.
    /// Control characters are replaced by dots.
    char text[84];
    /// Path of the file, cut to 1023 bytes.
    char file[1024];
} kvocaeio_place;

/// One count of what was read.
typedef struct kvocaeio_count {
    /// Size of the struct in bytes.
    size_t struct_size;
    /// How many there are.
    int64_t count;
    /// What is counted, such as "nodes" or "element sections".
    char name[64];
} kvocaeio_count;

/// Makes an empty report and sets `*report`, which is to be released by `kvocaeio_report_destroy`.
/// On failure `*report` is null. What a report holds stays below 1 MiB, whatever the file.
KVOCAEIO_API kvocaeio_status kvocaeio_report_create(kvocaeio_report** report);
/// Releases a report. Does nothing for null.
KVOCAEIO_API void kvocaeio_report_destroy(kvocaeio_report* report);

/// Returns the number of findings that differ in code or in what they are about.
KVOCAEIO_API size_t kvocaeio_report_finding_count(const kvocaeio_report* report);
/// Sets `finding` to the one at `index`, from 0, in the order in which they were first noticed.
KVOCAEIO_API kvocaeio_status kvocaeio_report_finding(const kvocaeio_report* report, size_t index,
                                                     kvocaeio_finding* finding);
/// Sets `place` to the one at `place_index`, from 0, of the finding at `index`.
KVOCAEIO_API kvocaeio_status kvocaeio_report_place(const kvocaeio_report* report, size_t index,
                                                   size_t place_index, kvocaeio_place* place);
/// Returns how often findings of `severity` were found.
KVOCAEIO_API int64_t kvocaeio_report_severity_count(const kvocaeio_report* report,
                                                    int32_t severity);
/// Returns how often findings of `code` were found; 0 for a code that was not.
KVOCAEIO_API int64_t kvocaeio_report_code_count(const kvocaeio_report* report, const char* code);
/// Returns 1, and sets `finding` to the one that says why the file did not open. Returns 0, with
/// `finding` untouched, where it opened or no finding says why.
KVOCAEIO_API int32_t kvocaeio_report_failure(const kvocaeio_report* report,
                                             kvocaeio_finding* finding);
/// Returns the number of counts of what was read.
KVOCAEIO_API size_t kvocaeio_report_count_count(const kvocaeio_report* report);
/// Sets `count` to the one at `index`, from 0.
KVOCAEIO_API kvocaeio_status kvocaeio_report_count(const kvocaeio_report* report, size_t index,
                                                   kvocaeio_count* count);

/// Solids with the same number of nodes and the same property, to be written.
typedef struct kvocaeio_block {
    /// 4 (tetrahedra), 6 (wedges) or 8 (hexahedra).
    size_t nodes_per_element;
    /// Number of elements.
    size_t count;
    /// [count] OIDs above 0; null to number the elements of all blocks from 1, which must then be
    /// so in each block.
    const int32_t* oids;
    /// [count][nodes_per_element] nodes.
    const int32_t* nodes;
    /// Property OID above 0 of a Nastran deck; 0 stands for 1. Patran files have none.
    int32_t property;
} kvocaeio_block;

/// A mesh of solids, to be written.
typedef struct kvocaeio_mesh {
    /// Size of the struct in bytes.
    size_t struct_size;
    /// Number of nodes, above 0.
    size_t node_count;
    /// [node_count] different OIDs above 0; null to number the nodes from 1.
    const int32_t* node_oids;
    /// [node_count][3] x, y, z.
    const double* coordinates;
    /// How the blocks name nodes: `KVOCAEIO_OIDS` or `KVOCAEIO_ROWS`.
    int32_t numbering;
    /// Number of blocks, above 0.
    size_t block_count;
    /// Size of a `kvocaeio_block` in bytes.
    size_t block_size;
    /// [block_count] blocks.
    const kvocaeio_block* blocks;
    /// The length unit, for the header of a Nastran deck; null for "mm".
    const char* unit;
} kvocaeio_mesh;

/// Writes a mesh as a Nastran deck (`KVOCAEIO_FORMAT_NASTRAN`) or a Patran file
/// (`KVOCAEIO_FORMAT_PATRAN`), as the writers of kvocaeio/nastran.h and kvocaeio/patran.h write it.
/// A Nastran deck holds coordinates with three decimals, so a mesh of small lengths is to be scaled
/// beforehand.
///
/// The file at `path` is the old one or the whole new one at any time. On failure it is the old
/// one. Returns `KVOCAEIO_BAD_ARGUMENT`, and the error text tells which, where a coordinate is no
/// finite number, where an element names a node that is not there, and where an OID is below 1, too
/// long for the format, or repeated. Returns `KVOCAEIO_CANNOT_WRITE` where the disk refuses the
/// file.
KVOCAEIO_API kvocaeio_status kvocaeio_write(const char* path, int32_t format,
                                            const kvocaeio_mesh* mesh);

#ifdef __cplusplus
}
#endif
// NOLINTEND(modernize-*)

#endif
