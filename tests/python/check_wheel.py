#!/usr/bin/env python3
"""Compares a wheel with what its users are promised, and unpacks it.

usage: check_wheel.py WHEEL_FOLDER TAG_PATTERN LIBRARY OUTPUT

The folder holds one wheel, whose name ends in a platform tag of that pattern. LIBRARY is the name
of the library in it.
"""
import base64
import csv
import hashlib
import io
import re
import sys
import zipfile
from pathlib import Path

MODULES = [
    "__init__.py", "__main__.py", "_abi.py", "_errors.py", "_findings.py", "_grids.py",
    "_library.py", "_model.py", "_progress.py", "_reading.py", "_tables.py", "_version.py",
    "_writing.py", "meshio.py", "py.typed",
]  # fmt: skip
INFO = "kvocaeio-0.1.0.dist-info"


def digest(content):
    return base64.urlsafe_b64encode(hashlib.sha256(content).digest()).rstrip(b"=").decode()


def problems(wheel, tag_pattern, library):
    name = re.fullmatch(r"kvocaeio-0\.1\.0-py3-none-(.*)\.whl", wheel.name)
    if not name or not re.fullmatch(tag_pattern, name[1]):
        yield f"{wheel.name} is no name for a wheel of {tag_pattern}"
    with zipfile.ZipFile(wheel) as archive:
        content = {entry: archive.read(entry) for entry in archive.namelist()}
    expected = {f"kvocaeio/{file}" for file in [*MODULES, library]}
    expected |= {f"{INFO}/{file}" for file in ("METADATA", "WHEEL", "LICENSE", "RECORD")}
    if library.endswith(".dll"):
        expected |= {f"{INFO}/mingw-w64.txt", f"{INFO}/gcc-runtime.txt"}
    if set(content) != expected:
        yield f"missing: {expected - set(content)}, unexpected: {set(content) - expected}"
    rows = csv.reader(io.StringIO(content[f"{INFO}/RECORD"].decode()))
    record = {row[0]: row[1:] for row in rows}
    for entry, data in content.items():
        known = [f"sha256={digest(data)}", str(len(data))]
        if entry.endswith("/RECORD"):
            known = ["", ""]
        if record.get(entry) != known:
            yield f"{entry} is {known}, but recorded as {record.get(entry)}"
    if name and f"Tag: py3-none-{name[1]}\n" not in content[f"{INFO}/WHEEL"].decode():
        yield "the tag within differs from that of the name"
    metadata = content[f"{INFO}/METADATA"].decode()
    if not metadata.startswith("Metadata-Version: 2.1\nName: kvocaeio\n"):
        yield "the metadata begin with something else"


def main(folder, tag_pattern, library, output):
    (wheel,) = Path(folder).glob("*.whl")
    found = list(problems(wheel, tag_pattern, library))
    print("\n".join(found))
    with zipfile.ZipFile(wheel) as archive:
        archive.extractall(output)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
