"""Workbooks of the Structural Analysis Format, written here by hand."""

import csv
import os
import subprocess
import sys

import pytest

import kestrum

openpyxl = pytest.importorskip("openpyxl")

SHEETS = {
    "StructuralMaterial": [
        ("Name", "Type", "Quality"), ("M1", "Steel", "S355"), ("M2", "Concrete", "C20/25"), ("M3", "Steel", "S999")],
    "StructuralCrossSection": [
        ("Name", "Material", "Cross-section Type", "Shape", "Profile"),
        ("CS1", "M1", "Manufactured", None, "HEB200"), ("CS2", "M2", "Parametric", "Rectangle", None),
        ("CS3", "M1", "Manufactured", None, "XYZ 12"), ("CS4", "M3", "Manufactured", None, "IPE 300"),
        ("CS5", "M1", "Parametric", "I section", None)],
    "StructuralCurveMember": [
        ("Name", "Cross section", "Length [m]", "Geometrical shape"),
        ("C1", "CS1", 3.5, "Line"), ("C2", "CS2", 3.5, "Line"), ("C3", "CS3", 3.5, "Line"), ("C4", "CS4", 3.5, "Line"),
        ("C5", "CS5", 3.5, "Line"), ("C6", "CS1", 0, "Circular Arc"), ("C7", "CS1", None, "Line"),
        ("C1", "CS1", 4, "Line"), (None, "CS1", 4, "Line"), (None, None, None, None), ("C9", "CS9", 4, "Line")],
    "ResultInternalForce1D": [
        ("Member", "Load case", "Load combination", "Section at [m]", "Index", "N [kN]", "Vy [kN]", "Vz [kN]",
         "Mx [kNm]", "My [kNm]", "Mz [kNm]"),
        ("C1", None, "U1", 3.5, 3, -100, 0, -5, 0, 0, 0), ("C1", None, "U1", 1.75, 2, -100, 0, -5, 0, 4, 0),
        ("C1", None, "U1", 1.75, 1, -100, 0, 5, 0, 4, 0), ("C1", None, "U1", 0, 0, -100, 0, 5, 0, 0, 0),
        ("C1", "LC1", None, 0, 0, "much", 0, 5, 0, 0, 0), ("X9", None, "U1", 0, 0, 1, 0, 0, 0, 0, 0)],
}


def workbook(path, **changed):
    book = openpyxl.Workbook()
    for title, rows in {**SHEETS, **changed}.items():
        sheet = book.create_sheet(title)
        for row in rows:
            sheet.append(row)
    book.save(path)
    return path


def test_members_and_forces_are_read_and_the_rest_is_listed(tmp_path):
    model = kestrum.saf.read(workbook(tmp_path / "model.xlsx"))
    assert list(model.members["member"]) == ["C1"]
    assert (model.members["section"][0], model.members["steel"][0], model.members["l"][0]) == ("HEB 200", "S355", 3.5)
    # Tension is positive there, compression here; sorted by place, the left side of a jump first.
    assert list(model.forces["N"]) == [100, 100, 100, 100]
    assert list(model.forces["x"]) == [0, 1.75, 1.75, 3.5]
    assert list(model.forces["Vz"]) == [5, 5, -5, -5]
    text = "\n".join(model.unmapped)
    for told in ("member C2: Concrete", "member C3: no section XYZ 12", "member C4: no steel S999",
                 "member C5: Parametric section I section", "member C6: Circular Arc", "member C7: length None",
                 "member C1: is there twice", "member None: row 10 has no name", "member C9: no cross section",
                 "row 6: a value is no number", "forces of X9"):
        assert told in text
    assert len(model.unmapped) == 11


def test_the_members_can_be_checked(tmp_path):
    model = kestrum.saf.read(workbook(tmp_path / "model.xlsx"))
    answers = kestrum.batch(model.members, base=kestrum.Member(nload=[500]))
    assert list(answers["member"]) == ["C1"] and answers["ir"][0] > 0


