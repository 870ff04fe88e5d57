#!/usr/bin/env python3
"""Random assemblies are written as decks of parts and instances, tidied, read, and held against
what they were made of. Numbers may be any in the new deck, so all is compared by coordinates.

    abaqus_assemblies.py DUMP [SEED]      DUMP is the program dump_abaqus"""
import math
import os
import random
import sys
import tempfile
from collections import Counter

from abaqus_deck import FACES, Deck
from abaqus_peers import tables

COUNT = 60
HEX_CORNERS = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0), (0, 0, 1), (1, 0, 1), (1, 1, 1), (0, 1, 1)]
# Type, and the corners of a cell that an element of it has.
KINDS = [
    ("C3D8R", (0, 1, 2, 3, 4, 5, 6, 7)),
    ("c3d6", (0, 1, 3, 4, 5, 7)),
    ("C3D4", (0, 1, 3, 4)),
    ("S4R", (0, 1, 2, 3)),
    ("S3", (0, 1, 3)),
]


def key(point):
    """A point as it is compared."""
    return tuple(round(x, 6) + 0.0 for x in point)


def turned(point, start, end, degrees):
    """The point after a rotation about an axis, by quaternions."""
    axis = [b - a for a, b in zip(start, end)]
    length = math.sqrt(sum(x * x for x in axis))
    half = math.radians(degrees) / 2
    turn = [math.cos(half)] + [x / length * math.sin(half) for x in axis]

    def product(p, q):
        return [
            p[0] * q[0] - p[1] * q[1] - p[2] * q[2] - p[3] * q[3],
            p[0] * q[1] + p[1] * q[0] + p[2] * q[3] - p[3] * q[2],
            p[0] * q[2] - p[1] * q[3] + p[2] * q[0] + p[3] * q[1],
            p[0] * q[3] + p[1] * q[2] - p[2] * q[1] + p[3] * q[0],
        ]

    inner = [0.0] + [x - a for x, a in zip(point, start)]
    result = product(product(turn, inner), [turn[0]] + [-x for x in turn[1:]])
    return [x + a for x, a in zip(result[1:], start)]


class Part:
    """A row of cells with elements of one kind, with sets and a thickness."""

    def __init__(self, name, choose):
        self.name = name
        self.type, corners = choose.choice(KINDS)
        count = choose.randint(1, 5)
        first, first_element = choose.randint(1, 50), choose.randint(1, 50)
        self.nodes, self.elements = {}, {}
        for i in range(count + 1):
            for k, (_, y, z) in enumerate(corner for corner in HEX_CORNERS if corner[0] == 0):
                place = (i + choose.uniform(-0.2, 0.2), y, z)
                self.nodes[first + 4 * i + k] = place
        ends = {(y, z): k for k, (_, y, z) in enumerate(c for c in HEX_CORNERS if c[0] == 0)}
        for i in range(count):
            cell = [first + 4 * (i + x) + ends[y, z] for x, y, z in HEX_CORNERS]
            self.elements[first_element + i] = [cell[c] for c in corners]
        self.is_solid = "3D" in self.type.upper()
        self.thickness = None if self.is_solid else choose.choice([0.5, 1.25, 2.0])
        ids = list(self.elements)
        self.sets = {"Set-1": set(ids), "odd": set(ids[::2])}
        self.ranges = {"Set-1": (ids[0], ids[-1], 1), "odd": (ids[0], ids[-1], 2)}

    def lines(self):
        yield f"*Part, name={self.name}\n*Node\n"
        for node, point in self.nodes.items():
            yield f"{node:7d}, " + ", ".join(f"{x!r}" for x in point) + "\n"
        yield f"*Element, type={self.type}\n"
        for element, nodes in self.elements.items():
            yield f"{element}, " + ", ".join(map(str, nodes)) + "\n"
        for name, (first, last, step) in self.ranges.items():
            yield f"*Elset, elset={name}, generate\n {first},  {last},  {step}\n"
        if self.thickness:
            yield f"*Shell Section, elset=Set-1, material=M\n{self.thickness}, 5\n"
        yield "*End Part\n**\n"


class Instance:
    def __init__(self, name, part, choose):
        self.name, self.part = name, part
        self.shift = [choose.uniform(-9, 9) for _ in range(3)] if choose.random() < 0.8 else None
        self.turn = None
        if self.shift and choose.random() < 0.7:
            self.turn = [choose.uniform(-3, 3) for _ in range(6)] + [choose.uniform(-360, 360)]

    def lines(self):
        yield f"*Instance, name={self.name}, part={self.part.name}\n"
        for values in (self.shift, self.turn):
            if values:
                yield ", ".join(f"{x!r}" for x in values) + "\n"
        yield "*End Instance\n"

    def point(self, node):
        point = list(self.part.nodes[node])
        if self.shift:
            point = [x + s for x, s in zip(point, self.shift)]
        if self.turn:
            point = turned(point, self.turn[:3], self.turn[3:6], self.turn[6])
        return key(point)

    def element(self, element):
        return tuple(self.point(node) for node in self.part.elements[element])

    def faces(self, elements, face):
        for element in elements:
            corners = self.element(element)
            if self.part.is_solid and face <= len(FACES[len(corners)]):
                yield frozenset(corners[int(c)] for c in FACES[len(corners)][face - 1])


