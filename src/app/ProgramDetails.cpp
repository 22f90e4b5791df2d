// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ProgramDetails.h"

#include <QGuiApplication>
#include <QSysInfo>
#include <QtGlobal>
#include <string>

#include "midi/alsa/AlsaMIDISystem.h"
#include "playback/AudioBackends.h"
#include "takes/Database.h"

namespace {

QString kernel() {
  const QString type = QSysInfo::kernelType();
  return type.left(1).toUpper() + type.mid(1) + u' ' + QSysInfo::kernelVersion();
}

}  // namespace

QStringList ProgramDetails::lines() {
  QStringList all = {
      QStringLiteral("Qt %1 (%2)").arg(QLatin1String(qVersion()), QGuiApplication::platformName())};
  const std::string sound = AudioBackends::outputLibrary();
  if (!sound.empty()) all << QString::fromStdString(sound);
  for (const std::string& library : {AlsaMIDISystem::library(), Database::library()}) {
    all << QString::fromStdString(library);
  }
  all << kernel();
  return all;
}
