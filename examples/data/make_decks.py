"""Writes the sample decks of this folder again: python3 make_decks.py"""
import math
import pathlib

FOLDER = pathlib.Path(__file__).parent

# Corners of a cell as steps in x, y, z; its faces, seen from outside; its split into six tetrahedra.
CORNERS = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0), (0, 0, 1), (1, 0, 1), (1, 1, 1), (0, 1, 1)]
FACES = [(0, 3, 2, 1), (4, 5, 6, 7), (0, 1, 5, 4), (1, 2, 6, 5), (2, 3, 7, 6), (3, 0, 4, 7)]
SIX_TETS = [(0, 1, 2, 6), (0, 2, 3, 6), (0, 3, 7, 6), (0, 7, 4, 6), (0, 4, 5, 6), (0, 5, 1, 6)]
EDGES = {
    "C3D10": [(0, 1), (1, 2), (0, 2), (0, 3), (1, 3), (2, 3)],
    "C3D15": [(0, 1), (1, 2), (0, 2), (3, 4), (4, 5), (3, 5), (0, 3), (1, 4), (2, 5)],
    "C3D20": [(0, 1), (1, 2), (2, 3), (0, 3), (4, 5), (5, 6), (6, 7), (4, 7),
              (0, 4), (1, 5), (2, 6), (3, 7)],
}


class Nodes:
    """Nodes numbered as they are first asked for."""

    def __init__(self, first=1, place=lambda *p: p):
        self.first, self.place, self.ids = first, place, {}

    def at(self, *p):
        return self.ids.setdefault(tuple(round(c, 6) for c in p), self.first + len(self.ids))

    def point(self, node):
        return list(self.ids)[node - self.first]

    def lines(self):
        for p, node in self.ids.items():
            yield "%7d, %11.5f, %11.5f, %11.5f" % (node, *self.place(*p))


class Block:
    """Element lines with running numbers; long elements go on in a second line."""

    next_id = 1

    def __init__(self, keyword):
        self.keyword, self.elements = keyword, []

    def add(self, nodes):
        self.elements.append((Block.next_id, nodes))
        Block.next_id += 1

    def lines(self, first_line=16):
        yield self.keyword
        for element, nodes in self.elements:
            numbers = [element] + list(nodes)
            head, rest = numbers[:first_line], numbers[first_line:]
            yield ", ".join("%6d" % n for n in head) + ("," if rest else "")
            if rest:
                yield "        " + ", ".join("%6d" % n for n in rest)

    def ids(self):
        return [element for element, _ in self.elements]


def quadratic(nodes, corners, kind):
    """The corners, then the middle of each edge."""
    places = {node: p for p, node in nodes.ids.items()}
    middles = [nodes.at(*[(places[corners[a]][i] + places[corners[b]][i]) / 2 for i in range(3)])
               for a, b in EDGES[kind]]
    return list(corners) + middles


def cell(nodes, x, y, z, i, j, k):
    return [nodes.at(x[i + a], y[j + b], z[k + c]) for a, b, c in CORNERS]


def around_centre(nodes, corners, centre, keep):
    """A cell cut into parts with a common tip: the face `keep` gives a pyramid, all others two
    tetrahedra, cut from the smallest node so that neighbours agree."""
    pyramid, tets = None, []
    for number, face in enumerate(FACES):
        quad = [corners[c] for c in reversed(face)]
        if number == keep:
            pyramid = quad + [centre]
            continue
        start = quad.index(min(quad))
        a, b, c, d = quad[start:] + quad[:start]
        tets += [[a, b, c, centre], [a, c, d, centre]]
    return pyramid, tets


def write(name, lines, end="\n"):
    text = end.join(lines) + end
    (FOLDER / name).write_bytes(text.encode("ascii"))


def listed(ids, per_line=8):
    for at in range(0, len(ids), per_line):
        yield ", ".join(str(i) for i in ids[at:at + per_line]) + ","


def middle(values, i):
    return (values[i] + values[i + 1]) / 2


