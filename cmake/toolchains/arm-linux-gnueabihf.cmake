# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Cross build for the receiver: 32-bit ARM, hard-float, Debian's toolchain.
# Test programs run under qemu-arm with the toolchain's own sysroot.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)

set(MA_ARM_TRIPLE arm-linux-gnueabihf)
set(MA_ARM_SYSROOT /usr/${MA_ARM_TRIPLE})

set(CMAKE_C_COMPILER ${MA_ARM_TRIPLE}-gcc)
set(CMAKE_CXX_COMPILER ${MA_ARM_TRIPLE}-g++)

set(CMAKE_FIND_ROOT_PATH ${MA_ARM_SYSROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm;-L;${MA_ARM_SYSROOT})
