"""Members and results: values, errors, copies, threads, pictures."""

import concurrent.futures
import math
import os
import pickle
import warnings

import pytest

import kestrum

EXAMPLES = os.path.join(os.environ["KESTRUM_SOURCE"], "examples")


def beam(**more):
    return kestrum.Member({"section": "IPE 300", "l": 6, "qload": [10], "loadcomb": 4, "restraints": 2, **more})


def test_the_moment_of_a_simple_beam_is_that_of_the_formula():
    result = beam().check()
    assert result["mymax"] == pytest.approx(10 * 6**2 / 8, abs=1e-4)  # q L^2 / 8
    assert result.status == "within"
    assert 0 < result.ir < 1 and 0 < result.ir_standard < 1
    assert {check.check for check in result.checks} == {"section_My", "section_Vz", "ltb"}
    assert {check.check for check in result.checks_standard} >= {"section_My", "ltb", "deflection_z"}
    assert max(check.ratio for check in result.checks) == result.ir


def test_inputs_read_back():
    member = beam(steel="S355")
    assert (member["section"], member["steel"], member["l"]) == ("IPE 300", "S355", 6.0)
    member["l"] = 7.5
    assert member["l"] == 7.5
    assert "IPE 300" in repr(member)


def test_a_list_sets_the_rows_of_a_field():
    member = kestrum.Member(qload=[12.5, None, 15], qtype=["G", None, "Q1"])
    assert [member[f"qload[{row}]"] for row in (1, 2, 3)] == [12.5, 0, 15]


@pytest.mark.parametrize("inputs, field", [
    ({"lenght": 5}, "lenght"),
    ({"l": -1}, "l"),
    ({"l": math.nan}, "l"),
    ({"l": math.inf}, "l"),
    ({"l": [5, 6]}, "l[1]"),
    ({"l": object()}, "l"),
    ({"l": "long"}, "l"),
    ({"l": b"5"}, "l"),
    ({"section": "IPE 301"}, "section"),
    ({"qload[99]": 1}, "qload[99]"),
    ({"steel": "355"}, "steel"),
])
def test_a_refused_input_names_its_field_and_changes_nothing(inputs, field):
    member = beam()
    before = member.project()
    with pytest.raises(kestrum.InputError) as refused:
        member.set({"webstiff": 0, **inputs})
    assert refused.value.field == field
    assert str(refused.value)
    assert member.project() == before


def test_a_wrong_name_has_its_nearest_one():
    with pytest.raises(kestrum.InputError) as refused:
        beam(qlaod=1)
    assert refused.value.nearest == "qload"
    assert isinstance(refused.value, ValueError)
    again = pickle.loads(pickle.dumps(refused.value))
    assert (again.field, again.nearest, str(again)) == ("qlaod", "qload", str(refused.value))


def test_a_doubtful_unit_is_a_warning():
    with pytest.warns(UserWarning, match="is 6000 m meant"):
        kestrum.Member(l=6000)
    with warnings.catch_warnings():
        warnings.simplefilter("error")
        kestrum.Member(l=6)


def test_none_leaves_an_input_alone():
    assert kestrum.Member(l=None)["l"] == kestrum.Member()["l"]


def test_copies_pickles_and_projects_are_the_same_member(tmp_path):
    member = beam()
    copy = member.copy()
    copy["l"] = 9
    assert member["l"] == 6
    member.save(tmp_path / "beam.kst")
    ir = member.check().ir
    assert pickle.loads(pickle.dumps(member)).check().ir == ir
    assert kestrum.Member.read(tmp_path / "beam.kst").check().ir == ir


def test_a_file_that_is_no_project_names_its_line(tmp_path):
    (tmp_path / "bad.kst").write_bytes(b"no project")
    with pytest.raises(kestrum.InputError) as refused:
        kestrum.Member.read(tmp_path / "bad.kst")
    assert refused.value.line == 1


def test_an_unstable_member_is_a_result():
    result = kestrum.Member({"section": "IPE 100", "l": 10, "nload": [3000], "qload": [1]}).check()
    assert result.status == "unstable"
    assert result.failure.value > result.failure.limit
    assert "unstable" in result._repr_html_()
    with pytest.raises(kestrum.InputError):
        result.panel()
    assert kestrum.Member().check().status == "nothing acts"


@pytest.mark.parametrize("basis", ["program", "standard", "both"])
def test_the_basis_chooses_the_ratios(basis):
    result = beam().check(basis)
    assert (result.ir_standard is None) == (basis == "program")


@pytest.mark.parametrize("basis", ["programme", 3, None, []])
def test_an_unknown_basis_is_refused(basis):
    with pytest.raises(kestrum.InputError):
        beam().check(basis)


def test_pictures_and_notebook():
    result = beam().check()
    assert result.diagram("z")._repr_svg_().count("<svg") == 1
    assert "<svg" in result.section().svg
    html = result._repr_html_()
    assert "<svg" in html and "SECTION CONTROL" in html and "<?xml" not in html
    assert result.json()["l"] == 6
    with pytest.raises(kestrum.InputError):
        result.diagram("x")


def test_a_report_is_printed(tmp_path, monkeypatch):
    monkeypatch.setenv("PATH", os.environ["KESTRUM_BIN"] + os.pathsep + os.environ["PATH"])
    beam().check().report(tmp_path / "beam.svg")
    assert (tmp_path / "beam.svg").read_text(encoding="utf-8").count("<svg") == 1
    monkeypatch.setenv("PATH", "")
    with pytest.raises(FileNotFoundError):
        beam().check().report(tmp_path / "beam.svg")


def test_threads_give_the_result_of_one():
    member = beam()
    alone = member.check().json()
    with concurrent.futures.ThreadPoolExecutor(8) as pool:
        answers = list(pool.map(lambda _: member.copy().check().json(), range(64)))
    assert all(answer == alone for answer in answers)


def test_every_example_has_a_result():
    projects = [name for name in os.listdir(EXAMPLES) if name.endswith(".kst")]
    assert len(projects) >= 31
    for name in projects:
        assert kestrum.Member.read(os.path.join(EXAMPLES, name)).check().ir > 0, name
