"""How the utilisation of a beam grows with its span, and which check governs where.

    python3 utilisation.py [FOLDER]      writes utilisation.png
"""

import pathlib
import sys

import matplotlib
import numpy
import pandas

import kestrum

matplotlib.use("Agg")
from matplotlib import pyplot  # noqa: E402

SECTIONS = ["IPE 270", "IPE 360", "HEA 280", "HEB 300"]
COLOURS = {"section": "#1f5f8b", "buckling": "#b3372f", "deflection": "#4d8b31"}


def kind(check):
    """Of the names of checks by the standard."""
    return "section" if check.startswith("section") else "deflection" if check.startswith("deflection") else "buckling"


def main(folder):
    spans = numpy.arange(2, 10.01, 0.1)
    table = pandas.DataFrame({"section": numpy.repeat(SECTIONS, len(spans)), "l": numpy.tile(spans, len(SECTIONS))})
    table["profile"] = table["section"]
    base = kestrum.Member(steel="S355", qload=[15, 20], qtype=["G", "Q1"], checksls=True)
    answers = kestrum.batch(table, basis="standard", base=base, fields=["l"]).assign(
        kind=lambda rows: rows["check_standard"].map(kind))

    figure, axes = pyplot.subplots(figsize=(7, 4.2), layout="constrained")
    for section, rows in answers.groupby("profile", sort=False):
        for colour in COLOURS:
            part = rows["ir_standard"].where(rows["kind"] == colour)
            axes.plot(rows["l"], part, color=COLOURS[colour], linewidth=2)
        last = rows[rows["ir_standard"] <= 1].iloc[-1]
        axes.annotate(f"{section}\n{last['l']:.1f} m", (last["l"], 1), ha="right", va="bottom", xytext=(-2, 3),
                      textcoords="offset points", fontsize=9)
        print(f"{section}: up to {last['l']:.1f} m, then {last['check_standard']} ({last['clause_standard']})")
    axes.axhline(1, color="black", linewidth=1)
    axes.set(xlabel="span [m]", ylabel="utilisation by EN 1993-1-1", ylim=(0, 1.6), xlim=(2, 10))
    axes.legend([pyplot.Line2D([], [], color=colour, linewidth=2) for colour in COLOURS.values()],
                [f"{name} governs" for name in COLOURS], frameon=False, loc="lower right")
    figure.savefig(pathlib.Path(folder) / "utilisation.png", dpi=110)
    pyplot.close(figure)


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else ".")
