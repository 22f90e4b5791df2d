# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
#
# What `cmake --install` puts where, under any prefix: the layout of the Filesystem Hierarchy
# Standard. The component `simulator` is a package of its own. Nothing is put anywhere that would
# make the window the default for a kind of file.

include(GNUInstallDirs)

if(NOT TARGET manual)
  return()
endif()

set(data "${CMAKE_INSTALL_DATADIR}")
set(resources "${PROJECT_SOURCE_DIR}/resources")
set(manual "${PROJECT_BINARY_DIR}/packaging/manual")
# zsh of the distribution looks elsewhere than one that was built by hand.
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  set(zsh_functions "${data}/zsh/vendor-completions")
else()
  set(zsh_functions "${data}/zsh/site-functions")
endif()

# mixdeck_install_manual(PROGRAM COMPONENT): its page, and what the shells complete for it.
function(mixdeck_install_manual program component)
  install(FILES "${manual}/${program}.1.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1"
          COMPONENT ${component})
  install(FILES "${manual}/${program}.bash" DESTINATION "${data}/bash-completion/completions"
          RENAME ${program} COMPONENT ${component})
  install(FILES "${manual}/_${program}" DESTINATION "${zsh_functions}" COMPONENT ${component})
  install(FILES "${manual}/${program}.fish" DESTINATION "${data}/fish/vendor_completions.d"
          COMPONENT ${component})
endfunction()

install(TARGETS mixdeck mixdeck-cli RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT mixdeck)
install(TARGETS mixdeck-cli-live mixdeck-plot-png RUNTIME DESTINATION "${CMAKE_INSTALL_LIBEXECDIR}/mixdeck"
        COMPONENT mixdeck)
install(TARGETS mixdeck-recorder-sim RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
        COMPONENT simulator)
mixdeck_install_manual(mixdeck mixdeck)
mixdeck_install_manual(mixdeck-cli mixdeck)
mixdeck_install_manual(mixdeck-recorder-sim simulator)

install(FILES "${resources}/example.mixdeck.mixdeck.desktop" DESTINATION "${data}/applications"
        COMPONENT mixdeck)
install(FILES "${resources}/example.mixdeck.mixdeck.metainfo.xml" DESTINATION "${data}/metainfo"
        COMPONENT mixdeck)
install(FILES "${resources}/artwork/mixdeck.svg"
        DESTINATION "${data}/icons/hicolor/scalable/apps" COMPONENT mixdeck)
install(FILES "${resources}/mixdeck-symbolic.svg"
        DESTINATION "${data}/icons/hicolor/symbolic/apps" COMPONENT mixdeck)

# A service names its program in full, and the prefix is only known when it is installed.
set(service "${PROJECT_BINARY_DIR}/example.mixdeck.mixdeck.service")
install(CODE "set(CMAKE_INSTALL_BINDIR \"${CMAKE_INSTALL_BINDIR}\")
              configure_file(\"${resources}/example.mixdeck.mixdeck.service.in\" \"${service}\" @ONLY)"
        COMPONENT mixdeck)
install(FILES "${service}" DESTINATION "${data}/dbus-1/services" COMPONENT mixdeck)
