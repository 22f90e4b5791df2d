// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include "controls/AngleViewer.h"
#include "controls/LevelMeter.h"
#include "controls/PathViewer.h"

// Controls that tell where they have drawn what.

struct DrawnDial : AngleViewer {
  using AngleViewer::angleTextList;
  using AngleViewer::radius;
  using AngleViewer::thumbPosition;
  using AngleViewer::thumbSize;
};

struct DrawnMeter : LevelMeter {
  using LevelMeter::maskFrame;
};

struct DrawnPath : PathViewer {
  using PathViewer::textOrigin;
};
