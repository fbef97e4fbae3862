# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Debian packages of the installed files, made by CPack, one package per
# install component (cmake/MaCommonInstall.cmake):
#
#   libma-common1      runtime      libma-common.so.1 (section libs)
#   libma-common-dev   development  headers, libma-common.so, CMake package,
#                                   ma-common.pc (section libdevel)
#   libzel-standin1    standin      the platform stand-in library (section libs)
#   ma-cli             tool         the inspection tool (section utils)
#
# `cmake --build <build> --target package` writes them to <build>/packages/,
# named <package>_<version>-<release>_<architecture>.deb. A package is made
# only for a component that has files in this build: no ma-cli package
# without the tool, no stand-in package when the build links the receiver's
# platform library.
#
# Files are stripped (CPACK_STRIP_FILES, with the toolchain's strip in a cross
# build) and installed under /usr.

set(MA_COMMON_PACKAGE_MAINTAINER "libma-common developers <ma-common-dev@example.com>"
  CACHE STRING "Maintainer field of the Debian packages")
set(MA_COMMON_PACKAGE_RELEASE "1" CACHE STRING
  "Debian revision of the packages (the part after the version)")

# The architecture is the one the code is compiled for, never the build
# machine's (dpkg --print-architecture says amd64 in the ARM cross build):
# dpkg-architecture maps the compiler's multiarch triplet to Debian's name.
if(NOT MA_COMMON_PACKAGE_ARCHITECTURE)
  find_program(MA_COMMON_DPKG_ARCHITECTURE dpkg-architecture)
  if(MA_COMMON_DPKG_ARCHITECTURE AND CMAKE_LIBRARY_ARCHITECTURE)
    execute_process(
      COMMAND ${MA_COMMON_DPKG_ARCHITECTURE} -t ${CMAKE_LIBRARY_ARCHITECTURE} -qDEB_HOST_ARCH
      OUTPUT_VARIABLE _ma_deb_arch OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  endif()
  if(NOT _ma_deb_arch)
    message(WARNING "Debian architecture unknown (dpkg-dev missing?): "
      "set MA_COMMON_PACKAGE_ARCHITECTURE")
    set(_ma_deb_arch "unknown")
  endif()
  set(MA_COMMON_PACKAGE_ARCHITECTURE "${_ma_deb_arch}" CACHE STRING
    "Debian architecture of the packages (amd64, armhf, ...)")
endif()

# Dependencies on the system's runtime, as Debian 12's toolchains build it.
# They are written out rather than computed by dpkg-shlibdeps, which cannot
# see the cross toolchain's libraries as armhf packages. On the host,
# dpkg-shlibdeps gives libc6 (>= 2.34), libstdc++6 (>= 11), libgcc-s1 (>= 3.0)
# for the library; the ARM library needs GCC_3.5 of libgcc_s (objdump -T).
set(MA_COMMON_PACKAGE_SYSTEM_DEPENDS "libc6 (>= 2.34), libstdc++6 (>= 11), libgcc-s1 (>= 3.5)")

# The platform library that libma-common.so.1 names in its DT_NEEDED entry.
# With the stand-in that is libzel-standin.so.1, which only libzel-standin1
# holds, so the runtime package depends on exactly that package. A virtual
# package ("any platform library") would let apt accept a library with
# another SONAME, and the runtime would then fail to load. A device build
# links the receiver's platform library instead (MA_COMMON_PLATFORM_LIBRARY):
# it makes no stand-in package, and its runtime package depends on the
# device's platform package, named here.
set(_ma_deb_version "${PROJECT_VERSION}-${MA_COMMON_PACKAGE_RELEASE}")
set(_ma_runtime_depends "${MA_COMMON_PACKAGE_SYSTEM_DEPENDS}")
if(MA_COMMON_PLATFORM_LIBRARY)
  set(MA_COMMON_PLATFORM_PACKAGE "" CACHE STRING
    "Debian dependency on the package of the platform library (device builds)")
  if(MA_COMMON_PLATFORM_PACKAGE)
    string(APPEND _ma_runtime_depends ", ${MA_COMMON_PLATFORM_PACKAGE}")
  endif()
else()
  string(APPEND _ma_runtime_depends ", libzel-standin1 (= ${_ma_deb_version})")
endif()

set(CPACK_GENERATOR "DEB")
set(CPACK_PACKAGE_NAME "ma-common")
set(CPACK_PACKAGE_VENDOR "libma-common developers")
set(CPACK_PACKAGE_CONTACT "${MA_COMMON_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_STRIP_FILES TRUE)
set(CPACK_DEB_COMPONENT_INSTALL ON)

# Each package's description below starts with its own summary line. CPack
# would put the project's description in front of each unless the summary is
# CPack's own default, so it is set to that default.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${CMAKE_PROJECT_NAME} built using CMake")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE "${MA_COMMON_PACKAGE_RELEASE}")
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE "${MA_COMMON_PACKAGE_ARCHITECTURE}")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${MA_COMMON_PACKAGE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_PRIORITY "optional")
# A shlibs control file ("libma-common 1 libma-common1 (>= 1.0.0)") lets
# dpkg-shlibdeps of client packages derive their dependency; CPack adds the
# ldconfig trigger with it.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "libma-common1")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION "libs")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "${_ma_runtime_depends}")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "common media-access library of the receiver's media services
libma-common gives the receiver's media services (content browser, recorder,
playback front ends) one vocabulary: item records in nine kinds, the packed
inter-process item message, a virtual file system with path resolution and
a fixed in-memory tree, selection URIs and the tuner delivery-system
classification.

