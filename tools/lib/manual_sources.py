#!/usr/bin/env python3
"""Makes the parts of the manuals that follow from other files, and checks what the manuals name.

usage: manual_sources.py deviations|verification|check|page|index ARGUMENTS
  deviations           chapter of the deviations from docs/deviations.md
  verification         chapter of the verification problems from docs/verification.md
  check KESTRUM        deviations and fields that docs/theory names exist
  page FILE FOLDER     the page without pictures that FOLDER does not hold
  index FOLDER         search.js of the HTML pages in FOLDER
"""
import html.parser
import json
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
DEVIATIONS = ROOT / 'docs/deviations.md'
VERIFICATION = ROOT / 'docs/verification.md'


def cells(line):
    return [cell.strip().replace('\0', r'\|') for cell in line.replace(r'\|', '\0').strip().strip('|').split('|')]


def deviations():
    """The tables without the names of the tests, columns as wide as a page wants them."""
    out = ['# Deviations from the standards', '']
    for line in DEVIATIONS.read_text(encoding='utf-8').splitlines():
        if line.startswith('# '):
            continue
        if re.fullmatch(r'`src/\w+`', line.strip()):
            continue
        if line.startswith('|'):
            row = cells(line)[:5]
            if set(row[0]) <= set('-:'):
                row = ['-' * n for n in (8, 28, 28, 21, 17)]
            out.append('| ' + ' | '.join(row) + ' |')
        else:
            out.append(line)
    print('\n'.join(out))


def verification():
    if not VERIFICATION.exists():
        print('# Verification problems\n\nNo verification problems are recorded with this version.')
        return
    out, last = ['# Verification problems', ''], None
    for line in VERIFICATION.read_text(encoding='utf-8').splitlines()[1:]:
        if line.startswith('|'):
            row = cells(line)
            row = row[:6] + row[7:]  # without the kind of the source
            if set(row[0]) <= set('-:'):
                row = ['-' * n for n in (6, 22, 12, 13, 13, 12, 30)]
            if row[0] == last:
                row[:2] = ['', '']  # another value of the same problem
            else:
                last = row[0]
            line = '| ' + ' | '.join(row) + ' |'
        out.append(line)
    print('\n'.join(out))


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
    for fault in faults:
        print(fault, file=sys.stderr)
    sys.exit(1 if faults else 0)


def page(path, folder):
    def present(match):
        return match.group(0) if (pathlib.Path(folder) / match.group(1)).exists() else ''
    text = pathlib.Path(path).read_text(encoding='utf-8')
    print(re.sub(r'^!\[[^]]*\]\((pictures/[^)]+)\)\n', present, text, flags=re.M), end='')


class PageText(html.parser.HTMLParser):
    """Sections of a page: identifier, heading and text."""

    def __init__(self):
        super().__init__()
        self.sections, self.heading, self.inside = [], False, False

    def handle_starttag(self, tag, attributes):
        names = dict(attributes)
        if tag == 'main':
            self.inside = True
        if tag in ('h1', 'h2', 'h3') and self.inside:
            self.sections.append({'id': names.get('id', ''), 'title': '', 'text': ''})
            self.heading = True

    def handle_endtag(self, tag):
        if tag == 'main':
            self.inside = False
        if tag in ('h1', 'h2', 'h3'):
            self.heading = False

    def handle_data(self, data):
        if self.inside and self.sections:
            self.sections[-1]['title' if self.heading else 'text'] += data


def index(folder):
    entries = []
    for path in sorted(pathlib.Path(folder).glob('*.html')):
        page = PageText()
        page.feed(path.read_text(encoding='utf-8'))
        for section in page.sections:
            entries.append({'page': path.name, 'id': section['id'], 'title': ' '.join(section['title'].split()),
                            'text': ' '.join(section['text'].split())})
    print('const kPages = ' + json.dumps(entries, ensure_ascii=False, indent=0) + ';')


def main():
    commands = {'deviations': deviations, 'verification': verification, 'check': check, 'page': page, 'index': index}
    if len(sys.argv) < 2 or sys.argv[1] not in commands:
        sys.exit(__doc__)
    commands[sys.argv[1]](*sys.argv[2:])


if __name__ == '__main__':
    main()
