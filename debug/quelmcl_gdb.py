# quelmcl_gdb.py - shows gdb's user the library's objects as what they mean: strings with length, sharers and kind, dates as
# dates, sequences as lists, exceptions with their texts and places.
#
# gdb loads it by itself where it was installed beside gdb's own folders, as packages do; else: (gdb) source quelmcl_gdb.py
# docs/debugging.md shows what it prints. Tests: tests/debug/
#
# Nothing here calls a function of the program, so all of it works on core files. A compiler describes a class with virtual
# operations only where its table is, in the library, whose debug information may be missing; so buffers, I0String and
# exceptions are read by their layout, which is part of the binary interface, and all else by the names of its members.
import re

import gdb
import gdb.printing


class NoValue(Exception):
    """What the message says instead of a value: the object is not constructed yet, destroyed or overwritten."""


# ---- memory ----


def read_bytes(address, count):
    try:
        return bytes(gdb.selected_inferior().read_memory(address, count))
    except (gdb.MemoryError, OverflowError):
        raise NoValue("nothing can be read at %#x" % address) from None


def read_word(address, size):
    return int.from_bytes(read_bytes(address, size), "little")


def class_by_table(address):
    """The class whose table of virtual operations is at an address; None when no symbol tells."""
    symbol = gdb.execute("info symbol %#x" % address, to_string=True)
    found = re.match(r"(?:vtable for |_ZTV\d+)(.+?) \+ \d+", symbol)
    return found.group(1) if found else None


def text_at(address):
    """The text that ends with a NUL, for gdb to read and quote; it may be null."""
    if address == 0:
        return "none"
    return gdb.Value(address).cast(gdb.lookup_type("char").pointer()).lazy_string()


def name_at(address):
    """A name that ends with a NUL, in characters that every terminal has."""
    try:
        pointer = gdb.Value(address).cast(gdb.lookup_type("char").pointer())
        name = pointer.string(encoding="ascii", errors="backslashreplace")
    except gdb.error:
        return "<nothing can be read at %#x>" % address
    return "".join(c if c.isprintable() else "\\x%02x" % ord(c) for c in name)


def word_of(value):
    """The size of a pointer in the program that an object is of."""
    return value.address.type.sizeof


def with_details():
    return gdb.parameter("print quelmcl-details")


# ---- strings ----


class Text:
    """A text and what a buffer keeps in front of it: table of operations, count of references, length."""

    kinds = {"IBuffer": "single-byte", "IDBCSBuffer": "multi-byte"}

    def __init__(self, address, word):
        self.address = address
        if address == 0:
            raise NoValue("no buffer")
        record = address - word - 8
        table = class_by_table(read_word(record, word))
        self.kind = self.kinds.get(table, table or "unknown")
        self.sharers = read_word(record + word, 4)
        self.length = read_word(record + word + 4, 4)
        if read_bytes(address + self.length, 1) != b"\0":
            raise NoValue("no text: not constructed yet, or overwritten")

    def shown(self):
        if self.length == 0:
            return '""'
        pointer = gdb.Value(self.address).cast(gdb.lookup_type("char").pointer())
        return pointer.lazy_string(length=self.length)

    def details(self):
        yield "length", self.length
        yield "sharers", self.sharers
        yield "kind", self.kind


class StringPrinter:
    """IString: a pointer to the text in a buffer."""

    def __init__(self, value):
        self.failure = None
        try:
            self.text = self.text_of(value)
        except NoValue as failure:
            self.failure = failure

    @staticmethod
    def text_of(value):
        pointer = value["pBuffer"]
        return Text(int(pointer), pointer.type.sizeof)

    def to_string(self):
        return "<%s>" % self.failure if self.failure else self.text.shown()

    def children(self):
        if self.failure or not with_details():
            return iter(())
        return self.text.details()


class ZeroBasedStringPrinter(StringPrinter):
    """I0String: a table of virtual operations, then the IString."""

    @staticmethod
    def text_of(value):
        word = word_of(value)
        return Text(read_word(int(value.address) + word, word), word)


class BufferPrinter(StringPrinter):
    """IBuffer and IDBCSBuffer: table, references, length, text."""

    @staticmethod
    def text_of(value):
        word = word_of(value)
        return Text(int(value.address) + word + 8, word)


# ---- dates and times ----

weekdays = ("Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday")
last_julian_day = 2361221  # 2 September 1752; the next day is the 14th


