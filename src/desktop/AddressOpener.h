// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>

#include "base/Errand.h"

/// Has a folder or page opened by the program that the desktop has for it (`xdg-open`), which runs
/// on by itself. Nothing waits: that program is looked for in folders that may be on any medium.
/// Interface thread, which has an event loop.
class AddressOpener {
 public:
  /// What follows where that program could not be started: from the event loop, but from inside of
  /// `open` where no thread can be had.
  using Failed = std::function<void()>;

  /// Of two at once only the later one fails aloud.
  void open(const QString& address, const Failed& failed = {});

 private:
  Errand _start;
};
