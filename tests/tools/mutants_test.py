#!/usr/bin/env python3
"""A fault chosen at the start of a program does what the same fault in the source does, and without a choice nothing.

usage: mutants_test.py COMPILER
"""
import os
import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / 'tools/lib'))
from mutants import sites, switched  # noqa: E402

FORMULAS = '''
double Linear(double a, double b, int n) { return a * 2.5 + b / n - 3 * a; }
bool Within(int x, int low, int high) { return x >= low && x < high; }
int Choice(bool a, bool b, int p, int q) { return a || b ? p - q : p + q; }
double Sum(int n) { double sum = 0; for (int i = 0; i < n; ++i) { sum += 0 < i && i != 2 ? 1.5 * i : i; } return sum; }
int Shape(int kind, int t) { const bool thick = kind == 3 && t > 16 || kind == 1; return thick ? t : -t; }
'''
MAIN = '''
#include <cstdio>
int main()
{
    std::printf("%.6f %.6f\\n", Linear(3, 7, 2), Linear(-1, 0.5, 4));
    for (int x = 0; x < 5; ++x) std::printf("%d ", Within(x, 1, 3));
    for (int i = 0; i < 4; ++i) std::printf("%d ", Choice(i % 2, i / 2, 7, 2));
    std::printf("%.6f\\n", Sum(5));
    for (int k = 0; k < 4; ++k) for (int t = 15; t < 18; ++t) std::printf("%d ", Shape(k, t));
}
'''


def program(compiler, folder, name, source):
    path = folder / f'{name}.cpp'
    path.write_text(source + MAIN, encoding='utf-8')
    subprocess.run([compiler, '-std=c++20', '-O0', '-w', f'-I{ROOT}/tools/lib', path, '-o', folder / name], check=True)
    return folder / name


def said(path, **more):
    return subprocess.run([path], capture_output=True, text=True, env=dict(os.environ, **more), check=True).stdout


def main():
    compiler = sys.argv[1]
    found = sites(FORMULAS)
    numbered = list(enumerate(found, 1))
    head = f'#define KESTRUM_MUTANTS {len(found)}\n#include "mutant_switch.h"\n'
    failed = 0
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        all_of_them = program(compiler, folder, 'all', head + switched(FORMULAS, numbered))
        listing = folder / 'reached'
        plain = said(program(compiler, folder, 'plain', FORMULAS))
        if said(all_of_them, KESTRUM_REACHED=str(listing)) != plain:
            sys.exit('without a choice the program with all faults gives other results')
        if any(not hit for hit in listing.read_bytes()[1:]):
            sys.exit('a fault that runs is not listed')
        for number, (start, end, replacement) in numbered:
            alone = FORMULAS[:start] + replacement + FORMULAS[end:]
            expected = said(program(compiler, folder, f'alone{number}', alone))
            if said(all_of_them, KESTRUM_MUTANT=str(number)) != expected:
                line = FORMULAS.splitlines()[FORMULAS.count('\n', 0, start)]
                print(f'{FORMULAS[start:end]} -> {replacement} acts otherwise when it is chosen: {line}')
                failed += 1
    print(f'{len(found)} faults compared')
    return 1 if failed or len(found) < 25 else 0


if __name__ == '__main__':
    sys.exit(main())
