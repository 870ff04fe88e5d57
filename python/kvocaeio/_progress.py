"""Following and stopping an import."""
from __future__ import annotations

import signal
import threading
from contextlib import suppress
from types import FrameType, TracebackType
from typing import Any, Callable, Union

from . import _abi

#: Called with the bytes that have been read and how many there will be at most. `False` stops.
Progress = Callable[[int, int], Any]


def _bar() -> Any:
    """A bar of tqdm, or None where that is not installed."""
    try:
        from tqdm import tqdm
    except ImportError:
        return None
    return tqdm(unit="B", unit_scale=True, unit_divisor=1024)


class Watch:
    """Calls the progress function during an import, and stops the import at Ctrl-C.

    Used as a context around the import. On the way out, what has stopped the import is raised
    again: an exception of the progress function, or what Ctrl-C does in the program.
    """

    def __init__(self, progress: Union[Progress, bool, None]) -> None:
        self._progress: Progress | None = None
        self._bar: Any = None
        if progress is True:
            self._bar = _bar()
            self._progress = self._move_bar if self._bar is not None else None
        elif progress:
            self._progress = progress
        self._error: BaseException | None = None
        self._interrupt: tuple[int, FrameType | None] | None = None
        self._previous: Any = None

    def __enter__(self) -> Any:
        """Returns what the C interface calls, which may be a null pointer."""
        # Handlers run between two steps of Python code, where one that raises would do so outside
        # of every `try` of the function that the library calls. So the handler waits until the
        # import is over. Only the main thread may set handlers, and only there they run.
        if threading.current_thread() is threading.main_thread():
            previous = signal.getsignal(signal.SIGINT)
            if callable(previous):
                with suppress(ValueError):  # in an interpreter beside the main one
                    signal.signal(signal.SIGINT, self._note_interrupt)
                    self._previous = previous
        if self._progress or self._previous:
            return _abi.Progress(self._on_block)
        return _abi.Progress(0)

    def _note_interrupt(self, number: int, frame: FrameType | None) -> None:
        self._interrupt = (number, frame)

    def _move_bar(self, done: int, total: int) -> None:
        self._bar.total = total
        self._bar.update(done - self._bar.n)

    def _on_block(self, user: object, done: int, total: int) -> int:
        if self._interrupt:
            return 1
        if not self._progress or self._error:
            return 0
        try:
            return int(self._progress(done, total) is False)
        except BaseException as error:
            self._error = error
            return 1

    def __exit__(
        self,
        kind: type[BaseException] | None,
        error: BaseException | None,
        trace: TracebackType | None,
    ) -> None:
        if self._bar is not None:
            self._bar.close()
        if self._previous:
            signal.signal(signal.SIGINT, self._previous)
        if self._error:
            raise self._error
        if self._interrupt:
            self._previous(*self._interrupt)
