// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidget>

#include "app/MenuButton.h"
#include "app/StageView.h"
#include "app/StatusLine.h"
#include "app/TabularLabel.h"
#include "controls/ElidedLabel.h"
#include "controls/J4Slider.h"
#include "controls/WaveformViewer.h"

/// The right half of the window: the take's name, the stage, and the transport under it. Laid out
/// and named, and nothing more. Interface thread.
class PlayerView : public QWidget {
  Q_OBJECT

 public:
  explicit PlayerView(QWidget* parent = nullptr);

  /// What Tab goes through, in order.
  [[nodiscard]] QWidgetList tabOrder() const;

  ElidedLabel* lblFileName = nullptr;
  ElidedLabel* lblFormat = nullptr;  ///< what the file holds, in a few words
  QPushButton* btnExport = nullptr;
  MenuButton* btnMenu = nullptr;
  StageView* stage = nullptr;
  QVBoxLayout* strips = nullptr;  ///< between stage and position, for what else shows the take
  WaveformViewer* waveform = nullptr;
  J4Slider* sliderTime = nullptr;
  TabularLabel* lblTimeCurrent = nullptr;
  TabularLabel* lblTimeTotal = nullptr;
  QToolButton* btnVolume = nullptr;
  Slider* sliderVolume = nullptr;
  QToolButton* btnPlayPause = nullptr;
  QToolButton* btnLoop = nullptr;  ///< checkable, as are the two that follow
  QToolButton* btnSoloMid = nullptr;
  QToolButton* btnSoloSide = nullptr;
  StatusLine* lblStatus = nullptr;

 private:
  QLayout* makeHeader();
  QLayout* makeLower();
  QLayout* makeTimes();
  QLayout* makeVolume();
  QLayout* makeTransport();
  QLayout* makeListening();
  QToolButton* toggle(const QString& text, const QString& name);
};
