"""Writes the sample Nastran decks and Patran neutral files of this folder again:
python3 make_meshes.py"""
import pathlib

from make_decks import CORNERS, SIX_TETS

FOLDER = pathlib.Path(__file__).parent
TWO_WEDGES = [(0, 1, 2, 4, 5, 6), (0, 2, 3, 4, 6, 7)]


class Bracket:
    """An L of cells: hexahedra in one leg, wedges in the corner, tetrahedra in the other leg, with
    shells under the foot and bars along an edge. Ids start at 101 and leave gaps."""

    def __init__(self, step=5.0):
        self.step, self.ids = step, {}
        cells = [(i, j, k) for i in range(8) for j in range(3) for k in range(7)
                 if i < 2 or k < 2]
        self.hexahedra, self.wedges, self.tetrahedra = [], [], []
        for cell in cells:
            corners = [self.node(*(c + d for c, d in zip(cell, corner))) for corner in CORNERS]
            if cell[2] >= 2:
                self.hexahedra.append(corners)
            elif cell[0] < 2:
                self.wedges += [[corners[i] for i in wedge] for wedge in TWO_WEDGES]
            else:
                self.tetrahedra += [[corners[i] for i in tet] for tet in SIX_TETS]
        self.triangles, self.quadrilaterals = [], []
        for i in range(8):
            for j in range(3):
                a, b, c, d = (self.node(i + x, j + y, 0) for x, y, _ in CORNERS[:4])
                if i < 4:
                    self.quadrilaterals.append([a, b, c, d])
                else:
                    self.triangles += [[a, b, c], [a, c, d]]
        self.bars = [[self.node(0, 0, k), self.node(0, 0, k + 1)] for k in range(7)]

    def node(self, *place):
        return self.ids.setdefault(place, 101 + len(self.ids) + len(self.ids) // 50)

    def places(self):
        for place, node in self.ids.items():
            yield node, [c * self.step for c in place]


def fixed(name, *fields):
    return ("%-8s" % name + "".join("%8s" % field for field in fields)).rstrip()


def real(value):
    """A real in eight columns, as decks have it: no blank before the exponent, none needed."""
    return "%.3f" % value if value == 0 or abs(value) >= 0.01 else "%.2f-3" % (value * 1000)


def nastran(mesh):
    yield from ["$ A bracket: hexahedra, wedges, tetrahedra, shells, bars", "SOL 101", "CEND",
                "TITLE = BRACKET", "BEGIN BULK", "PARAM   POST    -1"]
    for node, place in mesh.places():
        yield fixed("GRID", node, "", *(real(c + (0.0015 if node == 101 else 0)) for c in place))
    element = 0
    for name, prop, elements in (("CTETRA", 1, mesh.tetrahedra), ("CPENTA", 2, mesh.wedges),
                                 ("CBAR", 5, mesh.bars), ("CQUAD4", 4, mesh.quadrilaterals),
                                 ("CTRIA3", 4, mesh.triangles)):
        yield "$ %d %s" % (len(elements), name)
        for nodes in elements:
            element += 1
            yield fixed(name, element, prop, *nodes)
    yield "$ %d CHEXA. A reader that takes the blank columns 73 to 80 for a node keeps the first" % len(
        mesh.hexahedra)
    yield "$ zero of the line instead, if there is one before: that of the element's number."
    for nodes in mesh.hexahedra:
        element += 1
        yield fixed("CHEXA", "%08d" % element, 3, *nodes[:6])
        yield fixed("", *("%8d" % node for node in nodes[6:])).replace("        ", "+       ", 1)
    for prop, material in ((1, 1), (2, 1), (3, 2)):
        yield fixed("PSOLID", prop, material, "0")
    yield fixed("PSHELL", 4, 2, "2.5")
    yield fixed("PBAR", 5, 1, "78.54", "490.9", "490.9", "981.7")
    yield from [fixed("MAT1", 1, "2400.", "", ".35"), fixed("MAT1", 2, "70000.", "", ".33"),
                "ENDDATA"]


def header(packet, *values):
    values = list(values) + [0] * (8 - len(values))
    return "%2d" % packet + "".join("%8d" % value for value in values)


def reals(*values):
    return "".join("%16.9E" % value for value in values)


SHAPES = [(8, 3, "hexahedra"), (7, 2, "wedges"), (5, 1, "tetrahedra"), (4, 4, "quadrilaterals"),
          (3, 4, "triangles"), (2, 5, "bars")]


def patran(mesh, with_properties):
    elements = [(shape, prop, nodes) for shape, prop, kind in SHAPES for nodes in getattr(mesh, kind)]
    yield "! Sample bracket"
    yield from [header(25, 0, 0, 1), "A bracket: hexahedra, wedges, tetrahedra, shells, bars"]
    yield from [header(26, 0, 0, 1, len(mesh.ids), len(elements), 0, 5 if with_properties else 0),
                "21-Nov-26   12:00:00         3.0"]
    for node, place in mesh.places():
        yield from [header(1, node, 0, 2), reals(*place), "1G       6       0       0  000000"]
    for number, (shape, prop, nodes) in enumerate(elements, 1):
        yield from [header(2, number, shape, 2), "%8d%8d%8d" % (len(nodes), 0, prop) + reals(0, 0, 0),
                    "".join("%8d" % node for node in nodes)]
    if with_properties:
        for prop, values in ((1, (0.0, 0.0)), (2, (0.0, 0.0)), (3, (0.0, 0.0))):
            yield from [header(4, prop, 1, 1, 5), reals(*values)]
        yield from [header(4, 4, 1, 1, 3), reals(1.0, 2.5)]
        yield from [header(4, 5, 1, 1, 2), reals(2.0, 10.0)]
    yield header(99, 0, 0, 1)


def write(name, lines):
    (FOLDER / name).write_text("\n".join(lines) + "\n", newline="\n")


if __name__ == "__main__":
    bracket = Bracket()
    write("bracket.bdf", nastran(bracket))
    write("bracket.pat", patran(bracket, True))
    write("bracket_plain.pat", patran(bracket, False))
