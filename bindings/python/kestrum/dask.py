"""Many members on several processes or machines, by Dask.

    client = dask.distributed.Client(...)          # or any other scheduler of Dask
    answers = kestrum.dask.envelope(members, dask.dataframe.read_parquet("forces.parquet"))
    answers = kestrum.dask.batch(dask.dataframe.from_pandas(members, npartitions=8)).compute()

A worker that is lost loses nothing: Dask calculates its parts again, and the answers are those of one process. A part is
calculated by one thread unless `jobs` says otherwise, since the cores are what Dask shares out."""

import functools

import numpy
import pandas

from . import _batch, _envelope

_PART, _ORDER, _PLACE = "kestrum part", "kestrum order", "kestrum place"  # columns on the way


def batch(table, **options):
    """`kestrum.batch` for each partition of a Dask data frame: a Dask data frame, calculated when it is asked for."""
    options.setdefault("jobs", 1)
    return table.map_partitions(_batch.batch, meta=_batch.batch(table._meta, **options), **options)


def envelope(members, forces, key=None, parts=None, **options):
    """`kestrum.envelope` of a pandas data frame of members under a Dask data frame of forces, in any order and any
    partitions. The rows of each member are brought together in one of `parts` parts (without it as many as `forces` has
    partitions), which are calculated on their own.

    Returns a pandas data frame, the same as one process does. Options are those of `kestrum.envelope`.
    """
    options = {"jobs": 1, "key": key, **options}
    parts = parts or forces.npartitions
    places = _envelope.places_of(members, len(members), key)
    column = next((name for name in forces.columns if str(name).lower() == "member"), None)
    if column is None:
        return _envelope.envelope(members, forces._meta, **options)  # which says what is missing
    mark = functools.partial(_marked, column=column, places=places, parts=parts)
    answer = functools.partial(_answered, members=members, column=column, places=places, options=options)
    meta = mark(forces._meta)
    marked = forces.map_partitions(mark, meta=meta).shuffle(_PART, npartitions=parts)
    answers = marked.map_partitions(answer, meta=answer(meta)).compute()
    answered = set(answers[_PLACE])
    rest = [place for place in range(len(members)) if place not in answered]
    if rest:  # without forces
        answers = pandas.concat([answers, _placed(members, rest, forces._meta, options)])
    return answers.sort_values(_PLACE).drop(columns=_PLACE)


def _marked(forces, column, places, parts, partition_info=None):
    """The rows of a partition with the part that they go to and their place in the whole table."""
    place = forces[column].map(places).fillna(-1).astype("int64")
    first = (partition_info or {}).get("number", 0) << 40
    return forces.assign(**{_PART: place % parts, _ORDER: first + numpy.arange(len(forces), dtype="int64")})


def _answered(forces, members, column, places, options):
    """The members of a part under its forces, in the order in which the table holds them."""
    forces = forces.sort_values(_ORDER).drop(columns=[_PART, _ORDER])
    rows = sorted({places[key] for key in forces[column].unique() if key in places})
    return _placed(members, rows, forces, options)


def _placed(members, rows, forces, options):
    answers = _envelope.envelope(members.iloc[rows], forces, **options)
    return answers.assign(**{_PLACE: numpy.array(rows, dtype="int64")})
