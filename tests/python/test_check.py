"""Checks: the findings, and their tables."""
import pickle

import pandas
import pytest
from conftest import SOURCE

import kvocaeio

CUT = """\
*NODE
1, 0.0, 0.0, 0.0
2, 1.0, 0.0, 0.0
3, O.0, 1.0, 0.0
4, 0.0, 0.0, l.0
*ELEMENT, TYPE=C3D4, ELSET=BODY
1, 1, 2, 3, 4
"""


@pytest.fixture
def cut(tmp_path):
    path = tmp_path / "cut.inp"
    path.write_text(CUT)
    return path


def test_a_finding_tells_what_where_and_how_often(cut):
    finding = kvocaeio.check(cut)[0]
    assert finding.severity == "error"
    assert finding.code == "abaqus.node-cut-short"
    assert (finding.line, finding.column, finding.count) == (4, 4, 2)
    assert finding.text == "the reading of a node ends at O.0: coordinates are 0 from there on"
    assert finding.advice == "Write four numbers with commas between them"
    assert [(p.line, p.column) for p in finding.places] == [(4, 4), (5, 14)]
    assert str(finding) == (
        f"{cut}:4:4: error: the reading of a node ends at O.0: coordinates are 0 from there on "
        "(2 times) [abaqus.node-cut-short]"
    )


def test_findings_are_counted(cut):
    findings = kvocaeio.check(cut)
    assert findings.total("error") == 2
    assert findings.total("abaqus.node-cut-short") == 2
    assert findings.total("abaqus.part") == 0
    assert findings.counts["nodes"] == 4
    assert findings.failure is None
    assert repr(findings) == "<kvocaeio.Findings: 2 errors, 1 warning>"


def test_a_deck_is_normalised_for_a_check(brick):
    assert "abaqus.sections-merged" in [finding.code for finding in kvocaeio.check(brick)]


def test_a_clean_deck_has_no_findings(brick):
    model = kvocaeio.read(brick, report=True)
    assert list(model.findings) == []
    assert repr(model.findings) == "<kvocaeio.Findings: none>"


def test_normalising_adds_to_the_findings(brick):
    model = kvocaeio.read(brick, report=True)
    assert len(model.findings) == 0
    model.normalise()
    assert [f.code for f in model.findings] == ["abaqus.sections-merged"]
    assert kvocaeio.read(brick).findings is None


def test_findings_become_a_table(cut):
    table = kvocaeio.check(cut).to_dataframe()
    assert isinstance(table, pandas.DataFrame)
    assert list(table.columns) == [
        "file", "line", "column", "severity", "code", "text", "advice", "count",
    ]  # fmt: skip
    assert table.severity.tolist() == ["error", "warning"]
    assert table["count"].tolist() == [2, 1]
    assert kvocaeio.check(cut).to_records()[0]["file"] == str(cut)


def test_a_table_of_nothing_has_its_columns(brick):
    assert len(kvocaeio.read(brick, report=True).findings.to_dataframe().columns) == 8


def test_findings_and_exceptions_travel_between_processes(cut):
    findings = kvocaeio.check(cut)
    assert pickle.loads(pickle.dumps(findings)) == findings
    with pytest.raises(kvocaeio.Error) as caught:
        kvocaeio.read(cut.parent / "none.inp")
    again = pickle.loads(pickle.dumps(caught.value))
    assert type(again) is kvocaeio.MissingFileError
    assert str(again) == str(caught.value)


def test_a_file_that_does_not_open_has_the_finding_that_says_why(tmp_path):
    path = tmp_path / "points.bdf"
    path.write_text("BEGIN BULK\nGRID    1               1.      2.      3.\nENDDATA\n")
    findings = kvocaeio.check(path)
    assert findings.failure in list(findings)
    assert findings.failure.severity == "error"
    assert repr(findings).endswith(", did not open>")


def test_a_file_of_no_known_format_raises(tmp_path):
    path = tmp_path / "letter.inp"
    path.write_text("Dear Sir,\n")
    with pytest.raises(kvocaeio.UnknownFormatError):
        kvocaeio.check(path)


def test_a_tidied_deck_has_other_findings(cut):
    deck = cut.with_name("exponents.bdf")
    deck.write_text(
        "BEGIN BULK\nGRID,1,,0.,0.,0.\nGRID,2,,1.,0.,0.\nGRID,3,,0.,1.,0.\nGRID,4,,0.,0.,1.+0\n"
        "CTETRA,1,1,1,2,3,4\nENDDATA\n"
    )
    model = kvocaeio.read(deck, tidy=True, report=True)
    assert model.is_tidied
    assert model.points[3].tolist() == [0, 0, 1]
    assert all(finding.severity == "note" for finding in model.findings)


def test_the_fuzz_corpora_leave_a_usable_process(brick):
    files = [path for path in (SOURCE / "tests/fuzz/corpus").rglob("*") if path.is_file()]
    assert len(files) > 50
    for path in files:
        for format in ("abaqus", "nastran", "patran", "3di"):
            try:
                with kvocaeio.read(path, format=format, report=True) as model:
                    repr(model)
            except kvocaeio.Error as error:
                assert error.reason
    assert len(kvocaeio.read(brick).points) == 9


def test_files_of_a_folder_are_found_by_name_and_content(tmp_path, brick):
    (tmp_path / "b").mkdir()
    (tmp_path / "b" / "deck.txt").write_text(brick.read_text())
    (tmp_path / "b" / "broken.nas").write_text("Dear Sir,\n")
    (tmp_path / "a.txt").write_text("Dear Sir,\n")
    found = [path.relative_to(tmp_path).as_posix() for path in kvocaeio.find_files(tmp_path)]
    assert found == ["brick.inp", "b/broken.nas", "b/deck.txt"]
    with pytest.raises(FileNotFoundError):
        list(kvocaeio.find_files(tmp_path / "none"))
