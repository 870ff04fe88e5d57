"""Reading and checking files."""
from __future__ import annotations

import ctypes
import os
from pathlib import Path
from typing import Iterator, Union

from . import _abi
from ._errors import Error, StoppedError
from ._findings import Findings, findings_of
from ._library import Report, index_of, lib, path_bytes, require
from ._model import Model
from ._progress import Progress, Watch

# Those that no other programs use: such a file is meant to be read, whatever it holds.
_EXTENSIONS = (".inp", ".bdf", ".nas", ".nastran", ".pat", ".neu", ".ntl", ".3di")

PathLike = Union[str, "os.PathLike[str]"]


def _open(
    path: PathLike,
    progress: Progress | bool | None,
    report: Report | None,
    format: str | None,
    tool: PathLike | None,
    tool_folder: PathLike | None,
    **switches: bool,
) -> int:
    """The handle of the model; raises what stops the import."""
    options = _abi.Options(
        format=index_of(format, _abi.FORMATS, "format") if format else 0,
        report=report.pointer if report else None,
        tool=path_bytes(tool) if tool is not None else None,
        tool_folder=path_bytes(tool_folder) if tool_folder is not None else None,
        **{name: int(value) for name, value in switches.items()},
    )
    pointer = ctypes.c_void_p()
    watch = Watch(progress)
    try:
        with watch as function:
            options.progress = function
            require(lib.open(path_bytes(path), ctypes.byref(options), ctypes.byref(pointer)))
    except BaseException:
        lib.close(pointer)
        raise
    assert pointer.value is not None
    return pointer.value


def read(
    path: PathLike,
    *,
    format: str | None = None,
    tidy: bool = False,
    normalise: bool = False,
    report: bool = False,
    property_values: bool = False,
    progress: Progress | bool | None = None,
    tool: PathLike | None = None,
    tool_folder: PathLike | None = None,
) -> Model:
    """Reads a file. Other threads go on meanwhile, and Ctrl-C stops it.

    format: "abaqus", "nastran", "patran", "3di" or "cadence"; None to tell it by the content, which
        does not tell a Cadence design.
    tidy: rewrite an Abaqus or Nastran deck first, in a temporary file, where the reader would not
        take it whole. `Model.origins` then leads back to the OIDs of the original.
    normalise: make the normalised mesh of an Abaqus deck, as `Model.normalise` does.
    report: keep what is noticed, as `Model.findings`. That takes up to half as long again.
    property_values: read a Patran file once more, for `Model.patran_values`.
    progress: called with the number of bytes that have been read and how many there will be at
        most. It stops the import by returning False, which raises `StoppedError`, or by an
        exception, which is passed on. True shows a bar where tqdm is installed.
    tool, tool_folder: of a Cadence design, the extraction tool and the folder of its files. Without
        a tool, the path is that of the folder in which one has left its reports.
    """
    kept = Report() if report else None
    pointer = _open(
        path,
        progress,
        kept,
        format,
        tool,
        tool_folder,
        tidy=tidy,
        normalise=normalise,
        property_values=property_values,
    )
    return Model(pointer, os.fsdecode(path), kept)


def check(
    path: PathLike,
    *,
    format: str | None = None,
    tidy: bool = False,
    progress: Progress | bool | None = None,
    tool: PathLike | None = None,
    tool_folder: PathLike | None = None,
) -> Findings:
    """Returns what of a file is lost or changed when it is read. An Abaqus deck is normalised as
    well. The arguments are those of `read`.

    A file that does not open has the finding that says why as `Findings.failure`. Only where no
    finding says why, an exception does.
    """
    report = Report()
    try:
        pointer = _open(
            path, progress, report, format, tool, tool_folder, tidy=tidy, normalise=True
        )
    except StoppedError:
        raise
    except Error:
        findings = findings_of(report)
        if findings.failure is None:
            raise
        return findings
    lib.close(pointer)
    return findings_of(report)


def recognise(path: PathLike) -> str:
    """Returns the format of a file by its content: "abaqus", "nastran", "patran" or "3di". Raises
    `UnknownFormatError` for any other."""
    format = ctypes.c_int32()
    require(lib.recognise(path_bytes(path), ctypes.byref(format)))
    return _abi.FORMATS[format.value]


def find_files(folder: PathLike) -> Iterator[Path]:
    """Walks a folder and all folders in it, by name, and yields the files whose extension or
    content is that of a known format. Links to folders are not followed. Raises OSError where the
    folder itself cannot be read."""
    os.scandir(folder).close()
    for place, folders, files in os.walk(folder):
        folders.sort()
        yield from filter(_is_known, (Path(place, name) for name in sorted(files)))


def _is_known(path: Path) -> bool:
    if not path.is_file():
        return False
    if path.suffix.lower() in _EXTENSIONS:
        return True
    try:
        recognise(path)
    except Error:
        return False
    return True
