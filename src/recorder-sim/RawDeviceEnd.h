// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "midi/MIDIWireEvents.h"
#include "midi/MIDIWireReader.h"
#include "midi/QtMIDIClock.h"
#include "midi/alsa/AlsaOutput.h"
#include "recorder-sim/CableEnd.h"

class DeviceNodeWatch;
class QSocketNotifier;

/// A raw MIDI device file, such as the far end of the kernel's MIDI gadget. Plugged in while the
/// file is there; pulled out, it stays closed until the file has gone and come back, or `plugIn`.
/// No faster than a cable, which the kernel at the other end could not follow. What the file does
/// not take is dropped; the first of it in a row is a line in the log.
class RawDeviceEnd final : public CableEnd {
 public:
  /// What the file carries: MIDI 1.0 bytes, or Universal MIDI Packets as words in host order.
  enum class Content { Bytes, Words };

  RawDeviceEnd(std::string path, Content content, Told told);
  ~RawDeviceEnd() override;

  std::string plugIn() override;
  void pullOut() override;
  void transmit(std::span<const std::uint8_t> bytes) override;

 private:
  void nodeChanged();
  void open();
  void close();
  void readable();
  void take(std::span<const std::uint8_t> input);
  void takeWords();
  void enqueueWords(const MIDIWireReader::Piece& piece);
  void enqueue(std::span<const std::uint8_t> bytes);
  void write();
  void lose(int error);

  std::string _path;
  Content _content;
  int _file = -1;
  bool _isPulledOut = false;
  std::vector<std::uint8_t> _incoming;  ///< the beginning of a word
  std::vector<std::uint8_t> _outgoing;
  bool _isLosing = false;  ///< the last write failed
  MIDIWireReader _reader;
  MIDIWireEvents _events;
  QtMIDIClock _clock;
  AlsaOutput _paced;
  std::unique_ptr<QSocketNotifier> _canRead;
  std::unique_ptr<QSocketNotifier> _canWrite;
  std::unique_ptr<DeviceNodeWatch> _watch;
};
