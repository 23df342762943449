"""The parts of a Markdown page that the tests of the documentation look at."""
import re
from dataclasses import dataclass, field


@dataclass
class Part:
    """A block of a page: `kind` is heading, fence, indented, table, comment or text."""
    kind: str
    line: int  # where it begins, from 1
    lines: list = field(default_factory=list)
    info: str = ''  # of a fence: its language

    def text(self):
        return ''.join(line + '\n' for line in self.lines)


def parts_of(path):
    """All blocks of a page in order; blank lines between them are left out."""
    with open(path, encoding='utf-8') as page:
        lines = page.read().split('\n')
    parts = []
    at = 0
    while at < len(lines):
        at = _take_part(lines, at, parts)
    return parts


def _take_part(lines, at, parts):
    line = lines[at]
    fence = re.match(r'( *)(`{3,})(\S*)', line)
    if not line.strip():
        return at + 1
    if fence:
        return _take_fence(lines, at, fence, parts)
    if line.startswith('<!--'):
        return _take_comment(lines, at, parts)
    if re.match(r'#+ ', line):
        parts.append(Part('heading', at + 1, [line]))
        return at + 1
    if line.startswith('|'):
        return _take_while(lines, at, parts, 'table', lambda text: text.startswith('|'))
    if line.startswith('    '):
        return _take_indented(lines, at, parts)
    return _take_while(lines, at, parts, 'text', lambda text: text.strip() and not re.match(r' *```|\||#+ |<!--', text))


def _take_while(lines, at, parts, kind, goes_on):
    part = Part(kind, at + 1)
    while at < len(lines) and (goes_on(lines[at]) or not part.lines):
        part.lines.append(lines[at])
        at += 1
    parts.append(part)
    return at


def _take_fence(lines, at, fence, parts):
    indent, marks, info = fence.groups()
    part = Part('fence', at + 1, info=info)
    at += 1
    while at < len(lines) and lines[at].strip() != marks:
        part.lines.append(lines[at].removeprefix(indent))
        at += 1
    if at == len(lines):
        raise SystemExit(f'FAIL: the block of line {part.line} does not end')
    parts.append(part)
    return at + 1


def _take_comment(lines, at, parts):
    part = Part('comment', at + 1)
    while True:
        part.lines.append(lines[at])
        at += 1
        if '-->' in part.lines[-1]:
            break
        if at == len(lines):
            raise SystemExit(f'FAIL: the comment of line {part.line} does not end')
    content = '\n'.join(part.lines)
    part.lines = content[len('<!--'):content.index('-->')].strip().split('\n')
    parts.append(part)
    return at


def _take_indented(lines, at, parts):
    part = Part('indented', at + 1)
    while at < len(lines) and (lines[at].startswith('    ') or not lines[at].strip()):
        part.lines.append(lines[at][4:])
        at += 1
    while part.lines and not part.lines[-1].strip():
        part.lines.pop()
    parts.append(part)
    return at


def cells_of(row):
    """The cells of a table's row; a bar between backticks does not end a cell."""
    cells = []
    cell = ''
    in_code = False
    for char in row.strip().removeprefix('|').removesuffix('|'):
        if char == '`':
            in_code = not in_code
        if char == '|' and not in_code:
            cells.append(cell.strip())
            cell = ''
        else:
            cell += char
    return cells + [cell.strip()]


def code_of(cell):
    """What stands between the backticks of a cell that is nothing else, or None."""
    if len(cell) > 1 and cell[0] == cell[-1] == '`' and '`' not in cell[1:-1]:
        return cell[1:-1]
    return None
