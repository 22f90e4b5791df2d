// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

AppDelegate::AppDelegate(QApplication& application) {
  QApplication::setQuitOnLastWindowClosed(applicationShouldTerminateAfterLastWindowClosed());
  QObject::connect(&application, &QApplication::aboutToQuit, [] { applicationWillTerminate(); });
  applicationDidFinishLaunching();
}
