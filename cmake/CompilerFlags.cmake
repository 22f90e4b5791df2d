# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
#
# One language standard and one set of flags for every target. Samples are right to the bit, so
# a multiply and an add are never contracted into one rounding, and fast-math is never on.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

add_compile_options(-ffp-contract=off)
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
                    -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual -Wnull-dereference
                    -Wdouble-promotion -Wformat=2)
if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # In one piece a source's own names look like those of a header to the others.
  add_compile_options(-Wno-subobject-linkage -Wno-shadow -Wshadow=local)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  # To it a conversion that is written out counts as well, and moc's own names shadow ours.
  add_compile_options(-Wno-double-promotion -Wno-shadow)
endif()
add_compile_definitions(_FILE_OFFSET_BITS=64)

# A program loads no library that nothing in it calls: each takes its time at every start.
add_link_options(LINKER:--as-needed)

if(CMAKE_BUILD_TYPE STREQUAL "RelWithDebInfo")
  string(REPLACE "-DNDEBUG" "" CMAKE_CXX_FLAGS_RELWITHDEBINFO "${CMAKE_CXX_FLAGS_RELWITHDEBINFO}")
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()
