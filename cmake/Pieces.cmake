# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT

# mixdeck_few_pieces(TARGET)
#
# Most of the time that a source takes to compile goes into the headers of libraries. Where the
# preset has CMAKE_UNITY_BUILD on, the sources of a target are compiled in as few pieces as their
# names allow: two of them may call their own helpers alike. Found out at each configuring; a name
# that clashes later is an error of the compiler, and gone with the next configuring.
function(mixdeck_few_pieces target)
  if(NOT CMAKE_UNITY_BUILD)
    return()
  endif()
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "\\.cpp$")
  execute_process(
    COMMAND "${Python3_EXECUTABLE}" -B "${PROJECT_SOURCE_DIR}/cmake/group_sources.py" ${sources}
    WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
    OUTPUT_VARIABLE groups OUTPUT_STRIP_TRAILING_WHITESPACE
    COMMAND_ERROR_IS_FATAL ANY)
  foreach(source group IN ZIP_LISTS sources groups)
    set_source_files_properties("${source}" PROPERTIES UNITY_GROUP "${group}")
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
endfunction()
