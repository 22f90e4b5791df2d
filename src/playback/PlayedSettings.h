// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "dsp/SoloStage.h"
#include "playback/FrameLoop.h"

/// What the frames were decoded with that were filled into buffers last: they are heard up to three
/// buffers later, and then it is these settings that are heard, whatever was turned meanwhile. The
/// glide at a buffer's beginning counts as where it leads to. Plain data: no allocation, one
/// thread.
class PlayedSettings {
 public:
  struct Settings {
    std::int64_t angle = 0;  ///< whole degrees
    std::int64_t gain = 0;   ///< dB, positive is louder
    Solo solo = Solo::None;

    bool operator==(const Settings&) const = default;
  };
  /// What holds up to `end`, a frame of the file; nothing where it is not known.
  struct Piece {
    std::optional<Settings> settings;
    std::uint64_t end = 0;
  };

  /// A buffer with so many frames from `first` on is filled; those after a turn of the loop are the
  /// loop's first ones.
  void add(std::uint64_t first, std::uint64_t count, const std::optional<FrameLoop>& loop,
           const Settings& settings);
  /// Of frames that were filled several times the last one counts: in a loop that is shorter than
  /// what the buffers hold, that is what comes.
  [[nodiscard]] Piece at(std::uint64_t frame) const;

 private:
  struct Entry {
    std::uint64_t first = 0;
    std::uint64_t end = 0;
    Settings settings;
  };

  void add(const Entry& entry);

  /// Three buffers that wait and one that is heard, each before and after a turn, and as many
  /// again.
  static constexpr std::size_t kKept = 16;
  std::array<Entry, kKept> _entries;  ///< empty ones at first
  std::size_t _next = 0;
};
