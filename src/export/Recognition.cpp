// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/Recognition.h"

#include <fmt/format.h>

#include "wav/BextLayout.h"

namespace {

bool contains(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

}  // namespace

std::string Recognition::codingHistory(int bits, bool isRawMidSide) {
  return fmt::format("A=PCM,F=48000,W={},M=stereo,T=J4;VERSION=1.00;MSRAW={};", bits,
                     isRawMidSide ? "ON" : "OFF");
}

Recognition::Recognition(const WaveFileReader& reader) : _whyNot(examine(reader)) {
  _isRecorder = _whyNot.empty();
  if (!_isRecorder) return;
  const std::string history = WaveFileReader::DecodeAsString(_bextChunk.bytes + bext::kFixedSize,
                                                             _bextChunk.length - bext::kFixedSize);
  _isRawMidSide = contains(history, kRawMark);
}

std::string Recognition::examine(const WaveFileReader& reader) {
  if (!reader.isValidFile()) return fmt::format("Not a WAVE file: {}", reader.whyInvalid());
  const auto chunk = reader.getBextChunk();
  if (!chunk) return "No broadcast extension (bext chunk)";
  _bextChunk = reader.getChunkData(*chunk, bext::kMostUsed);
  if (_bextChunk.length < bext::kFixedSize) {
    return fmt::format("The broadcast extension has {} bytes, fewer than {}", _bextChunk.length,
                       bext::kFixedSize);
  }
  const std::string originator = WaveFileReader::DecodeAsString(
      _bextChunk.bytes + bext::kOriginator.offset, bext::kOriginator.size);
  if (contains(originator, kRecorder)) return "";
  return fmt::format("Not a recording of the {}: its originator is \"{}\"", kRecorder, originator);
}
