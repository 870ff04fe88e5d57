"""Imports that are followed and stopped, and what other threads do meanwhile."""
import os
import signal
import sys
import threading
from concurrent.futures import ThreadPoolExecutor

import numpy as np
import pytest

import kvocaeio


def test_progress_rises_to_the_end(large):
    calls = []
    kvocaeio.read(large, progress=lambda done, total: calls.append((done, total)))
    done = [d for d, _ in calls]
    assert len(calls) > 8
    assert done == sorted(done)
    assert all(d <= total for d, total in calls)
    assert done[-1] > 2 * large.stat().st_size - 300_000  # the deck is read twice


def test_false_stops(large):
    calls = []

    def stop(done, total):
        calls.append(done)
        return len(calls) < 3

    with pytest.raises(kvocaeio.StoppedError):
        kvocaeio.read(large, progress=stop)
    assert len(calls) == 3
    with pytest.raises(kvocaeio.StoppedError):
        kvocaeio.check(large, progress=stop)


def test_an_exception_stops_and_is_passed_on(large):
    class Enough(Exception):
        pass

    def stop(done, total):
        raise Enough(done)

    with pytest.raises(Enough):
        kvocaeio.read(large, progress=stop)


def test_an_import_can_be_stopped_at_every_block(large):
    total = []
    kvocaeio.read(large, progress=lambda *_: total.append(0))
    for block in range(len(total)):
        left = [block]

        def stop(done, total):
            left[0] -= 1
            return left[0] >= 0

        with pytest.raises(kvocaeio.StoppedError):
            kvocaeio.read(large, progress=stop)
    assert len(kvocaeio.read(large).points) == 100_000


def test_ctrl_c_stops_an_import(large):
    calls = []

    def interrupt(done, total):
        calls.append(done)
        os.kill(os.getpid(), signal.SIGINT)

    before = signal.getsignal(signal.SIGINT)
    with pytest.raises(KeyboardInterrupt):
        kvocaeio.read(large, progress=interrupt)
    assert len(calls) <= 2
    assert signal.getsignal(signal.SIGINT) is before


def test_ctrl_c_stops_an_import_that_nobody_follows(large):
    calls = []
    counting = kvocaeio._progress.Watch._on_block

    def interrupt(self, user, done, total):
        calls.append(done)
        if len(calls) == 1:
            os.kill(os.getpid(), signal.SIGINT)
        return counting(self, user, done, total)

    kvocaeio._progress.Watch._on_block = interrupt
    try:
        with pytest.raises(KeyboardInterrupt):
            kvocaeio.read(large)
    finally:
        kvocaeio._progress.Watch._on_block = counting
    assert len(calls) <= 2


def test_a_bar_of_tqdm(large, capsys):
    kvocaeio.read(large, progress=True)
    assert "B/s" in capsys.readouterr().err


def test_without_tqdm_there_is_no_bar(large, capsys, monkeypatch):
    monkeypatch.setitem(sys.modules, "tqdm", None)
    assert len(kvocaeio.read(large, progress=True).points) == 100_000
    assert capsys.readouterr().err == ""


def test_other_threads_run_during_an_import(large):
    """Without switches by time, another thread runs only where this one releases the lock."""
    ran = []
    gate = threading.Lock()
    gate.acquire()

    def wait():
        with gate:
            ran.append(True)

    thread = threading.Thread(target=wait)
    thread.start()
    interval = sys.getswitchinterval()
    sys.setswitchinterval(1000)
    try:
        gate.release()
        before = list(ran)
        for _ in range(100):
            kvocaeio.read(large)
            if ran:
                break
        during = list(ran)
    finally:
        sys.setswitchinterval(interval)
    thread.join()
    assert (before, during) == ([], [True])


def test_threads_read_side_by_side(data):
    files = [data / name for name in ("housing.inp", "bracket.bdf", "bracket.pat", "clip.inp")]
    alone = [kvocaeio.read(path).points.copy() for path in files]
    with ThreadPoolExecutor(4) as pool:
        models = list(pool.map(lambda i: kvocaeio.read(files[i % 4], report=True), range(80)))
    for i, model in enumerate(models):
        assert np.array_equal(model.points, alone[i % 4])


def test_threads_share_a_model(data):
    model = kvocaeio.read(data / "housing.inp", normalise=True)
    barrier = threading.Barrier(4)

    def cells(_):
        barrier.wait()
        return [section.cells.sum() for section in model.solids]

    with ThreadPoolExecutor(4) as pool:
        results = list(pool.map(cells, range(4)))
    assert all(result == results[0] for result in results)
