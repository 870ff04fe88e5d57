"""Writing meshes from arrays."""
import numpy as np
import pytest

import kvocaeio

POINTS = [[0, 0, 0], [1, 0, 0], [1, 1, 0], [0, 1, 0], [0, 0, 2], [1, 0, 2], [1, 1, 2], [0, 1, 2]]
HEXAHEDRON = [[0, 1, 2, 3, 4, 5, 6, 7]]
TETRAHEDRA = [[0, 1, 2, 4], [0, 2, 3, 4]]


@pytest.mark.parametrize("name", ["mesh.bdf", "mesh.nas", "mesh.pat"])
def test_what_is_written_is_read_again(name, tmp_path):
    path = tmp_path / name
    kvocaeio.write(path, POINTS, [TETRAHEDRA, HEXAHEDRON])
    model = kvocaeio.read(path, tidy=True)
    assert model.points.tolist() == POINTS
    assert model.node_oids.tolist() == [1, 2, 3, 4, 5, 6, 7, 8]
    tetrahedra, hexahedra = model.sections
    assert tetrahedra.cells.tolist() == TETRAHEDRA
    assert tetrahedra.oids.tolist() == [1, 2]
    assert hexahedra.cells.tolist() == HEXAHEDRON
    assert hexahedra.oids.tolist() == [3]


def test_oids_and_properties_stay(tmp_path):
    path = tmp_path / "mesh.bdf"
    oids = np.arange(11, 19)
    blocks = [kvocaeio.Block(oids[TETRAHEDRA], oids=[7, 5], property=3)]
    kvocaeio.write(path, POINTS, blocks, node_oids=oids, numbering="oids")
    model = kvocaeio.read(path, tidy=True)
    assert model.node_oids.tolist() == [11, 12, 13, 14, 15, 16, 17, 18]
    (section,) = model.sections
    rows = dict(zip(section.oids.tolist(), section.connectivity.tolist()))
    assert rows == {7: [11, 12, 13, 15], 5: [11, 13, 14, 15]}
    assert "PSOLID ,      3," in path.read_text()


def test_arrays_of_any_type_and_layout_are_taken(tmp_path):
    wide = np.zeros((8, 6), np.float32)
    wide[:, ::2] = POINTS
    cells = np.asfortranarray(np.array(HEXAHEDRON * 2, np.int64))[:1]
    kvocaeio.write(tmp_path / "mesh.pat", wide[:, ::2], [cells])
    assert kvocaeio.read(tmp_path / "mesh.pat").points.tolist() == POINTS


def test_a_model_is_written_in_another_format(brick, tmp_path):
    hexahedra = kvocaeio.read(brick).sections[0]
    model = kvocaeio.read(brick)
    kvocaeio.write(
        tmp_path / "brick.bdf",
        model.points,
        [kvocaeio.Block(hexahedra.cells, hexahedra.oids)],
        node_oids=model.node_oids,
    )
    again = kvocaeio.read(tmp_path / "brick.bdf", tidy=True)
    assert again.node_oids.tolist() == [1, 2, 3, 4, 5, 6, 7, 8, 20]
    assert again.sections[0].oids.tolist() == [11]


def changed(index, value):
    return [value if i == index else point for i, point in enumerate(POINTS)]


@pytest.mark.parametrize(
    "points, blocks, options, reason",
    [
        (changed(3, [0, np.nan, 0]), [HEXAHEDRON], {}, "finite"),
        (POINTS, [[[0, 1, 2, 8]]], {}, "node"),
        (POINTS, [[[0, 1, 2, -1]]], {}, "node"),
        (POINTS, [[[0, 1, 2]]], {}, "neither 4 nor 6 nor 8"),
        (POINTS, [[0, 1, 2, 3]], {}, r"shape \(4,\)"),
        (POINTS, [[[0.0, 1.0, 2.0, 3.0]]], {}, "float64, not integers"),
        (POINTS, [[[0, 1, 2, 2**31]]], {}, "32 bits"),
        (POINTS, [], {}, ""),
        ([[0, 0]], [HEXAHEDRON], {}, r"shape \(1, 2\)"),
        (POINTS, [HEXAHEDRON], {"node_oids": [1, 2]}, r"shape \(2,\) instead of \(8,\)"),
        (POINTS, [HEXAHEDRON], {"node_oids": [1, 2, 3, 4, 5, 6, 7, 7]}, "7"),
        (POINTS, [kvocaeio.Block(HEXAHEDRON, [0])], {}, "0"),
        (POINTS, [HEXAHEDRON], {"numbering": "columns"}, "none of oids, rows"),
        (POINTS, [HEXAHEDRON], {"format": "abaqus"}, "none of nastran, patran"),
    ],
)
def test_a_wrong_mesh_is_refused_and_the_old_file_stays(points, blocks, options, reason, tmp_path):
    path = tmp_path / "mesh.bdf"
    path.write_text("old")
    with pytest.raises(kvocaeio.ArgumentError, match=reason):
        kvocaeio.write(path, points, blocks, **options)
    assert path.read_text() == "old"
    assert [entry.name for entry in tmp_path.iterdir()] == ["mesh.bdf"]


def test_an_extension_that_tells_no_format_is_refused(tmp_path):
    with pytest.raises(ValueError, match="'.msh' does not tell the format"):
        kvocaeio.write(tmp_path / "mesh.msh", POINTS, [HEXAHEDRON])
    kvocaeio.write(tmp_path / "mesh.msh", POINTS, [HEXAHEDRON], format="nastran")
    assert kvocaeio.recognise(tmp_path / "mesh.msh") == "nastran"


def test_a_folder_that_is_not_there_cannot_be_written_to(tmp_path):
    with pytest.raises(OSError) as caught:
        kvocaeio.write(tmp_path / "none" / "mesh.bdf", POINTS, [HEXAHEDRON])
    assert caught.type is kvocaeio.CannotWriteError
