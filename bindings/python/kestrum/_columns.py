"""Tables as the library takes them: columns of numbers or texts."""

import numbers

from . import _errors
from ._member import text_of


def frame_of(table):
    """The table where it is a data frame, else None."""
    return table if hasattr(table, "columns") and hasattr(table, "index") else None


def keys_of(table):
    frame = frame_of(table)
    return list(frame.columns if frame is not None else table)


def rows_of(table):
    if frame_of(table) is not None:
        return len(table)
    return len(next(iter(table.values()))) if table else 0


def label_of(table, row):
    """How a user names the row."""
    frame = frame_of(table)
    return row if frame is None else frame.index[row]


def _missing(entry):
    """None, NaN, or what data frames have for it, which is equal to nothing, not even to itself."""
    if entry is None or isinstance(entry, str):
        return entry is None
    try:
        return not entry == entry
    except (TypeError, ValueError):
        return type(entry).__name__ == "NAType"


def entries_of(name, values):
    """The values as an array of one dimension."""
    import numpy  # only here: it takes longer to load than all of this package

    if hasattr(values, "to_numpy") and not isinstance(values.dtype, numpy.dtype):  # of pandas itself
        values = values.to_numpy(dtype=object, na_value=None)
    if numpy.ma.isMaskedArray(values):
        values = values.astype(float).filled(numpy.nan) if values.dtype.kind in "fiub" else values.filled(None)
    try:
        array = numpy.asarray(values)
        if array.dtype.kind in "US" and not hasattr(values, "dtype"):  # a list, of which some were no texts
            array = numpy.array(values, dtype=object)
    except ValueError:  # lists of unequal length
        array = numpy.empty((0, 0))
    if array.ndim != 1:
        raise _errors.InputError(f"{name}: one value for each row is expected", name, column=name)
    return array


def column(name, values):
    """Numbers as an array of doubles with NaN for what is missing, texts as a list with None."""
    import numpy

    array = entries_of(name, values)
    if array.dtype.kind in "fiub":
        return numpy.ascontiguousarray(array, dtype=numpy.float64)
    if array.dtype.kind not in "OU":
        raise _errors.InputError(f"{name}: numbers or texts are expected", name, column=name)
    entries = [None if _missing(entry) else entry.item() if isinstance(entry, numpy.generic) else entry
               for entry in array.tolist()]
    for row, entry in enumerate(entries):
        if not (entry is None or isinstance(entry, (str, numbers.Real))):
            raise _errors.InputError(f"{name}: row {row}: {entry!r} is neither a number nor a text", name, row=row,
                                     column=name)
    if any(isinstance(entry, str) for entry in entries):
        return [None if entry is None else text_of(name, entry) for entry in entries]
    return numpy.array([numpy.nan if entry is None else _float(name, row, entry) for row, entry in enumerate(entries)])


def _float(name, row, entry):
    try:
        return float(entry)
    except OverflowError:
        raise _errors.InputError(f"{name}: row {row}: not a finite number", name, row=row, column=name) from None


def nearest_of(name, names):
    """What may be meant by a name; short names have to be closer than they mostly are by chance."""
    import difflib

    return next(iter(difflib.get_close_matches(name, list(names), 1, 0.8)), "")


def is_input(member, name):
    """Whether the name is an input, and else what may be meant by it."""
    try:
        member.text(name)
        return True, ""
    except _errors.InputError as error:
        return False, nearest_of(name.partition("[")[0], [error.nearest])


def inputs_of(table, member, keep=()):
    """Rows of the table, its columns that are inputs, and the keys of the others."""
    rows = rows_of(table)
    inputs, others = [], []
    for key in keys_of(table):
        name = str(key)
        known, nearest = is_input(member, name) if name not in keep else (False, "")
        if not known and nearest:
            raise _errors.InputError(f"{name}: no such input; did you mean {nearest}?", name, nearest, column=name)
        values = column(name, table[key]) if known else table[key]
        if len(values) != rows:
            raise _errors.InputError(f"{name}: {len(values)} values, {rows} are expected", name, column=name)
        if known:
            inputs.append((name, values))
        else:
            others.append(key)
    return rows, inputs, others


def answer_of(table, passed, answers, rows=None, before=None):
    """The columns passed through, those of `before` and the answers, in the form of the table. `rows` are those of the
    table that the answers belong to, where they are others."""
    frame = frame_of(table)
    out = {**{key: table[key] for key in passed}, **(before or {})}
    if rows is not None:
        import numpy

        out = {key: values.take(rows) if hasattr(values, "take") else numpy.asarray(values, dtype=object)[rows]
               for key, values in out.items()}
    if frame is None:
        return {**out, **answers}
    index = frame.index if rows is None else frame.index.take(rows)
    answer = type(frame)(out, index=index)
    for name, values in answers.items():
        answer[name] = values
    return answer


def refuse(table, fault, inputs):
    """Raises the first refused input: its row, the place among the inputs or None, and why."""
    row, place, text = fault
    name = inputs[place][0] if place is not None else None
    raise _errors.InputError(f"row {label_of(table, row)}: {text}", name or "", row=row, column=name)


def require_errors(errors):
    if errors not in ("raise", "keep"):
        raise _errors.InputError(f"errors={errors!r}: 'raise' or 'keep' is expected", "errors")
