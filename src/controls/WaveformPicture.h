// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>

#include "controls/WaveformColumns.h"

/// A waveform as pixels: a column of pixels for each column, Left from the middle up, Right down.
/// Interface thread.
///
/// Heights go by the root of the magnitude, so that what is 20 dB down still fills a third: a
/// recording in the field is seldom loud. Full scale reaches the edge; a channel over it is red
/// over all of its half.
class WaveformPicture {
 public:
  /// The share of its half that a magnitude fills, 0 to 1.
  static double share(float magnitude);

  /// Draws anew into `image`, which keeps its memory where the size stays the same.
  static void draw(QImage& image, const WaveformColumns& waveform, int height, QColor color,
                   QColor over);
};
