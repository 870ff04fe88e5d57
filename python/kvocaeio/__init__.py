"""Files of simulation tools as numpy arrays: Abaqus, Nastran, Patran, chip packages.

    import kvocaeio

    model = kvocaeio.read("part.inp")
    for section in model.sections:
        print(section.name, section.kind, model.points[section.cells].shape)
    for finding in kvocaeio.check("part.inp"):
        print(finding)

`read` returns a `Model`, `check` what of a file is not read; `write` writes a mesh of solids. A
file that cannot be read or written raises an `Error`.
"""
from ._errors import (
    ArgumentError,
    CannotOpenError,
    CannotWriteError,
    Error,
    InternalError,
    MissingFileError,
    NoSuchTableError,
    NotNormalisedError,
    NotReadError,
    NotTidiedError,
    StoppedError,
    UnknownFormatError,
)
from ._findings import Finding, Findings, Place
from ._model import Model, Section
from ._reading import check, find_files, read, recognise
from ._tables import (
    Bodies,
    NastranTables,
    Origins,
    PatranTables,
    PatranValues,
    ShellSection,
    Wires,
)
from ._version import VERSION as __version__
from ._writing import Block, write

__all__ = [
    "ArgumentError",
    "Block",
    "Bodies",
    "CannotOpenError",
    "CannotWriteError",
    "Error",
    "Finding",
    "Findings",
    "InternalError",
    "MissingFileError",
    "Model",
    "NastranTables",
    "NoSuchTableError",
    "NotNormalisedError",
    "NotReadError",
    "NotTidiedError",
    "Origins",
    "PatranTables",
    "PatranValues",
    "Place",
    "Section",
    "ShellSection",
    "StoppedError",
    "UnknownFormatError",
    "Wires",
    "__version__",
    "check",
    "find_files",
    "read",
    "recognise",
    "write",
]
