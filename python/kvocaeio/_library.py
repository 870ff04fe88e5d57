"""The loaded library: its functions, its failures, its texts and its arrays."""
from __future__ import annotations

import ctypes
import os
import sys
import threading
from pathlib import Path
from types import SimpleNamespace
from typing import TYPE_CHECKING, Any, Sequence, TypeVar, Union

import numpy as np

from . import _abi
from ._errors import ArgumentError, exception_for
from ._version import VERSION

if TYPE_CHECKING:
    from numpy.typing import NDArray

_Out = TypeVar("_Out", bound=Union[ctypes.Structure, ctypes.c_void_p, ctypes.c_size_t])


def _load() -> Any:
    """The functions by their names, without the common prefix."""
    name = "KVOCAEIO.dll" if sys.platform == "win32" else "libKVOCAEIO.so"
    # A wheel brings the library along; a package of the system depends on that of the library.
    bundled = Path(__file__).parent / name
    major, minor, _ = VERSION.split(".")
    library = ctypes.CDLL(str(bundled) if bundled.exists() else f"{name}.{major}.{minor}")
    functions = SimpleNamespace()
    for function, result, arguments in _abi.FUNCTIONS:
        entry = getattr(library, "kvocaeio_" + function)
        entry.restype = result
        entry.argtypes = arguments
        setattr(functions, function, entry)
    return functions


#: `lib.open` is `kvocaeio_open`, and so on. Calls release the interpreter's lock.
lib = _load()


def text_of(raw: bytes | None) -> str:
    r"""A text of the library. Bytes of a file that are no UTF-8 stand in it as "\xdf"."""
    return raw.decode("utf-8", "backslashreplace") if raw else ""


def path_of(raw: bytes | None) -> str:
    """A path of the library, as Python has it."""
    if not raw:
        return ""
    return raw.decode("utf-8", "replace") if sys.platform == "win32" else os.fsdecode(raw)


def path_bytes(path: str | os.PathLike[str]) -> bytes:
    """A path as the library takes it: UTF-8 on Windows, elsewhere the bytes of the system."""
    raw = os.fsdecode(path).encode("utf-8") if sys.platform == "win32" else os.fsencode(path)
    if b"\0" in raw:
        raise ValueError("a null character in a path")
    return raw


def require(status: int) -> None:
    """Raises the exception for a status that is not success."""
    if status != _abi.OK:
        raise exception_for(
            status, text_of(lib.error_text()), path_of(lib.error_file()), lib.error_line()
        )


class _Borrowed:
    """An array of the library as numpy takes it over; keeps its owner alive."""

    def __init__(self, owner: object, address: int, shape: tuple[int, ...], kind: str) -> None:
        self.owner = owner
        self.__array_interface__ = {
            "data": (address, True),
            "shape": shape,
            "typestr": kind,
            "version": 3,
        }


class Handle:
    """A model of the library, closed when the last array of it is gone."""

    def __init__(self, pointer: int) -> None:
        self._pointer = pointer
        self._lock = threading.Lock()  # a handle serves one thread at a time

    # The function is bound here because the module may be gone when the interpreter ends.
    def __del__(self, close: Any = lib.close) -> None:
        close(self._pointer)

    def call(self, function: Any, *arguments: Any) -> Any:
        """Calls a function of the library with the model first, and returns what that returns."""
        with self._lock:
            return function(self._pointer, *arguments)

    def fill(self, function: Any, out: _Out, *arguments: Any) -> _Out:
        """Has a function of the library set `out`, which it takes last, and returns that."""
        with self._lock:
            require(function(self._pointer, *arguments, ctypes.byref(out)))
        return out

    def array(self, address: int | None, shape: tuple[int, ...], dtype: Any) -> NDArray[Any]:
        """An array of the model, without a copy and read-only."""
        if not address or 0 in shape:
            empty = np.empty(shape, dtype)
            empty.flags.writeable = False
            return empty
        return np.asarray(_Borrowed(self, address, shape, np.dtype(dtype).str))


def texts_of(pointer: Any, count: int) -> list[str]:
    """An array of texts."""
    return [text_of(pointer[i]) for i in range(count)]


class Report:
    """A report of the library."""

    def __init__(self) -> None:
        pointer = ctypes.c_void_p()
        require(lib.report_create(ctypes.byref(pointer)))
        self.pointer = pointer.value

    def __del__(self, destroy: Any = lib.report_destroy) -> None:
        destroy(getattr(self, "pointer", None))


def index_of(name: str, names: Sequence[str], what: str) -> int:
    """The place of a name among `names`; raises ArgumentError for any other."""
    try:
        return names.index(name)
    except ValueError:
        known = ", ".join(names)
        raise ArgumentError(f"{what} {name!r} is none of {known}") from None


