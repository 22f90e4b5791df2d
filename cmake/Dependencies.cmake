# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
#
# Everything comes from Debian packages; packaging/packages-*.txt lists them.

# Here alone: each further call starts the interpreter several times.
find_package(Python3 3.10 REQUIRED COMPONENTS Interpreter)
find_package(Threads REQUIRED)
find_package(hwy REQUIRED)
find_package(fmt REQUIRED)
find_package(CLI11 REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(ALSA REQUIRED IMPORTED_TARGET alsa)
pkg_check_modules(XXHASH REQUIRED IMPORTED_TARGET libxxhash)
pkg_check_modules(SQLITE REQUIRED IMPORTED_TARGET sqlite3)
pkg_check_modules(PULSE REQUIRED IMPORTED_TARGET libpulse)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb)
find_package(Qt6 6.4 REQUIRED COMPONENTS Core DBus Svg Widgets)

# A newer Qt warns of what the oldest one that we build with has nothing else for.
if(Qt6_VERSION VERSION_GREATER_EQUAL 6.5)
  add_compile_definitions(QT_WARN_DEPRECATED_UP_TO=0x060400)
endif()
