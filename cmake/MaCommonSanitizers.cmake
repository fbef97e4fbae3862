# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Applies MA_COMMON_SANITIZE to everything built in this tree, tests included,
# so that instrumented and uninstrumented code never mix.
if(MA_COMMON_FUZZ)
  # Coverage for libFuzzer everywhere; the fuzz targets add the driver.
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
  return()
elseif(MA_COMMON_SANITIZE STREQUAL "")
  return()
elseif(MA_COMMON_SANITIZE STREQUAL "address-undefined")
  set(_ma_sanitize_flags -fsanitize=address,undefined -fno-sanitize-recover=all)
elseif(MA_COMMON_SANITIZE STREQUAL "thread")
  set(_ma_sanitize_flags -fsanitize=thread)
else()
  message(FATAL_ERROR "MA_COMMON_SANITIZE: unknown value '${MA_COMMON_SANITIZE}'")
endif()
add_compile_options(${_ma_sanitize_flags} -fno-omit-frame-pointer)
add_link_options(${_ma_sanitize_flags})
