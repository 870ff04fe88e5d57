"""A file that was read."""
from __future__ import annotations

import ctypes
from functools import cached_property
from types import TracebackType
from typing import TYPE_CHECKING, Any, Iterator

import numpy as np

from . import _abi, _grids, _tables
from ._findings import Findings, counted, findings_of
from ._library import Handle, Report, index_of, lib, require, text_of

if TYPE_CHECKING:
    import meshio
    import pyvista
    from numpy.typing import NDArray

    from ._tables import Ints


class Section:
    """Elements of one kind. Its arrays are read-only and keep the model alive."""

    def __init__(self, handle: Handle, table: int, index: int) -> None:
        raw = handle.fill(lib.get_section, _abi.Section(), table, index)
        self._handle, self._table, self._index = handle, table, index
        self._shape = (int(raw.count), int(raw.nodes_per_element))
        #: Name of the element set, in upper case; empty without one.
        self.name: str = text_of(raw.name)
        #: The element type as an Abaqus deck has it, in upper case; otherwise empty.
        self.type: str = text_of(raw.type)
        #: "solid", "shell", "line" or "unknown".
        self.geometry: str = _abi.GEOMETRIES[raw.geometry]
        #: The shape by corners: "line", "triangle", "quadrilateral", "tetrahedron", "pyramid",
        #: "wedge", "hexahedron" or "unknown".
        self.kind: str = _abi.KINDS[raw.kind]
        #: (n,) OIDs of the elements; None in the normalised mesh.
        self.oids: Ints | None = self._column(raw.oids, table == _abi.SECTIONS)
        #: (n,) property ids that the elements name; None except of Patran files.
        self.property_ids: Ints | None = self._column(raw.property_ids, bool(raw.property_ids))

    def _column(self, address: int | None, exists: bool) -> Ints | None:
        return self._handle.array(address, self._shape[:1], np.int32) if exists else None

    def _nodes(self, numbering: int) -> Ints:
        out = ctypes.c_void_p()
        self._handle.fill(lib.get_connectivity, out, self._table, self._index, numbering)
        return self._handle.array(out.value, self._shape, np.int32)

    @property
    def nodes_per_element(self) -> int:
        """Nodes of every element; 0 where the type is unknown."""
        return self._shape[1]

    @cached_property
    def cells(self) -> Ints:
        """(n, nodes_per_element) nodes as rows of the model's `points`; -1 for a node that is not
        there. Corners come first, then mid-side nodes. In the normalised mesh an element with fewer
        corners than its section has nodes repeats its last one."""
        return self._nodes(_abi.ROWS)

    @cached_property
    def connectivity(self) -> Ints:
        """(n, nodes_per_element) nodes by their OIDs, as `cells` has them by rows."""
        return self._nodes(_abi.OIDS)

    def __len__(self) -> int:
        return self._shape[0]

    def __repr__(self) -> str:
        name = self.name or "(no name)"
        kind = f"of kind {self.kind}" if self.type == "" else f"of kind {self.kind} ({self.type})"
        nodes = counted(self._shape[1], "node")
        return f"<kvocaeio.Section {name}: {counted(len(self), 'element')} {kind}, {nodes} each>"