@pytest.mark.parametrize("sheet, heads", [
    ("StructuralCurveMember", ("Name", "Cross section", "Length [ft]")),
    ("StructuralCurveMember", ("Name", "Length [m]")),
    ("ResultInternalForce1D", ("Member", "Load case", "Section at [m]", "N [kip]")),
])
def test_other_units_and_missing_columns_are_refused(tmp_path, sheet, heads):
    with pytest.raises(kestrum.InputError) as refused:
        kestrum.saf.read(workbook(tmp_path / "model.xlsx", **{sheet: [heads]}))
    assert sheet in str(refused.value) and refused.value.column


def test_a_workbook_without_members_is_refused(tmp_path):
    openpyxl.Workbook().save(tmp_path / "empty.xlsx")
    with pytest.raises(kestrum.InputError, match="StructuralCurveMember"):
        kestrum.saf.read(tmp_path / "empty.xlsx")


def saf(*arguments, folder):
    return subprocess.run([sys.executable, "-m", "kestrum.saf", *map(str, arguments)], cwd=folder, capture_output=True,
                          text=True, check=False)


def test_the_command_writes_the_tables_of_envelope(tmp_path):
    workbook(tmp_path / "model.xlsx")
    said = saf("model.xlsx", "-o", "members.csv", "forces.csv", folder=tmp_path)
    assert said.returncode == 0
    assert said.stderr.count("\n") == 11 and "kestrum: model.xlsx: member C2: Concrete\n" in said.stderr
    with open(tmp_path / "members.csv", encoding="utf-8") as file:
        assert list(csv.reader(file)) == [["member", "section", "steel", "l"], ["C1", "HEB 200", "S355", "3.5"]]
    with open(tmp_path / "forces.csv", encoding="utf-8") as file:
        rows = list(csv.DictReader(file))
    assert [(row["case"], float(row["x"]), float(row["N"]), float(row["My"])) for row in rows] == [
        ("U1", 0, 100, 0), ("U1", 1.75, 100, 4), ("U1", 1.75, 100, 4), ("U1", 3.5, 100, 0)]
    program = os.path.join(os.environ["KESTRUM_BIN"], "kestrum")
    answers = subprocess.run([program, "envelope", "members.csv", "forces.csv", "--quiet"], cwd=tmp_path,
                             capture_output=True, text=True, check=True).stdout
    # The same as the same forces by hand: NEd/NRd and My of a straight line with its top in the middle.
    (tmp_path / "hand.csv").write_text("member,case,x,N,Vy,Vz,Mx,My,Mz\nC1,U1,0,100,0,5,0,0,0\n"
                                       "C1,U1,1.75,100,0,5,0,4,0\nC1,U1,1.75,100,0,-5,0,4,0\nC1,U1,3.5,100,0,-5,0,0,0\n")
    assert subprocess.run([program, "envelope", "members.csv", "hand.csv", "--quiet"], cwd=tmp_path,
                          capture_output=True, text=True, check=True).stdout == answers
    assert len(list(tmp_path.iterdir())) == 4


@pytest.mark.parametrize("prepare, arguments, told", [
    (lambda folder: None, ("none.xlsx", "-o", "m.csv", "f.csv"), "kestrum: none.xlsx: No such file"),
    (lambda folder: (folder / "a.xlsx").write_bytes(b"PK\3\4 no"), ("a.xlsx", "-o", "m.csv", "f.csv"), "kestrum: a.xlsx: "),
    (lambda folder: openpyxl.Workbook().save(folder / "a.xlsx"), ("a.xlsx", "-o", "m.csv", "f.csv"),
     "kestrum: a.xlsx: the workbook has no sheet StructuralCurveMember"),
    (lambda folder: workbook(folder / "a.xlsx", StructuralMaterial=[("Name", "Type", "Quality")]),
     ("a.xlsx", "-o", "m.csv", "f.csv"), "no straight steel member"),
    (lambda folder: workbook(folder / "a.xlsx"), ("a.xlsx", "-o", "m.csv", "m.csv"), "three files"),
    (lambda folder: workbook(folder / "a.xlsx"), ("a.xlsx", "-o", "no/m.csv", "f.csv"), "No such file or directory"),
])
def test_the_command_refuses(tmp_path, prepare, arguments, told):
    prepare(tmp_path)
    said = saf(*arguments, folder=tmp_path)
    assert said.returncode == 2 and told in said.stderr and "Traceback" not in said.stderr
    assert not list(tmp_path.glob("*.csv*"))
