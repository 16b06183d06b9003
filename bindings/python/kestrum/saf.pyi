import os
from typing import Any, NamedTuple

from ._kestrum import Catalogue

class Model(NamedTuple):
    members: Any
    forces: Any
    unmapped: list[str]

def read(path: str | os.PathLike[str], catalogue: Catalogue | None = ...) -> Model: ...
