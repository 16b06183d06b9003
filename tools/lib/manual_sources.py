#!/usr/bin/env python3
"""Makes the parts of the manuals that follow from other files, and checks what the manuals name.

usage: manual_sources.py deviations|verification|check|clauses|page|index|links ARGUMENTS
  deviations           tables of the deviations from docs/deviations.md
  verification         tables of the verification problems from docs/verification.md
  check KESTRUM        deviations and fields that docs/theory names exist, it names every row of the table of details, and
                       the numbers of its example are those of the program
  page FILE FOLDER     the page without pictures that FOLDER does not hold
  index FOLDER         search.js of the HTML pages in FOLDER
  clauses FOLDER       marks the paragraphs of the manual's sources in FOLDER that name clauses, and adds an index of them
  links FOLDER         links and pictures of the pages in FOLDER exist, and each form has its picture
"""
import html.parser
import json
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
DEVIATIONS = ROOT / 'docs/deviations.md'
VERIFICATION = ROOT / 'docs/verification.md'
EXAMPLE = '87-example.md'


def cells(line):
    return [cell.strip().replace('\0', r'\|') for cell in line.replace(r'\|', '\0').strip().strip('|').split('|')]


def typeset(text):
    """Plain-text arithmetic as Pandoc sets it: powers of ten, exponents, products, minus signs."""
    text = re.sub(r'(?<=\d)e\+?(-?)0?(\d+)\b', r'·10^\1\2', text)
    text = re.sub(r'(?<=\d)/(?=\d+/\d)', r'/\\allowbreak{}', text)  # dimensions may break
    text = re.sub(r'\^(-?\d+(?:\.\d+)?)', r'^\1^', text)
    text = re.sub(r'(^|[ (^])-(?=[ \w(.])', '\\1\N{MINUS SIGN}', text)
    return re.sub(r' x (?=[\d(])', ' \N{MULTIPLICATION SIGN} ', text)


def deviations():
    """The tables without the names of the tests, columns as wide as a page wants them."""
    out, inside = [], False
    for line in DEVIATIONS.read_text(encoding='utf-8').splitlines():
        inside = inside or line.startswith('## ')
        if not inside or re.fullmatch(r'`src/\w+`', line.strip()):
            continue
        if line.startswith('|'):
            row = [typeset(re.sub(r' \(\[project\].*', '', cell)) for cell in cells(line)[:6]]
            if set(row[0]) <= set('-:'):
                row = ['-' * n for n in ((8, 25, 25, 18, 14, 12) if len(row) > 2 else (16, 84))]
            line = '| ' + ' | '.join(row) + ' |'
        out.append(line)
    print('\n'.join(out))


def verification():
    """On pages across: seven columns of a table of problems, all of any other."""
    out, last, inside, shown, within = [r'\across', ''], None, False, None, False
    for line in VERIFICATION.read_text(encoding='utf-8').splitlines():
        inside = inside or line.startswith('## ')
        if not inside:
            continue
        if line.startswith('|'):
            row = [typeset(cell) for cell in cells(line)]
            if not within:  # titles
                shown = ([i for i, head in enumerate(row) if head not in ('Tolerance', 'Kind', 'Deviations')]
                         if row[0] == 'No.' else None)
            within = True
            if shown is None:
                out.append(line)
                continue
            row = [row[i] for i in shown]
            if set(row[0]) <= set('-:'):
                row = ['-' * n for n in (7, 20, 18, 16, 16, 12, 30)]
            if row[0] == last:
                row[:2] = ['', '']  # another value of the same problem
            else:
                last = row[0]
            line = '| ' + ' | '.join(row) + ' |'
        else:
            within = False
        out.append(line)
    print('\n'.join([*out, '', r'\upright']))


