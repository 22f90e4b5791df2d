// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstdint>
#include <filesystem>
#include <optional>

#include "export/Export.h"

/// What a job has to tell about an export, taken down once: the job may be closed afterwards.
struct ExportFacts {
  ExportFacts() = default;
  explicit ExportFacts(const Export& job);

  /// "<name>_Decode.WAV" in the folder.
  [[nodiscard]] std::filesystem::path proposal() const;
  /// "<name>_Decode_A-B.WAV" there, for a stretch.
  [[nodiscard]] std::filesystem::path selectionProposal() const;
  /// "90°", or that the channels stay as they are.
  [[nodiscard]] QString widthText() const;
  /// "+6 dB", or what takes its place in a normalised export.
  [[nodiscard]] QString gainText(bool isNormalized) const;
  /// "14.4 MB".
  [[nodiscard]] QString sizeText(bool is24bit) const;
  /// So many bytes in the same way.
  [[nodiscard]] static QString textOf(std::uint64_t bytes);
  /// As of an export of these frames alone.
  [[nodiscard]] ExportFacts only(const FrameRange& range) const;
  /// As of an export that is so many bytes longer.
  [[nodiscard]] ExportFacts with(std::uint64_t bytes) const;
  /// Why the export would be noise or would not fit into a folder with so many bytes `free`, and
  /// that it is too long for a RIFF file, a line each; empty when it is none of these, and where
  /// that cannot be told.
  [[nodiscard]] QString warning(bool is24bit, std::optional<std::uint64_t> free) const;
  /// Bytes that a folder has room for; none where that cannot be told. Any thread; waits for the
  /// medium.
  [[nodiscard]] static std::optional<std::uint64_t> freeIn(const std::filesystem::path& folder);

  bool isValid = false;
  std::filesystem::path source;
  std::filesystem::path folder;  ///< where the save panel starts
  double gain = 0;
  double angle = 0;
  bool isRawMidSide = false;
  int oddBits = 0;  ///< of a sample that does not decode to sound; 0 where it does
  std::uint64_t frames = 0;
  std::uint64_t size24 = 0;  ///< bytes of the output
  std::uint64_t size32 = 0;
};
