"""Members in the partitions of Dask: the answers are those of one call. The cluster of processes is in tests/cluster."""

import pytest

import kestrum

pandas = pytest.importorskip("pandas")
dask = pytest.importorskip("dask", reason="python3-dask is not installed")
frames = pytest.importorskip("dask.dataframe", reason="python3-dask is not installed")


def tables(count):
    """Beams under cases of end moments; two cases of each member are alike, so that the first has to be found."""
    members = pandas.DataFrame({"id": [f"B{i}" for i in range(count)], "section": "IPE 300", "l": 4.0, "mark": "kept"})
    rows = [(f"b{case}", f"B{member}", x, 10.0 * (1 + (case % 3)) * (1 - x / 4))
            for case in range(6) for member in range(count - 1) for x in (0.0, 4.0)]
    return members, pandas.DataFrame(rows, columns=["case", "member", "x", "My"])


@pytest.fixture(autouse=True)
def one_thread():
    with dask.config.set(scheduler="sync"):
        yield


@pytest.mark.parametrize("partitions, parts", [(1, None), (3, None), (4, 2), (2, 40)])
def test_an_envelope_is_that_of_one_call(partitions, parts):
    members, forces = tables(9)
    forces = forces[::-1].reset_index(drop=True)  # the later of equal cases comes first
    split = frames.from_pandas(forces, npartitions=partitions, sort=False)
    answers = kestrum.dask.envelope(members, split, basis="program", parts=parts)
    whole = kestrum.envelope(members, forces, basis="program")
    assert answers.to_csv() == whole.to_csv()
    assert list(answers["case"][:8]) == ["b5"] * 8  # b2 and b5 are the largest
    assert list(answers["message"][8:]) == ["no forces"]


def test_a_batch_is_that_of_one_call():
    table = pandas.DataFrame({"section": ["IPE 300", "HEA 200"] * 5, "l": [4.0 + i for i in range(10)], "qload[1]": 10.0})
    split = frames.from_pandas(table, npartitions=3)
    for answers in (kestrum.dask.batch(split, fields=["mcr"]),
                    split.map_partitions(kestrum.batch, fields=["mcr"], meta=kestrum.batch(table[:0], fields=["mcr"]))):
        assert answers.compute().to_csv() == kestrum.batch(table, fields=["mcr"]).to_csv()


def test_faults_name_their_rows():
    members, forces = tables(3)
    forces.loc[5, "x"] = float("nan")
    with pytest.raises(kestrum.InputError, match="row 5") as refused:
        kestrum.dask.envelope(members, frames.from_pandas(forces, npartitions=3))
    assert refused.value.column == "x"
    members, forces = tables(3)
    forces.loc[7, "member"] = "nobody"
    with pytest.raises(kestrum.InputError, match="row 7: member 'nobody'"):
        kestrum.dask.envelope(members, frames.from_pandas(forces, npartitions=3))
    with pytest.raises(kestrum.InputError, match="no column member"):
        kestrum.dask.envelope(members, frames.from_pandas(forces[["case", "x"]], npartitions=3))
