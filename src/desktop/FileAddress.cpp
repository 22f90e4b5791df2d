// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/FileAddress.h"

#include <QByteArray>
#include <QSysInfo>
#include <QUrl>

QString FileAddress::of(const std::filesystem::path& file) {
  const QByteArray bytes = QByteArray::fromStdString(file.native());
  return QStringLiteral("file://") + QString::fromLatin1(bytes.toPercentEncoding("/"));
}

std::optional<std::filesystem::path> FileAddress::pathOf(const QString& address) {
  const QUrl url(address, QUrl::StrictMode);
  if (!url.isValid() || url.scheme() != u"file") return std::nullopt;
  const QString host = url.host();
  const bool isHere = host.isEmpty() || host == u"localhost" ||
                      host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
  const QByteArray encoded = url.path(QUrl::FullyEncoded).toLatin1();
  if (!isHere || !encoded.startsWith('/')) return std::nullopt;
  return QByteArray::fromPercentEncoding(encoded).toStdString();
}
