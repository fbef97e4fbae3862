# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
"""Printers of the virtual file system: fixed entries and folders, their
iterators, the recorder's user data, the criteria lists, and boost shared
pointers to the library's classes.

A folder shows its caption and number of children, and the children as an
array; an entry reached through a pointer that cannot be read shows as a
note instead of a value.
"""
import gdb

from . import items
from . import reading


def _entry_or_note(pointer, what="entry"):
    """The object behind `pointer` as its run-time class, or a note."""
    target = reading.dynamic_value(pointer)
    if target is not None:
        return target
    try:
        address = int(pointer)
    except reading.READ_ERRORS:
        return "<unreadable %s pointer>" % what
    if address == 0:
        return "none"
    return "<unreadable %s at 0x%x>" % (what, address)


def _item_of(entry):
    """The record value a fixed entry or folder holds, or a note."""
    try:
        return _entry_or_note(reading.shared_target(entry["m_item"]), "record")
    except reading.READ_ERRORS:
        return "<unreadable record pointer>"


def _describe_item(item):
    """One line for the record of an entry: kind, caption and UUID, or why
    there is none."""
    if isinstance(item, str):
        return "no record" if item == "none" else item
    return items.record_summary(item)


def _folder_caption(item):
    """A folder's record as its caption and UUID; another kind than folder
    is named."""
    if isinstance(item, str):
        return item
    summary = items.record_summary(item)
    return summary[len("folder "):] if summary.startswith("folder ") else summary


class FixedEntryPrinter:
    """ma::VfsFixedEntry: its record (kind, caption, UUID, the fields that
    are set) and the user data when it has some."""

    def __init__(self, entry):
        self.entry = entry
        self.item = _item_of(entry)

    def to_string(self):
        return "entry: " + _describe_item(self.item)

    def children(self):
        if not isinstance(self.item, str):
            yield from items.ItemRecordPrinter(self.item).children()
        try:
            data = _entry_or_note(reading.shared_target(self.entry["m_userData"]), "user data")
        except reading.READ_ERRORS:
            data = "<unreadable user data pointer>"
        if not (isinstance(data, str) and data == "none"):
            yield "userData", data


class FixedFolderPrinter:
    """ma::VfsFixedFolder: caption and number of children; the children as an
    array of entries."""

    def __init__(self, folder):
        self.folder = folder
        self.item = _item_of(folder)
        try:
            self.first, self.count = reading.vector_range(folder["m_children"])
            self.note = None
        except reading.READ_ERRORS as error:
            self.first, self.count = None, 0
            self.note = "<unreadable children: %s>" % error

    def to_string(self):
        children = self.note or ("1 child" if self.count == 1 else "%d children" % self.count)
        return "folder %s; %s" % (_folder_caption(self.item), children)

    def display_hint(self):
        return "array"

    def children(self):
        for index in range(self.count):
            try:
                shared = (self.first + index).dereference()
                child = _entry_or_note(reading.shared_target(shared))
            except reading.READ_ERRORS:
                child = "<unreadable child pointer>"
            yield "[%d]" % index, child


class RunTimeClassPrinter:
    """ma::VfsEntry, ma::VfsIterator and ma::VfsUserData seen through the
    base class: printed by the printer of the run-time class, or, for a
    class without one (a client's own entry), as that class's members."""

    def __init__(self, value):
        self.delegate = None
        self.target = None
        self.note = None
        address = reading.address_of(value)
        target = reading.dynamic_value(value.address) if address else None
        if target is None:
            self.note = "<unreadable %s at 0x%x>" % (reading.type_name(value), address)
            return
        delegate = gdb.default_visualizer(target)
        if delegate is None or isinstance(delegate, RunTimeClassPrinter):
            self.target = target
            self.note = reading.type_name(target)
        else:
            self.delegate = delegate

    def to_string(self):
        return self.note if self.delegate is None else self.delegate.to_string()

    def display_hint(self):
        hint = getattr(self.delegate, "display_hint", None)
        return hint() if hint else None

    def children(self):
        if self.delegate is not None:
            children = getattr(self.delegate, "children", None)
            return children() if children else iter(())
        if self.target is not None:
            return self._members()
        return iter(())

    def _members(self):
        for field in self.target.type.strip_typedefs().fields():
            # The library's base part is left out: printed as the base, it
            # would come back here.
            if not field.is_base_class and field.name and not field.name.startswith("_vptr"):
                try:
                    yield field.name, self.target[field]
                except reading.READ_ERRORS:
                    yield field.name, "<unreadable>"


