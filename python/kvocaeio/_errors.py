"""The exceptions of the module."""
from __future__ import annotations

import os


class Error(Exception):
    """A file could not be read or written. The message tells the file, the line and the reason."""

    #: Why, in a sentence without a full stop.
    reason: str
    #: Path of the file that the reason concerns; empty where it concerns none.
    path: str
    #: Line of that file, from 1; 0 where the reason concerns no line.
    line: int

    def __init__(self, reason: str, path: str = "", line: int = 0) -> None:
        """Takes what the attributes of the same names then hold."""
        super().__init__(reason)
        self.reason = reason
        self.path = path
        self.line = line

    def __str__(self) -> str:
        place = self.path + (f":{self.line}" if self.line else "")
        return f"{place}: {self.reason}" if place else self.reason

    def __reduce__(self) -> tuple[type[Error], tuple[str, str, int]]:
        return type(self), (self.reason, self.path, self.line)


class StoppedError(Error):
    """The progress function has stopped the import."""


class ArgumentError(Error, ValueError):
    """Arrays that are to be written contradict each other, or an argument makes no sense."""


class CannotOpenError(Error, OSError):
    """A file cannot be opened."""


class MissingFileError(CannotOpenError, FileNotFoundError):
    """There is no file of that name."""


class UnknownFormatError(Error, ValueError):
    """The content of a file is of no format that is known."""


class NotReadError(Error):
    """Nothing that makes a model is in a file."""


class NotTidiedError(Error):
    """A deck cannot be tidied."""


class NotNormalisedError(Error):
    """A mesh cannot be normalised."""


class CannotWriteError(Error, OSError):
    """A file cannot be written, or not completely."""


class NoSuchTableError(Error, AttributeError):
    """Models of this format have no such table."""


class InternalError(Error):
    """An error of the library that no other exception describes."""


# By the status of the C interface; 0 is success and 2 an ordinary MemoryError.
_BY_STATUS: dict[int, type[Error]] = {
    1: StoppedError,
    3: ArgumentError,
    4: CannotOpenError,
    5: UnknownFormatError,
    6: NotReadError,
    7: NotTidiedError,
    8: NotNormalisedError,
    9: CannotWriteError,
    10: NoSuchTableError,
}
_OUT_OF_MEMORY = 2


def exception_for(status: int, reason: str, path: str, line: int) -> Exception:
    """The exception for a call that has failed with `status`."""
    if status == _OUT_OF_MEMORY:
        return MemoryError(reason)
    kind = _BY_STATUS.get(status, InternalError)
    if kind is CannotOpenError and path and not os.path.lexists(path):
        kind = MissingFileError
    return kind(reason, path, line)
