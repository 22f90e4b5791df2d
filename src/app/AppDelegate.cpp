// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "base/Utility.h"

namespace {

constexpr std::chrono::milliseconds kSettingsPatience(600);

}  // namespace

AppDelegate::AppDelegate(QApplication& application, std::optional<EndPatience>& end) : _end(end) {
  QApplication::setQuitOnLastWindowClosed(applicationShouldTerminateAfterLastWindowClosed());
  _connection = QObject::connect(&application, &QApplication::aboutToQuit,
                                 [this] { applicationWillTerminate(); });
  applicationDidFinishLaunching();
}

// Last, since they are being written all the while.
AppDelegate::~AppDelegate() {
  QObject::disconnect(_connection);
  if (_end) Utility::finishStoring(EndPatience::atMost(kSettingsPatience));
}
