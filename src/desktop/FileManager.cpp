// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/FileManager.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>
#include <utility>

#include "base/FileAddress.h"

namespace {

constexpr QLatin1String kFileManager("org.freedesktop.FileManager1");
constexpr QLatin1String kFileManagerPath("/org/freedesktop/FileManager1");

QString addressOf(const std::filesystem::path& file) {
  return QString::fromStdString(FileAddress::of(file));
}

}  // namespace

FileManager::FileManager(QObject* parent, Opener opener)
    : QObject(parent), _opener(std::move(opener)) {
  if (!_opener) _opener = [this](const QString& address) { _desktop.open(address); };
}

void FileManager::show(const std::vector<std::filesystem::path>& files) {
  if (files.empty()) return;
  const QString folder = addressOf(files.front().parent_path());
  if (!_bus) return _opener(folder);
  QStringList addresses;
  for (const std::filesystem::path& file : files) addresses << addressOf(file);
  QDBusMessage wish = QDBusMessage::createMethodCall(kFileManager, kFileManagerPath, kFileManager,
                                                     QStringLiteral("ShowItems"));
  wish.setArguments({addresses, QString()});
  auto* const watcher = new QDBusPendingCallWatcher(_bus->asyncCall(wish), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, folder] {
    const QDBusPendingReply<> reply = *watcher;
    watcher->deleteLater();
    if (reply.isError()) _opener(folder);
  });
}
