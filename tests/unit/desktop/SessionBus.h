// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>

#include "support/PrivateBus.h"

/// A session bus of its own, with a desktop and a program on it.
class SessionBus {
 public:
  SessionBus() { EXPECT_TRUE(program().isConnected()); }

  [[nodiscard]] QDBusConnection& desktop() const { return *_bus.desktop; }
  [[nodiscard]] QDBusConnection program() const { return _bus.program(); }

 private:
  PrivateBus _bus;
};
