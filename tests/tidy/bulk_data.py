"""An independent reading of Nastran bulk data: nodes in the basic coordinate system, elements by
their corners, properties with their materials. Made to be held against what comes out of the
library, so it is written plainly, with the whole deck in memory, and shares no code with it."""
import math
import os
import re

CORNERS = {"CROD": 2, "CTUBE": 2, "CBAR": 2, "CBEAM": 2, "CBEAM3": 2, "CTETRA": 4, "CPENTA": 6,
           "CPYRAM": 5, "CPYRA": 5, "CHEXA": 8}
SHELLS = {"CQUAD4", "CQUAD8", "CQUADR", "CQUAD", "CTRIA3", "CTRIA6", "CTRIAR", "CSHEAR"}
PROPERTIES = {"PROD", "PTUBE", "PBAR", "PBARL", "PBEAM", "PBEAML", "PBEAM3", "PBCOMP", "PSHELL",
              "PSHEAR", "PSOLID", "PLSOLID"}


class Deck:
    def __init__(self):
        self.nodes = {}       # number: (x, y, z)
        self.elements = {}    # number: corners
        self.shells = set()   # numbers
        self.properties = []  # (number, material), in the order of the deck


def find_in_any_case(folder, name):
    path = folder
    parts = [part for part in name.replace("\\", "/").split("/")]
    if name.startswith("/"):
        path = "/"
    for part in parts:
        if part in ("", "."):
            continue
        if os.path.exists(os.path.join(path, part)):
            path = os.path.join(path, part)
            continue
        names = [n for n in sorted(os.listdir(path or ".")) if n.lower() == part.lower()]
        if not names:
            raise FileNotFoundError(name)
        path = os.path.join(path, names[0])
    return path


def lines_of(path, root=None, depth=0):
    """Lines with their includes in place; ends at ENDDATA by raising StopIteration's kin."""
    root = root or os.path.dirname(path)
    if depth > 20:
        raise RecursionError(path)
    with open(path, encoding="latin-1", newline="") as file:
        lines = file.read().replace("\r\n", "\n").split("\n")
    at = 0
    while at < len(lines):
        line = lines[at]
        at += 1
        match = re.match(r"\s*INCLUDE[\s='\"]", line + " ", re.I)
        if not match:
            yield line
            continue
        rest = line.strip()[7:].strip().lstrip("=").strip()
        if rest[:1] in ("'", '"'):
            quote, rest = rest[0], rest[1:]
            while quote not in rest:
                rest = rest.strip() + lines[at].strip()
                at += 1
            name = rest[:rest.index(quote)].strip()
        else:
            name = rest.split("$")[0].strip()
        try:
            other = find_in_any_case(os.path.dirname(path), name)
        except FileNotFoundError:
            other = find_in_any_case(root, name)
        yield from lines_of(other, root, depth + 1)


def split(line):
    """(first field, data fields, mark), or None for a blank line."""
    line = re.sub(r"\$.*", "", line)
    if not line.strip():
        return None
    if "," in line:
        cells = [cell.strip() for cell in line.split(",")]
        first = cells[0]
        width = 4 if "*" in first else 8
        data, mark = cells[1:], ""
        if len(data) == width + 1:
            data, mark = data[:width], data[width]
        elif len(data) > width + 1:
            flat = []
            while data:
                flat += data[:width] + [""] * (width - len(data[:width]))
                data = data[width:]
                while data and data[0][:1] == "+":
                    mark = data.pop(0)
            return first, flat, mark
    else:
        line = line.expandtabs(8)
        first = line[:8].strip()
        width = 4 if "*" in first else 8
        step = 64 // width
        data = [line[8 + i * step:8 + (i + 1) * step].strip() for i in range(width)]
        mark = line[72:80].strip()
    return first, data + [""] * (width - len(data)), mark


def bare(mark):
    return mark.lstrip("+*").strip().upper()


