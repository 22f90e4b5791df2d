// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QObject>

#include "app/TakeSession.h"

/// Mid or Side of a raw take alone, by button, key and menu entry; a second press ends it, and so
/// does another take. Interface thread.
class SoloPane : public QObject {
  Q_OBJECT

 public:
  /// What stands for one of the two; all of it is checkable.
  struct Switch {
    QAbstractButton& button;
    QAction& action;
  };

  /// All of it outlives the pane.
  SoloPane(const Switch& mid, const Switch& side, TakeSession& take, QObject* parent = nullptr);

  /// Begins it, or ends it where it is what is heard.
  void press(Solo solo);

 private:
  void connectSwitch(const Switch& with, Solo solo);
  void show();
  void show(const Switch& on, Solo solo);

  Switch _mid;
  Switch _side;
  TakeSession& _take;
};