class ChildrenIteratorPrinter:
    """ma::VfsFixedFolder::ChildrenIterator and SharedVectorIterator: the
    position in the range of children, the folder, the current child."""

    def __init__(self, iterator):
        self.iterator = iterator
        self.sorted = reading.type_name(iterator).endswith("SharedVectorIterator")

    def _range(self):
        begin, total = reading.element_range(self.iterator["m_begin"]["_M_current"],
                                             self.iterator["m_end"]["_M_current"])
        return begin, total, int(self.iterator["m_index"])

    def to_string(self):
        address = reading.address_of(self.iterator)
        try:
            _, total, index = self._range()
        except reading.READ_ERRORS:
            return "<unreadable iterator at 0x%x>" % address
        where = ("at the end (%d of %d)" % (index, total) if index >= total
                 else "at %d of %d" % (index, total))
        folder = _entry_or_note(self.iterator["m_folder"], "folder")
        if not isinstance(folder, str):
            folder = _folder_caption(_item_of(folder))
        return "%s%s in folder %s" % ("sorted, " if self.sorted else "", where, folder)

    def children(self):
        try:
            begin, total, index = self._range()
        except reading.READ_ERRORS:
            return
        if 0 <= index < total:
            try:
                current = _entry_or_note(reading.shared_target((begin + index).dereference()))
            except reading.READ_ERRORS:
                current = "<unreadable child pointer>"
            yield "current", current


class RecorderDataPrinter:
    """VfsUserDataDR: recording flag, stream and buffer bounds, encryption;
    the key only as "set" or "unset"."""

    def __init__(self, data):
        self.data = data

    def to_string(self):
        try:
            recording = "recording" if int(self.data["m_isRecording"]) else "not recording"
            bounds = [int(self.data[name]) for name in
                      ("m_streamBegin", "m_streamEnd", "m_circularBegin", "m_circularEnd")]
            encryption = int(self.data["m_encryption"])
        except reading.READ_ERRORS:
            return "<unreadable recorder data at 0x%x>" % reading.address_of(self.data)
        key = "encryption %d, key set" % encryption if encryption else "unencrypted, key unset"
        return "%s, stream %d..%d, circular buffer %d..%d, %s" % (
            recording, bounds[0], bounds[1], bounds[2], bounds[3], key)


def _criterium_text(criterium, members):
    return "{%s}" % ", ".join(reading.std_string(criterium[name])[1] for name in members)


#: The members of each criterium class, in the order shown.
CRITERIUM_MEMBERS = {
    "ma::VfsSearchCriteria::SingleCriterium": ("m_property", "m_relation", "m_value"),
    "ma::VfsOrderCriteria::SingleCriterium": ("property", "direction"),
    "ma::VfsFilterCriteria::SingleCriterium": ("m_filter",),
}


class CriteriumPrinter:
    """One search, order or filter criterium: its texts in braces."""

    def __init__(self, criterium):
        self.criterium = criterium

    def to_string(self):
        members = CRITERIUM_MEMBERS[reading.type_name(self.criterium)]
        try:
            return _criterium_text(self.criterium, members)
        except reading.READ_ERRORS:
            return "<unreadable criterium at 0x%x>" % reading.address_of(self.criterium)


class CriteriaPrinter:
    """ma::VfsSearchCriteria, VfsOrderCriteria, VfsFilterCriteria: the count
    and the criteria as an array."""

    def __init__(self, criteria):
        self.criteria = criteria
        self.what = reading.type_name(criteria)[len("ma::Vfs"):-len("Criteria")].lower()
        try:
            self.first, self.count = reading.vector_range(criteria["m_criteria"])
            self.note = None
        except reading.READ_ERRORS as error:
            self.first, self.count, self.note = None, 0, "<unreadable criteria: %s>" % error

    def to_string(self):
        if self.note:
            return self.note
        return "%d %s criteri%s" % (self.count, self.what, "um" if self.count == 1 else "a")

    def display_hint(self):
        return "array"

    def children(self):
        for index in range(self.count):
            element = (self.first + index).dereference()
            yield "[%d]" % index, CriteriumPrinter(element).to_string()


class SharedPointerPrinter:
    """boost::shared_ptr to one of the library's classes: the object it
    holds, as its run-time class, or "empty"."""

    def __init__(self, shared):
        self.shared = shared

    def to_string(self):
        try:
            if int(reading.shared_target(self.shared)) == 0:
                return "empty " + reading.type_name(self.shared)
        except reading.READ_ERRORS:
            return "<unreadable %s>" % reading.type_name(self.shared)
        return reading.type_name(self.shared)

    def children(self):
        try:
            pointer = reading.shared_target(self.shared)
            if int(pointer) == 0:
                return
        except reading.READ_ERRORS:
            return
        yield "get", _entry_or_note(pointer, "object")