def cards_of(path):
    """(name, fields) of all cards, continuations joined by their place, or else by their marks."""
    cards, strays, open_marks = [], {}, {}
    for line in lines_of(path):
        if re.match(r"\s*ENDDATA\b", line, re.I):
            break
        parts = split(line)
        if parts is None:
            continue
        first, data, mark = parts
        if first == "" or first[0] in "+*":
            name = bare(first)
            if cards and (not name or not cards[-1][2] or cards[-1][2] == name):
                if len(data) == 8 and len(cards[-1][1]) % 8:
                    cards[-1][1].extend([""] * 4)
                cards[-1][1].extend(data)
                cards[-1][2] = bare(mark)
            else:
                strays.setdefault(name, (data, bare(mark)))
            continue
        cards.append([first.rstrip("*").strip().upper().rstrip("_"), list(data), bare(mark)])
    for card in cards:
        for _ in range(10):
            if card[2] not in strays:
                break
            data, card[2] = strays[card[2]]
            card[1].extend(data)
    return replicated(cards)


def added(before, step):
    step = step.strip().strip("()")
    try:
        return str(int(before) + int(step))
    except ValueError:
        return repr(real(before or "0.") + real(step))


def replicated(cards):
    out, template = [], None
    for name, fields, _ in cards:
        times = 1
        if not name.startswith("="):
            template = None
            out.append((name, fields))
            continue
        if re.fullmatch(r"=\(?\d+\)?", name):
            times = int(name.strip("=()"))
        else:
            template = fields
        for _ in range(times):
            before = out[-1]
            new = []
            for i, field in enumerate(template):
                old = before[1][i] if i < len(before[1]) else ""
                if field == "==":
                    new += before[1][i:]
                    break
                new.append(old if field == "=" else
                           added(old, field[1:]) if field.startswith("*") else field)
            out.append((before[0], new))
    return out


def real(text):
    text = text.upper().replace("D", "E")
    match = re.fullmatch(r"([+-]?(?:\d+\.?\d*|\.\d+))(?:E?([+-]\d+)|E(\d+))?", text)
    if not match:
        raise ValueError(text)
    return float(match[1] + "E" + (match[2] or match[3] or "0"))


def rectangular(kind, point):
    a, b, c = point
    if kind == "R":
        return point
    angle = math.radians(b)
    if kind == "C":
        return a * math.cos(angle), a * math.sin(angle), c
    around = math.radians(c)
    return (a * math.sin(angle) * math.cos(around), a * math.sin(angle) * math.sin(around),
            a * math.cos(angle))


def cross(a, b):
    return [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]]


def unit(a):
    size = math.sqrt(sum(x * x for x in a))
    return [x / size for x in a]


class Frames:
    def __init__(self):
        self.cards = {}
        self.grids = {}  # number: (frame, local)

    def place(self, number, point):
        if number == 0:
            return tuple(point)
        kind, reference, points, grids = self.cards[number]
        if grids:
            points = [self.place(*self.grids[grid]) for grid in grids]
        else:
            points = [self.place(reference, p) for p in points]
        z = unit([b - a for a, b in zip(points[0], points[1])])
        y = unit(cross(z, [b - a for a, b in zip(points[0], points[2])]))
        x = cross(y, z)
        local = rectangular(kind, point)
        return tuple(points[0][i] + local[0] * x[i] + local[1] * y[i] + local[2] * z[i]
                     for i in range(3))


def read(path):
    deck, frames, default = Deck(), Frames(), 0
    cards = cards_of(path)
    for name, fields in cards:
        fields = fields + [""] * 12
        if name == "GRDSET":
            default = int(fields[1] or 0)
        elif re.fullmatch("CORD2[RCS]", name):
            numbers = [real(f) if f else 0.0 for f in fields[2:11]]
            frames.cards[int(fields[0])] = (name[5], int(fields[1] or 0),
                                            [numbers[:3], numbers[3:6], numbers[6:]], None)
        elif re.fullmatch("CORD1[RCS]", name):
            for at in (0, 4):
                if fields[at]:
                    frames.cards[int(fields[at])] = (name[5], 0, None,
                                                     [int(f) for f in fields[at + 1:at + 4]])
    for name, fields in cards:
        if name == "GRID":
            fields = fields + [""] * 5
            local = [real(f) if f else 0.0 for f in fields[2:5]]
            frames.grids[int(fields[0])] = (int(fields[1]) if fields[1] else default, local)
    for number, (frame, local) in frames.grids.items():
        deck.nodes[number] = frames.place(frame, local)
    for name, fields in cards:
        if name in CORNERS:
            deck.elements[int(fields[0])] = [int(f) for f in fields[2:2 + CORNERS[name]]]
        elif name in SHELLS:
            deck.shells.add(int(fields[0]))
        elif name in PROPERTIES:
            deck.properties.append((int(fields[0]), int(fields[1] or 0)))
    return deck
