"""Tables that models of one format have. Their arrays are read-only and keep the model alive."""
from __future__ import annotations

from dataclasses import dataclass
from functools import cached_property
from typing import TYPE_CHECKING

import numpy as np

from . import _abi
from ._library import Handle, lib, path_of, text_of, texts_of

if TYPE_CHECKING:  # numpy.typing takes a mebibyte
    from numpy.typing import NDArray

    Ints = NDArray[np.int32]
    Floats = NDArray[np.float32]
    Doubles = NDArray[np.float64]


@dataclass(frozen=True)
class ShellSection:
    """A `*SHELL SECTION` block of an Abaqus deck."""

    #: Name of the element set, in upper case; empty without one.
    name: str
    #: Name of the material, likewise.
    material: str
    #: In the length unit of the deck; 0 without one.
    thickness: float


@dataclass(frozen=True, eq=False)
class NastranTables:
    """The tables of a Nastran deck as its reader keeps them: a row for each OID, from 1 to the
    largest one, of zeros where the deck does not use the OID."""

    #: (largest node OID, 4): node OID, x, y, z.
    nodes: Floats
    #: (largest element OID, 9): element OID, eight node OIDs; an element of fewer nodes repeats its
    #: last one. Shells have rows of zeros.
    elements: Ints
    #: (rows, 3): property OID, material OID, property value, in deck order.
    sections: Ints
    #: Number of different material OIDs among the sections.
    material_count: int

    def __repr__(self) -> str:
        rows = f"{len(self.nodes)} node rows, {len(self.elements)} element rows"
        return f"<kvocaeio.NastranTables: {rows}, {len(self.sections)} section rows>"


@dataclass(frozen=True, eq=False)
class PatranTables:
    """The elements of a Patran file, in file order, and its summary."""

    #: (n,) OIDs.
    oids: Ints
    #: (n,) 2 bar, 3 triangle, 4 quadrilateral, 5 tetrahedron, 7 wedge, 8 hexahedron, 0 any other.
    shapes: Ints
    #: (n,) property ids that the elements name.
    property_ids: Ints
    #: (n, 8) node OIDs; 0 in empty places, -1 for an OID above all that nodes have.
    nodes: Ints
    #: Numbers of nodes, elements and properties in the summary, whatever the file holds.
    summary: tuple[int, int, int]

    def __repr__(self) -> str:
        return f"<kvocaeio.PatranTables: {len(self.oids)} elements>"


@dataclass(frozen=True, eq=False)
class PatranValues:
    """A Patran file as it is read with its property data."""

    #: (nodes, 3) x, y, z.
    points: Floats
    #: (elements, 4) corners as rows of `points`; 0 for an OID that no node has.
    corners: Ints
    #: (elements,) types: a shape code, or what the property says.
    types: Ints
    #: (elements, 3) values of the property.
    values: Doubles

    def __repr__(self) -> str:
        return f"<kvocaeio.PatranValues: {len(self.types)} elements>"


@dataclass(frozen=True, eq=False)
class Origins:
    """Where nodes, elements or properties of a tidied deck come from."""

    #: (n,) OIDs in the model.
    oids: Ints
    #: (n,) OIDs in the original.
    original_oids: Ints
    #: (n,) places in `parts` and `files`.
    sources: Ints
    #: Names of instances or parts; empty texts without one.
    parts: list[str]
    #: Paths of files: the deck, or one that it includes.
    files: list[str]
    #: By how much the coordinate of a node differs most from its place in the original.
    deviation: float

    def __repr__(self) -> str:
        return f"<kvocaeio.Origins: {len(self.oids)} OIDs>"


class Bodies:
    """The bodies of a package, in file order. Lengths are millimetres."""

    def __init__(self, handle: Handle) -> None:
        raw = handle.fill(lib.get_bodies, _abi.Bodies())
        self._raw, self._handle = raw, handle
        types = handle.array(raw.types, (raw.count,), np.int32)
        #: What each is: "substrate", "die", "interposer", "spacer", "ball", "cap" or "other".
        self.types: list[str] = [_abi.BODIES[code] for code in types]
        #: (n, 3) x, y, z of the middle.
        self.centers: Doubles = handle.array(raw.centers, (raw.count, 3), np.float64)
        #: (n, 3) extents in x, y, z. Of a ball only the first has a meaning, its diameter.
        self.sizes: Doubles = handle.array(raw.sizes, (raw.count, 3), np.float64)
        #: (n,) packed colours, the first value in the lowest byte; 0 for a Cadence design.
        self.colors: NDArray[np.uint32] = handle.array(raw.colors, (raw.count,), np.uint32)

    @cached_property
    def names(self) -> list[str]:
        """Their names."""
        return texts_of(self._raw.names, self._raw.count)

    def __len__(self) -> int:
        return int(self._raw.count)

    def __repr__(self) -> str:
        kinds = (f"{self.types.count(kind)} {kind}" for kind in _abi.BODIES if kind in self.types)
        return f"<kvocaeio.Bodies: {', '.join(kinds) or 'none'}>"


