"""Reading: what a model hands out, how long it lives, and what is said where nothing is read."""
import gc
import os
import stat
from pathlib import Path

import numpy as np
import pytest
from conftest import BRICK

import kvocaeio


def test_a_deck_gives_points_and_sections(brick):
    model = kvocaeio.read(brick)
    assert model.format == "abaqus"
    assert model.points.dtype == np.float64
    assert model.points[[0, 6, 8]].tolist() == [[0, 0, 0], [1, 1, 2], [0.5, 0.5, 3]]
    assert model.node_oids.tolist() == [1, 2, 3, 4, 5, 6, 7, 8, 20]
    hexahedra, pyramids = model.sections
    assert (hexahedra.name, hexahedra.type) == ("BODY", "C3D8")
    assert (hexahedra.geometry, hexahedra.kind) == ("solid", "hexahedron")
    assert hexahedra.oids.tolist() == [11]
    assert hexahedra.cells.tolist() == [[0, 1, 2, 3, 4, 5, 6, 7]]
    assert pyramids.kind == "pyramid"
    assert pyramids.cells.tolist() == [[4, 5, 6, 7, 8]]
    assert pyramids.connectivity.tolist() == [[5, 6, 7, 8, 20]]
    assert pyramids.property_ids is None


def test_the_normalised_mesh_comes_beside_the_sections(brick):
    model = kvocaeio.read(brick)
    assert not model.is_normalised
    assert model.solids == []
    assert model.normalise() is model
    assert model.is_normalised
    (body,) = model.solids
    assert body.cells.tolist() == [[0, 1, 2, 3, 4, 5, 6, 7], [4, 5, 6, 7, 8, 8, 8, 8]]
    assert body.oids is None
    assert model.shells == []
    assert len(model.sections) == 2
    assert kvocaeio.read(brick, normalise=True).is_normalised


def test_what_it_is_can_be_seen(brick, data):
    model = kvocaeio.read(brick)
    content = "Abaqus input deck, 9 nodes, 2 elements, 2 sections"
    assert repr(model) == f"<kvocaeio.Model {brick}: {content}>"
    assert repr(model.sections[1]) == (
        "<kvocaeio.Section BODY: 1 element of kind pyramid (C3D5), 5 nodes each>"
    )
    model.close()
    assert repr(model) == f"<kvocaeio.Model {brick}: Abaqus input deck, closed>"
    stack = kvocaeio.read(data / "stack.3di")
    assert repr(stack).endswith(", 167 bodies, 96 wires>")
    assert repr(stack.wires) == "<kvocaeio.Wires: 96 of 816 points>"


def test_arrays_are_those_of_the_library_and_read_only(brick):
    model = kvocaeio.read(brick)
    assert model.points.ctypes.data == model.points.ctypes.data
    assert not model.points.flags.owndata
    again = kvocaeio.Model.sections.func(model)
    assert model.sections[0].cells.ctypes.data == again[0].cells.ctypes.data
    for array in (model.points, model.node_oids, model.sections[0].oids, model.sections[0].cells):
        assert array.flags.c_contiguous and array.flags.aligned
        with pytest.raises(ValueError, match="read-only"):
            array[0] = 0


def test_arrays_outlive_the_model(large):
    points = kvocaeio.read(large).points
    kept = points[50_000:]
    del points
    gc.collect()
    for _ in range(3):
        kvocaeio.read(large)  # takes the place of what was released
    assert kept[0].tolist() == [46.5, 0.0, 1.0]


def test_memory_is_released_with_the_last_array(large):
    def resident():
        return int(Path("/proc/self/statm").read_text().split()[1]) * os.sysconf("SC_PAGE_SIZE")

    def peak_of_many():
        for _ in range(40):
            kvocaeio.read(large).points  # 2.8 MB
        return resident()

    first = peak_of_many()
    assert peak_of_many() < first + 20_000_000


def test_a_closed_model_says_so_and_its_arrays_stay(brick):
    with kvocaeio.read(brick) as model:
        points = model.points
        section = model.sections[0]
    with pytest.raises(ValueError, match="closed"):
        model.points
    with pytest.raises(ValueError, match="closed"):
        model.sections
    assert points[8].tolist() == [0.5, 0.5, 3.0]
    assert section.cells.tolist() == [[0, 1, 2, 3, 4, 5, 6, 7]]


@pytest.mark.parametrize("name", ["Gehäuse für Netze.inp", "壳体.inp", os.fsdecode(b"\xff.inp")])
def test_files_of_any_name_are_read(name, tmp_path):
    path = tmp_path / name
    path.write_text(BRICK)
    assert len(kvocaeio.read(path).points) == 9
    assert len(kvocaeio.read(str(path)).points) == 9


def test_a_null_character_does_not_cut_a_path(brick):
    with pytest.raises(ValueError, match="null character"):
        kvocaeio.read(f"{brick}\0.bak")


def test_names_in_another_encoding_can_be_shown_and_told_apart(tmp_path):
    path = tmp_path / "latin.inp"
    second = "*ELEMENT, TYPE=C3D4, ELSET=MAß\n13, 1, 2, 4, 5\n"
    path.write_bytes((BRICK.replace("body", "GRÜN") + second).encode("latin-1"))
    model = kvocaeio.read(path)
    assert [section.name for section in model.sections] == ["GR\\xdcN", "GR\\xdcN", "MA\\xdf"]
    repr(model.sections).encode("utf-8")


def test_a_read_only_deck_is_read(brick):
    brick.chmod(stat.S_IRUSR)
    brick.parent.chmod(stat.S_IRUSR | stat.S_IXUSR)
    try:
        assert len(kvocaeio.read(brick).points) == 9
    finally:
        brick.parent.chmod(stat.S_IRWXU)


