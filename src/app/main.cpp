// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QApplication>
#include <memory>
#include <optional>

#include "app/AppDelegate.h"
#include "app/DesktopPresence.h"
#include "app/DeviceLink.h"
#include "app/DisplayGuard.h"
#include "app/ProgramLog.h"
#include "app/ProgramOptions.h"
#include "app/WindowController.h"
#include "controls/Appearance.h"
#include "controls/Language.h"
#include "playback/system/SystemBackends.h"

namespace {

std::unique_ptr<QApplication> makeApplication(int& argc, char** argv) {
  const DisplayGuard guard;
  return std::make_unique<QApplication>(argc, argv);
}

int run(QApplication& application, const ProgramOptions& options) {
  Language::use(QString::fromStdString(options.language));
  Appearance::apply(application);
  SystemBackends::choose();
  const AppDelegate delegate(application);
  DeviceLink link(options.simulatesRecorder);
  WindowController window;
  window.viewController().setStart(options.start);
  link.attach(window.window());
  const DesktopPresence presence(window);
  window.show();
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  const ProgramOptions options = ProgramOptions::parse(argc, argv);
  if (options.status) return *options.status;
  const ProgramLog log(options.showsLog);
  const auto application = makeApplication(argc, argv);
  QApplication::setApplicationName(QStringLiteral("mixdeck"));
  QGuiApplication::setDesktopFileName(QStringLiteral("example.mixdeck.mixdeck"));
  return run(*application, options);
}
