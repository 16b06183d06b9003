"""Many members: columns in, columns out."""

from . import _errors, _kestrum
from ._member import Member, STATUSES, basis_number

_WORDS = (("verdict", 0), ("check", 1), ("clause", 2), ("message", 3))


def _column(name, values):
    """Numbers as an array of doubles with NaN for what is missing, texts as a list with None."""
    import numpy  # only here: it takes longer to load than all of this package

    if hasattr(values, "to_numpy") and not isinstance(values.dtype, numpy.dtype):  # of pandas itself
        values = values.to_numpy(dtype=object, na_value=None)
    if numpy.ma.isMaskedArray(values):
        values = values.astype(float).filled(numpy.nan) if values.dtype.kind in "fiub" else values.filled(None)
    array = numpy.asarray(values)
    if array.ndim != 1:
        raise _errors.InputError(f"{name}: one value for each member is expected", name, column=name)
    if array.dtype.kind in "fiub":
        return numpy.ascontiguousarray(array, dtype=numpy.float64)
    entries = array.tolist()
    missing = [entry is None or entry != entry for entry in entries]
    if all(missing or isinstance(entry, (int, float)) for entry, missing in zip(entries, missing)):
        return numpy.array([numpy.nan if gone else float(entry) for entry, gone in zip(entries, missing)])
    if array.dtype.kind not in "OUS":
        raise _errors.InputError(f"{name}: numbers or texts are expected", name, column=name)
    texts = []
    for row, (entry, gone) in enumerate(zip(entries, missing)):
        if not (gone or isinstance(entry, (str, int, float))):
            raise _errors.InputError(f"{name}: row {row}: {entry!r} is neither a number nor a text", name, row=row,
                                     column=name)
        texts.append(None if gone else str(entry))
    return texts


def _is_input(member, name):
    try:
        member.text(name)
        return True, ""
    except _errors.InputError as error:
        return False, error.nearest


def batch(table, basis="both", fields=(), base=None, keep=(), jobs=0, errors="raise"):
    """Checks a member for each row of a table, on all cores.

    table   a pandas data frame, or a mapping of names to columns of equal length; a column is an input by its name
            (``section``, ``l``, ``qload[1]``), a missing entry leaves that of `base`
    basis   "program", "standard" or "both"
    fields  names of further values to return, as ``kestrum fields`` lists them (``mcr``, ``kyy``)
    base    the Member that rows start from; without it a new one without loads
    keep    columns that are no inputs and are passed through; another column that is none is passed through too unless
            its name is close to that of an input, which is an error
    jobs    threads, 0 for all cores
    errors  "raise": an InputError names row and column of the first refused input; "keep": such rows are answered
            with the verdict "bad input"

    Returns a data frame with the index of `table`, or a dict of arrays: the columns passed through, then ``verdict``,
    ``ir`` (NaN where there is none), ``check``, ``clause``, ``message`` and ``notes`` by the rules of the program, the
    same with ``_standard`` by EN 1993-1-1 as written, and the fields.
    """
    if errors not in ("raise", "keep"):
        raise _errors.InputError(f"errors={errors!r}: 'raise' or 'keep' is expected", "errors")
    number = basis_number(basis)
    base = Member() if base is None else base
    frame = table if hasattr(table, "columns") and hasattr(table, "index") else None
    names = [str(name) for name in (frame.columns if frame is not None else table)]
    rows = len(frame) if frame is not None else (len(next(iter(table.values()))) if table else 0)
    columns, passed = [], []
    for name, key in zip(names, frame.columns if frame is not None else table):
        known, nearest = _is_input(base._member, name) if name not in keep else (False, "")
        if not known and nearest and name not in keep:
            raise _errors.InputError(f"{name}: no such input; did you mean {nearest}?", name, nearest, column=name)
        if known:
            column = _column(name, table[key])
            if len(column) != rows:
                raise _errors.InputError(f"{name}: {len(column)} values, {rows} are expected", name, column=name)
            columns.append((name, column))
        else:
            passed.append(key)
    answers = _kestrum.Table(base._member, columns, rows, number, list(fields), jobs)
    refused = answers.first_refused() if errors == "raise" else None
    if refused:
        row, column, text = refused
        label = frame.index[row] if frame is not None else row
        name = columns[column][0] if column is not None else None
        raise _errors.InputError(f"row {label}: {text}", name or "", row=row, column=name)
    return _answer(table, frame, passed, answers, number, fields)


def _answer(table, frame, passed, answers, basis, fields):
    import numpy

    out = {key: table[key] for key in passed}
    for bit, suffix in ((1, ""), (2, "_standard")):
        if not basis & bit:
            continue
        out["status" + suffix] = numpy.array(STATUSES, dtype=object)[answers.statuses(bit)]
        out["ir" + suffix] = answers.ratios(bit)
        for word, which in _WORDS:
            out[word + suffix] = numpy.array(answers.words(bit, which), dtype=object)
        if bit == 1:
            out["notes"] = numpy.array(answers.words(bit, 4), dtype=object)
    for index, field in enumerate(fields):
        out[field] = answers.field(index)
    if frame is None:
        return out
    return type(frame)(out, index=frame.index)
