// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/DesktopPresence.h"

#include <QApplication>
#include <algorithm>
#include <filesystem>
#include <iterator>
#include <vector>

#include "base/FileAddress.h"
#include "controls/Appearance.h"

DesktopPresence::DesktopPresence(WindowController& window, BusLink& link, OneWindow& one)
    : _link(link), _mpris(window.viewController().remote()) {
  QObject::connect(&window, &WindowController::appeared, &_mpris, [this] { begin(); });
  QObject::connect(&_motion, &MotionSetting::told, &window,
                   [&window](bool isReduced) { window.viewController().reduceMotion(isReduced); });
  QObject::connect(&window.viewController(), &ViewController::showFilesRequested, &_files,
                   &FileManager::show);
  followLook();
  QObject::connect(&_mpris, &MprisService::raiseRequested, &window, [&window] { window.raise(); });
  QObject::connect(&_mpris, &MprisService::quitRequested, &window.window(), &QWidget::close);
  keepAwake(window.viewController());
  one.serve([&window](const OneWindow::Wish& wish) { fulfil(wish, window); });
}

// A start that is for itself alone has not looked for the bus yet.
void DesktopPresence::begin() {
  if (_link.bus()) return appear(*_link.bus());
  QObject::connect(&_link, &BusLink::connected, &_mpris,
                   [this](const QDBusConnection& bus) { appear(bus); });
  _link.begin();
}

void DesktopPresence::appear(const QDBusConnection& bus) {
  _mpris.appear(bus);
  _motion.ask(bus);
  _files.use(bus);
  _look.ask(bus);
  _awake.begin(bus);
}

// For nothing else: whatever is read or salvaged can be had again.
void DesktopPresence::keepAwake(ViewController& window) {
  const ExportQueue& exports = window.exportQueue();
  const CardDesk& cards = window.cards();
  const auto look = [this, &exports, &cards] {
    _awake.setBusy(exports.isBusy() || cards.isCopying());
  };
  QObject::connect(&cards, &CardDesk::busyChanged, &_awake, look);
  QObject::connect(&exports, &ExportQueue::began, &_awake, look);
  QObject::connect(&exports, &ExportQueue::finished, &_awake, look);
}

void DesktopPresence::fulfil(const OneWindow::Wish& wish, WindowController& window) {
  window.raise(wish.token);
  std::vector<std::filesystem::path> files;
  for (const QString& address : wish.addresses) {
    std::ranges::copy(FileAddress::pathsIn(address.toStdString()), std::back_inserter(files));
  }
  if (!files.empty()) window.viewController().open(files);
}

// An X server's settings hold a scale for text too, by which the toolkit enlarges all.
void DesktopPresence::followLook() {
  QObject::connect(&_look, &LookSetting::contrastRaised, qApp,
                   [](bool isHigh) { Appearance::setHighContrast(*qApp, isHigh); });
  if (QGuiApplication::platformName() == QLatin1String("xcb")) return;
  QObject::connect(&_look, &LookSetting::textScaled, qApp,
                   [](double scale) { Appearance::setTextScale(*qApp, scale); });
}
