#!/usr/bin/env python3
"""Checks all files of an archive with Dask, and writes what is found into one table.

usage: archive.py FOLDER TABLE [SCHEDULER]

TABLE ends in .parquet or .csv. Without SCHEDULER, all cores of this machine are used; otherwise it
is the address of a Dask scheduler, such as tcp://host:8786, whose workers see the same FOLDER and
have kvocaeio installed. Needs dask and pandas; pyarrow or fastparquet for .parquet; distributed for
SCHEDULER.
"""
import sys

import dask
import dask.bag
import pandas

import kvocaeio


def check(path):
    """The rows of one file. A file that cannot be read is a row as well."""
    try:
        return kvocaeio.check(path).to_records()
    except kvocaeio.Error as error:
        return [{"file": path, "severity": "error", "code": "file.not-read", "text": error.reason}]


def main(folder, table, scheduler=None):
    if scheduler:
        from dask.distributed import Client

        Client(scheduler)
    else:
        dask.config.set(scheduler="threads")  # which is enough: imports run side by side
    files = [str(path) for path in kvocaeio.find_files(folder)]
    rows = dask.bag.from_sequence(files, npartitions=max(1, len(files) // 50)).map(check)
    columns = list(kvocaeio.Findings.columns)
    frame = pandas.DataFrame(rows.flatten().compute() if files else [], columns=columns)
    frame = frame.astype({name: "Int64" for name in ("line", "column", "count")})
    if table.endswith(".parquet"):
        frame.to_parquet(table, index=False)
    else:
        frame.to_csv(table, index=False)
    print(f"{len(frame)} findings in {len(files)} files: {table}")


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    main(*sys.argv[1:])
