# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# run_checked(<what> <out-var> <command> [<arg>...]), for ctest -P scripts:
# runs the command and sets <out-var> to its standard output; when the
# command fails, stops the script with <what>, the exit status and the
# command's output.
function(run_checked what out_var)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result
    OUTPUT_VARIABLE output ERROR_VARIABLE error)
  if(result)
    message(FATAL_ERROR "${what} failed (${result}):\n${output}${error}")
  endif()
  set(${out_var} "${output}" PARENT_SCOPE)
endfunction()