def details(kestrum, project):
    """Labels of the table of details with Annex A and with Annex B, in their order."""
    labels = []
    for method in '12':
        changed = subprocess.run([kestrum, 'set', '-', f'method={method}', '-o', '-'], input=project,
                                 capture_output=True, text=True, check=True).stdout
        table = subprocess.run([kestrum, 'table', '-'], input=changed, capture_output=True, text=True, check=True).stdout
        for line in table.splitlines()[1:]:
            cell = re.match(r' (\S+) {2,}\S', line)
            if cell and cell[1] not in labels:
                labels.append(cell[1])
    return labels


def example(kestrum, name, text):
    """What differs between the numbers of the example, [0.81]{field=chiy}, and those of its own commands."""
    commands = re.search(r'^```sh\n(kestrum new .*?)```', text, re.M | re.S)[1].replace('\\\n', ' ').splitlines()
    words = shlex.split(commands[0])
    project = subprocess.run([kestrum, *words[1:words.index('-o')]], capture_output=True, text=True, check=True).stdout

    def answer(*arguments):
        return json.loads(subprocess.run([kestrum, *arguments, '-'], input=project, capture_output=True, text=True).stdout)
    state, standard = answer('dump'), answer('check', '--json')[0]['standard']
    faults, shown = [], re.findall(r'\[([\d.]+)\]\{(field|standard)=(\w+)(?: scale=([\de.-]+))?\}', text)
    for number, source, field, scale in shown:
        value = (state if source == 'field' else standard)[field] * float(scale or 1)
        digits = len(number.partition('.')[2])
        if f'{value:.{digits}f}' != number:
            faults.append(f'{name}: {field} is {value:.{digits + 2}f}, not {number}')
    return faults if len(shown) > 30 else faults + [f'{name}: numbers of the program are missing']


def check(kestrum):
    known = set(re.findall(r'^\| (D\d+) \|', DEVIATIONS.read_text(encoding='utf-8'), re.M))
    project = subprocess.run([kestrum, 'new'], capture_output=True, text=True, check=True).stdout
    state = json.loads(subprocess.run([kestrum, 'dump', '-'], input=project, capture_output=True, text=True).stdout)
    faults = []
    for path in sorted((ROOT / 'docs/theory').glob('*.md')):
        text = path.read_text(encoding='utf-8')
        faults += [f'{path.name}: {name} is not in docs/deviations.md'
                   for name in sorted(set(re.findall(r'\bD\d+\b', text)) - known)]
        if path.name == '90-index.md':
            fields = [name for line in text.splitlines() if line.startswith('|')
                      for name in re.findall(r'`(\w+)`', line)]
            faults += [f'{path.name}: the dump has no field {name}' for name in fields if name not in state]
        if path.name == EXAMPLE:
            faults += example(kestrum, path.name, text)
        if path.name == '85-details.md':
            told = re.findall(r'^\| `([^`]+)`', text, re.M)
            labels = details(kestrum, project)
            faults += [f'{path.name}: the table of details has no row {name}' for name in told if name not in labels]
            faults += [f'{path.name}: the row {name} is missing' for name in labels if name not in told]
    faults += searched()
    for fault in faults:
        print(fault, file=sys.stderr)
    sys.exit(1 if faults else 0)


# What users type into the search field of the guide, and the section that must be among what is found.
SEARCHED = {
    'hsq': 'Hat beam, slabs on both sides',
    'selfweight': 'Loading',
    'psi': 'Setup',
    'unit': 'Units and signs',
    'excel': 'More results',
    'chi': 'The panel',
}


def searched():
    """The words in the sections of the guide as its search field reads them: without hyphens, from the start of a word."""
    faults = []
    for word, title in SEARCHED.items():
        found = [found for path in sorted((ROOT / 'docs/guide').glob('*.md'))
                 for found, text in re.findall(r'^#+ (?:\d\. )?(.*?)$(.*?)(?=^#+ |\Z)', path.read_text(encoding='utf-8'), re.M | re.S)
                 if re.search(r'\b' + word, (found + text).lower().replace('-', ''))]
        if title not in found:
            faults.append(f'docs/guide: a search for {word} does not find "{title}", but {found}')
    return faults


