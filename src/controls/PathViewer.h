// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

/// Shows the last component of a folder's path in one line, in black on whatever is behind it. A
/// name that is too wide runs off the left edge, without a mark: its end stays visible. No program
/// shows one; it belongs to the system's interface. Interface thread.
class PathViewer : public QWidget {
  Q_OBJECT

 public:
  explicit PathViewer(QWidget* parent = nullptr);

  [[nodiscard]] const QString& text() const { return _text; }
  void setText(const QString& text);

  /// The name shown: what stands behind the last separator, trailing separators aside.
  [[nodiscard]] QString lastPathComponent() const;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  /// Where the line starts, y upward: 0, or less for a name wider than the view.
  [[nodiscard]] QPointF textOrigin() const;

  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void initUI();
  void measure();

  QString _text;
  QString _shown;
  QSizeF _shownSize;  ///< measured when text or font change, not while painting
};
