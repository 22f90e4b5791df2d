// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QIconEngine>
#include <QPixmap>
#include <QString>
#include <QSvgRenderer>
#include <map>
#include <memory>
#include <utility>

/// Draws an icon from an SVG file at whatever size it is asked for, and keeps the pictures of the
/// last sizes. Copies share the parsed file and the pictures. Interface thread.
class ArtworkEngine : public QIconEngine {
 public:
  explicit ArtworkEngine(const QString& file);

  [[nodiscard]] QSize naturalSize() const { return _drawing->defaultSize(); }

  /// The drawing as large as `rect` holds, in its middle; a disabled one is dimmed.
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  [[nodiscard]] QIconEngine* clone() const override { return new ArtworkEngine(*this); }

 private:
  /// By width and height in pixels.
  using Kept = std::map<std::pair<int, int>, QPixmap>;

  void draw(QPainter& painter, const QRect& rect) const;
  [[nodiscard]] QPixmap kept(const QSize& pixels) const;

  std::shared_ptr<QSvgRenderer> _drawing;
  std::shared_ptr<Kept> _kept;
};
