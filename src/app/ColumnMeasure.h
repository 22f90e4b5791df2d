// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QTimer>
#include <functional>
#include <memory>

#include "folders/FolderHelper.h"

/// Finds the widest name of a listing, a few milliseconds at a time. Interface thread, which has an
/// event loop.
class ColumnMeasure {
 public:
  /// Told the width in whole pixels, rounded up; 0 for an empty listing.
  using Done = std::function<void(int width)>;

  explicit ColumnMeasure(Done done);

  /// Begins anew; a short listing is measured before this returns.
  void start(std::shared_ptr<const FolderHelper> listing, const QFont& font);

 private:
  void measureSome();

  Done _done;
  std::shared_ptr<const FolderHelper> _listing;  ///< null while there is nothing to do
  QFont _font;
  std::size_t _next = 0;
  double _widest = 0.0;
  QTimer _timer;
};
