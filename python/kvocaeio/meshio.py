"""Makes the formats known to meshio, under names of their own.

    import meshio
    import kvocaeio.meshio

    mesh = meshio.read("part.inp", file_format="kvocaeio-abaqus")
    meshio.write("part.bdf", mesh, file_format="kvocaeio-nastran")

meshio reads "kvocaeio-abaqus", "kvocaeio-nastran" and "kvocaeio-patran" then, and writes the latter
two. No extension is registered, so that all that meshio does by itself stays as it is.
"""
from __future__ import annotations

import os
from functools import partial
from typing import Any

import meshio
import numpy as np

from ._reading import read as _read
from ._writing import Block, write as _write

_SOLIDS = ("tetra", "wedge", "hexahedron")


def read(
    path: str | os.PathLike[str], *, format: str | None = None, tidy: bool = True, **options: Any
) -> meshio.Mesh:
    """Reads a file as `kvocaeio.read` does, with its options, and returns a mesh of meshio. Decks
    are tidied, unless `tidy` is False."""
    with _read(path, format=format, tidy=tidy, **options) as model:
        return model.to_meshio()


def write(
    path: str | os.PathLike[str],
    mesh: meshio.Mesh,
    *,
    format: str | None = None,
    unit: str = "mm",
) -> None:
    """Writes the tetrahedra, wedges and hexahedra of a mesh of meshio as `kvocaeio.write` does,
    with the OIDs that its points and cells have as "oid". Cells of other kinds raise ValueError."""
    other = sorted({block.type for block in mesh.cells} - set(_SOLIDS))
    if other:
        raise ValueError(f"only {', '.join(_SOLIDS)} can be written, not {', '.join(other)}")
    oids = mesh.cell_data.get("oid", [None] * len(mesh.cells))
    blocks = [
        Block(block.data, None if numbers is None else np.asarray(numbers))
        for block, numbers in zip(mesh.cells, oids)
    ]
    _write(
        path, mesh.points, blocks, format=format, node_oids=mesh.point_data.get("oid"), unit=unit
    )


for _name in ("abaqus", "nastran", "patran"):
    _writer = {} if _name == "abaqus" else {f"kvocaeio-{_name}": partial(write, format=_name)}
    meshio.register_format(f"kvocaeio-{_name}", [], partial(read, format=_name), _writer)
