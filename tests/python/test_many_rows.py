"""A million rows without growth; by test.sh --full alone."""

import os
import resource

import numpy
import pytest

import kestrum

pytestmark = pytest.mark.skipif("KESTRUM_FULL" not in os.environ, reason="takes a minute")


def megabytes():
    return resource.getrusage(resource.RUSAGE_SELF).ru_maxrss / 1024


def rows(count, seed):
    random = numpy.random.default_rng(seed)
    return {"l": random.uniform(2, 9, count), "qload[1]": random.uniform(1, 20, count)}


def test_a_million_members_in_runs():
    base = kestrum.Member(section="IPE 300")
    for seed in range(2):
        kestrum.batch(rows(50_000, seed), basis="program", base=base)
    before = megabytes()
    for seed in range(18):
        assert len(kestrum.batch(rows(50_000, seed), basis="program", base=base)["ir"]) == 50_000
    assert megabytes() < before + 30


def test_a_million_members_at_once():
    count = 1_000_000
    before = megabytes()
    answers = kestrum.batch(rows(count, 1), basis="program", base=kestrum.Member(section="IPE 300"))
    assert numpy.isfinite(answers["ir"]).all()
    # Inputs, five columns of words and the numbers, each eight bytes; with the texts themselves well below a kilobyte.
    assert (megabytes() - before) * 2**20 / count < 600


def test_a_million_stations():
    cases, stations = 100_000, 10
    random = numpy.random.default_rng(2)
    forces = {"member": numpy.repeat(numpy.arange(100), cases * stations // 100), "x": numpy.tile(numpy.linspace(0, 4, 10), cases),
              "case": numpy.repeat(numpy.arange(cases), stations), "My": random.uniform(-50, 50, cases * stations)}
    answers = kestrum.envelope({"l": numpy.full(100, 4.0)}, forces, basis="program", base=kestrum.Member(section="IPE 300"))
    assert (answers["cases"] == 1000).all() and numpy.isfinite(answers["ir"]).all()
