"""The module declares the C interface as its header does."""
import ctypes
import re
import subprocess

import pytest
from conftest import SOURCE

from kvocaeio import _abi, _errors

HEADER = (SOURCE / "include/kvocaeio/kvocaeio.h").read_text()
STRUCTS = {
    "options": _abi.Options,
    "nodes": _abi.Nodes,
    "section": _abi.Section,
    "shell_sections": _abi.ShellSections,
    "nastran_tables": _abi.NastranTables,
    "patran_tables": _abi.PatranTables,
    "patran_values": _abi.PatranValues,
    "bodies": _abi.Bodies,
    "wires": _abi.Wires,
    "origins": _abi.Origins,
    "finding": _abi.Finding,
    "place": _abi.Place,
    "count": _abi.Count,
    "block": _abi.Block,
    "mesh": _abi.Mesh,
}
LISTS = {
    "FORMAT": _abi.FORMATS,
    "GEOMETRY": _abi.GEOMETRIES,
    "KIND": _abi.KINDS,
    "BODY": _abi.BODIES,
}


@pytest.fixture(scope="module")
def compiled(tmp_path_factory):
    """Sizes and offsets as a C compiler has them."""
    folder = tmp_path_factory.mktemp("compiled")
    lines = []
    for name, struct in STRUCTS.items():
        lines.append(f'printf("{name} %zu\\n", sizeof(kvocaeio_{name}));')
        for member, _ in struct._fields_:
            lines.append(
                f'printf("{name}.{member} %zu %zu\\n", offsetof(kvocaeio_{name}, {member}), '
                f"sizeof ((kvocaeio_{name}*)0)->{member});"
            )
    source = folder / "layout.c"
    source.write_text(
        "#include <stdio.h>\n#include <kvocaeio/kvocaeio.h>\nint main(void) {\n"
        + "\n".join(lines)
        + "\nreturn 0;\n}\n"
    )
    program = folder / "layout"
    subprocess.run(["cc", "-I", SOURCE / "include", source, "-o", program], check=True)
    output = subprocess.run([program], check=True, capture_output=True, text=True).stdout
    return {line.split()[0]: tuple(map(int, line.split()[1:])) for line in output.splitlines()}


def test_every_struct_of_the_header_is_declared():
    assert set(re.findall(r"^typedef struct kvocaeio_(\w+) \{", HEADER, re.M)) == set(STRUCTS)


@pytest.mark.parametrize("name", STRUCTS)
def test_structs_have_the_layout_of_the_header(name, compiled):
    struct = STRUCTS[name]
    assert compiled[name] == (ctypes.sizeof(struct),)
    for member, _ in struct._fields_:
        field = getattr(struct, member)
        assert compiled[f"{name}.{member}"] == (field.offset, field.size), member


@pytest.mark.parametrize("name", STRUCTS)
def test_structs_have_the_members_of_the_header(name):
    body = re.search(rf"typedef struct kvocaeio_{name} {{(.*?)}} kvocaeio_{name};", HEADER, re.S)
    members = re.findall(r"^ +[^/\n]*?(\w+)(?:\[\d+\])?;", body.group(1), re.M)
    assert members == [member for member, _ in STRUCTS[name]._fields_]


def test_functions_are_those_of_the_header():
    declared = dict(
        re.findall(r"^KVOCAEIO_API [^(;]*?kvocaeio_(\w+)\(([^)]*)\);", HEADER, re.M | re.S)
    )
    counts = {
        name: 0 if arguments == "void" else arguments.count(",") + 1
        for name, arguments in declared.items()
    }
    ours = {name: len(arguments) for name, _, arguments in _abi.FUNCTIONS if name != "version"}
    assert ours == counts


@pytest.mark.parametrize("prefix", LISTS)
def test_names_stand_for_the_constants_of_the_header(prefix):
    constants = re.findall(rf"KVOCAEIO_{prefix}_(\w+) = (\d+)", HEADER)
    assert [(name.lower(), int(number)) for name, number in constants] == [
        (name, number) for number, name in enumerate(LISTS[prefix])
    ]


def test_every_status_of_the_header_has_an_exception():
    first = HEADER.index("KVOCAEIO_OK")
    statuses = re.findall(r"KVOCAEIO_(\w+) = (\d+)", HEADER[first : HEADER.index("};", first)])
    kinds = {
        name: type(_errors.exception_for(int(number), "", "", 0)).__name__
        for name, number in statuses
        if name != "OK"
    }
    assert kinds == {
        "STOPPED": "StoppedError",
        "OUT_OF_MEMORY": "MemoryError",
        "BAD_ARGUMENT": "ArgumentError",
        "CANNOT_OPEN": "CannotOpenError",
        "UNKNOWN_FORMAT": "UnknownFormatError",
        "NOT_READ": "NotReadError",
        "NOT_TIDIED": "NotTidiedError",
        "NOT_NORMALISED": "NotNormalisedError",
        "CANNOT_WRITE": "CannotWriteError",
        "NO_SUCH_TABLE": "NoSuchTableError",
        "INTERNAL": "InternalError",
    }
