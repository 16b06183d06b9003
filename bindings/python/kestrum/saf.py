"""Models of the Structural Analysis Format (workbooks of openpyxl): steel members with their sections, materials and
lengths, and internal forces of members. What has no place here is listed, never dropped silently.

    python3 -m kestrum.saf model.xlsx -o members.csv forces.csv

writes the tables that ``kestrum envelope`` takes."""

import argparse
import csv
import os
import sys
import tempfile
from typing import Any, NamedTuple

from . import _errors, _kestrum
from ._member import catalogue_or_builtin

_FORCES = (("x", "Section at", "m", 1), ("N", "N", "kN", -1), ("Vy", "Vy", "kN", 1), ("Vz", "Vz", "kN", 1),
           ("Mx", "Mx", "kNm", 1), ("My", "My", "kNm", 1), ("Mz", "Mz", "kNm", 1))


class Model(NamedTuple):
    """members   member, section, steel, l
    forces    member, case, x, N, Vy, Vz, Mx, My, Mz (N positive in compression), sorted by member, case and place
    unmapped  sentences: "member B36: Circular Arc"

    Tables are pandas data frames where pandas is installed, else dicts of lists."""

    members: Any
    forces: Any
    unmapped: list


class _Sheet:
    """Rows of a sheet by the heads of its columns; heads may carry a unit in brackets."""

    def __init__(self, sheet):
        self.title = sheet.title
        rows = sheet.iter_rows(values_only=True)
        heads = [str(head).strip() if head is not None else "" for head in next(rows, ())]
        self._index, self._unit = {}, {}
        for index, head in enumerate(heads):
            name, _, unit = head.partition("[")
            self._index.setdefault(name.strip().lower(), index)
            self._unit.setdefault(name.strip().lower(), unit.rstrip("] "))
        self._rows = rows

    def need(self, name, unit=None):
        key = name.lower()
        if key not in self._index:
            raise _errors.InputError(f"{self.title}: no column {name}", name, column=name)
        if unit is not None and self._unit[key] != unit:
            raise _errors.InputError(f"{self.title}: {name} is in [{self._unit[key]}], [{unit}] is expected", name,
                                     column=name)

    def __iter__(self):
        for number, row in enumerate(self._rows, 2):
            if any(cell not in (None, "") for cell in row):
                yield number, {name: row[index] if index < len(row) else None for name, index in self._index.items()}


def _sheet(workbook, title):
    return _Sheet(workbook[title]) if title in workbook.sheetnames else None


def _number(value):
    try:
        number = float(value)
    except (TypeError, ValueError):
        return None
    return number if number == number and abs(number) != float("inf") else None


def _materials(workbook):
    sheet = _sheet(workbook, "StructuralMaterial")
    if sheet is None:
        return {}
    return {row.get("name"): (row.get("type"), row.get("quality")) for _, row in sheet}


def _sections(workbook, materials, catalogue):
    """Name of a cross-section -> (section, steel, "") or (None, None, why not)."""
    sections = {}
    sheet = _sheet(workbook, "StructuralCrossSection")
    for _, row in sheet or ():
        name, profile = row.get("name"), row.get("profile")
        kind = row.get("cross-section type") or ""
        material, quality = materials.get(row.get("material"), (None, None))
        if material != "Steel":
            sections[name] = (None, None, f"{material or 'no material'}")
            continue
        if kind != "Manufactured" or not profile:
            sections[name] = (None, None, f"{kind} section {row.get('shape') or profile or ''}".strip())
            continue
        member = _kestrum.Member(catalogue)
        try:
            member.set([("section", str(profile))])
        except _errors.InputError:
            sections[name] = (None, None, f"no section {profile} in the tables")
            continue
        try:
            member.set([("steel", str(quality))])
        except _errors.InputError:
            sections[name] = (None, None, f"no steel {quality} in the list")
            continue
        sections[name] = (member.text("section"), member.text("steel"), "")
    return sections


def _members(workbook, sections, unmapped):
    members = {"member": [], "section": [], "steel": [], "l": []}
    sheet = _sheet(workbook, "StructuralCurveMember")
    if sheet is None:
        raise _errors.InputError("the workbook has no sheet StructuralCurveMember")
    sheet.need("Name")
    sheet.need("Cross section")
    sheet.need("Length", "m")
    for number, row in sheet:
        name = row.get("name")
        section, steel, fault = sections.get(row.get("cross section"), (None, None, "no cross section"))
        length = _number(row.get("length"))
        shape = row.get("geometrical shape") or "Line"
        if not name:
            fault = f"row {number} has no name"
        elif name in members["member"]:
            fault = "is there twice; the first one counts"
        elif shape != "Line":
            fault = str(shape)
        elif row.get("arbitrary definition"):
            fault = "its section varies"
        elif not fault and (length is None or length <= 0):
            fault = f"length {row.get('length')}"
        if fault:
            unmapped.append(f"member {name}: {fault}")
            continue
        for key, value in zip(members, (name, section, steel, length)):
            members[key].append(value)
    return members


