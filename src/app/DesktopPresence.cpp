// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/DesktopPresence.h"

#include <QApplication>

#include "controls/Appearance.h"

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
  followLook();
  QObject::connect(&_mpris, &MprisService::raiseRequested, &window, &WindowController::raise);
  QObject::connect(&_mpris, &MprisService::quitRequested, &window.window(), &QWidget::close);
}

// An X server's settings hold a scale for text too, by which the toolkit enlarges all.
void DesktopPresence::followLook() {
  QObject::connect(&_bus, &BusLink::connected, &_look, &LookSetting::ask);
  QObject::connect(&_look, &LookSetting::contrastRaised, qApp,
                   [](bool isHigh) { Appearance::setHighContrast(*qApp, isHigh); });
  if (QGuiApplication::platformName() == QLatin1String("xcb")) return;
  QObject::connect(&_look, &LookSetting::textScaled, qApp,
                   [](double scale) { Appearance::setTextScale(*qApp, scale); });
}
