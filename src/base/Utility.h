// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

/// The program's persistent strings, and one stopwatch for diagnosis. Main thread only.
class Utility {
 public:
  /// Path of the folder last asked for, without a slash at its end.
  static constexpr std::string_view kLastOpenFolder = "UD_LAST_OPEN_FOLDER";
  /// The version ("0.1.0.1") whose introduction the user does not want to see again.
  static constexpr std::string_view kDoNotShowAgain = "UD_DO_NOT_SHOW_AGAIN";
  /// What a switch is stored as.
  static constexpr std::string_view kOn = "on";
  static constexpr std::string_view kOff = "off";
  /// `kOn` where meters follow the recorder's rule.
  static constexpr std::string_view kMetersByRule = "UD_METERS_BY_RULE";
  /// `kOff` where width, gain and loop of takes are not remembered.
  static constexpr std::string_view kRememberTakes = "UD_REMEMBER_TAKES";
  /// "recorded" or "duration" where the list is in this order, else it is by name.
  static constexpr std::string_view kListOrder = "UD_LIST_ORDER";

  /// Keeps the value for the key, in place of any earlier one. Returns at once: it is written on
  /// another thread, soon. What cannot be written is logged.
  static void store(std::string_view key, std::string_view valueString);
  /// The stored value; none when there is none. Reads the file, unless the value is on its way
  /// there, and waits for the medium.
  static std::optional<std::string> getStringValue(std::string_view key);
  /// Until all is written, but no longer than this; false where something was not. For the end of
  /// the program.
  static bool finishStoring(std::chrono::milliseconds most);

  // No program calls what follows; it belongs to the system's interface.

  /// Starts the stopwatch.
  static void stopWatch_start();
  /// Seconds since the last start, which goes on counting; 0 without a start.
  static double stopWatch_stop();
};
