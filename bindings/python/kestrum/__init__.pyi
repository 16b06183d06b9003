import os
from collections.abc import Hashable, Iterable, Mapping, Sequence
from typing import Any, Literal, NamedTuple, TypeVar

from . import saf as saf
from ._kestrum import Catalogue as Catalogue

__all__ = ["Catalogue", "Check", "Deviation", "Failure", "InputError", "Member", "Note", "Picture", "Result", "batch",
           "envelope", "optimize", "saf", "__version__"]

__version__: str

Basis = Literal["program", "standard", "both"]
Errors = Literal["raise", "keep"]
Sign = Literal["compression+", "tension+"]
Value = str | float | bool | Iterable[str | float | bool | None] | None
# A pandas data frame, which answers with one, or a mapping of columns, which answers with a dict of arrays.
Table = TypeVar("Table")

class InputError(ValueError):
    field: str
    nearest: str
    line: int
    row: int | None
    column: str | None
    def __init__(self, text: str, field: str = ..., nearest: str = ..., line: int = ..., row: int | None = ...,
                 column: str | None = ...) -> None: ...

class Check(NamedTuple):
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
    id: str
    text: str
    cost: float

class Deviation(NamedTuple):
    id: str
    text: str
    cost: float
    without: float
    unsafe: bool

class Failure(NamedTuple):
    stage: str
    cause: str
    quantity: str
    value: float
    limit: float
    unit: str

class Picture:
    svg: str
    def __init__(self, svg: str) -> None: ...
    def save(self, path: str | os.PathLike[str]) -> None: ...
    def _repr_svg_(self) -> str: ...

class Result:
    status: str
    ir: float | None
    check: str
    clause: str
    verdict: str
    message: str
    checks: list[Check]
    status_standard: str
    ir_standard: float | None
    check_standard: str
    clause_standard: str
    verdict_standard: str
    message_standard: str
    checks_standard: list[Check]
    notes: list[Note]
    deviations: list[Deviation]
    failure: Failure | None
    def __getitem__(self, name: str) -> float: ...
    def json(self) -> dict[str, Any]: ...
    def panel(self) -> str: ...
    def diagram(self, axis: Literal["z", "y"] = ...) -> Picture: ...
    def section(self) -> Picture: ...
    def report(self, path: str | os.PathLike[str], kind: Literal["control", "section"] = ...) -> None: ...
    def _repr_html_(self) -> str: ...

class Member:
    def __init__(self, inputs: Mapping[str, Value] | None = ..., *, catalogue: Catalogue | None = ...,
                 **more: Value) -> None: ...
    @classmethod
    def read(cls, path: str | os.PathLike[str], catalogue: Catalogue | None = ...) -> Member: ...
    def set(self, inputs: Mapping[str, Value] | None = ..., **more: Value) -> Member: ...
    def __getitem__(self, name: str) -> str | float: ...
    def __setitem__(self, name: str, value: Value) -> None: ...
    def copy(self) -> Member: ...
    def project(self) -> bytes: ...
    def save(self, path: str | os.PathLike[str]) -> None: ...
    def check(self, basis: Basis = ..., costs: bool = ...) -> Result: ...

def batch(
    table: Table,
    basis: Basis = ...,
    fields: Sequence[str] = ...,
    base: Member | None = ...,
    keep: Sequence[str] = ...,
    jobs: int = ...,
    errors: Errors = ...,
) -> Table: ...
def envelope(
    members: Any,
    forces: Any,
    basis: Basis = ...,
    base: Member | None = ...,
    key: Hashable | None = ...,
    keep: Sequence[str] = ...,
    sign: Sign = ...,
    jobs: int = ...,
    errors: Errors = ...,
) -> Any: ...
def optimize(
    members: Any,
    pool: str | Iterable[str],
    by: Literal["mass", "depth", "price", "surface"] = ...,
    forces: Any = ...,
    group: Hashable | None = ...,
    basis: Basis = ...,
    steel: str | Iterable[str] = ...,
    max_ir: float | None = ...,
    max_h: float | None = ...,
    max_b: float | None = ...,
    top: int = ...,
    ranges: str | Iterable[str] = ...,
    prices: str | os.PathLike[str] | None = ...,
    base: Member | None = ...,
    key: Hashable | None = ...,
    keep: Sequence[str] = ...,
    sign: Sign = ...,
    jobs: int = ...,
    errors: Errors = ...,
) -> Any: ...
