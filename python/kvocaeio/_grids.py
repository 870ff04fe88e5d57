"""Meshes as the records of other packages."""
from __future__ import annotations

from typing import TYPE_CHECKING, Any, Iterator, NamedTuple, Sequence

import numpy as np

from ._findings import counted

if TYPE_CHECKING:
    import meshio
    import pyvista
    from numpy.typing import NDArray

    from ._model import Section
    from ._tables import Ints


class Cell(NamedTuple):
    """A kind of cell: the kind of section, nodes, name in meshio, number in VTK."""

    kind: str
    nodes: int
    meshio: str
    vtk: int


# Mid-side nodes come in the order of meshio and VTK. Within a kind by number of nodes.
CELLS = (
    Cell("line", 2, "line", 3),
    Cell("line", 3, "line3", 21),
    Cell("triangle", 3, "triangle", 5),
    Cell("triangle", 6, "triangle6", 22),
    Cell("quadrilateral", 4, "quad", 9),
    Cell("quadrilateral", 8, "quad8", 23),
    Cell("tetrahedron", 4, "tetra", 10),
    Cell("tetrahedron", 10, "tetra10", 24),
    Cell("pyramid", 5, "pyramid", 14),
    Cell("pyramid", 13, "pyramid13", 27),
    Cell("wedge", 6, "wedge", 13),
    Cell("wedge", 15, "wedge15", 26),
    Cell("hexahedron", 8, "hexahedron", 12),
    Cell("hexahedron", 20, "hexahedron20", 25),
)
# A wedge of VTK begins with the triangle whose normal points outward.
_VTK_ORDER = {
    13: (3, 4, 5, 0, 1, 2),
    26: (3, 4, 5, 0, 1, 2, 9, 10, 11, 6, 7, 8, 12, 13, 14),
}
# What remains of the solids and shells of the normalised mesh without their repeated corners.
_BY_CORNERS = {
    8: {8: "hexahedron", 6: "wedge", 5: "pyramid", 4: "tetrahedron"},
    6: {6: "wedge", 5: "pyramid", 4: "tetrahedron"},
    5: {5: "pyramid", 4: "tetrahedron"},
    4: {4: "quadrilateral", 3: "triangle"},
}


class Piece(NamedTuple):
    """Cells of one kind from one section."""

    cell: Cell
    name: str
    section: int
    nodes: Ints
    oids: Ints | None


def _cell_for(kind: str, nodes: int) -> Cell | None:
    """The cell of a kind with the most nodes that an element has. Further nodes are left out."""
    fitting = [cell for cell in CELLS if cell.kind == kind and cell.nodes <= nodes]
    return fitting[-1] if fitting else None


def _without_repeats(kind: str, nodes: Ints) -> Iterator[tuple[str, Ints]]:
    """Elements of the normalised mesh by the corners that they have."""
    width = nodes.shape[1]
    kinds = {4: "tetrahedron"} if kind == "tetrahedron" else _BY_CORNERS.get(width, {width: kind})
    # The last corner and those before it that equal it count once.
    repeats = np.logical_and.accumulate(nodes[:, -2::-1] == nodes[:, -1:], axis=1).sum(axis=1)
    for corners, name in kinds.items():
        chosen = repeats == width - corners
        if chosen.all():
            yield name, nodes
        elif chosen.any():
            yield name, nodes[chosen, :corners]


class Grid:
    """A mesh in cells of known kinds."""

    def __init__(
        self, points: NDArray[Any], oids: Ints, sections: Sequence[Section], drop: bool
    ) -> None:
        self.points = points
        self.oids = oids
        self.pieces = [
            piece
            for index, section in enumerate(sections)
            for piece in self._pieces(index, section, drop)
        ]

    @staticmethod
    def _pieces(index: int, section: Section, drop: bool) -> Iterator[Piece]:
        if section.kind == "unknown" or len(section) == 0:
            return
        nodes, oids = section.cells, section.oids
        missing = nodes.min(axis=1) < 0
        if missing.any():
            if not drop:
                number = counted(int(missing.sum()), "element")
                raise ValueError(
                    f"{number} of {section!r} with a node that is not there; "
                    "drop=True leaves such out"
                )
            nodes = nodes[~missing]
            oids = None if oids is None else oids[~missing]
        kinds = iter([(section.kind, nodes)])
        if oids is None:
            kinds = _without_repeats(section.kind, nodes)
        for kind, kept in kinds:
            cell = _cell_for(kind, kept.shape[1])
            if cell and len(kept):
                yield Piece(cell, section.name, index, kept[:, : cell.nodes], oids)


def _for_meshio(piece: Piece) -> tuple[str, Ints]:
    """The cells, in corners alone where this version of meshio has no such cells."""
    import meshio

    try:
        meshio.CellBlock(piece.cell.meshio, piece.nodes[:0])
    except KeyError:
        corners = next(cell for cell in CELLS if cell.kind == piece.cell.kind)
        return corners.meshio, piece.nodes[:, : corners.nodes]
    return piece.cell.meshio, piece.nodes


def to_meshio(grid: Grid) -> meshio.Mesh:
    """A mesh of meshio."""
    import meshio

    pieces = grid.pieces
    none = np.empty(0, np.int64)
    with_oids = pieces and all(piece.oids is not None for piece in pieces)
    return meshio.Mesh(
        grid.points,
        [_for_meshio(piece) for piece in pieces],
        point_data={"oid": grid.oids},
        cell_data={"oid": [piece.oids for piece in pieces]} if with_oids else {},
        cell_sets={
            name: [np.arange(len(p.nodes)) if p.name == name else none for p in pieces]
            for name in dict.fromkeys(piece.name for piece in pieces if piece.name)
        },
    )


def _for_vtk(piece: Piece) -> Ints:
    """The cells as VTK lists them: the number of nodes before the nodes of each."""
    order = _VTK_ORDER.get(piece.cell.vtk)
    nodes = piece.nodes[:, order] if order else piece.nodes
    return np.insert(nodes, 0, piece.cell.nodes, axis=1).ravel()


def to_pyvista(grid: Grid) -> pyvista.UnstructuredGrid:
    """A grid of PyVista."""
    import pyvista

    cells = [_for_vtk(piece) for piece in grid.pieces]
    types = [np.full(len(p.nodes), p.cell.vtk, np.uint8) for p in grid.pieces]
    sections = [np.full(len(p.nodes), p.section, np.int32) for p in grid.pieces]
    oids = [p.oids for p in grid.pieces if p.oids is not None]

    def joined(parts: list[Any], dtype: Any) -> NDArray[Any]:
        return np.concatenate(parts) if parts else np.empty(0, dtype)

    result = pyvista.UnstructuredGrid(
        joined(cells, np.int32), joined(types, np.uint8), np.array(grid.points)
    )
    result.point_data["oid"] = np.array(grid.oids)
    result.cell_data["section"] = joined(sections, np.int32)
    if len(oids) == len(grid.pieces):
        result.cell_data["oid"] = joined(oids, np.int32)
    return result
