// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/ThreadSignal.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <utility>

ThreadSignal::ThreadSignal(std::function<void()> raised)
    : _event(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      _raised(std::move(raised)),
      _notifier(new QSocketNotifier(_event, QSocketNotifier::Read)) {
  QObject::connect(_notifier, &QSocketNotifier::activated, _notifier, [this] { onReadable(); });
}

ThreadSignal::~ThreadSignal() {
  _notifier->setEnabled(false);
  _notifier->disconnect();
  if (_isRaising) {
    _notifier->deleteLater();  // it is the one that is calling
  } else {
    delete _notifier;
  }
  close(_event);
}

void ThreadSignal::raise() const {
  _raises.fetch_add(1, std::memory_order_release);
  eventfd_write(_event, 1);
}

void ThreadSignal::onReadable() {
  eventfd_t count = 0;
  eventfd_read(_event, &count);
  static_cast<void>(_raises.load(std::memory_order_acquire));
  const auto raised = _raised;
  const std::weak_ptr<bool> alive = _isAlive;
  _isRaising = true;
  raised();
  if (!alive.expired()) _isRaising = false;
}
