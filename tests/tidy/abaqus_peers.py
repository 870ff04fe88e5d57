#!/usr/bin/env python3
"""Decks of Debian's packages, and decks that Gmsh and meshio write, are tidied, read, and held
against an independent reading of them.

    abaqus_peers.py DUMP      DUMP is the program dump_abaqus

Exit code 77 where none of the packages is installed."""
import contextlib
import gzip
import io
import itertools
import os
import shutil
import subprocess
import sys
import tempfile
from collections import Counter, namedtuple

from abaqus_deck import Deck

try:
    import meshio
    import numpy
except ImportError:
    meshio = None


Tables = namedtuple(
    "Tables", "nodes elements sections faces thicknesses rows sorted_count"
)


def tables(program, deck, scratch, is_tidy):
    """What the reader finds, as the program prints it; None where it fails."""
    printed = os.path.join(scratch, "tables")
    command = [program, deck, printed] + ([os.path.join(scratch, "tidy.inp")] if is_tidy else [])
    if subprocess.run(command, stdout=subprocess.DEVNULL, check=False).returncode != 0:
        return None
    nodes, rows, elements, sections, section = {}, [], {}, {}, ""
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
            sections[int(fields[1])] = section
        elif kind == "X":
            section = line[2:].strip()
        elif kind == "T":
            thicknesses.append((float(fields[0]), " ".join(fields[1:])))
        elif kind == "S":
            sorted_count += 1
        else:
            faces[kind][frozenset(rows[int(f)] for f in fields)] += 1
    return Tables(nodes, elements, sections, faces, thicknesses, len(rows), sorted_count)


def corners_of(elements):
    counts = {4: 4, 5: 5, 6: 6, 8: 8, 10: 4, 15: 6, 20: 8}
    return {
        row: (solid, nodes[: counts[len(nodes)]] if solid else nodes)
        for row, (solid, nodes) in elements.items()
    }


def differences(deck, found):
    sorted_count = found.sorted_count if deck.nodes else len(deck.elements)
    checks = [
        ("nodes", found.nodes == deck.nodes and found.rows == len(found.nodes)),
        ("elements", corners_of(found.elements) == deck.elements),
        ("sections", found.sections == deck.sections and sorted_count == len(deck.elements)),
        ("surfaces", found.faces["F"] == deck.surface_faces()),
        ("loads", found.faces["D"] == deck.load_faces()),
        ("thicknesses", found.thicknesses == deck.thicknesses),
    ]
    return [name for name, is_equal in checks if not is_equal]


def has_same_sets(deck, tidy):
    # Only the names of blocks may have blanks in the new deck.
    return all(
        deck.held_members(name)
        == tidy.held_members(name) | tidy.held_members(name.replace(" ", "_"))
        for name in deck.sets
        if name
    )


def decks_in(folder, scratch):
    """Paths of the decks below a folder, unpacked where they are packed."""
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


BODIES = {
    "box": "Box(1)={0,0,0,1,1,1}; Physical Volume(\"body\")={1}; Physical Surface(\"side\")={1,2};",
    "cylinder": "Cylinder(1)={0,0,0,0,0,2,0.5};",
    "ball": "Sphere(1)={0,0,0,1}; Physical Volume(\"ball part\")={1};",
    "bricks": "Rectangle(1)={0,0,0,1,1}; Extrude{0,0,1}{Surface{1};Layers{3};Recombine;}"
              "Mesh.RecombineAll=1;",
    "wedges": "Rectangle(1)={0,0,0,1,1}; Extrude{0,0,1}{Surface{1};Layers{3};Recombine;}",
    "pair": "Box(1)={0,0,0,1,1,1}; Box(2)={1,0,0,1,1,1};"
            "BooleanFragments{Volume{1};Delete;}{Volume{2};Delete;}"
            "Physical Volume(\"A\")={1}; Physical Volume(\"B\")={2};",
    "cone": "Cone(1)={0,0,0,0,0,1,0.5,0.2}; Mesh.SaveGroupsOfNodes=1;",
}


