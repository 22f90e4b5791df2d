// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QEvent>

/// An event loop for a test, without widgets; what deletes itself later does so at its end.
class CoreApplication {
 public:
  ~CoreApplication() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

 private:
  int _count = 1;
  char _name[5] = "test";
  char* _arguments[2] = {_name, nullptr};
  QCoreApplication _application{_count, _arguments};
};
