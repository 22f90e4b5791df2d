// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/DesktopPresence.h"

DesktopPresence::DesktopPresence(WindowController& window)
    : _mpris(window.viewController().remote()) {
  QObject::connect(&window, &WindowController::appeared, &_bus, &BusLink::begin);
  QObject::connect(&_bus, &BusLink::connected, &_mpris, &MprisService::appear);
  QObject::connect(&_bus, &BusLink::connected, &_motion, &MotionSetting::ask);
  QObject::connect(&_motion, &MotionSetting::told, &window,
                   [&window](bool isReduced) { window.viewController().reduceMotion(isReduced); });
  QObject::connect(&_bus, &BusLink::connected, &_files, &FileManager::use);
  QObject::connect(&window.viewController(), &ViewController::showFilesRequested, &_files,
                   &FileManager::show);
  QObject::connect(&_mpris, &MprisService::raiseRequested, &window, &WindowController::raise);
  QObject::connect(&_mpris, &MprisService::quitRequested, &window.window(), &QWidget::close);
}
