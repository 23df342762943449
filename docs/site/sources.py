"""Headers and pages as Doxygen wants them.

In the headers a comment is for all the declarations that follow it up to the next empty line and are alike: overloads,
operators, names of types, macros. What a group says is for those of it without a comment. Doxygen gets them in front of each. Macros
without a comment are private, and so is what is defaulted or deleted without one.

In the pages, links and headings work as code hosts have it: a heading has the name that is made of its text, and a page is called by
its file. Doxygen gets labels for both. Comments, which hold what only tests want to know, are left out. Files that are no page of the
site are linked as the copies that make.py makes of them.
"""
import os
import re

from check_links import anchor_of

PAGES_AT_TOP = ('README.md', 'CHANGELOG.md', 'CONTRIBUTING.md', 'SECURITY.md')


# ---- headers ----

def name_of(declaration):
    """The name of the function that a line begins to declare, or the whole line."""
    found = None if declaration.startswith('#') else re.search(r'(operator\s*\S+?|~?\w+)\s*\(', declaration)
    return found[1] if found else declaration


def are_alike(name, other):
    """Whether one comment may be for both: overloads, operators, names of types, macros."""
    return (name == other or name.startswith('template ') or
            any(name.startswith(kind) and other.startswith(kind) for kind in ('operator', 'using ', '#')))


class Comments:
    """Repeats each comment in front of every declaration that it is for; that of a group is for those that have none."""

    def __init__(self):
        self.comment = []
        self.name = ''  # of the declaration that it stands in front of
        self.group = []
        self.depth = 0
        self.inside = False   # of a declaration
        self.macro = False    # which is a macro's definition
        self.private = False  # nobody's business
        self.fresh = False    # the comment has just been written, by the header itself
        self.out = []

    def take(self, line):
        text = line.strip()
        if self.inside:
            self.go_on(line)
        elif text == '/// @}':
            self.group = self.comment = []
            self.out.append(line)
        elif text.startswith('///') and not text.startswith('///<'):
            self.read_comment(line, text)
        elif not text or text.startswith('}') or re.match(r'(public|protected|private):', text):
            self.comment = []
            self.fresh = False
            self.out.append(line)
        elif re.match(r'#(?! *define)|//', text):
            self.out.append(line)
        else:
            self.begin(line, text)

    def read_comment(self, line, text):
        self.comment = [*self.comment, line] if self.fresh else [line]
        self.fresh = True
        self.out.append(line)
        if text == '/// @{':
            self.group = self.words_of_group()
            self.comment = []
            self.fresh = False
            self.out.append('')

    def words_of_group(self):
        """What Doxygen is told of members without a comment of their own: nothing, since name and text of the group stand above them."""
        return ['/// <span></span>'] if any('@name' in one for one in self.comment) else []

    def begin(self, line, text):
        self.macro = re.match(r'# *define', text) is not None
        # What the compiler makes by itself needs no words, and a destructor has nothing to tell but what is odd about it.
        silent = re.search(r' = (default|delete);$|^(virtual )?~', text) is not None
        self.private = not self.fresh and (silent or (self.macro and not self.comment))
        name = name_of(text)
        if self.fresh:
            self.name = name
        elif not self.private and '///<' not in line:
            self.out += self.comment if self.comment and are_alike(name, self.name) else ['', *self.group]
        self.fresh = False
        self.depth = 0
        self.go_on(line)

    def go_on(self, line):
        self.out.append('' if self.private else line)
        if self.macro:
            self.inside = line.endswith('\\')
            return
        code = re.sub(r'"(\\.|[^"\\])*"|\'(\\.|[^\'\\])*\'|//.*', '', line)
        self.depth += sum(code.count(char) for char in '({[') - sum(code.count(char) for char in ')}]')
        opens_scope = re.match(r'\s*(template <.*> )?(class|struct|namespace|extern "C"|inline namespace)\b.*\{$', line)
        if opens_scope:
            self.comment = []
        self.inside = not opens_scope and not (self.depth <= 0 and re.search(r'[;}]\s*$', code))


