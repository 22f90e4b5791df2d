// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "wav/WaveFileReader.h"

/// What there is to say about one file, as data and as text for people.
class FileDescription {
 public:
  /// Reads what describes the file, not its samples. False from `isReadable` when it cannot.
  explicit FileDescription(const std::filesystem::path& path);

  [[nodiscard]] bool isReadable() const { return _reader != nullptr; }
  /// Whether it is one of the recorder's; the key reason tells why not.
  [[nodiscard]] bool isRecording() const { return _json["recorder"].get<bool>(); }
  /// Keys: path, valid, recorder, raw_ms, reason, header, chunks, bext (null without one),
  /// duration_seconds, frames (whole ones that can be read), sample_rate, warning (null without
  /// one).
  [[nodiscard]] const nlohmann::ordered_json& json() const { return _json; }
  /// The same over several lines, with what a listener should know, but without the reason; empty
  /// where the file cannot be read.
  [[nodiscard]] std::string text() const;

  /// What a listener should know of the sample data before an export: that there is none, that
  /// it is cut short, or that its kind of samples is one that the recorder never writes. Empty when
  /// all is well.
  static std::string audioWarning(const WaveFileReader& reader);
  /// The same, and what to do about it where something can be done.
  static std::string audioAdvice(const WaveFileReader& reader);

 private:
  void describeChunks();
  [[nodiscard]] std::string warning() const;
  void describeBext();
  [[nodiscard]] std::string chunkLines() const;

  std::unique_ptr<WaveFileReader> _reader;
  nlohmann::ordered_json _json;
};
