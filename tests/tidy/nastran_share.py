#!/usr/bin/env python3
"""How many decks arrive whole in the reader, as they are and after a tidy, held against an
independent reading.

    nastran_share.py DUMP DECK...      DUMP is the program dump_nastran
"""
import os
import subprocess
import sys
import tempfile

import bulk_data


def near(read, meant):
    """Within the digits of eight columns, at worst five of them, and of a float."""
    size = max(abs(x) for x in meant) if meant else 0.0
    return all(abs(a - b) <= max(1e-4 * abs(b), 2e-7 * size, 1e-30) for a, b in zip(read, meant))


class Dump:
    def __init__(self, text):
        self.nodes, self.elements, self.sections = {}, {}, []
        self.origins = {"node": {}, "element": {}, "property": {}}
        for line in text.splitlines():
            kind, *cells = line.split()
            if kind == "node":
                self.nodes[int(cells[0])] = [float(c) for c in cells[1:]]
            elif kind == "element":
                self.elements[int(cells[0])] = [int(c) for c in cells[1:]]
            elif kind == "section":
                self.sections.append([int(c) for c in cells])
            elif kind.endswith("-origin"):
                self.origins[kind[:-7]][int(cells[0])] = int(cells[1])

    def original(self, kind, number):
        return self.origins[kind].get(number, number)


def difference(dump, meant):
    """What is not whole; an empty text where everything is."""
    nodes = {dump.original("node", n): p for n, p in dump.nodes.items()}
    if nodes.keys() != meant.nodes.keys():
        return f"nodes: {len(nodes)} for {len(meant.nodes)}"
    for number, point in meant.nodes.items():
        if not near(nodes[number], point):
            return f"node {number}: {nodes[number]} for {point}"
    elements = {dump.original("element", n): [dump.original("node", c) for c in corners]
                for n, corners in dump.elements.items()}
    if elements.keys() != meant.elements.keys():
        return f"elements: {len(elements)} for {len(meant.elements)}"
    for number, corners in meant.elements.items():
        if elements[number] != corners + corners[-1:] * (8 - len(corners)):
            return f"element {number}: {elements[number]} for {corners}"
    rows = [(dump.original("property", row[0]), row[1]) for row in dump.sections]
    if rows != meant.properties:
        return f"sections: {rows[:5]} for {meant.properties[:5]}"
    return ""


def run(dump, deck, out=None):
    command = [dump, "as-is", deck] if out is None else [dump, "tidy", deck, out]
    done = subprocess.run(command, capture_output=True, text=True, errors="replace", check=False)
    return done.returncode, Dump(done.stdout), done.stderr


def compare(dump, deck, meant, folder):
    """(as it is, after tidy): what is not whole, of each."""
    code, read, _ = run(dump, deck)
    before = difference(read, meant) if code == 0 else "refused"
    out = os.path.join(folder, "out.nas")
    code, read, findings = run(dump, deck, out)
    if code != 0:
        errors = [line for line in findings.splitlines() if ": 2: " in line]
        return before, "refused: " + "; ".join(errors)
    after = difference(read, meant)
    with open(out, "rb") as first:
        written = first.read()
    run(dump, out, out + "2")
    with open(out + "2", "rb") as second:
        if second.read() != written:
            after = after or "tidy of the tidy deck is another one"
    return before, after


def main():
    dump, *decks = sys.argv[1:]
    whole = [0, 0]
    with tempfile.TemporaryDirectory() as folder:
        for deck in decks:
            try:
                meant = bulk_data.read(deck)
            except Exception as error:  # a deck that this reading does not understand
                print(f"{deck}: not read: {type(error).__name__} {error}")
                continue
            before, after = compare(dump, deck, meant, folder)
            whole[0] += not before
            whole[1] += not after
            if after:
                print(f"{deck}: {after}")
    print(f"{len(decks)} decks: {whole[0]} whole as they are, {whole[1]} after tidy")


if __name__ == "__main__":
    main()