# Doxygen does not see that a specialisation belongs to its namespace unless it stands in it.
SPECIALISATION = re.compile(r'((?:^ *///[^\n]*\n)*)^template <>\nstruct (std|fmt)::(.*?^\};)\n', re.MULTILINE | re.DOTALL)


# A macro of several lines that declares something, with an operator or a class and its base as its arguments.
DECLARING_MACRO = re.compile(r'((?:^ *//[^\n]*\n)*)^#define (\w+)\((op|Class, Base)\)((?:[^\n]*\\\n)+[^\n]*\n)', re.MULTILINE)


def with_macros_expanded(content):
    """Doxygen could do so itself, but would find no comments on what comes out; the macro's own is for the class's members."""
    while (macro := DECLARING_MACRO.search(content)) is not None:
        comment, name, names, body = macro.groups()
        body = re.sub(r' *\\\n', '\n', body).replace('public:\n', 'public:\n' + comment)
        content = content[:macro.start()] + content[macro.end():].replace(f'#undef {name}\n', '')
        content = re.sub(rf'^ *{name}\((.*)\)(;?)\n', lambda use: filled(body, names, use[1]).rstrip() + use[2] + '\n', content, flags=re.MULTILINE)
    return content


def filled(body, names, arguments):
    for name, argument in zip(names.split(', '), arguments.split(', ')):
        body = re.sub(rf'\b{name}\b', argument, body)
    return body.lstrip('\n')


def header(lines):
    content = SPECIALISATION.sub(r'namespace \2 {\n\1template <>\nstruct \3\n}\n', '\n'.join(lines))
    lines = with_macros_expanded(content).split('\n')
    comments = Comments()
    for line in lines:
        comments.take(line)
    return comments.out


# ---- pages ----

def label_of(page):
    """The name of a page among the site's labels."""
    return 'page-' + os.path.splitext(os.path.basename(page))[0].lower()


def link(page, target):
    """What Doxygen should be given for a link of the page."""
    if '://' in target:
        return target
    file, _, anchor = target.partition('#')
    path = os.path.normpath(os.path.join(os.path.dirname(page), file)) if file else page
    if path.endswith('.md') and (path.startswith('docs/') or path in PAGES_AT_TOP):
        return '@ref ' + label_of(path) + ('-' + anchor if anchor else '')
    if path.startswith('include/quelmcl/') and path.endswith('.hpp'):
        return '@ref ' + os.path.basename(path)
    if os.path.isdir(path):
        path = next(name for name in (os.path.join(path, 'main.cpp'), os.path.join(path, 'README.md')) if os.path.exists(name))
    return 'files/' + path + '.txt'


def with_labels(page, lines):
    in_code = False
    first = True
    for line in lines:
        if re.match(r' *```', line):
            in_code = not in_code
        if not in_code and line.startswith('#'):
            line += ' {#' + label_of(page) + ('' if first else '-' + anchor_of(line)) + '}'
            first = False
        elif not in_code and line.count('`') % 2 == 0:
            line = re.sub(r'(?<!`)`([^`]+)`(?!`)', lambda found: code_span(found[1]), line)
        yield line


def code_span(code):
    """To Doxygen an apostrophe ends what one backtick has begun, and a percent sign in front of a word is to be left out."""
    return '``' + re.sub(r'("[^"]*"|\'[^\']*\')|%(?=[A-Za-z])', lambda found: found[1] or '%%', code) + '``'


def page_of(path, content):
    content = re.sub(r'<!--.*?-->\n*', '', content, flags=re.DOTALL)
    content = re.sub(r'(!?\[[^\]]*\])\(([^()\s]+)\)', lambda found: f'{found[1].replace("`", "")}({link(path, found[2])})', content)
    return '\n'.join(with_labels(path, content.split('\n')))


def prepared(path):
    """The content of a header or page, for Doxygen."""
    with open(path, encoding='utf-8') as file:
        content = file.read()
    return page_of(path, content) if path.endswith('.md') else '\n'.join(header(content.split('\n')))
