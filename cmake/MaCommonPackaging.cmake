# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Debian packages of the installed files, made by debhelper from the
# packaging folder packaging/debian/, one package per install component
# (cmake/MaCommonInstall.cmake):
#
#   libma-common1       runtime              libma-common.so.1 (libs, Multi-Arch: same)
#   libma-common-dev    development          headers, libma-common.so, CMake package,
#                                            ma-common.pc (libdevel, Multi-Arch: same)
#   libma-common-doc    doc                  API reference and user guide (doc,
#                                            Architecture: all)
#   libzel-standin1     standin              the platform stand-in library (libs,
#                                            Multi-Arch: same)
#   libzel-standin-dev  standin-development  the stand-in's headers and
#                                            libzel-standin.so (libdevel, Multi-Arch: same)
#   ma-cli              tool                 the inspection tool and its manual page (utils)
#
# and a -dbgsym package with the debug symbols of each package with ELF files.
#
#   cmake --build <build> --target debian-packages
#
# writes them to <build>/packages/, named <package>_<version>_<architecture>.deb
# (the doc package: _all.deb). A package is made only for the components
# that have files in this build: no ma-cli package without the tool, no
# stand-in packages when the build links the receiver's platform library.
#
# Why debhelper and not CPack: debhelper is what Debian's own packages are
# made with, so copyright and changelog, the ldconfig trigger, the symbols
# file (dpkg-gensymbols), the -dbgsym packages, compression and file modes
# come out as Debian Policy and lintian expect, for amd64 and for the armhf
# cross build alike (dpkg-architecture -a armhf). It packages what the CMake
# build installed; it never builds.

# The version of the packages is the changelog's; the upstream part must be
# the project's.
set(MA_COMMON_PACKAGING_DIR "${PROJECT_SOURCE_DIR}/packaging")
file(STRINGS "${MA_COMMON_PACKAGING_DIR}/debian/changelog" _ma_changelog_head LIMIT_COUNT 1)
if(NOT _ma_changelog_head MATCHES "^libma-common \\(([^)-]+)-([^)]+)\\) ")
  message(FATAL_ERROR "packaging/debian/changelog: no version in \"${_ma_changelog_head}\"")
endif()
if(NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "packaging/debian/changelog is for version ${CMAKE_MATCH_1}, "
    "the project is ${PROJECT_VERSION}: add a changelog entry")
endif()
set(MA_COMMON_PACKAGE_VERSION "${CMAKE_MATCH_1}-${CMAKE_MATCH_2}")

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
# it makes no stand-in packages, and its runtime package depends on the
# device's platform package, named here.
if(MA_COMMON_PLATFORM_LIBRARY)
  set(MA_COMMON_PLATFORM_PACKAGE "" CACHE STRING
    "Debian dependency on the package of the platform library (device builds)")
  set(_ma_platform_depends "${MA_COMMON_PLATFORM_PACKAGE}")
else()
  set(_ma_platform_depends "libzel-standin1 (= ${MA_COMMON_PACKAGE_VERSION})")
endif()

# The manual page of ma-cli, made by help2man from the tool's --help and
# --version (in a cross build through a wrapper that runs it under the
# emulator), dated by the changelog so that every build makes the same page.
# Not in the sanitizer builds, which make no packages.
if(TARGET ma-cli AND MA_COMMON_SANITIZE STREQUAL "")
  find_program(MA_COMMON_HELP2MAN help2man)
  if(MA_COMMON_HELP2MAN)
    execute_process(COMMAND dpkg-parsechangelog
        -l "${MA_COMMON_PACKAGING_DIR}/debian/changelog" -STimestamp
      OUTPUT_VARIABLE _ma_changelog_epoch OUTPUT_STRIP_TRAILING_WHITESPACE)
    set(_ma_man_dir "${PROJECT_BINARY_DIR}/man")
    set(_ma_program "$<TARGET_FILE:ma-cli>")
    if(CMAKE_CROSSCOMPILING_EMULATOR)
      list(JOIN CMAKE_CROSSCOMPILING_EMULATOR " " _ma_emulator)
      file(GENERATE OUTPUT "${_ma_man_dir}/run/ma-cli"
        CONTENT "#!/bin/sh\nexec ${_ma_emulator} \"$<TARGET_FILE:ma-cli>\" \"$@\"\n"
        FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
          WORLD_READ WORLD_EXECUTE)
      set(_ma_program "${_ma_man_dir}/run/ma-cli")
    endif()
    add_custom_command(OUTPUT "${_ma_man_dir}/ma-cli.1"
      COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=${_ma_changelog_epoch}
        ${MA_COMMON_HELP2MAN} --no-info --section=1
        "--name=inspection tool for libma-common"
        --output=${_ma_man_dir}/ma-cli.1 ${_ma_program}
      DEPENDS ma-cli
      COMMENT "Manual page of ma-cli (help2man)"
      VERBATIM)
    add_custom_target(ma-cli-manual-page ALL DEPENDS "${_ma_man_dir}/ma-cli.1")
    install(FILES "${_ma_man_dir}/ma-cli.1"
      DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT tool)
  else()
    message(WARNING "help2man not found: ma-cli has no manual page")
  endif()
