# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# msg and msg decode: the message of an item of every kind written to a
# file and read back into the same item; this build's layout in the field
# table; every damaged file (truncated, corrupted, trailing bytes, no item)
# reported in one line with exit code 1.
include("${CMAKE_CURRENT_LIST_DIR}/MaCliTestSupport.cmake")

# One sample entry of each kind, and the encrypted recording.
set(kinds_and_paths
  "folder=$2$0" "music=$2$0$0$0" "video=$1$0" "picture=$2$2$0" "playlist=$2$0$1"
  "document=$2$3" "interactive=$2$4" "other=$2$5" "unknown=$2$6" "video=$1$2")

set(index 0)
foreach(kind_and_path IN LISTS kinds_and_paths)
  string(REPLACE "=" ";" pair "${kind_and_path}")
  list(GET pair 0 kind)
  list(GET pair 1 path)
  set(file "${WORK_DIR}/message-${index}.bin")
  math(EXPR index "${index} + 1")

  ma_cli_ok(written msg "${path}" --out "${file}" --json)
  ma_cli_expect_json("msg ${path}" "${written_OUT}" "${kind}" kind)
  ma_cli_expect_json("msg ${path}" "${written_OUT}" "${kind}" message payload slot)
  ma_cli_expect_json("msg ${path}" "${written_OUT}" "ON" roundTrip equal)
  ma_cli_expect_json("msg ${path}" "${written_OUT}" "ON" roundTrip sameDump)
  string(JSON bytes GET "${written_OUT}" file bytes)
  file(SIZE "${file}" size)
  if(NOT size EQUAL bytes)
    ma_cli_fail("msg ${path} --out: file of ${size} bytes, reported ${bytes}")
  endif()

  ma_cli_ok(decoded msg decode "${file}" --json)
  ma_cli_ok(original dump "${path}" --json)
  string(JSON decoded_dump GET "${decoded_OUT}" dump)
  string(JSON original_dump GET "${original_OUT}" dump)
  if(NOT decoded_dump STREQUAL original_dump)
    ma_cli_fail("msg decode of ${path} (${kind}):\n${decoded_dump}\ninstead of\n${original_dump}")
  endif()
  ma_cli_expect_json("msg decode ${path}" "${decoded_OUT}" "${kind}" kind)
endforeach()

# The text forms.
ma_cli_ok(listed msg "$1$0")
ma_cli_expect_match("msg" "${listed_OUT}"
  "^item \\$1\\$0  video  \"Tatort: Borowski\"\nmessage \\([0-9]+ bytes, this build's layout"
  "\n +0 +4  kind +7 \\(video\\)\n"
  "\nvideo payload \\([0-9]+ bytes\\):\n"
  " +caption +\"Tatort: Borowski\"\n"
  " +reserved +\\(not written\\)\n"
  " +networkID +-1\n"
  "\nback to an item: video, operator== equal, text dumps identical\n$")
ma_cli_ok(decoded_text msg decode "${WORK_DIR}/message-1.bin")
ma_cli_expect_match("msg decode" "${decoded_text_OUT}"
  "^[^\n]*message-1.bin: [0-9]+ bytes, a music item\nItemType        : 2\n"
  "\ncaption         : So What\n")

# This build's layout: the structures are packed, a counted string is a
# 32-bit length and a pointer.
ma_cli_ok(layout msg "$2$3" --json)
string(JSON layout_name GET "${layout_OUT}" message layout)
if(layout_name MATCHES "4-byte pointers")
  set(message_size 76)
  set(caption_offset 8)
  set(payload_size 407)
elseif(layout_name MATCHES "8-byte pointers")
  set(message_size 112)
  set(caption_offset 12)
  set(payload_size 575)
else()
  ma_cli_fail("msg --json: unexpected layout \"${layout_name}\"")
endif()
ma_cli_expect_json("msg layout" "${layout_OUT}" "${message_size}" message size)
ma_cli_expect_json("msg layout" "${layout_OUT}" "${payload_size}" message payload size)
ma_cli_expect_json("msg layout" "${layout_OUT}" "caption" message payload fields 1 field)
ma_cli_expect_json("msg layout" "${layout_OUT}" "${caption_offset}" message payload fields 1 offset)

