// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <filesystem>
#include <map>

#include "app/MeasuredTake.h"
#include "app/TakeSession.h"
#include "dialogs/TakeInformation.h"

/// Shows all that is known of a take in a window of its own, its figures at the gain and width of
/// the controls; a take has one window. What the open take has been measured already is not
/// measured again. Interface thread.
class TakeInformant : public QObject {
  Q_OBJECT

 public:
  /// The windows stand over `window`; all three outlive this.
  TakeInformant(QWidget& window, const TakeSession& take, const MeasuredTake& measured,
                QObject* parent = nullptr);

  /// Brings up the window that shows just that already; one with figures of another gain or width
  /// gives way.
  void show(const std::filesystem::path& file);

 private:
  QWidget& _window;
  const TakeSession& _take;
  const MeasuredTake& _measured;
  std::map<std::filesystem::path, QPointer<TakeInformation>> _shown;
};
