// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// Cuts a MIDI 1.0 byte stream, as a cable carries it, into what a MIDI system hands on: pieces of
/// SysEx messages of at most 256 bytes, with nothing else in them, and other messages whole, their
/// running status written out.
///
/// Real-time bytes are left out wherever they stand. A SysEx piece ends where the input ends. Data
/// bytes that belong to nothing are handed on as the rest of a SysEx message whose beginning was
/// lost. One thread at a time.
class MIDIWireReader {
 public:
  using Piece = std::vector<std::uint8_t>;

  /// The pieces that these bytes, after the earlier ones, make.
  std::vector<Piece> feed(std::span<const std::uint8_t> bytes);

 private:
  static constexpr std::size_t kLongestPiece = 256;

  void take(std::uint8_t byte);
  void takeStatus(std::uint8_t status);
  void takeData(std::uint8_t data);
  void endSysEx();
  void finish();
  void finishIfComplete();

  std::vector<Piece> _finished;
  Piece _piece;
  bool _isInSysEx = false;
  std::uint8_t _running = 0;  ///< status that data bytes without one have
};
