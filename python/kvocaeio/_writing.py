"""Writing meshes of solids."""
from __future__ import annotations

import ctypes
import os
from dataclasses import dataclass
from pathlib import Path
from typing import TYPE_CHECKING, Any, Sequence, Union

import numpy as np

from . import _abi
from ._errors import ArgumentError
from ._library import index_of, lib, path_bytes, require

if TYPE_CHECKING:
    from numpy.typing import ArrayLike, NDArray

_BY_EXTENSION = {".bdf": "nastran", ".nas": "nastran", ".pat": "patran"}
_FORMATS = ("nastran", "patran")
_NUMBERINGS = ("oids", "rows")


@dataclass(frozen=True, eq=False)
class Block:
    """Solids with the same number of nodes and the same property, to be written."""

    #: (n, 4) tetrahedra, (n, 6) wedges or (n, 8) hexahedra.
    nodes: ArrayLike
    #: (n,) OIDs above 0; None to number the elements of all blocks from 1.
    oids: ArrayLike | None = None
    #: Property OID of a Nastran deck; 0 stands for 1. Patran files have none.
    property: int = 0


def _ints(values: ArrayLike, what: str) -> NDArray[np.int32]:
    """The values as the library takes them; a copy only where they are something else."""
    array = np.asarray(values)
    if array.size == 0:
        array = array.astype(np.int32)
    if array.dtype.kind not in "iu":
        raise ArgumentError(f"{what} are {array.dtype}, not integers")
    if array.size and not -(2**31) <= array.min() <= array.max() < 2**31:
        raise ArgumentError(f"{what} do not fit into 32 bits")
    return np.ascontiguousarray(array, np.int32)


def _oids(values: ArrayLike | None, count: int, what: str) -> NDArray[np.int32] | None:
    if values is None:
        return None
    array = _ints(values, what)
    if array.shape != (count,):
        raise ArgumentError(f"{what} have the shape {array.shape} instead of ({count},)")
    return array


def _address(array: NDArray[Any] | None) -> int | None:
    return None if array is None else array.ctypes.data


def _block(block: Block | ArrayLike, index: int, kept: list[Any]) -> _abi.Block:
    """The block as the library takes it; arrays that it points to are added to `kept`."""
    if not isinstance(block, Block):
        block = Block(block)
    nodes = _ints(block.nodes, f"nodes of block {index}")
    if nodes.ndim != 2:
        raise ArgumentError(f"nodes of block {index} have the shape {nodes.shape}, not (n, 4|6|8)")
    oids = _oids(block.oids, len(nodes), f"OIDs of block {index}")
    kept += [nodes, oids]
    return _abi.Block(
        nodes_per_element=nodes.shape[1],
        count=nodes.shape[0],
        oids=_address(oids),
        nodes=_address(nodes),
        property=block.property,
    )


def write(
    path: Union[str, "os.PathLike[str]"],
    points: ArrayLike,
    blocks: Sequence[Block | ArrayLike],
    *,
    format: str | None = None,
    node_oids: ArrayLike | None = None,
    numbering: str = "rows",
    unit: str = "mm",
) -> None:
    """Writes a mesh of solids as a Nastran deck or a Patran file.

    The file is the old one or the whole new one at any time. A Nastran deck holds coordinates with
    three decimals, so a mesh of small lengths is to be scaled beforehand; its cards are in free
    fields, which `read` takes with `tidy=True`. Raises `ArgumentError`,
    and writes nothing, where a coordinate is no finite number, an element names a node that is not
    there, or OIDs are below 1, too long for the format or repeated.

    points: (n, 3) x, y, z.
    blocks: a `Block`, or its nodes alone, for each kind of element and each property.
    format: "nastran" or "patran"; None to tell it by the extension: .bdf, .nas, .pat.
    node_oids: (n,) OIDs of the nodes; None to number them from 1.
    numbering: how blocks name nodes: by "rows" of `points`, from 0, or by "oids".
    unit: the length unit, for the header of a Nastran deck.
    """
    if format is None:
        extension = Path(path).suffix.lower()
        if extension not in _BY_EXTENSION:
            raise ArgumentError(f"the extension {extension!r} does not tell the format")
        format = _BY_EXTENSION[extension]
    index_of(format, _FORMATS, "format")
    coordinates = np.ascontiguousarray(points, np.float64)
    if coordinates.ndim != 2 or coordinates.shape[1] != 3:
        raise ArgumentError(f"points have the shape {coordinates.shape} instead of (n, 3)")
    oids = _oids(node_oids, len(coordinates), "node OIDs")
    kept: list[Any] = []
    raw = [_block(block, index, kept) for index, block in enumerate(blocks)]
    mesh = _abi.Mesh(
        node_count=len(coordinates),
        node_oids=_address(oids),
        coordinates=_address(coordinates),
        numbering=index_of(numbering, _NUMBERINGS, "numbering"),
        block_count=len(raw),
        block_size=ctypes.sizeof(_abi.Block),
        blocks=(_abi.Block * len(raw))(*raw),
        unit=unit.encode("utf-8"),
    )
    require(lib.write(path_bytes(path), _abi.FORMATS.index(format), ctypes.byref(mesh)))