def housing():
    Block.next_id = 1
    x = [0, 2, 6, 10, 14, 18, 19.5, 23, 26.5, 30, 33.5, 37, 40.5, 42, 46, 50, 54, 58, 60]
    y = [0, 2, 6, 10, 14, 18, 22, 26, 30, 34, 38, 40]
    z = [0, 2, 5, 8, 11, 14, 17, 20]
    mesh, insert = Nodes(), Nodes(10001)
    floor = Block("*ELEMENT, TYPE=C3D8, ELSET=HOUSING")
    walls = Block("*Element, elset=Housing, type=C3D8R")
    ribs = Block("*ELEMENT, TYPE=C3D8, ELSET=RIBS")
    slopes = Block("*ELEMENT, TYPE=C3D6, ELSET=RIBS")
    feet = Block("*ELEMENT, TYPE=C3D5, ELSET=BOSS")
    bosses = Block("*ELEMENT, TYPE=C3D4, ELSET=BOSS")
    bush = Block("*ELEMENT, TYPE=C3D10, ELSET=INSERT")
    ejectors = Block("*ELEMENT, TYPE=MASS, ELSET=EJECTOR_PINS")
    for j in range(11):
        for i in range(18):
            floor.add(cell(mesh, x, y, z, i, j, 0))
    for k in range(1, 7):
        for j in range(11):
            for i in range(18):
                if i in (0, 17) or j in (0, 10):
                    walls.add(cell(mesh, x, y, z, i, j, k))
    for i in (5, 12):
        for j in range(1, 10):
            for k in (1, 2) + ((3,) if j in (1, 9) else ()):
                ribs.add(cell(mesh, x, y, z, i, j, k))
        for j, high, low in ((2, y[2], y[3]), (8, y[9], y[8])):
            sides = [[mesh.at(x[i + a], high, z[3]), mesh.at(x[i + a], low, z[3]),
                      mesh.at(x[i + a], high, z[4])] for a in (0, 1)]
            slopes.add(sum(sides if low > high else reversed(sides), []))
    tets = []
    for i in (8, 9):
        for k in (1, 2):
            centre = mesh.at(middle(x, i), middle(y, 5), middle(z, k))
            pyramid, parts = around_centre(mesh, cell(mesh, x, y, z, i, 5, k), centre,
                                           0 if k == 1 else None)
            tets += parts
            if pyramid:
                feet.add(pyramid)
    for tet in tets:
        bosses.add(tet)
    Block.next_id = 5001
    for i in (8, 9):
        centre = insert.at(middle(x, i), middle(y, 5), middle(z, 3))
        for tet in around_centre(insert, cell(insert, x, y, z, i, 5, 3), centre, None)[1]:
            bush.add(quadratic(insert, tet, "C3D10"))
    Block.next_id = 9001
    for i in (2, 16):
        for j in (2, 9):
            ejectors.add([mesh.at(x[i], y[j], 0)])
    gate = floor.ids()[5 * 18 + 8:5 * 18 + 10]
    write("housing.inp", [
        "*HEADING", "Box housing with two ribs, two bosses and a metal insert; millimetres",
        "** floor and walls, then the boss, then the insert with numbers of its own",
        "*NODE, NSET=MOULDING", *mesh.lines(), "*NODE, NSET=INSERT", *insert.lines(),
        *floor.lines(), "** the walls join the set of the floor", *walls.lines(), *ribs.lines(),
        *slopes.lines(), *feet.lines(), *bosses.lines(), *bush.lines(8), *ejectors.lines(),
        "*NSET, NSET=FIXED, GENERATE", "1, 19, 1",
        "*ELSET, ELSET=FLOOR, GENERATE", "1, %d, 1" % floor.ids()[-1],
        "*ELSET, ELSET=GATE", *listed(gate),
        "*ELSET, ELSET=FEET", *listed(feet.ids()),
        "*ELSET, ELSET=PICKED, INTERNAL", *listed(ribs.ids()),
        "*ELSET, ELSET=PLASTIC", "HOUSING, RIBS, BOSS",
        "*SURFACE, NAME=CAVITY_FLOOR, TYPE=ELEMENT", "FLOOR, S2",
        "*SURFACE, TYPE=ELEMENT, NAME=NO_FACES", "RIBS, S3", "FEET, S1",
        "*SOLID SECTION, ELSET=HOUSING, MATERIAL=PA66_GF30",
        "*SOLID SECTION, ELSET=RIBS, MATERIAL=PA66_GF30",
        "*MATERIAL, NAME=PA66_GF30", "*ELASTIC", "9000., 0.35",
        "*STEP, NAME=PACKING", "*STATIC", "1., 1.",
        "*DLOAD", *["%d, P1, 35.0" % e for e in gate], "%d, P5, 12.5" % slopes.ids()[0],
        "%d, P3, 12.5" % bush.ids()[0], "** no faces: a body force, a pyramid, a sixth of a wedge",
        "%d, BZ, -0.001" % gate[0], "%d, P1, 12.5" % feet.ids()[0],
        "%d, P6, 12.5" % slopes.ids()[0],
        "*END STEP"])


