"""Members under forces of another program: the worst cases are those of the command line and of each case alone."""

import csv
import io
import math
import os
import subprocess

import numpy
import pytest

import kestrum

pandas = pytest.importorskip("pandas")

FRAMES = os.path.join(os.environ["KESTRUM_SOURCE"], "examples", "frames")
TIE = 7808 * 0.235  # kN, an HEB 200 in tension, S235


def frame():
    return pandas.read_csv(os.path.join(FRAMES, "members.csv")), pandas.read_csv(os.path.join(FRAMES, "forces.csv"))


def ties(count=2):
    return {"member": [f"T{i}" for i in range(count)], "section": ["HEB 200"] * count, "steel": ["S235"] * count,
            "l": [4.0] * count}


def pulls(*loads):
    """A case with two stations for each (member, pull)."""
    rows = [(member, f"c{case}", x, -pull) for case, (member, pull) in enumerate(loads) for x in (0.0, 4.0)]
    return dict(zip(("member", "case", "x", "N"), (list(column) for column in zip(*rows))))


def test_a_frame_has_the_worst_cases_of_the_command_line():
    members, forces = frame()
    answers = kestrum.envelope(members, forces)
    done = subprocess.run([os.path.join(os.environ["KESTRUM_BIN"], "kestrum"), "envelope", "--quiet", "--exit-zero",
                           os.path.join(FRAMES, "members.csv"), os.path.join(FRAMES, "forces.csv")],
                          capture_output=True, text=True, check=True)
    lines = {line["member"]: line for line in csv.DictReader(io.StringIO(done.stdout))}
    assert len(lines) == len(answers) == 7
    for _, answer in answers.iterrows():
        line = lines[answer["id"]]
        for ours, theirs in (("verdict", "verdict"), ("check", "control"), ("clause", "clause"), ("case", "case"),
                             ("verdict_standard", "verdict_standard"), ("check_standard", "standard_check"),
                             ("clause_standard", "standard_clause"), ("case_standard", "case_standard")):
            assert answer[ours] == line[theirs]
        for name in ("ir", "ir_standard"):
            assert answer[name] == float(line[name])
        for name in ("x", "x_standard"):
            assert math.isnan(answer[name]) if line[name] == "" else numpy.float32(answer[name]) == numpy.float32(line[name])
        for name in ("cases", "above", "failed", "above_standard", "failed_standard"):
            assert answer[name] == int(line[name])
        assert answer["group"] in ("column", "beam", "brace")  # passed through


def test_a_tie_has_the_ratio_of_the_formula():
    answers = kestrum.envelope(ties(3), pulls(("T0", 100), ("T0", 2000), ("T1", 50), ("T0", 1900)))
    assert answers["ir"][:2] == pytest.approx([2000 / TIE, 50 / TIE], abs=1e-4)
    assert list(answers["case"]) == ["c1", "c2", None]
    assert list(answers["status"]) == ["above", "within", "not checked"]
    assert answers["message"][2] == "no forces"
    assert list(answers["above_standard"]) == [2, 0, 0]
    assert list(answers["cases"]) == [3, 1, 0]


def test_neither_order_nor_threads_nor_form_change_the_answer():
    members, forces = frame()
    answers = kestrum.envelope(members, forces, jobs=1)
    mixed = forces.sort_values("x", kind="stable")  # all members and cases mixed, the sides of a jump in their order
    pandas.testing.assert_frame_equal(answers, kestrum.envelope(members, mixed, jobs=4))
    numbers = dict(zip(members["id"], range(len(members))))
    coded = forces.assign(member=forces["member"].map(numbers), case=forces["case"].astype("category"))
    by_number = kestrum.envelope(members.drop(columns="id"), coded)
    assert list(by_number["ir"]) == list(answers["ir"]) and list(by_number["case"]) == list(answers["case"])
    named = kestrum.envelope(members.set_index("id"), forces)
    assert list(named.index) == list(members["id"]) and list(named["ir"]) == list(answers["ir"])
    plain = kestrum.envelope({key: list(members[key]) for key in members}, {key: list(forces[key]) for key in forces})
    assert list(plain["ir_standard"]) == list(answers["ir_standard"])
    other = forces.rename(columns=str.lower).assign(n=-forces["N"])
    assert list(kestrum.envelope(members, other, sign="tension+")["ir"]) == list(answers["ir"])