def date_of(day_number):
    """Year (0 and less: BC, counted from 1 BC back), month and day, after E. G. Richards."""
    shifted = day_number + 1401
    if day_number > last_julian_day:
        shifted += (4 * day_number + 274277) // 146097 * 3 // 4 - 38
    quarters = 4 * shifted + 3
    in_year = 5 * (quarters % 1461 // 4) + 2
    month = (in_year // 153 + 2) % 12 + 1
    year = quarters // 1461 - 4716 + (14 - month) // 12
    return year, month, in_year % 153 // 5 + 1


def date_text(year, month, day):
    if year <= 0:
        return "%04d-%02d-%02d BC" % (1 - year, month, day)
    return "%04d-%02d-%02d" % (year, month, day)


class DatePrinter:
    def __init__(self, value):
        self.day_number = int(value["julian"]) & 0xFFFFFFFF

    def to_string(self):
        return "%s %s" % (date_text(*date_of(self.day_number)), weekdays[self.day_number % 7])

    def children(self):
        if with_details():
            yield "dayNumber", self.day_number


class PackedDatePrinter:
    def __init__(self, value):
        self.parts = [int(value[part]) for part in ("year", "month", "day")]

    def to_string(self):
        return "%04d-%02d-%02d" % tuple(self.parts)


class TimePrinter:
    def __init__(self, value):
        self.seconds = int(value["ticks"])

    def to_string(self):
        if not 0 <= self.seconds <= 86400:  # whole negative days are 24:00:00
            return "<%d seconds are no time of day>" % self.seconds
        return "%02d:%02d:%02d" % (self.seconds // 3600, self.seconds // 60 % 60, self.seconds % 60)


class PackedTimePrinter:
    def __init__(self, value):
        self.parts = [int(value[part]) for part in ("hours", "minutes", "seconds")]

    def to_string(self):
        return "%02d:%02d:%02d" % tuple(self.parts)


# ---- sequences ----


class Chain:
    """The nodes of an engine, by address."""

    def __init__(self, engine):
        self.first = int(engine["ivFirst"])
        self.count = int(engine["ivNumberOfElements"])
        self.word = engine["ivFirst"].type.sizeof

    def nodes(self):
        node = self.first
        for _ in range(self.count):
            if node == 0:
                raise NoValue("the chain ends here, but %d are counted" % self.count)
            following = read_word(node, self.word)
            yield node
            node = following

    def position(self, wanted):
        """From 1; 0 when it is none of the nodes, None when the sequence is too long to look."""
        longest_search = 100000
        for position, node in enumerate(self.nodes(), 1):
            if node == wanted:
                return position
            if position == longest_search:
                return None
        return 0


class Elements:
    """Where the nodes of a sequence's type keep their elements."""

    def __init__(self, sequence, word):
        self.type = sequence.template_argument(0)
        try:
            node = gdb.lookup_type(sequence.name + "::Node")
            self.offset = next(field.bitpos // 8 for field in node.fields() if field.name == "element")
        except (gdb.error, StopIteration):  # no code that uses nodes is left in the program
            alignment = self.type.alignof or word
            self.offset = (2 * word + alignment - 1) // alignment * alignment

    def at(self, node):
        return gdb.Value(node + self.offset).cast(self.type.pointer()).dereference()


def plain(type):
    return type.strip_typedefs().unqualified()


def numbered(nodes, shown):
    position = 0
    try:
        for position, node in enumerate(nodes, 1):
            yield "[%d]" % position, shown(node)
    except NoValue as failure:
        yield "[%d]" % (position + 1), "<%s>" % failure


def how_many(count):
    return "%d element%s" % (count, "" if count == 1 else "s")


class SequencePrinter:
    """ILinkedSequence<Element>."""

    def __init__(self, value):
        self.type = plain(value.type)
        self.chain = Chain(value["engine"])

    def to_string(self):
        return "%s with %s" % (self.type.name, how_many(self.chain.count))

    def children(self):
        return numbered(self.chain.nodes(), Elements(self.type, self.chain.word).at)


class EnginePrinter:
    """ILinkedSequenceImpl, which knows no elements: the addresses of the nodes."""

    def __init__(self, value):
        self.chain = Chain(value)
        self.link = plain(value["ivFirst"].type)

    def to_string(self):
        return "ILinkedSequenceImpl with %s" % how_many(self.chain.count)

    def children(self):
        return numbered(self.chain.nodes(), lambda node: gdb.Value(node).cast(self.link))


class NodePrinter:
    """A node of an ILinkedSequence<Element>: its element and its neighbours."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "node"

    def children(self):
        yield "element", self.value["element"]
        yield "previous", neighbour(self.value["ivPrevious"])
        yield "next", neighbour(self.value["ivNext"])


class LinkPrinter:
    """ILinkedSequenceImplNode, a node without what it holds."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "node"

    def children(self):
        yield "previous", neighbour(self.value["ivPrevious"])
        yield "next", neighbour(self.value["ivNext"])


def neighbour(pointer):
    return "%#x" % int(pointer) if int(pointer) else "none"


class CursorPrinter:
    """The position of a cursor, and the element there."""

    nowhere = "on no element"
    what = "cursor"

    def __init__(self, value):
        self.node = int(value["link"])
        self.failure = None
        self.where = self.nowhere
        if self.node == 0:
            return
        try:
            self.chain = Chain(self.engine_of(value))
            self.elements = Elements(self.sequence_of(value), self.chain.word)
            self.where = self.described(self.chain.position(self.node))
        except NoValue as failure:
            self.failure = "the sequence is not to be read: %s" % failure
        except gdb.MemoryError:
            self.failure = "the sequence is not to be read"

    def described(self, position):
        if position == 0:
            self.failure = "on an element that is not in the sequence"
        if position is None:
            return "far from the start of %s" % how_many(self.chain.count)
        return "at %d of %s" % (position, how_many(self.chain.count))

    @staticmethod
    def engine_of(value):
        return value["sequence"].dereference()["engine"]

    @staticmethod
    def sequence_of(value):
        return plain(value["sequence"].type.target())

    def to_string(self):
        return "%s <%s>" % (self.what, self.failure) if self.failure else "%s %s" % (self.what, self.where)

    def children(self):
        if self.node and not self.failure:
            yield "element", self.elements.at(self.node)


class IteratorPrinter(CursorPrinter):
    """The same of an iterator, which knows the engine only."""

    nowhere = "past the end"
    what = "iterator"

    @staticmethod
    def engine_of(value):
        return value["engine"].dereference()

    @staticmethod
    def sequence_of(value):
        return plain(gdb.lookup_type(split_sequence_name(plain(value.type).name)[0]))


# ---- exceptions ----


def location_text(file, function, line):
    """From the addresses of the two names and the number of the line."""
    if file == 0 and function == 0 and line == 0:
        return "nowhere"
    place = name_at(file) if file else "unknown file"
    return "%s:%d%s" % (place, line, ", in " + name_at(function) if function else "")


class LocationPrinter:
    def __init__(self, value):
        self.text = location_text(*(int(value[part]) for part in ("pClFile", "pClFunction", "ulClLineNo")))

    def to_string(self):
        return self.text


def chained_texts(level, word, most=1 << 32):
    """The texts from the newest level on, named as the exception's text() numbers them."""
    index = 0
    try:
        while level != 0 and index < most:
            text, older = read_word(level, word), read_word(level + word, word)
            yield "text(%d)" % index, text_at(text)
            level, index = older, index + 1
    except NoValue as failure:
        yield "text(%d)" % index, "<%s>" % failure


class LevelsPrinter:
    """IExcText, a level of texts with all older ones."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "texts"

    def children(self):
        return chained_texts(int(self.value.address), word_of(self.value))


class ExceptionPrinter:
    """IException, and with the name of its class every exception that is derived from it."""

    places = 5

    def __init__(self, value):
        self.static_name = plain(value.type).name
        self.failure = None
        self.word = word_of(value)
        try:
            self.read(int(value.address))
        except NoValue as failure:
            self.failure = failure

    def read(self, address):
        """Words all: table, severity, id, five locations of three, their count, that of the texts, the newest text, the group."""
        word = self.word
        memory = read_bytes(address, 22 * word)
        words = [int.from_bytes(memory[i : i + word], "little") for i in range(0, len(memory), word)]
        self.name = class_by_table(words[0]) or self.static_name
        self.severity = words[1] & 0xFFFFFFFF
        self.number = words[2]
        self.locations = [words[i : i + 3] for i in range(3, 3 + 3 * self.places, 3)]
        self.location_count, self.text_count, self.newest, self.group = words[18:]
        if self.location_count > self.places or self.severity > 1:
            raise NoValue("no exception: not constructed yet, or overwritten")

    def to_string(self):
        if self.failure:
            return "<%s>" % self.failure
        number = " %d" % self.number if self.number else ""
        return "%s%s, %s" % (self.name, number, "recoverable" if self.severity else "unrecoverable")

    def children(self):
        if self.failure:
            return
        yield from chained_texts(self.newest, self.word, self.text_count)
        for index in range(self.location_count):
            yield "location(%d)" % index, location_text(*self.locations[index])
        yield "group", text_at(self.group)


# ---- from types to printers ----

families = {
    "IString": StringPrinter,
    "I0String": ZeroBasedStringPrinter,
    "IBuffer": BufferPrinter,
    "IDBCSBuffer": BufferPrinter,
    "IDate": DatePrinter,
    "ICnrDate": PackedDatePrinter,
    "ITime": TimePrinter,
    "ICnrTime": PackedTimePrinter,
    "ILinkedSequence": SequencePrinter,
    "ILinkedSequence::Node": NodePrinter,
    "ILinkedSequence::Cursor": CursorPrinter,
    "ILinkedSequence::BasicIterator": IteratorPrinter,
    "ILinkedSequenceImpl": EnginePrinter,
    "ILinkedSequenceImplNode": LinkPrinter,
    "IExceptionLocation": LocationPrinter,
    "IExcText": LevelsPrinter,
    "IException": ExceptionPrinter,
    # A class whose description is elsewhere does not tell its bases.
    "IAccessError": ExceptionPrinter,
    "IAssertionFailure": ExceptionPrinter,
    "IDeviceError": ExceptionPrinter,
    "IInvalidParameter": ExceptionPrinter,
    "IInvalidRequest": ExceptionPrinter,
    "IResourceExhausted": ExceptionPrinter,
    "IOutOfMemory": ExceptionPrinter,
    "IOutOfSystemResource": ExceptionPrinter,
    "IOutOfWindowResource": ExceptionPrinter,
}


def split_sequence_name(name):
    """ILinkedSequence<...> and what follows it, such as ::Cursor; None for other names."""
    start = "ILinkedSequence<"
    if not name.startswith(start):
        return None
    depth = 1
    for index in range(len(start), len(name)):
        depth += {"<": 1, ">": -1}.get(name[index], 0)
        if depth == 0:
            return name[: index + 1], name[index + 1 :]
    return None


def family_name(type):
    name = type.name or ""
    split = split_sequence_name(name)
    return "ILinkedSequence" + split[1].split("<")[0] if split else name


def bases_of(type):
    return [field for field in type.fields() if field.is_base_class]


def nearest(type, is_wanted):
    """The type itself or its nearest base that is wanted, and the offset of that in the object; None when there is none."""
    waiting = [(plain(type), 0)]
    while waiting:
        candidate, offset = waiting.pop(0)
        if candidate.code != gdb.TYPE_CODE_STRUCT:
            continue
        if is_wanted(candidate):
            return candidate, offset
        # A virtual base has no offset of its own: not known here, and none of our classes is meant to be one.
        waiting += [(plain(base.type), offset + base.bitpos // 8) for base in bases_of(candidate) if hasattr(base, "bitpos")]
    return None


def own_members(value, type, known):
    """What classes between an object's own and the known one have added, the known one's being left out."""
    for field in type.fields():
        if field.is_base_class:
            if plain(field.type) != known:
                yield from own_members(value, plain(field.type), known)
        elif hasattr(field, "bitpos") and not field.artificial:
            yield field.name, value[field.name]


class DerivedPrinter:
    """An object of a class derived from one of ours: as ours, followed by the members that are its own."""

    def __init__(self, printer, value, type, known):
        self.printer = printer
        self.value = value
        self.type = type
        self.known = known

    def to_string(self):
        return self.printer.to_string()

    def children(self):
        if hasattr(self.printer, "children"):
            yield from self.printer.children()
        yield from own_members(self.value, self.type, self.known)


class Family(gdb.printing.SubPrettyPrinter):
    def __init__(self, name, printer):
        super().__init__(name)
        self.printer = printer


class Printers(gdb.printing.PrettyPrinter):
    def __init__(self):
        super().__init__("quelmcl", [Family(*family) for family in families.items()])
        self.by_name = {family.name: family for family in self.subprinters}

    def __call__(self, value):
        if value.type.code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
            value = value.referenced_value()
        type = plain(value.type)
        found = nearest(type, lambda candidate: family_name(candidate) in self.by_name)
        if found is None:
            return None
        known, offset = found
        family = self.by_name[family_name(known)]
        if not family.enabled:
            return None
        if known == type:
            return family.printer(value)
        if value.address is None:
            return None
        ours = gdb.Value(int(value.address) + offset).cast(known.pointer()).dereference()
        return DerivedPrinter(family.printer(ours), value, type, known)


class Details(gdb.Parameter):
    """Whether strings and dates are followed by what is not seen in them: length, sharers and kind, the day number."""

    set_doc = "Set printing of what strings and dates are made of."
    show_doc = "Show printing of what strings and dates are made of."

    def __init__(self):
        super().__init__("print quelmcl-details", gdb.COMMAND_DATA, gdb.PARAM_BOOLEAN)
        self.value = True

    def get_set_string(self):
        return ""

    def get_show_string(self, shown):
        return "Printing of what strings and dates are made of is %s." % shown


def register():
    try:
        gdb.parameter("print quelmcl-details")
    except RuntimeError:  # gdb loads this file with every run, and the setting stays
        Details()
    gdb.printing.register_pretty_printer(gdb.current_objfile(), Printers(), replace=True)


register()