class Model:
    """A file that was read: a mesh, or the bodies and wires of a chip package. Made by `read`.

    A property that models of the format do not have raises `NoSuchTableError`. Arrays are those of
    the library, not copies: they are read-only, and the memory is released when the model and all
    arrays of it are gone. A model may be used by several threads.
    """

    def __init__(self, pointer: int, path: str, report: Report | None) -> None:
        self._handle: Handle | None = Handle(pointer)
        self._report = report
        #: Path of the file.
        self.path: str = path
        #: "abaqus", "nastran", "patran", "3di" or "cadence".
        self.format: str = _abi.FORMATS[lib.model_format(pointer)]
        #: Whether the deck was rewritten before it was read.
        self.is_tidied: bool = bool(lib.model_is_tidied(pointer))
        #: What was noticed; None where `read` was not asked for a report.
        self.findings: Findings | None = findings_of(report) if report else None

    def _open(self) -> Handle:
        if self._handle is None:
            raise ValueError("the model is closed")
        return self._handle

    def close(self) -> None:
        """Lets go of the file's tables: the model can be asked nothing more. Arrays that were taken
        from it stay valid, and the memory is released with the last one."""
        self._handle = None
        for name in ("_nodes", "sections", "bodies", "wires"):
            self.__dict__.pop(name, None)

    def __enter__(self) -> Model:
        return self

    def __exit__(
        self,
        kind: type[BaseException] | None,
        error: BaseException | None,
        trace: TracebackType | None,
    ) -> None:
        self.close()

    @property
    def is_package(self) -> bool:
        """Whether it has bodies and wires, instead of nodes and sections."""
        return self.format in ("3di", "cadence")

    @cached_property
    def _nodes(self) -> _abi.Nodes:
        return self._open().fill(lib.get_nodes, _abi.Nodes())

    @property
    def points(self) -> NDArray[Any]:
        """(n, 3) x, y, z of the nodes in the length unit of the file: float64 of Abaqus decks,
        float32 of others."""
        raw = self._nodes
        if raw.coordinates:
            return self._open().array(raw.coordinates, (raw.count, 3), np.float64)
        dtype = np.float64 if self.format == "abaqus" else np.float32
        return self._open().array(raw.float_coordinates, (raw.count, 3), dtype)

    @property
    def node_oids(self) -> Ints:
        """(n,) OIDs of the nodes."""
        return self._open().array(self._nodes.oids, (self._nodes.count,), np.int32)

    def _table(self, table: int) -> list[Section]:
        handle = self._open()
        count = handle.fill(lib.get_section_count, ctypes.c_size_t(), table)
        return [Section(handle, table, index) for index in range(count.value)]

    @cached_property
    def sections(self) -> list[Section]:
        """The sections as the file lists them. Of Abaqus decks one for each block of elements, of
        Nastran decks and Patran files one for each kind of element."""
        return self._table(_abi.SECTIONS)

    @property
    def is_normalised(self) -> bool:
        """Whether there is a normalised mesh."""
        return bool(self._open().call(lib.model_is_normalised))

    def normalise(self) -> Model:
        """Makes the normalised mesh of an Abaqus deck, `solids` and `shells`, and returns the
        model. What is noticed is added to `findings`, where `read` was asked for a report."""
        report = self._report
        require(self._open().call(lib.normalise, report.pointer if report else None))
        if report:
            self.findings = findings_of(report)
        return self

    @property
    def solids(self) -> list[Section]:
        """The solids of the normalised mesh; none before it is made."""
        return self._table(_abi.NORMALISED_SOLIDS)

    @property
    def shells(self) -> list[Section]:
        """The shells of the normalised mesh, those made of loads and surfaces last; none before it
        is made."""
        return self._table(_abi.NORMALISED_SHELLS)

    @property
    def shell_sections(self) -> list[_tables.ShellSection]:
        """The `*SHELL SECTION` blocks of an Abaqus deck, in its order."""
        return _tables.shell_sections(self._open())

    @property
    def nastran(self) -> _tables.NastranTables:
        """The tables of a Nastran deck."""
        return _tables.nastran_tables(self._open())

    @property
    def patran(self) -> _tables.PatranTables:
        """The tables of a Patran file."""
        return _tables.patran_tables(self._open())

    @property
    def patran_values(self) -> _tables.PatranValues:
        """The property data of a Patran file that was read with `property_values=True`."""
        return _tables.patran_values(self._open())

    @cached_property
    def bodies(self) -> _tables.Bodies:
        """The bodies of a package."""
        return _tables.Bodies(self._open())

    @cached_property
    def wires(self) -> _tables.Wires:
        """The bond wires of a package; a Cadence design has none."""
        return _tables.Wires(self._open())

    def origins(self, things: str = "nodes") -> _tables.Origins:
        """Where "nodes", "elements" or "properties" of a deck come from that was tidied before it
        was read."""
        return _tables.origins(self._open(), index_of(things, _abi.THINGS, "a kind of things"))

    def to_meshio(self, *, normalised: bool | None = None, drop: bool = False) -> meshio.Mesh:
        """Returns the mesh as one of meshio, which must be installed: a block for each section,
        OIDs as "oid" of points and cells, named sections as cell sets.

        `normalised` takes the normalised mesh; None does so where it has been made. Elements of
        unknown kind are left out, and mid-side nodes of cells that meshio does not know. Elements
        with a node that is not there raise ValueError, or are left out with `drop`.
        """
        return _grids.to_meshio(self._grid(normalised, drop))

    def to_pyvista(
        self, *, normalised: bool | None = None, drop: bool = False
    ) -> pyvista.UnstructuredGrid:
        """Returns the mesh as a grid of PyVista, which must be installed, with the OIDs as "oid" of
        points and cells and the number of the section as "section". The arguments are those of
        `to_meshio`."""
        return _grids.to_pyvista(self._grid(normalised, drop))

    def _grid(self, normalised: bool | None, drop: bool) -> _grids.Grid:
        if normalised is None:
            normalised = self.is_normalised
        elif normalised and not self.is_normalised:
            raise ValueError("the mesh has not been normalised: call normalise() first")
        sections = self.solids + self.shells if normalised else self.sections
        return _grids.Grid(self.points, self.node_oids, sections, drop)

    def _content(self) -> Iterator[str]:
        if self._handle is None:
            yield "closed"
        elif self.is_package:
            yield counted(len(self.bodies), "body").replace("bodys", "bodies")
            yield counted(len(self.wires), "wire")
        else:
            yield counted(self._nodes.count, "node")
            yield counted(sum(map(len, self.sections)), "element")
            yield counted(len(self.sections), "section")
            if self.is_normalised:
                yield "normalised"

    def __repr__(self) -> str:
        name = text_of(lib.format_name(_abi.FORMATS.index(self.format)))
        return f"<kvocaeio.Model {self.path}: {name}, {', '.join(self._content())}>"
