// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// A picture in SVG made into one of pixels. Main thread, with a `QGuiApplication` for its text.
class SvgPicture {
 public:
  /// The picture as PNG, two pixels to each of its units in either direction; empty where `svg` is
  /// no picture.
  static QByteArray toPng(const QByteArray& svg);
};
