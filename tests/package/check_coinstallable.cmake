# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# ctest -P script: checks that the Multi-Arch: same packages of one build
# can be installed beside the same packages of another architecture: dpkg
# accepts two packages of one name and version owning a path only when the
# path has the same contents in both.
#   -DDPKG_DEB=<dpkg-deb> -DDEB_DIR=<this build's packages>
#   -DOTHER_DEB_DIR=<the other architecture's packages> -DWORK_DIR=<scratch>
#
# Every Multi-Arch: same package of DEB_DIR must be in OTHER_DEB_DIR with the
# same version, for another architecture, and every path both hold must be
# the same: the same bytes for files, the same target for links; then dpkg
# installs both sets into a scratch root. Prints
# "no packages to compare with" (the test is then skipped) when
# OTHER_DEB_DIR has no packages.
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/run_checked.cmake")
file(GLOB others "${OTHER_DEB_DIR}/*.deb")
if(NOT others)
  message(STATUS "no packages to compare with in ${OTHER_DEB_DIR}")
  return()
endif()
file(REMOVE_RECURSE "${WORK_DIR}")

function(field deb name out_var)
  run_checked("dpkg-deb" value "${DPKG_DEB}" --field "${deb}" ${name})
  string(STRIP "${value}" value)
  set(${out_var} "${value}" PARENT_SCOPE)
endfunction()

file(GLOB packages "${DEB_DIR}/*.deb")
set(failures "")
set(compared "")
set(common_paths 0)
foreach(deb IN LISTS packages)
  field("${deb}" Multi-Arch multi_arch)
  if(NOT multi_arch STREQUAL "same")
    continue()
  endif()
  field("${deb}" Package package)
  field("${deb}" Version version)
  field("${deb}" Architecture arch)
  file(GLOB other "${OTHER_DEB_DIR}/${package}_*.deb")
  if(NOT other)
    string(APPEND failures "  ${package}: not among the packages of ${OTHER_DEB_DIR}\n")
    continue()
  endif()
  field("${other}" Version other_version)
  field("${other}" Architecture other_arch)
  field("${other}" Multi-Arch other_multi_arch)
  if(NOT other_version STREQUAL version OR other_arch STREQUAL arch
      OR NOT other_multi_arch STREQUAL "same")
    string(APPEND failures "  ${package}: ${version} ${arch} Multi-Arch: same against "
      "${other_version} ${other_arch} Multi-Arch: ${other_multi_arch}\n")
    continue()
  endif()
  set(mine "${WORK_DIR}/${package}/${arch}")
  set(theirs "${WORK_DIR}/${package}/${other_arch}")
  file(MAKE_DIRECTORY "${mine}" "${theirs}")
  run_checked("dpkg-deb" ignored "${DPKG_DEB}" -x "${deb}" "${mine}")
  run_checked("dpkg-deb" ignored "${DPKG_DEB}" -x "${other}" "${theirs}")
  file(GLOB_RECURSE paths RELATIVE "${mine}" LIST_DIRECTORIES false "${mine}/*")
  foreach(path IN LISTS paths)
    if(NOT EXISTS "${theirs}/${path}" AND NOT IS_SYMLINK "${theirs}/${path}")
      continue()
    endif()
    math(EXPR common_paths "${common_paths} + 1")
    if(IS_SYMLINK "${mine}/${path}" AND IS_SYMLINK "${theirs}/${path}")
      file(READ_SYMLINK "${mine}/${path}" a)
      file(READ_SYMLINK "${theirs}/${path}" b)
      if(NOT a STREQUAL b)
        string(APPEND failures "  ${package}: /${path} links to ${a} and to ${b}\n")
      endif()
    elseif(IS_SYMLINK "${mine}/${path}" OR IS_SYMLINK "${theirs}/${path}")
      string(APPEND failures "  ${package}: /${path} is a link in one package only\n")
    else()
      execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files
        "${mine}/${path}" "${theirs}/${path}" RESULT_VARIABLE different)
      if(different)
        string(APPEND failures "  ${package}: /${path} differs between ${arch} and ${other_arch}\n")
      endif()
    endif()
  endforeach()
  list(APPEND compared "${package}")
endforeach()
if(failures)
  message(FATAL_ERROR "not installable side by side:\n${failures}")
endif()
if(NOT compared)
  message(FATAL_ERROR "no Multi-Arch: same package in ${DEB_DIR}")
endif()

# And dpkg itself installs both architectures' packages into an empty
# scratch root that knows the second architecture (the system's libraries
# are not there: their dependencies are not checked).
set(dpkg_root "${WORK_DIR}/dpkg-root")
file(MAKE_DIRECTORY "${dpkg_root}/var/lib/dpkg/info" "${dpkg_root}/var/lib/dpkg/updates")
file(TOUCH "${dpkg_root}/var/lib/dpkg/status")
set(installed "")
foreach(package IN LISTS compared)
  file(GLOB pair "${DEB_DIR}/${package}_*.deb" "${OTHER_DEB_DIR}/${package}_*.deb")
  list(APPEND installed ${pair})
endforeach()
get_filename_component(dpkg_dir "${DPKG_DEB}" DIRECTORY)
foreach(a IN ITEMS ${arch} ${other_arch})
  run_checked("dpkg --add-architecture" ignored "${dpkg_dir}/dpkg" --root=${dpkg_root}
    --add-architecture ${a})
endforeach()
run_checked("dpkg -i" ignored "${dpkg_dir}/dpkg" --root=${dpkg_root} --force-depends
  --force-script-chrootless --no-triggers -i ${installed})
run_checked("dpkg -l" listing "${dpkg_dir}/dpkg-query" --root=${dpkg_root}
  -W [=[-f=${Package}:${Architecture} ${db:Status-Abbrev}\n]=])
foreach(package IN LISTS compared)
  foreach(a IN ITEMS ${arch} ${other_arch})
    if(NOT listing MATCHES "(^|\n)${package}:${a} i")
      string(APPEND failures "  dpkg did not install ${package}:${a}\n")
    endif()
  endforeach()
endforeach()
if(failures)
  message(FATAL_ERROR "not installable side by side:\n${failures}${listing}")
endif()
list(JOIN compared ", " compared)
message(STATUS "installable side by side: ${compared} (${common_paths} common paths, all "
  "equal; dpkg installed both architectures)")
