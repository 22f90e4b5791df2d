// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QWidget>

#include "app/ImageView.h"
#include "app/TabularLabel.h"
#include "controls/AngleViewer.h"
#include "controls/GainTickTitle.h"
#include "controls/J4GainSlider.h"
#include "controls/LevelMeter.h"

/// The middle of the player's half: dial, gain and levels side by side, each over its captions.
///
/// Laid out and named, and nothing more. Dial, scales and meters keep their size; captions and
/// labels get the room that their text and font ask for, at least that of the usual ones, and what
/// stands beside them moves on. Interface thread.
class StageView : public QWidget {
  Q_OBJECT

 public:
  explicit StageView(QWidget* parent = nullptr);

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
  QLabel* lblLevel = nullptr;
  QLabel* lblLeft = nullptr;
  QLabel* lblRight = nullptr;

 protected:
  bool event(QEvent* event) override;

 private:
  void makeDial();
  void makeGain();
  void makeLevels();
  template <class Label>
  Label* caption(const char* role, const QString& text = {});
  void place();
  void placeDial(int centre);
  void placeGain(int centre);
  void placeLevels(int centre);
  int placeCaptions(int dial, int gain, int levels);
  [[nodiscard]] int scaleWidth(const GainTickTitle& scale) const;
};
