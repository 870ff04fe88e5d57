#!/usr/bin/env python3
"""Decks that meshio and Gmsh write of seven bodies, in all their styles, are tidied, read, and held
against the meshes that they were written from.

    nastran_peers.py DUMP      DUMP is the program dump_nastran

Exit code 77 where meshio or Gmsh is not installed."""
import itertools
import math
import os
import shutil
import subprocess
import sys
import tempfile

import bulk_data
import nastran_share

try:
    import meshio
    import numpy
except ImportError:
    sys.exit(77)

# Corners of the unit cube in the order of a hexahedron.
CUBE = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0), (0, 0, 1), (1, 0, 1), (1, 1, 1), (0, 1, 1)]
TETS_OF_CUBE = [(0, 1, 3, 4), (1, 2, 3, 6), (1, 6, 4, 5), (3, 4, 6, 7), (1, 3, 4, 6)]
WEDGES_OF_CUBE = [(0, 1, 3, 4, 5, 7), (1, 2, 3, 5, 6, 7)]
FACES_OF_CUBE = [(0, 1, 2, 3), (4, 7, 6, 5), (0, 4, 5, 1), (1, 5, 6, 2), (2, 6, 7, 3),
                 (3, 7, 4, 0)]
EDGES_OF_HEXA = [(0, 1), (1, 2), (2, 3), (3, 0), (4, 5), (5, 6), (6, 7), (7, 4), (0, 4), (1, 5),
                 (2, 6), (3, 7)]
EDGES_OF_TETRA = [(0, 1), (1, 2), (2, 0), (0, 3), (1, 3), (2, 3)]


class Body:
    """Points and cells of a twisted block of cubes; the scale makes numbers of every size."""

    def __init__(self, scale):
        self.scale, self.points, self.rows = scale, [], {}

    def point(self, x, y, z):
        key = (round(2 * x), round(2 * y), round(2 * z))
        if key not in self.rows:
            angle = 0.1 * z
            place = (x * math.cos(angle) - y * math.sin(angle) - 1.0 / 3.0,
                     x * math.sin(angle) + y * math.cos(angle), z * 1.1 + 2.0 / 7.0)
            self.rows[key] = len(self.points)
            # meshio refuses negative numbers of more digits
            self.points.append([float(f"{self.scale * c:.9g}") for c in place])
        return self.rows[key]

    def cubes(self, size=3):
        for x, y, z in itertools.product(range(size), range(size), range(size)):
            yield [(x + a, y + b, z + c) for a, b, c in CUBE]

    def cell(self, corners, edges=()):
        middles = [[(a + b) / 2 for a, b in zip(corners[i], corners[j])] for i, j in edges]
        return [self.point(*corner) for corner in list(corners) + middles]

    def cells_of(self, parts, edges=()):
        return [self.cell([cube[i] for i in part], edges)
                for cube in self.cubes() for part in parts]


def pyramids(body):
    return [body.cell([cube[i] for i in face] +
                      [[sum(c[axis] for c in cube) / 8 for axis in range(3)]])
            for cube in body.cubes() for face in FACES_OF_CUBE]


BODIES = {
    "tetra": ("tetra", lambda b: b.cells_of(TETS_OF_CUBE)),
    "tetra10": ("tetra10", lambda b: b.cells_of(TETS_OF_CUBE, EDGES_OF_TETRA)),
    "hexahedron": ("hexahedron", lambda b: b.cells_of([range(8)])),
    "hexahedron20": ("hexahedron20", lambda b: b.cells_of([range(8)], EDGES_OF_HEXA)),
    "wedge": ("wedge", lambda b: b.cells_of(WEDGES_OF_CUBE)),
    "pyramid": ("pyramid", pyramids),
    "bars": ("line", lambda b: b.cells_of([(0, 1), (1, 2), (0, 4)])),
}
CORNERS = {"tetra10": 4, "hexahedron20": 8}


def meshes():
    for (name, (kind, make)), scale in itertools.product(BODIES.items(), (1.0, 1e-3)):
        body = Body(scale)
        cells = make(body)
        tags = [numpy.ones(len(cells), dtype=int)]
        yield f"{name}-{scale:g}", meshio.Mesh(
            numpy.array(body.points), [(kind, numpy.array(cells))],
            cell_data={"gmsh:physical": tags, "gmsh:geometrical": tags})


def meant_by(mesh):
    deck = bulk_data.Deck()
    deck.nodes = {row + 1: tuple(float(c) for c in point) for row, point in enumerate(mesh.points)}
    for block in mesh.cells:
        for cell in block.data:
            corners = [int(c) + 1 for c in cell[:CORNERS.get(block.type, len(cell))]]
            deck.elements[len(deck.elements) + 1] = corners
    return deck


def meshio_decks(name, mesh, folder):
    """meshio cuts the digits of small fields itself: what they mean is read from the deck."""
    styles = itertools.product(("free", "fixed-small", "fixed-large"),
                               ("fixed-small", "fixed-large"))
    for points, cells in styles:
        path = os.path.join(folder, f"meshio-{name}-{points}-{cells}.bdf")
        meshio.nastran.write(path, mesh, point_format=points, cell_format=cells)
        yield path, bulk_data.read(path) if points == "fixed-small" else meant_by(mesh)


def gmsh_decks(name, mesh, folder):
    """Gmsh has digits of its own as well. That the decks mean the meshes is seen by their sizes."""
    source = os.path.join(folder, "body.msh")
    meshio.write(source, mesh, file_format="gmsh22", binary=False)
    for form in range(3):
        path = os.path.join(folder, f"gmsh-{name}-{form}.bdf")
        subprocess.run(["gmsh", source, "-save", "-v", "0", "-setnumber", "Mesh.BdfFieldFormat",
                        str(form), "-setnumber", "Mesh.SaveAll", "1", "-o", path], check=True)
        meant = bulk_data.read(path)
        cells = sum(len(block.data) for block in mesh.cells)
        if meant.elements and (len(meant.nodes), len(meant.elements)) == (len(mesh.points), cells):
            yield path, meant
        else:
            print(f"{path}: {len(meant.nodes)} nodes, {len(meant.elements)} elements")


def main():
    if not shutil.which("gmsh"):
        sys.exit(77)
    count, before_count, failures = {}, {}, 0
    with tempfile.TemporaryDirectory() as folder:
        for name, mesh in meshes():
            for source, decks in (("meshio", meshio_decks), ("gmsh", gmsh_decks)):
                for path, meant in decks(name, mesh, folder):
                    before, after = nastran_share.compare(sys.argv[1], path, meant, folder)
                    count[source] = count.get(source, 0) + 1
                    before_count[source] = before_count.get(source, 0) + (not before)
                    if after:
                        failures += 1
                        print(f"{path}: {after}")
    for source, decks in count.items():
        print(f"{source}: {decks} decks, {before_count[source]} whole as they are")
    print(f"{failures} not whole after tidy")
    sys.exit(1 if failures or len(count) < 2 else 0)


if __name__ == "__main__":
    main()
