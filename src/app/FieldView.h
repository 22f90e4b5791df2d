// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include "controls/CorrelationBar.h"
#include "controls/FigureLine.h"
#include "controls/StereoScope.h"

/// What stands in the open half of the dial: where the sound is between the channels, and how loud
/// it is. Laid out and named, and nothing more. Interface thread.
class FieldView : public QWidget {
  Q_OBJECT

 public:
  explicit FieldView(QWidget* parent = nullptr);

  StereoScope* scope = nullptr;
  CorrelationBar* correlation = nullptr;
  FigureLine* momentary = nullptr;
  FigureLine* shortTerm = nullptr;
  FigureLine* wholeTake = nullptr;
  FigureLine* truePeak = nullptr;
};
