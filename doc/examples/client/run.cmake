# ctest -P script: installs the build into a scratch prefix, then builds the
# guide's client against it twice, with CMake's package and with pkg-config,
# and runs both.
#   -DBUILD_DIR=<library build> -DSOURCE_DIR=<this folder> -DWORK_DIR=<scratch>
#   -DGENERATOR=<generator>
function(run what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
  if(result)
    message(FATAL_ERROR "${what} failed: ${result}")
  endif()
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")
run("installing" ${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")

run("configuring the client" ${CMAKE_COMMAND} -S "${SOURCE_DIR}" -B "${WORK_DIR}/cmake"
  -G "${GENERATOR}" "-DCMAKE_PREFIX_PATH=${prefix}")
run("building the client" ${CMAKE_COMMAND} --build "${WORK_DIR}/cmake")
run("the client built with CMake" "${WORK_DIR}/cmake/client")

# pkg-config's flags carry no run path: the program finds the library
# through LD_LIBRARY_PATH.
file(MAKE_DIRECTORY "${WORK_DIR}/pkg-config")
run("building the client with pkg-config" ${CMAKE_COMMAND} -E env
  "PKG_CONFIG_PATH=${prefix}/lib/pkgconfig"
  "${SOURCE_DIR}/build-with-pkg-config.sh" "${WORK_DIR}/pkg-config")
run("the client built with pkg-config" ${CMAKE_COMMAND} -E env
  "LD_LIBRARY_PATH=${prefix}/lib" "${WORK_DIR}/pkg-config/client")