CLAUSE = re.compile(r'(?:(EN 199\d(?:-\d+)*), )?(Annex [A-Z]|Table [A-Z]?\.?\d+(?:\.\d+)*|Eq \(?\d+\.\d+[a-z]?\)?'
                    r'|(?<![\d.·])\d\.\d+(?:\.\d+)*(?![\d.·]*\d))')


def clauses_of(text):
    """Standard and clause of each reference of a paragraph: ('EN 1993-1-1', '6.3.2.3')."""
    found = set()
    bare = re.sub(r'\$\$.*?\$\$|\$[^$]*\$|`[^`]*`', ' ', text, flags=re.S)
    for standard, clause in CLAUSE.findall(bare):
        number = clause[0].isdigit()
        if number and not standard and clause.count('.') < 2:
            continue  # any decimal
        clause = clause.replace('(', '').replace(')', '')
        of_actions = clause.startswith(('Eq 6.10', 'Eq 6.14')) or clause.startswith('6.4.3')
        found.add((standard or ('EN 1990' if of_actions else 'EN 1993-1-1'), clause))
    return found


def clause_order(key):
    standard, clause = key
    kind = ('Annex', 'Table', 'Eq').index(clause.split()[0]) + 1 if ' ' in clause else 0
    parts = re.findall(r'\d+|[A-Za-z]+', clause.split()[-1])
    return standard, kind, [(part.isdigit(), int(part) if part.isdigit() else 0, part) for part in parts]


def clauses(folder):
    places, labels = {}, 0
    for path in sorted(pathlib.Path(folder).glob('[0-9]*.md')):
        out, fenced = [], False
        for block in path.read_text(encoding='utf-8').split('\n\n'):
            fenced ^= block.count('```') % 2 == 1
            units = block.split('\n') if block.startswith('|') else [block]
            for i, unit in enumerate(units):
                start = re.match(r'\| |[-*] |(?=[\w*\[$])(?!\$\$)', unit)
                found = clauses_of(unit)
                if fenced or '```' in unit or not start or not found or unit.startswith(('| -', '|-')):
                    continue
                labels += 1
                units[i] = f'{start[0]}\\phantomsection\\label{{clause{labels}}}{unit[start.end():]}'
                for key in found:
                    places.setdefault(key, []).append(labels)
            out.append('\n'.join(units))
        path.write_text('\n\n'.join(out), encoding='utf-8')
    rows = [f'| {standard} | {clause} | \\clauses{{}}' + ''.join(rf'\clauseref{{clause{n}}}' for n in numbers) + ' |'
            for (standard, clause), numbers in sorted(places.items(), key=lambda item: clause_order(item[0]))]
    (pathlib.Path(folder) / '95-clauses.md').write_text(
        '# Index by clause\n\nClause of the standard; sections of this manual that refer to it, each with the page of the '
        'paragraph.\n\n| Standard | Clause | Section (page) |\n|------------|--------------|' + '-' * 60 + '|\n' +
        '\n'.join(rows) + '\n', encoding='utf-8')


def page(path, folder):
    def present(match):
        return match.group(0) if (pathlib.Path(folder) / match.group(1)).exists() else ''

    def anchored(match):
        """A section, under the names of the forms that it shows: F1 opens it there."""
        forms = re.findall(r'^!\[[^]]*\]\(pictures/(form-\w+)\.png\)$', match[0], re.M)
        return ''.join(f'<a id="{form}"></a>\n' for form in forms) + ('\n' if forms else '') + match[0]
    text = pathlib.Path(path).read_text(encoding='utf-8')
    text = re.sub(r'^#+ .*?(?=^#+ |\Z)', anchored, text, flags=re.M | re.S)
    print(re.sub(r'^!\[[^]]*\]\((pictures/[^)]+)\)\n', present, text, flags=re.M), end='')


