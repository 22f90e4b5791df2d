// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "base/Utility.h"

namespace {

constexpr std::chrono::milliseconds kPatience(600);  // the whole end is to take less than a second

}  // namespace

AppDelegate::AppDelegate(QApplication& application) {
  QApplication::setQuitOnLastWindowClosed(applicationShouldTerminateAfterLastWindowClosed());
  QObject::connect(&application, &QApplication::aboutToQuit, [] { applicationWillTerminate(); });
  applicationDidFinishLaunching();
}

void AppDelegate::applicationWillTerminate() {
  Utility::finishStoring(kPatience);
}
