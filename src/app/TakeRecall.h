// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "app/SoundPane.h"
#include "app/StatusLine.h"
#include "app/TakeSession.h"
#include "base/Errand.h"
#include "queue/BatchTake.h"
#include "takes/TakeKeeper.h"

/// Brings width, gain and loop of a take back when it is opened again, and remembers them: a second
/// after they have changed, and when the take goes. Interface thread, which has an event loop.
///
/// Which take it is and what is known of it is found out on a thread of its own while the take
/// plays already; what somebody turns until then stays. A switch of the menu, whose place is kept
/// in the settings, turns all of it off.
class TakeRecall : public QObject {
  Q_OBJECT

 public:
  /// What the end has for writing, where `EndPatience` allows it.
  static constexpr std::chrono::milliseconds kPatience{300};

  /// What it works on; all of it outlives this.
  struct Place {
    QAction& action;  ///< made checkable
    SoundPane& sound;
    StatusLine& status;
    TakeSession& take;
    std::shared_ptr<TakeKeeper> keeper;
  };

  explicit TakeRecall(const Place& place, QObject* parent = nullptr);
  ~TakeRecall() override;

  /// Tells, on any thread, what a take was heard with last; null while the switch is off. Of the
  /// take that is open that is what it is heard with now. That nothing can be known is told.
  [[nodiscard]] BatchTake::Recall ofTakes();

  /// Tells what went wrong where somebody else asked what is remembered; each trouble once.
  void tellTrouble();

 signals:
  /// It is known which take is open, and what was remembered of it has been set.
  void recalled();

 private:
  void readSetting();
  void switched(bool isOn);
  void begin();
  void arrive(const std::string& take, const std::optional<RememberedSound>& sound);
  void apply(const RememberedSound& sound);
  void changed();
  void remember();
  void end();
  void lookForTrouble();
  void tellOrClear();
  void forgetTrouble();
  bool tell(TakeMemory::Trouble trouble);
  [[nodiscard]] RememberedSound heard() const;

  QAction& _action;
  SoundPane& _sound;
  StatusLine& _status;
  TakeSession& _take;
  std::shared_ptr<TakeKeeper> _keeper;
  Errand _errand;                         ///< finds out which take it is
  Errand _look;                           ///< for trouble, where no take is opened
  std::string _identity;                  ///< empty until that is known
  std::optional<RememberedSound> _first;  ///< as it was when the take was opened
  std::optional<RememberedSound> _known;  ///< as it is remembered
  std::set<TakeMemory::Trouble> _told;
  bool _staysForNext = false;  ///< what is told, while the take plays that is opened next
  QTimer _timerRemember{this};
};
