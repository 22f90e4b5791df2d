// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

class QSocketNotifier;

/// Tells when a device node may have come, gone or changed its permissions, its folder included.
/// It may tell too often. Interface thread only, in whose event loop it lives; it must not be
/// destroyed while it tells.
class DeviceNodeWatch {
 public:
  DeviceNodeWatch(const std::string& path, std::function<void()> changed);
  DeviceNodeWatch(const DeviceNodeWatch&) = delete;
  DeviceNodeWatch& operator=(const DeviceNodeWatch&) = delete;
  ~DeviceNodeWatch();

 private:
  void watchFolders();
  void readable();
  [[nodiscard]] bool isOurs(int watch, const std::string& name) const;

  std::string _node;          ///< "seq"
  std::string _folder;        ///< "/dev/snd"
  std::string _folderName;    ///< "snd"
  std::string _folderFolder;  ///< "/dev"
  std::function<void()> _changed;
  int _inotify;
  int _nodeWatch = -1;
  int _folderWatch = -1;
  std::unique_ptr<QSocketNotifier> _notifier;
};
