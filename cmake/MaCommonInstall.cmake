# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Installs the library, its headers, a CMake package (ma-common-config.cmake
# with a version file, target ma-common::ma-common) and a pkg-config file.
#
# Every file belongs to one install component, which packaging/debian/rules
# turns into one Debian package (cmake/MaCommonPackaging.cmake):
#   runtime              libma-common.so.1 (the shared object and its SONAME link)
#   development          headers, the libma-common.so link, CMake package, ma-common.pc
#   doc                  the API reference and the user guide (doc/)
#   standin              the platform stand-in library, when the build links it
#   standin-development  the stand-in's own headers and the libzel-standin.so link
#   tool                 the ma-cli program (tools/ma-cli/) and its manual page
#
# Libraries, the CMake package and ma-common.pc go to lib/<multiarch triplet>
# (CMAKE_INSTALL_LIBDIR, set in the top CMakeLists.txt).
include(CMakePackageConfigHelpers)

set(MA_COMMON_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/ma-common")

install(TARGETS ma-common zel-interfaces zel-platform
  EXPORT ma-common-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY common/fw/ma/common/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  COMPONENT development)

# Without the receiver's platform library, the stand-in is what the library
# links, so it is installed beside it. A host client that sets the stand-in's
# trace threshold links it by name (target ma-common::zel-standin, or
# -lzel-standin): its development files have the libzel-standin.so link.
if(NOT MA_COMMON_PLATFORM_LIBRARY)
  install(TARGETS zel-standin EXPORT ma-common-targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
      COMPONENT standin NAMELINK_COMPONENT standin-development)
endif()

install(EXPORT ma-common-targets
  NAMESPACE ma-common::
  DESTINATION ${MA_COMMON_CMAKE_DIR}
  COMPONENT development)

configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/ma-common-config.cmake.in
  ${PROJECT_BINARY_DIR}/ma-common-config.cmake
  INSTALL_DESTINATION ${MA_COMMON_CMAKE_DIR})
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/ma-common-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/ma-common-config.cmake
  ${PROJECT_BINARY_DIR}/ma-common-config-version.cmake
  DESTINATION ${MA_COMMON_CMAKE_DIR}
  COMPONENT development)

# The pkg-config file finds its prefix from its own place (${pcfiledir}), so
# the same file serves /usr in the packages and any --prefix or sysroot.
file(RELATIVE_PATH MA_COMMON_PC_TO_PREFIX
  "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
string(REGEX REPLACE "/$" "" MA_COMMON_PC_TO_PREFIX "${MA_COMMON_PC_TO_PREFIX}")
configure_file(${PROJECT_SOURCE_DIR}/cmake/ma-common.pc.in
  ${PROJECT_BINARY_DIR}/ma-common.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/ma-common.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT development)

# What is installed is hardened as Debian's own binaries are, and carries
# debug information in every configuration (the optimised ones too): the
# packages strip it into their -dbgsym packages.
include(MaCommonHardening)
set(_ma_installed_binaries ma-common-objects ma-common zel-standin)
if(TARGET ma-cli)
  list(APPEND _ma_installed_binaries ma-cli)
endif()
ma_common_harden(${_ma_installed_binaries})
foreach(target IN LISTS _ma_installed_binaries)
  target_compile_options(${target} PRIVATE $<$<CONFIG:Release,MinSizeRel>:-g>)
endforeach()
