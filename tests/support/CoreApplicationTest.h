// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>

/// A test that needs an event loop, without widgets.
class CoreApplicationTest : public testing::Test {
 protected:
  // What deletes itself later does so now.
  void TearDown() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

 private:
  int _count = 1;
  char _name[5] = "test";
  char* _arguments[2] = {_name, nullptr};
  QCoreApplication _application{_count, _arguments};
};
