"""One element of each kind, apart from the others, each in a set of its own: what the tests with other
programs convert."""
import numpy as np

# By type: corners, edges with a node between their ends, size, name in meshio.
TETRAHEDRON = [(0, 0, 0), (6, 0, 0), (0, 6, 0), (0, 0, 6)]
WEDGE = [(0, 0, 0), (6, 0, 0), (0, 6, 0), (0, 0, 6), (6, 0, 6), (0, 6, 6)]
BRICK = [(0, 0, 0), (6, 0, 0), (6, 6, 0), (0, 6, 0), (0, 0, 6), (6, 0, 6), (6, 6, 6), (0, 6, 6)]
PYRAMID = BRICK[:4] + [(3, 3, 6)]
KINDS = {
    "C3D4": (TETRAHEDRON, "", 36, "tetra"),
    "C3D5": (PYRAMID, "", 72, "pyramid"),
    "C3D6": (WEDGE, "", 108, "wedge"),
    "C3D8": (BRICK, "", 216, "hexahedron"),
    "C3D10": (TETRAHEDRON, "01 12 20 03 13 23", 36, "tetra10"),
    "C3D15": (WEDGE, "01 12 20 34 45 53 03 14 25", 108, "wedge15"),
    "C3D20": (BRICK, "01 12 23 30 45 56 67 74 04 15 26 37", 216, "hexahedron20"),
    "S3": (TETRAHEDRON[:3], "", 18, "triangle"),
    "S4": (BRICK[:4], "", 36, "quad"),
}


class Element:
    """The element of one kind: its OID, and OIDs and places of its nodes."""

    def __init__(self, kind, place, first):
        corners, edges, self.size, self.meshio = KINDS[kind]
        self.kind = kind
        self.oid = 5 * place + 11
        points = [np.array(corner, float) + (10 * place, 0, 0) for corner in corners]
        self.corners = len(points)
        points += [(points[int(a)] + points[int(b)]) / 2 for a, b in edges.split()]
        self.points = np.array(points)
        self.nodes = list(range(first, first + 3 * len(points), 3))


def elements():
    made = []
    for place, kind in enumerate(KINDS):
        made.append(Element(kind, place, made[-1].nodes[-1] + 7 if made else 100))
    return made


def write_deck(path, without=()):
    """All nodes, and the elements of all types but those `without`."""
    lines = ["*NODE"]
    for element in elements():
        for oid, (x, y, z) in zip(element.nodes, element.points):
            lines.append(f"{oid}, {float(x)!r}, {float(y)!r}, {float(z)!r}")
    for element in elements():
        if element.kind in without:
            continue
        fields = [str(field) for field in [element.oid] + element.nodes]
        lines.append(f"*ELEMENT, TYPE={element.kind}, ELSET=SET_{element.kind}")
        lines += [", ".join(fields[i : i + 8]) + "," * (i + 8 < len(fields))
                  for i in range(0, len(fields), 8)]
    for element in elements():
        if element.kind[0] == "S" and element.kind not in without:
            lines += [f"*SHELL SECTION, ELSET=SET_{element.kind}, MATERIAL=ANY", "0.5"]
    with open(path, "w", encoding="ascii") as file:
        file.write("\n".join(lines) + "\n")
    return path
