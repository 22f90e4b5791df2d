// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

#include "desktop/AddressOpener.h"

/// Has files shown in the desktop's file manager (`org.freedesktop.FileManager1`), where they are
/// then selected. Where there is no session bus, or none that answers, their folder is opened by
/// whatever opens folders. Nothing waits, and no file is touched here. Interface thread, which has
/// an event loop.
class FileManager : public QObject {
  Q_OBJECT

 public:
  /// Opens a folder by its address.
  using Opener = std::function<void(const QString& address)>;

  /// `opener` in place of an `AddressOpener`.
  explicit FileManager(QObject* parent = nullptr, Opener opener = {});

  /// From now on it goes over this bus.
  void use(const QDBusConnection& bus) { _bus = bus; }
  /// `files` are absolute, in the file system's own bytes.
  void show(const std::vector<std::filesystem::path>& files);

 private:
  std::optional<QDBusConnection> _bus;
  AddressOpener _desktop;
  Opener _opener;
};
