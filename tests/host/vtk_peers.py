#!/usr/bin/env python3
"""What meshio and VTK's own reader make of the VTK files that the program writes: for every kind of
element volume, OID and order of nodes of the source, and the samples as they are.

    vtk_peers.py PROGRAM SAMPLES HAS_ZLIB

Exit code 77 where one of them is not installed."""
import os
import subprocess
import sys
import tempfile
import unittest

from every_kind import elements, write_deck

try:
    import meshio
    import numpy as np
    from vtkmodules.util.numpy_support import vtk_to_numpy
    from vtkmodules.vtkFiltersCore import vtkFeatureEdges, vtkMassProperties, vtkTriangleFilter
    from vtkmodules.vtkFiltersVerdict import vtkCellSizeFilter
    from vtkmodules.vtkIOXML import vtkXMLPolyDataReader, vtkXMLUnstructuredGridReader
except ImportError as error:
    print(error)
    sys.exit(77)

PROGRAM, SAMPLES, HAS_ZLIB = sys.argv[1:4]

# meshio 5 knows wedges of fifteen nodes, but not their dimension, and so reads them from no file.
meshio._mesh.topological_dimension.setdefault("wedge15", 3)

# The kinds of VTK, in the order of the elements.
VTK_KINDS = [10, 14, 13, 12, 24, 26, 25, 5, 9]
# The order of nodes in a deck from that in VTK; meshio has linear wedges in the order of decks.
WEDGE15 = [0, 2, 1, 3, 5, 4, 8, 7, 6, 11, 10, 9, 12, 14, 13]


def converted(source, name="out.vtu", *options):
    out = os.path.join(SCRATCH.name, name)
    subprocess.run([PROGRAM, "convert", "--quiet", *options, source, out], check=True)
    return out


def read_grid(path, reader_class=vtkXMLUnstructuredGridReader):
    reader = reader_class()
    reader.SetFileName(path)
    reader.Update()
    return reader.GetOutput()


def read_poly_data(path):
    return read_grid(path, vtkXMLPolyDataReader)


def sizes_of(grid):
    sizes = vtkCellSizeFilter()
    sizes.SetInputData(grid)
    sizes.Update()
    data = sizes.GetOutput().GetCellData()
    return vtk_to_numpy(data.GetArray("Volume")), vtk_to_numpy(data.GetArray("Area"))


def names_of(rows):
    return [bytes(row).rstrip(b"\0").decode() for row in np.asarray(rows, dtype=np.uint8)]


