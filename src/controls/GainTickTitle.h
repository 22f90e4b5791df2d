// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QStringList>
#include <QWidget>
#include <memory>
#include <vector>

#include "controls/ScaleAccessible.h"
#include "controls/TickTextInfo.h"

class GainTickTitle;

/// Who hears of clicks on labels.
class GainTickTitleDelegate {
 public:
  GainTickTitleDelegate() = default;
  GainTickTitleDelegate(const GainTickTitleDelegate&) = delete;
  GainTickTitleDelegate& operator=(const GainTickTitleDelegate&) = delete;
  virtual ~GainTickTitleDelegate() = default;

  /// The text of the label that was clicked.
  virtual void GainTickTitle(class GainTickTitle* /*scale*/, const QString& /*clickAt*/) {}
};

/// A column of labels beside a control, flush right, evenly spaced: the first is centred 30 below
/// the upper edge, the last 30 above the lower one. Lengths in device-independent pixels. Interface
/// thread.
class GainTickTitle : public QWidget, public ReadableScale {
  Q_OBJECT

 public:
  explicit GainTickTitle(QWidget* parent = nullptr);

  [[nodiscard]] const QStringList& texts() const { return _texts; }
  /// Top label first. The labels stay as they are until `initTick`.
  void setTexts(const QStringList& texts) { _texts = texts; }
  /// Makes the labels of `texts`; none is placed before the next drawing.
  void initTick();

  [[nodiscard]] bool enable() const override { return _enable; }
  /// White or dimmed. Clicks are reported either way.
  void setEnable(bool enable);
  [[nodiscard]] std::weak_ptr<GainTickTitleDelegate> delegate() const { return _delegate; }
  void setDelegate(const std::weak_ptr<GainTickTitleDelegate>& delegate) { _delegate = delegate; }

  [[nodiscard]] const std::vector<TickTextInfo>& textRectList() const override {
    return _textRectList;
  }
  /// Reports a click on this label, as the pointer would.
  void click(const TickTextInfo& label) override;
  [[nodiscard]] bool isHeard() const override { return !_delegate.expired(); }

  [[nodiscard]] QSize sizeHint() const override { return {40, 320}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void initUI();
  void measure();
  void placeLabels();
  [[nodiscard]] const TickTextInfo* labelAt(QPointF position) const;

  QColor _disableTextColor;
  std::vector<TickTextInfo> _textRectList;
  bool _enable = false;
  QStringList _texts;
  std::weak_ptr<GainTickTitleDelegate> _delegate;

  std::vector<QSizeF> _sizes;  ///< measured when labels or font change, not while painting
};