def gmsh_files(scratch, ending, styles):
    """Meshes of seven bodies, of both orders, saved in several styles: lines of options."""
    folder = os.path.join(scratch, ending)
    os.mkdir(folder)
    for (name, body), order in itertools.product(BODIES.items(), ("1", "2", "2i")):
        path = os.path.join(folder, name + order)
        with open(path + ".geo", "w", encoding="ascii") as file:
            file.write(f'SetFactory("OpenCASCADE");\n{body}\nMesh.MeshSizeMax=0.6;'
                       f"Mesh.ElementOrder={order[0]};"
                       f"Mesh.SecondOrderIncomplete={int(order == '2i')};\nMesh 3;\n")
            for row, style in enumerate(styles):
                file.write(f'{style}\nSave "{path}-{row}.{ending}";\n')
        subprocess.run(["gmsh", "-", path + ".geo"], stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=False)
    return folder


def gmsh_decks(scratch):
    """All elements or those of groups, with and without groups of elements and of nodes."""
    styles = [
        f"Mesh.SaveAll={save_all};Mesh.SaveGroupsOfElements={elements};Mesh.SaveGroupsOfNodes={nodes};"
        for save_all, elements, nodes in itertools.product((0, 1), repeat=3)
    ]
    return gmsh_files(scratch, "inp", styles)


def meshio_decks(scratch):
    """The same meshes as meshio writes them, in three forms of numbers, with and without sets."""
    folder = gmsh_files(scratch, "msh2", ["Mesh.MshFileVersion=2.2;Mesh.SaveAll=1;"])
    known = meshio.abaqus._abaqus.meshio_to_abaqus_type
    for name in sorted(os.listdir(folder)):
        path = os.path.join(folder, name)
        if not name.endswith(".msh2"):
            continue
        with contextlib.redirect_stdout(io.StringIO()), contextlib.suppress(KeyError):
            mesh = meshio.gmsh.read(path)  # a KeyError where it does not know all elements
            mesh.cells = [block for block in mesh.cells if block.type in known]
            mesh.cell_data, mesh.cell_sets = {}, {}
            for form in (".6e", ".16e", ".3f"):
                meshio.abaqus.write(path + form[1:] + ".inp", mesh, form)
            mesh.point_sets = {"some nodes": numpy.arange(0, len(mesh.points), 2)}
            mesh.cell_sets = {
                "every third": [numpy.arange(0, len(block), 3) for block in mesh.cells]
            }
            meshio.abaqus.write(path + "-sets.inp", mesh)
    return folder


def sources(scratch):
    """Where decks come from, as far as packages are there: a name and a folder."""
    packages = {
        "calculix-ccx-test": "/usr/share/doc/calculix-ccx-test/examples/test",
        "freecad-common": "/usr/share/freecad/Mod/Fem/femtest/data",
    }
    yield from ((name, path) for name, path in packages.items() if os.path.isdir(path))
    if shutil.which("gmsh"):
        yield "Gmsh", gmsh_decks(scratch)
        if meshio:
            yield "meshio", meshio_decks(scratch)


def compare(program, path, scratch):
    """Whether a deck arrives whole before and after; None where there is nothing in it."""
    deck = Deck(path)
    if not deck.nodes and not deck.elements:
        return None
    plain = tables(program, path, scratch, False)
    found = tables(program, path, scratch, True)
    wrong = ["refused"] if found is None else differences(deck, found)
    if found and not has_same_sets(deck, Deck(os.path.join(scratch, "tidy.inp"))):
        wrong.append("sets")
    if wrong:
        print(f"{path}: {', '.join(wrong)}")
    return plain is not None and not differences(deck, plain), not wrong


def main():
    program = sys.argv[1]
    passed = True
    count = 0
    with tempfile.TemporaryDirectory() as scratch:
        for name, folder in sources(scratch):
            results = [compare(program, path, scratch) for path in decks_in(folder, scratch)]
            results = [result for result in results if result]
            before, after = (sum(column) for column in zip(*results))
            print(f"{name}: {len(results)} decks, {before} whole before, {after} after")
            passed = passed and after >= 0.99 * len(results)
            count += len(results)
    if count == 0:
        return 77
    return 0 if passed else 1


if __name__ == "__main__":
    sys.exit(main())
