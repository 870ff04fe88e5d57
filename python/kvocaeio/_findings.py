"""What is noticed while a file is read."""
from __future__ import annotations

import ctypes
from dataclasses import dataclass, field
from typing import TYPE_CHECKING, Any, ClassVar, Iterator, Sequence, overload

from . import _abi
from ._library import Report, lib, path_of, require, text_of

if TYPE_CHECKING:
    import pandas


@dataclass(frozen=True)
class Place:
    """One place of a finding."""

    #: Path of the file.
    file: str
    #: Line, from 1; 0 where no line is concerned.
    line: int
    #: Column in bytes, from 1; 0 where no field is concerned.
    column: int
    #: The line or field as it stands in the file, or what else names the place.
    text: str


@dataclass(frozen=True)
class Finding:
    """What is lost or changed of a file when it is read. Equal findings are one."""

    #: "note", "warning" or "error".
    severity: str
    #: The stable code in words, such as "nastran.exponent-torn".
    code: str
    #: What was found, in a sentence without a full stop.
    text: str
    #: What to do about it, likewise; empty where nothing helps.
    advice: str
    #: Path of the file.
    file: str
    #: Line of the first place, from 1; 0 where no line is concerned.
    line: int
    #: Column of the first place, in bytes from 1; 0 where no field is concerned.
    column: int
    #: How often it was found.
    count: int
    #: The first places, at most eight.
    places: tuple[Place, ...] = field(repr=False)

    def __str__(self) -> str:
        """A line as compilers write it, so that editors jump to the place."""
        place = "".join(f":{number}" for number in (self.line, self.column) if number)
        more = f" ({self.count} times)" if self.count > 1 else ""
        return f"{self.file}{place}: {self.severity}: {self.text}{more} [{self.code}]"


def counted(count: int, thing: str) -> str:
    """ "1 error", "2 errors"."""
    return f"{count} {thing}" if count == 1 else f"{count} {thing}s"


@dataclass(frozen=True)
class Findings(Sequence[Finding]):
    """The findings of a file, in the order in which they were first noticed."""

    #: The findings.
    items: tuple[Finding, ...]
    #: The one that says why the file did not open; None where it opened.
    failure: Finding | None
    #: What was read: numbers by names such as "nodes" or "element sections".
    counts: dict[str, int]
    #: The columns of `to_records` and `to_dataframe`.
    columns: ClassVar[tuple[str, ...]] = (
        "file",
        "line",
        "column",
        "severity",
        "code",
        "text",
        "advice",
        "count",
    )

    @overload
    def __getitem__(self, index: int) -> Finding: ...
    @overload
    def __getitem__(self, index: slice) -> Sequence[Finding]: ...
    def __getitem__(self, index: int | slice) -> Finding | Sequence[Finding]:
        return self.items[index]

    def __len__(self) -> int:
        return len(self.items)

    def __iter__(self) -> Iterator[Finding]:
        return iter(self.items)

    def __repr__(self) -> str:
        parts = [counted(self.total(s), s) for s in reversed(_abi.SEVERITIES) if self.total(s)]
        failed = ", did not open" if self.failure else ""
        return f"<kvocaeio.Findings: {', '.join(parts) or 'none'}{failed}>"

    def total(self, name: str) -> int:
        """Returns how often findings of a severity ("error") or of a code were found."""
        return sum(f.count for f in self.items if name in (f.severity, f.code))

    def to_records(self) -> list[dict[str, Any]]:
        """Returns the findings as rows of a table, dictionaries with the same keys."""
        return [{column: getattr(f, column) for column in self.columns} for f in self.items]

    def to_dataframe(self) -> pandas.DataFrame:
        """Returns the findings as a table of pandas, which must be installed."""
        import pandas

        return pandas.DataFrame(self.to_records(), columns=list(self.columns))


def _finding(raw: _abi.Finding, places: tuple[Place, ...]) -> Finding:
    return Finding(
        severity=_abi.SEVERITIES[raw.severity],
        code=text_of(raw.code),
        text=text_of(raw.text),
        advice=text_of(raw.advice),
        file=path_of(raw.file),
        line=raw.line,
        column=raw.column,
        count=raw.count,
        places=places,
    )


def _place(report: Report, index: int, place_index: int) -> Place:
    raw = _abi.Place()
    require(lib.report_place(report.pointer, index, place_index, ctypes.byref(raw)))
    return Place(path_of(raw.file), raw.line, raw.column, text_of(raw.text))


def _finding_at(report: Report, index: int) -> Finding:
    raw = _abi.Finding()
    require(lib.report_finding(report.pointer, index, ctypes.byref(raw)))
    return _finding(raw, tuple(_place(report, index, i) for i in range(raw.place_count)))


def _counts(report: Report) -> Iterator[tuple[str, int]]:
    for index in range(lib.report_count_count(report.pointer)):
        raw = _abi.Count()
        require(lib.report_count(report.pointer, index, ctypes.byref(raw)))
        yield text_of(raw.name), raw.count


def findings_of(report: Report) -> Findings:
    """All that a report holds."""
    raw = _abi.Finding()
    failed = lib.report_failure(report.pointer, ctypes.byref(raw))
    count = lib.report_finding_count(report.pointer)
    items = tuple(_finding_at(report, i) for i in range(count))
    failure = None
    if failed:
        failure = next((f for f in items if f == _finding(raw, f.places)), _finding(raw, ()))
    return Findings(items, failure, dict(_counts(report)))
