// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QWidget>
#include <filesystem>

#include "app/MeasuredTake.h"
#include "app/TakeSession.h"

/// Shows all that is known of a take in a window of its own, its figures at the gain and width of
/// the controls. What the open take has been measured already is not measured again. Interface
/// thread.
class TakeInformant : public QObject {
  Q_OBJECT

 public:
  /// The windows stand over `window`; all three outlive this.
  TakeInformant(QWidget& window, const TakeSession& take, const MeasuredTake& measured,
                QObject* parent = nullptr);

  void show(const std::filesystem::path& file);

 private:
  QWidget& _window;
  const TakeSession& _take;
  const MeasuredTake& _measured;
};