class Wires:
    """The bond wires of a package, each a polyline, in file order. Lengths are millimetres."""

    def __init__(self, handle: Handle) -> None:
        raw = handle.fill(lib.get_wires, _abi.Wires())
        self._count = int(raw.count)
        #: (points of all wires, 3) x, y, z.
        self.points: Doubles = handle.array(raw.points, (raw.point_count, 3), np.float64)
        #: (n + 1,) wire i has the rows of `points` from `first_points[i]` to before
        #: `first_points[i + 1]`.
        self.first_points: NDArray[np.int64] = (
            handle.array(raw.first_points, (raw.count + 1,), np.int64)
            if raw.first_points
            else np.zeros(1, np.int64)
        )
        #: (n,) numbers of wire models, from 1. The file need not describe such a model.
        self.profiles: Ints = handle.array(raw.profiles, (raw.count,), np.int32)
        #: (n,) diameters.
        self.diameters: Doubles = handle.array(raw.diameters, (raw.count,), np.float64)
        #: (n,) packed colours, the first value in the lowest byte.
        self.colors: NDArray[np.uint32] = handle.array(raw.colors, (raw.count,), np.uint32)
        #: Names of the wire models, in upper case. That of model n is at n-1.
        self.profile_names: list[str] = texts_of(raw.profile_names, raw.profile_count)

    def __len__(self) -> int:
        return self._count

    def __getitem__(self, index: int) -> Doubles:
        """The points of one wire, (k, 3)."""
        row = index + self._count if index < 0 else index
        if not 0 <= row < self._count:
            raise IndexError(f"there is no wire {index}")
        return self.points[self.first_points[row] : self.first_points[row + 1]]

    def __repr__(self) -> str:
        return f"<kvocaeio.Wires: {self._count} of {len(self.points)} points>"


def shell_sections(handle: Handle) -> list[ShellSection]:
    """Those of an Abaqus deck, in its order."""
    raw = handle.fill(lib.get_shell_sections, _abi.ShellSections())
    thicknesses = handle.array(raw.thicknesses, (raw.count,), np.float64)
    return [
        ShellSection(text_of(raw.names[i]), text_of(raw.materials[i]), float(thicknesses[i]))
        for i in range(raw.count)
    ]


def nastran_tables(handle: Handle) -> NastranTables:
    """Those of a Nastran deck."""
    raw = handle.fill(lib.get_nastran_tables, _abi.NastranTables())
    return NastranTables(
        nodes=handle.array(raw.nodes, (raw.node_rows, 4), np.float32),
        elements=handle.array(raw.elements, (raw.element_rows, 9), np.int32),
        sections=handle.array(raw.sections, (raw.section_rows, 3), np.int32),
        material_count=raw.material_count,
    )


def patran_tables(handle: Handle) -> PatranTables:
    """Those of a Patran file."""
    raw = handle.fill(lib.get_patran_tables, _abi.PatranTables())
    return PatranTables(
        oids=handle.array(raw.oids, (raw.count,), np.int32),
        shapes=handle.array(raw.shapes, (raw.count,), np.int32),
        property_ids=handle.array(raw.property_ids, (raw.count,), np.int32),
        nodes=handle.array(raw.nodes, (raw.count, 8), np.int32),
        summary=(raw.summary_nodes, raw.summary_elements, raw.summary_properties),
    )


def patran_values(handle: Handle) -> PatranValues:
    """Those of a Patran file that was opened for them."""
    raw = handle.fill(lib.get_patran_values, _abi.PatranValues())
    return PatranValues(
        points=handle.array(raw.nodes, (raw.node_count, 3), np.float32),
        corners=handle.array(raw.corners, (raw.element_count, 4), np.int32),
        types=handle.array(raw.types, (raw.element_count,), np.int32),
        values=handle.array(raw.values, (raw.element_count, 3), np.float64),
    )


def origins(handle: Handle, things: int) -> Origins:
    """Those of nodes, elements or properties."""
    raw = handle.fill(lib.get_origins, _abi.Origins(), things)
    return Origins(
        oids=handle.array(raw.oids, (raw.count,), np.int32),
        original_oids=handle.array(raw.original_oids, (raw.count,), np.int32),
        sources=handle.array(raw.sources, (raw.count,), np.int32),
        parts=texts_of(raw.source_parts, raw.source_count),
        files=[path_of(raw.source_files[i]) for i in range(raw.source_count)],
        deviation=raw.deviation,
    )
