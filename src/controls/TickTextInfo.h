// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QString>
#include <utility>

/// One label of a scale and where it was last drawn. Interface thread.
class TickTextInfo {
 public:
  explicit TickTextInfo(QString text) : _text(std::move(text)) {}

  [[nodiscard]] QString text() const { return _text; }
  /// y upward, device-independent pixels; all zero before the first drawing.
  [[nodiscard]] QRectF frame() const { return _frame; }
  void setFrame(const QRectF& frame) { _frame = frame; }

 private:
  QString _text;
  QRectF _frame;
};
