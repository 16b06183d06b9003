"""The lightest section: the same as of all sections one by one."""

import math

import pytest

import kestrum

pandas = pytest.importorskip("pandas")

SERIES = ["IPE", "HEA"]
BEAM = {"steel": "S355", "qload": [12.5, 15], "qtype": ["G", "Q1"], "restraints": 2, "checksls": True}


def names():
    catalogue = kestrum.Catalogue.builtin()
    return [name for series in SERIES for name in catalogue.sections(series)]


def lightest(inputs, **limits):
    """Of all rows by `batch`."""
    table = pandas.DataFrame({"name": names(), "section": names(), **inputs})
    rows = kestrum.batch(table, fields=["weight", "h"], base=kestrum.Member(BEAM))
    passes = rows[(rows.status == "within") & (rows.status_standard == "within")
                  & (rows.h <= limits.get("max_h", math.inf)) & (rows.ir <= limits.get("max_ir", math.inf))
                  & (rows.ir_standard <= limits.get("max_ir", math.inf))]
    return passes.sort_values("weight", kind="stable")


@pytest.mark.parametrize("limits", [{}, {"max_h": 400}, {"max_ir": 0.5}])
def test_the_lightest_is_that_of_all_rows(limits):
    members = pandas.DataFrame({"l": [4.0, 7.2, 9.0], "mark": ["a", "b", "c"]}, index=["x", "y", "z"])
    answers = kestrum.optimize(members, SERIES, base=kestrum.Member(BEAM), top=2, **limits)
    for label, (length, mark) in members.iterrows():
        expected = lightest({"l": length}, **limits)
        found = answers.loc[[label]]
        assert list(found["mark"]) == [mark] * len(found) and list(found["rank"]) == [1, 2][:len(found)]
        assert list(found["mass"]) == pytest.approx(list(expected["weight"][:2]))
        first = expected[expected["name"] == found["section"].iloc[0]].iloc[0]
        assert found["ir"].iloc[0] == first["ir"] and found["ir_standard"].iloc[0] == first["ir_standard"]


def test_one_member_has_a_list():
    found = kestrum.optimize(kestrum.Member({**BEAM, "l": 7.2}), "IPE", top=3)
    assert len(found) == 3 and found[0]["mass"] < found[1]["mass"] < found[2]["mass"]
    assert found[0]["lighter"].startswith("IPE") and "ratio 1." in found[0]["lighter_fails"]
    assert kestrum.optimize(kestrum.Member({**BEAM, "l": 7.2}), "IPE", max_h=100) == []


def test_forces_groups_and_steels():
    # 2000 kN need 8511 mm2 in S235, HEB 220 with 9104, and 5634 mm2 in S355, HEB 180 with 6525.
    ties = {"member": ["A", "B"], "steel": ["S235"] * 2, "l": [4.0] * 2, "kind": ["tie", "tie"]}
    pulls = {"member": ["A", "A", "B", "B"], "x": [0, 4, 0, 4], "N": [2000, 2000, 100, 100]}
    options = {"forces": pulls, "sign": "tension+"}
    assert list(kestrum.optimize(ties, "HEB", **options)["section"]) == ["HEB 220", "HEB 100"]
    assert list(kestrum.optimize(ties, "HEB", group="kind", **options)["section"]) == ["HEB 220"] * 2
    both = kestrum.optimize(ties, "HEB", steel=["S235", "S355"], **options)
    assert list(both["section"]) == ["HEB 180", "HEB 100"] and both["steel"][0] == "S355"
    assert list(both["steel_before"]) == ["S235", "S235"]


def test_prices_decide(tmp_path):
    (tmp_path / "prices.csv").write_text("section,price/kg\nHEB,1\nHEA,3\n")
    cheap = kestrum.optimize(kestrum.Member({**BEAM, "l": 7.2}), [], by="price", prices=tmp_path / "prices.csv")
    assert cheap[0]["section"].startswith("HEB") and cheap[0]["price"] == pytest.approx(cheap[0]["mass"])


@pytest.mark.parametrize("options, field", [
    ({"pool": ["IPX"]}, "pool"), ({"pool": []}, "pool"), ({"pool": [3]}, "pool"), ({"by": "weight"}, "by"),
    ({"by": "price"}, "by"), ({"steel": "S3555"}, "steel"), ({"max_h": "low"}, "max_h"), ({"max_ir": -1}, "max_ir"),
    ({"max_b": math.nan}, "max_b"), ({"group": "colour"}, "group"), ({"basis": "ec3"}, "basis"), ({"sign": "up"}, "sign"),
])
def test_options_that_are_none_are_refused(options, field):
    forces = {"x": [0, 5], "N": [1, 1], "member": [0, 0]}
    with pytest.raises(kestrum.InputError) as refused:
        kestrum.optimize({"l": [5.0]}, **{"pool": "IPE", "forces": forces, **options})
    assert refused.value.field == field


def test_a_refused_member_is_named_or_kept():
    table = pandas.DataFrame({"l": [5.0, -1.0], "qload[1]": [10.0, 10.0]}, index=["B1", "B2"])
    with pytest.raises(kestrum.InputError) as refused:
        kestrum.optimize(table, "IPE")
    assert (refused.value.row, refused.value.column) == (1, "l") and str(refused.value).startswith("row B2: l: ")
    kept = kestrum.optimize(table, "IPE", errors="keep")
    assert kept["section"][0].startswith("IPE") and kept["section"][1] is None and kept["rank"][1] == 0
