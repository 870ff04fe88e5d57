"""The structs and functions of the C interface, as kvocaeio/kvocaeio.h declares them.

Pointers to arrays are `c_void_p`, which reads as an address or None. The tests compare sizes,
offsets and constants with the header.
"""
import ctypes
from ctypes import (
    CFUNCTYPE,
    POINTER,
    Structure,
    c_char,
    c_char_p,
    c_double,
    c_int,
    c_int32,
    c_int64,
    c_size_t,
    c_uint64,
    c_void_p,
)
from typing import Any

OK = 0
SECTIONS, NORMALISED_SOLIDS, NORMALISED_SHELLS = range(3)
OIDS, ROWS = range(2)

FORMATS = ("unknown", "abaqus", "nastran", "patran", "3di", "cadence")
GEOMETRIES = ("unknown", "shell", "solid", "line")
KINDS = (
    "unknown",
    "line",
    "triangle",
    "quadrilateral",
    "tetrahedron",
    "pyramid",
    "wedge",
    "hexahedron",
)
BODIES = ("other", "substrate", "die", "interposer", "spacer", "ball", "cap")
THINGS = ("nodes", "elements", "properties")
SEVERITIES = ("note", "warning", "error")

Progress = CFUNCTYPE(c_int32, c_void_p, c_uint64, c_uint64)
_Texts = POINTER(c_char_p)


class Sized(Structure):
    """A struct that begins with its own size."""

    def __init__(self, **members: Any) -> None:
        super().__init__(struct_size=ctypes.sizeof(self), **members)


class Options(Sized):
    _fields_ = [
        ("struct_size", c_size_t),
        ("format", c_int32),
        ("tidy", c_int32),
        ("normalise", c_int32),
        ("property_values", c_int32),
        ("report", c_void_p),
        ("progress", Progress),
        ("progress_user", c_void_p),
        ("tool", c_char_p),
        ("tool_folder", c_char_p),
    ]


class Nodes(Sized):
    _fields_ = [
        ("struct_size", c_size_t),
        ("count", c_size_t),
        ("oids", c_void_p),
        ("coordinates", c_void_p),
        ("float_coordinates", c_void_p),
    ]


class Section(Sized):
    _fields_ = [
        ("struct_size", c_size_t),
        ("name", c_char_p),
        ("type", c_char_p),
        ("geometry", c_int32),
        ("kind", c_int32),
        ("nodes_per_element", c_size_t),
        ("count", c_size_t),
        ("oids", c_void_p),
        ("property_ids", c_void_p),
    ]


class ShellSections(Sized):
    _fields_ = [
        ("struct_size", c_size_t),
        ("count", c_size_t),
        ("names", _Texts),
        ("materials", _Texts),
        ("thicknesses", c_void_p),
    ]


class NastranTables(Sized):
    _fields_ = [
        ("struct_size", c_size_t),
        ("node_rows", c_size_t),
        ("nodes", c_void_p),
        ("element_rows", c_size_t),
        ("elements", c_void_p),
        ("section_rows", c_size_t),
        ("sections", c_void_p),
        ("material_count", c_size_t),
    ]


class PatranTables(Sized):
    _fields_ = [
        ("struct_size", c_size_t),
        ("count", c_size_t),
        ("oids", c_void_p),
        ("shapes", c_void_p),
        ("property_ids", c_void_p),
        ("nodes", c_void_p),
        ("summary_nodes", c_int32),
        ("summary_elements", c_int32),
        ("summary_properties", c_int32),
    ]


class PatranValues(Sized):
    _fields_ = [
        ("struct_size", c_size_t),
        ("node_count", c_size_t),
        ("nodes", c_void_p),
        ("element_count", c_size_t),
        ("corners", c_void_p),
        ("types", c_void_p),
        ("values", c_void_p),
    ]


class Bodies(Sized):
    _fields_ = [
        ("struct_size", c_size_t),
        ("count", c_size_t),
        ("names", _Texts),
        ("types", c_void_p),
        ("centers", c_void_p),
        ("sizes", c_void_p),
        ("colors", c_void_p),
    ]


class Wires(Sized):
    _fields_ = [
        ("struct_size", c_size_t),
        ("count", c_size_t),
        ("first_points", c_void_p),
        ("point_count", c_size_t),
        ("points", c_void_p),
        ("profiles", c_void_p),
        ("diameters", c_void_p),
        ("colors", c_void_p),
        ("profile_count", c_size_t),
        ("profile_names", _Texts),
    ]


