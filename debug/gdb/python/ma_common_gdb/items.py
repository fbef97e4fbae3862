# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
"""Printers of the item record: the kind facades, the field store, the item
message and the platform's counted string.

A record shows its kind, caption and UUID, then as children the fields that
differ from a new record's (strings that are not empty, numbers that are not
0, the network ID when not -1, the flags when off).
"""
import gdb

from . import reading

#: ma::itemType values and their names.
ITEM_KINDS = {1: "unknown", 2: "music", 4: "video", 8: "picture", 16: "playlist",
              32: "folder", 64: "document", 128: "other", 256: "interactive"}

#: The kind each facade class stands for.
FACADE_KINDS = {"ma::%sItemInfo" % name.capitalize(): name for name in ITEM_KINDS.values()}

#: The message's kind codes and the slot each names (code 5 is reserved).
MESSAGE_SLOTS = {0: "folder", 1: "music", 2: "other", 3: "picture", 4: "playlist",
                 6: "unknown", 7: "video", 8: "interactive", 9: "document"}

#: Fields whose value after construction is not zero, by name without "m_".
NON_ZERO_DEFAULTS = {"networkID": -1, "receivable": 1, "visible": 1, "selectable": 1}

#: Fields never shown: in the summary line already, or without meaning.
NOT_LISTED = {"itemType", "caption", "uuid", "reserved"}


def kind_name(code):
    """The name of an ma::itemType value ("video"), or "kind N"."""
    return ITEM_KINDS.get(code, "kind %d" % code)


def _is_std_string(field_type):
    name = str(field_type.strip_typedefs())
    return "basic_string<char" in name


def _is_counted_string(field_type):
    return field_type.strip_typedefs().tag == "zelDeserString_t"


def _data_fields(value):
    """(name, member value) of every data member of `value`, base classes
    first, in declaration order; the vtable pointer and static members left
    out."""
    for field in value.type.strip_typedefs().fields():
        if not hasattr(field, "bitpos"):  # a static member
            continue
        if field.is_base_class:
            yield from _data_fields(value.cast(field.type))
        elif field.name and not field.artificial and not field.name.startswith("_vptr"):
            yield field.name, value[field.name]


def _format_member(name, member):
    """(is_default, text) of one record or message member; a member that
    cannot be read raises one of reading.READ_ERRORS."""
    member_type = member.type.strip_typedefs()
    if _is_std_string(member_type):
        return reading.std_string(member)
    if _is_counted_string(member_type):
        return reading.counted_string(member)
    number = int(member)
    if member_type.code == gdb.TYPE_CODE_BOOL:
        return number == NON_ZERO_DEFAULTS.get(name, 0), "true" if number else "false"
    if name in ("receivable", "visible", "selectable"):  # one byte in the message
        return number == 1, "true" if number == 1 else ("false" if number == 0 else str(number))
    return number == NON_ZERO_DEFAULTS.get(name, 0), str(number)


def listed_fields(value):
    """(name, text) of the members of a record store or message payload that
    differ from a new record's."""
    for raw_name, member in _data_fields(value):
        name = raw_name[2:] if raw_name.startswith("m_") else raw_name
        if name in NOT_LISTED:
            continue
        try:
            is_default, text = _format_member(name, member)
        except reading.READ_ERRORS:
            is_default, text = False, "<unreadable>"
        if not is_default:
            yield name, text


def _store_of_run_time_class(store):
    """The store as its run-time class (a video store shows its own fields)."""
    try:
        dynamic = store.dynamic_type
        if dynamic is not None and dynamic.strip_typedefs() != store.type.strip_typedefs():
            return store.cast(dynamic)
    except reading.READ_ERRORS:
        pass
    return store


class ItemStorePrinter:
    """ma::ItemInfo::ItemImpl and the kind stores: kind, caption, UUID and
    the fields that are set."""

    def __init__(self, store):
        self.store = store
        self.summary, self.readable = self._describe()

    def _describe(self):
        address = reading.address_of(self.store)
        if address and not reading.is_readable(address, self.store.type.sizeof):
            return "<unreadable field store at 0x%x>" % address, False
        try:
            kind = kind_name(int(self.store["m_itemType"]))
        except reading.READ_ERRORS:
            return "<unreadable field store at 0x%x>" % address, False
        caption = reading.std_string(self.store["m_caption"])[1]
        uuid = reading.std_string(self.store["m_uuid"])[1]
        return "%s %s, uuid %s" % (kind, caption, uuid), True

    def to_string(self):
        return self.summary

    def children(self):
        if not self.readable:
            return
        yield from listed_fields(_store_of_run_time_class(self.store))


class ItemRecordPrinter:
    """ma::ItemInfo and the nine kind facades: the store's view, or
    "no field store"."""

    def __init__(self, record):
        self.record = record
        self.store_printer = None
        self.summary = self._describe()

    def _facade_kind(self):
        name = reading.type_name(self.record)
        if name not in FACADE_KINDS:
            try:
                name = str(self.record.dynamic_type.strip_typedefs())
            except reading.READ_ERRORS:
                pass
        return FACADE_KINDS.get(name, "item")

    def _describe(self):
        address = reading.address_of(self.record)
        try:
            store = self.record["impl"]
            store_address = int(store)
        except reading.READ_ERRORS:
            return "<unreadable record at 0x%x>" % address
        if store_address == 0:
            return "%s record, no field store" % self._facade_kind()
        try:
            self.store_printer = ItemStorePrinter(store.dereference())
        except reading.READ_ERRORS:
            return "<unreadable field store at 0x%x>" % store_address
        return self.store_printer.summary

    def to_string(self):
        return self.summary

    def children(self):
        if self.store_printer is not None:
            yield from self.store_printer.children()


def record_summary(record):
    """One line for an ma::ItemInfo value: kind, caption and UUID."""
    return ItemRecordPrinter(record).summary


class CountedStringPrinter:
    """zelDeserString_t: the text, "unset", or what is wrong with it."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return reading.counted_string(self.value)[1]


class ItemMessagePrinter:
    """_itemMsgMaItem_struct (itemMsgMaItem_t): the kind by name, the
    payload's caption and UUID, then its fields that carry something."""

    def __init__(self, message):
        self.message = message
        self.payload = None
        self.summary = self._describe()

    def _describe(self):
        address = reading.address_of(self.message)
        try:
            code = int(self.message["kind"])
        except reading.READ_ERRORS:
            return "<unreadable item message at 0x%x>" % address
        slot = MESSAGE_SLOTS.get(code)
        if slot is None:
            return "item message: kind code %d, which names no kind" % code
        try:
            pointer = self.message[slot]["data"]
            payload_address = int(pointer)
        except reading.READ_ERRORS:
            return "<unreadable item message at 0x%x>" % address
        if payload_address == 0:
            return "item message: %s, no payload" % slot
        payload = pointer.dereference()
        if not reading.is_readable(payload_address, payload.type.sizeof):
            return "item message: %s, <unreadable payload at 0x%x>" % (slot, payload_address)
        self.payload = payload
        info = payload["info"]
        caption = reading.counted_string(info["caption"])[1]
        uuid = reading.counted_string(info["uuid"])[1]
        return "item message: %s %s, uuid %s" % (slot, caption, uuid)

    def to_string(self):
        return self.summary

    def children(self):
        if self.payload is None:
            return
        yield from listed_fields(self.payload["info"])
        for name, member in _data_fields(self.payload):
            if name != "info":  # the video payload's own times
                is_empty, text = reading.counted_string(member)
                if not is_empty:
                    yield name, text
