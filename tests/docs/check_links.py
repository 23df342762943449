"""check_links.py SOURCE-FOLDER - every relative link of the Markdown pages leads to a file, and its anchor to a heading of it.

Every page in docs/ must be reachable from the index, too, directly or by way of other pages.
"""
import os
import re
import sys
import unicodedata
from glob import glob

from markdown import parts_of

INDEX = 'docs/index.md'


def prose_of(path):
    """The page's lines that are no code, with their numbers."""
    for part in parts_of(path):
        if part.kind in ('text', 'table', 'heading'):
            for index, line in enumerate(part.lines):
                yield part.line + index, re.sub(r'`[^`]*`', lambda code: 'x' * len(code[0]), line)


def links_of(path):
    """Line and target of each link, `[text](target)`, also where its text goes over two lines."""
    lines = list(prose_of(path))
    page = '\n'.join(line for _, line in lines)
    for link in re.finditer(r'\]\(([^()\s]+)\)', page):
        yield lines[page.count('\n', 0, link.start())][0], link[1]


def anchor_of(heading):
    """The name that code hosts give to a heading."""
    text = re.sub(r'\[([^\]]*)\]\([^)]*\)', r'\1', heading.lstrip('#').strip().replace('`', ''))
    kept = (char for char in text.lower() if char in ' -_' or unicodedata.category(char)[0] in 'LN')
    return ''.join(kept).replace(' ', '-')


def anchors_of(path, known={}):
    if path not in known:
        known[path] = {anchor_of(part.lines[0]) for part in parts_of(path) if part.kind == 'heading'}
    return known[path]


def trouble_with(page, target):
    """What is wrong with a link, or None."""
    file, _, anchor = target.partition('#')
    path = os.path.normpath(os.path.join(os.path.dirname(page), file)) if file else page
    if not os.path.exists(path):
        return 'there is no such file'
    if path.startswith('..'):
        return 'leads out of the project'
    if anchor and path.endswith('.md') and anchor not in anchors_of(path):
        return 'there is no such heading'
    return None


def reachable_from(page):
    found, waiting = {page}, [page]
    while waiting:
        here = waiting.pop()
        for _, target in links_of(here):
            path = os.path.normpath(os.path.join(os.path.dirname(here), target.partition('#')[0]))
            if path.endswith('.md') and os.path.exists(path) and path not in found:
                found.add(path)
                waiting.append(path)
    return found


def main():
    os.chdir(sys.argv[1])
    pages = sorted(glob('*.md') + glob('docs/**/*.md', recursive=True))
    links = [(page, line, target) for page in pages for line, target in links_of(page) if '://' not in target]
    failures = [f'{page}:{line}: {target}: {trouble}'
                for page, line, target in links if (trouble := trouble_with(page, target)) is not None]
    failures += [f'{page}: no link leads here from {INDEX}' for page in pages
                 if page.startswith('docs/') and page not in reachable_from(INDEX)]
    if len(links) < 20:
        failures.append(f'only {len(links)} links were found')
    if failures:
        sys.exit('\n'.join('FAIL: ' + failure for failure in failures))
    print(f'{len(links)} links of {len(pages)} pages')


if __name__ == '__main__':
    main()
