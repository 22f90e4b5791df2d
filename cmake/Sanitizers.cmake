# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT

if(MIXDECK_SANITIZE)
  add_compile_options(-fsanitize=${MIXDECK_SANITIZE} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${MIXDECK_SANITIZE} -fuse-ld=lld)
  add_compile_definitions(MIXDECK_SANITIZED)
  if(MIXDECK_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize-recover=all)
  endif()
endif()

if(MIXDECK_COVERAGE)
  add_compile_options(--coverage -O0)
  add_link_options(--coverage)
endif()
