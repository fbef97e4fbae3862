# ctest -P script: installs the build into a scratch prefix, then configures,
# builds and runs the consumer against it.
#   -DBUILD_DIR=<library build> -DSOURCE_DIR=<this folder> -DWORK_DIR=<scratch>
#   -DGENERATOR=<generator>
file(REMOVE_RECURSE "${WORK_DIR}")
execute_process(COMMAND ${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${WORK_DIR}/prefix"
  RESULT_VARIABLE result OUTPUT_QUIET)
if(result)
  message(FATAL_ERROR "install failed: ${result}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -S "${SOURCE_DIR}" -B "${WORK_DIR}/build" -G "${GENERATOR}"
  "-DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix" RESULT_VARIABLE result)
if(result)
  message(FATAL_ERROR "configuring the consumer failed: ${result}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build "${WORK_DIR}/build" RESULT_VARIABLE result)
if(result)
  message(FATAL_ERROR "building the consumer failed: ${result}")
endif()
execute_process(COMMAND "${WORK_DIR}/build/consumer" RESULT_VARIABLE result)
if(result)
  message(FATAL_ERROR "the consumer failed: ${result}")
endif()
