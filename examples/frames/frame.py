#!/usr/bin/env python3
"""A braced frame of two storeys by the direct stiffness method: writes members.csv and forces.csv beside itself.

usage: frame.py [FOLDER]

Plane frame, linear elastic, first order. Members carry N, Vz and My; the brace, hinged at its ends, N alone. Axes: X to
the right, Z upwards; local x along the member, local z to its right (downwards for a beam from left to right). N is
positive in compression, My where it stretches the side of +z, V = dM/dx. Units kN, m.
"""
import pathlib
import sys

E = 210e6  # kN/m2
#           A m2       I m4
SECTIONS = {'HEB 200': (78.08e-4, 5696e-8), 'IPE 330': (62.61e-4, 11770e-8), 'IPE 300': (53.81e-4, 8356e-8),
            'RHS 90x5': (16.7e-4, 200e-8)}
WIDTH, STOREY = 7.0, 3.5  # m
NODES = {'1': (0, 0), '2': (WIDTH, 0), '3': (0, STOREY), '4': (WIDTH, STOREY), '5': (0, 2 * STOREY),
         '6': (WIDTH, 2 * STOREY)}
PINNED = ('1', '2')
#          from to  section     hinged
MEMBERS = {'C1': ('1', '3', 'HEB 200', False), 'C2': ('2', '4', 'HEB 200', False),
           'C3': ('3', '5', 'HEB 200', False), 'C4': ('4', '6', 'HEB 200', False),
           'B1': ('3', '4', 'IPE 330', False), 'B2': ('5', '6', 'IPE 300', False),
           'T1': ('1', '4', 'RHS 90x5', True)}
# Line loads along global axes (X, Z), kN/m of member, and forces at nodes, kN.
LOADS = {
    'G': ({'B1': (0, -16), 'B2': (0, -9), 'C1': (0, -0.6), 'C2': (0, -0.6), 'C3': (0, -0.6), 'C4': (0, -0.6)}, {}),
    'Q': ({'B1': (0, -14)}, {}),
    'S': ({'B2': (0, -6)}, {}),
    'W': ({'C1': (3.2, 0), 'C3': (3.2, 0), 'C2': (1.6, 0), 'C4': (1.6, 0)}, {'5': (2.0, 0)}),
    'W-': ({'C1': (-1.6, 0), 'C3': (-1.6, 0), 'C2': (-3.2, 0), 'C4': (-3.2, 0)}, {'6': (-2.0, 0)}),
}
# EN 1990, Eq (6.10): psi0 0.7 imposed, 0.5 snow, 0.6 wind.
CASES = {
    'U1': {'G': 1.35}, 'U2': {'G': 1.35, 'Q': 1.5}, 'U3': {'G': 1.35, 'Q': 1.5, 'S': 0.75},
    'U4': {'G': 1.35, 'Q': 1.5, 'S': 0.75, 'W': 0.9}, 'U5': {'G': 1.35, 'Q': 1.5, 'S': 0.75, 'W-': 0.9},
    'U6': {'G': 1.35, 'S': 1.5, 'Q': 1.05}, 'U7': {'G': 1.35, 'Q': 1.05, 'S': 0.75, 'W': 1.5},
    'U8': {'G': 1.35, 'Q': 1.05, 'S': 0.75, 'W-': 1.5}, 'U9': {'G': 1.0, 'W': 1.5}, 'U10': {'G': 1.0, 'W-': 1.5},
}
STATIONS = 10  # even parts of a member


def solve(a, b):
    """Gauss with pivoting."""
    n = len(b)
    a = [row[:] + [b[i]] for i, row in enumerate(a)]
    for i in range(n):
        pivot = max(range(i, n), key=lambda r: abs(a[r][i]))
        a[i], a[pivot] = a[pivot], a[i]
        for r in range(i + 1, n):
            factor = a[r][i] / a[i][i]
            for c in range(i, n + 1):
                a[r][c] -= factor * a[i][c]
    x = [0.0] * n
    for i in reversed(range(n)):
        x[i] = (a[i][n] - sum(a[i][c] * x[c] for c in range(i + 1, n))) / a[i][i]
    return x


class Element:
    """Local displacements u along x, w along z and w' at both ends; EI w'''' = q, M = -EI w''."""

    def __init__(self, nodes, member):
        start, end, section, hinged = member
        (x0, z0), (x1, z1) = nodes[start], nodes[end]
        self.ends, self.length = (start, end), ((x1 - x0) ** 2 + (z1 - z0) ** 2) ** 0.5
        c, s = (x1 - x0) / self.length, (z1 - z0) / self.length
        self.axes = ((c, s), (s, -c))  # local x and z in X and Z
        area, inertia = SECTIONS[section]
        ea, ei, l = E * area / self.length, 0 if hinged else E * inertia, self.length
        k = [[0.0] * 6 for _ in range(6)]
        for i, j, value in ((0, 0, ea), (0, 3, -ea), (3, 3, ea), (1, 1, 12 * ei / l ** 3), (1, 2, 6 * ei / l ** 2),
                            (1, 4, -12 * ei / l ** 3), (1, 5, 6 * ei / l ** 2), (2, 2, 4 * ei / l),
                            (2, 4, -6 * ei / l ** 2), (2, 5, 2 * ei / l), (4, 4, 12 * ei / l ** 3),
                            (4, 5, -6 * ei / l ** 2), (5, 5, 4 * ei / l)):
            k[i][j] = k[j][i] = value
        self.k = k
        # Local z lies right of x, so that w' turns against the rotation of the node.
        self.turn = [[0.0] * 6 for _ in range(6)]
        for block in (0, 3):
            for i in (0, 1):
                for j in (0, 1):
                    self.turn[block + i][block + j] = self.axes[i][j]
            self.turn[block + 2][block + 2] = 1.0

    def local(self, load):
        return [sum(load[j] * axis[j] for j in (0, 1)) for axis in self.axes]

    def held(self, load):
        """Equivalent nodal forces of a line load."""
        p, q = self.local(load)
        l = self.length
        return [p * l / 2, q * l / 2, q * l * l / 12, p * l / 2, q * l / 2, -q * l * l / 12]

    def globally(self, vector):
        return [sum(self.turn[r][i] * vector[r] for r in range(6)) for i in range(6)]


