"""make.py OUTPUT-FOLDER - makes the site: the guide's pages and the reference of the headers, in OUTPUT-FOLDER/html.

Run in the project's folder. Doxygen gets prepared copies of headers and pages (sources.py); any warning of it is an error. Then come the
files that pages link to, and what the search looks into (search.py).
"""
import os
import re
import shutil
import subprocess
import sys
from glob import glob

SITE = os.path.dirname(os.path.relpath(__file__))
sys.dont_write_bytecode = True
sys.path.append('tests/docs')
import search  # noqa: E402
import sources  # noqa: E402


def prepare(folder):
    """Writes what Doxygen reads; returns the files that pages link to although they are none."""
    linked = set()
    pages = sorted(glob('docs/*.md')) + [page for page in sources.PAGES_AT_TOP if os.path.exists(page)]
    for path in pages + sorted(glob('include/quelmcl/*.hpp')):
        content = sources.prepared(path)
        linked.update(re.findall(r'\]\(files/(\S+)\.txt\)', content))
        target = os.path.join(folder, path)
        os.makedirs(os.path.dirname(target), exist_ok=True)
        with open(target, 'w', encoding='utf-8') as file:
            file.write(content)
    return linked


def version():
    with open('include/quelmcl/idefs.hpp', encoding='utf-8') as file:
        numbers = re.findall(r'#define QUELMCL_VERSION_M\w+ (\d+)', file.read())
    return '.'.join(numbers)


def run_doxygen(output, prepared):
    environment = os.environ | {'QUELMCL_SITE': SITE, 'QUELMCL_OUTPUT': output, 'QUELMCL_INPUT': prepared, 'QUELMCL_VERSION': version()}
    done = subprocess.run(['doxygen', os.path.join(SITE, 'Doxyfile')], env=environment, capture_output=True, text=True, check=False)
    said = (done.stdout + done.stderr).replace(os.path.join(os.getcwd(), prepared) + '/', '').strip()
    if said or done.returncode != 0:
        sys.exit(f'{said}\nmake.py: doxygen has warned, and a warning is an error')


def main():
    output = os.path.relpath(sys.argv[1])
    prepared, html = os.path.join(output, 'input'), os.path.join(output, 'html')
    shutil.rmtree(output, ignore_errors=True)
    linked = prepare(prepared) | {'LICENSE'}
    run_doxygen(output, prepared)
    for file in sorted(linked):
        os.makedirs(os.path.join(html, 'files', os.path.dirname(file)), exist_ok=True)
        shutil.copy(file, os.path.join(html, 'files', file + '.txt'))
    search.write_index(os.path.join(output, 'xml'), html)


main()
