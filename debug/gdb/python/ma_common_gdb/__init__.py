# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
"""gdb pretty-printers of libma-common's types.

register_printers(objfile) adds them for one object file (the library, as
the auto-load script does) or, with None, for every program gdb debugs.
"info pretty-printer" lists them under "ma-common"; "disable
pretty-printer global ma-common" (or the object file's name) turns them off.
"""
import gdb.printing

from . import items
from . import tv
from . import vfs

_KIND_NAMES = "(Unknown|Music|Video|Picture|Playlist|Folder|Document|Other|Interactive)"


def build_printer():
    """The collection of the library's printers, keyed by class name."""
    printer = gdb.printing.RegexpCollectionPrettyPrinter("ma-common")
    add = printer.add_printer
    add("ItemInfo", r"^ma::(ItemInfo|%sItemInfo)$" % _KIND_NAMES, items.ItemRecordPrinter)
    add("ItemImpl", r"^ma::(ItemInfo::ItemImpl|%sItemInfo::\w+ItemImpl)$" % _KIND_NAMES,
        items.ItemStorePrinter)
    add("itemMsgMaItem_t", r"^_itemMsgMaItem_struct$", items.ItemMessagePrinter)
    add("zelDeserString_t", r"^zelDeserString_t$", items.CountedStringPrinter)
    add("base classes", r"^ma::Vfs(Entry|Iterator|UserData)$", vfs.RunTimeClassPrinter)
    add("VfsFixedEntry", r"^ma::VfsFixedEntry$", vfs.FixedEntryPrinter)
    add("VfsFixedFolder", r"^ma::VfsFixedFolder$", vfs.FixedFolderPrinter)
    add("ChildrenIterator",
        r"^ma::VfsFixedFolder::(ChildrenIterator|SharedVectorIterator)$",
        vfs.ChildrenIteratorPrinter)
    add("VfsUserDataDR", r"^VfsUserDataDR$", vfs.RecorderDataPrinter)
    add("criteria", r"^ma::Vfs(Search|Order|Filter)Criteria$", vfs.CriteriaPrinter)
    add("criterium", r"^ma::Vfs(Search|Order|Filter)Criteria::SingleCriterium$",
        vfs.CriteriumPrinter)
    add("shared_ptr", r"^boost::shared_ptr<(const )?(ma::\w+|VfsUserDataDR)( const)?>$",
        vfs.SharedPointerPrinter)
    add("DeliverySystem", r"^zu::domain::tv::DeliverySystem$", tv.DeliverySystemPrinter)
    return printer


def register_printers(objfile):
    """Adds the printers for `objfile`, or for every program with None.
    Registering again replaces them."""
    gdb.printing.register_pretty_printer(objfile, build_printer(), replace=True)
