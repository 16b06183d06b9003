"""Tables of members: the rows are those of single members, and of the command line."""

import csv
import io
import math
import os
import random
import subprocess
import tracemalloc

import numpy
import pytest

import kestrum

pandas = pytest.importorskip("pandas")

SECTIONS = ["IPE 200", "IPE 400", "HEA 200", "HEB 300", "UPE 200", "SHS 100x5"]


def members(rows, seed=3):
    random.seed(seed)
    return pandas.DataFrame({
        "section": [random.choice(SECTIONS) for _ in range(rows)],
        "steel": [random.choice(["S235", "S355"]) for _ in range(rows)],
        "l": [round(random.uniform(2, 9), 3) for _ in range(rows)],
        "qload[1]": [round(random.uniform(-5, 30), 3) for _ in range(rows)],
        "nload[1]": [round(random.uniform(-300, 900), 3) for _ in range(rows)],
    }, index=[f"B{i}" for i in range(rows)])


def test_rows_are_the_single_members():
    table = members(60)
    answers = kestrum.batch(table, fields=["mymax"], notes=True)
    assert list(answers.index) == list(table.index)
    for label, row in table.iterrows():
        result = kestrum.Member(dict(row)).check()
        answer = answers.loc[label]
        assert answer.status == result.status
        for name in ("ir", "ir_standard"):
            expected = getattr(result, name)
            assert answer[name] == expected or (math.isnan(answer[name]) and expected is None)
        assert (answer.check, answer.clause, answer.verdict) == (result.check, result.clause, result.verdict)
        assert answer.notes.split() == [note.id for note in result.notes]


def test_five_thousand_members_have_the_numbers_of_the_command_line(tmp_path):
    table = members(5000, seed=11)
    answers = kestrum.batch(table, basis="program")
    table.to_csv(tmp_path / "members.csv", index=False)
    done = subprocess.run([os.path.join(os.environ["KESTRUM_BIN"], "kestrum"), "batch", tmp_path / "members.csv",
                           "--exit-zero", "--quiet"], capture_output=True, text=True, check=True)
    lines = list(csv.DictReader(io.StringIO(done.stdout)))
    assert len(lines) == 5000
    for line, ratio in zip(lines, answers["ir"]):
        assert (float(line["ir"]) if line["ir"] else None) == (None if math.isnan(ratio) else ratio)


def test_columns_of_every_make():
    l = numpy.arange(40, 100)[::10] / 10  # not contiguous
    whole = {"section": ["IPE 300"] * 6, "l": l, "qload[1]": numpy.array([10] * 6, dtype=numpy.int32)}
    plain = kestrum.batch({"section": ["IPE 300"] * 6, "l": [float(x) for x in l], "qload[1]": [10.0] * 6})
    assert list(kestrum.batch(whole)["ir"]) == list(plain["ir"])
    masked = numpy.ma.array([10.0] * 6, mask=[False] * 5 + [True])
    assert numpy.isclose(kestrum.batch({**whole, "qload[1]": masked})["ir"][:5], plain["ir"][:5]).all()
    frame = pandas.DataFrame({"section": pandas.Categorical(["IPE 300", None]), "l": pandas.array([4, None], "Int64"),
                              "qload[1]": [10.0, 10.0]})
    base = kestrum.Member(section="IPE 300", l=4)
    both = kestrum.batch(frame, base=base)["ir"]
    assert both[0] == both[1] == plain["ir"][0]
    strange = kestrum.batch({"l": numpy.array(["4", "5"]), "qload[1]": numpy.array([10, 10.0], dtype=object)}, base=base)
    assert strange["ir"][0] == plain["ir"][0]


def test_other_columns_are_passed_through():
    table = members(3).assign(storey=[1, 2, 3], l2=["a", "b", "c"])
    answers = kestrum.batch(table, keep=["l2"])
    assert list(answers["storey"]) == [1, 2, 3] and list(answers["l2"]) == ["a", "b", "c"]


def test_a_wrong_name_has_its_nearest_one():
    with pytest.raises(kestrum.InputError) as refused:
        kestrum.batch({"qlaod[1]": [1.0]})
    assert (refused.value.column, refused.value.nearest) == ("qlaod[1]", "qload")
    with pytest.raises(kestrum.InputError) as refused:
        kestrum.batch({"l": [5.0]}, fields=["mcrr"])
    assert refused.value.field == "mcrr"


def test_a_refused_row_is_named_or_kept():
    table = members(4)
    table.loc["B2", "l"] = -1.0
    with pytest.raises(kestrum.InputError) as refused:
        kestrum.batch(table)
    assert (refused.value.row, refused.value.column) == (2, "l")
    assert str(refused.value).startswith("row B2: l: ")
    answers = kestrum.batch(table, errors="keep")
    assert answers.loc["B2", "status"] == "bad input" and math.isnan(answers.loc["B2", "ir"])
    assert answers.loc["B3", "ir"] > 0


@pytest.mark.parametrize("column", [[[1, 2], [3, 4]], [object()], [{"a": 1}], numpy.array([1 + 2j])])
def test_what_is_no_column_is_refused(column):
    with pytest.raises(kestrum.InputError):
        kestrum.batch({"l": column})


def test_columns_of_unequal_length_are_refused():
    with pytest.raises(kestrum.InputError):
        kestrum.batch({"l": [5.0, 6.0], "qload[1]": [1.0]})


def test_an_empty_table_has_no_answers():
    assert len(kestrum.batch(members(0))) == 0
    assert len(kestrum.batch({"l": []})["ir"]) == 0


def test_the_number_of_threads_changes_nothing():
    table = members(300)
    assert kestrum.batch(table, jobs=1).equals(kestrum.batch(table, jobs=4))


def test_answers_do_not_grow_with_what_was_asked_before():
    table = members(2000)
    kestrum.batch(table, basis="program")
    tracemalloc.start()
    before = tracemalloc.take_snapshot()
    for _ in range(3):
        kestrum.batch(table, basis="program")
    after = tracemalloc.take_snapshot()
    tracemalloc.stop()
    assert sum(entry.size_diff for entry in after.compare_to(before, "filename")) < 200_000
