// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDISequenceBase.h"

#include <memory>

#include "midi/MIDICommon.h"
#include "midi/MIDIPlatform.h"

namespace {

constexpr double kTimeOutSeconds = 2.0;

/// The time-out of the process.
struct TimeOut {
  std::unique_ptr<MIDITimer> timer;
  const MIDISequenceBase* owner = nullptr;
};

// Never destroyed: the last sequences go with the statics.
TimeOut& timeOut() {
  static auto* const kShared = new TimeOut;
  return *kShared;
}

}  // namespace

MIDISequenceBase::~MIDISequenceBase() {
  // A finished sequence may be dropped while the next one waits.
  if (timeOut().owner == this) cleanTimeOutTimer();
}

void MIDISequenceBase::dispose() {
  cleanTimeOutTimer();
}

void MIDISequenceBase::markTimeOut() {
  markTimeOut(kTimeOutSeconds);
}

void MIDISequenceBase::markTimeOutWithDescription(const std::string& description) {
  markTimeOut(description, kTimeOutSeconds);
}

void MIDISequenceBase::markTimeOut(const std::string& description, double seconds) {
  _timeout_description = description;
  markTimeOut(seconds);
}

// Timers belong to the main thread, the one that is cancelled too.
void MIDISequenceBase::markTimeOut(double seconds) {
  MIDICommon::runOnUIThread([this, seconds] {
    cleanTimeOutTimer();
    timeOut().owner = this;
    timeOut().timer = MIDIPlatform::clock().after(
        seconds, [this] { sequenceTimeOut(std::string(_timeout_description)); });
  });
}

void MIDISequenceBase::cleanTimeOutTimer() {
  timeOut() = {};
}
