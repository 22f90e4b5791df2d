# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
#
# What a preset can switch on; see CMakePresets.json.

option(MIXDECK_TESTS "Build the tests" OFF)
option(MIXDECK_BENCHMARKS "Build the benchmarks" OFF)
option(MIXDECK_DEVICE_PROBE "Build the device link's probe without the tests" OFF)
option(MIXDECK_FUZZ "Build the libFuzzer targets (clang only)" OFF)
option(MIXDECK_COVERAGE "Count the lines that run" OFF)
set(MIXDECK_BUILD_NUMBER "1" CACHE STRING "Tells builds of one version apart")
set(MIXDECK_SANITIZE "" CACHE STRING "Value for -fsanitize=, e.g. address,undefined or thread")

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Build type" FORCE)
endif()

find_program(MIXDECK_CCACHE ccache)
if(MIXDECK_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Every clone on a machine shares what one of them has compiled, behind precompiled headers too.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1
      CCACHE_SLOPPINESS=pch_defines,time_macros "${MIXDECK_CCACHE}")
endif()
