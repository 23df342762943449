"""check_page.py - everything that a page shows of C++ is compiled, run and compared.

usage: check_page.py PAGE --source DIR --work DIR --library FILE --compiler PROGRAM [--flags TEXT] [--programs DIR:DIR...]

  ```cpp with a main()    is a program of its own.
  ```cpp without one      is a fragment. It is the body of a function, unless one of its lines is a '{' in the first column: then it
                          holds functions, which all later fragments and tables of the page may call.
  below either            an indented block, or one fenced as ```text, is what it prints. What shows nothing must print nothing.
  | expression | result | is evaluated row by row. A result stands in backticks or in quotes; "throws" stands for any exception of
                          the library, `Class id` for a certain one. A column with a locale's name in place of "result" has the
                          results in that locale, and a column "zone" gives the row's time zone.
  | text | template | results |
                          is taken apart; the results are the template's variables in order.
  <!-- given ... -->      holds code that the page need not show. By the same rule it is functions, or it is the beginning of each
                          later fragment and table, in place of what was given before.
  <!-- run: NAME=value... -->
                          sets the environment of the next block or table, "run from here:" that of all that follow. Each is a process
                          of its own, and the locale is set before its first string.
  <!-- console -->        says that the next block is typed and printed in a shell: what stands behind "$ " is run, with the programs on the
                          path, and prints the lines below it. Without --programs it is left out.
  <!-- from FILE -->      says that the next block, of any language, stands in that file line for line.
"""
import argparse
import os
import re
import shlex
import subprocess
import sys
from dataclasses import dataclass, field

from markdown import Part, cells_of, code_of, parts_of

PROLOGUE = r'''
#include <quelmcl/istdexcp.hpp>
#include <quelmcl/quelmcl.hpp>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <new>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace check_page {

// As a page shows bytes: what is no UTF-8 character is \xHH.
inline void printBytes(const std::string& text)
{
  for (std::size_t at = 0; at < text.size();) {
    const unsigned char first = static_cast<unsigned char>(text[at]);
    std::size_t length = first < 0x80 ? 1 : first >= 0xc2 && first < 0xe0 ? 2 : first >= 0xe0 && first < 0xf0 ? 3 : 0;
    for (std::size_t i = 1; i < length; ++i)
      if (at + i >= text.size() || (static_cast<unsigned char>(text[at + i]) & 0xc0) != 0x80)
        length = 0;
    if (length == 0 || first < 0x20) {
      std::printf("\\x%02X", static_cast<unsigned>(first));
      length = 1;
    } else {
      std::fwrite(text.data() + at, 1, length, stdout);
    }
    at += length;
  }
}

template <class Evaluate>
void row(Evaluate evaluate)
{
  try {
    std::ostringstream text;
    evaluate(text);
    printBytes(text.str());
  } catch (const IException& failure) {
    std::printf("%s %lu", failure.name(), static_cast<unsigned long>(failure.errorId()));
  }
  std::printf("\n");
}

inline void print(std::ostream& out, const IString& text) { out.write(text, static_cast<std::streamsize>(text.length())); }
template <class Value>
void print(std::ostream& out, const Value& value)
{
  out << value;
}

}  // namespace check_page
'''

FLAGS = ['-std=c++20', '-Wall', '-Wextra', '-Wpedantic', '-Werror', '-Wno-unused-variable', '-Wno-unused-but-set-variable',
         '-Wno-unused-function']


class Failure(Exception):
    """Something of the page is not as it says."""


@dataclass
class Check:
    """Something that is run and whose output is compared."""
    line: int
    code: str
    expected: str
    environment: dict = field(default_factory=dict)
    rows: list = field(default_factory=list)  # of a table: the expected result of each line, and the row it stands in


@dataclass
class Page:
    path: str
    programs: list = field(default_factory=list)
    fragments: list = field(default_factory=list)
    functions: list = field(default_factory=list)
    consoles: list = field(default_factory=list)
    quotes: int = 0
    given: str = ''


def holds_functions(code):
    return re.search(r'^\{', code, re.MULTILINE) is not None


def output_below(parts, at):
    """What the block in front of parts[at] is said to print."""
    if at < len(parts):
        part = parts[at]
        if part.kind == 'indented' or (part.kind == 'fence' and part.info == 'text'):
            return part.text()
    return ''


