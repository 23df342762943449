"""The index of the site's search, made of what Doxygen writes as XML: each section of a page, each class, each member's name."""
import json
import os
import xml.etree.ElementTree as ElementTree


def words_of(element, without=()):
    """The text of an element, but for that of its parts with certain tags, in one line."""
    pieces = []

    def take(part):
        pieces.append(part.text or '')
        for child in part:
            if child.tag == 'sp':
                pieces.append(' ')
            elif child.tag not in without:
                take(child)
            pieces.append((' ' if child.tag in ('para', 'entry', 'codeline', 'title') else '') + (child.tail or ''))

    if element is not None:
        take(element)
    return ' '.join(''.join(pieces).split())


def address_of(identifier):
    """Where Doxygen has put what has this identifier."""
    file, mark, anchor = identifier.rpartition('_1')
    return f'{file}.html#{anchor}' if mark else f'{identifier}.html'


def entries_of_page(compound):
    title = words_of(compound.find('title'))
    address = 'index.html' if compound.get('id') == 'indexpage' else compound.get('id') + '.html'
    below = ('sect1', 'sect2', 'sect3', 'title')
    yield [title, '', address, words_of(compound.find('detaileddescription'), below)]
    for section in compound.iterfind('.//*[@id]'):
        if section.tag in ('sect1', 'sect2', 'sect3'):
            yield [words_of(section.find('title')), title, address_of(section.get('id')), words_of(section, below)]


def entries_of_code(compound, known):
    name = words_of(compound.find('compoundname'))
    yield [name, compound.get('kind').replace('file', 'header'), compound.get('id') + '.html',
           words_of(compound.find('briefdescription')) + ' ' + words_of(compound.find('detaileddescription'))[:400]]
    for member in compound.iterfind('.//memberdef'):
        title = words_of(member.find('name'))
        if member.get('prot') == 'private' or (name, title) in known:
            continue
        known.add((name, title))
        about = words_of(member.find('briefdescription')) + ' ' + words_of(member.find('detaileddescription'))
        yield [title, name, address_of(member.get('id')), about.strip()]


def write_index(xml, html):
    entries = []
    known = set()
    for listed in ElementTree.parse(os.path.join(xml, 'index.xml')).getroot():
        compound = ElementTree.parse(os.path.join(xml, listed.get('refid') + '.xml')).getroot().find('compounddef')
        if compound.get('kind') == 'page':
            entries += entries_of_page(compound)
        elif compound.get('kind') in ('class', 'struct', 'file') and not compound.findtext('compoundname').endswith('.md'):
            entries += entries_of_code(compound, known)
    with open(os.path.join(html, 'search-index.js'), 'w', encoding='utf-8') as file:
        file.write('window.quelmclIndex = ' + json.dumps(entries, ensure_ascii=False, separators=(',', ':')) + ';\n')
