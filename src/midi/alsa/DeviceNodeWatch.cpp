// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/alsa/DeviceNodeWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <filesystem>
#include <utility>

namespace {

constexpr std::uint32_t kChanges =
    IN_CREATE | IN_DELETE | IN_ATTRIB | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE_SELF;

}  // namespace

DeviceNodeWatch::DeviceNodeWatch(const std::string& path, std::function<void()> changed)
    : _changed(std::move(changed)), _inotify(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  const std::filesystem::path node(path);
  _node = node.filename();
  _folder = node.parent_path();
  _folderName = node.parent_path().filename();
  _folderFolder = node.parent_path().parent_path();
  if (_inotify < 0) return;
  watchFolders();
  _notifier = std::make_unique<QSocketNotifier>(_inotify, QSocketNotifier::Read);
  QObject::connect(_notifier.get(), &QSocketNotifier::activated, [this] { readable(); });
}

DeviceNodeWatch::~DeviceNodeWatch() {
  _notifier.reset();
  if (_inotify >= 0) close(_inotify);
}

// The folder comes with the first sound device, and may go with the last.
void DeviceNodeWatch::watchFolders() {
  _folderWatch = inotify_add_watch(_inotify, _folderFolder.c_str(), kChanges);
  _nodeWatch = inotify_add_watch(_inotify, _folder.c_str(), kChanges);
}

void DeviceNodeWatch::readable() {
  alignas(inotify_event) std::array<char, 4096> buffer{};
  const ssize_t size = read(_inotify, buffer.data(), buffer.size());
  bool hasChanged = false;
  for (ssize_t at = 0; at < size;) {
    const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + at);
    const std::string name = event->len > 0 ? event->name : "";
    hasChanged = hasChanged || isOurs(event->wd, name) || (event->mask & IN_Q_OVERFLOW) != 0;
    at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
  }
  if (!hasChanged) return;
  watchFolders();
  _changed();
}

bool DeviceNodeWatch::isOurs(int watch, const std::string& name) const {
  if (watch == _folderWatch && name == _folderName) return true;
  return watch == _nodeWatch && (name == _node || name.empty());
}
