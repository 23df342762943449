# quelmcl_lldb.py - shows lldb's user the library's strings, dates, times, sequences and exceptions as what they mean.
#
#   (lldb) command script import /usr/share/quelmcl/debug/quelmcl_lldb.py
#
# quelmcl_gdb.py is the same for gdb, shows more, and tells why strings and exceptions are read by their layout. Nothing
# here calls a function of the program. Tried with lldb 14, on unoptimised programs of g++ (tests/debug/).
import re

import lldb

weekdays = ("Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday")
kinds = {"IBuffer": "single-byte", "IDBCSBuffer": "multi-byte"}
last_julian_day = 2361221  # 2 September 1752; the next day is the 14th
longest_shown = 1000


class NoValue(Exception):
    """What the message says instead of a value."""


# ---- memory ----


def read_bytes(process, address, count):
    error = lldb.SBError()
    memory = process.ReadMemory(address, count, error) if count else b""
    if error.Fail() or memory is None:
        raise NoValue("nothing can be read at %#x" % address)
    return bytes(memory)


def read_word(process, address, size):
    return int.from_bytes(read_bytes(process, address, size), "little")


def symbol_at(target, address):
    """Some versions take a library's storage for threads for all of the segment that it begins, so segments are asked, too."""
    symbol = target.ResolveLoadAddress(address).GetSymbol()
    if symbol.IsValid():
        return symbol
    for segment in (segment for module in target.module_iter() for segment in module.section_iter()):
        offset = address - segment.GetLoadAddress(target)
        if 0 <= offset < segment.GetByteSize():
            symbol = lldb.SBAddress(segment, offset).GetSymbol()
            if symbol.IsValid():
                break
    return symbol


def class_by_table(target, address):
    name = symbol_at(target, address).GetName() or ""
    return name[len("vtable for ") :] if name.startswith("vtable for ") else None


def address_of(value):
    """Of an object or of what a reference refers to."""
    return value.GetValueAsUnsigned() if value.GetType().IsReferenceType() else value.GetLoadAddress()


def name_at(process, address):
    error = lldb.SBError()
    name = process.ReadCStringFromMemory(address, 256, error)
    return name if error.Success() else "<nothing can be read at %#x>" % address


# ---- strings ----


def quoted(text):
    """The bytes between quotes: characters where they are whole and can be seen, escapes for all else."""
    shown = []
    for character in text.decode("utf-8", "surrogateescape"):
        code = ord(character)
        if 0xDC80 <= code <= 0xDCFF:
            shown.append("\\x%02x" % (code - 0xDC00))
        elif character in '"\\':
            shown.append("\\" + character)
        elif character.isprintable():
            shown.append(character)
        else:
            shown.append("".join("\\x%02x" % byte for byte in character.encode()))
    return '"%s"' % "".join(shown)


def text_summary(process, text):
    """The text at an address, and what its buffer keeps in front of it: table of operations, count of references, length."""
    if text == 0:
        return "<no buffer>"
    word = process.GetAddressByteSize()
    record = text - word - 8
    try:
        table = class_by_table(process.target, read_word(process, record, word))
        sharers = read_word(process, record + word, 4)
        length = read_word(process, record + word + 4, 4)
        if read_bytes(process, text + length, 1) != b"\0":
            raise NoValue("no text: not constructed yet, or overwritten")
        shown = quoted(read_bytes(process, text, min(length, longest_shown)))
    except NoValue as failure:
        return "<%s>" % failure
    more = "..." if length > longest_shown else ""
    return "%s%s (length %d, sharers %d, %s)" % (shown, more, length, sharers, kinds.get(table, table or "unknown"))


def string_summary(value, _):
    value = value.GetNonSyntheticValue()
    process = value.process
    try:
        return text_summary(process, read_word(process, address_of(value), process.GetAddressByteSize()))
    except NoValue as failure:
        return "<%s>" % failure


def zero_based_string_summary(value, _):
    value = value.GetNonSyntheticValue()
    process = value.process
    word = process.GetAddressByteSize()
    try:
        return text_summary(process, read_word(process, address_of(value) + word, word))
    except NoValue as failure:
        return "<%s>" % failure


def buffer_summary(value, _):
    value = value.GetNonSyntheticValue()
    return text_summary(value.process, address_of(value) + value.process.GetAddressByteSize() + 8)


# ---- dates and times ----


def date_summary(value, _):
    day_number = value.GetNonSyntheticValue().GetChildMemberWithName("julian").GetValueAsUnsigned() & 0xFFFFFFFF
    year, month, day = date_of(day_number)
    era = " BC" if year <= 0 else ""
    return "%04d-%02d-%02d%s %s" % (1 - year if era else year, month, day, era, weekdays[day_number % 7])


