"""One member and its result."""

import os
import warnings
from typing import NamedTuple

from . import _errors, _kestrum

BASES = {"program": 1, "standard": 2, "both": 3}
STATUSES = ("within", "above", "unstable", "failed", "not checked", "loads dropped", "nothing acts", "bad input")

_builtin = None


def catalogue_or_builtin(catalogue):
    global _builtin
    if catalogue is not None:
        return catalogue
    if _builtin is None:
        _builtin = _kestrum.Catalogue.builtin()
    return _builtin


def basis_number(basis):
    try:
        return BASES[basis]
    except (KeyError, TypeError):
        raise _errors.InputError(f"basis={basis!r}: 'program', 'standard' or 'both' is expected", "basis") from None


def text_of(name, value):
    """A value as the library takes it: numbers with all their digits."""
    if isinstance(value, str):
        return value
    if isinstance(value, bool):
        return "1" if value else "0"
    try:
        if isinstance(value, (bytes, bytearray)):
            raise TypeError
        number = float(value)
    except (TypeError, ValueError):
        raise _errors.InputError(f"{name}={value!r}: a number or a text is expected", name) from None
    if number != number or number in (float("inf"), float("-inf")):
        raise _errors.InputError(f"{name}={value!r}: not a finite number", name)
    return repr(int(number)) if number.is_integer() and abs(number) < 1e15 else repr(number)


def settings_of(inputs):
    """Names and texts; a list sets the rows of a field from the first on, None leaves an input alone."""
    settings = []
    for name, value in inputs.items():
        if value is None:
            continue
        if isinstance(value, (str, bytes)) or not hasattr(value, "__iter__"):
            settings.append((name, text_of(name, value)))
            continue
        for row, entry in enumerate(value, 1):
            if entry is not None:
                settings.append((f"{name}[{row}]", text_of(f"{name}[{row}]", entry)))
    return settings


class Check(NamedTuple):
    """A check that has a ratio.

    check      "section_My", "flexural_z", "ltb", "eq661", "deflection_z"
    formula    by the rules of the program, "My,Ed/My,Rd"; else ""
    clause     of EN 1993-1-1 unless it says so
    load_case  by the standard the combination of actions, "6.10 G + Q1"; else ""
    place      x/L; NaN for a check of the whole member or of a segment
    ratio, limit
    point      of the section, from 1; 0 for none
    segment, segments   between restraints, from 1, and their number; 0 for none
    """

    check: str
    formula: str
    clause: str
    load_case: str
    place: float
    ratio: float
    limit: float
    point: int
    segment: int
    segments: int


class Note(NamedTuple):
    """A deviation of the program on the unsafe side that acts in its result; its cost, see Deviation, where
    ``check(costs=True)`` has found one, else NaN."""

    id: str
    text: str
    cost: float


class Deviation(NamedTuple):
    """What the standard's largest ratio loses when this deviation alone is taken by the program's rule, and what is left
    of it; both NaN where there is none. ``unsafe``: some check comes out lower, or is missing."""

    id: str
    text: str
    cost: float
    without: float
    unsafe: bool


class Failure(NamedTuple):
    """What stopped the calculation."""

    stage: str
    cause: str
    quantity: str
    value: float
    limit: float
    unit: str


class Picture:
    """A drawing as SVG, shown by notebooks."""

    def __init__(self, svg):
        self.svg = svg

    def _repr_svg_(self):
        return self.svg

    def save(self, path):
        with open(path, "w", encoding="utf-8") as out:
            out.write(self.svg)