class EveryKind(unittest.TestCase):
    """One element of each kind, apart from the others, in a set of its own."""

    @classmethod
    def setUpClass(cls):
        source = write_deck(os.path.join(SCRATCH.name, "kinds.inp"))
        cls.grid = read_grid(converted(source))
        cls.mesh = meshio.read(os.path.join(SCRATCH.name, "out.vtu"))
        # Meshio reads pyramids from no deck.
        cls.source = meshio.read(write_deck(os.path.join(SCRATCH.name, "others.inp"), ["C3D5"]))

    def test_vtk_measures_the_sizes(self):
        volumes, areas = sizes_of(self.grid)
        for cell, element in enumerate(elements()):
            measured = (areas if element.kind.startswith("S") else volumes)[cell]
            self.assertAlmostEqual(measured, element.size, places=9, msg=element.kind)

    def test_vtk_finds_kinds_oids_and_sets(self):
        data = self.grid.GetCellData()
        oids = vtk_to_numpy(data.GetArray("OID"))
        sets = vtk_to_numpy(data.GetArray("Set"))
        names = names_of(vtk_to_numpy(self.grid.GetFieldData().GetArray("SetNames")))
        for cell, element in enumerate(elements()):
            self.assertEqual(self.grid.GetCellType(cell), VTK_KINDS[cell], element.kind)
            self.assertEqual(oids[cell], element.oid)
            self.assertEqual(names[sets[cell]], "SET_" + element.kind)

    def test_vtk_sees_all_faces_from_outside(self):
        for cell in range(7):
            solid = self.grid.GetCell(cell)
            points = vtk_to_numpy(solid.GetPoints().GetData())
            middle = points.mean(axis=0)
            for face in range(solid.GetNumberOfFaces()):
                a, b, c = vtk_to_numpy(solid.GetFace(face).GetPoints().GetData())[:3]
                self.assertGreater(np.dot(np.cross(b - a, c - a), a - middle), 0)

    def test_meshio_reads_the_source(self):
        self.assertEqual([b.type for b in self.mesh.cells], [e.meshio for e in elements()])
        np.testing.assert_array_equal(self.mesh.points, self.source.points)
        np.testing.assert_array_equal(self.mesh.cells[1].data, [[4, 5, 6, 7, 8]])
        for read, listed in zip(self.mesh.cells[:1] + self.mesh.cells[2:], self.source.cells):
            self.assertEqual(read.type, listed.type)
            nodes = read.data[:, WEDGE15] if read.type == "wedge15" else read.data
            np.testing.assert_array_equal(nodes, listed.data)
        for cells, element in zip(self.mesh.cell_data["OID"], elements()):
            self.assertEqual(list(cells), [element.oid])
        self.assertEqual(self.mesh.point_data["OID"][0], 100)

    def test_normalised_elements_have_the_same_size(self):
        source = os.path.join(SCRATCH.name, "kinds.inp")
        grid = read_grid(converted(source, "normalised.vtu", "--normalised"))
        self.assertEqual([grid.GetCellType(cell) for cell in range(9)],
                         [10, 14, 13, 12, 10, 13, 12, 5, 9])
        volumes, areas = sizes_of(grid)
        for cell, element in enumerate(elements()):
            measured = (areas if element.kind.startswith("S") else volumes)[cell]
            self.assertAlmostEqual(measured, element.size, places=9, msg=element.kind)


class Samples(unittest.TestCase):
    def test_volumes_of_the_meshes(self):
        # As each part is drawn: its solids, and the area of its shells and faces.
        for name, cells, volume in (("housing.inp", 882, 12720.0), ("bracket.pat", 313, 9750.0)):
            path = converted(os.path.join(SAMPLES, name))
            grid = read_grid(path)
            self.assertEqual(grid.GetNumberOfCells(), cells)
            self.assertAlmostEqual(sizes_of(grid)[0].sum(), volume, places=3)
            self.assertGreaterEqual(sizes_of(grid)[0].min(), 0)
            mesh = meshio.read(path)
            self.assertEqual(sum(len(block.data) for block in mesh.cells), cells)
            self.assertEqual(names_of(mesh.field_data["Source"])[0],
                             os.path.join(SAMPLES, name))

    def test_meshio_reads_files_of_any_length(self):
        # It finds arrays by their places, which it changes while it reads.
        for nodes in range(4, 44):
            source = os.path.join(SCRATCH.name, "nodes.inp")
            with open(source, "w", encoding="ascii") as file:
                file.write("*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n")
                file.writelines(f"{node}, 2, 2, {node}\n" for node in range(5, nodes + 1))
                file.write("*ELEMENT, TYPE=C3D4\n9, 1, 2, 3, 4\n")
            mesh = meshio.read(converted(source, "nodes.vtu", "--as-is"))
            self.assertEqual(mesh.points.shape, (nodes, 3))
            self.assertEqual(list(mesh.point_data["OID"]), list(range(1, nodes + 1)))

    def test_bodies_of_the_package_are_closed(self):
        data = read_poly_data(converted(os.path.join(SAMPLES, "stack.3di"), "out.vtp"))
        self.assertEqual(data.GetNumberOfLines(), 96)
        self.assertEqual(data.GetBounds()[:4], (-7.0, 7.0, -7.0, 7.0))
        self.assertEqual(data.GetFieldData().GetAbstractArray("BodyNames").GetValue(1),
                         "LOGIC_DIE")
        edges = vtkFeatureEdges()
        edges.SetInputData(data)
        edges.FeatureEdgesOff()
        edges.ManifoldEdgesOff()
        edges.Update()
        self.assertEqual(edges.GetOutput().GetNumberOfCells(), 0)
        triangles = vtkTriangleFilter()
        triangles.SetInputData(data)
        triangles.PassLinesOff()
        triangles.Update()
        mass = vtkMassProperties()
        mass.SetInputData(triangles.GetOutput())
        # Seven boxes, and 160 balls that lack a tenth of pi / 6 * 0.125.
        boxes = (14 * 14 * 0.3 + 7.2 * 7.2 * 0.15 + 4.8 * 4.8 * 0.08 + 5.6 * 4.4 * 0.12
                 + 4 * 3.2 * 0.06 + 2.8 * 2.4 * 0.1 + 13.2 * 13.2 * 0.9)
        self.assertAlmostEqual(mass.GetVolume() - boxes, 160 * 0.0654, delta=1.5)


