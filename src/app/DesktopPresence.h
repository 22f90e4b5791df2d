// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/WindowController.h"
#include "desktop/BusLink.h"
#include "desktop/FileManager.h"
#include "desktop/LookSetting.h"
#include "desktop/MotionSetting.h"
#include "desktop/MprisService.h"
#include "desktop/OneWindow.h"
#include "desktop/StayAwake.h"

/// The window as the desktop knows it, and as the desktop wants it: on the session bus from when it
/// has appeared, where there is a bus. Interface thread.
class DesktopPresence {
 public:
  /// All of them outlive it.
  DesktopPresence(WindowController& window, BusLink& link, OneWindow& one);

 private:
  void followLook();
  void begin();
  void keepAwake(ViewController& window);
  void appear(const QDBusConnection& bus);
  static void fulfil(const OneWindow::Wish& wish, WindowController& window);

  BusLink& _link;
  MprisService _mpris;
  MotionSetting _motion;
  FileManager _files;
  LookSetting _look;
  StayAwake _awake;
};
