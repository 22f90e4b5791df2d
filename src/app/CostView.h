// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QWidget>

#include "analysis/TakeFigures.h"
#include "app/TabularLabel.h"

/// What a width makes of a take, in three short lines: the width, the loudness, the true peak. As
/// small as its place asks for; the pointer goes through it. Hidden until there is something to
/// say. Interface thread.
class CostView : public QWidget {
  Q_OBJECT

 public:
  explicit CostView(QWidget* parent = nullptr);

  /// A width in whole degrees, what the take measures at it, and the colour of its peak.
  void showFigures(int width, const TakeFigures& figures, const QColor& peakColor);

  TabularLabel* lblWidth = nullptr;
  TabularLabel* lblLoudness = nullptr;
  TabularLabel* lblPeak = nullptr;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void fit();
};