@unittest.skipUnless(HAS_ZLIB == "1", "built without zlib")
class Compressed(unittest.TestCase):
    """The same bytes as in the files that are not compressed."""

    def assert_same(self, read, plain):
        self.assertEqual(read.dtype, plain.dtype)
        np.testing.assert_array_equal(read, plain)

    def assert_same_fields(self, read, plain):
        self.assertEqual(read.GetNumberOfArrays(), plain.GetNumberOfArrays())
        for i in range(plain.GetNumberOfArrays()):
            expected = plain.GetAbstractArray(i)
            found = read.GetAbstractArray(expected.GetName())
            self.assertEqual(found.GetNumberOfValues(), expected.GetNumberOfValues())
            for value in range(expected.GetNumberOfValues()):
                self.assertEqual(found.GetVariantValue(value), expected.GetVariantValue(value))

    def assert_same_data(self, read, plain):
        self.assertGreater(plain.GetNumberOfCells(), 100)
        self.assert_same(vtk_to_numpy(read.GetPoints().GetData()),
                         vtk_to_numpy(plain.GetPoints().GetData()))
        self.assert_same_fields(read.GetCellData(), plain.GetCellData())
        self.assert_same_fields(read.GetPointData(), plain.GetPointData())
        self.assert_same_fields(read.GetFieldData(), plain.GetFieldData())

    def test_meshes(self):
        for name in ("housing.inp", "clip.inp", "bracket.pat", "bracket.bdf"):
            source = os.path.join(SAMPLES, name)
            plain = converted(source)
            small = converted(source, "small.vtu", "--compress")
            self.assertLess(os.path.getsize(small), os.path.getsize(plain))
            self.assert_same_data(read_grid(small), read_grid(plain))
            for get in ("GetConnectivityArray", "GetOffsetsArray"):
                self.assert_same(*(vtk_to_numpy(getattr(read_grid(path).GetCells(), get)())
                                   for path in (small, plain)))
            read, expected = meshio.read(small), meshio.read(plain)
            self.assert_same(read.points, expected.points)
            self.assertEqual(len(read.cells), len(expected.cells))
            for found, block in zip(read.cells, expected.cells):
                self.assert_same(found.data, block.data)
            for data in ("cell_data", "point_data", "field_data"):
                for key, values in getattr(expected, data).items():
                    for found, value in zip(getattr(read, data)[key], values, strict=True):
                        np.testing.assert_array_equal(found, value)

    def test_packages(self):
        source = os.path.join(SAMPLES, "stack.3di")
        plain = read_poly_data(converted(source, "out.vtp"))
        read = read_poly_data(converted(source, "small.vtp", "--compress"))
        self.assert_same_data(read, plain)
        for get in ("GetPolys", "GetLines"):
            self.assert_same(vtk_to_numpy(getattr(read, get)().GetConnectivityArray()),
                             vtk_to_numpy(getattr(plain, get)().GetConnectivityArray()))


SCRATCH = tempfile.TemporaryDirectory(prefix="vtk-peers-")
if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
