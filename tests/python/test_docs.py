"""The code of the page docs/python.md runs, and prints what stands after it."""
import ast
import contextlib
import inspect
import io
import re
import shutil
import sys
import types

import pytest
from conftest import DATA, SOURCE
from test_grids import Grid

import kvocaeio

BLOCK = re.compile(r"^```python\n(.*?)^```\n(?:\n?^```\n(.*?)^```\n)?", re.M | re.S)


@pytest.fixture
def folder(tmp_path, monkeypatch):
    """A folder with the sample files, and a stand-in for PyVista."""
    shutil.copytree(DATA, tmp_path / "data", ignore=shutil.ignore_patterns("*.py"))
    monkeypatch.chdir(tmp_path / "data")
    pyvista = types.ModuleType("pyvista")
    pyvista.UnstructuredGrid = Grid
    monkeypatch.setitem(sys.modules, "pyvista", pyvista)
    return tmp_path / "data"


@pytest.mark.parametrize("page", ["docs/python.md", "python/README.md"])
def test_the_code_of_a_page_prints_what_stands_after_it(page, folder):
    if page == "python/README.md":
        (folder / "cover.inp").rename(folder / "part.inp")
    blocks = BLOCK.findall((SOURCE / page).read_text(encoding="utf-8"))
    assert blocks
    names = {}
    for code, expected in blocks:
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            exec(code, names)
        if expected:
            assert output.getvalue() == expected, code


def public_members():
    for name in kvocaeio.__all__:
        thing = getattr(kvocaeio, name)
        if name.startswith("_"):
            continue
        yield name, thing
        for member, value in vars(thing).items() if inspect.isclass(thing) else ():
            if not member.startswith("_"):
                yield f"{name}.{member}", getattr(value, "func", value)


def attributes_without_description():
    """Public attributes of the classes and their instances without a comment "#:" before them."""
    for path in sorted((SOURCE / "python/kvocaeio").glob("_*.py")):
        lines = path.read_text(encoding="utf-8").splitlines()
        for node in ast.parse("\n".join(lines)).body:
            if not isinstance(node, ast.ClassDef) or node.name not in kvocaeio.__all__:
                continue
            for member in ast.walk(node):
                if not isinstance(member, ast.AnnAssign):
                    continue
                name = ast.unparse(member.target)
                described = lines[member.lineno - 2].lstrip().startswith("#:")
                if re.match(r"(self\.)?[a-z]\w*$", name) and not described:
                    yield f"{node.name}: {name}"


def test_every_public_member_has_a_docstring():
    missing = [
        name
        for name, thing in public_members()
        if (inspect.isroutine(thing) or inspect.isclass(thing) or isinstance(thing, property))
        and not (thing.__doc__ or "").strip()
    ]
    assert missing == []
    assert len(list(public_members())) > 50


def test_every_public_attribute_is_described():
    assert list(attributes_without_description()) == []
