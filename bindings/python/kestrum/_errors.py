"""What a user may get wrong."""

from . import _kestrum


class InputError(ValueError):
    """An input that is refused.

    field    the name to blame, "" where no single one is
    nearest  what may be meant by it, or ""
    line     of a project file, 0 for none
    row      index of a table's row, None for none
    column   name of a table's column, None for none
    """

    def __init__(self, text, field="", nearest="", line=0, row=None, column=None):
        super().__init__(text)
        self.field, self.nearest, self.line, self.row, self.column = field, nearest, line, row, column

    def __reduce__(self):
        return type(self), (str(self), self.field, self.nearest, self.line, self.row, self.column)


_kestrum.set_input_error(InputError)
