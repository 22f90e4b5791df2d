# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
#
# The Debian packages, by CPack; packaging/make-deb sets what is asked for here and runs it.

if(NOT MIXDECK_DEBIAN_VERSION)
  return()
endif()

set(debian "${PROJECT_SOURCE_DIR}/packaging/debian")

# mixdeck_debian_documents(PACKAGE COMPONENT): what Debian wants beside the files of a package.
function(mixdeck_debian_documents package component)
  install(FILES "${debian}/copyright" "${PROJECT_BINARY_DIR}/packaging/changelog.Debian.gz"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${component})
  if(EXISTS "${debian}/${package}.lintian-overrides")
    install(FILES "${debian}/${package}.lintian-overrides"
            DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides" RENAME ${package}
            COMPONENT ${component})
  endif()
endfunction()

mixdeck_debian_documents(mixdeck mixdeck)
mixdeck_debian_documents(mixdeck-recorder-sim simulator)

set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL mixdeck simulator)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGE_CONTACT "The Mixdeck developers <developers@mixdeck.example>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_DEBIAN_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_DEBIAN_PACKAGE_RELEASE "${MIXDECK_DEBIAN_VERSION}")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://mixdeck.example/")
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

# Each package has a line of its own for its first one.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_DEBIAN_MIXDECK_PACKAGE_NAME mixdeck)
# The arrows of choices and the ticks of boxes are SVGs of the style sheet, which the toolkit draws by
# a plugin: it came with the library once.
set(CPACK_DEBIAN_MIXDECK_PACKAGE_DEPENDS "qt6-svg-plugins | libqt6svg6 (<< 6.8)")
# Where Inter is missing, the desktop's own font is taken.
set(CPACK_DEBIAN_MIXDECK_PACKAGE_RECOMMENDS "fonts-inter, pipewire-pulse | pulseaudio, qt6-translations-l10n, qt6-wayland, xdg-utils")
set(CPACK_DEBIAN_MIXDECK_PACKAGE_SUGGESTS mixdeck-recorder-sim)
set(CPACK_DEBIAN_MIXDECK_DESCRIPTION
    "companion of a handheld mid-side recorder
Opens the takes of the TARN J4 recorder, plays them at any stereo width and
gain, shows what that does to them, and exports left/right Broadcast Wave
files. With the recorder plugged in it shows its card and changes its settings.
.
Contains the window (mixdeck) and the command line tool (mixdeck-cli).")

set(CPACK_DEBIAN_SIMULATOR_PACKAGE_NAME mixdeck-recorder-sim)
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_ENHANCES mixdeck)
set(CPACK_DEBIAN_SIMULATOR_DESCRIPTION
    "simulated handheld mid-side recorder for tests
Answers over the ALSA sequencer as a TARN J4 recorder does over USB, and goes
wrong in the ways that it is told to. For those who develop or try mixdeck
without the hardware.")

include(CPack)
