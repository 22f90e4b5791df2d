// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/Artwork.h"

#include <QFile>
#include <QHash>

#include "controls/ArtworkEngine.h"

// Outside of every namespace, as the macro wants it.
static void initialiseArtwork() {
  Q_INIT_RESOURCE(mixdeck);
}

namespace {

QString fileOf(const QString& name) {
  initialiseArtwork();
  return QStringLiteral(":/artwork/%1.svg").arg(name);
}

}  // namespace

// Kept for the life of the process: no picture may go after the application.
QIcon Artwork::icon(const QString& name) {
  static auto* const kKept = new QHash<QString, QIcon>;
  const QString file = fileOf(name);
  if (!kKept->contains(name) && QFile::exists(file)) {
    kKept->insert(name, QIcon(new ArtworkEngine(file)));  // the icon owns it
  }
  return kKept->value(name);
}

QSize Artwork::naturalSize(const QString& name) {
  const QString file = fileOf(name);
  return QFile::exists(file) ? ArtworkEngine(file).naturalSize() : QSize(0, 0);
}
