// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QString>
#include <QWidget>
#include <atomic>
#include <memory>
#include <thread>
#include <utility>

namespace {

// As a listing's names do, that a row shows when the lister lets go of its own.
TEST(SharedText, ThatAThreadLetGoOfMayBeFreedByTheToolkit) {
  static std::atomic isLetGo{false};
  auto widget = std::make_unique<QWidget>();
  auto text = QString::number(20261123);
  widget->setAccessibleName(text);
  std::thread([text = std::move(text)]() mutable {
    text = QString();
    isLetGo.store(true, std::memory_order_relaxed);
  }).detach();
  while (!isLetGo.load(std::memory_order_relaxed)) std::this_thread::yield();
  widget.reset();  // the last that has it, as the thread sanitizer does not see
  EXPECT_TRUE(isLetGo);
}

}  // namespace