def _forces(workbook, known, unmapped):
    rows = []
    for title in workbook.sheetnames:
        if not title.startswith("ResultInternalForce1D"):
            continue
        sheet = _Sheet(workbook[title])
        for _, head, unit, _ in _FORCES:
            sheet.need(head, unit)
        strangers = set()
        for number, row in sheet:
            member = row.get("member")
            case = row.get("load combination") or row.get("load case")
            if member not in known:
                strangers.add(member or row.get("member rib"))
                continue
            values = [_number(row.get(head.lower())) for _, head, _, _ in _FORCES]
            if case is None or None in values:
                unmapped.append(f"{title}: row {number}: " + ("no load case" if case is None else "a value is no number"))
                continue
            signed = [value * sign for value, (_, _, _, sign) in zip(values, _FORCES)]
            rows.append((member, case, signed[0], _number(row.get("index")) or 0, *signed[1:]))
        unmapped.extend(f"{title}: forces of {name}, which is no member here" for name in sorted(map(str, strangers)))
    rows.sort(key=lambda row: row[:4])
    names = ("member", "case", "x", "N", "Vy", "Vz", "Mx", "My", "Mz")
    columns = list(zip(*rows)) if rows else [()] * 10
    del columns[3]
    return {name: list(column) for name, column in zip(names, columns)}


def read(path, catalogue=None):
    """Reads members and internal forces of a workbook; returns a Model.

    Raises InputError where a sheet that must be there is missing or has units other than m, kN and kNm.
    """
    import openpyxl

    catalogue = catalogue_or_builtin(catalogue)
    workbook = openpyxl.load_workbook(path, read_only=True, data_only=True)
    try:
        unmapped = []
        sections = _sections(workbook, _materials(workbook), catalogue)
        members = _members(workbook, sections, unmapped)
        forces = _forces(workbook, set(members["member"]), unmapped)
    finally:
        workbook.close()
    try:
        import pandas
    except ImportError:
        return Model(members, forces, unmapped)
    return Model(pandas.DataFrame(members), pandas.DataFrame(forces), unmapped)


def _write(path, table):
    """A table as CSV; the file appears whole or not at all."""
    folder = os.path.dirname(os.path.abspath(path))
    descriptor, part = tempfile.mkstemp(prefix=os.path.basename(path) + ".", suffix=".part", dir=folder)
    try:
        with os.fdopen(descriptor, "w", newline="", encoding="utf-8") as file:
            rows = csv.writer(file, lineterminator="\n")
            rows.writerow(list(table))
            rows.writerows(zip(*(list(table[name]) for name in table)))
        umask = os.umask(0)
        os.umask(umask)
        os.chmod(part, 0o666 & ~umask)
        os.replace(part, path)
    except BaseException:
        os.unlink(part)
        raise


def main(arguments=None):
    """Writes the tables of a workbook; returns 0, or 2 for one that cannot be read or has no members."""
    parser = argparse.ArgumentParser(
        prog="python3 -m kestrum.saf",
        description="Writes the members and the internal forces of a Structural Analysis Format workbook as the two "
                    "tables that kestrum envelope takes. What has no place there is reported on standard error.")
    parser.add_argument("workbook", metavar="MODEL.xlsx")
    parser.add_argument("-o", "--output", nargs=2, required=True, metavar=("MEMBERS.csv", "FORCES.csv"))
    given = parser.parse_args(arguments)
    files = [given.workbook, *given.output]
    if len({os.path.realpath(file) for file in files}) < len(files):
        parser.error("workbook and tables have to be three files")
    try:
        model = read(given.workbook)
        for sentence in model.unmapped:
            print(f"kestrum: {given.workbook}: {sentence}", file=sys.stderr)
        if len(model.members["member"]) == 0:
            raise _errors.InputError("no straight steel member with a section of the tables")
        for path, table in zip(given.output, (model.members, model.forces)):
            _write(path, table)
    except Exception as fault:  # what openpyxl raises for a file that is no workbook is of many kinds
        name = getattr(fault, "filename", None) or given.workbook
        print(f"kestrum: {name}: {getattr(fault, 'strerror', None) or fault}", file=sys.stderr)
        return 2
    if len(model.forces["member"]) == 0:
        print(f"kestrum: {given.workbook}: no internal forces (ResultInternalForce1D)", file=sys.stderr)
    return 0


if __name__ == "__main__":
    sys.exit(main())
