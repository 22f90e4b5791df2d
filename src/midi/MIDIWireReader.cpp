// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDIWireReader.h"

#include <utility>

#include "midi/MIDIReceiveBuffer.h"

namespace {

constexpr std::uint8_t kFirstRealTime = 0xF8;

bool isChannelStatus(std::uint8_t status) {
  return status < MIDIReceiveBuffer::kSysExStart;
}

std::size_t lengthOf(std::uint8_t status) {
  if (isChannelStatus(status)) return (status & 0xE0) == 0xC0 ? 2 : 3;
  if (status == 0xF2) return 3;
  return status == 0xF1 || status == 0xF3 ? 2 : 1;
}

}  // namespace

std::vector<MIDIWireReader::Piece> MIDIWireReader::feed(std::span<const std::uint8_t> bytes) {
  for (const std::uint8_t byte : bytes) take(byte);
  if (_isInSysEx) finish();
  return std::exchange(_finished, {});
}

void MIDIWireReader::take(std::uint8_t byte) {
  if (byte >= kFirstRealTime) return;
  if (byte == MIDIReceiveBuffer::kSysExEnd) {
    endSysEx();
  } else if (byte >= 0x80) {
    takeStatus(byte);
  } else {
    takeData(byte);
  }
}

// A status byte ends whatever was under way.
void MIDIWireReader::takeStatus(std::uint8_t status) {
  if (_isInSysEx) finish();
  _isInSysEx = status == MIDIReceiveBuffer::kSysExStart;
  _running = isChannelStatus(status) ? status : 0;
  _piece.assign(1, status);
  if (!_isInSysEx) finishIfComplete();
}

void MIDIWireReader::takeData(std::uint8_t data) {
  if (_piece.empty() && _running != 0) _piece.push_back(_running);
  if (_piece.empty()) _isInSysEx = true;
  _piece.push_back(data);
  if (!_isInSysEx) {
    finishIfComplete();
  } else if (_piece.size() == kLongestPiece) {
    finish();
  }
}

void MIDIWireReader::endSysEx() {
  if (!_isInSysEx) return;
  _piece.push_back(MIDIReceiveBuffer::kSysExEnd);
  finish();
  _isInSysEx = false;
}

void MIDIWireReader::finishIfComplete() {
  if (_piece.size() == lengthOf(_piece.front())) finish();
}

void MIDIWireReader::finish() {
  if (!_piece.empty()) _finished.push_back(std::exchange(_piece, {}));
}
