"""A floor of beams: the lightest IPE for each span and spacing, one section for all beams of a bay, and what that costs.

    python3 floor.py [FOLDER]      writes floor.csv
"""

import pathlib
import sys

import pandas

import kestrum

DEAD = 3.2  # kN/m2, slab and finish
LIVE = 3.0  # kN/m2, offices


def beams():
    """A row for each beam; loads of a strip as wide as the spacing."""
    rows = [{"beam": f"{bay}{number}", "bay": bay, "l": span, "spacing": spacing}
            for bay, span in (("A", 6.0), ("B", 7.2), ("C", 8.4))
            for number, spacing in enumerate((1.5, 2.4, 3.0), 1)]
    table = pandas.DataFrame(rows).set_index("beam")
    table["qload[1]"] = DEAD * table["spacing"]
    table["qload[2]"] = LIVE * table["spacing"]
    return table


def main(folder):
    # The slab holds the compression flange: no lateral torsional buckling. Deflection is checked.
    base = kestrum.Member(steel="S355", qtype=["G", "Q1"], ltb=False, checksls=True)
    table = beams()
    each = kestrum.optimize(table, ["IPE"], base=base)
    shared = kestrum.optimize(table, ["IPE"], base=base, group="bay")
    answer = table.assign(own=each["section"], ir=each["ir"].round(2), check=each["check_standard"],
                          shared=shared["section"])
    print(answer[["l", "spacing", "own", "ir", "check", "shared"]].to_string())
    for name, chosen in (("each its own", each), ("one for a bay", shared)):
        print(f"{name}: {(chosen['mass'] * table['l']).sum():.0f} kg")
    answer.to_csv(pathlib.Path(folder) / "floor.csv")


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else ".")