This package holds the shared library.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME "libma-common-dev")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION "libdevel")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "libma-common1 (= ${_ma_deb_version}), libboost-dev (>= 1.73)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "common media-access library - development files
The headers of every subsystem (items, item messages, virtual file system,
selection URIs, delivery systems) and of the platform interfaces, the
libma-common.so link, the CMake package (find_package(ma-common), target
ma-common::ma-common), ma-common.pc for pkg-config, and gdb pretty-printers
of the library's types, which gdb loads with the library.")

set(CPACK_DEBIAN_STANDIN_PACKAGE_NAME "libzel-standin1")
set(CPACK_DEBIAN_STANDIN_PACKAGE_SECTION "libs")
set(CPACK_DEBIAN_STANDIN_PACKAGE_DEPENDS "${MA_COMMON_PACKAGE_SYSTEM_DEPENDS}")
set(CPACK_DEBIAN_STANDIN_DESCRIPTION "stand-in for the receiver's platform library
Debug trace with a per-module level threshold and a serialiser for the
platform interfaces libma-common calls, for machines that do not have the
receiver's platform library. A device with the real platform library does
not install it.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME "ma-cli")
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION "utils")
# The tool calls the stand-in's serialiser and trace controls itself (it is
# built only where the stand-in is the platform library), so it names the
# stand-in's package as well as the library's.
set(CPACK_DEBIAN_TOOL_PACKAGE_DEPENDS
  "${MA_COMMON_PACKAGE_SYSTEM_DEPENDS}, libma-common1 (= ${_ma_deb_version}), libzel-standin1 (= ${_ma_deb_version})")
set(CPACK_DEBIAN_TOOL_DESCRIPTION "inspection tool for libma-common
ma-cli walks item trees (a built-in sample catalogue or a scanned
directory), resolves paths, shows the message an item becomes and decodes
captured ones, creates and parses selection URIs and classifies tuner
delivery systems, as text or JSON.")

# The package names, by component, for the package checks.
set(MA_COMMON_PACKAGE_NAMES
  runtime libma-common1 development libma-common-dev
  standin libzel-standin1 tool ma-cli)

# CPack's configuration is written once every folder has added its install
# rules (the tool's folder may come after this file is included): the
# packaged components are those that have files.
function(ma_common_finish_packaging)
  get_cmake_property(installed COMPONENTS)
  set(CPACK_COMPONENTS_ALL "")
  foreach(component IN LISTS installed)
    if(component IN_LIST MA_COMMON_PACKAGE_NAMES)
      list(APPEND CPACK_COMPONENTS_ALL ${component})
    else()
      message(WARNING "install component '${component}' is in no package")
    endif()
  endforeach()
  include(CPack)
  if(COMMAND ma_common_add_package_checks)
    ma_common_add_package_checks()
  endif()
endfunction()
cmake_language(DEFER DIRECTORY ${PROJECT_SOURCE_DIR} CALL ma_common_finish_packaging)
