"""Tidies Abaqus decks and compares what the reader then finds with an independent reading.

Usage: compare_abaqus.py PROGRAM FOLDER...; PROGRAM is tidy_deck_tables.
"""

import gzip
import os
import subprocess
import sys
import tempfile
from collections import Counter

from abaqus_deck import Deck


def tables(program, deck, scratch, is_tidy):
    """What the reader finds, as the program prints it; None where it fails."""
    printed = os.path.join(scratch, "tables")
    command = [program, deck, printed] + ([os.path.join(scratch, "tidy.inp")] if is_tidy else [])
    if subprocess.run(command, stdout=subprocess.DEVNULL, check=False).returncode != 0:
        return None
    nodes, rows, elements = {}, [], {}
    faces = {"F": Counter(), "D": Counter()}
    thicknesses = []
    sorted_count = 0
    with open(printed, encoding="ascii") as file:
        lines = file.read().splitlines()
    for line in lines:
        kind, *fields = line.split()
        if kind == "N":
            rows.append(int(fields[0]))
            nodes[rows[-1]] = tuple(float(f) for f in fields[1:])
        elif kind == "E":
            elements[int(fields[1])] = (fields[0] == "2", tuple(int(f) for f in fields[2:]))
        elif kind == "T":
            thicknesses.append(float(fields[0]))
        elif kind == "S":
            sorted_count += 1
        else:
            faces[kind][frozenset(rows[int(f)] for f in fields)] += 1
    return nodes, elements, faces, thicknesses, len(rows), sorted_count


def corners_of(elements):
    counts = {4: 4, 5: 5, 6: 6, 8: 8, 10: 4, 15: 6, 20: 8}
    return {
        row: (solid, nodes[: counts[len(nodes)]] if solid else nodes)
        for row, (solid, nodes) in elements.items()
    }


def differences(deck, found):
    nodes, elements, faces, thicknesses, rows, sorted_count = found
    checks = [
        ("nodes", nodes == deck.nodes and rows == len(nodes)),
        ("elements", corners_of(elements) == deck.elements),
        ("sections", sorted_count == len(deck.elements) or not deck.nodes),
        ("surfaces", faces["F"] == deck.surface_faces()),
        ("loads", faces["D"] == deck.load_faces()),
        ("thicknesses", thicknesses == deck.thicknesses),
    ]
    return [name for name, is_equal in checks if not is_equal]


def decks_in(folder, scratch):
    """Paths of decks, unpacked where they are packed."""
    for parent, _, names in sorted(os.walk(folder)):
        for name in sorted(names):
            path = os.path.join(parent, name)
            if name.endswith(".inp"):
                yield path
            elif name.endswith(".inp.gz"):
                unpacked = os.path.join(scratch, name[:-3])
                with gzip.open(path) as packed, open(unpacked, "wb") as out:
                    out.write(packed.read())
                yield unpacked


def main():
    program, *folders = sys.argv[1:]
    folders = [folder for folder in folders if os.path.isdir(folder)]
    if not folders:
        return 77  # skipped: none of the packages is there
    total = before = whole = 0
    with tempfile.TemporaryDirectory() as scratch:
        for folder in folders:
            for path in decks_in(folder, scratch):
                try:
                    deck = Deck(path)
                except (OSError, ValueError) as error:
                    print(f"{path}: not read by the comparison: {error}")
                    continue
                if not deck.nodes and not deck.elements:
                    continue
                total += 1
                plain = tables(program, path, scratch, False)
                before += plain is not None and not differences(deck, plain)
                found = tables(program, path, scratch, True)
                wrong = ["refused"] if found is None else differences(deck, found)
                whole += not wrong
                if wrong:
                    print(f"{path}: {', '.join(wrong)}")
    print(f"{total} decks, {before} whole before, {whole} after")
    return 0 if whole >= 0.99 * total else 1


if __name__ == "__main__":
    sys.exit(main())