def read_page(path, source):
    page = Page(path)
    parts = parts_of(path)
    usual = environment = {}
    quoted = None
    for at, part in enumerate(parts):
        if part.kind == 'comment':
            words = part.lines[0]
            if words.startswith('from '):
                quoted = words.removeprefix('from ').strip()
            elif words.startswith('run'):
                environment = settings_in(words)
                usual = environment if words.startswith('run from here:') else usual
            elif words == 'console':
                page.consoles.append(parts[at + 1])
            elif words.split() == ['given']:
                take_given(page, Part('fence', part.line + 1, part.lines[1:]))
        elif part.kind == 'fence' and quoted is not None:
            check_quote(page, part, source, quoted)
            quoted = None
        elif part.kind == 'fence' and part.info == 'cpp':
            take_code(page, part, output_below(parts, at + 1), environment)
            environment = usual
        elif part.kind == 'table':
            take_table(page, part, environment)
            environment = usual
    if quoted is not None:
        raise Failure(f'{path}: nothing follows "from {quoted}"')
    return page


def settings_in(words):
    return dict(setting.split('=', 1) for setting in shlex.split(words.split(':', 1)[1]))


def take_given(page, part):
    code = placed(page, part)
    if holds_functions(part.text()):
        page.functions.append(code)
    else:
        page.given = code


def placed(page, part):
    """The code, which tells the compiler where on the page it stands."""
    first = part.line + 1 if part.info else part.line
    return f'#line {first} "{page.path}"\n{part.text()}'


def check_quote(page, part, source, file):
    with open(os.path.join(source, file), encoding='utf-8') as content:
        if '\n' + part.text() not in '\n' + content.read():
            raise Failure(f'{page.path}:{part.line}: this does not stand in {file}')
    page.quotes += 1


def take_code(page, part, expected, environment):
    code = part.text()
    if re.search(r'\bint main\(', code):
        page.programs.append(Check(part.line, placed(page, part), expected, environment))
    elif holds_functions(code):
        if expected:
            raise Failure(f'{page.path}:{part.line}: functions alone print nothing')
        page.functions.append(placed(page, part))
    else:
        page.fragments.append(Check(part.line, page.given + placed(page, part), expected, environment))


def take_table(page, part, environment):
    header = [cell.replace('`', '') for cell in cells_of(part.lines[0])]
    rows = [(part.line + 2 + index, cells_of(line)) for index, line in enumerate(part.lines[2:])]
    if header[:3] == ['text', 'template', 'results']:
        take_templates(page, rows, environment)
    elif 'expression' in header:
        for column, name in enumerate(header):
            locale = name.strip('"')
            if name == 'result':
                take_results(page, header, rows, column, environment)
            elif locale == 'C' or re.fullmatch(r'[a-z]{2}_[A-Z]{2}\..*', locale):
                take_results(page, header, rows, column, environment | {'LC_ALL': locale})


def take_results(page, header, rows, column, environment):
    check = Check(rows[0][0], page.given, '', environment)
    zones = {}
    for line, cells in rows:
        expression = code_of(cells[header.index('expression')])
        if expression is None:
            raise Failure(f'{page.path}:{line}: this is no expression')
        zone = cells[header.index('zone')] if 'zone' in header else ''
        target = check if not zone else zones.setdefault(zone, Check(line, page.given, '', environment | {'TZ': zone}))
        target.code += f'#line {line} "{page.path}"\ncheck_page::row([&](std::ostream& out) {{ check_page::print(out, {expression}); }});\n'
        target.rows.append((line, result_of(page, line, cells[column])))
    page.fragments += [one for one in [check, *zones.values()] if one.rows]


def result_of(page, line, cell):
    code = code_of(cell)
    if code is not None:
        return code[1:-1] if len(code) > 1 and code[0] == code[-1] == '"' else code
    if len(cell) > 1 and cell[0] == cell[-1] == '"':
        return cell[1:-1]
    if cell == 'throws':
        return cell
    if cell == 'the empty string':
        return ''
    raise Failure(f'{page.path}:{line}: "{cell}" is no result; results stand in backticks or quotes')


def take_templates(page, rows, environment):
    check = Check(rows[0][0], page.given, '', environment)
    for line, cells in rows:
        text, template = code_of(cells[0]), code_of(cells[1])
        names = [name for name in re.findall(r'(?<![\w:\'"])[a-z]\w*(?![\w:(])', re.sub(r'"[^"]*"|\'[^\']*\'', '""', template))
                 if name not in ('isdigit', 'isalpha', 'isspace', 'static_cast')]
        names = list(dict.fromkeys(names))
        shown = ' << ", ";'.join(f'{name}.writeQuoted(out)' for name in names)
        check.code += (f'#line {line} "{page.path}"\ncheck_page::row([&](std::ostream& out) '
                       f'{{ IString {", ".join(names)}; IString({text}) {template}; {shown}; }});\n')
        check.rows.append((line, cells[2].replace('`', '')))
    page.fragments.append(check)


# ---- compiling and running ----

