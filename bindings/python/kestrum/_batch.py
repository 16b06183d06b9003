"""Many members: columns in, columns out."""

from . import _columns, _kestrum
from ._member import Member, STATUSES, basis_number

_WORDS = (("verdict", 0), ("check", 1), ("clause", 2), ("message", 3))


def batch(table, basis="both", fields=(), base=None, keep=(), jobs=0, errors="raise", notes=False):
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
    notes   find which deviations act on the unsafe side; takes some ten times as long

    Returns a data frame with the index of `table`, or a dict of arrays: the columns passed through, then ``verdict``,
    ``ir`` (NaN where there is none), ``check``, ``clause``, ``message`` and where asked ``notes`` by the rules of the
    program, the same with ``_standard`` by EN 1993-1-1 as written, and the fields.
    """
    _columns.require_errors(errors)
    number = basis_number(basis)
    base = Member() if base is None else base
    rows, columns, passed = _columns.inputs_of(table, base._member, keep)
    answers = _kestrum.Table(base._member, columns, rows, number, list(fields), jobs, notes)
    refused = answers.first_refused() if errors == "raise" else None
    if refused:
        _columns.refuse(table, refused, columns)
    return _columns.answer_of(table, passed, _answers(answers, number, fields, notes))


def _answers(answers, basis, fields, notes):
    import numpy

    out = {}
    for bit, suffix in ((1, ""), (2, "_standard")):
        if not basis & bit:
            continue
        out["status" + suffix] = numpy.array(STATUSES, dtype=object)[answers.statuses(bit)]
        out["ir" + suffix] = answers.ratios(bit)
        for word, which in _WORDS:
            out[word + suffix] = numpy.array(answers.words(bit, which), dtype=object)
        if bit == 1 and notes:
            out["notes"] = numpy.array(answers.words(bit, 4), dtype=object)
    for index, field in enumerate(fields):
        out[field] = answers.field(index)
    return out
