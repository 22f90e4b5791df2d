// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QWidget>
#include <array>

#include "app/CostView.h"
#include "app/FieldView.h"
#include "app/ImageView.h"
#include "app/TabularLabel.h"
#include "app/ValueLabel.h"
#include "controls/AngleViewer.h"
#include "controls/ClipLamp.h"
#include "controls/GainTickTitle.h"
#include "controls/J4GainSlider.h"
#include "controls/LevelMeter.h"

/// The middle of the player's half: dial with the stereo field in its open side, gain and levels
/// side by side, each over its captions.
///
/// Laid out and named, and nothing more. Dial, scales and meters keep their size; captions and
/// labels get the room that their text and font ask for, at least that of the usual ones, and what
/// stands beside them moves on. More width than that goes between them. Interface thread.
class StageView : public QWidget {
  Q_OBJECT

 public:
  explicit StageView(QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override { return _usual; }

  AngleViewer* sliderStereo = nullptr;
  ImageView* imgDevice = nullptr;
  CostView* cost = nullptr;
  QLabel* lblStereo = nullptr;
  ValueLabel* lblStereoValue = nullptr;
  FieldView* field = nullptr;
  QLabel* lblImage = nullptr;
  ValueLabel* lblImageValue = nullptr;
  GainTickTitle* tickOfGain = nullptr;
  J4GainSlider* sliderGain = nullptr;
  QLabel* lblGain = nullptr;
  ValueLabel* lblGainValue = nullptr;
  GainTickTitle* tickOfLevel = nullptr;
  LevelMeter* lvlLeft = nullptr;
  LevelMeter* lvlRight = nullptr;
  ClipLamp* clipLeft = nullptr;
  ClipLamp* clipRight = nullptr;
  QLabel* lblLevel = nullptr;
  QLabel* lblLevelValue = nullptr;
  QLabel* lblLeft = nullptr;
  QLabel* lblRight = nullptr;

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// What all depends on that is placed: texts, and letters of what has always the same ones.
  using Rooms = std::array<QSize, 16>;

  void makeDial();
  void makeField();
  void makeGain();
  void makeLevels();
  template <class Label>
  Label* caption(const char* role, const QString& text = {});
  [[nodiscard]] Rooms rooms() const;
  void place();
  void placeDial(int centre);
  void placeCost(int centre, int middle);
  void placeField(int centre);
  void placeGain(int centre);
  void placeLevels(int centre);
  /// The places of the four, from left to right.
  struct Centres {
    int dial;
    int field;
    int gain;
    int levels;
  };
  [[nodiscard]] Centres centres() const;
  [[nodiscard]] Centres spread(const Centres& at) const;
  void take(QSize least);
  [[nodiscard]] int levelHalf() const;
  /// From the centre of the meters to that of each, and to their scale.
  [[nodiscard]] int toMeter() const;
  [[nodiscard]] int toScale() const;
  int placeCaptions(const Centres& at);
  [[nodiscard]] int scaleWidth(const GainTickTitle& scale) const;

  QSize _usual;
  Rooms _rooms;  ///< when all was last placed
};