class Assembly:
    """What a deck holds, by coordinates."""

    def __init__(self, choose):
        parts = [Part(f"Part-{i}", choose) for i in range(choose.randint(1, 3))]
        self.instances = [
            Instance(f"{part.name}-{k}", part, choose)
            for part in parts
            for k in range(choose.randint(1, 3))
        ]
        self.point = [choose.uniform(-5, 5) for _ in range(3)]
        self.surfaces, self.loads, self.sets = Counter(), Counter(), {}
        text = ["*Heading\n"] + [line for part in parts for line in part.lines()]
        text.append("*Assembly, name=Assembly\n")
        text += [line for instance in self.instances for line in instance.lines()]
        text.append("*Node\n1, " + ", ".join(f"{x!r}" for x in self.point) + "\n")
        steps = ["*Step\n"]
        for row, instance in enumerate(self.instances):
            text += self.add_faces(row, instance, steps, choose)
        chosen = choose.sample(self.instances, min(2, len(self.instances)))
        text.append("*Elset, elset=mixed\n" + "".join(f"{i.name}.odd,\n" for i in chosen))
        self.sets["MIXED"] = Counter(
            instance.element(e) for instance in chosen for e in instance.part.sets["odd"]
        )
        self.text = "".join(text) + "*End Assembly\n" + "".join(steps) + "*End Step\n"

    def add_faces(self, row, instance, steps, choose):
        """A surface of an internal set of an instance, and loads on it and on a set."""
        some = choose.sample(sorted(instance.part.elements), len(instance.part.elements) // 2)
        name, face, other = f"_S{row}_S", choose.randint(1, 6), choose.randint(1, 4)
        self.sets[name + "0"] = Counter(instance.element(e) for e in some)
        faces = Counter(instance.faces(some, face))
        self.surfaces += faces
        self.loads += Counter(instance.faces(instance.part.sets["odd"], other))
        steps.append(f"*Dload\n{instance.name}.odd, P{other}, 2.\n")
        if faces:
            steps.append(f"*Dsload\nS{row}, P, 1.\n")
            self.loads += faces
        members = "".join(f"{e},\n" for e in some)
        yield f"*Elset, elset={name}0, internal, instance={instance.name}\n{members}"
        yield f"*Surface, type=ELEMENT, name=S{row}\n{name}0, S{face}\n"


def differences(assembly, found, tidy):
    points = {node: key(point) for node, point in found.nodes.items()}
    by_points = {e: tuple(points[n] for n in nodes) for e, (_, nodes) in found.elements.items()}

    def faces(kind):
        return Counter(
            frozenset(points[node] for node in face) for face in found.faces[kind].elements()
        )

    instances = assembly.instances
    nodes = [i.point(n) for i in instances for n in i.part.nodes] + [key(assembly.point)]
    elements = [i.element(e) for i in instances for e in i.part.elements]
    thicknesses = [i.part.thickness for i in instances if i.part.thickness]
    checks = [
        ("nodes", Counter(points.values()) == Counter(nodes)),
        ("elements", Counter(by_points.values()) == Counter(elements)),
        ("sections", found.sorted_count == len(elements)),
        ("surfaces", faces("F") == assembly.surfaces),
        ("loads", faces("D") == assembly.loads),
        ("thicknesses", [value for value, _ in found.thicknesses] == thicknesses),
    ]
    checks += [
        (f"set {name}", Counter(by_points[e] for e in tidy.members(name)) == members)
        for name, members in assembly.sets.items()
    ]
    return [name for name, is_equal in checks if not is_equal]


def main():
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else 20261122
    failed = 0
    with tempfile.TemporaryDirectory() as scratch:
        path = os.path.join(scratch, "assembly.inp")
        for number in range(seed, seed + COUNT):
            assembly = Assembly(random.Random(number))
            with open(path, "w", encoding="ascii") as file:
                file.write(assembly.text)
            found = tables(sys.argv[1], path, scratch, True)
            tidy = os.path.join(scratch, "tidy.inp")
            wrong = ["refused"] if not found else differences(assembly, found, Deck(tidy))
            if wrong:
                print(f"seed {number}: {', '.join(wrong)}")
                failed += 1
    print(f"{COUNT} assemblies, {COUNT - failed} whole")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
