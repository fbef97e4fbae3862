# ctest -P script: makes the Debian packages of a build into an empty folder.
#   -DCPACK_COMMAND=<cpack> -DCONFIG=<build>/CPackConfig.cmake -DOUTPUT_DIR=<folder>
file(REMOVE_RECURSE "${OUTPUT_DIR}")
execute_process(COMMAND "${CPACK_COMMAND}" --config "${CONFIG}" -B "${OUTPUT_DIR}"
  RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(result)
  message(FATAL_ERROR "cpack failed (${result}):\n${output}")
endif()
file(GLOB packages "${OUTPUT_DIR}/*.deb")
foreach(package IN LISTS packages)
  file(SIZE "${package}" size)
  get_filename_component(name "${package}" NAME)
  message(STATUS "${name}: ${size} bytes")
endforeach()