def date_of(day_number):
    """Year (0 and less: BC, counted from 1 BC back), month and day, after E. G. Richards."""
    shifted = day_number + 1401
    if day_number > last_julian_day:
        shifted += (4 * day_number + 274277) // 146097 * 3 // 4 - 38
    quarters = 4 * shifted + 3
    in_year = 5 * (quarters % 1461 // 4) + 2
    month = (in_year // 153 + 2) % 12 + 1
    return quarters // 1461 - 4716 + (14 - month) // 12, month, in_year % 153 // 5 + 1


def time_summary(value, _):
    seconds = value.GetNonSyntheticValue().GetChildMemberWithName("ticks").GetValueAsSigned()
    if not 0 <= seconds <= 86400:  # whole negative days are 24:00:00
        return "<%d seconds are no time of day>" % seconds
    return "%02d:%02d:%02d" % (seconds // 3600, seconds // 60 % 60, seconds % 60)


# ---- sequences ----


class SequenceChildren:
    """The elements of an ILinkedSequence<Element>, from [1] on."""

    def __init__(self, value, _):
        self.value = value
        self.nodes = []
        self.update()

    def update(self):
        engine = self.value.GetChildMemberWithName("engine")
        process = self.value.process
        self.element = self.value.GetType().GetUnqualifiedType().GetCanonicalType().GetTemplateArgumentType(0)
        word = process.GetAddressByteSize()
        alignment = alignment_of(self.element, word)
        self.offset = (2 * word + alignment - 1) // alignment * alignment
        self.nodes = []
        node = member_of_base(engine, "ivFirst").GetValueAsUnsigned()
        count = member_of_base(engine, "ivNumberOfElements").GetValueAsUnsigned()
        try:
            while node and len(self.nodes) < min(count, longest_shown):
                following = read_word(process, node, word)
                self.nodes.append(node)
                node = following
        except NoValue:  # as far as the chain can be read
            pass
        return False

    def num_children(self):
        return len(self.nodes)

    def has_children(self):
        return bool(self.nodes)

    def get_child_index(self, name):
        found = re.match(r"\[(\d+)\]$", name)
        return int(found.group(1)) - 1 if found else -1

    def get_child_at_index(self, index):
        if not 0 <= index < len(self.nodes):
            return None
        return self.value.CreateValueFromAddress("[%d]" % (index + 1), self.nodes[index] + self.offset, self.element)


def alignment_of(type, word):
    """The alignment that an element has behind the links: lldb does not tell it, so that of its widest plain part."""
    type = type.GetCanonicalType()
    while type.IsArrayType():
        type = type.GetArrayElementType().GetCanonicalType()
    if type.GetTypeClass() not in (lldb.eTypeClassStruct, lldb.eTypeClassClass, lldb.eTypeClassUnion):
        return min(type.GetByteSize(), 4 if word == 4 else 16) or 1
    parts = [type.GetFieldAtIndex(i).GetType() for i in range(type.GetNumberOfFields())]
    parts += [type.GetDirectBaseClassAtIndex(i).GetType() for i in range(type.GetNumberOfDirectBaseClasses())]
    own = word if type.IsPolymorphicClass() else 1
    return max([own] + [alignment_of(part, word) for part in parts])


def member_of_base(value, name):
    found = value.GetChildMemberWithName(name)
    return found if found.IsValid() else value.GetChildAtIndex(0).GetChildMemberWithName(name)


def sequence_summary(value, _):
    count = member_of_base(value.GetNonSyntheticValue().GetChildMemberWithName("engine"), "ivNumberOfElements")
    number = count.GetValueAsUnsigned()
    return "%d element%s" % (number, "" if number == 1 else "s")


# ---- exceptions ----


def exception_summary(value, _):
    """Words all: table, severity, id, five locations of three, their count, that of the texts, the newest text, the group."""
    value = value.GetNonSyntheticValue()
    process = value.process
    word = process.GetAddressByteSize()
    try:
        memory = read_bytes(process, address_of(value), 22 * word)
        words = [int.from_bytes(memory[i : i + word], "little") for i in range(0, len(memory), word)]
        if words[18] > 5 or words[1] & 0xFFFFFFFF > 1:
            return "<no exception: not constructed yet, or overwritten>"
        shown = [class_by_table(process.target, words[0]) or "IException"]
        if words[2]:
            shown[0] += " %d" % words[2]
        level = words[20]
        for _ in range(min(words[19], longest_shown)):
            if level == 0:
                break
            text, level = read_word(process, level, word), read_word(process, level + word, word)
            shown.append(quoted(name_at(process, text).encode("utf-8", "surrogateescape")) if text else "no text")
        for file, function, line in (words[i : i + 3] for i in range(3, 3 + 3 * words[18], 3)):
            place = name_at(process, file) if file else "unknown file"
            shown.append("at %s:%d%s" % (place, line, " in " + name_at(process, function) if function else ""))
    except NoValue as failure:
        return "<%s>" % failure
    return ", ".join(shown)


def __lldb_init_module(debugger, _):
    exceptions = (
        "IException IAccessError IAssertionFailure IDeviceError IInvalidParameter IInvalidRequest IResourceExhausted IOutOfMemory "
        "IOutOfSystemResource IOutOfWindowResource"
    )
    summaries = [
        ("string_summary", "IString"),
        ("zero_based_string_summary", "I0String"),
        ("buffer_summary", "IBuffer IDBCSBuffer"),
        ("date_summary", "IDate"),
        ("time_summary", "ITime"),
        ("exception_summary", exceptions),
    ]
    for function, types in summaries:
        debugger.HandleCommand("type summary add -w quelmcl -F %s.%s %s" % (__name__, function, types))
    sequences = '-x "^ILinkedSequence<.*>$"'
    debugger.HandleCommand("type summary add -e -w quelmcl -F %s.sequence_summary %s" % (__name__, sequences))
    debugger.HandleCommand("type synthetic add -w quelmcl -l %s.SequenceChildren %s" % (__name__, sequences))
    debugger.HandleCommand("type category enable quelmcl")