def analyse(nodes, members, pinned, line_loads, node_loads):
    """Start values and loads (N0, V0, M0, p, q) of each member, and the reactions."""
    elements = {name: Element(nodes, member) for name, member in members.items()}
    place = {node: 3 * i for i, node in enumerate(nodes)}
    size = 3 * len(nodes)
    k = [[0.0] * size for _ in range(size)]
    f = [0.0] * size
    for name, e in elements.items():
        at = [place[node] + i for node in e.ends for i in range(3)]
        for i in range(6):
            for j in range(6):
                k[at[i]][at[j]] += sum(e.turn[r][i] * e.k[r][c] * e.turn[c][j] for r in range(6) for c in range(6))
        for i, force in zip(at, e.globally(e.held(line_loads.get(name, (0, 0))))):
            f[i] += force
    for node, force in node_loads.items():
        for i in (0, 1):
            f[place[node] + i] += force[i]
    fixed = [place[node] + i for node in pinned for i in (0, 1)]
    free = [i for i in range(size) if i not in fixed]
    moved = solve([[k[i][j] for j in free] for i in free], [f[i] for i in free])
    d = [0.0] * size
    for i, value in zip(free, moved):
        d[i] = value
    reactions = {i: sum(k[i][j] * d[j] for j in range(size)) - f[i] for i in fixed}
    lines = {}
    for name, e in elements.items():
        load = line_loads.get(name, (0, 0))
        moved = [sum(e.turn[i][j] * d[place[e.ends[j // 3]] + j % 3] for j in range(6)) for i in range(6)]
        ends = [sum(e.k[i][j] * moved[j] for j in range(6)) - held for i, held in enumerate(e.held(load))]
        lines[name] = (ends[0], -ends[1], ends[2], *e.local(load))
    total = [sum(reactions[i] for i in fixed if i % 3 == axis) for axis in (0, 1)]
    for axis in (0, 1):  # of the loads and the supports
        loads = sum(load[axis] * elements[name].length for name, load in line_loads.items())
        loads += sum(force[axis] for force in node_loads.values())
        assert abs(loads + total[axis]) < 1e-6, 'out of balance'
    return lines


def check_portal():
    """Pinned feet, stiffness in bending alone: H = q l^2/(4 h (2 k + 3)), k = (Ir/Ic) h/l."""
    h, l, q = 4.0, 8.0, 10.0
    area = {name: (1e3, inertia) for name, (_, inertia) in SECTIONS.items()}
    kept = dict(SECTIONS)
    SECTIONS.update(area)
    nodes = {'a': (0, 0), 'b': (0, h), 'c': (l, h), 'd': (l, 0)}
    members = {'1': ('a', 'b', 'HEB 200', False), '2': ('b', 'c', 'IPE 330', False), '3': ('d', 'c', 'HEB 200', False)}
    lines = analyse(nodes, members, ('a', 'd'), {'2': (0, -q)}, {})
    SECTIONS.update(kept)
    k = SECTIONS['IPE 330'][1] / SECTIONS['HEB 200'][1] * h / l
    thrust = q * l * l / (4 * h * (2 * k + 3))
    assert abs(abs(lines['1'][1]) - thrust) < 1e-4 * thrust, (lines['1'], thrust)
    assert abs(lines['2'][2] + thrust * h) < 1e-4 * thrust * h, lines['2']  # hogging at the corner


def number(value):
    text = f'{value:.3f}'.rstrip('0').rstrip('.')
    return '0' if text in ('-0', '') else text


def main(folder):
    check_portal()
    cases = {case: analyse(NODES, MEMBERS, PINNED, *loads) for case, loads in LOADS.items()}
    with open(folder / 'members.csv', 'w', newline='\n') as out:
        print('id,section,steel,l,group,ltb,restraints', file=out)
        for name, member in MEMBERS.items():
            group = {'C': 'column', 'B': 'beam', 'T': 'brace'}[name[0]]
            ltb, restraints = ('0', '0') if name[0] == 'T' else ('1', '2' if name[0] == 'B' else '0')
            print(name, member[2], 'S235', number(Element(NODES, member).length), group, ltb, restraints, sep=',',
                  file=out)
    with open(folder / 'forces.csv', 'w', newline='\n') as out:
        print('member,case,x,N,Vy,Vz,My,Mz', file=out)
        for name, member in MEMBERS.items():
            length = Element(NODES, member).length
            for combination, factors in CASES.items():
                n, v, m, p, q = (sum(factor * cases[case][name][i] for case, factor in factors.items()) for i in range(5))
                for station in range(STATIONS + 1):
                    x = length * station / STATIONS
                    row = (x, n + p * x, 0, v - q * x, m + v * x - q * x * x / 2, 0)
                    print(name, combination, *(number(value) for value in row), sep=',', file=out)


if __name__ == '__main__':
    main(pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else pathlib.Path(__file__).resolve().parent)
