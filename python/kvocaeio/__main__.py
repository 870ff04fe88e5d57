"""`python -m kvocaeio check DIR`: what of all files of a folder is lost or changed when read."""
from __future__ import annotations

import argparse
import csv
import io
import os
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from typing import Iterator

from . import __version__, _abi
from ._errors import Error
from ._findings import Finding, Findings, counted
from ._reading import check, find_files

_CANNOT_BE_READ = 3


def _arguments() -> argparse.ArgumentParser:
    parser = argparse.ArgumentParser(prog="python -m kvocaeio", description=__doc__)
    parser.add_argument("--version", action="version", version=f"kvocaeio {__version__}")
    commands = parser.add_subparsers(dest="command", required=True)
    command = commands.add_parser(
        "check",
        help="list what is lost or changed when files are read",
        description="Writes a line for each finding, as compilers do. The exit code is 0 without "
        "findings or with notes alone, 1 with warnings, 2 with errors, and 3 where a file could "
        "not be read.",
    )
    command.add_argument("paths", nargs="+", type=Path, help="files, and folders to walk")
    command.add_argument("--tidy", action="store_true", help="tidy decks before they are read")
    cores = os.cpu_count() or 1
    command.add_argument(
        "--jobs", type=int, default=cores, help="files at a time (default: %(default)s)"
    )
    command.add_argument(
        "--min-severity", choices=_abi.SEVERITIES, default="note", help="what is listed"
    )
    command.add_argument("--csv", type=Path, help="write the findings to this table instead")
    return parser


def _files(paths: list[Path]) -> Iterator[Path]:
    for path in paths:
        if path.is_dir():
            yield from find_files(path)
        else:
            yield path


def _check(path: Path, tidy: bool) -> Findings:
    """The findings of a file. A failure without a finding is made one."""
    try:
        return check(path, tidy=tidy)
    except (Error, MemoryError) as error:
        reason = error.reason if isinstance(error, Error) else "there is not enough memory"
        failure = Finding("error", "file.not-read", reason, "", str(path), 0, 0, 1, ())
        return Findings((failure,), failure, {})


def main() -> int:
    """Runs the command line and returns the exit code."""
    arguments = _arguments().parse_args()
    if isinstance(sys.stdout, io.TextIOWrapper):
        sys.stdout.reconfigure(errors="backslashreplace")  # names of files may be no text
    least = _abi.SEVERITIES.index(arguments.min_severity)
    totals = dict.fromkeys(reversed(_abi.SEVERITIES), 0)
    files = failed = 0
    rows = []
    with ThreadPoolExecutor(max(1, arguments.jobs)) as pool:
        results = pool.map(lambda path: _check(path, arguments.tidy), _files(arguments.paths))
        for findings in results:
            files += 1
            failed += findings.failure is not None
            for severity in totals:
                totals[severity] += findings.total(severity)
            shown = [f for f in findings if _abi.SEVERITIES.index(f.severity) >= least]
            if arguments.csv:
                rows += Findings(tuple(shown), None, {}).to_records()
            else:
                print("".join(f"{finding}\n" for finding in shown), end="")
    if arguments.csv:
        with open(arguments.csv, "w", newline="", encoding="utf-8", errors="backslashreplace") as out:
            table = csv.DictWriter(out, Findings.columns)
            table.writeheader()
            table.writerows(rows)
    found = ", ".join(counted(n, severity) for severity, n in totals.items() if n)
    print(f"{found or 'no findings'} in {counted(files, 'file')}")
    if failed:
        return _CANNOT_BE_READ
    return 2 if totals["error"] else 1 if totals["warning"] else 0


if __name__ == "__main__":
    sys.exit(main())
