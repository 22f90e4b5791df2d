// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "wav/WavArray.h"
#include "wav/WaveFileReader.h"

/// Whether a file is one of the recorder's, and whether its channels are raw Mid and Side: what its
/// broadcast extension says. Immutable once made.
class Recognition {
 public:
  /// What the recorder's originator holds.
  static constexpr std::string_view kRecorder = "TARN J4";
  /// What the coding history of its raw takes holds.
  static constexpr std::string_view kRawMark = "MSRAW=ON";
  /// The coding history of a file of this sample width.
  static std::string codingHistory(int bits, bool isRawMidSide);

  Recognition() = default;
  explicit Recognition(const WaveFileReader& reader);

  /// A valid WAVE file with a bext chunk of at least 602 bytes whose originator contains "TARN J4".
  [[nodiscard]] bool isRecorder() const { return _isRecorder; }
  /// One of the recorder's whose coding history contains "MSRAW=ON".
  [[nodiscard]] bool isRawMidSide() const { return _isRawMidSide; }
  /// Why `isRecorder` is false, in words for people; empty when it is true.
  [[nodiscard]] const std::string& whyNot() const { return _whyNot; }
  /// The payload of the bext chunk, as much of it as is ever used, once; empty where there is none.
  WavArray takeBextChunk() { return std::move(_bextChunk); }

 private:
  std::string examine(const WaveFileReader& reader);

  WavArray _bextChunk;  ///< first, as `examine` fills it
  bool _isRecorder = false;
  bool _isRawMidSide = false;
  std::string _whyNot;
};
