# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Helpers of the ma-cli test scripts, which run as `cmake -P`. A script is
# given -DMA_CLI=<tool>, -DEMULATOR=<emulator command, "|"-separated, may be
# empty>, -DWORK_DIR=<scratch folder> and -DEXPECTED_DIR=<expected outputs>.
#
# Checks do not stop the script: each failure is collected, and
# ma_cli_finish() fails the test with all of them.
cmake_minimum_required(VERSION 3.25)

string(REPLACE "|" ";" MA_CLI_EMULATOR "${EMULATOR}")
file(MAKE_DIRECTORY "${WORK_DIR}")

function(ma_cli_fail what)
  set_property(GLOBAL APPEND PROPERTY MA_CLI_FAILURES "${what}")
  message(STATUS "FAILED: ${what}")
endfunction()

# ma_cli_run(<prefix> [PREFIX_COMMAND <cmd...>] ARGS <args...>)
# Runs the tool; sets <prefix>_OUT, <prefix>_ERR and <prefix>_RC.
function(ma_cli_run prefix)
  cmake_parse_arguments(RUN "" "" "PREFIX_COMMAND;ARGS" ${ARGN})
  execute_process(
    COMMAND ${RUN_PREFIX_COMMAND} ${MA_CLI_EMULATOR} "${MA_CLI}" ${RUN_ARGS}
    OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE rc
    WORKING_DIRECTORY "${WORK_DIR}")
  set(${prefix}_OUT "${out}" PARENT_SCOPE)
  set(${prefix}_ERR "${err}" PARENT_SCOPE)
  set(${prefix}_RC "${rc}" PARENT_SCOPE)
endfunction()

# ma_cli_ok(<prefix> <args...>): runs the tool and checks exit code 0 and
# an empty stderr.
function(ma_cli_ok prefix)
  ma_cli_run(run ARGS ${ARGN})
  if(NOT run_RC STREQUAL "0" OR NOT run_ERR STREQUAL "")
    ma_cli_fail("ma-cli ${ARGN}: exit ${run_RC}, stderr: ${run_ERR}")
  endif()
  set(${prefix}_OUT "${run_OUT}" PARENT_SCOPE)
endfunction()

# ma_cli_bad(<exit code> <stderr regex> <args...>): runs the tool and checks
# the exit code, an empty stdout and exactly one stderr line that starts
# with "ma-cli: " and matches the regex.
function(ma_cli_bad code regex)
  ma_cli_run(run ARGS ${ARGN})
  ma_cli_check_one_error_line("ma-cli ${ARGN}" "${code}" "${regex}" run)
endfunction()

function(ma_cli_check_one_error_line what code regex prefix)
  set(rc "${${prefix}_RC}")
  set(out "${${prefix}_OUT}")
  set(err "${${prefix}_ERR}")
  if(NOT rc STREQUAL "${code}")
    ma_cli_fail("${what}: exit ${rc}, expected ${code}; stderr: ${err}")
    return()
  endif()
  if(NOT out STREQUAL "")
    ma_cli_fail("${what}: printed on stdout: ${out}")
  endif()
  if(NOT err MATCHES "^ma-cli: [^\n]*\n$")
    ma_cli_fail("${what}: stderr is not one line \"ma-cli: ...\": [${err}]")
  elseif(NOT err MATCHES "${regex}")
    ma_cli_fail("${what}: stderr [${err}] does not match [${regex}]")
  endif()
endfunction()

# ma_cli_expect_match(<what> <text> <regex>...): every regex matches.
function(ma_cli_expect_match what text)
  foreach(regex IN LISTS ARGN)
    if(NOT text MATCHES "${regex}")
      ma_cli_fail("${what}: no match for [${regex}] in:\n${text}")
    endif()
  endforeach()
endfunction()

# ma_cli_expect_no_match(<what> <text> <regex>...): no regex matches.
function(ma_cli_expect_no_match what text)
  foreach(regex IN LISTS ARGN)
    if(text MATCHES "${regex}")
      ma_cli_fail("${what}: unexpected match for [${regex}] in:\n${text}")
    endif()
  endforeach()
endfunction()

# ma_cli_expect_json(<what> <json> <expected value> <member path...>):
# the JSON value at the member path (names and array indexes) equals the
# expected text (numbers and booleans as JSON writes them).
function(ma_cli_expect_json what json expected)
  string(JSON value ERROR_VARIABLE error GET "${json}" ${ARGN})
  if(error)
    ma_cli_fail("${what}: ${ARGN}: ${error}")
  elseif(NOT value STREQUAL "${expected}")
    ma_cli_fail("${what}: ${ARGN} is [${value}], expected [${expected}]")
  endif()
endfunction()

# ma_cli_json_length(<var> <json> <member path...>): the length of an
# array or object; a failure when it is not there.
function(ma_cli_json_length var json)
  string(JSON length ERROR_VARIABLE error LENGTH "${json}" ${ARGN})
  if(error)
    ma_cli_fail("JSON ${ARGN}: ${error}")
    set(length 0)
  endif()
  set(${var} "${length}" PARENT_SCOPE)
endfunction()

# ma_cli_shell(<command>): runs a POSIX shell command in WORK_DIR; a
# failure of the command fails the test at once (it prepares input).
function(ma_cli_shell command)
  execute_process(COMMAND sh -c "${command}" WORKING_DIRECTORY "${WORK_DIR}"
    RESULT_VARIABLE rc ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "preparing the test: `${command}` failed (${rc}): ${err}")
  endif()
endfunction()

function(ma_cli_finish)
  get_property(failures GLOBAL PROPERTY MA_CLI_FAILURES)
  if(failures)
    list(LENGTH failures count)
    message(FATAL_ERROR "${count} check(s) failed")
  endif()
endfunction()
