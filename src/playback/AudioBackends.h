// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "playback/AudioFile.h"
#include "playback/AudioOutput.h"

/// The back ends of the two seams by name, and which of them new players use.
///
/// There are none until the place that composes a program, or a test, adds them. Owner's thread
/// only.
class AudioBackends {
 public:
  using FileFactory = std::function<std::unique_ptr<AudioFile>()>;
  using OutputFactory = std::function<std::unique_ptr<AudioOutput>(const AudioOutput::Format&)>;

  /// Adds a back end or replaces the one of that name.
  static void addFile(std::string_view name, FileFactory factory);
  /// `library` is what leads to the sound, with its version ("libpulse 16.1").
  static void addOutput(std::string_view name, OutputFactory factory, std::string library = {});

  /// False, with no effect, for a name that nobody added.
  static bool chooseFile(std::string_view name);
  static bool chooseOutput(std::string_view name);

  /// The chosen one, or the one of that name; none where there is no such.
  static std::unique_ptr<AudioFile> makeFile();
  static std::unique_ptr<AudioFile> makeFile(std::string_view name);
  static std::unique_ptr<AudioOutput> makeOutput(const AudioOutput::Format& format);

  /// Of the chosen output; empty where nothing leads anywhere.
  static std::string outputLibrary();
};