endif()

# The package names, by component, for the package checks.
set(MA_COMMON_PACKAGE_NAMES
  runtime libma-common1 development libma-common-dev doc libma-common-doc
  standin libzel-standin1 standin-development libzel-standin-dev tool ma-cli)

# The packaging target is added once every folder has added its install
# rules (the tool's folder may come after this file is included): the
# packages made are those whose components have files.
function(ma_common_finish_packaging)
  get_cmake_property(installed COMPONENTS)
  set(excluded "")
  foreach(component IN LISTS installed)
    if(NOT component IN_LIST MA_COMMON_PACKAGE_NAMES)
      message(WARNING "install component '${component}' is in no package")
    endif()
  endforeach()
  set(index 0)
  list(LENGTH MA_COMMON_PACKAGE_NAMES count)
  while(index LESS count)
    list(GET MA_COMMON_PACKAGE_NAMES ${index} component)
    math(EXPR index "${index} + 1")
    list(GET MA_COMMON_PACKAGE_NAMES ${index} package)
    math(EXPR index "${index} + 1")
    if(NOT component IN_LIST installed)
      list(APPEND excluded "-N${package}")
    endif()
  endwhile()
  list(JOIN excluded " " excluded)
  # The packaging script's settings (seen by ma_common_add_package_checks()
  # too); a caller adds -DWORK_DIR=<scratch>
  # -DOUTPUT_DIR=<folder> and -P ${MA_COMMON_MAKE_PACKAGES_SCRIPT}.
  set(MA_COMMON_MAKE_PACKAGES_ARGS
    -DPACKAGING_DIR=${MA_COMMON_PACKAGING_DIR}
    -DBUILD_DIR=${PROJECT_BINARY_DIR}
    -DARCHITECTURE=${MA_COMMON_PACKAGE_ARCHITECTURE}
    "-DSYSTEM_DEPENDS=${MA_COMMON_PACKAGE_SYSTEM_DEPENDS}"
    "-DPLATFORM_DEPENDS=${_ma_platform_depends}"
    "-DDH_OPTIONS=${excluded}")
  set(MA_COMMON_MAKE_PACKAGES_SCRIPT "${MA_COMMON_PACKAGING_DIR}/make-packages.cmake")
  add_custom_target(debian-packages
    COMMAND ${CMAKE_COMMAND} ${MA_COMMON_MAKE_PACKAGES_ARGS}
      -DWORK_DIR=${PROJECT_BINARY_DIR}/packaging -DOUTPUT_DIR=${PROJECT_BINARY_DIR}/packages
      -P ${MA_COMMON_MAKE_PACKAGES_SCRIPT}
    COMMENT "Debian packages (debhelper) into ${PROJECT_BINARY_DIR}/packages"
    VERBATIM USES_TERMINAL)
  foreach(target IN ITEMS ma-common zel-standin ma-cli ma-cli-manual-page api-reference)
    if(TARGET ${target})
      add_dependencies(debian-packages ${target})
    endif()
  endforeach()
  if(COMMAND ma_common_add_package_checks)
    ma_common_add_package_checks()
  endif()
endfunction()
cmake_language(DEFER DIRECTORY ${PROJECT_SOURCE_DIR} CALL ma_common_finish_packaging)
