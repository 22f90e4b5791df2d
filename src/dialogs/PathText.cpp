// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/PathText.h"

#include <QDir>
#include <QFile>

QString PathText::textOf(const std::filesystem::path& path) {
  return QFile::decodeName(path.c_str());
}

std::filesystem::path PathText::bytesOf(const QString& text) {
  return QFile::encodeName(text).toStdString();
}

std::filesystem::path PathText::within(const std::filesystem::path& folder, const QString& typed) {
  const bool isAtHome = typed == u'~' || typed.startsWith(QLatin1String("~/"));
  const QString whole = isAtHome ? QDir::homePath() + typed.mid(1) : typed;
  return (folder / bytesOf(whole)).lexically_normal();
}
