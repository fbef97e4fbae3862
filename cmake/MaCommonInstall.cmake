# Installs the library, its headers, a CMake package (ma-common-config.cmake
# with a version file, target ma-common::ma-common) and a pkg-config file.
include(CMakePackageConfigHelpers)

set(MA_COMMON_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/ma-common")

install(TARGETS ma-common zel-interfaces zel-platform
  EXPORT ma-common-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY common/fw/ma/common/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

# Without the receiver's platform library, the stand-in is what the library
# links, so it is installed beside it.
if(NOT MA_COMMON_PLATFORM_LIBRARY)
  install(TARGETS zel-standin EXPORT ma-common-targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()

install(EXPORT ma-common-targets
  NAMESPACE ma-common::
  DESTINATION ${MA_COMMON_CMAKE_DIR})

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
  DESTINATION ${MA_COMMON_CMAKE_DIR})

configure_file(${PROJECT_SOURCE_DIR}/cmake/ma-common.pc.in
  ${PROJECT_BINARY_DIR}/ma-common.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/ma-common.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