class Tools:
    def __init__(self, given):
        self.work = given.work
        self.command = [*shlex.split(given.compiler), *shlex.split(given.flags), *FLAGS]
        self.include = ['-I', os.path.join(given.source, 'include')]
        self.linking = [given.library, f'-Wl,-rpath,{os.path.dirname(given.library)}', '-pthread']

    def build(self, name, code):
        """Compiles a program; the shown code is warning-free, so a warning is an error."""
        source, program = os.path.join(self.work, name + '.cpp'), os.path.join(self.work, name)
        with open(source, 'w', encoding='utf-8') as file:
            file.write(code)
        done = subprocess.run([*self.command, *self.include, source, '-o', program, *self.linking],
                              capture_output=True, text=True, errors='replace', check=False)
        if done.returncode != 0:
            said = (done.stdout + done.stderr).split('\n')
            raise Failure(f'{name}.cpp does not compile:\n' + '\n'.join(said[:40]))
        return program


def run(page, command, check):
    done = subprocess.run(command, capture_output=True, env=os.environ | check.environment, check=False, timeout=60,
                          stdin=subprocess.DEVNULL)
    shown = done.stdout.decode('utf-8', 'backslashreplace')
    if done.returncode != 0:
        raise Failure(f'{page.path}:{check.line}: ends with {done.returncode}: {done.stderr.decode("utf-8", "replace")}')
    if check.rows:
        compare_rows(page, check, shown.split('\n')[:-1])
    elif without_ends(shown) != without_ends(check.expected):
        raise Failure(f'{page.path}:{check.line}: shown is\n{check.expected}but printed is\n{shown}')


def without_ends(text):
    """Pages have no blanks at the ends of their lines."""
    return [line.rstrip() for line in text.rstrip('\n').split('\n')]


def compare_rows(page, check, printed):
    if len(printed) != len(check.rows):
        raise Failure(f'{page.path}:{check.line}: {len(check.rows)} rows printed {len(printed)} lines')
    wrong = [f'{page.path}:{line}: shown is [{expected}], but it is [{result}]'
             for (line, expected), result in zip(check.rows, printed)
             if result != expected and not (expected == 'throws' and re.fullmatch(r'I\w+ \d+', result))]
    if wrong:
        raise Failure('\n'.join(wrong))


def run_console(page, part, programs):
    """Standard output and errors arrive together, as on a terminal."""
    environment = os.environ | {'PATH': programs + ':' + os.environ['PATH']}
    printed = ''
    for line in part.lines:
        if line.startswith('$ '):
            done = subprocess.run(['bash', '-c', line[2:]], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL,
                                  env=environment, check=False, timeout=60)
            printed += line + '\n' + done.stdout.decode('utf-8', 'backslashreplace')
    if without_ends(printed) != without_ends(part.text()):
        raise Failure(f'{page.path}:{part.line}: shown is\n{part.text()}but printed is\n{printed}')


def fragments_program(page):
    code = [PROLOGUE, 'namespace {', *page.functions]
    code += [f'void block_{index}()\n{{\n{check.code}}}\n' for index, check in enumerate(page.fragments)]
    code += ['}  // namespace', 'int main(int, char** arguments)', '{', 'std::setlocale(LC_ALL, "");', 'switch (std::atoi(arguments[1])) {']
    code += [f'case {index}: block_{index}(); break;' for index in range(len(page.fragments))]
    code += ['default: return 2;', '}', 'return 0;', '}']
    return '\n'.join(code) + '\n'


def check_all(page, tools, programs):
    failures = []

    def attempt(work):
        try:
            return work()
        except Failure as failure:
            failures.append(str(failure))
            return None

    for check in page.programs:
        attempt(lambda check=check: run(page, [tools.build(f'line_{check.line}', check.code)], check))
    if page.fragments or page.functions:
        program = attempt(lambda: tools.build('fragments', fragments_program(page)))
        for index, check in enumerate(page.fragments if program else []):
            attempt(lambda index=index, check=check: run(page, [program, str(index)], check))
    for part in page.consoles if programs else []:
        attempt(lambda part=part: run_console(page, part, programs))
    return failures


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument('page')
    for name in ('source', 'work', 'library', 'compiler'):
        parser.add_argument('--' + name, required=True)
    parser.add_argument('--flags', default='')
    parser.add_argument('--programs', default='')
    given = parser.parse_args()
    os.makedirs(given.work, exist_ok=True)
    try:
        page = read_page(given.page, given.source)
        failures = check_all(page, Tools(given), given.programs)
    except Failure as failure:
        failures = [str(failure)]
    if failures:
        sys.exit('\n'.join('FAIL: ' + failure for failure in failures))
    rows = sum(len(check.rows) for check in page.fragments)
    blocks = sum(1 for check in page.fragments if not check.rows)
    print(f'{given.page}: {len(page.programs)} programs, {blocks} fragments, {rows} rows of tables, {page.quotes} quotes')


main()
