#!/usr/bin/env python3
"""Measures the Python module on one file.

usage: python_module.py read FILE       processor time of one read and peak memory
       python_module.py threads FILE    seconds for four reads, in a loop and by pools of threads
"""
import resource
import sys
import time


def peak():
    """The peak memory of the process, in bytes."""
    return resource.getrusage(resource.RUSAGE_SELF).ru_maxrss * 1024


def read(path):
    import numpy  # noqa: F401

    start = peak()
    import kvocaeio

    seconds = time.process_time()
    model = kvocaeio.read(path)
    arrays = [model.points, model.node_oids]
    arrays += [array for s in model.sections for array in (s.oids, s.connectivity)]
    seconds = time.process_time() - seconds
    print(f"cpu={seconds} peak={peak()} start={start} arrays={sum(a.nbytes for a in arrays)}")


def threads(path):
    from concurrent.futures import ThreadPoolExecutor

    import kvocaeio

    def loop():
        for _ in range(4):
            kvocaeio.read(path).close()

    def pool(number):
        with ThreadPoolExecutor(number) as workers:
            for model in workers.map(kvocaeio.read, [path] * 4):
                model.close()

    def seconds(work, *arguments):
        begin = time.perf_counter()
        work(*arguments)
        return time.perf_counter() - begin

    loop()
    one, two, four = (seconds(pool, number) for number in (1, 2, 4))
    print(f"loop={seconds(loop)} one={one} two={two} four={four}")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    {"read": read, "threads": threads}[sys.argv[1]](sys.argv[2])
