#!/usr/bin/env python3
"""Packs the module and a built library as a wheel. Needs neither a network nor a compiler.

usage: python/build_wheel.py LIBRARY VERSION PLATFORM OUTPUT

LIBRARY is libKVOCAEIO.so or KVOCAEIO.dll, stripped or not; PLATFORM the platform tag of the wheel,
such as win_amd64, or "linux" for that of this machine; OUTPUT the folder of the wheel. What is in
the wheel stands beside it in the folder "tree", for packages of a system. The same input gives the
same bytes.
"""
import base64
import hashlib
import os
import platform
import sys
import zipfile
from pathlib import Path

PYTHON = Path(__file__).resolve().parent
ROOT = PYTHON.parent

METADATA = """\
Metadata-Version: 2.1
Name: kvocaeio
Version: {version}
Summary: Files of simulation tools as numpy arrays: Abaqus, Nastran, Patran, chip packages
Author: the KVOCAEIO developers
License: MIT
Classifier: License :: OSI Approved :: MIT License
Classifier: Programming Language :: Python :: 3
Classifier: Typing :: Typed
Requires-Python: >=3.9
Requires-Dist: numpy >=1.21
Provides-Extra: meshio
Requires-Dist: meshio >=5 ; extra == 'meshio'
Provides-Extra: pandas
Requires-Dist: pandas ; extra == 'pandas'
Provides-Extra: progress
Requires-Dist: tqdm ; extra == 'progress'
Provides-Extra: pyvista
Requires-Dist: pyvista ; extra == 'pyvista'
Description-Content-Type: text/markdown

"""
WHEEL = """\
Wheel-Version: 1.0
Generator: build_wheel.py
Root-Is-Purelib: false
Tag: py3-none-{platform}
"""


def platform_tag(name):
    """The tag of this machine: the C library that the wheel needs at least is the one here."""
    if name != "linux":
        return name
    major, minor = os.confstr("CS_GNU_LIBC_VERSION").split()[1].split(".")[:2]
    return f"manylinux_{major}_{minor}_{platform.machine()}"


def contents(library, version, tag):
    """The files of the wheel by name, without the list of them."""
    files = {
        f"kvocaeio/{path.name}": path.read_bytes()
        for path in sorted((PYTHON / "kvocaeio").iterdir())
        if path.suffix == ".py" or path.name == "py.typed"
    }
    files["kvocaeio/_version.py"] = version_module(version).encode()
    name = "KVOCAEIO.dll" if library.suffix == ".dll" else "libKVOCAEIO.so"
    files[f"kvocaeio/{name}"] = library.read_bytes()
    info = f"kvocaeio-{version}.dist-info"
    description = (PYTHON / "README.md").read_text(encoding="utf-8")
    files[f"{info}/METADATA"] = (METADATA.format(version=version) + description).encode()
    files[f"{info}/WHEEL"] = WHEEL.format(platform=tag).encode()
    files[f"{info}/LICENSE"] = (ROOT / "LICENSE").read_bytes()
    # The DLL holds the runtime of its compiler.
    notices = ("mingw-w64.txt", "gcc-runtime.txt") if library.suffix == ".dll" else ()
    for notice in notices:
        files[f"{info}/{notice}"] = (ROOT / "notices" / notice).read_bytes()
    return files, info


def version_module(version):
    return f'"""The version of the library that the module belongs to."""\nVERSION = "{version}"\n'


def record(files, info):
    """The list of the files with their checksums, as an installer wants it."""
    lines = []
    for name, content in files.items():
        digest = base64.urlsafe_b64encode(hashlib.sha256(content).digest()).rstrip(b"=").decode()
        lines.append(f"{name},sha256={digest},{len(content)}\n")
    return "".join(lines) + f"{info}/RECORD,,\n"


def main(library, version, platform_name, output):
    tag = platform_tag(platform_name)
    files, info = contents(Path(library), version, tag)
    files[f"{info}/RECORD"] = record(files, info).encode()
    wheel = Path(output) / f"kvocaeio-{version}-py3-none-{tag}.whl"
    wheel.parent.mkdir(parents=True, exist_ok=True)
    with zipfile.ZipFile(wheel, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, content in files.items():
            entry = zipfile.ZipInfo(name, (1980, 1, 1, 0, 0, 0))
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o100644 << 16
            archive.writestr(entry, content)
            path = wheel.parent / "tree" / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content)
    print(wheel)


if __name__ == "__main__":
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    main(*sys.argv[1:])
