"""Compares two streams of states: texts alike, numbers to one unit in the last place of a float."""

import json
import struct
import sys


def states(path):
    decoder = json.JSONDecoder()
    with open(path, encoding="utf-8") as file:
        text = file.read()
    at = 0
    while at < len(text):
        state, at = decoder.raw_decode(text, at)
        at += len(text[at:at + 8]) - len(text[at:at + 8].lstrip())
        yield state


def place(value):
    """Floats in order as whole numbers."""
    bits = struct.unpack("<i", struct.pack("<f", value))[0]
    return bits if bits >= 0 else -(bits & 0x7FFFFFFF)


def alike(a, b):
    if isinstance(a, bool) or isinstance(b, bool) or a is None or b is None:
        return a is b
    if isinstance(a, (int, float)) and isinstance(b, (int, float)):
        if a == b:
            return True
        try:
            return abs(place(a) - place(b)) <= 1
        except OverflowError:  # beyond single precision
            return abs(a - b) <= 1e-7 * abs(a)
    if isinstance(a, list) and isinstance(b, list):
        return len(a) == len(b) and all(alike(x, y) for x, y in zip(a, b))
    if isinstance(a, dict) and isinstance(b, dict):
        return a.keys() == b.keys() and all(alike(a[key], b[key]) for key in a)
    return a == b


def main():
    first, second, name = sys.argv[1:4]
    members = differing = beyond = 0
    for a, b in zip(states(first), states(second), strict=True):
        differing += a != b
        wrong = [key for key in a if not alike(a[key], b.get(key))]
        if wrong:
            beyond += 1
            if beyond <= 10:
                key = wrong[0]
                print(f"{name}: member {members}, {', '.join(wrong)}: {a[key]} and {b.get(key)}"[:400])
        members += 1
    print(f"{name}: {members} members, {differing} differ in some bit, {beyond} by more than one "
          "unit in the last place of a float")
    return 1 if beyond else 0


sys.exit(main())
