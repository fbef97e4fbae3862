# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# ma_common_harden(<target>...): builds the binaries that are installed the
# way Debian hardens its own (dpkg-buildflags, hardening=+all):
#
#   -fstack-protector-strong   a canary in every function with a local array
#                              or a local whose address is taken
#   -D_FORTIFY_SOURCE=2        checked forms of the C library's string and
#                              memory functions where the compiler knows the
#                              buffer's size; in optimised builds only (the C
#                              library warns about it without optimisation,
#                              and the debug builds treat warnings as errors)
#   -z relro, -z now           the relocations resolved at load time and then
#                              made read-only (no lazy binding)
#
# None of them changes an exported name, a type or a layout: the ABI checks
# of tests/abi/ hold for the hardened library.
function(ma_common_harden)
  foreach(target IN LISTS ARGN)
    target_compile_options(${target} PRIVATE -fstack-protector-strong)
    target_compile_definitions(${target} PRIVATE
      $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:_FORTIFY_SOURCE=2>)
    get_target_property(type ${target} TYPE)
    if(NOT type STREQUAL "OBJECT_LIBRARY")
      target_link_options(${target} PRIVATE LINKER:-z,relro LINKER:-z,now)
    endif()
  endforeach()
endfunction()
