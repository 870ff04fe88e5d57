"""`python -m kvocaeio check DIR`: what of all files of a folder is lost or changed when read."""
from __future__ import annotations

import argparse
import csv
import io
import os
import sys
from collections import deque
from concurrent.futures import Future, ThreadPoolExecutor
from pathlib import Path
from typing import Iterator

from . import __version__, _abi
from ._errors import Error
from ._findings import Finding, Findings, counted
from ._reading import check, find_files

_CANNOT_BE_READ = 3
_INTERRUPTED = 130  # as a shell has it


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


def _checked(paths: Iterator[Path], tidy: bool, jobs: int) -> Iterator[Findings]:
    """The findings of each file, in order. No more files are taken than are soon to be read."""
    with ThreadPoolExecutor(jobs) as pool:
        waiting: deque[Future[Findings]] = deque()
        try:
            for path in paths:
                waiting.append(pool.submit(_check, path, tidy))
                if len(waiting) > 4 * jobs:
                    yield waiting.popleft().result()
            while waiting:
                yield waiting.popleft().result()
        finally:
            pool.shutdown(wait=False, cancel_futures=True)


class _Totals:
    """What has been found in all files."""

    def __init__(self) -> None:
        self.found = dict.fromkeys(reversed(_abi.SEVERITIES), 0)
        self.files = 0
        self.failed = 0

    def add(self, findings: Findings) -> None:
        self.files += 1
        self.failed += findings.failure is not None
        for severity in self.found:
            self.found[severity] += findings.total(severity)

    def exit_code(self) -> int:
        if self.failed:
            return _CANNOT_BE_READ
        return 2 if self.found["error"] else 1 if self.found["warning"] else 0

    def __str__(self) -> str:
        found = ", ".join(counted(n, severity) for severity, n in self.found.items() if n)
        return f"{found or 'no findings'} in {counted(self.files, 'file')}"


def _run(arguments: argparse.Namespace) -> int:
    least = _abi.SEVERITIES.index(arguments.min_severity)
    totals = _Totals()
    rows = []
    for findings in _checked(_files(arguments.paths), arguments.tidy, max(1, arguments.jobs)):
        totals.add(findings)
        shown = tuple(f for f in findings if _abi.SEVERITIES.index(f.severity) >= least)
        if arguments.csv:
            rows += Findings(shown, None, {}).to_records()
        else:
            print("".join(f"{finding}\n" for finding in shown), end="")
    if arguments.csv:
        with open(
            arguments.csv, "w", newline="", encoding="utf-8", errors="backslashreplace"
        ) as out:
            table = csv.DictWriter(out, Findings.columns)
            table.writeheader()
            table.writerows(rows)
    print(totals)
    return totals.exit_code()


def main() -> int:
    """Runs the command line and returns the exit code."""
    arguments = _arguments().parse_args()
    if isinstance(sys.stdout, io.TextIOWrapper):
        sys.stdout.reconfigure(errors="backslashreplace")  # names of files may be no text
    try:
        return _run(arguments)
    except KeyboardInterrupt:
        return _INTERRUPTED
    except OSError as error:  # a folder, or the table
        print(f"kvocaeio: {error}", file=sys.stderr)
        return _CANNOT_BE_READ


if __name__ == "__main__":
    sys.exit(main())
