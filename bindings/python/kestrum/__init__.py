"""Design of steel members to EN 1993-1-1.

    import kestrum
    beam = kestrum.Member(section="IPE 400", steel="S355", l=7.2, qload=[12.5, 15])
    result = beam.check()
    result.ir, result.ir_standard

Inputs have the names of ``kestrum fields``. Units: m, kN, kN/m, kNm; section dimensions in mm, strengths in MPa.
Compression, sagging moments, and loads and deflections downwards are positive. Each result has two ratios: ``ir`` by the
rules of the program with its listed deviations, ``ir_standard`` by EN 1993-1-1 as written.
"""

from ._errors import InputError
from ._kestrum import Catalogue, version as __version__
from ._member import Check, Deviation, Failure, Member, Note, Picture, Result
from ._batch import batch
from ._envelope import envelope
from ._optimize import optimize

__all__ = ["Catalogue", "Check", "Deviation", "Failure", "InputError", "Member", "Note", "Picture", "Result", "batch",
           "envelope", "optimize", "saf", "__version__"]


def __getattr__(name):
    """Modules that need more than numpy are loaded when they are asked for."""
    if name in ("dask", "saf"):
        import importlib

        return importlib.import_module("." + name, __name__)
    raise AttributeError(f"module {__name__!r} has no attribute {name!r}")
