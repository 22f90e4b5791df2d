// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/TakeMessages.h"

#include "controls/Reason.h"
#include "dialogs/Alert.h"

TakeMessages::TakeMessages(QWidget& window, StatusLine& status, TakeSession& take, QObject* parent)
    : QObject(parent), _window(window), _status(status), _take(take) {
  connect(&_take, &TakeSession::opening, this, &TakeMessages::forgetTake);
  connect(&_take, &TakeSession::stillOpening, this, &TakeMessages::tellOpening);
  for (const auto isOver : {&TakeSession::opening, &TakeSession::opened, &TakeSession::closed}) {
    connect(&_take, isOver, this, [this] { _status.clear(StatusLine::Topic::Opening); });
  }
  connect(&_take, &TakeSession::stateChanged, this, &TakeMessages::forgetSound);
  connect(&_take, &TakeSession::closed, this, [this] { _status.clear(StatusLine::Topic::Sound); });
  connect(&_take, &TakeSession::failed, this, &TakeMessages::tell);
  connect(&_take, &TakeSession::readAgain, this,
          [this] { _status.clear(StatusLine::Topic::Recording); });
}

void TakeMessages::forgetTake() {
  if (_alert) _alert->close();
  _status.clear(StatusLine::Topic::Recording);
  _status.clear(StatusLine::Topic::Sound);
}

void TakeMessages::tellOpening() {
  const QString sentence = tr("%1 is being opened… (Esc gives up)").arg(_take.name());
  _status.say(StatusLine::Topic::Opening, sentence);
}

// What plays has a sound system.
void TakeMessages::forgetSound() {
  if (_take.state() == TakeSession::State::Playing) _status.clear(StatusLine::Topic::Sound);
}

void TakeMessages::tell(TakeSession::Failure failure, const QString& reason) {
  const QString why = Reason::text(reason);
  using Topic = StatusLine::Topic;
  switch (failure) {
    case TakeSession::Failure::Unsupported:
      _status.say(Topic::Recording, tr("%1: %2").arg(_take.name(), why));
      _alert = Alert::show(&_window, tr("File not supported."));
      break;
    case TakeSession::Failure::Reading:
      _status.say(
          Topic::Recording,
          tr("%1 cannot be read: %2. Open it again once it is back.").arg(_take.name(), why));
      break;
    case TakeSession::Failure::Output:
      tellOfSound(why);
      break;
  }
}

// Nobody looks whether it has come back: what is told is that it went, which stays true.
void TakeMessages::tellOfSound(const QString& why) {
  _status.say(StatusLine::Topic::Sound, tr("Paused: %1 Press Play to try again.").arg(why));
}
