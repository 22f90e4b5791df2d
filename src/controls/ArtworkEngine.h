// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QIconEngine>
#include <QString>
#include <QSvgRenderer>
#include <memory>

/// Draws an icon from an SVG file at whatever size it is asked for. Copies share the parsed file.
/// Interface thread.
class ArtworkEngine : public QIconEngine {
 public:
  explicit ArtworkEngine(const QString& file);

  [[nodiscard]] QSize naturalSize() const { return _drawing->defaultSize(); }

  /// The drawing as large as `rect` holds, in its middle; a disabled one is dimmed.
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  [[nodiscard]] QIconEngine* clone() const override { return new ArtworkEngine(*this); }

 private:
  void paintDimmed(QPainter& painter, const QRect& rect, QIcon::State state);

  std::shared_ptr<QSvgRenderer> _drawing;
};