class Origins(Sized):
    _fields_ = [
        ("struct_size", c_size_t),
        ("count", c_size_t),
        ("oids", c_void_p),
        ("original_oids", c_void_p),
        ("sources", c_void_p),
        ("source_count", c_size_t),
        ("source_parts", _Texts),
        ("source_files", _Texts),
        ("deviation", c_double),
    ]


class Finding(Sized):
    _fields_ = [
        ("struct_size", c_size_t),
        ("severity", c_int32),
        ("column", c_int32),
        ("line", c_int64),
        ("count", c_int64),
        ("place_count", c_size_t),
        ("code", c_char * 64),
        ("text", c_char * 512),
        ("advice", c_char * 512),
        ("file", c_char * 1024),
    ]


class Place(Sized):
    _fields_ = [
        ("struct_size", c_size_t),
        ("line", c_int64),
        ("column", c_int32),
        ("text", c_char * 84),
        ("file", c_char * 1024),
    ]


class Count(Sized):
    _fields_ = [
        ("struct_size", c_size_t),
        ("count", c_int64),
        ("name", c_char * 64),
    ]


class Block(Structure):
    _fields_ = [
        ("nodes_per_element", c_size_t),
        ("count", c_size_t),
        ("oids", c_void_p),
        ("nodes", c_void_p),
        ("property", c_int32),
    ]


class Mesh(Sized):
    _fields_ = [
        ("struct_size", c_size_t),
        ("node_count", c_size_t),
        ("node_oids", c_void_p),
        ("coordinates", c_void_p),
        ("numbering", c_int32),
        ("block_count", c_size_t),
        ("block_size", c_size_t),
        ("blocks", POINTER(Block)),
        ("unit", c_char_p),
    ]


_HANDLE = c_void_p
# Name, result, arguments.
FUNCTIONS: tuple[tuple[str, Any, list[Any]], ...] = (
    ("version", c_int, []),
    ("error_text", c_char_p, []),
    ("error_file", c_char_p, []),
    ("error_line", c_int64, []),
    ("format_name", c_char_p, [c_int32]),
    ("recognise", c_int32, [c_char_p, POINTER(c_int32)]),
    ("init_options", None, [POINTER(Options), c_size_t]),
    ("open", c_int32, [c_char_p, POINTER(Options), POINTER(_HANDLE)]),
    ("close", None, [_HANDLE]),
    ("model_format", c_int32, [_HANDLE]),
    ("model_is_tidied", c_int32, [_HANDLE]),
    ("model_is_normalised", c_int32, [_HANDLE]),
    ("normalise", c_int32, [_HANDLE, c_void_p]),
    ("get_nodes", c_int32, [_HANDLE, POINTER(Nodes)]),
    ("get_section_count", c_int32, [_HANDLE, c_int32, POINTER(c_size_t)]),
    ("get_section", c_int32, [_HANDLE, c_int32, c_size_t, POINTER(Section)]),
    (
        "get_connectivity",
        c_int32,
        [_HANDLE, c_int32, c_size_t, c_int32, POINTER(c_void_p)],
    ),
    ("get_shell_sections", c_int32, [_HANDLE, POINTER(ShellSections)]),
    ("get_nastran_tables", c_int32, [_HANDLE, POINTER(NastranTables)]),
    ("get_patran_tables", c_int32, [_HANDLE, POINTER(PatranTables)]),
    ("get_patran_values", c_int32, [_HANDLE, POINTER(PatranValues)]),
    ("get_bodies", c_int32, [_HANDLE, POINTER(Bodies)]),
    ("get_wires", c_int32, [_HANDLE, POINTER(Wires)]),
    ("get_origins", c_int32, [_HANDLE, c_int32, POINTER(Origins)]),
    ("report_create", c_int32, [POINTER(c_void_p)]),
    ("report_destroy", None, [c_void_p]),
    ("report_finding_count", c_size_t, [c_void_p]),
    ("report_finding", c_int32, [c_void_p, c_size_t, POINTER(Finding)]),
    ("report_place", c_int32, [c_void_p, c_size_t, c_size_t, POINTER(Place)]),
    ("report_severity_count", c_int64, [c_void_p, c_int32]),
    ("report_code_count", c_int64, [c_void_p, c_char_p]),
    ("report_failure", c_int32, [c_void_p, POINTER(Finding)]),
    ("report_count_count", c_size_t, [c_void_p]),
    ("report_count", c_int32, [c_void_p, c_size_t, POINTER(Count)]),
    ("write", c_int32, [c_char_p, c_int32, POINTER(Mesh)]),
)
