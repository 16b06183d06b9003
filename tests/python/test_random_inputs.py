"""Whatever stands in a table, the answer is a number, a verdict or an InputError."""

import math
import warnings

import numpy
import pytest

import kestrum

hypothesis = pytest.importorskip("hypothesis")
from hypothesis import given, settings, strategies as st  # noqa: E402

pandas = pytest.importorskip("pandas")

settings.register_profile("kestrum", max_examples=40, deadline=None, derandomize=True, database=None)
settings.load_profile("kestrum")

NAMES = ["l", "section", "steel", "qload[1]", "nload[1]", "restraints", "family", "row.ipe", "qtype[2]", "fyk"]
ANYTHING = st.one_of(
    st.none(), st.booleans(), st.integers(), st.floats(), st.text(max_size=8), st.binary(max_size=4), st.complex_numbers(),
    st.dates(), st.sampled_from(["IPE 300", "S355", "5", "1e400", "nan", "", "5 m", "\0", "\ud800"]),
    st.builds(pandas.Timestamp, st.just("2020-01-01")), st.just(pandas.NA), st.just(numpy.float32(5)), st.just(numpy.True_))
USUAL = st.floats(0.5, 20, width=32)


def refused_or(make):
    try:
        return make()
    except kestrum.InputError as error:
        assert str(error)
        return None


@pytest.mark.filterwarnings("ignore:.* meant")
@given(st.sampled_from(NAMES), ANYTHING)
def test_a_member_takes_or_refuses_an_input(name, value):
    member = kestrum.Member(section="IPE 300", l=5, qload=[10])
    before = member.project()
    if refused_or(lambda: member.set({name: value})) is None:
        assert member.project() == before
    else:
        assert member.check().verdict


@given(st.lists(st.sampled_from(NAMES), unique=True, min_size=1, max_size=3), st.data())
def test_a_table_answers_or_refuses(names, data):
    rows = data.draw(st.integers(0, 4))
    table = {name: data.draw(st.lists(ANYTHING, min_size=rows, max_size=rows)) for name in names}
    answers = refused_or(lambda: kestrum.batch(table, errors="keep"))
    assert answers is None or len(answers["ir"]) == rows
    frame = refused_or(lambda: pandas.DataFrame({name: pandas.Series(values, dtype=object)
                                                 for name, values in table.items()}))
    again = refused_or(lambda: kestrum.batch(frame, errors="keep"))
    assert (answers is None) == (again is None)


@given(st.lists(st.tuples(USUAL, st.floats(-40, 40)), min_size=1, max_size=12), st.integers(1, 3), st.booleans())
def test_columns_of_every_layout_are_the_same_column(rows, step, swapped):
    lengths, loads = (numpy.array(column) for column in zip(*rows))
    plain = kestrum.batch({"l": lengths, "qload[1]": loads}, jobs=1)
    wide = numpy.zeros((len(rows), 2 * step))
    wide[:, step] = lengths  # not contiguous
    column = wide[:, step].astype(">f8") if swapped else wide[:, step]
    backwards = loads[::-1][::-1].view(type("Own", (numpy.ndarray,), {}))  # a subclass, read backwards twice
    backwards.flags.writeable = False
    again = kestrum.batch({"l": column, "qload[1]": backwards}, jobs=3)
    numpy.testing.assert_array_equal(plain["ir"], again["ir"])
    whole = kestrum.batch({"l": numpy.ceil(lengths).astype(numpy.uint8)})
    numpy.testing.assert_array_equal(whole["ir"], kestrum.batch({"l": numpy.ceil(lengths)})["ir"])


@given(st.lists(st.tuples(st.sampled_from(["A", "B"]), st.integers(0, 2), st.sampled_from([0.0, 2.0, 4.0]),
                          st.floats(-500, 500)), max_size=12))
def test_forces_answer_in_any_order_or_fail(rows):
    members = {"member": ["A", "B"], "l": [4.0, 4.0]}

    def run(order):
        columns = {name: [row[place] for row in order] for place, name in enumerate(("member", "case", "x", "My"))}
        return kestrum.envelope(members, columns, errors="keep")

    answers = run(rows)
    assert len(answers["ir"]) == 2
    # Sides of a jump keep their order.
    mixed = sorted(rows, key=lambda row: row[2])
    again = run(mixed)
    numpy.testing.assert_array_equal(answers["status"], again["status"])
    numpy.testing.assert_array_equal(answers["ir"], again["ir"])
    for ir in answers["ir"]:
        assert math.isnan(ir) or ir >= 0


@given(st.dictionaries(st.sampled_from(["member", "case", "x", "N", "My"]),
                       st.lists(ANYTHING, min_size=2, max_size=2), min_size=1))
def test_strange_forces_are_refused_or_answered(forces):
    members = {"member": ["A"], "l": [4.0]}
    for errors in ("raise", "keep"):
        with warnings.catch_warnings():
            warnings.simplefilter("ignore")  # rows of unknown members
            refused_or(lambda: kestrum.envelope(members, forces, errors=errors))
