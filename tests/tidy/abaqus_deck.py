"""A plain reading of flat Abaqus decks, independent of the library, for comparison."""

import os
import re
from collections import Counter

SOLIDS = {4: 4, 5: 5, 6: 6, 8: 8, 10: 4, 13: 5, 15: 6, 20: 8, 27: 8}
SHELLS = [("STRI65", 6, 3), ("STRI3", 3, 3), ("S9R5", 9, 4)] + [
    (family + digit, nodes, corners)
    for family in ("S", "DS", "US", "CPS")
    for digit, nodes, corners in (("3", 3, 3), ("4", 4, 4), ("6", 6, 3), ("8", 8, 4))
] + [("R3D3", 3, 3), ("R3D4", 4, 4)]
FACES = {
    4: ["012", "031", "132", "230"],
    6: ["012", "354", "0143", "1254", "2035"],
    8: ["0123", "4765", "0154", "1265", "2376", "3047"],
}


def type_of(name):
    """Nodes, corners, and whether it is a solid; None for types that the reader cannot hold."""
    solid = re.search(r"C3D(\d+)", name)
    if solid:
        nodes = int(solid.group(1))
        return (nodes, SOLIDS[nodes], True) if nodes in SOLIDS else None
    for beginning, nodes, corners in SHELLS:
        if name.startswith(beginning):
            return nodes, corners, False
    return None


def lines_of(path, top=None):
    """Statements and data lines without comments and blank lines, includes in their places."""
    top = top or os.path.dirname(path)
    with open(path, encoding="latin-1", newline="") as file:
        pending = ""
        for raw in file.read().replace("\r\n", "\n").split("\n"):
            text = raw.replace("\t", " ").strip()
            if not text or text.startswith("**"):
                continue
            if pending:
                text, pending = pending + text, ""
            if text.startswith("*") and text.endswith(","):
                pending = text
                continue
            include = re.match(r"\*INCLUDE\s*,.*?INPUT\s*=\s*([^,]+)", text, re.I)
            if include:
                yield from lines_of(os.path.join(top, include.group(1).strip(' "')), top)
            else:
                yield text


def number(text):
    return float(text.strip().upper().replace("D", "E") or 0)


class Deck:
    def __init__(self, path):
        self.nodes, self.elements, self.sections, self.sets = {}, {}, {}, {}
        self.surfaces, self.loads, self.thicknesses = [], [], []
        keyword, parameters, values = "", {}, []
        for line in lines_of(path):
            if line.startswith("*"):
                self.finish(keyword, parameters, values)
                head, *rest = line[1:].split(",")
                keyword = head.replace(" ", "").upper()
                pairs = [part.partition("=") for part in rest]
                parameters = {
                    name.replace(" ", "").upper(): value.strip().strip('"').upper()
                    for name, _, value in pairs
                }
                values = []
            else:
                values.append([field.strip() for field in line.split(",")])
        self.finish(keyword, parameters, values)

    def finish(self, keyword, parameters, rows):
        reader = getattr(self, "read_" + keyword.lower(), None)
        if reader and keyword:
            reader(parameters, rows)

    def read_node(self, parameters, rows):
        for row in rows:
            point = [number(field) for field in row[1:4]]
            self.nodes[int(row[0])] = tuple(point + [0.0] * (3 - len(point)))

    def read_element(self, parameters, rows):
        kind = type_of(parameters.get("TYPE", ""))
        if kind is None:
            return
        fields = []
        for row in rows:
            fields += [int(field) for field in row if field]
            goes_on = not row[-1] and (len(row) > 16 or kind[0] > 20)
            if len(fields) > kind[0] and (not goes_on or len(fields) == kind[0] + 1):
                self.elements[fields[0]] = (kind[2], tuple(fields[1 : kind[1] + 1]))
                self.sections[fields[0]] = parameters.get("ELSET", "")
                self.sets.setdefault(parameters.get("ELSET", ""), []).append(fields[0])
                fields = []

    def read_elset(self, parameters, rows):
        members = self.sets.setdefault(parameters.get("ELSET", ""), [])
        for row in rows:
            if "GENERATE" in parameters:
                first, last, step = (list(map(int, filter(None, row))) + [1])[:3]
                members += range(first, last + 1, step)
            else:
                members += [int(f) if f.isdigit() else f.upper() for f in row if f]

    def read_surface(self, parameters, rows):
        if parameters.get("TYPE", "ELEMENT") == "ELEMENT":
            self.surfaces.append([row for row in rows if len(row) > 1])

    def read_dload(self, parameters, rows):
        self.loads += rows

    def read_shellsection(self, parameters, rows):
        layers = rows if "COMPOSITE" in parameters else rows[:1]
        thickness = sum(number(row[0]) for row in layers)
        self.thicknesses.append((thickness, parameters.get("ELSET", "")))

    def members(self, name):
        if name.isdigit():
            return {int(name)}
        waiting, seen, found = [name.upper()], set(), set()
        while waiting:
            name = waiting.pop()
            if name in seen:
                continue
            seen.add(name)
            for member in self.sets.get(name, []):
                found.add(member) if isinstance(member, int) else waiting.append(member)
        return found

    def held_members(self, name):
        """Those that the reader holds."""
        return self.members(name) & self.elements.keys()

    def faces(self, name, label, letter):
        match = re.fullmatch(letter + "([1-6])", label.upper())
        if not match:
            return
        place = int(match.group(1)) - 1
        for element in self.members(name):
            is_solid, corners = self.elements.get(element, (False, ()))
            if is_solid and place < len(FACES.get(len(corners), ())):
                yield element, frozenset(corners[int(c)] for c in FACES[len(corners)][place])

    def surface_faces(self):
        return Counter(
            face
            for surface in self.surfaces
            for _, face in {f for row in surface for f in self.faces(row[0], row[1], "S")}
        )

    def load_faces(self):
        rows = [row for row in self.loads if len(row) > 1]
        return Counter(face for row in rows for _, face in self.faces(row[0], row[1], "P"))
