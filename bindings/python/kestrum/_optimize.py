"""The lightest section of members."""

import os

from . import _columns, _envelope, _errors, _kestrum
from ._member import Member, STATUSES, basis_number

_BY = {"mass": 0, "depth": 1, "price": 2, "surface": 3}
_FIGURES = ("mass", "h", "b", "surface", "price")


def optimize(members, pool, by="mass", forces=None, group=None, basis="both", steel=(), max_ir=None, max_h=None, max_b=None,
             top=1, ranges=(), prices=None, base=None, key=None, keep=(), sign="compression+", jobs=0, errors="raise"):
    """The lightest section of a pool that passes, for each member or one for a group of members, on all cores.

    members  a table as `batch` takes it, a row for each member, or one Member
    pool     families, series and sections: ["IPE", "HEA", "CHS 114.3x5"]; "all" for every rolled and hollow one
    by       what is smallest: "mass" [kg/m], "depth" [mm], "price" [for a metre], "surface" [m2/m]
    forces   internal forces as `envelope` takes them, with its `key` and `sign`; without them the members' own loads
    group    the column of `members` whose equal entries get one section
    basis    "program", "standard" or "both": within limits in each of these
    steel    grades to choose from, ["S235", "S355"]; without one that of the member
    max_ir   largest ratio, where it is below the limit of the member
    max_h, max_b   largest depth and width over all [mm]
    top      how many sections are wanted for a member, a row for each
    ranges   sizes of families of plates: ["p21.isth=300:900:50", "p21.isttw=plates"]
    prices   a CSV file under the names section, price/kg or price/m, and steel where they differ
    base, keep, jobs, errors   as in `batch`

    Every section is rated, none is inferred. Returns the members with ``rank`` from 1, ``section``, ``steel``, ``mass``,
    ``h``, ``b``, ``surface``, ``price``, ``ir``, ``check``, ``clause`` (and the case of `forces`), the same with
    ``_standard``, the next ``lighter`` section and why it fails (``lighter_fails``), and ``message``, why there is none:
    such a member has a row with rank 0 and the section None. ``section_before`` and ``steel_before`` are those that
    `members` had. Of one Member: the sections found, a dict for each.
    """
    _columns.require_errors(errors)
    number = basis_number(basis)
    if by not in _BY:
        raise _errors.InputError(f"by={by!r}: 'mass', 'depth', 'price' or 'surface' is expected", "by")
    if isinstance(members, Member):
        table, base, rows, inputs, passed = {}, members, 1, [], []
    else:
        table, base = members, Member() if base is None else base
        rows, inputs, passed = _columns.inputs_of(table, base._member, (*keep, str(key), str(group)))
    acting = None
    if forces is not None:
        places = None if isinstance(members, Member) else _envelope.places_of(table, rows, key)
        acting = _envelope.Forces(forces, places, errors)
    wishes = {"by": _BY[by], "basis": number, "top": int(top), "steels": _words("steel", steel),
              **{name: _limit(name, value) for name, value in (("max_ir", max_ir), ("max_h", max_h), ("max_b", max_b))}}
    found = _kestrum.Selection(base._member, inputs, rows, *(acting.columns(sign) if acting else (0, None)),
                               _groups(table, group), _pool(base, pool, ranges, prices), wishes, jobs)
    if errors == "raise":
        for member, column, _, text in found.faults():
            _columns.refuse(table, (member, column, text), inputs)
    rows_of, answers = _answers(found, number, acting)
    if isinstance(members, Member):
        return [{name: values[row] for name, values in answers.items()} for row in range(len(rows_of))
                if answers["rank"][row] > 0]
    before = {name + "_before": table[name] for name, _ in inputs if name in ("section", "steel")}
    return _columns.answer_of(table, passed, answers, rows_of, before)


def _words(name, words):
    words = [words] if isinstance(words, str) else list(words)
    for word in words:
        if not isinstance(word, str):
            raise _errors.InputError(f"{name}: {word!r} is no name", name)
    return words


def _limit(name, value):
    if value is None:
        return 0.0
    try:
        number = float(value)
    except (TypeError, ValueError):
        number = 0.0
    if not number > 0 or number == float("inf"):
        raise _errors.InputError(f"{name}={value!r}: a number above 0 is expected", name)
    return number


def _pool(base, words, ranges, prices):
    pool = _kestrum.Pool(base._catalogue)
    for word in _words("pool", words):
        pool.add(word)
    for text in _words("ranges", ranges):
        pool.range(text)
    if prices is not None:
        with open(os.fspath(prices), encoding="utf-8-sig") as table:
            pool.prices(table.read())
    return pool


def _groups(table, group):
    """A number for each member, equal within a group; none without groups."""
    if group is None:
        return []
    if group not in _columns.keys_of(table):
        raise _errors.InputError(f"group={group!r}: no such column", "group")
    numbers = {}
    return [numbers.setdefault(entry, len(numbers)) for entry in _columns.entries_of(str(group), table[group]).tolist()]


def _answers(found, basis, acting):
    """The row of the member for each section found, and the columns."""
    import numpy

    choices = found.choices()
    rows = numpy.array(choices.pop("member"), dtype=numpy.intp)
    out = {"rank": choices.pop("rank")}
    for name in ("section", "steel"):
        out[name] = numpy.array(choices.pop(name), dtype=object)
    for name in _FIGURES:
        out[name] = choices.pop(name)
    for bit, suffix in ((1, ""), (2, "_standard")):
        if not basis & bit:
            continue
        worst = found.worst(bit)
        out["status" + suffix] = numpy.array(STATUSES, dtype=object)[worst["status"]]
        out["ir" + suffix] = worst["ir"]
        for name in ("check", "clause"):
            out[name + suffix] = numpy.array(worst[name], dtype=object)
        if acting:
            out["case" + suffix] = acting.cases(worst["row"])
            out["x" + suffix] = worst["x"]
        out["notes" + suffix] = numpy.array(worst["notes"], dtype=object)
    for name in ("lighter", "lighter_fails", "message"):
        out[name] = numpy.array(choices.pop(name), dtype=object)
    return rows, out
