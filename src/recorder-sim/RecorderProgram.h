// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "midi/QtMIDIClock.h"
#include "midi/simulator/SimulatedRecorder.h"
#include "recorder-sim/CableEnd.h"

class QSocketNotifier;

/// What the program was asked to be.
struct RecorderOptions {
  std::string portName = "J4 TARN";
  std::string device;       ///< a raw MIDI device file; empty: a port of the sequencer
  bool sendsWhole = false;  ///< to the sequencer: one event a message, however long
  bool hasWords = false;    ///< the file carries Universal MIDI Packets
  double reportEvery = 0;   ///< seconds; 0: only when asked to
  bool logs = false;        ///< every message as a line of JSON
  std::vector<std::string> words;
};

/// A simulated recorder at the end of a real cable, with what is typed as its buttons. Interface
/// thread only, with an event loop.
class RecorderProgram {
 public:
  explicit RecorderProgram(RecorderOptions options);
  RecorderProgram(const RecorderProgram&) = delete;
  RecorderProgram& operator=(const RecorderProgram&) = delete;
  ~RecorderProgram();

  /// Empty for a word that means something, else what is wrong with it.
  static std::string checkWord(const std::string& word);

  /// Empty, or why it cannot run.
  std::string start();

 private:
  [[nodiscard]] std::unique_ptr<CableEnd> makeCable();
  void pluggedIn();
  void pulledOut();
  void received(std::span<const std::uint8_t> bytes);
  void transmit(const SimulatedRecorder::Bytes& bytes);
  void reportLater();

  void typed();
  void carryOut(const std::string& line);
  bool carryOutWord(std::string_view word);
  void sendTyped(std::string_view hexadecimal);

  void logEvent(std::string_view event) const;
  void logMessage(std::string_view from, const SimulatedRecorder::Bytes& bytes) const;

  RecorderOptions _options;
  QtMIDIClock _clock;
  SimulatedRecorder _recorder;
  std::size_t _logged = 0;
  std::string _line;
  std::unique_ptr<CableEnd> _cable;
  std::unique_ptr<MIDITimer> _report;
  std::unique_ptr<QSocketNotifier> _keyboard;
};
