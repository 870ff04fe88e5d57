"""Meshes handed to meshio and PyVista."""
import sys
import types

import meshio
import numpy as np
import pytest
from conftest import BRICK

import kvocaeio
import kvocaeio.meshio


def cells_of(mesh):
    return [(block.type, block.data.tolist()) for block in mesh.cells]


BRICK_CELLS = [("hexahedron", [[0, 1, 2, 3, 4, 5, 6, 7]]), ("pyramid", [[4, 5, 6, 7, 8]])]


def test_sections_become_blocks_of_meshio(brick):
    mesh = kvocaeio.read(brick).to_meshio()
    assert cells_of(mesh) == BRICK_CELLS
    assert mesh.points[8].tolist() == [0.5, 0.5, 3.0]
    assert mesh.point_data["oid"].tolist() == [1, 2, 3, 4, 5, 6, 7, 8, 20]
    assert [oids.tolist() for oids in mesh.cell_data["oid"]] == [[11], [12]]
    assert [rows.tolist() for rows in mesh.cell_sets["BODY"]] == [[0], [0]]


def test_the_normalised_mesh_comes_without_repeated_corners(brick):
    model = kvocaeio.read(brick, normalise=True)
    mesh = model.to_meshio()
    assert cells_of(mesh) == BRICK_CELLS
    assert "oid" not in mesh.cell_data
    assert cells_of(model.to_meshio(normalised=False)) == BRICK_CELLS
    with pytest.raises(ValueError, match=r"call normalise\(\) first"):
        kvocaeio.read(brick).to_meshio(normalised=True)


def test_a_node_that_is_not_there_is_no_last_point(tmp_path):
    path = tmp_path / "cut.inp"
    path.write_text(BRICK.replace("20, 0.5, 0.5, 3.0\n", ""))
    model = kvocaeio.read(path)
    with pytest.raises(ValueError, match="1 element of .* not there"):
        model.to_meshio()
    assert cells_of(model.to_meshio(drop=True)) == BRICK_CELLS[:1]


def test_mid_side_nodes_are_kept(data):
    mesh = kvocaeio.read(data / "hinge.inp").to_meshio()
    kinds = {block.type for block in mesh.cells}
    # Some versions of meshio have no wedges with mid-side nodes.
    assert kinds in ({"wedge15", "hexahedron20"}, {"wedge", "hexahedron20"})


def test_elements_of_unknown_kind_are_left_out(data):
    mesh = kvocaeio.read(data / "housing.inp").to_meshio()
    assert sum(len(block.data) for block in mesh.cells) == 636  # and 4 masses
    assert [block.type for block in mesh.cells][-1] == "tetra10"


def test_meshio_reads_the_same(tmp_path):
    """Its own reader and this one, of a deck that both read whole."""
    deck = tmp_path / "deck.inp"
    tetrahedron = "*ELEMENT, TYPE=C3D4, ELSET=LID\n12, 5, 6, 7, 20\n"
    deck.write_text(BRICK[: BRICK.index("*ELEMENT, TYPE=C3D5")] + tetrahedron)
    theirs = meshio.read(deck)
    ours = meshio.read(deck, file_format="kvocaeio-abaqus")
    assert np.array_equal(theirs.points, ours.points)
    assert cells_of(theirs) == cells_of(ours)


def test_meshio_keeps_its_own_formats():
    from meshio import _helpers

    assert "kvocaeio-abaqus" in _helpers.reader_map
    names = [name for names in _helpers.extension_to_filetypes.values() for name in names]
    assert "abaqus" in names
    assert not [name for name in names if name.startswith("kvocaeio")]


@pytest.mark.parametrize("format", ["nastran", "patran"])
def test_meshio_writes_and_reads_by_name(format, tmp_path):
    mesh = meshio.Mesh(
        np.array([[0, 0, 0], [1, 0, 0], [0, 1, 0], [0, 0, 1.0]]),
        [("tetra", np.array([[0, 1, 2, 3]]))],
        point_data={"oid": np.array([4, 3, 2, 1])},
        cell_data={"oid": [np.array([9])]},
    )
    path = tmp_path / "mesh"
    meshio.write(path, mesh, file_format=f"kvocaeio-{format}")
    again = meshio.read(path, file_format=f"kvocaeio-{format}")
    coordinates = dict(zip(again.point_data["oid"].tolist(), again.points.tolist()))
    assert coordinates == {4: [0, 0, 0], 3: [1, 0, 0], 2: [0, 1, 0], 1: [0, 0, 1]}
    assert again.cell_data["oid"][0].tolist() == [9]
    corners = again.point_data["oid"][again.cells[0].data[0]]
    assert corners.tolist() == [4, 3, 2, 1]


def test_meshio_writes_only_solids(tmp_path):
    mesh = meshio.Mesh(np.zeros((3, 3)), [("triangle", np.array([[0, 1, 2]]))])
    with pytest.raises(ValueError, match="not triangle"):
        kvocaeio.meshio.write(tmp_path / "mesh.bdf", mesh)


class Grid:
    """Keeps what the constructor of PyVista's grid is given."""

    def __init__(self, cells, celltypes, points):
        self.cells, self.celltypes, self.points = cells, celltypes, points
        self.point_data = {}
        self.cell_data = {}


def test_sections_become_cells_of_vtk(brick, monkeypatch):
    pyvista = types.ModuleType("pyvista")
    pyvista.UnstructuredGrid = Grid
    monkeypatch.setitem(sys.modules, "pyvista", pyvista)
    grid = kvocaeio.read(brick).to_pyvista()
    assert grid.cells.tolist() == [8, 0, 1, 2, 3, 4, 5, 6, 7, 5, 4, 5, 6, 7, 8]
    assert grid.celltypes.tolist() == [12, 14]
    assert grid.celltypes.dtype == np.uint8
    assert grid.points.flags.writeable
    assert grid.point_data["oid"].tolist() == [1, 2, 3, 4, 5, 6, 7, 8, 20]
    assert grid.cell_data["oid"].tolist() == [11, 12]
    assert grid.cell_data["section"].tolist() == [0, 1]


def test_wedges_are_turned_for_vtk(tmp_path, monkeypatch):
    deck = tmp_path / "wedge.inp"
    points = ["0,0,0", "1,0,0", "0,1,0", "0,0,1", "1,0,1", "0,1,1"]
    nodes = "".join(f"{i + 1},{point}\n" for i, point in enumerate(points))
    deck.write_text(f"*NODE\n{nodes}*ELEMENT, TYPE=C3D6, ELSET=A\n1, 1, 2, 3, 4, 5, 6\n")
    pyvista = types.ModuleType("pyvista")
    pyvista.UnstructuredGrid = Grid
    monkeypatch.setitem(sys.modules, "pyvista", pyvista)
    assert kvocaeio.read(deck).to_pyvista().cells.tolist() == [6, 3, 4, 5, 0, 1, 2]


def test_the_numbers_of_vtk_are_those_of_meshio():
    from meshio import _vtk_common

    from kvocaeio._grids import CELLS

    for cell in CELLS:
        assert _vtk_common.vtk_to_meshio_type[cell.vtk] == cell.meshio
        assert meshio._mesh.num_nodes_per_cell[cell.meshio] == cell.nodes
