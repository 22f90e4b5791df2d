// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/WaveformPicture.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

void fill(QImage& image, int x, int top, int bottom, QRgb color) {
  for (int y = top; y < bottom; ++y) reinterpret_cast<QRgb*>(image.scanLine(y))[x] = color;
}

}  // namespace

double WaveformPicture::share(float magnitude) {
  if (!(magnitude > 0)) return 0;
  return std::sqrt(std::min(1.0, static_cast<double>(magnitude)));
}

void WaveformPicture::draw(QImage& image, const WaveformColumns& waveform, int height, QColor color,
                           QColor over) {
  const QSize size(static_cast<int>(waveform.columns.size()), std::max(0, height));
  if (image.size() != size) image = QImage(size, QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return;
  image.fill(Qt::transparent);
  const int middle = height / 2;
  const int below = height - middle;
  for (int x = 0; x < size.width(); ++x) {
    const WaveformColumns::Column& column = waveform.columns[static_cast<std::size_t>(x)];
    if (!column.isKnown) continue;
    const auto up = static_cast<int>(std::lround(share(column.left) * middle));
    const auto down = static_cast<int>(std::lround(share(column.right) * below));
    // Silence is a line: it has been measured.
    fill(image, x, middle - std::max(up, 0), middle, (column.left > 1 ? over : color).rgba());
    fill(image, x, middle, middle + std::max(down, 1), (column.right > 1 ? over : color).rgba());
  }
}
