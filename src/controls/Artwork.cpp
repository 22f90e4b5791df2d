// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/Artwork.h"

#include <QFile>

#include "controls/ArtworkEngine.h"

// Outside of every namespace, as the macro wants it.
static void initialiseResources() {
  Q_INIT_RESOURCE(mixdeck);
}

namespace {

QString fileOf(const QString& name) {
  initialiseResources();
  return QStringLiteral(":/artwork/%1.svg").arg(name);
}

}  // namespace

QIcon Artwork::icon(const QString& name) {
  const QString file = fileOf(name);
  if (!QFile::exists(file)) return {};
  return QIcon(new ArtworkEngine(file));  // the icon owns it
}

QSize Artwork::naturalSize(const QString& name) {
  const QString file = fileOf(name);
  return QFile::exists(file) ? ArtworkEngine(file).naturalSize() : QSize(0, 0);
}
