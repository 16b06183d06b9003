"""A frame from a workbook of the Structural Analysis Format: its members under all combinations, the worst case of each.

    python3 frame.py [FOLDER]      writes frame.xlsx, a stand-in for the file of a frame program, and frame.png
"""

import csv
import pathlib
import sys

import matplotlib
import openpyxl

import kestrum

matplotlib.use("Agg")
from matplotlib import pyplot  # noqa: E402

FRAMES = pathlib.Path(__file__).resolve().parent.parent / "frames"


def write_workbook(path):
    """The frame of examples/frames with the heads and signs of the format: N is positive in tension there."""
    with open(FRAMES / "members.csv", encoding="utf-8") as table:
        members = [row for row in csv.DictReader(table) if not row["section"].startswith("RHS")]
    with open(FRAMES / "forces.csv", encoding="utf-8") as table:
        forces = list(csv.DictReader(table))
    book = openpyxl.Workbook()
    sheets = {
        "StructuralMaterial": [("Name", "Type", "Quality"), ("M1", "Steel", "S235")],
        "StructuralCrossSection": [("Name", "Material", "Cross-section Type", "Profile")],
        "StructuralCurveMember": [("Name", "Cross section", "Length [m]", "Geometrical shape")],
        "ResultInternalForce1D": [("Member", "Load combination", "Section at [m]", "Index", "N [kN]", "Vy [kN]",
                                   "Vz [kN]", "Mx [kNm]", "My [kNm]", "Mz [kNm]")],
    }
    for profile in sorted({row["section"] for row in members}):
        sheets["StructuralCrossSection"].append((profile, "M1", "Manufactured", profile))
    for row in members:
        sheets["StructuralCurveMember"].append((row["id"], row["section"], float(row["l"]), "Line"))
    names = {row["id"] for row in members}
    for index, row in enumerate(row for row in forces if row["member"] in names):
        n, vy, vz, my, mz = (float(row[name]) for name in ("N", "Vy", "Vz", "My", "Mz"))
        sheets["ResultInternalForce1D"].append((row["member"], row["case"], float(row["x"]), index, -n, vy, vz, 0, my, mz))
    book.remove(book.active)
    for title, rows in sheets.items():
        sheet = book.create_sheet(title)
        for row in rows:
            sheet.append(row)
    book.save(path)


def draw(answers, path):
    """A bar for each member and basis, the limit as a line."""
    figure, axes = pyplot.subplots(figsize=(7, 3.5), layout="constrained")
    places = range(len(answers))
    for shift, name, label, colour in ((-0.2, "ir", "program", "#1f5f8b"), (0.2, "ir_standard", "as written", "#c9822b")):
        axes.bar([place + shift for place in places], answers[name], width=0.38, label=label, color=colour)
    axes.axhline(1, color="black", linewidth=1)
    axes.set_xticks(list(places), [f"{member}\n{section}" for member, section in zip(answers["member"], answers["profile"])])
    axes.set_ylabel("utilisation")
    axes.set_ylim(0, 1.2)
    axes.legend(frameon=False, title="EN 1993-1-1", ncols=2, loc="upper left", bbox_to_anchor=(0, 0.83))
    figure.savefig(path, dpi=110)
    pyplot.close(figure)


def main(folder):
    folder = pathlib.Path(folder)
    write_workbook(folder / "frame.xlsx")
    model = kestrum.saf.read(folder / "frame.xlsx")
    for sentence in model.unmapped:
        print("not read:", sentence)
    members = model.members.assign(profile=model.members["section"])
    members["restraints"] = [2 if name.startswith("B") else 0 for name in members["member"]]  # purlins hold the beams
    answers = kestrum.envelope(members, model.forces)
    print(answers[["member", "profile", "ir", "check", "case", "ir_standard", "cases", "above"]].to_string(index=False))
    draw(answers, folder / "frame.png")


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else ".")
