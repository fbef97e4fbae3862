# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
"""Reading the debugged program's memory without trusting it.

Every reader here answers text: the value when it can be read, or a note in
angle brackets saying what could not be read and where ("<unreadable ...>",
"<damaged ...>"). None of them raises on corrupt or unmapped memory, so a
printer built on them never interrupts gdb's output.
"""
import gdb

#: The errors gdb raises while reading a value: unmapped memory
#: (gdb.MemoryError), a missing member or type (gdb.error), a value that
#: does not convert.
READ_ERRORS = (gdb.error, RuntimeError, ValueError, OverflowError, TypeError)

#: Characters of one string shown; the rest is marked "...".
MAX_SHOWN = 1024
#: A longer string length is taken for damage rather than read.
MAX_LENGTH = 1 << 24
#: A longer list is taken for damage rather than walked.
MAX_ELEMENTS = 1 << 22


def address_of(value):
    """The address of `value` in the program, or 0 when it has none."""
    try:
        return int(value.address) if value.address is not None else 0
    except READ_ERRORS:
        return 0


def read_bytes(address, length):
    """`length` bytes at `address`; raises gdb.MemoryError where unmapped."""
    if length == 0:
        return b""
    return bytes(gdb.selected_inferior().read_memory(address, length))


def is_readable(address, length):
    """Whether all `length` bytes at `address` can be read."""
    if address == 0:
        return False
    try:
        read_bytes(address, max(length, 1))
        return True
    except READ_ERRORS:
        return False


def quote(data):
    """`data` as a double-quoted text: UTF-8 shown as is, quotes and
    backslashes escaped, control characters and bytes that are no UTF-8 as
    C escapes."""
    text = data.decode("utf-8", errors="surrogateescape")
    out = ['"']
    for char in text:
        code = ord(char)
        if char in '"\\':
            out.append("\\" + char)
        elif char == "\n":
            out.append("\\n")
        elif char == "\t":
            out.append("\\t")
        elif char == "\r":
            out.append("\\r")
        elif 0xDC80 <= code <= 0xDCFF:  # a byte that is not UTF-8
            out.append("\\x%02x" % (code - 0xDC00))
        elif code < 0x20 or code == 0x7F:
            out.append("\\x%02x" % code)
        else:
            out.append(char)
    out.append('"')
    return "".join(out)


def std_string(value):
    """A std::string as (is_empty, text). Damage shows as a note, which
    counts as not empty."""
    try:
        pointer = int(value["_M_dataplus"]["_M_p"])
        length = int(value["_M_string_length"])
    except READ_ERRORS:
        return False, "<unreadable string at 0x%x>" % address_of(value)
    if length == 0:
        return True, '""'
    if length < 0 or length > MAX_LENGTH:
        return False, "<damaged string: length %d>" % length
    shown = min(length, MAX_SHOWN)
    try:
        data = read_bytes(pointer, shown)
    except READ_ERRORS:
        return False, "<unreadable string: %d characters at 0x%x>" % (length, pointer)
    return False, quote(data) + ("..." if shown < length else "")


def counted_string(value):
    """The platform's counted string (zelDeserString_t) as (is_empty, text):
    empty when unset or of length 0.

    "unset" for length 0 without characters. The length is checked against
    the characters it points at: a NUL inside the counted text or a missing
    terminator is noted after the text."""
    try:
        length = int(value["length"])
        pointer = int(value["data"])
    except READ_ERRORS:
        return False, "<unreadable counted string at 0x%x>" % address_of(value)
    if pointer == 0:
        if length == 0:
            return True, "unset"
        return False, "<damaged counted string: length %d without characters>" % length
    if length == 0:
        try:
            terminated = read_bytes(pointer, 1) == b"\0"
        except READ_ERRORS:
            return False, "<unreadable counted string: length 0 at 0x%x>" % pointer
        return terminated, '""' if terminated else '"" <length 0, no terminator>'
    if length > MAX_LENGTH:
        return False, "<damaged counted string: length %d at 0x%x>" % (length, pointer)
    shown = min(length, MAX_SHOWN)
    try:
        # With the terminator when the whole text is shown.
        data = read_bytes(pointer, shown + 1 if shown == length else shown)
    except READ_ERRORS:
        return False, "<unreadable counted string: length %d at 0x%x>" % (length, pointer)
    text = data[:shown]
    end = text.find(b"\0")
    if end >= 0:
        return False, "%s <length %d, but the text ends after %d>" % (quote(text[:end]), length, end)
    if shown < length:
        return False, quote(text) + "..."
    if data[length:length + 1] != b"\0":
        return False, "%s <length %d, no terminator>" % (quote(text), length)
    return False, quote(text)


def vector_range(value):
    """The first element and the element count of a std::vector, as
    (first, count): `first` a pointer Value; raises gdb.error on damage."""
    pointer_type = value["_M_impl"]["_M_start"].type.strip_typedefs()
    return element_range(value["_M_impl"]["_M_start"].cast(pointer_type),
                         value["_M_impl"]["_M_finish"].cast(pointer_type))


def element_range(start, finish):
    """(start, count) of the elements from pointer `start` up to pointer
    `finish`; raises gdb.error when they cannot bound a list."""
    size = start.type.strip_typedefs().target().sizeof
    distance = int(finish) - int(start)
    if distance < 0:
        raise gdb.error("damaged list, its end before its start")
    if size == 0 or distance % size != 0:
        raise gdb.error("damaged list, its end between two elements")
    if distance // size > MAX_ELEMENTS:
        raise gdb.error("damaged list of %d elements" % (distance // size))
    return start, distance // size


def dynamic_value(pointer):
    """The object `pointer` points at, as its run-time class; None when it
    cannot be read (null, dangling, unmapped)."""
    try:
        address = int(pointer)
        if address == 0:
            return None
        target = pointer.dereference()
        if not is_readable(address, target.type.sizeof):
            return None
        try:
            dynamic = target.dynamic_type
            if dynamic is not None and dynamic.strip_typedefs() != target.type.strip_typedefs():
                candidate = pointer.cast(dynamic.pointer()).dereference()
                if is_readable(int(candidate.address), dynamic.sizeof):
                    return candidate
        except READ_ERRORS:
            pass
        return target
    except READ_ERRORS:
        return None


def type_name(value):
    """The class name of `value`'s type (typedefs and qualifiers removed)."""
    try:
        found = value.type.strip_typedefs().unqualified()
        return found.tag or found.name or str(found)
    except READ_ERRORS:
        return "?"


def shared_target(shared):
    """The pointer a boost::shared_ptr holds (a Value, possibly null)."""
    return shared["px"]
