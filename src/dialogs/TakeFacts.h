// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "export/Recognition.h"
#include "wav/WaveDescription.h"
#include "wav/WaveFileReader.h"

/// All that a file tells of itself but its sound, read once. Immutable.
class TakeFacts {
 public:
  /// What is told, and what it is; in words for people.
  struct Line {
    QString name;
    QString value;
  };

  /// Reads the file, but for its samples, and waits for the medium. Any thread.
  explicit TakeFacts(const std::filesystem::path& file);

  [[nodiscard]] const std::filesystem::path& file() const { return _file; }
  /// Whether its sound can be measured.
  [[nodiscard]] bool isRecording() const { return _recognition.isRecorder(); }
  /// Null where the file cannot be read.
  [[nodiscard]] const std::shared_ptr<WaveFileReader>& reader() const { return _reader; }
  /// The file, its kind, its length, and what is wrong with it.
  [[nodiscard]] std::vector<Line> general() const;
  [[nodiscard]] std::vector<Line> chunks() const;
  /// Of the broadcast extension; empty without one.
  [[nodiscard]] std::vector<Line> fields() const;

 private:
  [[nodiscard]] QString formatText() const;

  std::filesystem::path _file;
  std::string _whyNot;
  std::string _warning;
  Recognition _recognition;
  std::shared_ptr<WaveFileReader> _reader;
  std::vector<WaveDescription::Chunk> _chunks;
  std::vector<WaveDescription::Field> _fields;
};
