// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// A line of text whose digits all take the same room, so that a running time does not jitter.
/// Interface thread.
class TabularLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  /// The room that the text takes.
  [[nodiscard]] double textWidth() const;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
};