class Result:
    """What a check has found.

    status, ir, check, clause, verdict, message     by the rules of the program
    status_standard, ir_standard, check_standard, clause_standard, verdict_standard, message_standard
                                                    by EN 1993-1-1 as written
    checks, checks_standard     every check with a ratio
    notes       deviations on the unsafe side that act
    deviations  with ``check(costs=True)``, those that change the standard's ratios, the largest cost first
    failure     what stopped the calculation, or None

    Ratios are None where there is none. ``result["mcr"]`` is an intermediate value by its name.
    """

    def __init__(self, result, project):
        self._result, self._project = result, project
        for basis, suffix in ((1, ""), (2, "_standard")):
            ratio = result.ratio(basis)
            setattr(self, "status" + suffix, STATUSES[result.status(basis)])
            setattr(self, "ir" + suffix, ratio if ratio == ratio else None)
            setattr(self, "check" + suffix, result.governing(basis))
            setattr(self, "clause" + suffix, result.clause(basis))
            setattr(self, "verdict" + suffix, result.verdict(basis))
            setattr(self, "message" + suffix, result.message(basis))
            setattr(self, "checks" + suffix, [Check(*check) for check in result.checks(basis)])
        self.notes = [Note(*note) for note in result.notes()]
        self.deviations = [Deviation(*deviation) for deviation in result.deviations()]
        failure = result.failure()
        self.failure = Failure(*failure) if failure else None

    def __getitem__(self, name):
        return self._result.value(name)

    def json(self):
        """All values of the calculation by their names."""
        import json  # here and below: what few scripts use would double the time of `import kestrum`

        return json.loads(self._result.json())

    def panel(self):
        """The result panel as text."""
        return self._result.panel()

    def diagram(self, axis="z"):
        """Loads, moment, shear force and deflection of an axis, "z" or "y"."""
        return Picture(self._result.diagram_svg(axis))

    def section(self):
        """The section, to scale with its dimensions."""
        return Picture(self._result.section_svg())

    def report(self, path, kind="control"):
        """Writes the printed report "control" or "section" as PDF, SVG or PNG by the ending of the path.

        The program ``kestrum`` prints it; it must be installed.
        """
        import shutil
        import subprocess
        import tempfile

        program = shutil.which("kestrum")
        if program is None:
            raise FileNotFoundError("the program kestrum, which prints reports, is not installed")
        folder = tempfile.mkdtemp()
        project = os.path.join(folder, "member.kst")
        try:
            with open(project, "wb") as out:
                out.write(self._project)
            done = subprocess.run([program, "report", kind, project, "-o", os.fspath(path)],
                                  capture_output=True, text=True, check=False)
            if done.returncode not in (0, 1):
                raise RuntimeError(done.stderr.strip() or f"kestrum report ended with {done.returncode}")
        finally:
            shutil.rmtree(folder, ignore_errors=True)

    def __repr__(self):
        ratios = ", ".join(f"{name}={value:.3f}" for name, value in (("ir", self.ir), ("ir_standard", self.ir_standard))
                           if value is not None)
        return f"<kestrum.Result {self.verdict or self.verdict_standard}{', ' if ratios else ''}{ratios}>"

    def _repr_html_(self):
        import html

        if self.failure:
            return f"<p><b>{html.escape(self.verdict)}</b>: {html.escape(self.message)}</p>"
        return (f'<div style="display:flex;gap:1em;align-items:flex-start"><div style="width:16em">'
                f"{self.section().svg[self.section().svg.index('<svg'):]}</div>"
                f"<pre>{html.escape(self.panel())}\n{html.escape(self.verdict)}</pre></div>")


class Member:
    """The inputs of one member, by the names of ``kestrum fields``.

    ``Member(section="IPE 400", l=7.2, qload=[12.5, 15], qtype=["G", "Q1"])``: a list sets the rows of a field; a mapping
    as the first argument takes names with brackets, ``{"qload[2]": 15}``. What is not set is that of a new project
    without loads.
    """

    def __init__(self, inputs=None, *, catalogue=None, **more):
        self._catalogue = catalogue_or_builtin(catalogue)
        self._member = _kestrum.Member(self._catalogue)
        self.set(inputs, **more)

    @classmethod
    def read(cls, path, catalogue=None):
        """The member of a project file."""
        member = cls(catalogue=catalogue)
        with open(path, "rb") as project:
            member._member.read_project(project.read())
        return member

    def set(self, inputs=None, **more):
        """Sets inputs together, all or none. Doubts about a value, such as its unit, are warnings."""
        settings = settings_of({**(inputs or {}), **more})
        if settings:
            for remark in self._member.set(settings).splitlines():
                warnings.warn(remark, stacklevel=3)
        return self

    def __getitem__(self, name):
        text = self._member.text(name)
        try:
            return self._member.number(name) if _is_number(text) else text
        except _errors.InputError:
            return text

    def __setitem__(self, name, value):
        self.set({name: value})

    def copy(self):
        return _restored(self._catalogue, self._member.copy())

    def project(self):
        """The bytes of its project file."""
        return self._member.project()

    def save(self, path):
        """Writes the project file."""
        draft = os.fspath(path) + ".tmp"
        with open(draft, "wb") as out:
            out.write(self.project())
        os.replace(draft, path)

    def check(self, basis="both", costs=False):
        """Calculates by the rules of the "program", by the "standard" as written, or by "both"; then, where asked, what
        each deviation of the program costs, which takes many times as long."""
        if costs and basis != "both":
            raise _errors.InputError("costs are the differences of both bases: basis='both' is expected", "costs")
        return Result(self._member.check(basis_number(basis), bool(costs)), self.project())

    def __reduce__(self):
        return _from_project, (self.project(),)

    def __repr__(self):
        return f"<kestrum.Member {self['section'] or 'family ' + str(self['family'])}, l={self['l']} m>"


def _is_number(text):
    try:
        float(text)
    except ValueError:
        return False
    return True


def _restored(catalogue, inner):
    member = Member.__new__(Member)
    member._catalogue, member._member = catalogue, inner
    return member


def _from_project(project):
    member = Member()
    member._member.read_project(project)
    return member
