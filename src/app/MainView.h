// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QWidget>

#include "app/BrowserView.h"
#include "app/DeviceView.h"
#include "app/PlayerView.h"
#include "app/WindowMenu.h"
#include "controls/Announcer.h"

/// What the window shows: its parts side by side, each with its outlets in a file of its own, in
/// Tab order, and nothing more. Every outlet exists as long as the view. Interface thread.
class MainView : public QWidget {
  Q_OBJECT

 public:
  explicit MainView(QWidget* parent = nullptr);

  BrowserView* browser = nullptr;
  PlayerView* player = nullptr;
  DeviceView* device = nullptr;
  WindowMenu* menu = nullptr;
  Announcer* announcer = nullptr;

 protected:
  /// Its own looks follow the size of text and the contrast of the program.
  void changeEvent(QEvent* event) override;

 private:
  void dress();
  void makeMenu();
  void setTabOrders();
};
