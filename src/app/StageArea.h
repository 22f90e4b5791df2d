// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

class StageView;

/// The place of the stage: shows it whole where there is room, and else as much of it as fits, to
/// be scrolled. What gets the focus is brought into view. Interface thread.
class StageArea : public QScrollArea {
  Q_OBJECT

 public:
  StageArea(StageView& stage, QWidget* parent);

  /// The stage's own; never higher.
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {280, 112}; }

 protected:
  bool event(QEvent* event) override;

 private:
  void follow();

  StageView& _stage;
  QSize _followed;  ///< the stage's size when its place was last made to fit
};
