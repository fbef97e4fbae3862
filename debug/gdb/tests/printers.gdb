# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# What the printer tests print, in main's frame of printer_subjects.cpp. Each
# "==== NAME" line starts a section of expected-output.txt.
set print pretty on
set width 0
set height 0
echo ==== video record\n
print *recording.px
echo ==== video record through its shared pointer\n
print recording
echo ==== music record\n
print song
echo ==== field store\n
print *songStore
echo ==== folder record without fields\n
print emptyFolder
echo ==== record without field store\n
print storeless
echo ==== text with quotes, tabs and bytes\n
print oddText
echo ==== folder\n
print *root.px
echo ==== entry with recorder data\n
print *recordingEntry.px
echo ==== entry through its base class\n
print *(ma::VfsEntry*)songEntry.px
echo ==== entry of a client's class\n
print *clientEntry.px
echo ==== recorder data\n
print *recorderData.px
echo ==== unencrypted recorder data\n
print *plainData.px
echo ==== iterator\n
print walk
echo ==== iterator through its base class\n
print *walk.px
echo ==== sorted iterator\n
print sorted
echo ==== iterator of an empty folder\n
print finished
echo ==== search criteria\n
print search
echo ==== order criteria\n
print order
echo ==== filter criteria\n
print filter
echo ==== no search criteria\n
print noSearch
echo ==== video message\n
print recordingMessage
echo ==== music message\n
print songMessage
echo ==== empty message\n
print emptyMessage
echo ==== message of the reserved kind\n
print reservedKindMessage
echo ==== counted string\n
print countedText
echo ==== unset counted string\n
print countedUnset
echo ==== counted string longer than its text\n
print countedTooLong
echo ==== counted string without terminator\n
print countedUnterminated
echo ==== counted string in unmapped memory\n
print countedNowhere
echo ==== counted string of a damaged length\n
print countedHuge
echo ==== counted string without characters\n
print countedWithoutText
echo ==== delivery systems\n
print dvbT2
print isdbS
print undefined
echo ==== record whose store is unmapped\n
print *(ma::FolderItemInfo*)&lostStore
echo ==== shared pointer to unmapped memory\n
print danglingShared
# Damage done here, in the stopped program, after everything above printed:
# a store's strings with a wild length and an unmapped buffer, a folder's
# child pointing into unmapped memory, a list whose end lies before its start.
set var songStore->m_album._M_string_length = 3000000000
set var songStore->m_artist._M_dataplus._M_p = (char*)nowhere
echo ==== record with damaged strings\n
print song
set var root.px->m_children._M_impl._M_start[2].px = (ma::VfsEntry*)nowhere
echo ==== folder with a dangling child\n
print -max-depth 1 -- *root.px
set var search.m_criteria._M_impl._M_finish = search.m_criteria._M_impl._M_start - 1
echo ==== damaged criteria list\n
print search
echo ==== freed record\n
print *freed
echo ==== message layout\n
print sizeof(itemMsgMaItem_t)
print sizeof(itemMsgMaItemVideo_t)
print sizeof(zelDeserString_t)
echo ==== end\n
