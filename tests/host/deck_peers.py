#!/usr/bin/env python3
"""What meshio, Gmsh and CalculiX make of the decks that the program writes: for every kind of element
numbers, places and order of nodes of the source, and the volume that only the right order has.

    deck_peers.py PROGRAM

Exit code 77 where one of them is not installed."""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

from every_kind import elements, write_deck

try:
    import meshio
    import numpy as np
except ImportError as error:
    print(error)
    sys.exit(77)
for peer in ("gmsh", "ccx"):
    if shutil.which(peer) is None:
        print(f"{peer} is not installed")
        sys.exit(77)

PROGRAM = sys.argv[1]
SCRATCH = tempfile.TemporaryDirectory()

# meshio 5 knows wedges of fifteen nodes, but not their dimension, and so reads them from no file.
meshio._mesh.topological_dimension.setdefault("wedge15", 3)


def path_of(name):
    return os.path.join(SCRATCH.name, name)


def converted(source, name, *options):
    subprocess.run([PROGRAM, "convert", "--quiet", *options, source, path_of(name)], check=True)
    return path_of(name)


def gmsh_version_of(path):
    """The file as Gmsh reads it, in its own format, and what it printed."""
    out = path + ".msh"
    run = subprocess.run(["gmsh", "-0", path, "-save_all", "-o", out, "-format", "msh2"],
                         capture_output=True, text=True, check=False)
    return out, run.stdout + run.stderr


def sizes_of(msh):
    """Numbers of nodes and elements."""
    with open(msh, encoding="ascii") as file:
        lines = file.read().splitlines()
    return [int(lines[lines.index(word) + 1]) for word in ("$Nodes", "$Elements")]


def cells_of(mesh):
    """Types of meshio with the places of the nodes of their only cell."""
    return {block.type: mesh.points[block.data[0]] for block in mesh.cells}


class Deck(unittest.TestCase):
    def assert_has_all(self, mesh, without=()):
        cells = cells_of(mesh)
        wanted = [element for element in elements() if element.kind not in without]
        self.assertEqual(sorted(cells), sorted(element.meshio for element in wanted))
        for element in wanted:
            np.testing.assert_array_equal(cells[element.meshio], element.points, element.kind)


class AbaqusDeck(Deck):
    def test_meshio_reads_all_but_pyramids(self):
        source = write_deck(path_of("others.inp"), ["C3D5"])
        mesh = meshio.read(converted(source, "meshio.inp"))
        self.assert_has_all(mesh, ["C3D5"])
        for element, block in zip((e for e in elements() if e.kind != "C3D5"), mesh.cells):
            self.assertEqual([len(rows) for rows in mesh.cell_sets["SET_" + element.kind]],
                             [int(other is block) for other in mesh.cells])

    def test_meshio_refuses_decks_with_pyramids(self):
        deck = converted(write_deck(path_of("kinds.inp")), "pyramids.inp")
        with self.assertRaises((SystemExit, meshio.ReadError)):
            meshio.read(deck)

    def test_gmsh_reads_none(self):
        deck = converted(write_deck(path_of("others.inp"), ["C3D5"]), "gmsh.inp")
        msh, printed = gmsh_version_of(deck)
        self.assertIn("syntax error", printed)
        self.assertEqual(sizes_of(msh), [0, 0])


