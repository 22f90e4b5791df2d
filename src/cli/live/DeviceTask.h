// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDeadlineTimer>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "midi/MIDIManager.h"
#include "midi/MIDISequenceManager.h"
#include "midi/RecorderLink.h"

/// Something to be done with the recorder from the command line: waits for the recorder, goes
/// through the handshake, and leaves the rest to what is derived from it.
///
/// It makes the device link of the process, over the installed platform. Main thread, with a
/// `QCoreApplication`.
class DeviceTask {
 public:
  struct Setup {
    std::optional<double> wait;  ///< seconds for the recorder and its answers, if it was said
    bool asJson = false;
    std::function<std::string()> unavailable;  ///< why there is no MIDI; empty while there is
  };

  explicit DeviceTask(Setup setup);
  DeviceTask(const DeviceTask&) = delete;
  DeviceTask& operator=(const DeviceTask&) = delete;
  virtual ~DeviceTask() = default;

  /// Until the task has ended; its exit status.
  int run();

 protected:
  enum class Length { OneAnswer, UntilInterrupted };

  /// How long the task takes when all is well; asked once.
  [[nodiscard]] virtual Length length() const { return Length::OneAnswer; }
  /// There is no recorder yet.
  virtual void onWaiting() {}
  /// The recorder is there; the handshake begins next.
  virtual void onConnected() {}
  /// The handshake has come to its end, or the recorder has told something more.
  virtual void onRecord() = 0;
  /// The handshake waits in `step` and gets no answer.
  virtual void onStopped(std::int64_t step) = 0;
  /// The recorder went away.
  virtual void onLost() {}
  /// The time is over and there is no recorder; one that was there went away in `step`, if not 0.
  virtual void onAbsent(std::int64_t /*step*/) {}
  /// The time is over though the handshake has come to its end.
  virtual void onLate() {}
  virtual void onTick() {}

  void end(int status);
  /// Tells why on standard error and ends with status 1.
  void fail(std::string_view reason);
  /// On standard output at once; false, and the task ends, where it cannot be written.
  bool say(const std::string& text);

  /// As `RecorderLink`.
  [[nodiscard]] bool isAnswered() const { return _link.isAnswered(); }
  [[nodiscard]] bool asJson() const { return _setup.asJson; }
  [[nodiscard]] MIDISequenceManager& sequences() { return _sequences; }
  [[nodiscard]] static const TARNDeviceInfo& info() {
    return *MIDISequenceManager::getDeviceInfo();
  }
  static std::string noAnswer(std::int64_t step);

 private:
  enum class Phase { Absent, Asking, Ready, Stopped };

  void start();
  void tick();
  void connected();
  void recordChanged();
  void lost();
  static void warn(std::string_view reason);
  void stop();
  void expire();
  [[nodiscard]] std::string absence() const;

  Setup _setup;
  MIDIManager _manager;
  MIDISequenceManager _sequences;
  RecorderLink _link{{[this] { connected(); }, [this] { recordChanged(); }, [this] { lost(); }}};
  Phase _phase = Phase::Absent;
  QDeadlineTimer _deadline;
  std::optional<int> _status;
};
