"""Members under internal forces that another program has found."""

import warnings

from . import _columns, _errors, _kestrum
from ._member import Member, STATUSES, basis_number

_KEYS = ("member", "id", "key", "name", "ident")  # of the members, the first that is there
_FORCES = ("N", "Vy", "Vz", "My", "Mz", "Mx")
_KNOWN = {name.lower(): name for name in ("member", "case", "x", *_FORCES)}
_SIGNS = {"compression+": 1, "tension+": -1}
_WORDS = ("verdict", "check", "clause", "message", "notes")


def envelope(members, forces, basis="both", base=None, key=None, keep=(), sign="compression+", jobs=0, errors="raise"):
    """The worst case of each member under internal forces of another program, on all cores.

    members  a table as `batch` takes it, a row for each member, or one Member
    forces   a pandas data frame or a mapping of columns, a row for each station, in any order: ``member``, ``case``
             (any values), ``x`` [m from the start], ``N``, ``Vy``, ``Vz`` [kN], ``My``, ``Mz``, ``Mx`` [kNm]; a column
             that is not there counts as 0, and without ``case`` each member has one. The stations of a case run from 0
             to the length of the member; two at one place are the sides of a jump. Vz = dMy/dx, Vy = dMz/dx
    basis    "program", "standard" or "both"
    base     the Member that rows start from
    key      the column of `members` by which the forces name them; without it the first of member, id, key, name and
             ident, else the index of the data frame or the number of the row
    keep     columns of `members` that are passed through although their name is close to that of an input
    sign     of N: "compression+" or "tension+"
    jobs     threads, 0 for all cores
    errors   "raise": an InputError names row and column of the first thing that is wrong; "keep": such members and cases
             have no ratio, forces of unknown members are left out with a warning

    Returns the members with ``verdict``, ``status``, ``ir``, ``check``, ``clause``, ``case``, ``x`` [m, NaN for a check
    of the whole member], ``message`` and ``notes`` of the worst case by the rules of the program, the same with
    ``_standard`` by EN 1993-1-1 as written, and the numbers of ``cases``, of those ``above`` the limit and of those
    that ``failed``. A case without a ratio is worse than every ratio. Of one Member: a dict of its values.
    """
    _columns.require_errors(errors)
    number = basis_number(basis)
    if isinstance(members, Member):
        table, base, rows, inputs, passed, places = {}, members, 1, [], [], None
    else:
        table, base = members, Member() if base is None else base
        rows, inputs, passed = _columns.inputs_of(table, base._member, (*keep, str(key)))
        places = places_of(table, rows, key)
    acting = Forces(forces, places, errors)
    answers = _kestrum.Envelope(base._member, inputs, rows, *acting.columns(sign), number, jobs)
    if errors == "raise":
        for member, column, row, text in answers.faults():
            if row is None:
                _columns.refuse(table, (member, column, text), inputs)
            acting.refuse(row, text)
    worst = _answers(answers, number, acting)
    if isinstance(members, Member):
        return {name: values[0] for name, values in worst.items()}
    return _columns.answer_of(table, passed, worst)


def places_of(members, rows, key):
    """Row of each member by its key."""
    names = {str(name): name for name in _columns.keys_of(members)}
    if key is not None and str(key) not in names:
        raise _errors.InputError(f"key={key!r}: no such column", "key", _columns.nearest_of(str(key), names))
    chosen = str(key) if key is not None else next((name for name in _KEYS if name in names), None)
    if chosen is not None:
        keys = _columns.entries_of(chosen, members[names[chosen]]).tolist()
    else:
        frame = _columns.frame_of(members)
        keys = list(range(rows) if frame is None else frame.index)
    places = {}
    for row, name in enumerate(keys):
        if places.setdefault(name, row) != row:
            raise _errors.InputError(f"row {_columns.label_of(members, row)}: member {name!r} is there twice",
                                     chosen or "", row=row, column=chosen)
    return places


