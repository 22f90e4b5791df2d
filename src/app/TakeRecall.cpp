// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/TakeRecall.h"

#include <QCoreApplication>
#include <QFile>
#include <utility>

#include "base/EndPatience.h"
#include "base/Log.h"
#include "base/Utility.h"
#include "takes/TakeIdentity.h"

namespace {

constexpr int kSettled = 1000;  // ms without a change

}  // namespace

TakeRecall::TakeRecall(const Place& place, QObject* parent)
    : QObject(parent),
      _action(place.action),
      _sound(place.sound),
      _status(place.status),
      _take(place.take),
      _keeper(place.keeper) {
  _action.setCheckable(true);
  readSetting();
  connect(&_action, &QAction::toggled, this, &TakeRecall::switched);
  connect(&_take, &TakeSession::opened, this, &TakeRecall::begin);
  connect(&_take, &TakeSession::closing, this, &TakeRecall::end);
  // It is written while others are waited for.
  connect(qApp, &QCoreApplication::aboutToQuit, this, &TakeRecall::end);
  connect(&_take, &TakeSession::soundChanged, this, &TakeRecall::changed);
  connect(&_take, &TakeSession::loopChanged, this, &TakeRecall::changed);
  _timerRemember.setObjectName(QStringLiteral("timerRemember"));
  _timerRemember.setSingleShot(true);
  connect(&_timerRemember, &QTimer::timeout, this, &TakeRecall::remember);
}

TakeRecall::~TakeRecall() {
  end();
  if (!_keeper->flush(EndPatience::atMost(kPatience)))
    Log::line("What a take was heard with is not written yet");
}

// On, unless somebody has turned it off.
void TakeRecall::readSetting() {
  _action.setChecked(Utility::getStringValue(Utility::kRememberTakes) != Utility::kOff);
}

void TakeRecall::switched(bool isOn) {
  Utility::store(Utility::kRememberTakes, isOn ? Utility::kOn : Utility::kOff);
  _errand.giveUp();
  _look.giveUp();
  _timerRemember.stop();
  _identity.clear();
  if (!isOn) forgetTrouble();
  if (!isOn || !_take.isOpen()) return;
  begin();
  _first.reset();  // what is heard is what somebody wants
}

void TakeRecall::forgetTrouble() {
  _status.clear(StatusLine::Topic::Memory);
  _staysForNext = false;
}

void TakeRecall::begin() {
  _identity.clear();
  _known.reset();
  const auto reader = _take.reader();
  if (!_action.isChecked() || !reader) return;
  _first = heard();
  const auto apart = std::make_shared<const WaveFileReader>(reader->apart());
  _errand.begin([this, apart, keeper = _keeper]() -> Errand::Outcome {
    const std::string take = TakeIdentity::of(*apart);
    const auto sound = take.empty() ? std::nullopt : keeper->find(take);
    return [this, take, sound] {
      tellOrClear();
      arrive(take, sound);
    };
  });
}

void TakeRecall::arrive(const std::string& take, const std::optional<RememberedSound>& sound) {
  if (!_action.isChecked() || !_take.isOpen() || take.empty()) return;
  _identity = take;
  _known = sound;
  if (sound && heard() == _first) {
    apply(*sound);
  } else {
    changed();
  }
  emit recalled();
}

// A loop is not gone to: before it, the take plays on into it.
void TakeRecall::apply(const RememberedSound& sound) {
  _sound.setSound(sound.width, sound.gain);
  if (!sound.loop) return;
  _take.setLoop(FrameLoop{sound.loop->first, sound.loop->end});
}

BatchTake::Recall TakeRecall::ofTakes() {
  if (!_action.isChecked()) return {};
  remember();
  lookForTrouble();
  return [keeper = _keeper](const WaveFileReader& reader) {
    const std::string take = TakeIdentity::of(reader);
    const auto sound = take.empty() ? std::nullopt : keeper->find(take);
    if (!sound) return std::optional<BatchTake::Sound>();
    return std::optional(BatchTake::Sound{sound->width, static_cast<double>(sound->gain)});
  };
}

void TakeRecall::lookForTrouble() {
  _look.begin([this, keeper = _keeper]() -> Errand::Outcome {
    static_cast<void>(keeper->find({}));
    return [this] { tellTrouble(); };
  });
}

// It stays while the take plays that is opened next: who opens one at once has not read it yet.
void TakeRecall::tellTrouble() {
  if (_action.isChecked() && tell(_keeper->takeTrouble())) _staysForNext = true;
}

void TakeRecall::tellOrClear() {
  const bool stays = std::exchange(_staysForNext, false);
  if (!tell(_keeper->takeTrouble()) && !stays) _status.clear(StatusLine::Topic::Memory);
}

void TakeRecall::changed() {
  if (_take.isOpen() && _action.isChecked()) _timerRemember.start(kSettled);
}

void TakeRecall::remember() {
  const RememberedSound now = heard();
  if (_identity.empty() || _known == now) return;
  _known = now;
  _keeper->remember(_identity, now);
}

void TakeRecall::end() {
  if (_take.isOpen()) remember();
  _errand.giveUp();
  _timerRemember.stop();
  _identity.clear();
}

// A take that has no width leaves that of the dial alone.
RememberedSound TakeRecall::heard() const {
  RememberedSound sound;
  if (_take.isRawMidSide()) sound.width = _take.angle();
  sound.gain = _take.gain();
  if (const auto& loop = _take.loop()) sound.loop = FrameRange{loop->first, loop->end};
  return sound;
}

// Each once: it does not go by itself.
bool TakeRecall::tell(TakeMemory::Trouble trouble) {
  using Trouble = TakeMemory::Trouble;
  if (trouble == Trouble::None || !_told.insert(trouble).second) return false;
  if (trouble == Trouble::SetAside) {
    const auto aside = TakeMemory().damagedPath();
    _status.say(StatusLine::Topic::Memory,
                tr("What was remembered of takes was damaged. It was set aside as “%1”, and a new "
                   "one begun.")
                    .arg(QFile::decodeName(aside.c_str())));
  }
  if (trouble == Trouble::Newer) {
    _status.say(StatusLine::Topic::Memory,
                tr("What is remembered of takes is of a newer version of the program. It is left "
                   "alone, and nothing is remembered."));
  }
  if (trouble == Trouble::OutOfReach) {
    _status.say(StatusLine::Topic::Memory, tr("What takes were heard with cannot be remembered."));
  }
  return true;
}
