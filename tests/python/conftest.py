"""What the tests of the Python module share. They run against the installed wheel."""
import os
from pathlib import Path

import pytest

SOURCE = Path(os.environ["KVOCAEIO_SOURCE"])
DATA = SOURCE / "examples" / "data"

BRICK = """\
*NODE
1, 0.0, 0.0, 0.0
2, 1.0, 0.0, 0.0
3, 1.0, 1.0, 0.0
4, 0.0, 1.0, 0.0
5, 0.0, 0.0, 2.0
6, 1.0, 0.0, 2.0
7, 1.0, 1.0, 2.0
8, 0.0, 1.0, 2.0
20, 0.5, 0.5, 3.0
*ELEMENT, TYPE=C3D8, ELSET=body
11, 1, 2, 3, 4, 5, 6, 7, 8
*ELEMENT, TYPE=C3D5, ELSET=body
12, 5, 6, 7, 8, 20
"""


@pytest.fixture
def data():
    """The folder of the sample files."""
    return DATA


@pytest.fixture
def brick(tmp_path):
    """A deck of a hexahedron with a pyramid on top."""
    path = tmp_path / "brick.inp"
    path.write_text(BRICK)
    return path


@pytest.fixture
def large(tmp_path):
    """A deck of 2.2 MB, which is read in many blocks: 100,000 nodes without elements."""
    path = tmp_path / "large.inp"
    rows = "".join(f"{i}, {i % 97}.5, 0.0, 1.0\n" for i in range(1, 100_001))
    path.write_text("*NODE\n" + rows)
    return path
