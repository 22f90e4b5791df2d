# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT

# mixdeck_library(NAME SOURCES ... HEADERS ... [LINKS ...] [PRIVATE_LINKS ...])
#
# The one static library of a folder under src/. Its LINKS are the architecture: a folder may
# include only from the folders that it links. Each header is part of the target and compiles
# alone: its own source includes it first, which a test checks, and those without a source are
# compiled by the target all_verify_interface_header_sets.
function(mixdeck_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;LINKS;PRIVATE_LINKS" ${ARGN})
  set(target mixdeck_${name})
  add_library(${target} STATIC ${ARG_SOURCES})
  add_library(mixdeck::${name} ALIAS ${target})
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}/src"
                                                             "${PROJECT_BINARY_DIR}/generated"
                                  FILES ${ARG_HEADERS})
  set(alone ${ARG_HEADERS})
  foreach(source ${ARG_SOURCES})
    string(REGEX REPLACE "\\.cpp$" ".h" header "${source}")
    list(REMOVE_ITEM alone "${header}")
  endforeach()
  target_sources(${target} PUBLIC FILE_SET alone TYPE HEADERS
                                  BASE_DIRS "${PROJECT_SOURCE_DIR}/src"
                                            "${PROJECT_BINARY_DIR}/generated"
                                  FILES ${alone})
  target_link_libraries(${target} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_PRIVATE_LINKS})
  mixdeck_few_pieces(${target})
  set_target_properties(${target} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON
                                             INTERFACE_HEADER_SETS_TO_VERIFY alone)
endfunction()