# Damaged files. message-1.bin holds the music track "So What": the kind
# word, the folder slot (presence word, marker 0), the music slot (presence
# word, marker 1), then the payload from byte 14: itemSubType (length word
# 0, marker 1, count 0), caption (length word 7 at byte 23, marker,
# count 7 at byte 28, "So What"), ...
set(good "${WORK_DIR}/message-1.bin")
function(damaged name command)
  file(COPY_FILE "${good}" "${WORK_DIR}/${name}")
  ma_cli_shell("${command}")
endfunction()
function(patch name offset octal)
  damaged(${name} "printf '\\${octal}' | dd of=${name} bs=1 seek=${offset} conv=notrunc status=none")
endfunction()

file(SIZE "${good}" good_size)
math(EXPR one_short "${good_size} - 1")
foreach(length 0 1 3 4 8 13 14 22 30 ${one_short})
  damaged(cut-${length}.bin "head -c ${length} ${good} > cut-${length}.bin")
  ma_cli_bad(1 "cut-${length}.bin\": truncated at byte [0-9]+: message\\.[a-zA-Z. ]+ needs [0-9]+ bytes, [0-9]+ left"
    msg decode "${WORK_DIR}/cut-${length}.bin")
endforeach()

damaged(trailing.bin "cat ${good} > trailing.bin && printf 'x' >> trailing.bin")
ma_cli_bad(1 "corrupted: 1 bytes follow the end of the message at byte ${good_size}"
  msg decode "${WORK_DIR}/trailing.bin")
patch(marker.bin 8 007)
ma_cli_bad(1 "corrupted at byte 8: the marker of message\\.folder is 7, not 0 or 1"
  msg decode "${WORK_DIR}/marker.bin")
patch(length-word.bin 14 005)
ma_cli_bad(1 "corrupted: message\\.music\\.info\\.itemSubType has a length of 5 but carries 0 characters"
  msg decode "${WORK_DIR}/length-word.bin")
patch(count.bin 28 177)
ma_cli_bad(1 "corrupted: message\\.music\\.info\\.caption has a length of 7 but carries 127 characters"
  msg decode "${WORK_DIR}/count.bin")
damaged(huge-count.bin "printf '\\377\\377\\377\\377' | dd of=huge-count.bin bs=1 seek=28 conv=notrunc status=none")
ma_cli_bad(1 "truncated at byte 32: message\\.music\\.info\\.caption\\.characters needs 4294967295 bytes"
  msg decode "${WORK_DIR}/huge-count.bin")
patch(kind-12.bin 0 014)
ma_cli_bad(1 "carries no item: kind 12 names no slot" msg decode "${WORK_DIR}/kind-12.bin")
patch(kind-5.bin 0 005)
ma_cli_bad(1 "carries no item: kind 5 names no slot" msg decode "${WORK_DIR}/kind-5.bin")
patch(kind-video.bin 0 007)
ma_cli_bad(1 "carries no item: kind 7 names the empty video slot" msg decode "${WORK_DIR}/kind-video.bin")
patch(two-slots.bin 8 001)
ma_cli_bad(1 "corrupted|truncated" msg decode "${WORK_DIR}/two-slots.bin")
damaged(noise.bin "head -c 2000 /dev/zero | tr '\\000' '\\377' > noise.bin")
ma_cli_bad(1 "noise.bin\": corrupted at byte 4: the presence word of message\\.folder is 4294967295, not 0 or 1" msg decode "${WORK_DIR}/noise.bin")

# Files that are not there or not files.
ma_cli_bad(1 "cannot read \"[^\"]*missing.bin\": No such file or directory" msg decode "${WORK_DIR}/missing.bin")
ma_cli_bad(1 "cannot read \"[^\"]*\": Is a directory" msg decode "${WORK_DIR}")
ma_cli_bad(1 "cannot write \"[^\"]*/no/such/folder/m.bin\": No such file or directory"
  msg "$1$0" --out "${WORK_DIR}/no/such/folder/m.bin")

# Bad paths and command lines.
ma_cli_bad(1 "path \"\\$9\" does not resolve" msg "$9")
ma_cli_bad(2 "PATH" msg)
ma_cli_bad(2 "FILE" msg decode)

ma_cli_finish()