class CalculixAnalysis(unittest.TestCase):
    """A static analysis on the converted deck. The nodes of solids move by a thousandth of x, those
    of shells are held, but for the last one."""

    @classmethod
    def setUpClass(cls):
        converted(write_deck(path_of("source.inp"), ["C3D5"]), "converted.inp")
        cls.elements = [element for element in elements() if element.kind != "C3D5"]
        lines = ["*MATERIAL, NAME=MATERIAL_1", "*ELASTIC", "1000., 0.",
                 "*INCLUDE, INPUT=converted.inp", "*STEP", "*STATIC", "*BOUNDARY"]
        for element in cls.elements:
            is_shell = element.kind.startswith("S")
            held = len(element.nodes) - (element.kind == "S4")
            for oid, place in list(zip(element.nodes, element.points))[:held]:
                lines += [f"{oid}, 1, 1, {0 if is_shell else place[0] / 1000!r}",
                          f"{oid}, 2, {6 if is_shell else 3}, 0."]
        for element in cls.elements:
            lines += [f"*EL PRINT, ELSET=SET_{element.kind}", "S, EVOL"]
        with open(path_of("analysis.inp"), "w", encoding="ascii") as file:
            file.write("\n".join(lines + ["*END STEP"]) + "\n")
        run = subprocess.run(["ccx", "analysis"], cwd=SCRATCH.name, capture_output=True, text=True,
                             check=False)
        cls.printed = run.stdout
        cls.stresses, cls.volumes = cls.results()

    @staticmethod
    def results():
        stresses, volumes, into = {}, {}, None
        with open(path_of("analysis.dat"), encoding="ascii") as file:
            for line in file:
                words = line.split()
                if line.startswith(" stresses"):
                    into = stresses
                elif line.startswith(" volume"):
                    into = volumes
                elif words and words[0].isdigit():
                    rows = into.setdefault(int(words[0]), [])
                    fields = words[2:8] if into is stresses else words[1:2]
                    rows.append([float(field) for field in fields])
        return stresses, volumes

    def test_runs(self):
        self.assertIn("Job finished", self.printed)
        self.assertNotIn("ERROR", self.printed)

    def test_measures_the_volumes(self):
        for element in self.elements:
            size = element.size * (0.5 if element.kind.startswith("S") else 1)
            self.assertAlmostEqual(self.volumes[element.oid][0][0], size, 4, element.kind)

    def test_finds_the_same_stress_everywhere(self):
        for element in self.elements:
            if not element.kind.startswith("S"):
                for stress in self.stresses[element.oid]:
                    np.testing.assert_allclose(stress[:6], [1, 0, 0, 0, 0, 0], atol=1e-6,
                                               err_msg=element.kind)


class WideNastranDeck(Deck):
    @classmethod
    def setUpClass(cls):
        source = write_deck(path_of("kinds.inp"))
        cls.deck = converted(source, "wide.nas", "--nastran=wide")

    def test_meshio_reads_all(self):
        mesh = meshio.read(self.deck)
        self.assert_has_all(mesh)
        nodes = sum((element.nodes for element in elements()), [])
        self.assertEqual(list(mesh.points_id), nodes)
        self.assertEqual([list(oids) for oids in mesh.cells_id], [[e.oid] for e in elements()])
        self.assertEqual([list(ids) for ids in mesh.cell_data["nastran:ref"]],
                         [[place + 1] for place in range(len(elements()))])

    def test_gmsh_reads_all(self):
        # Which numbers its own again.
        self.assert_has_all(meshio.read(gmsh_version_of(self.deck)[0]))

    def test_all_digits_arrive(self):
        places = ["0.123456789012", "-1234567.890123", "1.25e-7", "-3.5e+20", "7.", "-98765.4321"]
        with open(path_of("digits.inp"), "w", encoding="ascii") as file:
            file.write("*NODE\n1, 0, 0, 0\n2, " + ", ".join(places[:3]) + "\n3, " +
                       ", ".join(places[3:]) + "\n*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, 3\n")
        deck = converted(path_of("digits.inp"), "digits.nas", "--nastran=wide")
        wanted = [float(place) for place in places]
        np.testing.assert_array_equal(meshio.read(deck).points[1:].ravel(), wanted)
        read = meshio.read(gmsh_version_of(deck)[0])
        np.testing.assert_allclose(read.points[1:].ravel(), wanted, rtol=1e-15)


class FilesOfTheLibrary(unittest.TestCase):
    """What is made of the files that the library's own writers make, which are meant for its readers:
    solids in corner nodes."""

    @classmethod
    def setUpClass(cls):
        cls.source = write_deck(path_of("kinds.inp"))

    def test_meshio_takes_six_nodes_of_a_hexahedron(self):
        mesh = meshio.read(converted(self.source, "plain.nas"))
        self.assertEqual(len(mesh.points), 36)
        self.assertEqual([(block.type, block.data.shape) for block in mesh.cells],
                         [("tetra", (1, 4)), ("wedge", (1, 6)), ("hexahedron", (1, 6))] * 2)

    def test_gmsh_reads_the_nastran_deck(self):
        mesh = meshio.read(gmsh_version_of(converted(self.source, "plain.nas"))[0])
        cells = {block.type: mesh.points[block.data] for block in mesh.cells}
        for kinds in (["C3D4", "C3D10"], ["C3D6", "C3D15"], ["C3D8", "C3D20"]):
            wanted = [element for element in elements() if element.kind in kinds]
            np.testing.assert_array_equal(cells[wanted[0].meshio],
                                          [element.points[: element.corners] for element in wanted])

    def test_no_one_reads_the_neutral_file(self):
        path = converted(self.source, "plain.pat")
        with self.assertRaises((SystemExit, meshio.ReadError)):
            meshio.read(path)
        self.assertEqual(sizes_of(gmsh_version_of(path)[0]), [0, 0])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
