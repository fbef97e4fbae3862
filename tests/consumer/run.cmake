# ctest -P script: installs the build into a scratch prefix, then configures,
# builds and runs the consumer against it.
#   -DBUILD_DIR=<library build> -DSOURCE_DIR=<this folder> -DWORK_DIR=<scratch>
#   -DGENERATOR=<generator> -DLIBDIR=<CMAKE_INSTALL_LIBDIR of the build>
#   -DMETHOD=cmake|pkg-config  how the consumer finds the library
# For a cross build also:
#   -DTOOLCHAIN_FILE=<file>    the build's toolchain file
#   -DEMULATOR=<a|b|c>         the program that runs target binaries, '|' between its words
#   -DBOOST_HEADERS=<dir>      the architecture-independent Boost headers
#
# pkg-config sees the prefix's ma-common.pc alone (PKG_CONFIG_LIBDIR). The
# consumer runs with the prefix's library folder on LD_LIBRARY_PATH (given to
# the program itself, not to the emulator).
include("${CMAKE_CURRENT_LIST_DIR}/../package/run_checked.cmake")
set(prefix "${WORK_DIR}/prefix")
set(libdir "${prefix}/${LIBDIR}")
file(REMOVE_RECURSE "${WORK_DIR}")

function(run what)
  run_checked("${what}" output ${ARGN})
  message(STATUS "${what}: ok")
endfunction()

run("installing" ${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")

set(configure ${CMAKE_COMMAND} -S "${SOURCE_DIR}" -B "${WORK_DIR}/build" -G "${GENERATOR}"
  "-DCONSUMER_FINDS_LIBRARY_WITH=${METHOD}")
if(TOOLCHAIN_FILE)
  list(APPEND configure "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN_FILE}")
endif()
if(METHOD STREQUAL "pkg-config")
  set(configure ${CMAKE_COMMAND} -E env "PKG_CONFIG_LIBDIR=${libdir}/pkgconfig"
    --unset=PKG_CONFIG_PATH ${configure})
else()
  # The toolchain file confines searches to the target's sysroot, so the
  # package is named by its folder; Boost's headers, which the target's
  # sysroot lacks, are shown alone (as the library's own build does).
  list(APPEND configure "-Dma-common_DIR=${libdir}/cmake/ma-common")
  if(BOOST_HEADERS)
    set(boost_only "${WORK_DIR}/boost-only-include")
    file(MAKE_DIRECTORY "${boost_only}")
    file(CREATE_LINK "${BOOST_HEADERS}" "${boost_only}/boost" SYMBOLIC)
    list(APPEND configure "-DBoost_INCLUDE_DIR=${boost_only}")
  endif()
endif()
run("configuring the consumer (${METHOD})" ${configure})
run("building the consumer" ${CMAKE_COMMAND} --build "${WORK_DIR}/build")

if(EMULATOR)
  string(REPLACE "|" ";" emulator "${EMULATOR}")
  set(command ${emulator} -E "LD_LIBRARY_PATH=${libdir}" "${WORK_DIR}/build/consumer")
else()
  set(command ${CMAKE_COMMAND} -E env "LD_LIBRARY_PATH=${libdir}" "${WORK_DIR}/build/consumer")
endif()
run_checked("running the consumer" output ${command})
message(STATUS "running the consumer: ${output}")
