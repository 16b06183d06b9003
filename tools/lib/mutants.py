"""Sites of a source where one operator, comparison or number can be exchanged, and sources that hold all of them at once."""
import re

SWAPS = {'+': '-', '-': '+', '*': '/', '/': '*', '<': '<=', '<=': '<', '>': '>=', '>=': '>', '==': '!=', '!=': '==',
         '&&': '||', '||': '&&'}
OPERATOR = re.compile(r'(?<= )(\+|-|\*|/|<=|>=|<|>|==|!=|&&|\|\|)(?=[ \n])')
COMPOUND = re.compile(r'(?<= )(\+=|-=)(?=[ \n])')
NUMBER = re.compile(r'(?<![\w.])(\d+\.\d+(?:e[+-]?\d+)?|\d+(?:e[+-]?\d+)?)f?(?![\w.])')
STARTS_NO_FORMULA = ('#', 'case ', 'template', 'using ', 'static_assert', 'return {{')


def blanked(text):
    """The same length without comments, texts and characters."""
    blank = lambda m: re.sub(r'[^\n]', ' ', m.group(0))
    return re.sub(r"//[^\n]*|/\*.*?\*/|\"(?:[^\"\\\n]|\\.)*\"|'(?:[^'\\\n]|\\.)'", blank, text, flags=re.S)


def sites(text):
    """All (start, end, replacement) of a source."""
    found, offset = [], 0
    for line in blanked(text).splitlines(keepends=True):
        if not line.lstrip().startswith(STARTS_NO_FORMULA):
            found += sites_of_line(line, offset)
        offset += len(line)
    return found


def sites_of_line(line, offset):
    found = [(offset + m.start(1), offset + m.end(1), SWAPS[m.group(1)]) for m in OPERATOR.finditer(line)]
    found += [(offset + m.start(1), offset + m.end(1), {'+=': '-=', '-=': '+='}[m.group(1)])
              for m in COMPOUND.finditer(line)]
    for m in NUMBER.finditer(line):
        before, after = line[:m.start()].rstrip(), line[m.end():].lstrip()
        arithmetic = before.endswith(('*', '/', '+', '-', '(', ',', '<', '>', '=')) and '.' in m.group(1) or \
            before.endswith(('*', '/')) or after.startswith(('*', '/'))
        if float(m.group(1)) != 0 and arithmetic and not before.endswith('['):
            found.append((offset + m.start(), offset + m.end(), f'({m.group(0)} * 1.01)'))
    return found


# What ends an operand of && or ||, read outward from it.
BEFORE = re.compile(r'\b(?:return|co_return|throw)\b|[;,{?]|(?<![<>=!])=(?!=)|(?<!:):(?!:)|\|\||&&')
AFTER = re.compile(r'[;,}?]|(?<!:):(?!:)|\|\||&&')
OPEN, CLOSE = '([{', ')]}'


def operand_start(code, at, chain):
    """Start of the operand left of the operator at `at`; the operators in `chain` belong to it."""
    depth = 0
    for i in range(at - 1, -1, -1):
        if code[i] in CLOSE:
            depth += 1
        elif code[i] in OPEN:
            if depth == 0:
                return i + 1
            depth -= 1
        if depth == 0 and not code[i] in CLOSE:
            m = BEFORE.match(code, i)
            if m and m.end() <= at and m.group(0) not in chain:
                return m.end()
    return 0


def operand_end(code, at, chain):
    """End of the operand right of `at`."""
    depth = 0
    for i in range(at, len(code)):
        if code[i] in OPEN:
            depth += 1
        elif code[i] in CLOSE:
            if depth == 0:
                return i
            depth -= 1
        elif depth == 0:
            m = AFTER.match(code, i)
            if m and m.group(0) not in chain:
                return i
    return len(code)


def switched(text, numbered):
    """The source with the sites of [(id, site)] in it, each of which acts when the program starts with its id."""
    code, edits = blanked(text), []  # (position, rank, length of what it encloses, removed, inserted)
    for number, (start, end, replacement) in numbered:
        old = text[start:end]
        if old in ('&&', '||'):
            # a && b && c is (a && b) && c; the operands of || may be joined by &&
            first = operand_start(code, start, (old, '&&'))
            last = operand_end(code, end, ('&&',) if old == '||' else ())
            deciding = f'::mutant::Decides({number}, {"true" if old == "||" else "false"})'
            while first < start and text[first].isspace():
                first += 1
            while text[last - 1].isspace():
                last -= 1
            edits.append((first, 1, last - first, 0, '(bool('))
            edits.append((start, 2, 0, end - start, f') == {deciding} ? {deciding} : bool('))
            edits.append((last, -1, first - last, 0, '))'))
        elif old in ('+=', '-='):
            last = operand_end(code, end, ('&&', '||', '?', ':'))
            edits.append((end, 1, last - end, 0, f' ::mutant::Signed({number}, '))
            edits.append((last, -1, end - last, 0, ')'))
        elif old in SWAPS:
            edits.append((end, 2, 0, 0, f' ::mutant::At{{{number}}} {old}'))
        elif re.fullmatch(r'\d+', old):
            edits.append((start, 2, 0, end - start, f'::mutant::Integer{{{number}, {old}}}'))
        else:
            edits.append((start, 2, 0, end - start, f'::mutant::Number({number}, {old})'))
    # At one place: what encloses less is closed first, then what encloses more is opened first, then text is exchanged.
    edits.sort(key=lambda e: (e[0], e[1], -e[2] if e[1] == 1 else -e[2]))
    made, at = [], 0
    for position, _, _, removed, inserted in edits:
        made += [text[at:position], inserted]
        at = max(at, position + removed)
    return ''.join(made + [text[at:]])
