// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include "app/BrowserView.h"
#include "app/DeviceView.h"
#include "app/PlayerView.h"
#include "app/WindowMenu.h"

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

 private:
  void makeMenu();
  void setTabOrders();
};