def cover():
    Block.next_id = 101
    radius, length = 50.0, 60.0

    def place(angle, v, h):
        a = math.radians(angle)
        return ((radius + h) * math.sin(a), v, (radius + h) * math.cos(a))

    mesh = Nodes(11, place)
    sheet = Block("*Element, Type=S4R, ElSet=Cover")
    corners = Block("*Element, Type=S3, ElSet=Cover")
    rim = Block("*Element, Type=S4, ElSet=Rim")
    columns, rows = 24, 12
    angle = [-48 + 96 * i / columns for i in range(columns + 1)]
    v = [length * j / rows for j in range(rows + 1)]
    for j in range(rows):
        for i in range(columns):
            a, b = mesh.at(angle[i], v[j], 0), mesh.at(angle[i + 1], v[j], 0)
            c, d = mesh.at(angle[i + 1], v[j + 1], 0), mesh.at(angle[i], v[j + 1], 0)
            if i in (0, columns - 1) and j in (0, rows - 1):  # the corners of the cover are cut off
                corners.add([[b, c, d], [a, c, d], [a, b, c], [a, b, d]][2 * (j > 0) + (i > 0)])
            elif 10 <= i <= 13 and 5 <= j <= 6:
                corners.add([a, b, c])
                corners.add([a, c, d])
            else:
                sheet.add([a, b, c, d])
    for i in range(1, columns - 1):
        for y in (0, length):
            rim.add([mesh.at(angle[i], y, 0), mesh.at(angle[i + 1], y, 0),
                     mesh.at(angle[i + 1], y, -3), mesh.at(angle[i], y, -3)])
    write("cover.inp", [
        "*Heading", "Curved cover with a rim; millimetres", "**", "*Part, name=Cover",
        "*Node", *mesh.lines(), *sheet.lines(), *corners.lines(),
        "** the rim has a thickness of its own", *rim.lines(),
        "*Elset, elset=Outer, generate", "101, %d" % sheet.ids()[-1],
        "*Shell Section, elset=Cover, material=PC_ABS", "2.5, 5",
        "*Shell Section, Material=PC_ABS, ElSet=Rim", "1.8,",
        "*Shell General Section, elset=Cover, material=PC_ABS", "2.5,",
        "*Surface, Type=Element, Name=Outer_Face", "Outer, SPOS",
        "*Dload", "Cover, P, 0.2", "%d, P1, 0.2" % sheet.ids()[0],
        "*End Part",
        "** reading ends at a surface of nodes: the thickness behind it is not seen",
        "*Surface, Type=Node, Name=Edge", "11, 1.", "*Shell Section, elset=Late, material=PC_ABS",
        "9.9,"], end="\r\n")


def clip():
    Block.next_id = 1
    mesh = Nodes()
    part = Block("*ELEMENT, TYPE=C3D10M, ELSET=CLIP")
    x, y, z = [1.5 * i for i in range(13)], [0, 2, 4], [0, 1, 2.5]
    cells = [(i, j, 0) for i in range(12) for j in range(2)]  # the arm
    cells += [(i, j, 1) for i in (10, 11) for j in range(2)]  # the hook at its end
    for i, j, k in cells:
        corners = cell(mesh, x, y, z, i, j, k)
        for tet in SIX_TETS:
            part.add(quadratic(mesh, [corners[c] for c in tet], "C3D10"))
    write("clip.inp", [
        "*HEADING", "Snap clip, one block of quadratic tetrahedra cut up by generated sets",
        "*NODE", *mesh.lines(), *part.lines(8),
        "*ELSET, ELSET=ARM, GENERATE", "1, 120, 1",
        "*ELSET, ELSET=HOOK, GENERATE", "145, 168, 1",
        "*ELSET, ELSET=MARKED, GENERATE", "1, 19, 2",
        "*ELSET, ELSET=ROOT", *listed(list(range(1, 13))),
        "*SOLID SECTION, ELSET=CLIP, MATERIAL=POM", "*MATERIAL, NAME=POM"])


def hinge():
    Block.next_id = 1
    sectors, layers = 12, 3

    def place(angle, r, h):
        a = math.radians(angle)
        return (r * math.cos(a), r * math.sin(a), h)

    mesh = Nodes(1, place)
    pin = Block("*element, type=c3d15, elset=pin")
    sleeve = Block("*element, type=c3d20r, elset=sleeve")
    step, height, core, outer = 360 / sectors, 5.0, 2.0, 4.0

    def at(sector, r, level):
        # The axis has one node per level, whatever the sector.
        angle = sector * step % 360 if r else 0
        return mesh.at(angle, r, level * height)

    for level in range(layers):
        for s in range(sectors):
            def ring(r, where, up=0.0):
                return at(s + where, r, level + up)
            triangle = [(0, 0), (core, 0), (core, 1)]
            corners = [ring(r, w, up) for up in (0, 1) for r, w in triangle]
            middles = [ring(core / 2, 0, up) for up in (0, 1)], [ring(core, .5, up) for up in (0, 1)], \
                      [ring(core / 2, 1, up) for up in (0, 1)]
            pin.add(corners + [m[0] for m in middles] + [m[1] for m in middles] +
                    [ring(r, w, .5) for r, w in triangle])
            quad = [(core, 0), (outer, 0), (outer, 1), (core, 1)]
            sides = [(3.0, 0), (outer, .5), (3.0, 1), (core, .5)]
            sleeve.add([ring(r, w, up) for up in (0, 1) for r, w in quad] +
                       [ring(r, w, up) for up in (0, 1) for r, w in sides] +
                       [ring(r, w, .5) for r, w in quad])
    write("hinge.inp", [
        "*heading", "Hinge: a pin of quadratic wedges in a sleeve of quadratic hexahedra",
        "*node", *mesh.lines(), *pin.lines(), *sleeve.lines(),
        "*elset, elset=mantle, generate", "%d, %d, 2" % (sleeve.ids()[0], sleeve.ids()[-1]),
        "*surface, type=element, name=outside", "mantle, s4",
        "*dload", "1, P1, 2.0", "1, p2, 2.0"])


if __name__ == "__main__":
    for deck in (housing, cover, clip, hinge):
        deck()
