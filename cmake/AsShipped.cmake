# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
#
# The target `as_shipped`: all but the test programs of which nothing is run without a sanitizer in
# `./test`.

# mixdeck_only_sanitized(TARGET): what it tests is run under sanitizers.
function(mixdeck_only_sanitized target)
  set_property(GLOBAL APPEND PROPERTY MIXDECK_ONLY_SANITIZED ${target})
endfunction()

# mixdeck_as_shipped_too(TARGET): some of it is run as it is shipped all the same.
function(mixdeck_as_shipped_too target)
  get_property(only GLOBAL PROPERTY MIXDECK_ONLY_SANITIZED)
  list(REMOVE_ITEM only ${target})
  set_property(GLOBAL PROPERTY MIXDECK_ONLY_SANITIZED "${only}")
endfunction()

# mixdeck_targets_below(FOLDER RESULT): all that `all` builds.
function(mixdeck_targets_below folder result)
  get_property(targets DIRECTORY "${folder}" PROPERTY BUILDSYSTEM_TARGETS)
  get_property(folders DIRECTORY "${folder}" PROPERTY SUBDIRECTORIES)
  foreach(each IN LISTS folders)
    mixdeck_targets_below("${each}" below)
    list(APPEND targets ${below})
  endforeach()
  set(built "")
  foreach(target IN LISTS targets)
    get_target_property(is_left_out ${target} EXCLUDE_FROM_ALL)
    if(NOT is_left_out)
      list(APPEND built ${target})
    endif()
  endforeach()
  set(${result} ${built} PARENT_SCOPE)
endfunction()

# mixdeck_add_as_shipped(): when all targets are there.
function(mixdeck_add_as_shipped)
  mixdeck_targets_below("${PROJECT_SOURCE_DIR}" targets)
  get_property(only GLOBAL PROPERTY MIXDECK_ONLY_SANITIZED)
  list(REMOVE_ITEM targets ${only})
  add_custom_target(as_shipped)
  add_dependencies(as_shipped ${targets})
endfunction()
