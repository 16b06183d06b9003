"""What the utilisation of a column depends on: each input alone ten percent down and up.

    python3 sensitivity.py [FOLDER]      writes sensitivity.png
"""

import pathlib
import sys

import matplotlib
import pandas

import kestrum

matplotlib.use("Agg")
from matplotlib import pyplot  # noqa: E402

COLUMN = {"section": "HEB 200", "steel": "General", "fyk": 355.0, "l": 4.5, "nload[1]": 700.0, "qload[1]": 9.0}
VARIED = {"l": "length", "nload[1]": "axial force", "qload[1]": "transverse load", "fyk": "yield strength"}


def main(folder):
    base = kestrum.Member(COLUMN)
    change = 0.1
    rows = [{name: base[name] * factor} for name in VARIED for factor in (1 - change, 1 + change)]
    answers = kestrum.batch(pandas.DataFrame(rows), base=base)  # what a row leaves empty is that of the base
    present = base.check().ir_standard
    study = pandas.DataFrame({"down": answers["ir_standard"].to_numpy()[::2], "up": answers["ir_standard"].to_numpy()[1::2]},
                             index=list(VARIED.values())) - present
    study = study.loc[study.abs().max(axis=1).sort_values().index]
    print(f"{base}: {present:.3f}")
    print(study.iloc[::-1].round(3).to_string())

    figure, axes = pyplot.subplots(figsize=(7, 2.8), layout="constrained")
    for name, colour in (("down", "#1f5f8b"), ("up", "#c9822b")):
        axes.barh(study.index, study[name], left=present, color=colour,
                  label=f"{'-' if name == 'down' else '+'}{100 * change:.0f} %")
    axes.axvline(present, color="black", linewidth=1)
    axes.set_xlabel("utilisation by EN 1993-1-1")
    axes.legend(frameon=False, loc="lower right")
    figure.savefig(pathlib.Path(folder) / "sensitivity.png", dpi=110)
    pyplot.close(figure)


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else ".")
