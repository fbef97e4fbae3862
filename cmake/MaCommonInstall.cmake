# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Installs the library, its headers, a CMake package (ma-common-config.cmake
# with a version file, target ma-common::ma-common) and a pkg-config file.
#
# Every file belongs to one install component, which CPack turns into one
# Debian package (cmake/MaCommonPackaging.cmake):
#   runtime      libma-common.so.1 (the shared object and its SONAME link)
#   development  headers, the libma-common.so link, CMake package, ma-common.pc
#   standin      the platform stand-in library, when the build links it
#   tool         the ma-cli program (tools/ma-cli/)
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
# links, so it is installed beside it. Clients never link it by name (the
# library's own DT_NEEDED entry loads it), so it gets no libzel-standin.so link.
if(NOT MA_COMMON_PLATFORM_LIBRARY)
  install(TARGETS zel-standin EXPORT ma-common-targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT standin NAMELINK_SKIP)
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