def test_nothing_is_printed(brick, capfd):
    kvocaeio.read(brick, report=True, normalise=True)
    assert capfd.readouterr() == ("", "")
    assert [path.name for path in brick.parent.iterdir()] == ["brick.inp"]


def test_a_node_that_is_not_there_has_the_row_minus_one(tmp_path):
    path = tmp_path / "cut.inp"
    path.write_text(BRICK.replace("20, 0.5, 0.5, 3.0\n", ""))
    assert kvocaeio.read(path).sections[1].cells.tolist() == [[4, 5, 6, 7, -1]]


def test_shell_sections(data):
    assert kvocaeio.read(data / "cover.inp").shell_sections == [
        kvocaeio.ShellSection("COVER", "PC_ABS", 2.5),
        kvocaeio.ShellSection("RIM", "PC_ABS", 1.8),
    ]


def test_nastran_tables(data):
    model = kvocaeio.read(data / "bracket.bdf")
    assert model.format == "nastran"
    assert model.points.dtype == np.float32
    assert [(s.kind, len(s)) for s in model.sections] == [
        ("line", 7),
        ("tetrahedron", 216),
        ("wedge", 24),
        ("hexahedron", 30),
    ]
    tables = model.nastran
    assert tables.nodes[100, 0] == 101  # the row of OID 101
    assert tables.nodes.dtype == np.float32
    assert tables.elements.shape[1] == 9
    assert tables.sections.shape[1] == 3


def test_patran_tables(data):
    model = kvocaeio.read(data / "bracket.pat", property_values=True)
    assert model.format == "patran"
    assert [len(s) for s in model.sections] == [7, 24, 12, 216, 24, 30]
    tables = model.patran
    assert np.bincount(tables.shapes).tolist() == [0, 0, 7, 24, 12, 216, 0, 24, 30]
    assert tables.nodes.shape == (313, 8)
    assert tables.summary[:2] == (168, 313)
    assert model.sections[0].property_ids.shape == (7,)
    assert model.patran_values.points.shape == (168, 3)
    assert model.patran_values.values.shape == (313, 3)


def test_bodies_and_wires(data):
    stack = kvocaeio.read(data / "stack.3di")
    assert stack.is_package
    bodies, wires = stack.bodies, stack.wires
    assert len(bodies) == 167
    assert bodies.names[:2] == ["SUBSTRATE", "LOGIC_DIE"]
    assert bodies.types[:2] == ["substrate", "die"]
    assert bodies.types.count("ball") == 160
    assert bodies.sizes[0].tolist() == [14.0, 14.0, 0.3]
    assert len(wires) == 96
    assert len(wires[0]) == wires.first_points[1]
    assert sum(len(wires[i]) for i in range(96)) == len(wires.points) == 816
    assert np.array_equal(wires[-1], wires[95])
    assert len(wires.profile_names) == 3
    with pytest.raises(IndexError):
        wires[96]


def test_reports_of_a_cadence_design(data):
    model = kvocaeio.read(data / "reports", format="cadence")
    assert model.format == "cadence"
    assert "die" in model.bodies.types
    assert len(model.wires) == 0


def test_tables_of_another_format_are_refused(brick, data):
    with pytest.raises(kvocaeio.NoSuchTableError):
        kvocaeio.read(brick).nastran
    with pytest.raises(kvocaeio.NoSuchTableError):
        kvocaeio.read(data / "stack.3di").points
    assert not hasattr(kvocaeio.read(brick), "bodies")


def test_a_missing_file_is_a_file_not_found_error(tmp_path):
    with pytest.raises(FileNotFoundError, match="No such file") as caught:
        kvocaeio.read(tmp_path / "none.inp")
    assert caught.type is kvocaeio.MissingFileError
    assert caught.value.path == str(tmp_path / "none.inp")


def test_content_of_no_known_format_is_refused(tmp_path):
    path = tmp_path / "letter.inp"
    path.write_text("Dear Sir,\n")
    with pytest.raises(kvocaeio.UnknownFormatError) as caught:
        kvocaeio.read(path)
    assert str(caught.value).startswith(f"{path}: ")


def test_a_deck_without_elements_is_not_read(tmp_path):
    path = tmp_path / "points.bdf"
    path.write_text("BEGIN BULK\nGRID    1               1.      2.      3.\nENDDATA\n")
    with pytest.raises(kvocaeio.NotReadError):
        kvocaeio.read(path)


def test_wrong_options_are_refused(brick):
    with pytest.raises(ValueError, match="format 'abacus' is none of"):
        kvocaeio.read(brick, format="abacus")
    with pytest.raises(TypeError):
        kvocaeio.read(17)


def test_a_tidied_deck_leads_back_to_its_original(tmp_path):
    path = tmp_path / "parts.inp"
    path.write_text(BRICK.replace("0.5, 0.5, 3.0", "0.5, 0.5, 3.0D0"))
    model = kvocaeio.read(path, tidy=True)
    assert model.is_tidied
    assert model.points[8].tolist() == [0.5, 0.5, 3.0]
    origins = model.origins("nodes")
    assert origins.original_oids.tolist() == [1, 2, 3, 4, 5, 6, 7, 8, 20]
    assert origins.files == [str(path)]
    with pytest.raises(ValueError, match="none of nodes, elements, properties"):
        model.origins("sets")


def test_formats_are_recognised(data, brick):
    assert kvocaeio.recognise(brick) == "abaqus"
    assert kvocaeio.recognise(data / "bracket.bdf") == "nastran"
    assert kvocaeio.recognise(data / "bracket.pat") == "patran"
    assert kvocaeio.recognise(data / "stack.3di") == "3di"
