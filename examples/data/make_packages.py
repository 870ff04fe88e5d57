"""Writes the sample packages of this folder again: python3 make_packages.py"""
import math
import pathlib

FOLDER = pathlib.Path(__file__).parent

# Lengths in micrometres. A package of 14 mm: substrate, logic die, spacer, memory die, interposer,
# small die on top, mould cap, a ball grid with an empty middle.
HALF = 7000
SUBSTRATE = 300
STACK = [  # name, half the side in x and y, height
    ("LOGIC_DIE", 3600, 3600, 150),
    ("SPACER_LOW", 2400, 2400, 80),
    ("MEMORY_DIE", 2800, 2200, 120),
    ("INTERPOSER_TOP", 2000, 1600, 60),
    ("SENSOR_DIE", 1400, 1200, 100),
]
OBJECTS = {1: "SYMBOL", 2: "BALL", 3: "WIREBOND"}
LAYERS = {1: "OUTLINE", 2: "TOP", 3: "BOTTOM", 4: "PACKAGE CAP"}
COLORS = {0: (0, 96, 0), 1: (180, 180, 190), 2: (230, 190, 60), 3: (40, 40, 40), 4: (200, 120, 40)}
MODELS = ["AU20_LOW", "AU25_LOOP", "CU18_SPARE"]


def heights():
    """Bottom and top of each member of the stack."""
    bottom = SUBSTRATE
    for name, x, y, height in STACK:
        yield name, x, y, bottom, bottom + height
        bottom += height


def number(value):
    return "%.10g" % round(value, 4)


def rectangle(x, y):
    return [(-x, -y), (x, -y), (x, y), (-x, y)]


def octagon(x, y, cut):
    return [(-x + cut, -y), (x - cut, -y), (x, -y + cut), (x, y - cut),
            (x - cut, y), (-x + cut, y), (-x, y - cut), (-x, -y + cut)]


def block(lines):
    yield "GEOM"
    yield from lines
    yield "####"


def body(name, layer, color, bottom, top, outline, row=4):
    yield from block(
        ([" NAME %s" % name] if name else [])
        + [" OBJECT 1", " LAYER %d" % layer, " COLOR %d" % color,
           " EXTR 0 %s %s" % (number(bottom), number(top)), " 2DPG %d" % len(outline)]
        + ["  " + " ".join("%s %s" % (number(x), number(y)) for x, y in outline[i:i + row])
           for i in range(0, len(outline), row)])


def arch(start, end, rise, count):
    """Points of a bond wire: steep from the die's pad, a long fall to the finger."""
    for i in range(count):
        t = i / (count - 1)
        bow = math.sin(math.pi * t ** 0.7)
        yield (start[0] + (end[0] - start[0]) * t, start[1] + (end[1] - start[1]) * t,
               start[2] + (end[2] - start[2]) * t + rise * bow)


def wires():
    """Twelve wires on each side of two dies: model, diameter, points."""
    members = {name: (x, y, top) for name, x, y, _, top in heights()}
    for die, model, diameter, rise, reach in (("LOGIC_DIE", 1, 20, 120, 5200),
                                              ("SENSOR_DIE", 2, 25, 180, 6200)):
        x, y, top = members[die]
        for side in range(4):
            turn = math.pi / 2 * side
            inner, half = (x, y) if side % 2 == 0 else (y, x)
            for i in range(12):
                along = (i - 5.5) / 6.5
                start, end = (inner - 90, along * half), (reach, along * reach * 0.85)
                spin = lambda p: (p[0] * math.cos(turn) - p[1] * math.sin(turn),
                                  p[0] * math.sin(turn) + p[1] * math.cos(turn))
                yield model, diameter, arch(spin(start) + (top,), spin(end) + (SUBSTRATE,),
                                            rise, 7 if model == 1 else 10)


def wire_block(model, diameter, points):
    points = list(points)
    yield from block(
        [" OBJECT 3", " LAYER 2", " COLOR %d" % (1 + model), " WIRE_MODEL %d" % model,
         " WIRE %d 1" % diameter, " 3DPL %d" % len(points)]
        + ["  " + "  ".join(" ".join(number(c) for c in p) for p in points[i:i + 5])
           for i in range(0, len(points), 5)])


