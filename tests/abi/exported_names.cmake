# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# How exported-symbols.txt spells a demangled name, shared by the scripts
# that compare a list of the library's symbols with it: the C++11 string
# type as std::string and no [abi:cxx11] tag, so that one list serves the
# host and the target.

# Rewrites the demangled names in the text held by `variable` to the list's
# spelling.
function(ma_common_spell_exported_names variable)
  string(REPLACE "std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >"
    "std::string" text "${${variable}}")
  string(REPLACE "[abi:cxx11]" "" text "${text}")
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()
