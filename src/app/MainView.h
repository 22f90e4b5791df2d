// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>

#include "app/BrowserView.h"
#include "app/DeviceView.h"
#include "app/ElidedLabel.h"
#include "app/ImageView.h"
#include "app/StatusLine.h"
#include "app/TabularLabel.h"
#include "controls/AngleViewer.h"
#include "controls/GainTickTitle.h"
#include "controls/J4GainSlider.h"
#include "controls/J4Slider.h"
#include "controls/LevelMeter.h"

/// What the window shows, laid out, named and in Tab order, and nothing more: values and behaviour
/// are the view controller's. Every outlet exists as long as the view. Interface thread.
class MainView : public QWidget {
  Q_OBJECT

 public:
  explicit MainView(QWidget* parent = nullptr);

  /// Text colour of a caption at this opacity, 0 to 1.
  static void setAlpha(QLabel& caption, double alpha);

  BrowserView* browser = nullptr;
  QWidget* viewRightBG = nullptr;

  ElidedLabel* lblFileName = nullptr;
  QLabel* lblFormat = nullptr;  ///< what the file holds, in a few words
  QPushButton* btnExport = nullptr;
  QToolButton* btnMenu = nullptr;
  AngleViewer* sliderStereo = nullptr;
  ImageView* imgDevice = nullptr;
  QLabel* lblStereo = nullptr;
  TabularLabel* lblStereoValue = nullptr;
  GainTickTitle* tickOfGain = nullptr;
  J4GainSlider* sliderGain = nullptr;
  QLabel* lblGain = nullptr;
  TabularLabel* lblGainValue = nullptr;
  GainTickTitle* tickOfLevel = nullptr;
  LevelMeter* lvlLeft = nullptr;
  LevelMeter* lvlRight = nullptr;
  J4Slider* sliderTime = nullptr;
  TabularLabel* lblTimeCurrent = nullptr;
  TabularLabel* lblTimeTotal = nullptr;
  QToolButton* btnVolume = nullptr;
  Slider* sliderVolume = nullptr;
  QToolButton* btnPlayPause = nullptr;
  StatusLine* lblStatus = nullptr;

  DeviceView* device = nullptr;

  QAction* actionOpenFolder = nullptr;
  QAction* actionExport = nullptr;
  QAction* actionQuit = nullptr;
  QAction* actionIntroduction = nullptr;
  QAction* actionHelp = nullptr;
  QAction* actionAbout = nullptr;

 private:
  QWidget* makePlayerPane();
  QLayout* makeHeader();
  QWidget* makeStage();
  void placeDial(QWidget* stage);
  void placeGain(QWidget* stage);
  void placeLevels(QWidget* stage);
  QLayout* makeTimes();
  QLayout* makeTransport();
  void makeMenu();
  QAction* addAction(const QString& text, const QKeySequence& keys);
  void setTabOrders();
};
