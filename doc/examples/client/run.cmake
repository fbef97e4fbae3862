# ctest -P script: installs the build into a scratch SDK root, then builds the
# guide's client against it twice, with CMake's package and with pkg-config,
# and runs both (a cross build's under the emulator).
#   -DBUILD_DIR=<library build> -DSOURCE_DIR=<this folder> -DWORK_DIR=<scratch>
#   -DGENERATOR=<generator> -DCXX=<C++ compiler>
#   cross builds also: -DARM_TOOLCHAIN_FILE=<file> -DBOOST_HEADERS=<folder>
#                      -DEMULATOR=<command|arg|...>
function(run what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
  if(result)
    message(FATAL_ERROR "${what} failed: ${result}")
  endif()
endfunction()

string(REPLACE "|" ";" EMULATOR "${EMULATOR}")
file(REMOVE_RECURSE "${WORK_DIR}")
set(SDK_ROOT "${WORK_DIR}/sdk")
set(prefix "${SDK_ROOT}/usr")
run("installing" ${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")

set(configure_options "-DCMAKE_PREFIX_PATH=${prefix}")
if(ARM_TOOLCHAIN_FILE)
  # The SDK root holds Boost's headers beside the library's, as a device
  # SDK does; the cross compiler sees no other host header.
  file(CREATE_LINK "${BOOST_HEADERS}" "${prefix}/include/boost" SYMBOLIC)
  configure_file("${SOURCE_DIR}/sdk-toolchain.cmake.in" "${WORK_DIR}/sdk-toolchain.cmake" @ONLY)
  list(APPEND configure_options "-DCMAKE_TOOLCHAIN_FILE=${WORK_DIR}/sdk-toolchain.cmake")
endif()

run("configuring the client" ${CMAKE_COMMAND} -S "${SOURCE_DIR}" -B "${WORK_DIR}/cmake"
  -G "${GENERATOR}" ${configure_options})
run("building the client" ${CMAKE_COMMAND} --build "${WORK_DIR}/cmake")
run("the client built with CMake" ${EMULATOR} "${WORK_DIR}/cmake/client")

# pkg-config's flags carry no run path: the program finds the library
# through LD_LIBRARY_PATH (QEMU_LD_PREFIX-relative under the emulator).
file(MAKE_DIRECTORY "${WORK_DIR}/pkg-config")
run("building the client with pkg-config" ${CMAKE_COMMAND} -E env
  "CXX=${CXX}" "PKG_CONFIG_LIBDIR=${prefix}/lib/pkgconfig"
  "${SOURCE_DIR}/build-with-pkg-config.sh" "${WORK_DIR}/pkg-config")
run("the client built with pkg-config" ${CMAKE_COMMAND} -E env
  "LD_LIBRARY_PATH=${prefix}/lib" ${EMULATOR} "${WORK_DIR}/pkg-config/client")
