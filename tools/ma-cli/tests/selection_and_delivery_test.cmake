# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# uri create, uri parse and dsys: output, --json, and the one-line errors
# of bad input.
include("${CMAKE_CURRENT_LIST_DIR}/MaCliTestSupport.cmake")

# uri create: parameters in key order, without separator.
ma_cli_ok(created uri create --type file --volume usb0 --path Music/a.mp3 --param start=2 --param shuffle=1)
if(NOT created_OUT STREQUAL "file://usb0/Music/a.mp3?shuffle=1start=2\n")
  ma_cli_fail("uri create: [${created_OUT}]")
endif()
ma_cli_ok(bare uri create --type dvbt)
if(NOT bare_OUT STREQUAL "dvbt:///\n")
  ma_cli_fail("uri create --type dvbt: [${bare_OUT}]")
endif()
ma_cli_ok(created_json uri create --type file --volume usb0 --path x --param empty= --json)
ma_cli_expect_json("uri create --json" "${created_json_OUT}" "file://usb0/x?empty" uri)
ma_cli_expect_json("uri create --json" "${created_json_OUT}" "" parameters empty)
ma_cli_bad(1 "source type \"abc\" must be exactly 4 characters \\(result -22\\)" uri create --type abc)
ma_cli_bad(1 "parameter \"start\" is not KEY=VALUE" uri create --type file --param start)
ma_cli_bad(1 "parameter \"=1\" is not KEY=VALUE" uri create --type file --param =1)
ma_cli_bad(2 "--type" uri create --volume usb0)
ma_cli_bad(2 "" uri)

# uri parse: the legacy parser's documented std::length_error is reported,
# with the source type it read, then the parts mdcSelectionSplit reads; a
# text without "://" is bad input, and so is one the splitter refuses.
ma_cli_ok(parsed uri parse "file://usb0/Music?start=2")
ma_cli_expect_match("uri parse" "${parsed_OUT}"
  "^mdcSelectionParse\\(\"file://usb0/Music\\?start=2\"\\)\n  threw std::length_error"
  "sourceType  \"file\""
  "\nmdcSelectionSplit\\(\"file://usb0/Music\\?start=2\"\\) = 0\n  sourceType  \"file\"\n  volume      \"usb0\"\n  path        \"Music\"\n  parameter   \"start\" = \"2\"\n$")
ma_cli_ok(parsed_json uri parse "dvbs://astra/19.2E?lcn=7" --json)
ma_cli_expect_json("uri parse --json" "${parsed_json_OUT}" "length_error" outcome)
ma_cli_expect_json("uri parse --json" "${parsed_json_OUT}" "dvbs" sourceType)
ma_cli_expect_json("uri parse --json" "${parsed_json_OUT}" "0" split result)
ma_cli_expect_json("uri parse --json" "${parsed_json_OUT}" "astra" split parts volume)
ma_cli_expect_json("uri parse --json" "${parsed_json_OUT}" "19.2E" split parts path)
ma_cli_expect_json("uri parse --json" "${parsed_json_OUT}" "7" split parts parameters lcn)
ma_cli_bad(1 "\"file://usb0\" is not a selection URI \\(mdcSelectionSplit result -22\\): .*No \"/\" found behind the volume" uri parse "file://usb0")
ma_cli_bad(1 "\"usb0/Music\" is not a selection URI \\(result -22\\): .*No source type" uri parse "usb0/Music")
ma_cli_bad(1 "\"file:usb0\" is not a selection URI \\(result -22\\)" uri parse "file:usb0")
ma_cli_bad(2 "URI" uri parse)

# dsys: numbers in both bases and names select the same system.
foreach(mask 6 0x6 0X0006 DVB-T,DVB-T2 dvb_t2,DVB-T "DELIVERY_SYSTEM_DVB_T,delivery_system_dvb_t2")
  ma_cli_ok(system dsys "${mask}" --json)
  ma_cli_expect_json("dsys ${mask}" "${system_OUT}" "6" mask)
  ma_cli_expect_json("dsys ${mask}" "${system_OUT}" "DELIVERY_SYSTEM_DVB_T2" name)
  ma_cli_expect_json("dsys ${mask}" "${system_OUT}" "6" value)
  ma_cli_expect_json("dsys ${mask}" "${system_OUT}" "4" bitmask)
  ma_cli_expect_json("dsys ${mask}" "${system_OUT}" "2" frontend)
  ma_cli_expect_json("dsys ${mask}" "${system_OUT}" "0" dvbIndex)
  ma_cli_expect_json("dsys ${mask}" "${system_OUT}" "ON" predicates isDvbT)
  ma_cli_expect_json("dsys ${mask}" "${system_OUT}" "OFF" predicates isDvbIP)
endforeach()
ma_cli_ok(before dsys --json 6)
ma_cli_ok(after --json dsys 6)
if(NOT before_OUT STREQUAL after_OUT)
  ma_cli_fail("--json before and after the command differ:\n${before_OUT}\n${after_OUT}")
endif()
ma_cli_ok(text dsys 0x82)
ma_cli_expect_match("dsys 0x82" "${text_OUT}"
  "^mask +0x0082 \\(130\\)\nbits +DVB-T,DVB-IP\nsystem +5 DELIVERY_SYSTEM_DVB_IP\n"
  "\nfrontend +5 \\(IP\\)\nDVB index +-1 \\(none\\)\n"
  "\nisTunerFrontend +no\n" "\nisDVB +yes\n" "\nisDvbIP +yes\n")
ma_cli_ok(none dsys none)
ma_cli_expect_match("dsys none" "${none_OUT}" "system +0 DELIVERY_SYSTEM_UNKNOWN\n" "\nisUnknownFrontend +yes\n")
ma_cli_ok(high dsys 0x80002000)
ma_cli_expect_match("dsys 0x80002000" "${high_OUT}" "\nbits +0x80002000\n" "DELIVERY_SYSTEM_UNKNOWN")
ma_cli_ok(isdb dsys 4096 --json)
ma_cli_expect_json("dsys 4096" "${isdb_OUT}" "DELIVERY_SYSTEM_ISDB_S" name)
ma_cli_expect_json("dsys 4096" "${isdb_OUT}" "9" frontend)

foreach(bad DVB-X "DVB-T,,DVB-S" 0x 0x1FFFFFFFF 4294967296 -1 12abc "0x6 " "0x-6")
  ma_cli_bad(1 "bad delivery-system mask" dsys "${bad}")
endforeach()
ma_cli_bad(2 "MASK" dsys)

ma_cli_finish()
