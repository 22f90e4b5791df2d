// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QApplication>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "app/AppDelegate.h"
#include "app/DesktopPresence.h"
#include "app/DeviceLink.h"
#include "app/DisplayGuard.h"
#include "app/ProgramLog.h"
#include "app/ProgramOptions.h"
#include "app/WindowController.h"
#include "base/EndPatience.h"
#include "base/FileAddress.h"
#include "base/FreedMemory.h"
#include "base/StandardStreams.h"
#include "controls/Appearance.h"
#include "controls/Language.h"
#include "desktop/BusLink.h"
#include "desktop/OneWindow.h"
#include "playback/system/SystemBackends.h"
#include "wav/ClosingElsewhere.h"

namespace {

// The desktop's leave for this start to come to the front; the toolkit takes it away.
QString startToken() {
  const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
  return token.isEmpty() ? qEnvironmentVariable("DESKTOP_STARTUP_ID") : token;
}

QStringList addressesOf(const std::vector<std::filesystem::path>& files) {
  QStringList addresses;
  for (const auto& file : files) {
    addresses << QString::fromStdString(FileAddress::of(std::filesystem::absolute(file)));
  }
  return addresses;
}

std::unique_ptr<QApplication> makeApplication(int& argc, char** argv) {
  const DisplayGuard guard;
  return std::make_unique<QApplication>(argc, argv);
}

// Whether another window sees to it, which keeps its own language.
bool isHandedOver(OneWindow& one, const ProgramOptions& options, const QString& token) {
  if (options.isForItself()) return false;
  if (!one.isHandedOver({addressesOf(options.starts), token})) return false;
  if (!options.language.empty()) {
    std::fputs("mixdeck: the window that is open keeps its language\n", stderr);
  }
  return true;
}

int run(QApplication& application, const ProgramOptions& options, const QString& token) {
  static std::optional<EndPatience> end;  // also of the statics that come after it
  BusLink bus;
  OneWindow one(bus);
  if (isHandedOver(one, options, token)) return 0;
  Language::use(QString::fromStdString(options.language));
  Appearance::apply(application);
  SystemBackends::choose();
  const AppDelegate delegate(application, end);
  DeviceLink link(options.simulatesRecorder);
  WindowController window;
  window.viewController().open(options.starts);
  link.attach(window.window());
  const DesktopPresence presence(window, bus, one);
  window.show();
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape): there is nobody to tell
  StandardStreams::reserve();
  const ProgramOptions options = ProgramOptions::parse(argc, argv);
  if (options.status) return *options.status;
  FreedMemory::goesBack();
  const ProgramLog log(options.showsLog);
  const QString token = startToken();
  const ClosingElsewhere closing;
  const auto application = makeApplication(argc, argv);
  QApplication::setApplicationName(QStringLiteral("mixdeck"));
  QGuiApplication::setDesktopFileName(QStringLiteral("example.mixdeck.mixdeck"));
  return run(*application, options, token);
}