class PageText(html.parser.HTMLParser):
    """Sections of a page: identifier, heading, and text without captions and column heads.

    The row of a table becomes "first: second; third."."""

    def __init__(self):
        super().__init__()
        self.sections, self.heading, self.inside, self.caption, self.cell = [], False, False, False, 0

    def handle_starttag(self, tag, attributes):
        names = dict(attributes)
        if tag == 'main':
            self.inside = True
        if tag in ('h1', 'h2', 'h3') and self.inside:
            self.sections.append({'id': names.get('id', ''), 'title': '', 'text': ''})
            self.heading = True
        if tag in ('figcaption', 'th'):
            self.caption = True
        if tag == 'tr':
            self.cell = 0
        if tag == 'td' and self.sections:
            self.sections[-1]['text'] += ('', ': ')[self.cell] if self.cell < 2 else '; '
            self.cell += 1

    def handle_endtag(self, tag):
        if tag == 'main':
            self.inside = False
        if tag in ('h1', 'h2', 'h3'):
            self.heading = False
        if tag in ('figcaption', 'th'):
            self.caption = False
        if tag == 'tr' and self.cell:
            self.sections[-1]['text'] += '. '

    def handle_data(self, data):
        if not self.inside or not self.sections or self.caption:
            return
        if self.heading:
            self.sections[-1]['title'] += data
        elif not (self.cell and data.isspace()):
            self.sections[-1]['text'] += data


def index(folder):
    entries = []
    for path in sorted(pathlib.Path(folder).glob('*.html')):
        page = PageText()
        page.feed(path.read_text(encoding='utf-8'))
        for section in page.sections:
            entries.append({'page': path.name, 'name': page.sections[0]['title'], 'id': section['id'],
                            'title': ' '.join(section['title'].split()),
                            'text': ' '.join(section['text'].split())})
    print('const kPages = ' + json.dumps(entries, ensure_ascii=False, indent=0) + ';')


class PageLinks(html.parser.HTMLParser):
    """Identifiers of a page, and what it refers to."""

    def __init__(self):
        super().__init__()
        self.ids, self.targets = set(), []

    def handle_starttag(self, tag, attributes):
        names = dict(attributes)
        self.ids.add(names.get('id', ''))
        self.targets += [names[name] for name in ('href', 'src') if name in names]


def links(folder):
    """Links, anchors and pictures of the pages exist, and each picture of a form is shown."""
    pages, faults, shown = {}, [], set()
    for path in sorted(pathlib.Path(folder).glob('*.html')):
        pages[path.name] = PageLinks()
        pages[path.name].feed(path.read_text(encoding='utf-8'))
    for name, page in pages.items():
        for target in page.targets:
            file, _, anchor = target.partition('#')
            shown.add(file)
            if file and not (pathlib.Path(folder) / file).exists():
                faults.append(f'{name}: {target} does not exist')
            elif anchor and anchor not in pages[file or name].ids:
                faults.append(f'{name}: {target} has no such place')
    known = set().union(*(page.ids for page in pages.values()))
    faults += [f'no page has a place for {path.stem}' for path in sorted(pathlib.Path(folder, 'pictures').glob('form-*.png'))
               if path.stem not in known]
    faults += [f'no page shows {path.name}' for path in sorted(pathlib.Path(folder, 'pictures').glob('form-*.png'))
               if f'pictures/{path.name}' not in shown]
    for fault in faults:
        print(fault, file=sys.stderr)
    sys.exit(1 if faults else 0)


def main():
    commands = {'deviations': deviations, 'verification': verification, 'check': check, 'clauses': clauses,
                'page': page, 'index': index, 'links': links}
    if len(sys.argv) < 2 or sys.argv[1] not in commands:
        sys.exit(__doc__)
    commands[sys.argv[1]](*sys.argv[2:])


if __name__ == '__main__':
    main()