class Forces:
    """The stations. `places` are the rows of the members by their keys; None for one member without a key."""

    def __init__(self, table, places, errors):
        import numpy

        self._table, self._rows = table, _columns.rows_of(table)
        self._keys = {}  # of the columns that are read, whatever their capitals
        for key in _columns.keys_of(table):
            name = _KNOWN.get(str(key).lower(), str(key))
            if name in self._keys:
                raise _errors.InputError(f"forces: column {name} is there twice", name, column=str(key))
            self._keys[name] = key
        for name in self._keys:
            nearest = "" if name in _KNOWN.values() else _columns.nearest_of(name, _KNOWN.values())
            if nearest and nearest not in self._keys:
                raise _errors.InputError(f"forces: {name}: no such column; did you mean {nearest}?", name, nearest,
                                         column=name)
        for name in ("x",) if places is None else ("x", "member"):
            if name not in self._keys:
                raise _errors.InputError(f"forces: no column {name}", name, column=name)
        self._cases = self._entries("case") if "case" in self._keys else None
        self._all = numpy.arange(self._rows)
        self._member = None if places is None else self._members(places, errors)
        self._numbers = {name: self._column(name, errors) for name in ("x", *_FORCES) if name in self._keys}

    def _entries(self, name):
        entries = _columns.entries_of(name, self._table[self._keys[name]]).tolist()
        self._require_rows(name, entries)
        return entries

    def _require_rows(self, name, values):
        if len(values) != self._rows:
            raise _errors.InputError(f"forces: {name}: {len(values)} values, {self._rows} are expected", name,
                                     column=name)

    def _refuse(self, row, column, text):
        raise _errors.InputError(f"forces: row {_columns.label_of(self._table, row)}: {text}", column, row=row,
                                 column=column)

    def _members(self, places, errors):
        import numpy

        names = self._entries("member")
        member = numpy.fromiter((places.get(name, -1) for name in names), dtype=numpy.int64, count=self._rows)
        strangers = numpy.flatnonzero(member < 0)
        if strangers.size:
            text = f"member {names[strangers[0]]!r} is not among the members"
            if errors == "raise":
                self._refuse(int(strangers[0]), "member", text)
            warnings.warn(f"forces: {strangers.size} rows are left out; row "
                          f"{_columns.label_of(self._table, int(strangers[0]))}: {text}", stacklevel=5)
            self._all = numpy.flatnonzero(member >= 0)
        return member

    def _column(self, name, errors):
        import numpy

        values = _columns.column(name, self._table[self._keys[name]])
        self._require_rows(name, values)
        if isinstance(values, list):
            values = numpy.array([self._number(name, row, value) for row, value in enumerate(values)])
        if errors == "raise":
            missing = numpy.flatnonzero(~numpy.isfinite(values))
            if missing.size:
                self._refuse(int(missing[0]), name, f"{name}: not a finite number")
        return values

    def _number(self, name, row, text):
        try:
            return float("nan" if text is None else text)
        except ValueError:
            self._refuse(row, name, f"{name}: {text!r} is no number")

    def columns(self, sign):
        """What the extension takes: how many rows count, and their member, case and numbers."""
        import numpy

        if sign not in _SIGNS:
            raise _errors.InputError(f"sign={sign!r}: 'compression+' or 'tension+' is expected", "sign")
        pick = slice(None) if len(self._all) == self._rows else self._all
        out = {name: values[pick] for name, values in self._numbers.items()}
        if "N" in out:
            out["N"] = _SIGNS[sign] * out["N"]
        if self._member is not None:
            out["member"] = self._member[pick].astype(numpy.uintp)
        if self._cases is not None:
            codes = {}
            out["case"] = numpy.fromiter((codes.setdefault(name, len(codes)) for name in self._cases),
                                         dtype=numpy.uintp, count=self._rows)[pick]
        return len(self._all), out

    def cases(self, rows):
        """Names of the cases that these rows belong to; None beyond the rows."""
        import numpy

        out = numpy.empty(len(rows), dtype=object)
        for place, row in enumerate(rows.tolist()):
            known = self._cases is not None and row < len(self._all)
            out[place] = self._cases[self._all[row]] if known else None
        return out

    def refuse(self, row, text):
        row = int(self._all[row])
        names = [f"{name} {self._table_entry(name, row)!r}" for name in ("member", "case") if name in self._keys]
        self._refuse(row, "x", ": ".join([", ".join(names), text] if names else [text]))

    def _table_entry(self, name, row):
        return self._entries(name)[row]


def _answers(answers, basis, acting):
    import numpy

    out, counts = {}, {}
    for bit, suffix in ((1, ""), (2, "_standard")):
        if not basis & bit:
            continue
        worst = answers.worst(bit)
        out["status" + suffix] = numpy.array(STATUSES, dtype=object)[worst["status"]]
        out["ir" + suffix] = worst["ir"]
        for name in _WORDS:
            out[name + suffix] = numpy.array(worst[name], dtype=object)
        out["case" + suffix] = acting.cases(worst["row"])
        out["x" + suffix] = worst["x"]
        counts.setdefault("cases", worst["cases"])
        for name in ("above", "failed"):
            counts[name + suffix] = worst[name]
    return {**out, **counts}
