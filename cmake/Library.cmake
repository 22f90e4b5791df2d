# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT

# mixdeck_library(NAME SOURCES ... HEADERS ... [LINKS ...] [PRIVATE_LINKS ...])
#
# The one static library of a folder under src/. Its links of either kind are the architecture: a
# folder may include only from the folders that it links. Each header is part of the target and compiles
# alone: a test compiles it.
function(mixdeck_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;LINKS;PRIVATE_LINKS" ${ARGN})
  set(target mixdeck_${name})
  add_library(${target} STATIC ${ARG_SOURCES})
  add_library(mixdeck::${name} ALIAS ${target})
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}/src"
                                                             "${PROJECT_BINARY_DIR}/generated"
                                  FILES ${ARG_HEADERS})
  target_link_libraries(${target} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_PRIVATE_LINKS})
  mixdeck_few_pieces(${target})
endfunction()