def balls():
    radius, pad = 250, 180
    top = radius - 2 * math.sqrt(radius ** 2 - pad ** 2)
    for i in range(14):
        for j in range(14):
            if 4 <= i <= 9 and 4 <= j <= 9:
                continue
            yield from block([" OBJECT 2", " LAYER 3", " COLOR 1", " BARL %s %s %s %d 0 %d 1" % (
                number((i - 6.5) * 900), number((j - 6.5) * 900), number(top), radius, pad)])


def package():
    yield from ["3DI MICRONS", "TABLE COLOR"]
    yield from ("%d %d %d %d 0" % (key, *rgb) for key, rgb in COLORS.items())
    yield from ["TABLE OBJECT"] + ["%d %s" % entry for entry in OBJECTS.items()]
    yield from ["TABLE LAYER"] + ["%d %s" % entry for entry in LAYERS.items()]
    yield from ["TABLE END", "", "WIRE_MODELS"]
    for i, name in enumerate(MODELS):
        yield from ["WIRE_MODEL %d" % (i + 1), "%s %d 1 GOLD" % (name, 20 + 5 * i)]
    yield "GEOMETRIES"
    # Wires stand before the bodies, whose colours would be taken for that of the first wire.
    for wire in wires():
        yield from wire_block(*wire)
    yield from body("", 1, 0, 0, SUBSTRATE, octagon(HALF, HALF, 300))
    for name, x, y, bottom, top in heights():
        yield from body(name, 2, 1, bottom, top, rectangle(x, y))
    yield from body("", 4, 3, SUBSTRATE, 1200, rectangle(HALF - 400, HALF - 400))
    yield from balls()


def cells(tag, values):
    return tag + "!" + "".join("%s!" % value for value in values)


JOB = ["flip_stack.sip", "2026-11-02", "09:15:00", "A", "1", "4", "0", "MICRONS", "2", "0", "0", "ok"]


def symbols():
    yield cells("A", ["REFDES", "SYM_NAME", "SYM_BOX_X1", "SYM_BOX_Y1", "SYM_BOX_X2", "SYM_BOX_Y2",
                      "GRAPHIC_DATA_NAME", "GRAPHIC_DATA_1", "GRAPHIC_DATA_2", "GRAPHIC_DATA_3",
                      "GRAPHIC_DATA_4"])
    yield cells("J", JOB)
    for refdes, name, x, y, graphic in (("BGA", "SUB_14X14", HALF, HALF, "LINE"),
                                        ("BGA", "SUB_14X14", HALF, HALF, "RECTANGLE"),
                                        ("DIE", "LOGIC_DIE", 3600, 3600, "RECTANGLE"),
                                        ("C17", "CAP_0201", 300, 150, "RECTANGLE")):
        yield cells("S", [refdes, name, -x, -y, x, y, graphic, -x, -y, x, y])


def layers():
    yield cells("A", ["LAYER_SORT", "LAYER_SUBCLASS", "LAYER_TYPE", "LAYER_MATERIAL",
                      "LAYER_THICKNESS"])
    yield cells("J", JOB)
    for i, (name, kind, material, thickness) in enumerate((
            ("SURFACE", "SURFACE", "AIR", "0 MIL"),
            ("TOP", "CONDUCTOR", "COPPER", "0.6 MIL"),
            ("CORE", "DIELECTRIC", "BT_RESIN", "10.4 MIL"),
            ("BOTTOM", "CONDUCTOR", "COPPER", "0.8 MIL"),
            ("SURFACE", "SURFACE", "AIR", "0 MIL"))):
        yield cells("S", ["%06d" % i, name, kind, material, thickness])


def stack():
    yield cells("A", ["DSA_MEMBER_TYPE", "DSA_MEMBER_NAME", "DSA_EXTENTS_X1", "DSA_EXTENTS_Y1",
                      "DSA_EXTENTS_X2", "DSA_EXTENTS_Y2", "DSA_STACK_HEIGHT_MIN",
                      "DSA_STACK_HEIGHT_MAX"])
    yield cells("J", JOB)
    for name, x, y, bottom, top in heights():
        kind = next((word for word in ("INTERPOSER", "SPACER") if word in name), "DIE")
        yield cells("S", [kind, name, -x, -y, x, y, bottom - SUBSTRATE, top - SUBSTRATE])


def write(name, lines):
    path = FOLDER / name
    path.parent.mkdir(exist_ok=True)
    path.write_text("\n".join(lines) + "\n", newline="\n")


if __name__ == "__main__":
    write("stack.3di", package())
    write("reports/CmdFile1.txt", symbols())
    write("reports/CmdFile2.txt", layers())
    write("reports/CmdFile3.txt", stack())
