"""`python -m kvocaeio`, and the example that checks an archive on many cores."""
import csv
import os
import signal
import subprocess
import sys

import pytest
from conftest import SOURCE
from test_check import CUT

import kvocaeio


def run(*arguments):
    command = [sys.executable, *map(str, arguments)]
    return subprocess.run(command, capture_output=True, text=True, timeout=60)


@pytest.fixture
def archive(tmp_path, brick):
    folder = tmp_path / "archive"
    (folder / "old").mkdir(parents=True)
    brick.rename(folder / "brick.inp")
    (folder / "old" / "cut.inp").write_text(CUT)
    (folder / "letter.txt").write_text("Dear Sir,\n")
    return folder


def test_a_folder_is_checked(archive):
    result = run("-m", "kvocaeio", "check", archive)
    assert result.returncode == 2
    lines = result.stdout.splitlines()
    assert lines[0].startswith(f"{archive}/brick.inp: warning: ")
    assert lines[1].startswith(f"{archive}/old/cut.inp:4:4: error: ")
    assert lines[-1] == "2 errors, 2 warnings in 2 files"
    assert result.stderr == ""


def test_names_that_are_no_text_are_listed(tmp_path):
    (tmp_path / os.fsdecode(b"\xfc.inp")).write_text(CUT)
    result = run("-m", "kvocaeio", "check", tmp_path)
    assert (result.returncode, result.stderr) == (2, "")
    assert "/\\udcfc.inp:4:4: error: " in result.stdout


def test_ctrl_c_ends_a_check(tmp_path, large):
    folder = tmp_path / "archive"
    folder.mkdir()
    for i in range(300):
        os.link(large, folder / f"{i}.inp")
    command = [sys.executable, "-u", "-m", "kvocaeio", "check", "--jobs", "1", folder]
    with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
        process.stdout.readline()
        process.send_signal(signal.SIGINT)
        output, errors = process.communicate(timeout=60)
    assert (process.returncode, errors) == (130, b"")
    assert len(output.splitlines()) < 200


def test_less_is_listed_with_a_severity(archive):
    result = run("-m", "kvocaeio", "check", "--min-severity", "error", archive)
    assert len(result.stdout.splitlines()) == 2
    assert result.stdout.endswith("2 errors, 2 warnings in 2 files\n")


def test_findings_are_written_as_a_table(archive, tmp_path):
    table = tmp_path / "findings.csv"
    result = run("-m", "kvocaeio", "check", "--csv", table, "--jobs", "1", archive)
    assert result.stdout == "2 errors, 2 warnings in 2 files\n"
    with open(table, newline="") as file:
        rows = list(csv.DictReader(file))
    assert [row["severity"] for row in rows] == ["warning", "error", "warning"]
    assert rows[1]["line"] == "4"


def test_exit_codes_tell_the_worst(archive):
    assert run("-m", "kvocaeio", "check", archive / "brick.inp").returncode == 1
    assert run("-m", "kvocaeio", "check", archive / "letter.txt").returncode == 3
    assert run("-m", "kvocaeio", "check", archive / "none.inp").returncode == 3
    no_table = run("-m", "kvocaeio", "check", "--csv", archive / "none" / "t.csv", archive)
    assert (no_table.returncode, no_table.stderr.count("\n")) == (3, 1)
    assert run("-m", "kvocaeio").returncode == 2
    assert run("-m", "kvocaeio", "--version").stdout == f"kvocaeio {kvocaeio.__version__}\n"


def test_the_example_writes_one_table_of_an_archive(archive, tmp_path):
    (archive / "old" / "letter.inp").write_text("Dear Sir,\n")
    table = tmp_path / "archive.csv"
    result = run(SOURCE / "examples/archive.py", archive, table)
    assert result.returncode == 0, result.stderr
    with open(table, newline="") as file:
        rows = list(csv.DictReader(file))
    assert [row["file"] for row in rows] == [
        str(archive / "brick.inp"),
        str(archive / "old/cut.inp"),
        str(archive / "old/cut.inp"),
        str(archive / "old/letter.inp"),
    ]
    assert (rows[1]["code"], rows[1]["line"]) == ("abaqus.node-cut-short", "4")
    assert (rows[3]["code"], rows[3]["line"]) == ("file.not-read", "")