def test_numbers_may_be_texts():
    forces = pulls(("T0", 100))
    texts = {**forces, "N": [str(n) for n in forces["N"]]}
    assert list(kestrum.envelope(ties(), texts)["ir"][:1]) == list(kestrum.envelope(ties(), forces)["ir"][:1])


def test_one_member_is_enough():
    members, forces = frame()
    row = members.iloc[0]
    worst = kestrum.envelope(kestrum.Member({"section": row.section, "steel": row.steel, "l": row.l, "ltb": row.ltb,
                                             "restraints": row.restraints}), forces[forces.member == row.id])
    answers = kestrum.envelope(members, forces)
    assert worst["ir"] == answers["ir"][0] and worst["case"] == answers["case"][0]


def test_a_basis_alone_has_its_columns_alone():
    answers = kestrum.envelope(ties(), pulls(("T0", 100)), basis="standard")
    assert "ir" not in answers and answers["ir_standard"][0] == pytest.approx(100 / TIE, abs=1e-5)


@pytest.mark.parametrize("members, forces, row, column, words", [
    ({"l": [4.0, -1.0]}, {}, 1, "l", "row 1: l: "),
    ({"l": [4.0]}, {}, None, "l", "1 values, 2 are expected"),
    ({"member": ["T0", "T0"]}, {}, 1, "member", "is there twice"),
    ({}, {"N": [0, math.nan, 0, 0]}, 1, "N", "forces: row 1: N: not a finite number"),
    ({}, {"N": [0, "much", 0, 0]}, 1, "N", "'much' is no number"),
    ({}, {"x": [0, 4, 0, math.inf]}, 3, "x", "x: not a finite number"),
    ({}, {"x": [0, 4, 0, 3]}, 3, "x", "member 'T1', case 'c1': "),
    ({}, {"x": [0, 4, 0, 4000]}, 3, "x", "lies off the member of 4 m"),  # in mm
    ({}, {"member": ["T0", "T0", "X", "X"]}, 2, "member", "member 'X' is not among the members"),
    ({}, {"member": ["T0", "T0", None, None]}, 2, "member", "is not among the members"),
    ({}, {"Myy": [0, 0, 0, 0]}, None, "Myy", "did you mean My?"),
    ({}, {"n": [0, 0, 0, 0]}, None, "n", "column N is there twice"),
    ({}, {"x": None}, None, "x", "no column x"),
    ({}, {"N": [0, 0]}, None, "N", "2 values, 4 are expected"),
    ({"qlaod": [1, 1]}, {}, None, "qlaod", "did you mean qload?"),
])
def test_what_is_wrong_is_named(members, forces, row, column, words):
    table = {**ties(), **members}
    acting = {name: values for name, values in {**pulls(("T0", 1), ("T1", 1)), **forces}.items() if values is not None}
    with pytest.raises(kestrum.InputError) as refused:
        kestrum.envelope(table, acting)
    assert words in str(refused.value)
    assert (refused.value.row, refused.value.column) == (row, column)


@pytest.mark.parametrize("options", [{"sign": "up"}, {"basis": "ec3"}, {"errors": "no"}, {"key": "memebr"}])
def test_options_that_are_none_are_refused(options):
    with pytest.raises(kestrum.InputError):
        kestrum.envelope(ties(), pulls(("T0", 1)), **options)


def test_what_is_wrong_may_be_kept():
    forces = pulls(("T0", 100), ("T1", 100), ("T1", 5000), ("X", 1))
    forces["x"][5] = 3.0
    with pytest.warns(UserWarning, match="2 rows are left out; row 6: member 'X'"):
        answers = kestrum.envelope(ties(), forces, errors="keep")
    assert list(answers["status"]) == ["within", "bad input"]
    assert math.isnan(answers["ir"][1]) and answers["case"][1] == "c2"
    assert list(answers["failed"]) == [0, 1]
